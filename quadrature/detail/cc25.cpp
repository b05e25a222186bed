#include "quadrature/detail/cc25.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zil::quad {
namespace {

constexpr int kNoeq = 25;

// Gaussian elimination with partial pivoting on a tridiagonal system (row k:
// c[k] x[k-1] + d[k] x[k] + e[k] x[k+1] = b[k]); pivoting may fill a second
// superdiagonal, kept in f.  The solution overwrites b.  The systems of the
// moments are diagonally dominant away from their first rows, so a zero pivot
// does not occur for the p of the rule; it would leave b as it stands.
void tridiag_solve(double (&c)[kNoeq], double (&d)[kNoeq], double (&e)[kNoeq], double* b) {
  double f[kNoeq] = {};
  e[kNoeq - 1] = 0.0;
  for (int k = 0; k < kNoeq - 1; ++k) {
    double lower = c[k + 1];
    if (std::fabs(lower) > std::fabs(d[k])) {
      std::swap(d[k], lower);
      std::swap(e[k], d[k + 1]);
      f[k] = e[k + 1];
      e[k + 1] = 0.0;
      std::swap(b[k], b[k + 1]);
      // Row k+1 is now (lower, d[k+1], e[k+1]) = old row k.
    }
    if (d[k] == 0.0) return;
    const double t = lower / d[k];
    d[k + 1] -= t * e[k];
    e[k + 1] -= t * f[k];
    b[k + 1] -= t * b[k];
  }
  if (d[kNoeq - 1] == 0.0) return;
  b[kNoeq - 1] /= d[kNoeq - 1];
  b[kNoeq - 2] = (b[kNoeq - 2] - e[kNoeq - 2] * b[kNoeq - 1]) / d[kNoeq - 2];
  for (int k = kNoeq - 3; k >= 0; --k) b[k] = (b[k] - e[k] * b[k + 1] - f[k] * b[k + 2]) / d[k];
}

// One family of moments (cosine: first = 4, sine: first = 3 in the
// published 1-based numbering of v): v[0..first-2] are known; the rest
// follow from the three-term recurrence with the inhomogeneous part rhs(an).
// Forward recursion is stable only when |p| > 24; below, the recurrence is
// solved as a boundary value problem whose far end value comes from the
// asymptotic expansion asap.
template <class Rhs>
void moment_family(double p, int first, int count, double asap_end, Rhs rhs, double* v) {
  const double par2 = p * p, par22 = par2 + 2.0;
  double an = first;
  if (std::fabs(p) > 24.0) {
    for (int i = first; i <= count; ++i) {
      const double an2 = an * an;
      v[i - 1] = ((an2 - 4.0) * 2.0 * (par22 - an2 - an2) * v[i - 2] + rhs(an) -
                  par2 * (an + 1.0) * (an + 2.0) * v[i - 3]) /
                 (par2 * (an - 1.0) * (an - 2.0));
      an += 2.0;
    }
    return;
  }
  double d[kNoeq], d1[kNoeq], d2[kNoeq];
  an += 2.0;
  for (int k = 0; k < kNoeq - 1; ++k) {
    const double an2 = an * an;
    d[k] = -2.0 * (an2 - 4.0) * (par22 - an2 - an2);
    d2[k] = (an - 1.0) * (an - 2.0) * par2;
    d1[k + 1] = (an + 3.0) * (an + 4.0) * par2;
    v[first + k - 1] = rhs(an);
    an += 2.0;
  }
  d1[0] = 0.0;
  const double an2 = an * an;
  d[kNoeq - 1] = -2.0 * (an2 - 4.0) * (par22 - an2 - an2);
  v[first + kNoeq - 2] = rhs(an);
  // The known first value moves to the right-hand side of the first row.
  const double an1 = first + 2.0;
  v[first - 1] -= (an1 + 1.0) * (an1 + 2.0) * par2 * v[first - 2];
  v[first + kNoeq - 2] -= 2.0 * asap_end * par2 * (an - 1.0) * (an - 2.0);
  tridiag_solve(d1, d, d2, v + first - 1);
}

}  // namespace

void trig_moments(double p, double (&mom)[25]) {
  const double par2 = p * p;
  const double sinpar = std::sin(p), cospar = std::cos(p);
  double v[kNoeq + 4];
  // Cosine: int cos(p t) T_{2j}(t) dt.
  v[0] = 2.0 * sinpar / p;
  v[1] = (8.0 * cospar + (par2 + par2 - 8.0) * sinpar / p) / par2;
  v[2] = (32.0 * (par2 - 12.0) * cospar + (2.0 * ((par2 - 80.0) * par2 + 192.0) * sinpar) / p) /
         (par2 * par2);
  {
    const double ac = 8.0 * cospar, as = 24.0 * p * sinpar;
    const double an = 54.0, an2 = an * an, ass = p * sinpar;
    const double asap = (((((210.0 * par2 - 1.0) * cospar - (105.0 * par2 - 63.0) * ass) / an2 -
                           (1.0 - 15.0 * par2) * cospar + 15.0 * ass) / an2 -
                          cospar + 3.0 * ass) / an2 -
                         cospar) / an2;
    moment_family(p, 4, 13, asap, [&](double a) { return as - (a * a - 4.0) * ac; }, v);
  }
  for (int j = 0; j < 13; ++j) mom[2 * j] = v[j];
  // Sine: int sin(p t) T_{2j+1}(t) dt.
  v[0] = 2.0 * (sinpar - p * cospar) / par2;
  v[1] = (18.0 - 48.0 / par2) * sinpar / par2 + (-2.0 + 48.0 / par2) * cospar / p;
  {
    const double ac = -24.0 * p * cospar, as = -8.0 * sinpar;
    const double an = 53.0, an2 = an * an, ass = p * cospar;
    const double asap = (((((105.0 * par2 - 63.0) * ass + (210.0 * par2 - 1.0) * sinpar) / an2 +
                           (15.0 * par2 - 1.0) * sinpar - 15.0 * ass) / an2 -
                          3.0 * ass - sinpar) / an2 -
                         sinpar) / an2;
    moment_family(p, 3, 12, asap, [&](double a) { return ac + (a * a - 4.0) * as; }, v);
  }
  for (int j = 0; j < 12; ++j) mom[2 * j + 1] = v[j];
}

}  // namespace zil::quad
