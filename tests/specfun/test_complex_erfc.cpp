// The Faddeeva function w(z) = exp(-z^2) erfc(-iz): accuracy against the
// mpmath table (normwise, in units of the last place of the row's scale),
// the identities that tie it to the real functions, and its failure.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdio>

#include "reference.hpp"
#include "zil.h"

namespace {

using specfun_test::load;
using specfun_test::ulps;

TEST(ComplexErfc, AgainstReference) {
  const auto rows = load("s15ddc", 2);
  ASSERT_GT(rows.size(), 800u);
  specfun_test::Worst worst;
  for (const auto& r : rows) {
    ZilError e = {};
    const Complex w = s15ddc({r.args[0], r.args[1]}, &e);
    ASSERT_EQ(e.code, 0) << r.args[0] << " " << r.args[1];
    const long double dre = w.re - r.values[0], dim = w.im - r.values[1];
    const double err = ulps(static_cast<double>(std::sqrt(dre * dre + dim * dim)), 0.0L, r.values[2]);
    worst.see(err, std::hypot(r.args[0], r.args[1]));
    EXPECT_LE(err, 8.0) << "z = (" << r.args[0] << ", " << r.args[1] << ")";
  }
  std::printf("[ accuracy ] s15ddc: max %.2f ulp at |z| = %.6g (%zu points)\n", worst.ulps, worst.at, rows.size());
}

// On the real axis Re w(x) = exp(-x^2) and Im w(x) = 2/sqrt(pi) F(x), F
// Dawson's integral; on the imaginary axis w(iy) = exp(y^2) erfc(y).
TEST(ComplexErfc, AxesAgreeWithRealFunctions) {
  ZilError e = {};
  for (double x : {0.0, 0.25, 1.0, 2.5, 4.0, 6.0, 20.0, -3.0}) {
    const Complex w = s15ddc({x, 0.0}, &e);
    EXPECT_NEAR(w.re, std::exp(-x * x), 4 * DBL_EPSILON * std::exp(-x * x)) << x;
    const double im = 2.0 / std::sqrt(M_PI) * s15afc(x);
    EXPECT_NEAR(w.im, im, 8 * DBL_EPSILON * std::fabs(im) + DBL_MIN) << x;
  }
  for (double y : {0.0, 0.5, 2.0, 5.0, 10.0}) {
    const Complex w = s15ddc({0.0, y}, &e);
    const double ref = std::exp(y * y) * s15adc(y);
    EXPECT_NEAR(w.re, ref, 16 * DBL_EPSILON * ref) << y;
    EXPECT_EQ(w.im, 0.0) << y;
  }
  EXPECT_EQ(e.code, 0);
}

// w(-conj z) = conj w(z).
TEST(ComplexErfc, ReflectionSymmetry) {
  ZilError e = {};
  for (double x : {0.3, 1.7, 5.5}) {
    for (double y : {-2.0, 0.01, 3.0, 7.5}) {
      const Complex a = s15ddc({x, y}, &e), b = s15ddc({-x, y}, &e);
      EXPECT_EQ(a.re, b.re) << x << " " << y;
      EXPECT_EQ(a.im, -b.im) << x << " " << y;
    }
  }
}

TEST(ComplexErfc, OverflowFailure) {
  ZilError e = {};
  Complex w = s15ddc({1.0, -27.0}, &e);
  EXPECT_EQ(e.code, ZE_RESULT_OVERFLOW);
  EXPECT_STREQ(e.message, "ZE_RESULT_OVERFLOW:\n  The result would overflow.");
  EXPECT_EQ(w.re, 0.0);
  EXPECT_EQ(w.im, 0.0);
  // |w| = 2 exp(y^2 - x^2) just inside the range is still computed.
  w = s15ddc({0.0, -26.6}, &e);
  EXPECT_EQ(e.code, 0);
  EXPECT_TRUE(std::isfinite(w.re));
  s15ddc({0.0, -INFINITY}, &e);
  EXPECT_EQ(e.code, ZE_RESULT_OVERFLOW);
}

TEST(ComplexErfc, BadInputNeverCrashes) {
  const double vs[] = {NAN, INFINITY, -INFINITY, DBL_MAX, -DBL_MAX, DBL_MIN, 4.9e-324, -0.0, 0.0, 1e200};
  for (double x : vs) {
    for (double y : vs) {
      ZilError e = {};
      const Complex w = s15ddc({x, y}, &e);
      if (e.code != 0) {
        EXPECT_TRUE(std::isfinite(w.re) && std::isfinite(w.im)) << x << " " << y;
      }
      s15ddc({x, y}, nullptr);
    }
  }
  ZilError e = {};
  const Complex w = s15ddc({INFINITY, 1.0}, &e);
  EXPECT_EQ(w.re, 0.0);
  EXPECT_EQ(w.im, 0.0);
}

}  // namespace
