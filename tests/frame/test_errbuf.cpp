// The inner error record: written by the inner layer, read back by the
// public side, with the values carried as the inner descriptor printed them.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "frame/inner.hpp"
#include "frame_test.hpp"

namespace {

using zil::EditArg;
using zil::ErrbufMessage;

// The public side of s14acf: its own literals, one value each.
const ErrbufMessage kGamma[] = {
    {99999, 100, 1, "ZE_REAL:\n    On entry, x = %s.\nConstraint: x > 0.0."},
    {99998, 709, 1, "ZE_UNDERFLOW_LIKELY:\n    Computation halted due to likelihood of underflow.  x may be\n    too large. x = %s."},
    {99997, 710, 1, "ZE_OVERFLOW_LIKELY:\n    Computation halted due to likelihood of overflow.  x may be\n    too small. x = %s."},
};

// A record of 200 positions inside a larger buffer, to see that nothing is
// written past it.
struct Record {
  char bytes[zil::kErrbufSize + 8];
  Record() { std::memset(bytes, '#', sizeof bytes); }
  bool tail_untouched() const {
    for (std::size_t i = zil::kErrbufSize; i < sizeof bytes; ++i)
      if (bytes[i] != '#') return false;
    return true;
  }
};

struct Reported {
  ZilError fail{};
  int calls = 0;
};
Reported* g_reported = nullptr;

void count_reports(const char*, Integer, const char*) { ++g_reported->calls; }

// Reads the record back as a public routine does, into a fresh failure record.
Reported read_back(const char* errbuf, Integer ifail, std::span<const ErrbufMessage> messages) {
  Reported r;
  g_reported = &r;
  r.fail.handler = count_reports;
  zil::Reporter rep(&r.fail, "s14acc", zil::Reporter::Clear::CodeOnly);
  zil::report_errbuf(rep, errbuf, ifail, messages);
  g_reported = nullptr;
  return r;
}

TEST(Errbuf, ResetIsNoneFilledWithBlanksAndTerminated) {
  Record r;
  zil::errbuf_reset(r.bytes);
  EXPECT_EQ(std::string(r.bytes), "NONE" + std::string(195, ' '));
  EXPECT_TRUE(r.tail_untouched());
}

TEST(Errbuf, WriteLaysOutNameNumbersCountAndValues) {
  Record r;
  const EditArg x[] = {EditArg(-1.0)};
  zil::errbuf_write(r.bytes, "S14ACF", 1, 99999, "(A,3(1X,I5),1X,1P,E13.5)", x);
  EXPECT_EQ(std::string(r.bytes), "S14ACF     1 99999     1  -1.00000E+00" + std::string(161, ' '));
  zil::errbuf_write(r.bytes, "M01CAF", 2, 99998, "(A,3(1X,I5))");
  EXPECT_EQ(std::string(r.bytes).substr(0, 25), "M01CAF     2 99998     0 ");
  EXPECT_EQ(std::strlen(r.bytes), 199u);
  EXPECT_TRUE(r.tail_untouched());
}

TEST(Errbuf, NeverWritesBeyondItsLastPosition) {
  Record r;
  const std::string wide(400, 'v');
  const EditArg values[] = {EditArg(wide.c_str())};
  zil::errbuf_write(r.bytes, "LONGER", 1, 99999, "(A,3(1X,I5),1X,A)", values);
  EXPECT_EQ(r.bytes[zil::kErrbufSize - 1], '\0');
  EXPECT_EQ(std::string(r.bytes, 24), "LONGER     1 99999     1");
  EXPECT_TRUE(r.tail_untouched());
}

TEST(Errbuf, RoundTripCarriesTheValueAsTheInnerLayerPrintedIt) {
  struct Case {
    Integer msgid;
    double x;
    Integer code;
    const char* message;
  } cases[] = {
      {99999, -1.0, 100, "ZE_REAL:\n    On entry, x = -1.00000E+00.\nConstraint: x > 0.0."},
      {99998, 171.61447887182297, 709,
       "ZE_UNDERFLOW_LIKELY:\n    Computation halted due to likelihood of underflow.  x may be\n    too large. x = "
       "1.71614E+02."},
      {99997, -2.2250738585072014e-308, 710,
       "ZE_OVERFLOW_LIKELY:\n    Computation halted due to likelihood of overflow.  x may be\n    too small. x = "
       "-2.22507-308."},
  };
  for (const Case& c : cases) {
    char errbuf[zil::kErrbufSize];
    zil::errbuf_reset(errbuf);
    const EditArg x[] = {EditArg(c.x)};
    zil::errbuf_write(errbuf, "S14ACF", 1, c.msgid, "(A,3(1X,I5),1X,1P,E13.5)", x);
    Reported r = read_back(errbuf, 1, kGamma);
    EXPECT_EQ(r.fail.code, c.code);
    EXPECT_STREQ(r.fail.message, c.message);
    EXPECT_EQ(r.fail.errnum, 1);
    EXPECT_EQ(r.calls, 1);
  }
}

TEST(Errbuf, RoundTripOfSeveralValues) {
  const ErrbufMessage messages[] = {
      {99999, 91, 2, "ZE_INT_2:\n  On entry, m1 = %s, m2 = %s.\n  Constraint: m1 <= m2."},
      {99998, 33, 4, "ZE_4_REAL_ARG_CONS:\n  %s %s %s %s"},
      {99997, 29, 3, "ZE_3_INT_ARG_CONS:\n  %s, %s and %s"},
      {99996, 143, 0, "ZE_NO_IMPROVEMENT:\n  No further improvement."},
  };
  char errbuf[zil::kErrbufSize];
  const EditArg two[] = {EditArg(5), EditArg(3)};
  zil::errbuf_write(errbuf, "M01CAF", 3, 99999, "(A,3(1X,I5),2(1X,I16))", two);
  Reported r = read_back(errbuf, 3, messages);
  EXPECT_EQ(r.fail.code, 91);
  EXPECT_STREQ(r.fail.message, "ZE_INT_2:\n  On entry, m1 = 5, m2 = 3.\n  Constraint: m1 <= m2.");
  EXPECT_EQ(r.fail.errnum, 3);

  const EditArg four[] = {EditArg(0.5), EditArg(-2.0), EditArg(1e10), EditArg(0.0)};
  zil::errbuf_write(errbuf, "E04ABF", 2, 99998, "(A,3(1X,I5),4(1X,1P,E12.4))", four);
  r = read_back(errbuf, 2, messages);
  EXPECT_STREQ(r.fail.message, "ZE_4_REAL_ARG_CONS:\n  5.0000E-01 -2.0000E+00 1.0000E+10 0.0000E+00");

  const EditArg three[] = {EditArg(1), EditArg(-22), EditArg(333)};
  zil::errbuf_write(errbuf, "X03AAF", 1, 99997, "(A,3(1X,I5),3(1X,I10))", three);
  EXPECT_STREQ(read_back(errbuf, 1, messages).fail.message, "ZE_3_INT_ARG_CONS:\n  1, -22 and 333");

  zil::errbuf_write(errbuf, "C05AZF", 4, 99996, "(A,3(1X,I5))");
  r = read_back(errbuf, 4, messages);
  EXPECT_EQ(r.fail.code, 143);
  EXPECT_STREQ(r.fail.message, "ZE_NO_IMPROVEMENT:\n  No further improvement.");
}

TEST(Errbuf, UnreadableRecordsAreInternalErrors) {
  ZIL_NEEDS_TABLE(ZE_INTERNAL_ERROR);
  char errbuf[zil::kErrbufSize];
  const EditArg x[] = {EditArg(2.0)};

  // An unknown message id.
  zil::errbuf_write(errbuf, "S14ACF", 1, 12345, "(A,3(1X,I5),1X,1P,E13.5)", x);
  Reported r = read_back(errbuf, 1, kGamma);
  EXPECT_EQ(r.fail.code, ZE_INTERNAL_ERROR);
  EXPECT_STREQ(r.fail.message, zil_errlist[ZE_INTERNAL_ERROR]);
  EXPECT_EQ(r.fail.errnum, 1);
  EXPECT_EQ(r.calls, 1);

  // A known id whose record lacks the value it carries.
  zil::errbuf_write(errbuf, "S14ACF", 2, 99999, "(A,3(1X,I5))");
  r = read_back(errbuf, 2, kGamma);
  EXPECT_EQ(r.fail.code, ZE_INTERNAL_ERROR);
  EXPECT_EQ(r.fail.errnum, 2);
  EXPECT_EQ(r.calls, 1);

  // A record without its three fields: the reader reports it, goes on with
  // no message id, and reports the unknown id as well.
  zil::errbuf_reset(errbuf);
  r = read_back(errbuf, 3, kGamma);
  EXPECT_EQ(r.fail.code, ZE_INTERNAL_ERROR);
  EXPECT_STREQ(r.fail.message, zil_errlist[ZE_INTERNAL_ERROR]);
  EXPECT_EQ(r.fail.errnum, 3);
  EXPECT_EQ(r.calls, 2);
}

}  // namespace
