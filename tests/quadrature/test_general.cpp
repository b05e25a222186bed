// d01ajc, d01akc, d01amc and the inner forms: closed-form integrals, the
// result record, the stated failures and their messages.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>

#include "quadrature/quadrature.hpp"
#include "tests/quadrature/quad_support.hpp"
#include "zil.h"

using namespace zil_test;

namespace {

constexpr double pi = std::numbers::pi;

double sqrt_x(double x) { return std::sqrt(x); }
double log_x(double x) { return std::log(x); }
double inv_sqrt(double x) { return 1.0 / std::sqrt(x); }
double poly3(double x) { return 1.0 + x * (2.0 + 3.0 * x * x); }
double osc(double x) { return std::cos(30.0 * x) * x; }
double exp_neg(double x) { return std::exp(-x); }
double gauss_fn(double x) { return std::exp(-x * x); }
double lorentz(double x) { return 1.0 / (1.0 + x * x); }
double log_over(double x) { return std::log(x) / (1.0 + x * x); }  // over (0, inf): 0
double nan_fn(double) { return std::numeric_limits<double>::quiet_NaN(); }
double step(double x) { return x < 0.3 ? 0.0 : 1.0; }
double pole(double x) { return 1.0 / (x - 0.3); }

int comm_calls = 0;
double with_comm(double x, Zil_Comm* comm) {
  ++comm_calls;
  EXPECT_NE(comm, nullptr);
  return std::sqrt(x);
}

}  // namespace

TEST(QuadGeneral, EndPointSingularitiesMeetTheirEstimates) {
  const Case cases[] = {
      {"sqrt(x) on (0,1)", sqrt_x, 0.0, 1.0, 2.0 / 3.0},
      {"log(x) on (0,1)", log_x, 0.0, 1.0, -1.0},
      {"1/sqrt(x) on (0,1)", inv_sqrt, 0.0, 1.0, 2.0},
      {"x cos(30x) on (0,1)", osc, 0.0, 1.0, (std::cos(30.0) - 1.0) / 900.0 + std::sin(30.0) / 30.0},
      {"exp(-x) on (0,10)", exp_neg, 0.0, 10.0, 1.0 - std::exp(-10.0)},
  };
  for (const Case& c : cases)
    for (double tol : {1e-4, 1e-8, 1e-12}) {
      for (bool osc_rule : {false, true}) {
        QuadRun r = run_finite(osc_rule ? d01akc : d01ajc, c, tol, 200);
        SCOPED_TRACE(::testing::Message() << c.name << (osc_rule ? " d01akc" : " d01ajc") << " tol " << tol);
        if (r.code == 0) {
          EXPECT_LE(std::fabs(r.result - c.exact), r.abserr + 4 * eps * std::fabs(c.exact));
          EXPECT_LE(r.abserr, std::max(tol, tol * std::fabs(c.exact)) * 1.0000001);
        }
        check_record(r.qp, 200);
        // Only smooth or mildly singular integrands: every run should end well
        // except the 61-point rule on the strong singularities.
        if (!osc_rule) EXPECT_EQ(r.code, 0);
        release(r.qp);
      }
    }
}

TEST(QuadGeneral, EvaluationCountsFollowTheRules) {
  QuadRun r = run_finite(d01ajc, {"sqrt", sqrt_x, 0.0, 1.0, 2.0 / 3.0}, 1e-10, 100);
  EXPECT_EQ(r.qp.eval_count, 42 * r.qp.subint_count - 21);
  release(r.qp);
  QuadRun s = run_finite(d01akc, {"osc", osc, 0.0, 1.0, 0.0}, 1e-10, 100);
  EXPECT_EQ(s.qp.eval_count, 61 * (2 * s.qp.subint_count - 1));
  release(s.qp);
}

TEST(QuadGeneral, ReversedRangeGivesTheNegatedIntegralAndSortedRecord) {
  QuadRun r = run_finite(d01ajc, {"sqrt", sqrt_x, 1.0, 0.0, -2.0 / 3.0}, 1e-10, 50);
  EXPECT_EQ(r.code, 0);
  EXPECT_NEAR(r.result, -2.0 / 3.0, 1e-10);
  check_record(r.qp, 50);
  release(r.qp);
}

