// Accuracy of the distribution functions against the mpmath tables of
// make_reference.py.  Where the method is exact up to rounding the bound is
// 1e-13 relative; where an approximation is prescribed its measured worst
// error is printed and held to that approximation's bound.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "specfun/reference.hpp"
#include "zil.h"

namespace {

using specfun_test::load;
using specfun_test::Row;

constexpr long double kSmallest = 1e-300L;

// Relative errors, or absolute ones for the approximations whose known
// bounds are absolute (normal-limit forms are poor relative to a tiny tail).
struct Worst {
  bool absolute = false;
  double err = 0.0;
  std::string at;
  void see(double got, long double ref, const std::string& where) {
    if (std::fabs(ref) < kSmallest) return;
    const long double diff = std::fabs(got - ref);
    const double e = std::isfinite(got) ? static_cast<double>(absolute ? diff : diff / std::fabs(ref)) : INFINITY;
    if (e > err) {
      err = e;
      at = where;
    }
  }
  void print(const char* what) const {
    std::printf("  %-34s worst %s error %.3g at %s\n", what, absolute ? "absolute" : "relative", err, at.c_str());
  }
};

// Where the method is exact up to rounding: relative, down to tails of
// 1e-300, whose exponents near -690 the kernels form in the extended format.
constexpr double kExact = 1e-13;

std::string where(const Row& r) {
  std::string s;
  for (double a : r.args) s += std::to_string(a) + " ";
  return s;
}

TEST(Accuracy, NormalProbabilityAllTails) {
  Worst w;
  for (const Row& r : load("normal", 1)) {
    ZilError e{};
    const double x = r.args[0];
    const long double lo = r.values[0], up = r.values[1];
    const long double small = std::fabs(x) == x ? up : lo;  // tail beyond |x|
    w.see(g01eac(Zil_LowerTail, x, &e), lo, where(r));
    w.see(g01eac(Zil_UpperTail, x, &e), up, where(r));
    w.see(g01eac(Zil_TwoTailSignif, x, &e), 2 * small, where(r));
    // (the confidence near x = 0 is 1 - 2 small in long double, too coarse)
    if (std::fabs(x) > 0.01) w.see(g01eac(Zil_TwoTailConfid, x, &e), 1 - 2 * small, where(r));
    EXPECT_EQ(e.code, 0);
  }
  w.print("g01eac");
  EXPECT_LE(w.err, kExact) << w.at;
}

TEST(Accuracy, BetaSeriesAtDefaultTolerance) {
  Worst wp, wq, wd;
  Worst doubt;
  int doubtful = 0;
  for (const Row& r : load("beta", 3)) {
    ZilError e{};
    double p, q, pdf;
    g01eec(r.args[0], r.args[1], r.args[2], 0.0, &p, &q, &pdf, &e);
    if (e.code == ZE_PROBAB_CLOSE_TO_TAIL) continue;
    // Where the series' last factor exceeds 0.9, tol 10 eps is out of reach
    // by the stopping rule and the routine says so; the value is measured
    // all the same.
    if (e.code == ZE_RES_NOT_ACC) {
      ++doubtful;
      doubt.see(p, r.values[0], where(r));
      doubt.see(q, r.values[1], where(r));
      continue;
    }
    ASSERT_EQ(e.code, 0) << where(r);
    wp.see(p, r.values[0], where(r));
    wq.see(q, r.values[1], where(r));
    wd.see(pdf, r.values[2], where(r));
  }
  wp.print("g01eec p");
  wq.print("g01eec q");
  wd.print("g01eec pdf");
  std::printf("  g01eec points with ZE_RES_NOT_ACC: %d\n", doubtful);
  doubt.print("g01eec where it warned");
  EXPECT_LE(wp.err, kExact) << wp.at;
  EXPECT_LE(wq.err, kExact) << wq.at;
  EXPECT_LE(wd.err, kExact) << wd.at;
}

TEST(Accuracy, BinomialPoissonHypergeometric) {
  Worst wb, wp, wh;
  for (const Row& r : load("binomial", 3)) {
    ZilError e{};
    double le, gt, eq;
    g01bjc(static_cast<Integer>(r.args[0]), r.args[1], static_cast<Integer>(r.args[2]), &le, &gt, &eq, &e);
    ASSERT_EQ(e.code, 0) << where(r);
    wb.see(le, r.values[0], where(r));
    wb.see(gt, r.values[1], where(r));
    wb.see(eq, r.values[2], where(r));
  }
  for (const Row& r : load("poisson", 2)) {
    ZilError e{};
    double le, gt, eq;
    g01bkc(r.args[0], static_cast<Integer>(r.args[1]), &le, &gt, &eq, &e);
    ASSERT_EQ(e.code, 0) << where(r);
    wp.see(le, r.values[0], where(r));
    wp.see(gt, r.values[1], where(r));
    wp.see(eq, r.values[2], where(r));
  }
  for (const Row& r : load("hypergeometric", 4)) {
    ZilError e{};
    double le, gt, eq;
    g01blc(static_cast<Integer>(r.args[0]), static_cast<Integer>(r.args[1]), static_cast<Integer>(r.args[2]),
           static_cast<Integer>(r.args[3]), &le, &gt, &eq, &e);
    ASSERT_EQ(e.code, 0) << where(r);
    wh.see(le, r.values[0], where(r));
    wh.see(gt, r.values[1], where(r));
    wh.see(eq, r.values[2], where(r));
  }
  wb.print("g01bjc");
  wp.print("g01bkc");
  wh.print("g01blc");
  EXPECT_LE(wb.err, kExact) << wb.at;
  EXPECT_LE(wp.err, kExact) << wp.at;
  EXPECT_LE(wh.err, kExact) << wh.at;
}

// df < 20: the beta series at tol 1e-05, so a relative error of that size
// in whichever tail the series formed.  df >= 20: Hill's approximation.
TEST(Accuracy, StudentsTBothRegimes) {
  Worst series, hill;
  for (const Row& r : load("t", 2)) {
    ZilError e{};
    const double t = r.args[0], df = r.args[1];
    Worst& w = df < 20.0 ? series : hill;
    w.see(g01ebc(Zil_LowerTail, t, df, &e), r.values[0], where(r));
    w.see(g01ebc(Zil_UpperTail, t, df, &e), 1 - r.values[0], where(r));
    EXPECT_EQ(e.code, 0);
  }
  series.print("g01ebc, beta series at tol 1e-05");
  hill.print("g01ebc, Hill's approximation");
  EXPECT_LE(series.err, 2e-05) << series.at;
  // Hill's transformation is a normal approximation: its error relative to
  // a tail of 1e-20 at t = -40, df = 20 is 8e-4, and falls with df.
  EXPECT_LE(hill.err, 1e-03) << hill.at;
}

TEST(Accuracy, ChiSquaredAndGammaProbabilities) {
  Worst chi, gam;
  for (const Row& r : load("chi_sq", 2)) {
    ZilError e{};
    const double x = r.args[0], df = r.args[1];
    chi.see(g01ecc(Zil_LowerTail, x, df, &e), r.values[0], where(r));
    chi.see(g01ecc(Zil_UpperTail, x, df, &e), r.values[1], where(r));
    // The same law as a gamma of shape df/2 and scale 2, at full accuracy.
    gam.see(g01efc(Zil_LowerTail, x, df / 2, 2.0, &e), r.values[0], where(r));
    gam.see(g01efc(Zil_UpperTail, x, df / 2, 2.0, &e), r.values[1], where(r));
    EXPECT_EQ(e.code, 0);
  }
  chi.print("g01ecc, tol 5e-06");
  gam.print("g01efc, machine accuracy");
  EXPECT_LE(chi.err, 5e-06) << chi.at;
  // The incomplete gamma kernel's own error far below the mean (P near
  // 1e-170 at a = 37.75) sets this bound.
  EXPECT_LE(gam.err, 1e-09) << gam.at;
}

TEST(Accuracy, FDistributionRegimes) {
  Worst beta, chi, cube;
  chi.absolute = cube.absolute = true;
  for (const Row& r : load("f", 3)) {
    ZilError e{};
    const double f = r.args[0], d1 = r.args[1], d2 = r.args[2];
    Worst& w = (d1 > 1e5 && d2 > 1e5) ? cube : (d1 > 1e5 || d2 > 1e5) ? chi : beta;
    w.see(g01edc(Zil_LowerTail, f, d1, d2, &e), r.values[0], where(r));
    w.see(g01edc(Zil_UpperTail, f, d1, d2, &e), r.values[1], where(r));
    const bool underflow = &w == &beta && std::fmin(r.values[0], r.values[1]) < 1e-300L;
    EXPECT_EQ(e.code, underflow ? ZE_PROBAB_CLOSE_TO_TAIL : 0) << where(r);
  }
  beta.print("g01edc, beta at tol 5e-06");
  chi.print("g01edc, chi-squared limit");
  cube.print("g01edc, cube-root normal");
  EXPECT_LE(beta.err, 1e-05) << beta.at;
  // The limits drop terms of order df1 / df2 (chi-squared) and 1 / df
  // (Paulson); with df1 = 10, df2 = 2e5 and df near 2e5 that is below 1e-3.
  EXPECT_LE(chi.err, 1e-03) << chi.at;
  EXPECT_LE(cube.err, 1e-03) << cube.at;
}

TEST(Accuracy, NormalQuantile) {
  Worst w;
  for (const Row& r : load("normal_quantile", 1)) {
    ZilError e{};
    const double p = r.args[0];
    if (r.values[0] == 0) continue;
    w.see(g01cec(p, &e), r.values[0], where(r));
    w.see(g01fac(Zil_LowerTail, p, &e), r.values[0], where(r));
    EXPECT_EQ(e.code, 0);
  }
  w.print("g01cec");
  EXPECT_LE(w.err, 1e-08) << w.at;
}

TEST(Accuracy, StudentsTQuantile) {
  Worst exact, hill, search;
  for (const Row& r : load("t_quantile", 2)) {
    ZilError e{};
    const double p = r.args[0], df = r.args[1];
    const double x = g01fbc(Zil_LowerTail, p, df, &e);
    EXPECT_EQ(e.code, 0) << where(r);
    if (r.values[0] == 0) {
      EXPECT_EQ(x, 0.0);
      continue;
    }
    Worst& w = (df == 1.0 || df == 2.0) ? exact : df >= 3.0 ? hill : search;
    w.see(x, r.values[0], where(r));
  }
  exact.print("g01fbc, df 1 and 2");
  hill.print("g01fbc, Hill's series");
  search.print("g01fbc, beta inverse at 5e-06");
  EXPECT_LE(exact.err, 1e-13) << exact.at;
  EXPECT_LE(hill.err, 1e-03) << hill.at;
  EXPECT_LE(search.err, 2e-05) << search.at;
}

// The searches reach the requested tol in x (the references are exact).
TEST(Accuracy, BetaAndGammaQuantilesReachTol) {
  for (double tol : {0.0, 1e-06}) {
    const double bound = tol == 0.0 ? 1e-13 : 10 * tol;
    Worst wb, wg;
    for (const Row& r : load("beta_quantile", 3)) {
      ZilError e{};
      wb.see(g01fec(r.args[0], r.args[1], r.args[2], tol, &e), r.values[0], where(r));
      EXPECT_TRUE(e.code == 0 || e.code == ZE_RES_NOT_ACC) << where(r);
    }
    for (const Row& r : load("gamma_quantile", 2)) {
      ZilError e{};
      wg.see(g01ffc(r.args[0], r.args[1], 1.0, tol, &e), r.values[0], where(r));
      EXPECT_EQ(e.code, 0) << where(r);
    }
    std::printf("  tol %g:\n", tol);
    wb.print("g01fec");
    wg.print("g01ffc");
    EXPECT_LE(wb.err, bound) << wb.at;
    EXPECT_LE(wg.err, bound) << wg.at;
  }
}

}  // namespace
