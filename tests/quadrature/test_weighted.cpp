// d01anc, d01apc, d01aqc and d01asc: argument checks with their codes and
// texts, the comm forms, the cycle record of d01asc and its interval reports.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <string>

#include "quadrature/detail/frame.hpp"
#include "tests/quadrature/quad_support.hpp"
#include "zil.h"

using namespace zil_test;

namespace {

double exp_neg(double x) { return std::exp(-x); }
double lorentz(double x) { return 1.0 / (1.0 + x * x); }
double nan_fn(double) { return std::numeric_limits<double>::quiet_NaN(); }
// A step in every unit: no cycle can be integrated on one subinterval.
double steps(double x) { return std::fmod(x, 1.0) < 0.5 ? 1.0 : 0.0; }
int evaluations = 0;
double counted(double x) {
  ++evaluations;
  return x;
}
double with_comm(double x, Zil_Comm* comm) {
  EXPECT_NE(comm, nullptr);
  return std::exp(-x);
}

void release_cycles(Zil_QuadCycleReport& qp) {
  x04bdc(reinterpret_cast<Pointer*>(&qp.interval_error));
  x04bdc(reinterpret_cast<Pointer*>(&qp.interval_result));
  x04bdc(reinterpret_cast<Pointer*>(&qp.interval_flag));
}

TEST(QuadWeighted, ArgumentChecksInOrderWithNothingToRelease) {
  double r = 0, e = 0;
  Zil_QuadReport qp{};
  ZilError fail{};
  d01apc(exp_neg, 1.0, 1.0, -1.0, 0.0, Zil_Alg, 0, 1e-8, 10, &r, &e, &qp, &fail);
  EXPECT_EQ(fail.code, ZE_2_REAL_ARG_LE);
  EXPECT_STREQ(fail.message,
               "ZE_2_REAL_ARG_LE:\n  On entry, b = 1 while a = 1.\n  These parameters must satisfy b > a.");
  d01apc(exp_neg, 0.0, 1.0, -1.0, 0.0, Zil_Alg, 0, 1e-8, 10, &r, &e, &qp, &fail);
  EXPECT_EQ(fail.code, ZE_REAL_ARG_LE);
  EXPECT_STREQ(fail.message, "ZE_REAL_ARG_LE:\n  On entry, alfa must not be less than or equal to -1.0: alfa = -1.");
  d01apc(exp_neg, 0.0, 1.0, 0.0, -2.0, Zil_Alg, 0, 1e-8, 10, &r, &e, &qp, &fail);
  EXPECT_EQ(fail.code, ZE_REAL_ARG_LE);
  d01apc(exp_neg, 0.0, 1.0, 0.0, 0.0, Zil_Cosine, 0, 1e-8, 10, &r, &e, &qp, &fail);
  EXPECT_EQ(fail.code, ZE_BAD_PARAM);
  d01apc(exp_neg, 0.0, 1.0, 0.0, 0.0, Zil_Alg, 0, 1e-8, 0, &r, &e, &qp, &fail);
  EXPECT_EQ(fail.code, ZE_INT_ARG_LT);
  d01aqc(exp_neg, 0.0, 1.0, 1.0, 0, 1e-8, 10, &r, &e, &qp, &fail);
  EXPECT_EQ(fail.code, ZE_2_REAL_ARG_EQ);
  EXPECT_STREQ(fail.message,
               "ZE_2_REAL_ARG_EQ:\n  On entry, c = 1 while b = 1.\n  These parameters must satisfy c != b.");
  d01anc(exp_neg, 0.0, 1.0, 1.0, Zil_Alg, 0, 1e-8, 10, &r, &e, &qp, &fail);
  EXPECT_EQ(fail.code, ZE_BAD_PARAM);
  EXPECT_STREQ(fail.message, "ZE_BAD_PARAM:\n  On entry, parameter wt_func had an illegal value.");
  Zil_QuadCycleReport cq{};
  d01asc(exp_neg, 0.0, 1.0, Zil_Cosine, 2, 10, 1e-8, &r, &e, &cq, &fail);
  EXPECT_EQ(fail.code, ZE_INT_ARG_LT);
  EXPECT_STREQ(fail.message, "ZE_INT_ARG_LT:\n  On entry, maxintervals must not be less than 3: maxintervals = 2.");
  d01asc(exp_neg, 0.0, 1.0, Zil_Cosine, 3, 0, 1e-8, &r, &e, &cq, &fail);
  EXPECT_EQ(fail.code, ZE_INT_ARG_LT);
  // Early failures leave the records unset.
  EXPECT_EQ(qp.subint_lower, nullptr);
  EXPECT_EQ(cq.interval_flag, nullptr);
}

TEST(QuadWeighted, FourierWithZeroOmega) {
  double r = -1, e = -1;
  Zil_QuadCycleReport cq{};
  ZilError fail{};
  evaluations = 0;
  d01asc(counted, 0.0, 0.0, Zil_Sine, 5, 50, 1e-8, &r, &e, &cq, &fail);
  EXPECT_EQ(fail.code, ZE_NOERROR);
  EXPECT_EQ(r, 0.0);
  EXPECT_EQ(e, 0.0);
  EXPECT_EQ(evaluations, 0);
  EXPECT_EQ(cq.eval_count, 0);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(cq.interval_result[i], 0.0);
  release_cycles(cq);
  // cos(0 x) = 1: the infinite-range integrator on (a, infinity).
  d01asc(lorentz, 0.0, 0.0, Zil_Cosine, 5, 50, 1e-10, &r, &e, &cq, &fail);
  EXPECT_EQ(fail.code, ZE_NOERROR);
  EXPECT_NEAR(r, std::numbers::pi / 2, 1e-10);
  EXPECT_EQ(cq.interval_count, 1);
  EXPECT_EQ(cq.eval_count, 30 * cq.max_subint_used - 15);
  release_cycles(cq);
}

TEST(QuadWeighted, FourierCycleRecordAndTail) {
  double r = 0, e = 0;
  Zil_QuadCycleReport cq{};
  ZilError fail{};
  const Integer maxint = 40;
  d01asc(lorentz, 0.0, 1.0, Zil_Cosine, maxint, 100, 1e-9, &r, &e, &cq, &fail);
  ASSERT_EQ(fail.code, ZE_NOERROR);
  EXPECT_NEAR(r, std::numbers::pi / (2 * std::numbers::e), e);
  ASSERT_GE(cq.interval_count, 6);
  double sum = 0;
  for (Integer i = 0; i < cq.interval_count; ++i) {
    sum += cq.interval_result[i];
    EXPECT_EQ(cq.interval_flag[i], 0);
  }
  // The plain sum of the cycles agrees with the extrapolated value to the
  // size of the tail that was left out.
  EXPECT_NEAR(sum, r, 1e-2);
  for (Integer i = cq.interval_count; i < maxint; ++i) {
    EXPECT_EQ(cq.interval_result[i], 0.0);
    EXPECT_EQ(cq.interval_error[i], 0.0);
    EXPECT_EQ(cq.interval_flag[i], 0);
  }
  release_cycles(cq);
  EXPECT_EQ(cq.interval_result, nullptr);
}

TEST(QuadWeighted, FourierIntervalFailuresAreReportedWithOrdinals) {
  double r = 0, e = 0;
  Zil_QuadCycleReport cq{};
  ZilError fail{};
  // One subinterval per cycle cannot meet the tolerance: every cycle fails,
  // and the last report is replaced by the code of the whole run.
  d01asc(steps, 0.0, 1.0, Zil_Cosine, 25, 1, 1e-14, &r, &e, &cq, &fail);
  EXPECT_TRUE(fail.code == ZE_QUAD_BAD_SUBDIV_INT || fail.code == ZE_QUAD_MAX_INT ||
              fail.code == ZE_QUAD_EXTRAPL_INT)
      << fail.message;
  EXPECT_TRUE(std::isfinite(r));
  EXPECT_EQ(cq.interval_flag[0], 1);
  release_cycles(cq);
  // The reports on the way, caught by a handler.
  static std::string texts;
  texts.clear();
  ZilError f2{};
  f2.print = 0;
  f2.handler = [](const char* s, Integer code, const char*) {
    if (code == ZE_QUAD_MAX_SUBDIV_SPEC_INT) texts += s;
  };
  d01asc(steps, 0.0, 1.0, Zil_Cosine, 25, 1, 1e-14, &r, &e, &cq, &f2);
  release_cycles(cq);
  EXPECT_NE(texts.find("on the 1 st interval"), std::string::npos) << texts;
  EXPECT_NE(texts.find("on the 2 nd interval"), std::string::npos);
  EXPECT_NE(texts.find("on the 3 rd interval"), std::string::npos);
  EXPECT_NE(texts.find("on the 4 th interval"), std::string::npos);
  EXPECT_NE(texts.find("maxsubint_per_int = 1"), std::string::npos);
  EXPECT_NE(texts.find("interval_flag[0] = 1"), std::string::npos);
}

TEST(QuadWeighted, OrdinalSuffixes) {
  const struct { Integer n; const char* s; } cases[] = {
      {1, "st"}, {2, "nd"}, {3, "rd"}, {4, "th"}, {10, "th"}, {11, "th"}, {12, "th"}, {13, "th"},
      {21, "st"}, {22, "nd"}, {23, "rd"}, {101, "st"}, {111, "th"}, {112, "th"}};
  for (const auto& c : cases) EXPECT_STREQ(zil::quad::ordinal_suffix(c.n), c.s) << c.n;
}

TEST(QuadWeighted, CommFormsAndReversedCauchyRange) {
  double r1 = 0, e1 = 0, r2 = 0, e2 = 0;
  Zil_QuadReport q1{}, q2{};
  Zil_Comm comm{};
  ZilError fail{};
  d01snc(with_comm, 0.0, 3.0, 10.0, Zil_Sine, 0, 1e-10, 50, &r1, &e1, &q1, &comm, &fail);
  d01anc(exp_neg, 0.0, 3.0, 10.0, Zil_Sine, 0, 1e-10, 50, &r2, &e2, &q2, &fail);
  EXPECT_EQ(r1, r2);
  EXPECT_EQ(q1.eval_count, q2.eval_count);
  release(q1);
  release(q2);
  d01spc(with_comm, 0.0, 1.0, -0.5, 0.3, Zil_Alg_logb, 0, 1e-10, 50, &r1, &e1, &q1, &comm, &fail);
  d01apc(exp_neg, 0.0, 1.0, -0.5, 0.3, Zil_Alg_logb, 0, 1e-10, 50, &r2, &e2, &q2, &fail);
  EXPECT_EQ(r1, r2);
  release(q1);
  release(q2);
  d01sqc(with_comm, -1.0, 2.0, 0.5, 0, 1e-10, 50, &r1, &e1, &q1, &comm, &fail);
  d01aqc(exp_neg, 2.0, -1.0, 0.5, 0, 1e-10, 50, &r2, &e2, &q2, &fail);
  EXPECT_EQ(r1, -r2);
  check_record(q2, 50);
  release(q1);
  release(q2);
  Zil_QuadCycleReport c1{}, c2{};
  d01ssc(with_comm, 0.0, 1.0, Zil_Sine, 20, 50, 1e-10, &r1, &e1, &c1, &comm, &fail);
  d01asc(exp_neg, 0.0, 1.0, Zil_Sine, 20, 50, 1e-10, &r2, &e2, &c2, &fail);
  EXPECT_EQ(r1, r2);
  release_cycles(c1);
  release_cycles(c2);
}

TEST(QuadWeighted, NaNIntegrandEndsCleanly) {
  double r = 0, e = 0;
  Zil_QuadReport qp{};
  ZilError fail{};
  d01anc(nan_fn, 0.0, 10.0, 20.0, Zil_Cosine, 0, 1e-8, 30, &r, &e, &qp, &fail);
  EXPECT_NE(fail.code, ZE_NOERROR);
  release(qp);
  d01apc(nan_fn, 0.0, 1.0, 0.5, 0.5, Zil_Alg, 0, 1e-8, 30, &r, &e, &qp, &fail);
  EXPECT_NE(fail.code, ZE_NOERROR);
  release(qp);
  d01aqc(nan_fn, 0.0, 1.0, 0.5, 0, 1e-8, 30, &r, &e, &qp, &fail);
  EXPECT_NE(fail.code, ZE_NOERROR);
  release(qp);
  Zil_QuadCycleReport cq{};
  d01asc(nan_fn, 0.0, 1.0, Zil_Cosine, 10, 20, 1e-8, &r, &e, &cq, &fail);
  EXPECT_NE(fail.code, ZE_NOERROR);
  release_cycles(cq);
}

TEST(QuadWeighted, AlgLogWithOneSubintervalMergesTheHalves) {
  double r = 0, e = 0;
  Zil_QuadReport qp{};
  ZilError fail{};
  d01apc(exp_neg, 0.0, 1.0, -0.5, -0.5, Zil_Alg, 0, 1e-15, 1, &r, &e, &qp, &fail);
  EXPECT_TRUE(fail.code == ZE_NOERROR || fail.code == ZE_QUAD_MAX_SUBDIV);
  EXPECT_EQ(qp.subint_count, 1);
  EXPECT_EQ(qp.subint_lower[0], 0.0);
  EXPECT_EQ(qp.subint_upper[0], 1.0);
  EXPECT_EQ(qp.subint_result[0], r);
  release(qp);
}

}  // namespace
