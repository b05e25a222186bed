// psi and its derivatives, real and complex, and the complex log gamma:
// accuracy against the mpmath tables (errors in units of the last place of
// the scale each row names) and the failures read back through errbuf.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstdio>

#include "reference.hpp"
#include "zil.h"

namespace {

using specfun_test::load;
using specfun_test::ulps;
using specfun_test::Worst;

constexpr double kTolerance = 8.0;  // ulp
// Within this distance of a pole the reflection's two terms cancel in part;
// there the bound is twice as wide.
constexpr double kNearPole = 0.01;

double pole_distance(double x, double y) {
  const double p = x >= 0.0 ? 0.0 : std::nearbyint(x);
  return std::hypot(x - p, y);
}

// The normwise error of a complex result in ulp of the row's scale.
double complex_ulps(Complex got, const specfun_test::Row& r) {
  const long double dre = got.re - r.values[0], dim = got.im - r.values[1];
  const double err = static_cast<double>(std::sqrt(dre * dre + dim * dim));
  return ulps(err, 0.0L, r.values[2]);
}

// The largest errors away from and near the poles.
struct Split {
  Worst far, near;
  void see(double e, double x, double y = 0.0) { (pole_distance(x, y) < kNearPole ? near : far).see(e, std::hypot(x, y)); }
};

void report(const char* name, const Split& w, std::size_t n, double tolerance = kTolerance) {
  std::printf("[ accuracy ] %s: max %.2f ulp at |z| = %.17g, near poles %.2f ulp (%zu points)\n", name, w.far.ulps,
              w.far.at, w.near.ulps, n);
  EXPECT_LE(w.far.ulps, tolerance) << name;
  EXPECT_LE(w.near.ulps, 2 * tolerance) << name;
  EXPECT_GT(n, 50u) << name;
}

TEST(PolygammaAccuracy, RealRoutines) {
  ZilError e = {};
  {
    const auto rows = load("s14acc", 1);
    Split w;
    for (const auto& r : rows) {
      w.see(ulps(s14acc(r.args[0], &e), r.values[0]), r.args[0]);
      ASSERT_EQ(e.code, 0) << r.args[0];
    }
    report("s14acc", w, rows.size());
  }
  {
    const auto rows = load("s14adc", 2);
    Split w;
    for (const auto& r : rows) {
      double ans = 0.0;
      s14adc(r.args[0], static_cast<Integer>(r.args[1]), 1, &ans, &e);
      ASSERT_EQ(e.code, 0) << r.args[0] << " n " << r.args[1];
      w.see(ulps(ans, r.values[0], r.values[1]), r.args[0]);
    }
    report("s14adc", w, rows.size());
  }
  {
    const auto rows = load("s14aec", 2);
    Split w;
    for (const auto& r : rows) {
      const double v = s14aec(r.args[0], static_cast<Integer>(r.args[1]), &e);
      ASSERT_EQ(e.code, 0) << r.args[0] << " k " << r.args[1];
      w.see(ulps(v, r.values[0], r.values[1]), r.args[0]);
    }
    report("s14aec", w, rows.size());
  }
}

TEST(PolygammaAccuracy, ComplexRoutines) {
  ZilError e = {};
  {
    const auto rows = load("s14afc", 3);
    Split w;
    for (const auto& r : rows) {
      const Complex v = s14afc({r.args[0], r.args[1]}, static_cast<Integer>(r.args[2]), &e);
      ASSERT_EQ(e.code, 0) << r.args[0] << " " << r.args[1];
      w.see(complex_ulps(v, r), r.args[0], r.args[1]);
    }
    // Left of the axis the derivatives of cot(pi z) in q = exp(2 pi i z)
    // dominate, formed in the extended format: 1.7 ulp measured.
    report("s14afc", w, rows.size(), 4.0);
  }
  {
    const auto rows = load("s14agc", 2);
    Split w;
    for (const auto& r : rows) {
      const Complex v = s14agc({r.args[0], r.args[1]}, &e);
      ASSERT_EQ(e.code, 0) << r.args[0] << " " << r.args[1];
      w.see(complex_ulps(v, r), r.args[0], r.args[1]);
    }
    report("s14agc", w, rows.size());
  }
}

TEST(PolygammaDerivatives, ConsecutiveOrdersAgreeWithSingleCalls) {
  ZilError e = {};
  double ans[6];
  s14adc(2.5, 3, 6, ans, &e);
  ASSERT_EQ(e.code, 0);
  for (int j = 0; j < 6; ++j) {
    double one = 0.0;
    s14adc(2.5, 3 + j, 1, &one, &e);
    EXPECT_EQ(ans[j], one);
  }
  // zeta(2, 1) = pi^2/6 and -psi(1) = Euler's constant.
  s14adc(1.0, 0, 2, ans, &e);
  EXPECT_NEAR(ans[0], 0.57721566490153286, 2e-16);
  EXPECT_NEAR(ans[1], 1.6449340668482264, 4e-16);
  // The real and complex forms agree on the real axis.
  for (int k = 0; k <= 4; ++k) {
    const double x = -3.7;
    const Complex z = s14afc({x, 0.0}, k, &e);
    EXPECT_NEAR(z.re, s14aec(x, k, &e), 1e-14 * std::fabs(z.re)) << k;
    EXPECT_EQ(z.im, 0.0);
  }
}

struct Expected {
  Integer code;
  Integer errnum;
  const char* message;
};

void expect_failure(const ZilError& e, const Expected& x) {
  EXPECT_EQ(e.code, x.code);
  EXPECT_EQ(e.errnum, x.errnum);
  EXPECT_STREQ(e.message, x.message);
}

TEST(PolygammaFailures, CodesValuesAndMessages) {
  ZilError e = {};
  EXPECT_EQ(s14acc(-1.0, &e), 0.0);
  expect_failure(e, {100, 1, "ZE_REAL:\n    On entry, x = -1.00000E+00.\nConstraint: x > 0.0."});
  EXPECT_EQ(s14acc(1e308, &e), 0.0);
  expect_failure(e, {709, 2,
                     "ZE_UNDERFLOW_LIKELY:\n    Computation halted due to likelihood of underflow.  x may be\n"
                     "    too large. x = 1.00000+308."});
  EXPECT_EQ(s14acc(4e-309, &e), 0.0);
  expect_failure(e, {710, 3,
                     "ZE_OVERFLOW_LIKELY:\n    Computation halted due to likelihood of overflow.  x may be\n"
                     "    too small. x = 4.00000-309."});

  double ans[3] = {7.0, 7.0, 7.0};
  s14adc(0.0, 0, 1, ans, &e);
  EXPECT_EQ(e.code, ZE_REAL);
  s14adc(1.0, -2, 1, ans, &e);
  expect_failure(e, {ZE_INT, 1, "ZE_INT:\n    On entry, n = -2.\nConstraint: n >= 0."});
  s14adc(1.0, 0, 0, ans, &e);
  expect_failure(e, {ZE_INT, 1, "ZE_INT:\n    On entry, m = 0.\nConstraint: m >= 1."});
  s14adc(1e-3, 200, 3, ans, &e);
  EXPECT_EQ(e.code, ZE_OVERFLOW_LIKELY);
  EXPECT_EQ(e.errnum, 3);
  s14adc(1e3, 200, 3, ans, &e);
  EXPECT_EQ(e.code, ZE_UNDERFLOW_LIKELY);
  EXPECT_EQ(e.errnum, 2);
  EXPECT_EQ(ans[0], 7.0);  // untouched by a failure
  s14adc(1.0, 0, 3, nullptr, &e);
  EXPECT_EQ(e.code, ZE_BAD_PARAM);

  EXPECT_EQ(s14aec(-3.0, 1, &e), 0.0);
  expect_failure(e, {ZE_REAL, 1,
                     "ZE_REAL:\n    On entry, x = -3.00000E+00.\nConstraint: x must not be 0.0 or a negative integer."});
  EXPECT_EQ(s14aec(2.0, 7, &e), 0.0);
  expect_failure(e, {ZE_INT, 1, "ZE_INT:\n    On entry, k = 7.\nConstraint: 0 <= k <= 6."});
  s14aec(1e-100, 6, &e);
  EXPECT_EQ(e.code, ZE_OVERFLOW_LIKELY);
  s14aec(1e300, 6, &e);
  EXPECT_EQ(e.code, ZE_UNDERFLOW_LIKELY);

  Complex z = s14afc({-2.0, 0.0}, 0, &e);
  EXPECT_EQ(z.re, 0.0);
  expect_failure(e, {ZE_COMPLEX, 1,
                     "ZE_COMPLEX:\n    On entry, z = (-2.00000E+00, 0.00000E+00).\nConstraint: z must not be 0.0 or a "
                     "negative integer."});
  s14afc({1.0, 1.0}, 5, &e);
  expect_failure(e, {ZE_INT, 1, "ZE_INT:\n    On entry, k = 5.\nConstraint: 0 <= k <= 4."});
  s14agc({0.0, 0.0}, &e);
  EXPECT_EQ(e.code, ZE_COMPLEX);
  s14agc({1e306, 1e306}, &e);
  EXPECT_EQ(e.code, ZE_OVERFLOW_LIKELY);
  EXPECT_EQ(e.errnum, 2);
}

TEST(PolygammaFailures, BadInputNeverCrashes) {
  ZilError e = {};
  const double odd[] = {NAN, INFINITY, -INFINITY, DBL_MAX, -DBL_MAX, DBL_MIN, 4.9e-324, -0.0};
  double ans[2];
  for (double x : odd) {
    s14acc(x, &e);
    s14adc(x, 1, 2, ans, &e);
    for (int k = 0; k <= 6; ++k) s14aec(x, k, &e);
    for (double y : odd) {
      for (int k = 0; k <= 4; ++k) s14afc({x, y}, k, &e);
      s14agc({x, y}, &e);
    }
  }
  // Every failure value is finite.
  EXPECT_EQ(s14aec(-INFINITY, 0, &e), 0.0);
  EXPECT_EQ(e.code, ZE_REAL);
}

}  // namespace
