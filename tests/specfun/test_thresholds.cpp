// The values the routines fix at their thresholds, their failures with codes
// and messages, and bad input (NaN, infinities, extreme doubles, -0).
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstring>

#include "zil.h"

namespace {


TEST(Thresholds, FixedValues) {
  EXPECT_EQ(s15adc(26.6), 0.0);
  EXPECT_GT(s15adc(std::nextafter(26.6, 0.0)), 0.0 - 1.0);
  EXPECT_EQ(s15adc(-6.25), 2.0);
  EXPECT_EQ(s15aec(6.25), 1.0);
  EXPECT_EQ(s15aec(-6.25), -1.0);
  EXPECT_EQ(s13adc(1e17), 1e17);
  EXPECT_EQ(s13adc(-1e17), 1e17);
  EXPECT_EQ(s10aac(18.5), 1.0);
  EXPECT_EQ(s10aac(-18.5), -1.0);
  EXPECT_TRUE(std::signbit(s10aac(-0.0)));
  EXPECT_EQ(s11abc(1e9), std::log(1e9) + 0.6931471805599453);
  EXPECT_EQ(s20acc(1e-103), 0.0);
  EXPECT_EQ(s20acc(0.00044), 0.00044 * 0.00044 * 0.00044 * 0.5235987755982989);
  EXPECT_EQ(s20acc(4294967290.0), 0.5);
  EXPECT_EQ(s20adc(-4294967290.0), -0.5);
  EXPECT_EQ(s15afc(0.0), 0.0);
  ZilError e = {};
  EXPECT_EQ(s13aac(708.3, &e), 0.0);
  EXPECT_EQ(e.code, 0);
  EXPECT_EQ(s13acc(1e16, &e), 0.0);
  EXPECT_EQ(e.code, 0);
  EXPECT_EQ(s14aac(3e-15, &e), 1.0 / 3e-15);
  EXPECT_EQ(s14abc(1e-15, &e), -std::log(1e-15));
  EXPECT_EQ(s14abc(2.55e305, &e), (2.55e305 - 0.5) * std::log(2.55e305) - 2.55e305 + 0.9189385332046727);
  EXPECT_EQ(e.code, 0);
  EXPECT_EQ(s11acc(1.0, &e), 0.0);
}

TEST(Failures, CodesValuesAndMessages) {
  ZilError e = {};
  EXPECT_EQ(s01bac(-1.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LE);
  EXPECT_STREQ(e.message, "ZE_REAL_ARG_LE:\n  On entry, x must not be less than or equal to -1.0: x = -1.");
  EXPECT_EQ(s14aac(170.0, &e), 4.3e304);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GT);
  EXPECT_STREQ(e.message, "ZE_REAL_ARG_GT:\n  On entry, x must not be greater than  2e+02: x = 170.");
  EXPECT_EQ(s14aac(-170.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LT);
  EXPECT_EQ(s14aac(-2.0, &e), 4.3e304);
  EXPECT_EQ(e.code, 708);
  EXPECT_EQ(s14aac(1e-320, &e), 4.4843049327354256e307);
  EXPECT_EQ(e.code, 707);
  EXPECT_EQ(s14aac(-0.0, &e), -4.4843049327354256e307);
  EXPECT_EQ(e.code, 707);
  EXPECT_EQ(s14abc(0.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LE);
  EXPECT_EQ(s14abc(std::nextafter(2.55e305, INFINITY), &e), 1.79e308);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GT);
  EXPECT_EQ(s10abc(800.0, &e), (std::exp(708.0) - std::exp(-708.0)) * 0.5);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GT);
  EXPECT_STREQ(e.message, "ZE_REAL_ARG_GT:\n  On entry, |x| must not be greater than  708: |x| = 800.");
  EXPECT_EQ(s10acc(-800.0, &e), (std::exp(-708.0) + std::exp(708.0)) * 0.5);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GT);
  e.errnum = 5;
  EXPECT_EQ(s11aac(1.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GE);
  EXPECT_EQ(e.errnum, 5);  // checked before the record is cleared
  EXPECT_EQ(s11acc(0.5, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LT);
  EXPECT_EQ(s13aac(0.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LE);
  EXPECT_EQ(s13acc(-1.0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LE);
  EXPECT_EQ(s07aac(2e10, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL_ARG_GT);
  EXPECT_STREQ(e.message, "ZE_REAL_ARG_GT:\n  On entry, x must not be greater than fl1: x = 2e+10.");
  double p = -1, q = -1;
  s14bac(0.0, 1.0, 0.0, &p, &q, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LE);
  s14bac(1.0, -1.0, 0.0, &p, &q, &e);
  EXPECT_EQ(e.code, ZE_REAL_ARG_LT);
  s14bac(2.0, 0.0, 0.0, &p, &q, &e);
  EXPECT_EQ(e.code, 0);
  EXPECT_EQ(p, 0.0);
  EXPECT_EQ(q, 1.0);
}

// Every routine on NaN, infinities, the extreme doubles and -0: no crash,
// and a finite failure value wherever a failure is reported.
TEST(BadInput, NoCrashAndFiniteFailureValues) {
  const double xs[] = {NAN, INFINITY, -INFINITY, DBL_MAX, -DBL_MAX, DBL_MIN, -DBL_MIN, 4.9e-324, -0.0, 0.0};
  double (*with_fail[])(double, ZilError*) = {s01bac, s07aac, s10abc, s10acc, s11aac, s11acc,
                                              s13aac, s13acc, s14aac, s14abc};
  double (*plain[])(double) = {s10aac, s11abc, s13adc, s15abc, s15acc, s15adc, s15aec, s15afc, s20acc, s20adc};
  for (double x : xs) {
    for (auto f : with_fail) {
      ZilError e = {};
      const double v = f(x, &e);
      if (e.code != 0) EXPECT_TRUE(std::isfinite(v)) << "x=" << x;
      f(x, nullptr);
    }
    for (auto f : plain) (void)f(x);
    double p, q;
    ZilError e = {};
    s14bac(2.0, x, 0.0, &p, &q, &e);
    s14bac(x, 2.0, 0.0, &p, &q, &e);
  }
}

// Both sides of every switch of method agree with each other closely.
TEST(Thresholds, ContinuousAcrossSwitches) {
  auto close = [](double a, double b, double ulps) { return std::fabs(a - b) <= ulps * DBL_EPSILON * std::fabs(b); };
  for (double t : {1.0, 2.0, 4.0}) {
    ZilError e = {};
    EXPECT_TRUE(close(s13aac(std::nextafter(t, 0.0), &e), s13aac(std::nextafter(t, 10.0), &e), 8)) << t;
  }
  EXPECT_TRUE(close(s15aec(std::nextafter(2.0, 0.0)), s15aec(std::nextafter(2.0, 3.0)), 4));
  EXPECT_TRUE(close(s15afc(std::nextafter(4.0, 0.0)), s15afc(std::nextafter(4.0, 5.0)), 8));
  EXPECT_TRUE(close(s20acc(std::nextafter(3.0, 0.0)), s20acc(std::nextafter(3.0, 4.0)), 16));
  EXPECT_TRUE(close(s20adc(std::nextafter(3.0, 0.0)), s20adc(std::nextafter(3.0, 4.0)), 16));
  EXPECT_TRUE(close(s13adc(std::nextafter(16.0, 0.0)), s13adc(std::nextafter(16.0, 17.0)), 8));
  ZilError e = {};
  EXPECT_TRUE(close(s14abc(std::nextafter(15.0, 0.0), &e), s14abc(std::nextafter(15.0, 16.0), &e), 8));
  EXPECT_TRUE(close(s14abc(std::nextafter(6.8e6, 0.0), &e), s14abc(std::nextafter(6.8e6, 1e7), &e), 8));
  // The incomplete gamma ratios across the edges of the uniform expansion
  // meet to the working precision, once the change that the step of one
  // unit in x brings, (x2 - x1) times the density x^(a-1) e^-x / Gamma(a),
  // is taken off: in the tails that change alone is hundreds of units.
  for (double a : {20.0, 50.0, 1000.0, 20000.0}) {
    for (double x : {0.7 * a, 1.4 * a}) {
      const double x1 = std::nextafter(x, 0.0), x2 = std::nextafter(x, 1e9);
      double p1, q1, p2, q2;
      s14bac(a, x1, 0.0, &p1, &q1, &e);
      s14bac(a, x2, 0.0, &p2, &q2, &e);
      const double step = (x2 - x1) * std::exp((a - 1.0) * std::log(x) - x - s14abc(a, &e));
      EXPECT_LE(std::fabs(p2 - p1 - step), 16 * DBL_EPSILON * p2) << a << " " << x;
      EXPECT_LE(std::fabs(q1 - q2 - step), 16 * DBL_EPSILON * q2) << a << " " << x;
    }
  }
}

}  // namespace
