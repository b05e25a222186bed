// The public reporter p01acc, the Reporter the public routines use, and the
// workspace holder.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "frame/report.hpp"
#include "frame/workspace.hpp"
#include "zil.h"

namespace {

struct HandlerCall {
  std::string message;
  Integer code;
  std::string routine;
  std::string record_message;  // what the record held when the handler ran
};
std::vector<HandlerCall> g_calls;
ZilError* g_record = nullptr;

void recording_handler(const char* message, Integer code, const char* routine) {
  g_calls.push_back({message, code, routine, g_record ? g_record->message : ""});
}

ZilError fresh_record(bool print = false) {
  ZilError e{};
  e.print = print ? TRUE : FALSE;
  e.code = -99;
  e.errnum = -99;
  return e;
}

std::string reported_stderr(const std::function<void()>& body) {
  testing::internal::CaptureStderr();
  body();
  return testing::internal::GetCapturedStderr();
}

const char* const kErrorText = "ZE_INT_ARG_LT:\n  On entry, n must not be less than 1: n = 0.";
const char* const kWarningText = "ZW_INT:\n  On exit, k = 3.\n  Trivial solution returned.";
const char* const kTerminated = "ZIL Function Terminated\n...ZIL Function Terminated\n";

}  // namespace

TEST(P01acc, NullRecordErrorShowsErrorBoxThenTerminationBox) {
  std::string err = reported_stderr([] { p01acc(kErrorText, ZE_INT_ARG_LT, "m01cac", nullptr); });
  EXPECT_EQ(err, std::string("ZIL_RUNTIME_ERROR\nError Detected by ZIL Routine m01cac: ") + kErrorText +
                     "\n" + kTerminated);
}

TEST(P01acc, NullRecordWarningStillEndsWithTerminationBox) {
  std::string err = reported_stderr([] { p01acc(kWarningText, 129, "x99zzc", nullptr); });
  EXPECT_EQ(err, std::string("ZIL_RUNTIME_WARNING\nWarning From ZIL Routine x99zzc: ") + kWarningText +
                     "\n" + kTerminated);
}

TEST(P01acc, QuietRecordIsFilledWithoutBox) {
  ZilError e = fresh_record();
  std::string err = reported_stderr([&] { p01acc(kErrorText, ZE_INT_ARG_LT, "m01cac", &e); });
  EXPECT_EQ(err, "");
  EXPECT_EQ(e.code, ZE_INT_ARG_LT);
  EXPECT_STREQ(e.message, kErrorText);
  EXPECT_EQ(e.errnum, -99) << "p01acc leaves errnum to the routine";
}

TEST(P01acc, PrintingRecordShowsOneBoxOnly) {
  ZilError e = fresh_record(true);
  std::string err = reported_stderr([&] { p01acc(kErrorText, ZE_INT_ARG_LT, "m01cac", &e); });
  EXPECT_EQ(err, std::string("ZIL_RUNTIME_ERROR\nError Detected by ZIL Routine m01cac: ") + kErrorText + "\n");
  EXPECT_EQ(e.code, ZE_INT_ARG_LT);
}

TEST(P01acc, HandlerSeesNewCodeAndOldMessageField) {
  ZilError e = fresh_record();
  std::snprintf(e.message, sizeof e.message, "previous");
  e.handler = recording_handler;
  g_calls.clear();
  g_record = &e;
  p01acc(kErrorText, ZE_INT_ARG_LT, "m01cac", &e);
  g_record = nullptr;
  ASSERT_EQ(g_calls.size(), 1u);
  EXPECT_EQ(g_calls[0].message, kErrorText);
  EXPECT_EQ(g_calls[0].code, ZE_INT_ARG_LT);
  EXPECT_EQ(g_calls[0].routine, "m01cac");
  EXPECT_EQ(g_calls[0].record_message, "previous");
}

