#include "stats/detail/logs.hpp"

#include <cmath>
#include <numbers>

#include "specfun/specfun.hpp"

namespace zil::stats {

namespace {

constexpr double kLnSqrt2Pi = 0.91893853320467274178;

double log_gamma(double x) { return sf::log_gamma(x).value; }

// ln Gamma(a + b) - ln Gamma(b) for b >= 10 by Stirling's form, in which the
// (b - 1/2) ln b terms have been cancelled by hand.
double log_gamma_shift(double a, double b) {
  return (b - 0.5) * std::log1p(a / b) + a * std::log(a + b) - a + stirling_tail(a + b) -
         stirling_tail(b);
}

}  // namespace

double stirling_tail(double z) {
  if (z < 10.0) return log_gamma(z) - (z - 0.5) * std::log(z) + z - kLnSqrt2Pi;
  // The asymptotic series through z^-13; the first omitted term,
  // 3617 / (122400 z^15), is below 3e-17 for z >= 10.
  const double r = 1.0 / z, r2 = r * r;
  return r * (1.0 / 12 - r2 * (1.0 / 360 - r2 * (1.0 / 1260 - r2 * (1.0 / 1680 -
              r2 * (1.0 / 1188 - r2 * (691.0 / 360360 - r2 / 156.0))))));
}

Wide deviance(double x, Wide m) {
  if (x == 0.0) return m;
  // m ((1 + y) ln(1 + y) - y) with the y^2/2 leading term kept whole; y
  // carries the rounding of the extended format only, which the factor m
  // ln(1 + y) of its derivative cannot raise to a double's.
  const Wide y = (x - m) / m;
  return m * (sf::log1pmx_wide(y) + y * std::log1p(y));
}

Wide log_beta_front(double a, double b, double x, double y, double lx, double ly, bool exact_x) {
  if (a >= 10.0 && b >= 10.0) {
    // With d = x (a + b) - a: a ln(x (a+b)/a) = a ln(1 + d/a) and
    // b ln(y (a+b)/b) = b ln(1 - d/b); their first-order parts +d and -d
    // cancel, which leaves log1pmx terms of the size of the answer.  An
    // error in d/b comes out b / (b - d) times larger in the second, so d
    // and the quotients are formed in the extended format too.
    const Wide s = Wide(a) + b;
    const Wide d = exact_x ? x * s - a : b - y * s;
    return a * sf::log1pmx_wide(d / a) + b * sf::log1pmx_wide(-d / b) +
           (0.5 * std::log(a / (a + b) * b) - kLnSqrt2Pi + stirling_tail(a + b) - stirling_tail(a) -
            stirling_tail(b));
  }
  const Wide powers = Wide(a) * lx + Wide(b) * ly;
  if (b >= 10.0) return powers + (log_gamma_shift(a, b) - log_gamma(a));
  if (a >= 10.0) return powers + (log_gamma_shift(b, a) - log_gamma(b));
  return powers + (log_gamma(a + b) - log_gamma(a) - log_gamma(b));
}

double binomial_pmf(double x, double n, double p, double q) {
  if (x == 0.0) {
    if (n == 0.0) return 1.0;
    return p < 0.1 ? sf::exp_minus(deviance(n, Wide(n) * q) + Wide(n) * p) : sf::exp_minus(-n * std::log(Wide(q)));
  }
  if (x == n) {
    return q < 0.1 ? sf::exp_minus(deviance(n, Wide(n) * p) + Wide(n) * q) : sf::exp_minus(-n * std::log(Wide(p)));
  }
  const Wide e = deviance(x, Wide(n) * p) + deviance(n - x, Wide(n) * q) +
                  (stirling_tail(x) + stirling_tail(n - x) - stirling_tail(n));
  const double lf = std::log(2.0 * std::numbers::pi) + std::log(x) + std::log1p(-x / n);
  return sf::exp_minus(e + 0.5 * lf);
}

double poisson_pmf(double k, double lambda) {
  if (k == 0.0) return std::exp(-lambda);
  return sf::exp_minus(stirling_tail(k) + deviance(k, lambda)) / std::sqrt(2.0 * std::numbers::pi * k);
}

}  // namespace zil::stats