TEST(QuadGeneral, EqualEndsGiveZeroOnOneInterval) {
  QuadRun r = run_finite(d01ajc, {"sqrt", sqrt_x, 0.5, 0.5, 0.0}, 1e-10, 10);
  EXPECT_EQ(r.code, 0);
  EXPECT_EQ(r.result, 0.0);
  EXPECT_EQ(r.abserr, 0.0);
  EXPECT_EQ(r.qp.subint_count, 1);
  release(r.qp);
}

TEST(QuadGeneral, LowDegreePolynomialIsNotTakenAsConvergedByResasc) {
  // A cubic is integrated exactly by the first rule.
  QuadRun r = run_finite(d01ajc, {"cubic", poly3, 0.0, 2.0, 2.0 + 4.0 + 12.0}, 1e-12, 10);
  EXPECT_EQ(r.code, 0);
  EXPECT_NEAR(r.result, 18.0, 18 * 8 * eps);
  release(r.qp);
}

TEST(QuadGeneral, OneSubintervalLimit) {
  QuadRun ok = run_finite(d01ajc, {"exp", exp_neg, 0.0, 1.0, 1.0 - std::exp(-1.0)}, 1e-8, 1);
  EXPECT_EQ(ok.code, 0);
  EXPECT_EQ(ok.qp.subint_count, 1);
  release(ok.qp);
  QuadRun bad = run_finite(d01ajc, {"log", log_x, 0.0, 1.0, -1.0}, 1e-12, 1);
  EXPECT_EQ(bad.code, ZE_QUAD_MAX_SUBDIV);
  EXPECT_STREQ(bad.message, "ZE_QUAD_MAX_SUBDIV:\n  The maximum number of subdivisions has\n  been reached: max_num_subint = 1");
  EXPECT_EQ(bad.qp.subint_count, 1);
  release(bad.qp);
}

TEST(QuadGeneral, ZeroTolerancesEndWithAStatedFailureAndEstimates) {
  QuadRun r = run_finite(d01ajc, {"sqrt", sqrt_x, 0.0, 1.0, 2.0 / 3.0}, 0.0, 200);
  EXPECT_TRUE(r.code == ZE_QUAD_ROUNDOFF_TOL || r.code == ZE_QUAD_MAX_SUBDIV ||
              r.code == ZE_QUAD_ROUNDOFF_EXTRAPL || r.code == ZE_QUAD_BAD_SUBDIV)
      << r.code;
  EXPECT_NEAR(r.result, 2.0 / 3.0, 1e-14);
  release(r.qp);
}

TEST(QuadGeneral, BadIntegrandsEndCleanly) {
  for (auto* fn : {nan_fn, step, pole}) {
    for (auto* routine : {d01ajc, d01akc}) {
      QuadRun r = run_finite(routine, {"bad", fn, 0.0, 1.0, 0.0}, 1e-10, 100);
      EXPECT_NE(r.code, ZE_ALLOC_FAIL);
      EXPECT_GE(r.qp.subint_count, 1);
      check_record(r.qp, 100, /*finite_values=*/false);
      release(r.qp);
    }
  }
}

TEST(QuadGeneral, PoleReportsTheBadSubinterval) {
  QuadRun r = run_finite(d01akc, {"pole", pole, 0.0, 1.0, 0.0}, 1e-10, 1000);
  // The 61-point loop either runs out of intervals or shrinks one onto the
  // pole; the ajc loop may also stop on divergence.
  EXPECT_TRUE(r.code == ZE_QUAD_BAD_SUBDIV || r.code == ZE_QUAD_MAX_SUBDIV || r.code == ZE_QUAD_ROUNDOFF_TOL) << r.message;
  if (r.code == ZE_QUAD_BAD_SUBDIV) EXPECT_EQ(std::strncmp(r.message, "ZE_QUAD_BAD_SUBDIV:\n  Extremely bad", 34), 0);
  release(r.qp);
}

