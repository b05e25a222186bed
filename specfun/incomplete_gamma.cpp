// The incomplete gamma ratios P(a, x) and Q(a, x).
//
// Near the transition (a >= 20, 0.7a <= x <= 1.43a) Temme's uniform
// expansion Q = erfc(eta sqrt(a/2))/2 + exp(-a eta^2/2)/sqrt(2 pi a) sum c_k(eta)/a^k
// (N. M. Temme, SIAM J. Math. Anal. 10, 1979); elsewhere the power series for
// P when x < a + 1 and Legendre's continued fraction for Q otherwise, each
// scaled by x^a exp(-x)/Gamma(a + 1).
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

  const double d = front_factor(a, x);
  if (x < a + 1.0) {
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
  // evaluated forward by the modified Lentz method.
  constexpr double tiny = 1e-300;
  double b = x + 1.0 - a;
  double c = 1.0 / tiny, f = 1.0 / b, dd = f;
  for (int n = 1; n <= kIterationLimit; ++n) {
    const double an = -n * (n - a);
    b += 2.0;
    dd = an * dd + b;
    if (std::fabs(dd) < tiny) dd = tiny;
    c = b + an / c;
    if (std::fabs(c) < tiny) c = tiny;
    dd = 1.0 / dd;
    const double delta = dd * c;
    f *= delta;
    if (std::fabs(delta - 1.0) <= eps) {
      const double q = d * a * f;
      return {1.0 - q, q, 0, 0};
    }
  }
  const double q = d * a * f;
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
