// Basic rules of the adaptive integrators: the Gauss-Kronrod pairs and their
// error estimate.  Each rule returns the integral over [a, b], its error
// estimate, the integral of |f| (resabs) and of |f - mean| (resasc).
#pragma once

#include <algorithm>
#include <cmath>
#include <type_traits>

#include "zil_env.h"

namespace zil::quad {

#include "gk_tables.inc"

struct Est {
  double result = 0.0;
  double abserr = 0.0;
  double resabs = 0.0;
  double resasc = 0.0;
};

struct Machine {
  double epmach = x02ajc();
  double uflow = x02akc();
  double oflow = 1.0 / x02akc();
};

// The published scaling of |K - G|: the rule's raw difference overstates the
// error of a smooth integrand, so it is mapped through (200 E / resasc)^1.5,
// and it never falls below what rounding in the sum of |f| allows.
//
// pow is most of the cost of a rule besides the integrand, and two cases are
// settled without it, with the same bits: t >= 1 gives the factor 1, and with
// t <= 0.25 the factor t^1.5 <= t/2 cannot lift the estimate above a round-off
// floor that resasc*t already stays under.
inline void scale_error(Est& e, const Machine& m) {
  const bool floored = e.resabs > m.uflow / (50.0 * m.epmach);
  const double floor = 50.0 * m.epmach * e.resabs;
  if (e.resasc != 0.0 && e.abserr != 0.0) {
    const double t = 200.0 * e.abserr / e.resasc;
    if (t >= 1.0)
      e.abserr = e.resasc;
    else if (floored && t <= 0.25 && e.resasc * t <= floor)
      e.abserr = floor;
    else  // min keeps a NaN t (a NaN integrand) at the factor 1
      e.abserr = e.resasc * std::min(1.0, std::pow(t, 1.5));
  }
  if (floored) e.abserr = std::max(floor, e.abserr);
}

// A Kronrod rule of 2N-1 points whose positive nodes xgk[0..N-2] hold the
// Gauss nodes at the odd positions; the centre xgk[N-1] is a Gauss node only
// when the Gauss rule has an odd number of points (wg_centre is then its
// weight).  G maps a node t of [-1, 1]'s half-length scaling to the value the
// sum needs (the plain integrand, or a transformed or weighted one).
// Evaluation order: the centre, then the pairs at the Gauss nodes, then the
// other pairs, each pair left before right.
template <int N, class G>
Est kronrod(G& g, double centre, double hl, const double (&xgk)[N], const double (&wgk)[N],
            const double* wg, double wg_centre, const Machine& m) {
  double fv1[N - 1], fv2[N - 1];
  const double fc = g(centre);
  double resg = wg_centre * fc;
  double resk = wgk[N - 1] * fc;
  double resabs = std::fabs(resk);
  // The two sweeps are unrolled whole: with a cheap integrand the loop's own
  // branches and the sums carried across each call (which clobbers every
  // vector register) are a measurable part of an evaluation, so only the
  // results' sums stay in the sweeps and the error sums come after them.
  auto sweep = [&]<bool Gauss>(std::bool_constant<Gauss>) {
    _Pragma("GCC unroll 16") for (int j = Gauss ? 1 : 0; j < N - 1; j += 2) {
      const double x = hl * xgk[j];
      const double f1 = g(centre - x);
      const double f2 = g(centre + x);
      fv1[j] = f1;
      fv2[j] = f2;
      if constexpr (Gauss) resg += wg[j / 2] * (f1 + f2);
      resk += wgk[j] * (f1 + f2);
    }
  };
  sweep(std::true_type{});
  sweep(std::false_type{});
  const double reskh = 0.5 * resk;
  double resasc = wgk[N - 1] * std::fabs(fc - reskh);
  for (int j = 0; j < N - 1; ++j) {
    resabs += wgk[j] * (std::fabs(fv1[j]) + std::fabs(fv2[j]));
    resasc += wgk[j] * (std::fabs(fv1[j] - reskh) + std::fabs(fv2[j] - reskh));
  }
  const double dhl = std::fabs(hl);
  Est e{resk * hl, std::fabs((resk - resg) * hl), resabs * dhl, resasc * dhl};
  scale_error(e, m);
  return e;
}

template <class F>
Est gk21(F& f, double a, double b, const Machine& m) {
  return kronrod(f, 0.5 * (a + b), 0.5 * (b - a), k21_xgk, k21_wgk, k21_wg, 0.0, m);
}

template <class F>
Est gk61(F& f, double a, double b, const Machine& m) {
  return kronrod(f, 0.5 * (a + b), 0.5 * (b - a), k61_xgk, k61_wgk, k61_wg, 0.0, m);
}

// The 15-point rule on a piece [a, b] of (0, 1) for an infinite range,
// x = bound + dinf*(1-t)/t, dx = dt/t^2; with both = true the integrand is
// folded, f(x) + f(-x).
template <class F>
Est gk15_inf(F& f, double bound, double dinf, bool both, double a, double b, const Machine& m) {
  auto g = [&](double t) {
    const double x = bound + dinf * (1.0 - t) / t;
    double v = f(x);
    if (both) v += f(-x);
    return (v / t) / t;
  };
  return kronrod(g, 0.5 * (a + b), 0.5 * (b - a), k15_xgk, k15_wgk, k15_wg, k15_wg[3], m);
}

// The 15-point rule with a weight w(x) multiplying f.
template <class F, class W>
Est gk15_weighted(F& f, W& w, double a, double b, const Machine& m) {
  auto g = [&](double x) { return f(x) * w(x); };
  return kronrod(g, 0.5 * (a + b), 0.5 * (b - a), k15_xgk, k15_wgk, k15_wg, k15_wg[3], m);
}

}  // namespace zil::quad