TEST(QuadGeneral, ArgumentChecksAndNothingToRelease) {
  ZilError fail{};
  double res = 7.0, err = 7.0;
  Zil_QuadReport qp{};
  d01ajc(sqrt_x, 0.0, 1.0, 0.0, 1e-6, 0, &res, &err, &qp, &fail);
  EXPECT_EQ(fail.code, ZE_INT_ARG_LT);
  EXPECT_STREQ(fail.message, "ZE_INT_ARG_LT:\n  On entry, max_num_subint must not be less than 1: max_num_subint = 0.");
  EXPECT_EQ(qp.subint_lower, nullptr);
  d01amc(exp_neg, 12, 0.0, 0.0, 1e-6, 10, &res, &err, &qp, &fail);
  EXPECT_EQ(fail.code, ZE_BAD_PARAM);
  EXPECT_STREQ(fail.message, "ZE_BAD_PARAM:\n  On entry, parameter boundinf had an illegal value.");
  EXPECT_EQ(qp.subint_lower, nullptr);
}

TEST(QuadGeneral, CommFormPassesTheRecordAndMatchesThePlainForm) {
  Zil_Comm comm{};
  ZilError fail{};
  double r1 = 0, e1 = 0, r2 = 0, e2 = 0;
  Zil_QuadReport q1{}, q2{};
  comm_calls = 0;
  d01sjc(with_comm, 0.0, 1.0, 0.0, 1e-10, 100, &r1, &e1, &q1, &comm, &fail);
  EXPECT_EQ(fail.code, 0);
  d01ajc(sqrt_x, 0.0, 1.0, 0.0, 1e-10, 100, &r2, &e2, &q2, &fail);
  EXPECT_EQ(r1, r2);
  EXPECT_EQ(e1, e2);
  EXPECT_EQ(comm_calls, q1.eval_count);
  release(q1);
  release(q2);
}

TEST(QuadGeneral, LongNamesAreTheSameRoutines) {
  EXPECT_EQ(reinterpret_cast<void*>(&zil_1d_quad_gen), reinterpret_cast<void*>(&d01ajc));
  EXPECT_EQ(reinterpret_cast<void*>(&zil_1d_quad_osc_1), reinterpret_cast<void*>(&d01skc));
  EXPECT_EQ(reinterpret_cast<void*>(&zil_1d_quad_inf), reinterpret_cast<void*>(&d01amc));
}

TEST(QuadInfinite, ThreeKindsOfRange) {
  struct InfCase {
    Zil_QuadFun f;
    Integer kind;
    double bound, exact;
  };
  const InfCase cases[] = {
      {exp_neg, Zil_UpperSemiInfinite, 0.0, 1.0},
      {gauss_fn, Zil_Infinite, 5.0 /* ignored */, std::sqrt(pi)},
      {lorentz, Zil_LowerSemiInfinite, 0.0, pi / 2},
      {log_over, Zil_UpperSemiInfinite, 0.0, 0.0},
      {lorentz, Zil_UpperSemiInfinite, 1.0, pi / 4},
  };
  for (const InfCase& c : cases)
    for (double tol : {1e-4, 1e-8, 1e-12}) {
      ZilError fail{};
      double res = 0, err = 0;
      Zil_QuadReport qp{};
      d01amc(c.f, c.kind, c.bound, tol, tol, 200, &res, &err, &qp, &fail);
      SCOPED_TRACE(::testing::Message() << c.kind << " " << tol);
      EXPECT_EQ(fail.code, 0) << fail.message;
      EXPECT_LE(std::fabs(res - c.exact), err + 4 * eps);
      EXPECT_EQ(qp.eval_count, (30 * qp.subint_count - 15) * (c.kind == Zil_Infinite ? 2 : 1));
      check_record(qp, 200);
      release(qp);
    }
}

namespace {
double inner_sqrt(const double& x) { return std::sqrt(x); }
}  // namespace

