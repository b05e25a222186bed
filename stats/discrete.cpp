// Kernels of the binomial, Poisson and hypergeometric laws.
#include <algorithm>
#include <cmath>

#include "specfun/specfun.hpp"
#include "stats/detail/logs.hpp"
#include "stats/stats.hpp"
#include "zil_env.h"

namespace zil::stats {

namespace {

// Beyond every mean the Poisson routine accepts (1e6) by a hundred standard
// deviations: there the upper tail is nothing.
constexpr Integer kPoissonFar = 1100001;

// The laws whose mean is below sqrt(smallest normal) are a point mass at 0
// with the chance of one event as the only other visible value.
Discrete point_mass(double mean, Integer k) {
  if (k == 0) return {1.0, mean, 1.0};
  if (k == 1) return {1.0, 0.0, mean};
  return {1.0, 0.0, 0.0};
}

}  // namespace

Discrete binomial(Integer n, double p, Integer k) {
  const double dn = n, np = dn * p;
  if (np < std::sqrt(x02akc())) return point_mass(np, k);
  if (k == n) return {1.0, 0.0, std::exp(dn * std::log(p))};
  // P(X > k) = I_p(k + 1, n - k); the series runs on whichever side of the
  // mean the smaller tail lies.
  const double nk = static_cast<double>(n - k);
  if (p <= 0.5) {
    const Beta r = beta_prob(p, k + 1.0, nk, 0.0);
    return {r.q, r.p, r.pdf * (1.0 - p) / nk};
  }
  const Beta r = beta_prob(1.0 - p, nk, k + 1.0, 0.0);
  return {r.p, r.q, r.pdf * (1.0 - p) / nk};
}

Discrete poisson(double lambda, Integer k) {
  if (k >= kPoissonFar) return {1.0, 0.0, 0.0};
  if (lambda < std::sqrt(x02akc())) return point_mass(lambda, k);
  const sf::GammaRatios g = sf::incomplete_gamma(k + 1.0, lambda, 0.0);
  Discrete d{g.q, g.p, poisson_pmf(k, lambda)};
  if (g.exit == 3) {
    d.fault = Fault::AlgNotConv;
    d.iterations = g.iterations;
  }
  return d;
}

Discrete hypergeometric(Integer n, Integer l, Integer m, Integer k) {
  if (n == 0) return {1.0, 0.0, 1.0};
  const double dn = n, dl = l, dm = m, dk = k, rest = dn - dl - dm;
  // Loader's form: the hypergeometric weight as a ratio of three binomial
  // weights at the sampling fraction m / n, each exact up to rounding.
  const double p = dm / dn, q = (dn - dm) / dn;
  const double peqk = binomial_pmf(dk, dl, p, q) * binomial_pmf(dm - dk, dn - dl, p, q) /
                      binomial_pmf(dm, dn, p, q);
  const double mode = std::floor((dm + 1.0) * (dl + 1.0) / (dn + 2.0));
  const double eps = 0.5 * x02ajc();
  // Sum the tail away from the mode, where the terms fall off at an
  // ever-faster rate r: once term r / (1 - r) is below eps of the sum, the
  // rest cannot show.
  double sum = 0.0, term = peqk;
  if (dk < mode) {
    sum = peqk;
    const double first = std::max(0.0, -rest);
    for (double j = dk; j > first; j -= 1.0) {
      const double r = j * (rest + j) / ((dl - j + 1.0) * (dm - j + 1.0));
      term *= r;
      sum += term;
      if (r < 1.0 && term * r <= eps * sum * (1.0 - r)) break;
    }
    return {std::min(sum, 1.0), std::max(1.0 - sum, 0.0), peqk};
  }
  const double last = std::min(dl, dm);
  for (double j = dk; j < last; j += 1.0) {
    const double r = (dl - j) * (dm - j) / ((j + 1.0) * (rest + j + 1.0));
    term *= r;
    sum += term;
    if (r < 1.0 && term * r <= eps * sum * (1.0 - r)) break;
  }
  return {std::max(1.0 - sum, 0.0), std::min(sum, 1.0), peqk};
}

}  // namespace zil::stats
