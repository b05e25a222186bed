// The inner forms: the same values as the public routines, ifail's exits and
// the messages they print when asked to.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "specfun/specfun.hpp"
#include "tests/frame/frame_test.hpp"
#include "zil.h"

namespace {

using zil_test::stdout_of;

std::string soft_report(const std::string& message, const char* srname, int number) {
  char closing[96];
  std::snprintf(closing, sizeof closing, " ** ABNORMAL EXIT from ZIL Library routine %s: IFAIL =%6d **\n", srname,
                number);
  return message + "\n" + closing + " ** ZIL soft failure - control returned\n";
}

TEST(InnerByValue, SuccessMatchesThePublicRoutineAndLeavesZero) {
  ZilError e = {};
  for (double x : {-0.5, 1e-10, 3.0}) {
    Integer ifail = -1;
    EXPECT_EQ(zil::s01baf_f(x, ifail), s01bac(x, &e));
    EXPECT_EQ(ifail, 0);
    ifail = 0;
    EXPECT_EQ(zil::s07aaf_f(x, ifail), s07aac(x, &e));
    EXPECT_EQ(ifail, 0);
    ifail = 1;
    EXPECT_EQ(zil::s14abf_f(x + 1.0, ifail), s14abc(x + 1.0, &e));
    EXPECT_EQ(ifail, 0);
  }
}

TEST(InnerByValue, SilentFailuresLeaveTheNumberAndTheFailureValue) {
  struct Case {
    double (*fn)(double, Integer&);
    double x;
    double value;
    Integer number;
  } cases[] = {
      {zil::s01baf_f, -1.0, 0.0, 1},
      {zil::s07aaf_f, 2e10, 0.0, 1},
      {zil::s14abf_f, -3.0, 0.0, 1},
      {zil::s14abf_f, 1e306, 1.79e308, 2},
  };
  for (const Case& c : cases) {
    Integer ifail = 1;
    const std::string out = stdout_of([&] { EXPECT_EQ(c.fn(c.x, ifail), c.value) << c.x; });
    EXPECT_EQ(ifail, c.number) << c.x;
    EXPECT_EQ(out, "") << c.x;
  }
}

TEST(InnerByValue, NoisyFailuresPrintTheirMessages) {
  struct Case {
    double (*fn)(double, Integer&);
    double x;
    const char* srname;
    Integer number;
    const char* message;
  } cases[] = {
      {zil::s01baf_f, -2.0, "S01BAF", 1, " ** On entry, X .le. -1.0: X =  -2.00000e+00"},
      {zil::s07aaf_f, -3e10, "S07AAF", 1, " ** On entry, abs(X) is too large: X =  -3.00000e+10"},
      {zil::s07aaf_f, 1.5707963267948966, "S07AAF", 2,
       " ** X is too close to an odd multiple of pi/2: X =   1.57080e+00"},
      {zil::s14abf_f, 0.0, "S14ABF", 1, " ** On entry, X .le. 0.0: X =   0.00000e+00"},
      {zil::s14abf_f, 3e305, "S14ABF", 2, " ** On entry, X is too large: X =  3.00000e+305"},
  };
  for (const Case& c : cases) {
    Integer ifail = -1;
    const std::string out = stdout_of([&] { c.fn(c.x, ifail); });
    EXPECT_EQ(ifail, c.number) << c.srname;
    EXPECT_EQ(out, soft_report(c.message, c.srname, c.number)) << c.srname;
  }
}

TEST(InnerByValue, IncompleteGammaPairAndItsFailures) {
  ZilError e = {};
  double p1, q1, p2, q2;
  Integer ifail = 1;
  zil::s14baf_f(3.5, 2.0, 0.0, p1, q1, ifail);
  s14bac(3.5, 2.0, 0.0, &p2, &q2, &e);
  EXPECT_EQ(ifail, 0);
  EXPECT_EQ(p1, p2);
  EXPECT_EQ(q1, q2);
  ifail = 1;
  EXPECT_EQ(stdout_of([&] { zil::s14baf_f(0.0, 2.0, 0.0, p1, q1, ifail); }), "");
  EXPECT_EQ(ifail, 1);
  ifail = -1;
  const std::string out = stdout_of([&] { zil::s14baf_f(1.0, -2.0, 0.0, p1, q1, ifail); });
  EXPECT_EQ(ifail, 2);
  EXPECT_EQ(out, soft_report(" ** On entry, X .lt. 0.0: X =  -2.00000e+00", "S14BAF", 2));
}

}  // namespace