TEST(QuadInner, FixedWorkArrayForms) {
  double w[400];
  Integer iw[100];
  Integer ifail = 1;
  double res = 0, err = 0;
  zil::D01AJF(inner_sqrt, 0.0, 1.0, 0.0, 1e-10, res, err, w, 400, iw, 100, ifail);
  EXPECT_EQ(ifail, 0);
  EXPECT_NEAR(res, 2.0 / 3.0, 1e-10);
  ifail = 1;
  zil::D01AMF(+[](const double& x) { return std::exp(-x); }, 0.0, 1, 0.0, 1e-10, res, err, w, 400, iw, 100, ifail);
  EXPECT_EQ(ifail, 0);
  EXPECT_NEAR(res, 1.0, 1e-10);
  ifail = 1;
  zil::D01AJF(inner_sqrt, 0.0, 1.0, 0.0, 1e-10, res, err, w, 3, iw, 100, ifail);
  EXPECT_EQ(ifail, 6);
  ifail = 1;
  zil::D01AJF(+[](const double& x) { return std::log(x); }, 0.0, 1.0, 0.0, 1e-14, res, err, w, 4, iw, 1, ifail);
  EXPECT_EQ(ifail, 1);
}

namespace {
double kinks(double x) { return std::fabs(x - 1.0 / 3.0) + std::sqrt(std::fabs(x - 0.7)); }
// int_0^1 |x-1/3| = (1/9 + 4/9)/2 = 5/18; int_0^1 sqrt|x-0.7| = (2/3)(0.7^1.5 + 0.3^1.5)
const double kinks_exact = 5.0 / 18.0 + (2.0 / 3.0) * (std::pow(0.7, 1.5) + std::pow(0.3, 1.5));
double log_kink(double x) { return std::log(std::fabs(x - 0.25)); }
// int_0^1 log|x - 1/4| = 0.25 log 0.25 - 0.25 + 0.75 log 0.75 - 0.75
const double log_kink_exact = 0.25 * std::log(0.25) + 0.75 * std::log(0.75) - 1.0;
}  // namespace

TEST(QuadBreakPoints, InteriorSingularitiesAtTheirPoints) {
  const double pts1[] = {0.7, 1.0 / 3.0};
  const double pts2[] = {0.25};
  struct BCase {
    Zil_QuadFun f;
    const double* pts;
    Integer n;
    double exact;
  };
  for (const BCase& c : {BCase{kinks, pts1, 2, kinks_exact}, BCase{log_kink, pts2, 1, log_kink_exact}})
    for (double tol : {1e-4, 1e-8, 1e-12})
      for (bool reversed : {false, true}) {
        ZilError fail{};
        double res = 0, err = 0;
        Zil_QuadReport qp{};
        d01alc(c.f, reversed ? 1.0 : 0.0, reversed ? 0.0 : 1.0, c.n, c.pts, tol, tol, 100, &res, &err, &qp, &fail);
        EXPECT_EQ(fail.code, 0) << fail.message;
        const double exact = reversed ? -c.exact : c.exact;
        EXPECT_LE(std::fabs(res - exact), err + 4 * eps);
        EXPECT_EQ(qp.eval_count, 21 * (c.n + 1) + 42 * (qp.subint_count - c.n - 1));
        check_record(qp, 100);
        release(qp);
      }
}

TEST(QuadBreakPoints, PointsOutsideOrAtTheEnds) {
  ZilError fail{};
  double res = 0, err = 0;
  Zil_QuadReport qp{};
  const double out[] = {0.5, 2.0};
  d01alc(sqrt_x, 0.0, 1.0, 2, out, 0.0, 1e-8, 50, &res, &err, &qp, &fail);
  EXPECT_EQ(fail.code, ZE_QUAD_BRKPTS_INVAL);
  EXPECT_STREQ(fail.message, "ZE_QUAD_BRKPTS_INVAL:\n  On entry, break points outside (a, b):\n  a = 0.00000e+00,  b = 1.00000e+00.");
  release(qp);
  const double at_end[] = {1.0};
  d01alc(sqrt_x, 0.0, 1.0, 1, at_end, 0.0, 1e-8, 50, &res, &err, &qp, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_NEAR(res, 2.0 / 3.0, 1e-8);
  release(qp);
  d01alc(sqrt_x, 0.0, 1.0, 2, out, 0.0, 1e-8, 2, &res, &err, &qp, &fail);
  EXPECT_EQ(fail.code, ZE_2_INT_ARG_LE);
  EXPECT_STREQ(fail.message, "ZE_2_INT_ARG_LE:\n  On entry, max_num_subint =  2 while nbrkpts =  2.\n  These parameters must satisfy max_num_subint > nbrkpts.");
}
