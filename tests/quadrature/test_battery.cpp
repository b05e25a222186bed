// The battery of integrands over the eight families, against the mpmath
// values of tools/quad_battery.py: at three tolerances, a run that reports
// success must have a true error within its abserr.  The weighted rules'
// moments are checked against the same script.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <string>

#include "quadrature/detail/cc25.hpp"
#include "tests/quadrature/quad_support.hpp"
#include "zil.h"

using namespace zil_test;

namespace {

const std::map<std::string, double>& reference() {
  static const std::map<std::string, double> ref = [] {
    std::map<std::string, double> m;
    std::ifstream in(ZIL_TEST_DATA_DIR "/battery.txt");
    std::string name;
    double v;
    while (in >> name >> v) m[name] = v;
    return m;
  }();
  return ref;
}
double ref(const char* name) {
  const auto it = reference().find(name);
  EXPECT_NE(it, reference().end()) << name;
  return it == reference().end() ? NAN : it->second;
}

enum Family { Gen, Osc, Brk, Inf, Trig, AlgLog, Cauchy, Fourier };
struct Row {
  const char* name;
  Family fam;
  Zil_QuadFun f;
  double a, b;       // Inf: bound; Fourier: a
  double p1, p2;     // omega / alfa, beta / c / break point
  Integer kind;      // boundinf / wt_func
};

double sqrt_x(double x) { return std::sqrt(x); }
double log_x(double x) { return std::log(x); }
double log1p_x(double x) { return std::log1p(x); }
double inv_sqrt(double x) { return 1.0 / std::sqrt(x); }
double sqrt_log(double x) { return std::sqrt(x) * std::log(x); }
double pow_m08(double x) { return std::pow(x, -0.8); }
double x_cos30(double x) { return x * std::cos(30.0 * x); }
double exp_cos50(double x) { return std::exp(x) * std::cos(50.0 * x); }
double abs_third(double x) { return 1.0 / std::sqrt(std::fabs(x - 1.0 / 3.0)); }
double log_abs07(double x) { return std::log(std::fabs(x - 0.7)); }
double kink(double x) { return std::fabs(x * x - 0.25); }
double exp_neg(double x) { return std::exp(-x); }
double lorentz(double x) { return 1.0 / (1.0 + x * x); }
double gauss(double x) { return std::exp(-x * x); }
double log_lorentz(double x) { return std::log(x) / (1.0 + x * x); }
double inv_sqrt_1px(double x) { return 1.0 / ((1.0 + x) * std::sqrt(x)); }
double x2(double x) { return x * x; }
double cos_x(double x) { return std::cos(x); }
double inv_1px(double x) { return 1.0 / (1.0 + x); }
double exp_x(double x) { return std::exp(x); }
double cubic(double x) { return 1.0 / (5.0 * x * x * x + 6.0); }
double one(double) { return 1.0; }
double inv_sqrt0(double x) { return x > 0.0 ? 1.0 / std::sqrt(x) : 0.0; }
double x_lorentz(double x) { return x / (1.0 + x * x); }

constexpr double kPi = 3.14159265358979323846;

const Row rows[] = {
    {"sqrt", Gen, sqrt_x, 0, 1, 0, 0, 0},
    {"log", Gen, log_x, 0, 1, 0, 0, 0},
    {"inv_sqrt", Gen, inv_sqrt, 0, 1, 0, 0, 0},
    {"sqrt_log", Gen, sqrt_log, 0, 1, 0, 0, 0},
    {"pow_m08", Gen, pow_m08, 0, 1, 0, 0, 0},
    {"x_cos30", Osc, x_cos30, 0, 1, 0, 0, 0},
    {"exp_cos50", Osc, exp_cos50, 0, 1, 0, 0, 0},
    {"abs_third", Brk, abs_third, 0, 1, 1.0 / 3.0, 0, 0},
    {"log_abs07", Brk, log_abs07, 0, 1, 0.7, 0, 0},
    {"kink", Brk, kink, 0, 1, 0.5, 0, 0},
    {"exp_upper", Inf, exp_neg, 0, 0, 0, 0, Zil_UpperSemiInfinite},
    {"lorentz_lower", Inf, lorentz, 0, 0, 0, 0, Zil_LowerSemiInfinite},
    {"gauss_inf", Inf, gauss, 0, 0, 0, 0, Zil_Infinite},
    {"log_lorentz", Inf, log_lorentz, 0, 0, 0, 0, Zil_UpperSemiInfinite},
    {"inv_sqrt_1px", Inf, inv_sqrt_1px, 0, 0, 0, 0, Zil_UpperSemiInfinite},
    {"expm_cos05", Trig, exp_neg, 0, 3, 0.5, 0, Zil_Cosine},
    {"expm_sin10", Trig, exp_neg, 0, 3, 10.0, 0, Zil_Sine},
    {"expm_cos200", Trig, exp_neg, 0, 3, 200.0, 0, Zil_Cosine},
    {"log1p_sin10pi", Trig, log1p_x, 0, 1, 10.0 * kPi, 0, Zil_Sine},
    {"x2_cos1000", Trig, x2, 0, 1, 1000.0, 0, Zil_Cosine},
    {"sqrt_sinm30", Trig, sqrt_x, 0, 1, -30.0, 0, Zil_Sine},
    {"cos_alg", AlgLog, cos_x, 0, 1, -0.5, 0.3, Zil_Alg},
    {"cos_loga", AlgLog, cos_x, 0, 1, -0.5, 0.3, Zil_Alg_loga},
    {"cos_logb", AlgLog, cos_x, 0, 1, -0.5, 0.3, Zil_Alg_logb},
    {"cos_loga_logb", AlgLog, cos_x, 0, 1, -0.5, 0.3, Zil_Alg_loga_logb},
    {"log_over_1px", AlgLog, inv_1px, 0, 1, 0.0, 0.0, Zil_Alg_loga},
    {"pv_exp", Cauchy, exp_x, -1, 1, 0.0, 0, 0},
    {"pv_cubic", Cauchy, cubic, -1, 5, 0.0, 0, 0},
    {"pv_one", Cauchy, one, 0, 1, 0.3, 0, 0},
    {"four_lorentz_cos", Fourier, lorentz, 0, 0, 1.0, 0, Zil_Cosine},
    {"four_invsqrt_cos", Fourier, inv_sqrt0, 0, 0, kPi / 2, 0, Zil_Cosine},
    {"four_exp_sin", Fourier, exp_neg, 0, 0, 1.0, 0, Zil_Sine},
    {"four_xlorentz_sin", Fourier, x_lorentz, 0, 0, 1.0, 0, Zil_Sine},
};

struct Outcome {
  double result = 0, abserr = 0;
  Integer code = -1, evals = 0, subints = 0;
};

Outcome run(const Row& r, double tol) {
  Outcome o;
  ZilError fail{};
  Zil_QuadReport qp{};
  const Integer limit = 500;
  switch (r.fam) {
    case Gen:
      d01ajc(r.f, r.a, r.b, 0.0, tol, limit, &o.result, &o.abserr, &qp, &fail);
      break;
    case Osc:
      d01akc(r.f, r.a, r.b, 0.0, tol, limit, &o.result, &o.abserr, &qp, &fail);
      break;
    case Brk:
      d01alc(r.f, r.a, r.b, 1, &r.p1, 0.0, tol, limit, &o.result, &o.abserr, &qp, &fail);
      break;
    case Inf:
      d01amc(r.f, r.kind, r.a, 0.0, tol, limit, &o.result, &o.abserr, &qp, &fail);
      break;
    case Trig:
      d01anc(r.f, r.a, r.b, r.p1, r.kind, 0.0, tol, limit, &o.result, &o.abserr, &qp, &fail);
      break;
    case AlgLog:
      d01apc(r.f, r.a, r.b, r.p1, r.p2, r.kind, 0.0, tol, limit, &o.result, &o.abserr, &qp, &fail);
      break;
    case Cauchy:
      d01aqc(r.f, r.a, r.b, r.p1, 0.0, tol, limit, &o.result, &o.abserr, &qp, &fail);
      break;
    case Fourier: {
      Zil_QuadCycleReport cq{};
      const double exact = ref(r.name);
      d01asc(r.f, r.a, r.p1, r.kind, 100, limit, tol * std::fabs(exact), &o.result, &o.abserr, &cq,
             &fail);
      o.code = fail.code;
      o.evals = cq.eval_count;
      o.subints = cq.interval_count;
      x04bdc(reinterpret_cast<Pointer*>(&cq.interval_error));
      x04bdc(reinterpret_cast<Pointer*>(&cq.interval_result));
      x04bdc(reinterpret_cast<Pointer*>(&cq.interval_flag));
      return o;
    }
  }
  o.code = fail.code;
  o.evals = qp.eval_count;
  o.subints = qp.subint_count;
  check_record(qp, limit);
  release(qp);
  return o;
}

TEST(QuadBattery, TrueErrorWithinTheEstimateOnSuccess) {
  int successes = 0;
  std::printf("%-18s %7s %5s %6s %5s %10s %10s\n", "integrand", "epsrel", "code", "evals", "subs",
              "true err", "abserr");
  for (const Row& r : rows) {
    const double exact = ref(r.name);
    for (double tol : {1e-4, 1e-8, 1e-12}) {
      SCOPED_TRACE(::testing::Message() << r.name << " tol " << tol);
      const Outcome o = run(r, tol);
      const double err = std::fabs(o.result - exact);
      std::printf("%-18s %7.0e %5ld %6ld %5ld %10.2e %10.2e\n", r.name, tol,
                  static_cast<long>(o.code), static_cast<long>(o.evals),
                  static_cast<long>(o.subints), err, o.abserr);
      EXPECT_GT(o.evals, 0);
      if (o.code == ZE_NOERROR) {
        ++successes;
        // The mpmath values are correct to 20 digits; beyond their rounding,
        // allow half an ulp of 1: every integrand here is of unit size on a
        // range of unit length or so, and a result much smaller than that
        // (the oscillatory ones) carries the rounding of its sum.  The
        // epsilon algorithm's floor of 0.5*epmach*|result| is below it.
        EXPECT_LE(err, o.abserr + 2 * eps * std::fabs(exact) + 0.5 * eps);
      }
    }
  }
  // Everything but the hardest requests at 1e-12 is expected to succeed.
  EXPECT_GE(successes, 3 * static_cast<int>(std::size(rows)) - 12);
}

TEST(QuadMoments, TrigonometricMomentsBothRegimes) {
  // |p| <= 24 solves the boundary value problem, above it recurs forward.
  for (int p : {3, 10, 30}) {
    double mom[25];
    zil::quad::trig_moments(static_cast<double>(p), mom);
    for (int k : {0, 1, 6, 11, 23, 24}) {
      const double want = ref(("trig_" + std::to_string(p) + "_" + std::to_string(k)).c_str());
      SCOPED_TRACE(::testing::Message() << "p " << p << " k " << k);
      EXPECT_NEAR(mom[k], want, 1e4 * eps * std::max(1.0, std::fabs(want)));
    }
  }
}

TEST(QuadMoments, AlgebraicLogarithmicEndMoments) {
  const struct { double alfa; const char* tag; } cases[] = {{-0.5, "-0.5"}, {0.3, "0.3"}, {2.0, "2.0"}};
  for (const auto& c : cases) {
    // rj, rh of beta are ri, rg of the same exponent with the sign of T_k(-t).
    const zil::quad::EndMoments m = zil::quad::end_moments(c.alfa, c.alfa);
    for (int k : {0, 1, 7, 24}) {
      const std::string s = std::string(c.tag) + "_" + std::to_string(k);
      const double ri = ref(("ri_" + s).c_str()), rg = ref(("rg_" + s).c_str());
      const double sgn = k % 2 ? -1.0 : 1.0;
      SCOPED_TRACE(s);
      EXPECT_NEAR(m.ri[k], ri, 1e3 * eps * std::max(1.0, std::fabs(ri)));
      EXPECT_NEAR(m.rg[k], rg, 1e3 * eps * std::max(1.0, std::fabs(rg)));
      EXPECT_NEAR(m.rj[k], sgn * ri, 1e3 * eps * std::max(1.0, std::fabs(ri)));
      EXPECT_NEAR(m.rh[k], sgn * rg, 1e3 * eps * std::max(1.0, std::fabs(rg)));
    }
  }
}

}  // namespace
