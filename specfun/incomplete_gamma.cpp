// The incomplete gamma ratios P(a, x) and Q(a, x).
//
// Near the transition (a >= 20, 0.7a <= x <= 1.43a) Temme's uniform
// expansion Q = erfc(eta sqrt(a/2))/2 + exp(-a eta^2/2)/sqrt(2 pi a) sum c_k(eta)/a^k
// (N. M. Temme, SIAM J. Math. Anal. 10, 1979); for a < 1 and x <= 1
// Gautschi's series for both ratios; elsewhere the power series for P when
// x < a + 1 and Legendre's continued fraction for Q otherwise, each scaled by
// x^a exp(-x)/Gamma(a + 1).
#include <cmath>
#include <limits>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "specfun/detail/coefficients.hpp"
#include "specfun/detail/series.hpp"
#include "specfun/specfun.hpp"
#include "zil_specfun.h"

namespace zil::sf {

// ln(1 + y) - y.  Near 0, where the two terms cancel, through
// z = y/(2 + y): ln(1 + y) = 2 artanh z and y = 2z/(1 - z) give
// ln(1 + y) - y = -z y + 2 (z^3/3 + z^5/5 + ...), |z| <= 1/3.
Wide log1pmx_wide(Wide y) {
  if (std::fabs(y) > 0.5L) return std::log1p(y) - y;
  const Wide z = y / (2.0L + y), z2 = z * z;
  Wide power = z, sum = 0.0L;
  for (int k = 3; k < 99; k += 2) {
    power *= z2;
    const Wide add = power / k;
    sum += add;
    if (std::fabs(add) <= 1e-21L * std::fabs(sum)) break;
  }
  return 2.0L * sum - z * y;
}

double exp_minus(Wide e) {
  const double hi = static_cast<double>(e);
  return std::exp(-hi) * (1.0 - static_cast<double>(e - hi));
}

namespace {

constexpr int kIterationLimit = 600;

// a phi = a (lambda - 1 - ln lambda), lambda = x/a.  Away from lambda = 1
// ln lambda is taken of the quotient itself, whose rounding is a relative
// one, rather than of 1 + (lambda - 1), which would turn the rounding of
// lambda - 1 into a relative error 1/lambda times larger.
Wide a_phi(double a, double x) {
  const Wide mu = (Wide(x) - a) / a;
  if (std::fabs(mu) <= 0.5L) return -a * log1pmx_wide(mu);
  return a * (mu - std::log(Wide(x) / a));
}

// ln Gamma*(a) = ln Gamma(a) - Stirling's leading terms, for a > 15.
double log_gamma_star(double a) {
  if (a > 6.8e6) return 1.0 / (12.0 * a);
  return series(coef::s14ab, coef::s14ab_centre, 450.0 / (a * a) - 1.0) / a;
}

// x^a exp(-x) / Gamma(a + 1).
double front_factor(double a, double x) {
  // exp(-a phi) sqrt(a/(2 pi)) / (a Gamma*(a)), with Gamma* = 1 + O(1/a).
  if (a > 15.0) return exp_minus(a_phi(a, x) + log_gamma_star(a)) / std::sqrt(2.0 * kPi * a);
  return exp_minus(x - a * std::log(Wide(x))) / gamma(a + 1.0).value;
}

// a < 1 and x <= 1, after Gautschi (ACM TOMS 5, 1979): with r = x^a/Gamma(1 + a)
// and T = sum_{n>=1} (-1)^(n+1) x^n/((a + n) n!), P = r - r a T and
// Q = (1 - r) + r a T, where 1 - r = (g - (x^a - 1))/(1 + g) and
// g = Gamma(1 + a) - 1 = a h(a).  Q is of the order of a here, and formed as
// 1 - P it would lose as many digits as a has leading zeros; this way each
// part keeps its relative accuracy, and they cancel by at most a factor of
// four (at x = 1, where Q = 0.22a for small a).
GammaRatios small_a(double a, double x, double eps) {
  const double g = a * series(coef::s14ba, coef::s14ba_centre, 2.0 * a - 1.0);
  const double a_ln_x = a * std::log(x);
  const double xa_m1 = std::expm1(a_ln_x);
  // x^a itself, not 1 + (x^a - 1), which would lose digits where x^a is small.
  const double r = std::exp(a_ln_x) / (1.0 + g);
  const double one_minus_r = (g - xa_m1) / (1.0 + g);
  double term = x, sum = x / (a + 1.0);
  for (int n = 2; n <= kIterationLimit; ++n) {
    term *= -x / n;
    const double add = term / (a + n);
    sum += add;
    if (std::fabs(add) <= eps * std::fabs(sum)) break;  // x <= 1: by n = 20
  }
  const double rat = r * a * sum;
  return {r - rat, one_minus_r + rat, 0, 0};
}

GammaRatios temme(double a, double x) {
  const Wide e = a_phi(a, x);  // a eta^2 / 2
  const double eta = std::copysign(std::sqrt(2.0 * static_cast<double>(e) / a), x - a);
  const double inv_a = 1.0 / a;
  double sum = 0.0;
  for (std::size_t k = coef::temme.size(); k-- > 0;) sum = sum * inv_a + poly(coef::temme[k], eta);
  const double r = exp_minus(e) / std::sqrt(2.0 * kPi * a) * sum;
  // erfc's argument eta sqrt(a/2) = sqrt(a phi), split into a value and a
  // correction, which erfc_split takes without rounding them together.
  const Wide arg = std::copysign(std::sqrt(e), Wide(x) - a);
  const double arg_hi = static_cast<double>(arg), arg_lo = static_cast<double>(arg - arg_hi);
  if (x >= a) {
    const double q = 0.5 * erfc_split(arg_hi, arg_lo) + r;
    return {1.0 - q, q, 0, 0};
  }
  const double p = 0.5 * erfc_split(-arg_hi, -arg_lo) - r;
  return {p, 1.0 - p, 0, 0};
}

}  // namespace

double log1pmx(double y) { return static_cast<double>(log1pmx_wide(y)); }

GammaRatios incomplete_gamma(double a, double x, double tol) {
  if (a <= 0.0) return {0.0, 0.0, 1, 0};
  if (x < 0.0) return {0.0, 0.0, 2, 0};
  if (x == 0.0) return {0.0, 1.0, 0, 0};
  if (std::isnan(a) || std::isnan(x)) return {x + a, x + a, 0, 0};
  const double e = std::fmax(kEps, 1e-18);
  const double eps = (e < tol && tol <= 1.0) ? tol : e;
  if (a >= 20.0 && 0.7 * a <= x && x * 0.7142857142857143 <= a) return temme(a, x);
  if (std::isinf(x)) return {1.0, 0.0, 0, 0};

  if (a < 1.0 && x <= 1.0) return small_a(a, x, eps);

  const double d = front_factor(a, x);
  // Below a = 1 the fraction takes over from x = 1 (see small_a).
  if (x < a + 1.0 && a >= 1.0) {
    // P = d (1 + x/(a+1) + x^2/((a+1)(a+2)) + ...)
    double term = 1.0, sum = 1.0;
    for (int n = 1; n <= kIterationLimit; ++n) {
      term *= x / (a + n);
      sum += term;
      if (term <= eps * sum) {
        const double p = d * sum;
        return {p, 1.0 - p, 0, 0};
      }
    }
    return {d * sum, 1.0 - d * sum, 3, kIterationLimit};
  }
  // Q = d a / (x + 1 - a - 1(1-a)/(x + 3 - a - 2(2-a)/(x + 5 - a - ...))),
  // evaluated forward by the modified Lentz method.  Near x = 1 it takes
  // a hundred steps and more, each adding a rounding to the running
  // product: it runs in the extended format, which keeps their sum below
  // 2^-53.
  constexpr Wide tiny = 1e-300L;
  Wide b = Wide(x) + 1.0L - a;
  Wide c = 1.0L / tiny, f = 1.0L / b, dd = f;
  for (int n = 1; n <= kIterationLimit; ++n) {
    const Wide an = -n * (n - Wide(a));
    b += 2.0L;
    dd = an * dd + b;
    if (std::fabs(dd) < tiny) dd = tiny;
    c = b + an / c;
    if (std::fabs(c) < tiny) c = tiny;
    dd = 1.0L / dd;
    const Wide delta = dd * c;
    f *= delta;
    // The last factor's distance from 1 measures the error still in f;
    // an eighth of the tolerance leaves the result within it, where a
    // stop at the tolerance itself could leave an error just above it.
    if (std::fabs(delta - 1.0L) <= eps * 0.125L) {
      const double q = static_cast<double>(d * a * f);
      return {1.0 - q, q, 0, 0};
    }
  }
  const double q = static_cast<double>(d * a * f);
  return {1.0 - q, q, 3, kIterationLimit};
}

}  // namespace zil::sf

extern "C" {

void s14bac(double a, double x, double tol, double* p, double* q, ZilError* fail) {
  zil::Reporter rep(fail, "s14bac");
  const zil::sf::GammaRatios r = zil::sf::incomplete_gamma(a, x, tol);
  if (p) *p = r.p;
  if (q) *q = r.q;
  switch (r.exit) {
    case 1: rep.real_le("a", a, 0.0, "0.0"); break;
    case 2: rep.real_lt("x", x, 0.0, "0.0"); break;
    case 3: rep.raise(ZE_ALG_NOT_CONV, r.iterations); break;
    default: rep.success();
  }
}

}  // extern "C"

ZIL_ALIAS(s14bac, zil_incomplete_gamma);
