// Kernels of the continuous laws: normal, Student's t, chi-squared, F, beta
// and gamma probabilities, and the normal and t quantiles.
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "specfun/specfun.hpp"
#include "stats/detail/logs.hpp"
#include "stats/stats.hpp"
#include "zil_env.h"

namespace zil::stats {

namespace {

constexpr double kRootHalf = 0.7071067811865476;
// Above this many degrees of freedom the chi-squared and F laws are taken
// by their large-sample limits.
constexpr double kLargeDf = 100000.0;

bool lower_side(Tail tail) { return tail == Tail::Lower; }

Value from_gamma(const sf::GammaRatios& r, Tail tail) {
  Value v{tail == Tail::Lower ? r.p : r.q};
  if (r.exit == 3) {
    v.fault = Fault::AlgNotConv;
    v.iterations = r.iterations;
  }
  return v;
}

// Horner's rule from the highest coefficient down.
template <std::size_t N>
constexpr double horner(const double (&c)[N], double x) {
  double s = c[0];
  for (std::size_t i = 1; i < N; ++i) s = s * x + c[i];
  return s;
}

}  // namespace

double fix_tol(double tol) {
  const double floor = 10.0 * x02ajc();
  return (tol < floor || !(tol < 1.0)) ? floor : tol;
}

// erfc(r x), r = 1/sqrt(2).  erfc turns an error in its argument h into a
// relative one 2 h^2 times larger: below |x| = 4 the rounding of r x costs
// at most 2e-15, beyond it the argument is carried as a value and its
// rounding error (1.5e-13 saved at a tail of 1e-300).
namespace {
double half_erfc(double x) {
  return std::fabs(x) < 4.0 ? 0.5 * sf::erfc(kRootHalf * x) : sf::normal_cdf_upper(x);
}
}  // namespace

double normal_prob(Tail tail, double x) {
  switch (tail) {
    case Tail::Lower: return half_erfc(-x);
    case Tail::Upper: return half_erfc(x);
    case Tail::Signif: return 2.0 * half_erfc(std::fabs(x));
    default: return sf::erf(kRootHalf * std::fabs(x));
  }
}

Value t_prob(Tail tail, double t, double df) {
  if (df < 20.0) {
    // P(|T| > |t|) = I_x(df/2, 1/2) with x = df / (t^2 + df); far out, t^2
    // would overflow, so x is formed as (df / |t|) / |t| there.
    const double at = std::fabs(t);
    const double x = at > 1e150 ? (df / at) / at : df / (t * t + df);
    const Beta r = beta_prob(x, 0.5 * df, 0.5, 1e-05);
    switch (tail) {
      case Tail::Signif: return {r.p};
      case Tail::Confid: return {r.q};
      default: break;
    }
    const bool big_side = (tail == Tail::Lower) == (t >= 0.0);
    return {big_side ? 0.5 * (r.q + 1.0) : 0.5 * r.p};
  }
  // Hill's normalising transformation (G. W. Hill, CACM Algorithm 395, 1970).
  const double a = df - 0.5, b = 48.0 * a * a;
  const double z = a * sf::shifted_log(t * t / df).value;
  const double w = std::sqrt(z) *
                   (((((-0.4 * z - 3.3) * z - 24.0) * z - 85.5) / (0.8 * z * z + b + 100.0) + z + 3.0) / b + 1.0);
  const double p = sf::normal_cdf(-w);
  switch (tail) {
    case Tail::Lower: return {t > 0.0 ? 1.0 - p : p};
    case Tail::Upper: return {t < 0.0 ? 1.0 - p : p};
    case Tail::Signif: return {2.0 * p};
    default: return {1.0 - 2.0 * p};
  }
}

Value chi_sq_prob(Tail tail, double x, double df) {
  return from_gamma(sf::incomplete_gamma(0.5 * df, 0.5 * x, 5e-06), tail);
}

Value gamma_prob(Tail tail, double g, double a, double b) {
  return from_gamma(sf::incomplete_gamma(a, g / b, 0.0), tail);
}

Value f_prob(Tail tail, double f, double df1, double df2) {
  const bool big1 = df1 > kLargeDf, big2 = df2 > kLargeDf;
  if (!big1 && big2) return chi_sq_prob(tail, f * df1, df1);
  if (big1 && big2) {
    // Paulson's cube-root normal approximation.
    const double a = 2.0 / (9.0 * df1), b = 2.0 / (9.0 * df2), c = std::cbrt(f);
    const double z = ((1.0 - b) * c - 1.0 + a) / std::sqrt(b * c * c + a);
    return {sf::normal_cdf(lower_side(tail) ? z : -z)};
  }
  if (big1) {
    // df1 -> infinity: F -> df2 / chi-squared(df2), whose lower tail is the
    // chi-squared upper tail at df2 / f.
    const Tail other = lower_side(tail) ? Tail::Upper : Tail::Lower;
    if (f == 0.0) return {lower_side(tail) ? 0.0 : 1.0};
    return chi_sq_prob(other, df2 / f, df2);
  }
  const double x = f * df1 / (f * df1 + df2);
  const Beta r = beta_prob(x, 0.5 * df1, 0.5 * df2, 5e-06);
  Value v{lower_side(tail) ? r.p : r.q};
  if (r.fault == Fault::CloseToTail) v.fault = Fault::CloseToTail;
  return v;
}

// The incomplete beta ratio by the series of K. L. Majumder and
// G. P. Bhattacharjee (Applied Statistics AS 63, 1973) with Soper's
// reduction: while ns >= 0 the terms come from the finite expansion in
// x / (1 - x), afterwards from the infinite one in x.
Beta beta_prob(double x, double a, double b, double tol) {
  if (x == 0.0) return {0.0, 1.0, 0.0};
  if (x == 1.0) return {1.0, 0.0, 0.0};
  const double eps = x02ajc();
  tol = fix_tol(tol);
  // Work on the side where the series converges fast and gives the smaller
  // of the two ratios directly; keep ln x and ln(1 - x) from the caller's x.
  double xs = x, ys = 1.0 - x, lx = std::log(x), ly = std::log1p(-x);
  const bool swapped = (a + b) * x > a;
  if (swapped) {
    std::swap(a, b);
    std::swap(xs, ys);
    std::swap(lx, ly);
  }
  Fault fault = Fault::None;
  double ratio = xs / ys, running = a + b, term = 1.0, sum = 1.0;
  double ns = std::floor(ys * (a + b) + b);
  // A bound on the passes: far beyond what any accepted a, b needs.
  constexpr long kPassLimit = 50000000;
  for (long i = 1;; ++i) {
    double temp;
    if (ns >= 0.0) {
      temp = b - static_cast<double>(i);
      if (ns == 0.0) ratio = xs;
    } else {
      temp = running;
      running += 1.0;
    }
    ns -= 1.0;
    const double t = temp * ratio / (a + static_cast<double>(i));
    term *= t;
    sum += term;
    const double aterm = std::fabs(term);
    const double bound = (1.0 - t) * tol * sum;
    if ((t >= 0.0 || std::fabs(t) < 1.0) && bound >= aterm) break;
    if ((bound < eps && sum * eps >= aterm) || i >= kPassLimit) {
      fault = Fault::ResNotAcc;
      break;
    }
  }
  const Wide lfront = log_beta_front(a, b, xs, ys, lx, ly, !swapped) - ly;
  Beta r{};
  if (lfront < std::log(x02akc())) {
    r = {swapped ? 1.0 : 0.0, swapped ? 0.0 : 1.0, 0.0, Fault::CloseToTail};
    return r;
  }
  r.p = std::clamp(sf::exp_minus(-lfront) * sum / a, 0.0, 1.0);
  r.pdf = sf::exp_minus(lx - lfront);
  r.q = 1.0 - r.p;
  r.fault = fault;
  if (swapped) std::swap(r.p, r.q);
  return r;
}

double normal_quantile(double p) {
  // Three published rational forms: two in q = p - 1/2 for the body and
  // one in u = sqrt(-2 ln min(p, 1 - p)) for the tails, where q would have
  // lost the small probability to rounding.
  static constexpr double n1[] = {0.00012434847784254828, 0.01799227452322391, -0.8486205099916682,
                                  8.984374887949292,      -36.89355386573687,  64.94128979404664,
                                  -41.63362762616374,     1.0};
  static constexpr double d1[] = {1.5e-09,           0.06929108687616727, -1.714887182301168,
                                  13.57696314152835, -46.45534714071778,  71.84967217618504,
                                  -41.80029429283041, 1.0};
  static constexpr double n2[] = {-10.47655255702662, -96.23966784668193, 68.25030402764662,
                                  -0.4722617278101355, -6.002063030711376, 0.8416212335733377};
  static constexpr double d2[] = {25.0861060307781,   -21.25589975172773, -43.59278882675467,
                                  41.33878042998575,  -11.37563668160269, 1.0};
  static constexpr double n3[] = {4.150184151574655e-06, 0.007985443046076538, 0.5519186629029667,
                                  7.670763790822552,     22.70676420727861,    2.982419254309647,
                                  -3.012472607913056};
  static constexpr double d3[] = {-0.001216250189896074, -0.11934402820315079, -2.373035796200643,
                                  -12.023590582199258,   -12.05350980555889,   1.239758125817922,
                                  1.0};
  const double q = p - 0.5, aq = std::fabs(q);
  if (aq <= 0.3) {
    const double t = q * std::sqrt(6.283185307179586), r = t * t;
    return t * horner(n1, r) / horner(d1, r);
  }
  const double sign = q < 0.0 ? -1.0 : 1.0;
  if (aq <= 0.42) {
    const double r = aq - 0.3;
    return sign * horner(n2, r) / horner(d2, r);
  }
  const double u = std::sqrt(-2.0 * std::log(std::min(p, 1.0 - p)));
  return sign * (horner(n3, u) / horner(d3, u) + u);
}

double normal_quantile(Tail tail, double p) {
  switch (tail) {
    case Tail::Lower: return normal_quantile(p);
    case Tail::Upper: return -normal_quantile(p);
    case Tail::Confid: return normal_quantile(0.5 * (p + 1.0));
    default: return -normal_quantile(0.5 * p);
  }
}

// Hill's algorithm for the t quantile (G. W. Hill, CACM Algorithm 396, 1970).
Value t_quantile(Tail tail, double p, double df) {
  double lower;
  switch (tail) {
    case Tail::Lower: lower = p; break;
    case Tail::Upper: lower = 1.0 - p; break;
    case Tail::Confid: lower = 0.5 * (p + 1.0); break;
    default: lower = 1.0 - 0.5 * p; break;
  }
  if (lower == 0.5) return {0.0};
  const double h = std::min(lower, 1.0 - lower);
  const double sign = lower < 0.5 ? -1.0 : 1.0;
  if (df == 2.0) return {sign * std::sqrt(1.0 / (2.0 * h * (1.0 - h)) - 2.0)};
  if (df == 1.0) {
    const sf::Result r = sf::tan(std::numbers::pi * h);
    if (r.exit != 0) return {0.0, Fault::SolCloseToZero};
    return {sign / r.value};
  }
  if (df >= 3.0) {
    const double a = 1.0 / (df - 0.5), b = 48.0 / (a * a);
    double c = ((20700.0 * a / b - 98.0) * a - 16.0) * a + 96.36;
    const double d = ((94.5 / (c + b) - 3.0) / b + 1.0) * std::sqrt(a * std::numbers::pi / 2.0) * df;
    double y = std::pow(2.0 * d * h, 2.0 / df);
    if (y > a + 0.05) {
      const double x = normal_quantile(h), v = x * x;
      if (df < 5.0) c += 0.3 * (df - 4.5) * (x + 0.6);
      c += (((0.5 * d * x - 5.0) * x - 7.0) * x - 2.0) * x + b;
      y = (((((0.4 * v + 6.3) * v + 36.0) * v + 94.5) / c - v - 3.0) / b + 1.0) * x;
      y = a * y * y;
      y = y > 0.0002 ? std::exp(y) - 1.0 : (0.5 * y + 1.0) * y;
    } else {
      y = 1.0 / y + (df + 1.0) *
                        ((0.5 / (df + 4.0) + 1.0 / (((df + 6.0) / (df * y) - 0.089 * d - 0.82) * (df + 2.0) * 3.0)) * y -
                         1.0) /
                        (df + 2.0);
    }
    return {sign * std::sqrt(y * df)};
  }
  // 1 < df < 3, not 2: invert the beta form of the two-tailed probability.
  const Value w = beta_quantile(2.0 * h, 0.5 * df, 0.5, 5e-06);
  Value v{sign * std::sqrt((1.0 - w.value) * df / w.value)};
  if (w.fault != Fault::None) v.fault = Fault::SolNotConv;
  return v;
}

}  // namespace zil::stats