TEST(P01acc, SuccessFillsRecordAndFiresHandler) {
  ZilError e = fresh_record(true);
  e.handler = recording_handler;
  g_calls.clear();
  std::string err = reported_stderr([&] { p01acc(nullptr, 0, "c05nbc", &e); });
  EXPECT_EQ(err, "") << "no box on success, even with print set";
  EXPECT_EQ(e.code, 0);
  EXPECT_STREQ(e.message, "ZE_NOERROR:\n  No error.");
  ASSERT_EQ(g_calls.size(), 1u);
  EXPECT_EQ(g_calls[0].message, "ZE_NOERROR:\n  No error.");
  EXPECT_EQ(g_calls[0].code, 0);
}

TEST(P01acc, SuccessWithoutRecordDoesNothing) {
  EXPECT_EQ(reported_stderr([] { p01acc(nullptr, 0, "c05nbc", nullptr); }), "");
}

TEST(P01acc, BoxKindIsReadFromTheTextNotTheCode) {
  // A warning code with an error text shows an error box, and the reverse.
  EXPECT_NE(reported_stderr([] { p01acc(kErrorText, 129, "r", nullptr); }).find("ZIL_RUNTIME_ERROR\n"), std::string::npos);
  EXPECT_NE(reported_stderr([] { p01acc(kWarningText, 11, "r", nullptr); }).find("ZIL_RUNTIME_WARNING\n"), std::string::npos);
  // No Z in the first five characters: the sixth decides.
  EXPECT_EQ(reported_stderr([] { p01acc("abcdeE text", 11, "r", nullptr); }).rfind("ZIL_RUNTIME_ERROR\n", 0), 0u);
  EXPECT_EQ(reported_stderr([] { p01acc("abcdeW text", 11, "r", nullptr); }).rfind("ZIL_RUNTIME_WARNING\n", 0), 0u);
  // A Z within the first five: the letter after it decides.
  EXPECT_EQ(reported_stderr([] { p01acc("  ZE_", 11, "r", nullptr); }).rfind("ZIL_RUNTIME_ERROR\n", 0), 0u);
  EXPECT_EQ(reported_stderr([] { p01acc("xZQ E", 11, "r", nullptr); }).rfind("ZIL_RUNTIME_WARNING\n", 0), 0u);
  // A short text with no Z and no sixth character is a warning.
  EXPECT_EQ(reported_stderr([] { p01acc("abc", 11, "r", nullptr); }).rfind("ZIL_RUNTIME_WARNING\n", 0), 0u);
}

TEST(P01acc, CodeOutsideTheTableGivesAnEmptyText) {
  ZilError e = fresh_record();
  p01acc(nullptr, 9999, "r", &e);
  EXPECT_EQ(e.code, 9999);
  EXPECT_STREQ(e.message, "");
  p01acc(nullptr, -1, "r", &e);
  EXPECT_STREQ(e.message, "");
}

TEST(P01acc, OverlongTextNeverOverrunsTheRecord) {
  std::string longtext = "ZE_INTERNAL_ERROR:\n  " + std::string(2000, 'x');
  ZilError e = fresh_record(true);
  std::string err = reported_stderr([&] { p01acc(longtext.c_str(), ZE_INTERNAL_ERROR, "r", &e); });
  EXPECT_EQ(std::strlen(e.message), sizeof e.message - 1);
  EXPECT_EQ(std::string(e.message), longtext.substr(0, sizeof e.message - 1));
  EXPECT_LT(err.size(), 600u) << "the box text is bounded too";
}

TEST(F06aaz, AlwaysShowsABoxNamingTheParameter) {
  std::string err = reported_stderr([] { f06aaz("f06pac", 3); });
  EXPECT_EQ(err,
            "ZIL_RUNTIME_ERROR\nError Detected by ZIL Routine f06pac: "
            "ZE_F06_BAD_PARAM:\n  On entry, parameter number 3 had an illegal value.\n");
}

TEST(F06aaz, ReReportCorrectsThePositionByComplement) {
  ZilError e = fresh_record();
  e.code = ZE_INT;
  e.argnum = -4;  // fourth argument of the f16 routine ...
  std::string err = reported_stderr([&] { f06aaz_d("f06pac", &e); });
  EXPECT_EQ(e.print, TRUE);
  EXPECT_EQ(e.code, ZE_F06_BAD_PARAM);
  // ... is the third of the f06 routine, which has no storage order.
  EXPECT_STREQ(e.message, "ZE_F06_BAD_PARAM:\n  On entry, parameter number 3 had an illegal value.");
  EXPECT_NE(err.find("ZIL_RUNTIME_ERROR"), std::string::npos);
}

