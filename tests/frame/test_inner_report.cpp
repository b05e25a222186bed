// The inner layer's reporters: the ifail table in its three forms, the
// closing lines, the hard stop of the by-reference form, the parameter
// reports and the kernels' illegal parameter report.
#include <gtest/gtest.h>

#include <cfenv>
#include <cstring>
#include <string>
#include <vector>

#include "frame/inner.hpp"
#include "frame_test.hpp"

namespace {

using zil_test::stderr_of;
using zil_test::stdout_of;

enum class Effect { Silent, MessageOnly, Soft, Hard };

struct Row {
  Integer ifail;
  Effect effect;
};

// Every row of the ifail table, with the values around its edges.
const Row kTable[] = {
    {1, Effect::Silent},    {-1, Effect::Soft},        {11, Effect::Soft},   {21, Effect::Soft},
    {0, Effect::Hard},      {10, Effect::Hard},        {110, Effect::Hard},  {12, Effect::Hard},
    {-13, Effect::MessageOnly}, {2, Effect::Silent},   {5, Effect::Silent},  {9, Effect::Silent},
    {100, Effect::Silent},  {101, Effect::Silent},     {-2, Effect::Silent}, {-11, Effect::Silent},
    {-12, Effect::Silent},  {-14, Effect::Silent},     {-100, Effect::Silent},
};

constexpr const char* kSoft = " ** ZIL soft failure - control returned\n";
constexpr const char* kHard = " ** ZIL hard failure - execution terminated\n";

std::string expected(Effect e, const std::string& message, const std::string& closing) {
  switch (e) {
    case Effect::Silent:
      return "";
    case Effect::MessageOnly:
      return message;
    case Effect::Soft:
      return message + closing + kSoft;
    case Effect::Hard:
      return message + closing + kHard;
  }
  return "";
}

TEST(IfailTable, ByValueForm) {
  const char* rec = "** On entry, n < 1: n = 0";
  const std::string closing = " ** ABNORMAL EXIT from ZIL Library routine m01caf_f: IFAIL =     3 **\n";
  for (const Row& row : kTable) {
    Integer result = -99;
    std::string out = stdout_of([&] { result = p01abf_f(row.ifail, 3, "m01caf_f", 1, rec); });
    EXPECT_EQ(out, expected(row.effect, std::string(rec) + "\n", closing)) << "ifail " << row.ifail;
    // The hard line is printed, and the routine still returns the failure.
    EXPECT_EQ(result, 3) << "ifail " << row.ifail;
  }
}

TEST(IfailTable, KernelForm) {
  const char rec[] = " ** On entry to F06PAF parameter 3                      ";
  const std::string closing = " ** ABNORMAL EXIT from ZIL Library routine F06PAF: INFO =     -3\n";
  for (const Row& row : kTable) {
    Integer result = -99;
    std::string err = stderr_of([&] {
      result = p01abf_e(row.ifail, -3, "F06PAFXX", "INFO", 1, rec, 8, 4, static_cast<Integer>(std::strlen(rec)));
    });
    EXPECT_EQ(err, expected(row.effect, " ** On entry to F06PAF parameter 3\n", closing)) << "ifail " << row.ifail;
    EXPECT_EQ(result, -3);
  }
}

TEST(IfailTable, ByReferenceFormSoftAndSilentRows) {
  // Two records of 20 characters: their trailing blanks are not written.
  const char rec[] = " ** First line.      ** Second line.    ";
  const std::string message = " ** First line.\n ** Second line.\n";
  const std::string closing = " ** ABNORMAL EXIT from ZIL Library routine C06EAF: IFAIL =     2\n";
  const Integer ierror = 2, nrec = 2;
  for (const Row& row : kTable) {
    if (row.effect == Effect::Hard) continue;  // ends the process: see the death tests
    Integer result = -99;
    std::string out = stdout_of([&] { result = p01abf_r(&row.ifail, &ierror, "C06EAF", &nrec, rec, 6, 20); });
    EXPECT_EQ(out, expected(row.effect, message, closing)) << "ifail " << row.ifail;
    EXPECT_EQ(result, 2);
  }
}

TEST(IfailTable, SuccessPrintsNothingAndReturnsZero) {
  const Integer noisy = 0, zero = 0, one = 1;
  EXPECT_EQ(stdout_of([&] { EXPECT_EQ(p01abf_f(0, 0, "m01caf_f", 1, "text"), 0); }), "");
  EXPECT_EQ(stderr_of([&] { EXPECT_EQ(p01abf_e(0, 0, "F06PAF", "INFO", 1, "text", 6, 4, 4), 0); }), "");
  EXPECT_EQ(stdout_of([&] { EXPECT_EQ(p01abf_r(&noisy, &zero, "C06EAF", &one, "text", 6, 4), 0); }), "");
}

TEST(IfailTable, ClosingLineOfTheKernelFormWithoutVariableName) {
  std::string err = stderr_of([] { p01abf_e(-1, -1, "F06", "    ", 0, nullptr, 3, 4, 0); });
  EXPECT_EQ(err, std::string(" ** ABNORMAL EXIT from ZIL Library routine    F06\n") + kSoft);
}

TEST(IfailTable, ExitHelpersOfTheTwoForms) {
  std::string out = stdout_of([] {
    EXPECT_EQ(zil::inner_exit_f(1, 4, "c05azf_f", "** silent"), 4);
    EXPECT_EQ(zil::inner_exit_f(-1, 4, "c05azf_f", "** noisy"), 4);
    EXPECT_EQ(zil::inner_exit_r(-13, 1, "C06EAF",
                                zil::edit_format("(' ** At least one prime factor of N is greater than 19.',/,4X,'N =',"
                                                 "I16,'.')",
                                                 23)),
              1);
  });
  EXPECT_EQ(out, "** noisy\n ** ABNORMAL EXIT from ZIL Library routine c05azf_f: IFAIL =     4 **\n" +
                     std::string(kSoft) +
                     " ** At least one prime factor of N is greater than 19.\n    N =              23.\n");
  EXPECT_EQ(zil::inner_exit_f(-1, 0, "c05azf_f", "never printed"), 0);
}

TEST(IfailTable, ByReferenceFormWritesToTheErrorChannel) {
  zil_test::ScratchDir dir;
  const std::string path = dir.file("errors.txt");
  Integer channel = 12, mode = 1, ifail = 0, get = 0, set = 1, old = 0;
  char errbuf[zil::kErrbufSize];
  x04acf_r(&channel, path.c_str(), &mode, errbuf, &ifail, static_cast<Integer>(path.size()));
  ASSERT_EQ(ifail, 0);
  x04aaf_r(&get, &old);
  x04aaf_r(&set, &channel);
  Integer soft = -1;
  std::string out = stdout_of([&] { zil::inner_exit_r(soft, 7, "D01AJF", {" ** Failure seven."}); });
  x04aaf_r(&set, &old);
  x04adf_r(&channel, errbuf, &ifail);
  EXPECT_EQ(out, "");
  EXPECT_EQ(zil_test::read_file(path), std::string(" ** Failure seven.\n ** ABNORMAL EXIT from ZIL Library routine "
                                                   "D01AJF: IFAIL =     7\n") +
                                           kSoft);
}

// The end of the process, in a child: the report goes to a file channel,
// which the stop closes, and each raised floating-point flag gets its line.
void hard_stop(const std::string& path, Integer ifail, int flags) {
  Integer channel = 11, mode = 1, status = 1, set = 1, length = 23;
  char errbuf[zil::kErrbufSize];
  x04acf_r(&channel, path.c_str(), &mode, errbuf, &status, static_cast<Integer>(path.size()));
  x04aaf_r(&set, &channel);
  x04text_r(&channel, "written before the stop", &length);
  std::feclearexcept(FE_ALL_EXCEPT);
  if (flags) std::feraiseexcept(flags);
  const Integer ierror = 5, nrec = 1;
  p01abf_r(&ifail, &ierror, "S14ACF", &nrec, " ** The message.", 6, 16);
  std::fputs("returned\n", stderr);
}

using InnerReportDeathTest = testing::Test;

TEST_F(InnerReportDeathTest, ByReferenceHardFailureEndsTheProcessWithStatusZero) {
  zil_test::ScratchDir dir;
  const std::string path = dir.file("hard.txt");
  const std::string report = "written before the stop\n ** The message.\n"
                             " ** ABNORMAL EXIT from ZIL Library routine S14ACF: IFAIL =     5\n" +
                             std::string(kHard);
  for (Integer ifail : {0, 10, 110}) {
    std::filesystem::remove(path);
    EXPECT_EXIT(hard_stop(path, ifail, 0), testing::ExitedWithCode(0),
                testing::Matcher<const std::string&>(std::string("")))
        << "ifail " << ifail;
    EXPECT_EQ(zil_test::read_file(path), report) << "ifail " << ifail;
  }
}

TEST_F(InnerReportDeathTest, HardStopNamesEachRaisedFloatingPointFlag) {
  zil_test::ScratchDir dir;
  const std::string path = dir.file("flags.txt");
  EXPECT_EXIT(hard_stop(path, 0, FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW),
              testing::ExitedWithCode(0),
              testing::Matcher<const std::string&>(std::string("Warning: Floating invalid operand occurred\n"
                                                               "Warning: Floating divide by zero occurred\n"
                                                               "Warning: Floating overflow occurred\n"
                                                               "Warning: Floating underflow occurred\n")));
  EXPECT_EXIT(hard_stop(path, 0, FE_OVERFLOW), testing::ExitedWithCode(0),
              testing::Matcher<const std::string&>(std::string("Warning: Floating overflow occurred\n")));
}

TEST(ParameterReports, ByValueFormsPrintOneLetterOfEachName) {
  Integer nerrs = 0;
  std::string out = stdout_of([&] {
    p01par_s_f("TRANSPOSE", "TRANS", 0, &nerrs, "F01BRF");
    p01par_i_f(-5, "N", -1, &nerrs, "f03aaf");
  });
  EXPECT_EQ(out,
            "\n *****  Parameter  T  is invalid in routine  F  ***** \n        Value supplied is\n        T\n"
            "\n *****  Parameter  N  is invalid in routine  f  ***** \n        Value supplied is     -5\n");
  EXPECT_EQ(nerrs, 2);
}

TEST(ParameterReports, ByReferenceFormsUseTheEditDescriptorText) {
  Integer nerrs = 3, noisy = 0, value = -5;
  std::string out = stdout_of([&] {
    p01par_s_r("X   ", "TRANS", &noisy, &nerrs, "F01BRF", 4, 5, 6);
    p01par_i_r(&value, "N", &noisy, &nerrs, "F03AAF", 1, 6);
  });
  EXPECT_EQ(out,
            " \n *****  Parameter  TRANS  is invalid in routine  F01BRF  *****\n        Value supplied is\n        X\n"
            " \n *****  Parameter  N  is invalid in routine  F03AAF  *****\n        Value supplied is     -5\n");
  EXPECT_EQ(nerrs, 5);
}

TEST(ParameterReports, LinesOfTheByReferenceFormsHold65Characters) {
  Integer nerrs = 0, noisy = 10, value = 1;
  std::string out = stdout_of([&] { p01par_i_r(&value, "LONGNAME", &noisy, &nerrs, "F04ABCDEFG", 8, 10); });
  const std::string first = out.substr(2, out.find('\n', 2) - 2);
  EXPECT_EQ(first, std::string(" *****  Parameter  LONGNAME  is invalid in routine  F04ABCDEFG  ***** ").substr(0, 65));
}

TEST(ParameterReports, CountWithoutPrintingOnlyWhenSoftAndSilent) {
  for (Integer ifail : {1, 101, 11, -1, 0, 2}) {
    Integer nerrs = 0, value = 7;
    const bool silent = ifail == 1 || ifail == 101;
    std::string out = stdout_of([&] {
      p01par_i_f(value, "M", ifail, &nerrs, "F01");
      p01par_s_f("v", "M", ifail, &nerrs, "F01");
      p01par_i_r(&value, "M", &ifail, &nerrs, "F01", 1, 3);
      p01par_s_r("v", "M", &ifail, &nerrs, "F01", 1, 1, 3);
    });
    EXPECT_EQ(nerrs, 4) << "ifail " << ifail;
    EXPECT_EQ(out.empty(), silent) << "ifail " << ifail;
  }
}

TEST(KernelParameterReport, AlwaysNoisyAndReturns) {
  Integer info = 3;
  std::string err = stderr_of([&] { f06aaf_r("F06PAF", &info, 6); });
  EXPECT_EQ(err,
            " ** On entry to        F06PAF parameter number  3 had an illegal value\n"
            " ** ABNORMAL EXIT from ZIL Library routine F06PAF\n" +
                std::string(kHard));
  info = 12;
  err = stderr_of([&] { f06aaf_r("DGEMV", &info, 5); });
  EXPECT_EQ(err,
            " ** On entry to         DGEMV parameter number 12 had an illegal value\n"
            " ** ABNORMAL EXIT from ZIL Library routine  DGEMV: INFO =    -12\n" +
                std::string(kHard));
}

}  // namespace
