// Quantiles found by search: beta and gamma, and the chi-squared and F
// quantiles that rest on them.
//
// The search is Newton's method on ln(F(x) / target), which is close to
// linear in the tails where F itself spans hundreds of decades, inside a
// bracket that every evaluation narrows.  A step that leaves the bracket (or
// is not a number, as when F underflowed) is replaced by a bisection,
// geometric when the bracket spans more than a factor of four, so the search
// always ends: on a step or bracket below tol relative to x, or after
// kSearchLimit evaluations with Fault::SolNotConv and the last point kept.
#include <algorithm>
#include <cmath>
#include <limits>

#include "specfun/specfun.hpp"
#include "stats/stats.hpp"
#include "zil_env.h"

namespace zil::stats {

namespace {

constexpr int kSearchLimit = 200;
constexpr double kLargeDf = 100000.0;
constexpr double kInf = std::numeric_limits<double>::infinity();

struct Point {
  double r;  // ln(F(x) / target) oriented to increase with x
  double slope;
  Fault fault = Fault::None;
};

double bisect(double lo, double hi, double x) {
  if (hi == kInf) return std::max(4.0 * x, 1.0);
  if (lo == 0.0) return hi / 64.0;
  return hi > 4.0 * lo ? std::sqrt(lo) * std::sqrt(hi) : 0.5 * (lo + hi);
}

template <class Eval>
Value search(Eval eval, double x, double lo, double hi, double tol) {
  Fault soft = Fault::None;
  for (int it = 1; it <= kSearchLimit; ++it) {
    const Point e = eval(x);
    if (e.fault == Fault::AlgNotConv) return {x, e.fault};
    // Only the last evaluation's doubt matters to the point returned.
    soft = e.fault == Fault::CloseToTail ? Fault::None : e.fault;
    if (e.r == 0.0) return {x, soft};
    (e.r < 0.0 ? lo : hi) = x;
    double next = x - e.r / e.slope;
    if (!(next > lo && next < hi)) next = bisect(lo, hi, x);
    if (std::fabs(next - x) <= tol * next || hi - lo <= tol * lo) {
      if (next < x02akc()) return {0.0, Fault::CloseToTail};
      return {next, soft};
    }
    x = next;
  }
  return {x, Fault::SolNotConv, kSearchLimit};
}

double log_beta_fn(double a, double b) {
  return sf::log_gamma(a).value + sf::log_gamma(b).value - sf::log_gamma(a + b).value;
}

// The starting point of G. W. Cran, K. J. Martin and G. E. Thomas (Applied
// Statistics AS 109, 1977) for the lower-tail probability p <= 0.5.
double beta_start(double p, double a, double b) {
  const double r0 = std::sqrt(-2.0 * std::log(p));
  const double y = r0 - (2.30753 + 0.27061 * r0) / (1.0 + (0.99229 + 0.04481 * r0) * r0);
  double x;
  if (a > 1.0 && b > 1.0) {
    const double r = (y * y - 3.0) / 6.0, s = 1.0 / (a + a - 1.0), t = 1.0 / (b + b - 1.0);
    const double h = 2.0 / (s + t);
    const double w = y * std::sqrt(h + r) / h - (t - s) * (r + 5.0 / 6.0 - 2.0 / (3.0 * h));
    x = a / (a + b * std::exp(w + w));
  } else {
    const double r = b + b, t0 = 1.0 / (9.0 * b);
    const double t = r * std::pow(1.0 - t0 + y * std::sqrt(t0), 3.0);
    const double lb = log_beta_fn(a, b);
    if (t <= 0.0) {
      x = -std::expm1((std::log1p(-p) + std::log(b) + lb) / b);
    } else {
      const double t2 = (4.0 * a + r - 2.0) / t;
      x = t2 <= 1.0 ? std::exp((std::log(p * a) + lb) / a) : 1.0 - 2.0 / (t2 + 1.0);
    }
  }
  return (x > 0.0 && x < 1.0) ? x : 0.5;
}

// Lower-tail search for I_x(a, b) = p with p <= 0.5.
Value beta_lower(double p, double a, double b, double tol) {
  const double inner_tol = fix_tol(0.01 * tol);
  auto eval = [&](double x) {
    const Beta r = beta_prob(x, a, b, inner_tol);
    return Point{std::log(r.p / p), r.pdf / r.p, r.fault};
  };
  return search(eval, beta_start(p, a, b), 0.0, 1.0, tol);
}

double gamma_start(double p, double q, double a, double lga) {
  // Wilson and Hilferty's cube-root normal form, and below it the leading
  // term of the series, P ~ y^a / Gamma(a + 1).
  const double c = 1.0 / (9.0 * a);
  const double z = p <= 0.5 ? -normal_quantile(std::max(p, 1e-300)) : normal_quantile(std::max(q, 1e-300));
  const double wh = a * std::pow(1.0 - c - z * std::sqrt(c), 3.0);
  const double small = std::exp((std::log(p) + lga + std::log(a)) / a);
  if (!(wh > 0.0) || (p <= 0.5 && small < wh && small < 0.5 * a)) return small > 0.0 ? small : 1e-300;
  return wh;
}

}  // namespace

Value beta_quantile(double p, double a, double b, double tol) {
  tol = fix_tol(tol);
  if (p == 0.0) return {0.0};
  if (p == 1.0) return {1.0};
  if (p <= 0.5) return beta_lower(p, a, b, tol);
  // 1 - x solves the mirror problem, and is the small one here.
  const Value v = beta_lower(1.0 - p, b, a, tol);
  return {1.0 - v.value, v.fault == Fault::CloseToTail ? Fault::None : v.fault, v.iterations};
}

Value gamma_quantile(double p, double a, double b, double tol) {
  tol = fix_tol(tol);
  if (p == 0.0) return {0.0};
  const bool lower = p <= 0.5;
  const double target = lower ? p : 1.0 - p;
  const double lga = sf::log_gamma(a).value;
  const double inner_tol = fix_tol(0.01 * tol);
  int iterations = 0;
  auto eval = [&](double y) {
    const sf::GammaRatios g = sf::incomplete_gamma(a, y, inner_tol);
    if (g.exit == 3) {
      iterations = g.iterations;
      return Point{0.0, 0.0, Fault::AlgNotConv};
    }
    const double dens = std::exp((a - 1.0) * std::log(y) - y - lga);
    if (lower) return Point{std::log(g.p / target), dens / g.p};
    return Point{std::log(target / g.q), dens / g.q};
  };
  Value v = search(eval, gamma_start(p, 1.0 - p, a, lga), 0.0, kInf, tol);
  if (v.fault == Fault::AlgNotConv) v.iterations = iterations;
  v.value *= b;
  return v;
}

Value chi_sq_quantile(double p, double df) {
  if (p == 0.0) return {0.0};
  if (df <= kLargeDf) return gamma_quantile(p, 0.5 * df, 2.0, 5e-06);
  const double a = 2.0 / (9.0 * df), c = normal_quantile(p) * std::sqrt(a) + 1.0 - a;
  return {df * c * c * c};
}

Value f_quantile(double p, double df1, double df2) {
  if (p == 0.0) return {0.0};
  const bool big1 = df1 > kLargeDf, big2 = df2 > kLargeDf;
  if (!big1 && big2) {
    Value v = chi_sq_quantile(p, df1);
    v.value /= df1;
    return v;
  }
  if (big1 && !big2) {
    Value v = chi_sq_quantile(1.0 - p, df2);
    if (v.value == 0.0) return {0.0, Fault::CloseToTail};
    v.value = df2 / v.value;
    return v;
  }
  if (big1 && big2) {
    // Paulson's cube-root form z(c) solved for c = f^(1/3); the root with
    // the sign of z is the one on the branch the square did not add.
    const double a = 2.0 / (9.0 * df1), b = 2.0 / (9.0 * df2), z = normal_quantile(p);
    const double qa = (1.0 - b) * (1.0 - b) - z * z * b;
    const double disc = a * (1.0 - b) * (1.0 - b) + b * (1.0 - a) * (1.0 - a) - z * z * a * b;
    if (!(qa > 0.0) || !(disc >= 0.0)) return {0.0, Fault::CloseToTail};
    const double c = ((1.0 - a) * (1.0 - b) + z * std::sqrt(disc)) / qa;
    return {c * c * c};
  }
  Value v;
  double x, y;
  if (p <= 0.5) {
    v = beta_quantile(p, 0.5 * df1, 0.5 * df2, 5e-06);
    x = v.value;
    y = 1.0 - x;
  } else {
    v = beta_quantile(1.0 - p, 0.5 * df2, 0.5 * df1, 5e-06);
    y = v.value;
    x = 1.0 - y;
  }
  if (v.fault == Fault::SolNotConv || v.fault == Fault::ResNotAcc) v.fault = Fault::SolNotConv;
  if (y == 0.0) return {0.0, Fault::CloseToTail};
  v.value = df2 * x / (df1 * y);
  return v;
}

}  // namespace zil::stats
