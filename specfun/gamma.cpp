// The gamma function and its logarithm for real arguments.
#include <cmath>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "specfun/detail/coefficients.hpp"
#include "specfun/detail/series.hpp"
#include "specfun/specfun.hpp"
#include "zil_specfun.h"

namespace zil::sf {

namespace {
// Gamma(1 + f) for f in [0, 1].
double gamma_1p(double f) { return poly4(coef::s14aa, 2.0 * f - 1.0 - coef::s14aa_centre); }

// Gamma(x) for 0 < x < 170 through the recurrence down to [1, 2): the
// factors x - k are exact, and the product keeps twice the working precision.
// The factors of odd and of even k go to two products that run side by side,
// each waiting on half the chain, and are joined at the end.
double gamma_positive(double x) {
  const double n = std::trunc(x);
  const double s = gamma_1p(x - n);
  if (n == 0.0) return s / x;
  Product odd, even;
  double k = 1.0;
  for (; k + 1.0 < n; k += 2.0) {
    odd.times(x - k);
    even.times(x - (k + 1.0));
  }
  if (k < n) odd.times(x - k);
  odd.times(even);
  return odd.value() * s;
}

// ln Gamma(x) for 0 < x <= 15 by the same recurrence with a plain product:
// its at most 14 roundings, a relative error of the product, become an
// absolute error of a few units of 2^-53 in the logarithm, which is below
// one unit of ln Gamma(x) away from its zeros at 1 and 2, where the product
// has at most one factor.  The exact product of gamma_positive would cost a
// fused multiply-add per factor for nothing.
//
// The product runs without a branch on the number of factors: with n the
// integer part of x, max(x - k, 1) is the factor x - k (exact) for k < n and
// 1 beyond, and min(x, 1) is the divisor x when n = 0 and 1 otherwise.  The
// fourteen factors are formed in pairs (SSE2, the base of every x86-64
// processor, packs two doubles) and multiplied as a tree: a call is limited
// by the number of operations it issues, and a loop whose trip count
// changes from call to call would add a mispredicted branch.
double log_gamma_small(double x) {
  const double s = gamma_1p(x - std::trunc(x));
#if defined(__SSE2__)
  const __m128d vx = _mm_set1_pd(x), one = _mm_set1_pd(1.0);
  auto pair = [&](double k) { return _mm_max_pd(_mm_sub_pd(vx, _mm_set_pd(k + 1.0, k)), one); };
  const __m128d f = _mm_mul_pd(_mm_mul_pd(_mm_mul_pd(pair(1.0), pair(3.0)), _mm_mul_pd(pair(5.0), pair(7.0))),
                               _mm_mul_pd(_mm_mul_pd(pair(9.0), pair(11.0)), pair(13.0)));
  const double p = _mm_cvtsd_f64(f) * _mm_cvtsd_f64(_mm_unpackhi_pd(f, f));
#else
  double p = 1.0;
  for (double k = 1.0; k < 15.0; k += 1.0) p *= std::fmax(x - k, 1.0);
#endif
  return std::log(s * p / (x < 1.0 ? x : 1.0));
}

// Stirling's form (x - 1/2) ln x - x + ln sqrt(2 pi).
double stirling(double x) { return (x - 0.5) * std::log(x) - x + kLnSqrt2Pi; }
}  // namespace

Result gamma(double x) {
  const double a = std::fabs(x);
  if (a >= 170.0) return x >= 0.0 ? Result{4.3e304, 1} : Result{0.0, 2};
  if (a > 3e-15) {
    if (x > 0.0) return {gamma_positive(x), 0};
    // x < 0: up through x(x+1)...(x+m) to 1 + f in (1, 2].
    const double n = std::trunc(x);
    const double frac = x - n;
    if (frac == 0.0) return {4.3e304, 3};
    Product p;
    for (double k = 0.0; k <= 1.0 - n; k += 1.0) p.times(x + k);
    return {gamma_1p(1.0 + frac) / p.value(), 0};
  }
  // Below 3e-15 Gamma(x) = 1/x - 0.5772... agrees with 1/x to the working
  // precision; below the smallest normal 1/x overflows.
  if (a >= 2.23e-308) return {1.0 / x, 0};
  return {std::copysign(4.4843049327354256e307, x), 4};
}

Result log_gamma(double x) {
  if (x <= 1e-15) return x <= 0.0 ? Result{0.0, 1} : Result{-std::log(x), 0};
  if (x <= 15.0) return {log_gamma_small(x), 0};
  if (x <= 6.8e6) {
    // One division: the series is of order 1/(12x), so the two extra
    // roundings in its variable stay far below the result's last place.
    const double r = 1.0 / x;
    return {stirling(x) + series(coef::s14ab, coef::s14ab_centre, 450.0 * r * r - 1.0) * r, 0};
  }
  // (x - 1/2) ln x reaches the overflow limit just above 2.55e305.
  if (x > 2.55e305) return {1.79e308, 2};
  return {stirling(x), 0};
}

}  // namespace zil::sf

namespace {
// The failure reports, out of line: formatting their messages takes a large
// stack frame, which the successful call should not have to set up.
[[gnu::cold, gnu::noinline]] void gamma_failure(zil::Reporter& rep, int exit, double x) {
  switch (exit) {
    case 1: rep.raise(ZE_REAL_ARG_GT, "x", zil::Num(170.0, "%6.1g").text, "x", x); break;
    case 2: rep.raise(ZE_REAL_ARG_LT, "x", zil::Num(-170.0, "%7.1g").text, "x", x); break;
    case 3: rep.raise(ZE_REAL_ARG_NEG_INT, "x", "x", x); break;
    default: rep.raise(ZE_REAL_ARG_TOO_SMALL, "x", zil::Num(2.23e-308, "%9.1g").text, "x", x);
  }
}

[[gnu::cold, gnu::noinline]] void log_gamma_failure(zil::Reporter& rep, int exit, double x) {
  if (exit == 1)
    rep.raise(ZE_REAL_ARG_LE, "x", "0.0", "x", x);
  else
    rep.raise(ZE_REAL_ARG_GT, "x", zil::Num(2.55e305, "%9.2g").text, "x", x);
}
}  // namespace

extern "C" {

double s14aac(double x, ZilError* fail) {
  zil::Reporter rep(fail, "s14aac");
  const zil::sf::Result r = zil::sf::gamma(x);
  if (r.exit)
    gamma_failure(rep, r.exit, x);
  else
    rep.success();
  return r.value;
}

double s14abc(double x, ZilError* fail) {
  zil::Reporter rep(fail, "s14abc");
  const zil::sf::Result r = zil::sf::log_gamma(x);
  if (r.exit)
    log_gamma_failure(rep, r.exit, x);
  else
    rep.success();
  return r.value;
}

}  // extern "C"

ZIL_ALIAS(s14aac, zil_gamma);
ZIL_ALIAS(s14abc, zil_log_gamma);