TEST(F06aaz, ReReportOfAllocationFailureKeepsItsCode) {
  ZilError e = fresh_record();
  e.code = ZE_ALLOC_FAIL;
  reported_stderr([&] { f06aaz_d("f06yac", &e); });
  EXPECT_EQ(e.code, ZE_ALLOC_FAIL);
  EXPECT_STREQ(e.message, "ZE_ALLOC_FAIL:\n  Memory allocation failed.");
}

// ---- Reporter --------------------------------------------------------------

TEST(Reporter, ClearsTheRecordAsAsked) {
  ZilError e = fresh_record();
  e.argnum = e.argval = 7;
  { zil::Reporter rep(&e, "r"); }
  EXPECT_EQ(e.code, 0);
  EXPECT_EQ(e.errnum, 0);
  EXPECT_EQ(e.argnum, 7);
  e.errnum = 5;
  { zil::Reporter rep(&e, "r", zil::Reporter::Clear::CodeOnly); }
  EXPECT_EQ(e.errnum, 5);
  { zil::Reporter rep(&e, "r", zil::Reporter::Clear::All); }
  EXPECT_EQ(e.errnum, 0);
  EXPECT_EQ(e.argnum, 0);
  EXPECT_EQ(e.argval, 0);
  zil::Reporter none(nullptr, "r");  // a null record is always allowed
  none.set_errnum(3);
  none.success();
}

TEST(Reporter, IntegerChecksMakeTheTableMessages) {
  ZilError e = fresh_record();
  zil::Reporter rep(&e, "m01cac");
  EXPECT_FALSE(rep.int_lt("n", 1, 1));
  EXPECT_FALSE(rep.failed());
  EXPECT_TRUE(rep.int_lt("n", 0, 1));
  EXPECT_TRUE(rep.failed());
  EXPECT_EQ(e.code, ZE_INT_ARG_LT);
  EXPECT_STREQ(e.message, "ZE_INT_ARG_LT:\n  On entry, n must not be less than 1: n = 0.");

  EXPECT_TRUE(rep.int_gt("m2", 11, 10, "n"));
  EXPECT_STREQ(e.message, "ZE_INT_ARG_GT:\n  On entry, m2 must not be greater than n: m2 = 11.");
  EXPECT_TRUE(rep.int_le("stepa", 0, 0));
  EXPECT_STREQ(e.message, "ZE_INT_ARG_LE:\n  On entry, stepa must not be less than or equal to 0: stepa = 0.");

  EXPECT_TRUE(rep.int2_lt("tda", 2, "n", 3));
  EXPECT_STREQ(e.message,
               "ZE_2_INT_ARG_LT:\n  On entry, tda =  2 while n =  3.\n  These parameters must satisfy tda >= n.");

  EXPECT_TRUE(rep.require(false, ZE_INT, "pda", -1L, "pda >= MAX(1,n)"));
  EXPECT_STREQ(e.message, "ZE_INT:\n  On entry, pda = -1.\n  Constraint: pda >= MAX(1,n).");

  // A bound made with its own small format travels as its text.
  rep.raise(ZE_REAL_ARG_GT, "x", zil::Num(170.0, "%6.1g"), "x", 171.5);
  EXPECT_STREQ(e.message, "ZE_REAL_ARG_GT:\n  On entry, x must not be greater than  2e+02: x = 171.5.");
  EXPECT_TRUE(rep.require(false, ZE_INT, "pda", -1L, "pda >= MAX(1,n)"));
  EXPECT_STREQ(e.message, "ZE_INT:\n  On entry, pda = -1.\n  Constraint: pda >= MAX(1,n).");
}

