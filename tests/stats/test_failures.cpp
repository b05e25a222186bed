// Argument checks, failure codes and messages, the edge cases of the
// chapter, and the inner twins' failure numbers.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>
#include <string>

#include "stats/stats.hpp"
#include "tests/frame/frame_test.hpp"
#include "zil.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Fail : ZilError {
  Fail() : ZilError{} {}
  std::string text() const { return message; }
};

TEST(Failures, TailIsCheckedFirst) {
  Fail e;
  EXPECT_EQ(g01eac(1234, 0.5, &e), 0.0);
  EXPECT_EQ(e.code, ZE_BAD_PARAM);
  EXPECT_EQ(e.text(), "ZE_BAD_PARAM:\n  On entry, parameter tail had an illegal value.");
  // Chi-squared, F and gamma take only the one-sided tails.
  EXPECT_EQ(g01ecc(Zil_TwoTailSignif, 1.0, 2.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_BAD_PARAM);
  EXPECT_EQ(g01edc(Zil_TwoTailConfid, 1.0, 2.0, 3.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_BAD_PARAM);
  EXPECT_EQ(g01efc(Zil_TwoTailConfid, 1.0, 2.0, 3.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_BAD_PARAM);
  // ... but g01ecc checks x and df before its tail.
  g01ecc(Zil_TwoTailSignif, -1.0, 2.0, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LT);
}

TEST(Failures, RealChecksWithTheirTexts) {
  Fail e;
  EXPECT_EQ(g01ebc(Zil_LowerTail, 1.0, 0.5, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LT);
  EXPECT_EQ(e.text(), "ZE_REAL_ARG_LT:\n  On entry, df must not be less than 1.0: df = 0.5.");
  g01ebc(Zil_LowerTail, 1.0, kNaN, &e);  // a NaN fails the check
  EXPECT_EQ(e.code, ZE_REAL_ARG_LT);

  double p = -1, q = -1, pdf = -1;
  g01eec(1.5, 2.0, 3.0, 0.0, &p, &q, &pdf, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GT);
  g01eec(0.5, 0.0, 3.0, 0.0, &p, &q, &pdf, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LE);
  g01eec(0.5, 2.0, 2e6, 0.0, &p, &q, &pdf, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GT);
  EXPECT_EQ(e.text(), "ZE_REAL_ARG_GT:\n  On entry, b must not be greater than 1.0e6: b = 2e+06.");

  EXPECT_EQ(g01cec(0.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LE);
  EXPECT_EQ(g01cec(1.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GE);
  EXPECT_EQ(g01fac(Zil_LowerTail, 0.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LE);
  g01fcc(1.0, 3.0, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GE);
  g01fdc(0.5, 3.0, 0.0, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LE);
  g01ffc(0.5, 1.0, -2.0, 0.0, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LE);
  g01fec(1.5, 1.0, 2.0, 0.0, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GT);
}

TEST(Failures, DiscreteChecksInOrder) {
  Fail e;
  double a = -1, b = -1, c = -1;
  g01bjc(-1, 0.5, 0, &a, &b, &c, &e);
  EXPECT_EQ(e.code, ZE_INT_ARG_LT);
  g01bjc(10, 1.0, 0, &a, &b, &c, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GE);
  g01bjc(10, 0.5, 11, &a, &b, &c, &e);
  EXPECT_EQ(e.code, ZE_2_INT_ARG_GT);
  g01bjc(2000000000, 0.5, 3, &a, &b, &c, &e);
  EXPECT_EQ(e.code, ZE_VARIANCE_TOO_LARGE);
  EXPECT_EQ(e.text(), "ZE_VARIANCE_TOO_LARGE:\n  On entry, the variance n*p*(1.0-p) = 5e+08 exceeds 1.0e6.");

  g01bkc(0.0, 1, &a, &b, &c, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LE);
  g01bkc(2.0, -1, &a, &b, &c, &e);
  EXPECT_EQ(e.code, ZE_INT_ARG_LT);
  g01bkc(2e6, 1, &a, &b, &c, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GT);

  g01blc(10, 11, 3, 1, &a, &b, &c, &e);
  EXPECT_EQ(e.code, ZE_2_INT_ARG_GT);
  g01blc(10, 8, 7, 4, &a, &b, &c, &e);  // k must be at least l + m - n = 5
  EXPECT_EQ(e.code, ZE_INT_ARG_CONS);
  g01blc(10, 8, 7, 5, &a, &b, &c, &e);
  EXPECT_EQ(e.code, 0);
  g01blc(2000000000, 1000000000, 1000000000, 500000000, &a, &b, &c, &e);
  EXPECT_EQ(e.code, ZE_VARIANCE_TOO_LARGE);
}

TEST(EdgeCases, ThoseTheChapterNames) {
  Fail e;
  // (s15adc(0) comes out one unit below 1, which this inherits.)
  EXPECT_DOUBLE_EQ(g01eac(Zil_TwoTailSignif, 0.0, &e), 1.0);
  EXPECT_EQ(g01eac(Zil_TwoTailConfid, 0.0, &e), 0.0);
  // df 1 goes through the beta series (tol 1e-05), not the Cauchy form.
  const double cauchy = 0.5 + std::atan(1.0) / M_PI;
  EXPECT_NEAR(g01ebc(Zil_LowerTail, 1.0, 1.0, &e), cauchy, 1e-05);
  // df 20 is Hill's side; both sides agree with the reference to 1e-4.
  EXPECT_NEAR(g01ebc(Zil_UpperTail, 2.0, 20.0, &e), 0.029632767, 1e-06);
  double p, q, pdf;
  g01eec(0.3, 2.0, 3.0, 0.0, &p, &q, &pdf, &e);  // tol 0 means 10 eps
  EXPECT_NEAR(p, 0.3483, 1e-15);
  g01eec(0.0, 0.2, 3.0, 0.0, &p, &q, &pdf, &e);
  EXPECT_EQ(p, 0.0);
  EXPECT_EQ(q, 1.0);
  EXPECT_EQ(pdf, 0.0);
  g01eec(1.0, 0.2, 3.0, 0.0, &p, &q, &pdf, &e);
  EXPECT_EQ(p, 1.0);
  EXPECT_EQ(pdf, 0.0);
  EXPECT_EQ(g01fcc(0.0, 3.0, &e), 0.0);
  EXPECT_EQ(e.code, 0);
  EXPECT_EQ(g01fbc(Zil_TwoTailSignif, 1.0, 5.0, &e), 0.0);
  double le, gt, eq;
  g01bkc(3.0, 1100001, &le, &gt, &eq, &e);
  EXPECT_EQ(le, 1.0);
  EXPECT_EQ(gt, 0.0);
  EXPECT_EQ(eq, 0.0);
  g01bjc(0, 0.5, 0, &le, &gt, &eq, &e);
  EXPECT_EQ(e.code, 0);
  EXPECT_EQ(le, 1.0);
  EXPECT_EQ(eq, 1.0);
  EXPECT_EQ(gt, 0.0);
  g01bjc(7, 0.4, 7, &le, &gt, &eq, &e);
  EXPECT_EQ(le, 1.0);
  EXPECT_NEAR(eq, std::pow(0.4, 7), 1e-15 * eq);
}

TEST(EdgeCases, TailsAndQuantilesAreConsistent) {
  Fail e;
  for (double x : {-3.0, -0.4, 0.7, 5.0}) {
    const double lo = g01eac(Zil_LowerTail, x, &e), up = g01eac(Zil_UpperTail, x, &e);
    EXPECT_NEAR(lo + up, 1.0, 4e-16);
    EXPECT_NEAR(g01fac(Zil_UpperTail, up, &e), x, 1e-8 * std::fabs(x));
    EXPECT_NEAR(g01fac(Zil_TwoTailSignif, g01eac(Zil_TwoTailSignif, x, &e), &e), std::fabs(x), 1e-8 * std::fabs(x));
  }
  // The F quantile inverts the F probability to tol 5e-06 in each regime.
  for (auto [d1, d2] : {std::pair{3.0, 7.0}, {10.0, 2e5}, {3e5, 20.0}, {2e5, 4e5}}) {
    for (double pr : {0.01, 0.5, 0.95}) {
      const double f = g01fdc(pr, d1, d2, &e);
      EXPECT_EQ(e.code, 0);
      EXPECT_NEAR(g01edc(Zil_LowerTail, f, d1, d2, &e), pr, 2e-05 * pr) << d1 << " " << d2;
    }
  }
  for (double pr : {1e-5, 0.3, 0.999}) {
    const double x = g01fcc(pr, 4.5, &e);
    EXPECT_NEAR(g01ecc(Zil_LowerTail, x, 4.5, &e), pr, 2e-05 * pr);
  }
}

// The inner twins: character tails in either case, failure numbers in the
// order of the checks, and the numerical failures after them.
TEST(InnerTwins, NumbersAndValues) {
  Integer ifail = 1;
  EXPECT_EQ(zil::G01EAF('u', 1.0, ifail), g01eac(Zil_UpperTail, 1.0, nullptr));
  EXPECT_EQ(ifail, 0);
  ifail = 1;
  EXPECT_EQ(zil::G01EAF('x', 1.0, ifail), 0.0);
  EXPECT_EQ(ifail, 1);
  ifail = 1;
  zil::G01EBF('L', 1.0, 0.5, ifail);
  EXPECT_EQ(ifail, 2);
  ifail = 1;
  zil::G01ECF('S', 1.0, 2.0, ifail);  // x, df, then tail
  EXPECT_EQ(ifail, 3);
  ifail = 1;
  double p, q, pdf;
  zil::G01EEF(0.5, 3.0, 2e6, 0.0, p, q, pdf, ifail);  // x<0, x>1, a<=0, a>1e6, b<=0, b>1e6
  EXPECT_EQ(ifail, 6);
  ifail = 1;
  zil::G01EDF('L', 0.01, 500.0, 900.0, ifail);  // beta stage underflows
  EXPECT_EQ(ifail, 5);
  ifail = 1;
  double le, gt, eq;
  zil::G01BLF(10, 8, 7, 4, le, gt, eq, ifail);
  EXPECT_EQ(ifail, 9);
  ifail = 1;
  EXPECT_EQ(zil::G01FBF('c', 0.95, 12.0, ifail), g01fbc(Zil_TwoTailConfid, 0.95, 12.0, nullptr));
  EXPECT_EQ(ifail, 0);
}

// With ifail = -1 a twin prints its message and the closing lines of a soft
// failure on the standard output, and returns.
TEST(InnerTwins, PrintedMessages) {
  double p, q, pdf;
  struct Case {
    const char* srname;
    Integer number;
    const char* message;
    std::function<void(Integer&)> call;
  } cases[] = {
      {"G01EAF", 1, " ** On entry, TAIL is an invalid character : TAIL = x",
       [](Integer& i) { zil::G01EAF('x', 1.0, i); }},
      {"G01EBF", 2, " ** On entry, DF.lt.1.0: DF =   5.00000e-01", [](Integer& i) { zil::G01EBF('L', 1.0, 0.5, i); }},
      {"G01EEF", 2, " ** On entry, X.gt.1.0: X =   1.50000e+00",
       [&](Integer& i) { zil::G01EEF(1.5, 3.0, 2.0, 0.0, p, q, pdf, i); }},
      {"G01EDF", 5, " ** F is too far out into the tails for accurate calculation",
       [](Integer& i) { zil::G01EDF('L', 0.01, 500.0, 900.0, i); }},
      // n < 0, p <= 0, p >= 1, k < 0, k > n, n too large, the variance
      {"G01BJF", 5, " ** On entry, K.gt.N: K = 11, N = 10", [&](Integer& i) { zil::G01BJF(10, 0.5, 11, p, q, pdf, i); }},
      {"G01BJF", 7, " ** On entry, the variance n*p*(1.0-p) =   2.50000e+06 exceeds 1.0e6",
       [&](Integer& i) { zil::G01BJF(10000000, 0.5, 0, p, q, pdf, i); }},
      {"G01BKF", 3, " ** On entry, RLAMDA.gt.1.0e6: RLAMDA =   2.00000e+06",
       [&](Integer& i) { zil::G01BKF(2e6, 3, p, q, pdf, i); }},
      {"G01BLF", 9, " ** On entry, K = 4, but the constraint is k >= l + m - n",
       [&](Integer& i) { zil::G01BLF(10, 8, 7, 4, p, q, pdf, i); }},
  };
  for (const Case& c : cases) {
    Integer ifail = -1;
    const std::string out = zil_test::stdout_of([&] { c.call(ifail); });
    char closing[96];
    std::snprintf(closing, sizeof closing, " ** ABNORMAL EXIT from ZIL Library routine %s: IFAIL =%6d **\n", c.srname,
                  static_cast<int>(c.number));
    EXPECT_EQ(ifail, c.number) << c.message;
    EXPECT_EQ(out, std::string(c.message) + "\n" + closing + " ** ZIL soft failure - control returned\n");
  }
}

}  // namespace
