// Elementary functions: ln(1 + x), tan, the hyperbolic functions and their
// inverses.
#include <cmath>
#include <cstdint>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "specfun/detail/frame.hpp"
#include "specfun/detail/coefficients.hpp"
#include "specfun/detail/series.hpp"
#include "specfun/specfun.hpp"
#include "zil_specfun.h"

namespace zil::sf {

Result shifted_log(double x) {
  if (x <= -1.0) return {0.0, 1};
  // ln(1 + x) = 2 artanh(x/(x + 2)); with t scaled so that |t| <= 1 exactly
  // when 1/sqrt(2) <= 1 + x <= sqrt(2), the odd series needs no 1 + x, whose
  // rounding would cost all digits near x = 0.
  const double t = (x * 1.0074696667295095) / ((x + 2.0) * 0.1728544674517796);
  const double u = t * t;
  if (!(u <= 1.0)) return {std::log(1.0 + x), 0};
  return {4.0 * t * poly(coef::s01ba, u), 0};
}

Result tan(double x) {
  if (std::fabs(x) > 1e10) return {0.0, 1};
  if (std::isnan(x)) return {x, 0};
  const double n = std::trunc(x * 0.6366197723675813 + (x < 0.0 ? -0.5 : 0.5));
  // f = x - n pi/2 with pi/2 in three pieces, each product's error recovered
  // by a fused multiply-add, so that f keeps its digits for every n up to
  // 1e10/(pi/2).
  constexpr double c1 = 1.5707963267948966, c2 = 6.123233995736766e-17, c3 = -1.4973849048591698e-33;
  const double p1 = n * c1;
  double f = x - p1;
  f -= std::fma(n, c1, -p1);
  const double p2 = n * c2;
  f -= p2;
  f -= std::fma(n, c2, -p2);
  f -= n * c3;
  const bool odd = std::fmod(std::fabs(n), 2.0) == 1.0;
  if (odd && std::fabs(f) < std::fabs(x) * 1e-14) {
    // A pole of tan: the value at the distance that the arithmetic can still
    // resolve, with the sign of -1/f (a zero f counts as negative).
    const double sign = f > 0.0 ? -1.0 : 1.0;
    return {sign / std::fabs(x * 1e-14), 2};
  }
  static_assert(coef::s07aa_centre == -1.0);
  const double w = f * 0.6366197723675813;
  const double g = f * poly(coef::s07aa, 8.0 * w * w);
  return {odd ? -1.0 / g : g, 0};
}

double tanh(double x) {
  const double a = std::fabs(x);
  if (a >= 18.5) return x <= 0.0 ? -1.0 : 1.0;
  if (a <= 1.0) return x * series(coef::s10aa, coef::s10aa_centre, 2.0 * x * x - 1.0);
  const double e = std::exp(2.0 * x);
  return (e - 1.0) / (e + 1.0);
}

namespace {
// The hyperbolic functions beyond |x| = 708 are computed at +-708, the last
// point where exp(x) is finite with room for the halving.
double clamp_708(double x, int& exit) {
  if (std::fabs(x) > 708.0) {
    exit = 1;
    return x > 0.0 ? 708.0 : -708.0;
  }
  return x;
}
}  // namespace

Result sinh(double x) {
  if (std::fabs(x) <= 1.0) {
    static_assert(coef::s10ab_centre == 1.0);
    return {x * poly(coef::s10ab, 2.0 * (x * x) - 2.0), 0};
  }
  int exit = 0;
  x = clamp_708(x, exit);
  const double e = std::exp(x);
  return {(e - 1.0 / e) * 0.5, exit};
}

Result cosh(double x) {
  int exit = 0;
  x = clamp_708(x, exit);
  const double e = std::exp(x);
  return {(1.0 / e + e) * 0.5, exit};
}

Result artanh(double x) {
  const double a = std::fabs(x);
  if (a >= 1.0) return {0.0, 1};
  if (x * x <= 0.5) {
    static_assert(coef::s11aa_centre == -1.0);
    return {x * poly(coef::s11aa, 4.0 * x * x), 0};
  }
  // 1 - |x| is written so that it is exact for |x| >= 0.5.
  const double v = 0.5 * std::log((1.0 + a) / (0.5 - a + 0.5));
  return {x < 0.0 ? -v : v, 0};
}

double arsinh(double x) {
  const double a = std::fabs(x);
  double v;
  if (a >= 1e9)
    v = std::log(a) + kLn2;
  else if (x * x > 1.0)
    v = std::log(a + std::sqrt(x * x + 1.0));
  else
    return x * series(coef::s11ab, coef::s11ab_centre, 2.0 * x * x - 1.0);
  return x < 0.0 ? -v : v;
}

Result arcosh(double x) {
  if (x < 1.0) return {0.0, 1};
  if (x >= 1e9) return {std::log(x) + kLn2, 0};
  if (x == 1.0) return {0.0, 0};
  // x*x - 1 as (x - 1)(x + 1), and the logarithm of 1 plus the small part,
  // keep the digits that the plain form loses as x approaches 1.
  const double w = (x - 1.0) + std::sqrt((x - 1.0) * (x + 1.0));
  return {std::log1p(w), 0};
}

// The frame of s10abc and s10acc, which fail alike beyond |x| = 708.
double report_708(const char* routine, double x, Result r, ZilError* fail) {
  Reporter rep(fail, routine);
  if (r.exit)
    rep.raise(ZE_REAL_ARG_GT, "|x|", Num(708.0, "%4g").text, "|x|", std::fabs(x));
  else
    rep.success();
  return r.value;
}

}  // namespace zil::sf