TEST(Reporter, RealChecksFailOnNaN) {
  ZilError e = fresh_record();
  zil::Reporter rep(&e, "c05nbc");
  EXPECT_FALSE(rep.real_lt("xtol", 0.0, 0.0));
  EXPECT_TRUE(rep.real_lt("xtol", std::nan(""), 0.0, "0.0"));
  EXPECT_EQ(e.code, ZE_REAL_ARG_LT);
  EXPECT_STREQ(e.message, "ZE_REAL_ARG_LT:\n  On entry, xtol must not be less than 0.0: xtol = nan.");
  EXPECT_TRUE(rep.real_le("tol", -1.5, 0.0));
  EXPECT_STREQ(e.message, "ZE_REAL_ARG_LE:\n  On entry, tol must not be less than or equal to 0: tol = -1.5.");
}

TEST(Reporter, NullParameterAndOwnLiteral) {
  ZilError e = fresh_record();
  zil::Reporter rep(&e, "s14acc");
  EXPECT_FALSE(rep.null_param(&e, "x"));
  EXPECT_TRUE(rep.null_param(nullptr, "x"));
  EXPECT_STREQ(e.message, "ZE_BAD_PARAM:\n  On entry, parameter x had an illegal value.");
  rep.raise_text(ZE_REAL, "ZE_REAL:\n    On entry, x = %s.\nConstraint: x > 0.0.", "-1.00000E+00");
  EXPECT_EQ(e.code, ZE_REAL);
  EXPECT_STREQ(e.message, "ZE_REAL:\n    On entry, x = -1.00000E+00.\nConstraint: x > 0.0.");
  rep.alloc_fail();
  EXPECT_STREQ(e.message, "ZE_ALLOC_FAIL:\n  Memory allocation failed.");
}

TEST(Reporter, OverlongArgumentsAreCutAtTheRecordSize) {
  ZilError e = fresh_record();
  zil::Reporter rep(&e, "r");
  std::string name(3000, 'n');
  rep.raise(ZE_BAD_PARAM, name.c_str());
  EXPECT_EQ(std::strlen(e.message), sizeof e.message - 1);
}

TEST(Reporter, ShieldedTurnsExceptionsIntoCodes) {
  ZilError e = fresh_record();
  zil::Reporter rep(&e, "r");
  EXPECT_TRUE(zil::shielded(rep, [] {}));
  EXPECT_FALSE(zil::shielded(rep, [] { throw std::bad_alloc(); }));
  EXPECT_EQ(e.code, ZE_ALLOC_FAIL);
  EXPECT_FALSE(zil::shielded(rep, [] { throw 42; }));
  EXPECT_EQ(e.code, ZE_INTERNAL_ERROR);
}

// ---- Workspace and storage -------------------------------------------------

TEST(Workspace, EmptyRequestStillYieldsABlock) {
  zil::Workspace<double> w(0);
  ASSERT_TRUE(w);
  w[0] = 1.0;
}

TEST(Workspace, OversizedRequestFailsWithoutAllocating) {
  zil::Workspace<double> w(std::numeric_limits<std::size_t>::max() / 4);
  EXPECT_FALSE(w);
}

TEST(Workspace, ReleasedBlockBelongsToTheCaller) {
  double* p;
  {
    zil::Workspace<double> w(4);
    ASSERT_TRUE(w);
    p = w.release();
    EXPECT_FALSE(w);
  }
  p[3] = 2.0;  // still ours after the holder is gone
  Pointer q = p;
  x04bdc(&q);
  EXPECT_EQ(q, nullptr);
}

TEST(Storage, FreeingNullIsHarmlessAndReallocKeepsData) {
  Pointer p = nullptr;
  x04bdc(&p);
  EXPECT_EQ(p, nullptr);
  x04bdc(nullptr);
  p = x04bbc(2 * sizeof(int));
  ASSERT_NE(p, nullptr);
  static_cast<int*>(p)[1] = 77;
  p = x04bcc(p, 1000 * sizeof(int));
  ASSERT_NE(p, nullptr);
  EXPECT_EQ(static_cast<int*>(p)[1], 77);
  x04bdc(&p);
  EXPECT_EQ(p, nullptr);
}