// ---- Public routines -------------------------------------------------------

extern "C" {

double s01bac(double x, ZilError* fail) {
  return zil::sf::report_le("s01bac", x, zil::sf::shifted_log(x), -1.0, "-1.0", fail);
}

double s07aac(double x, ZilError* fail) {
  zil::Reporter rep(fail, "s07aac");
  const zil::sf::Result r = zil::sf::tan(x);
  if (r.exit == 1)
    rep.raise(ZE_REAL_ARG_GT, "x", "fl1", "x", x);
  else if (r.exit == 2)
    rep.raise(ZE_FUN_INF, "x", x);
  else
    rep.success();
  return r.value;
}

double s10aac(double x) { return zil::sf::tanh(x); }

double s10abc(double x, ZilError* fail) { return zil::sf::report_708("s10abc", x, zil::sf::sinh(x), fail); }

double s10acc(double x, ZilError* fail) { return zil::sf::report_708("s10acc", x, zil::sf::cosh(x), fail); }

double s11aac(double x, ZilError* fail) {
  const zil::sf::Result r = zil::sf::artanh(x);
  if (r.exit) {
    // This routine's check comes before the record is cleared, so a failure
    // leaves errnum as the caller had it.
    zil::Reporter rep(fail, "s11aac", zil::Reporter::Clear::CodeOnly);
    rep.raise(ZE_REAL_ARG_GE, "|x|", "1.0", "|x|", std::fabs(x));
    return r.value;
  }
  zil::Reporter rep(fail, "s11aac");
  rep.success();
  return r.value;
}

double s11abc(double x) { return zil::sf::arsinh(x); }

double s11acc(double x, ZilError* fail) {
  zil::Reporter rep(fail, "s11acc");
  const zil::sf::Result r = zil::sf::arcosh(x);
  if (r.exit)
    rep.real_lt("x", x, 1.0, "1.0");
  else
    rep.success();
  return r.value;
}

}  // extern "C"

ZIL_ALIAS(s01bac, zil_shifted_log);
ZIL_ALIAS(s10aac, zil_tanh);
ZIL_ALIAS(s10abc, zil_sinh);
ZIL_ALIAS(s10acc, zil_cosh);
ZIL_ALIAS(s11aac, zil_arctanh);
ZIL_ALIAS(s11abc, zil_arcsinh);
ZIL_ALIAS(s11acc, zil_arccosh);
