// The 25-point modified Clenshaw-Curtis rules of the weighted integrators
// (the published QUADPACK qc25c, qc25s and qc25f).  The integrand, times the
// smooth part of the weight, is interpolated at cos(k*pi/24), k = 0..24, by
// Chebyshev series of degrees 12 and 24; the integral is the sum of the
// coefficients times the modified Chebyshev moments of the singular or
// oscillating part, and the difference of the two degrees is the error.
#pragma once

#include <array>
#include <cmath>

#include "quadrature/detail/rules.hpp"

namespace zil::quad {

// cos(m*pi/24) for m = 0..47, by the symmetries of the cosine from the
// eleven abscissae of the table.
inline const std::array<double, 48>& cos24() {
  static const std::array<double, 48> t = [] {
    std::array<double, 48> c{};
    c[0] = 1.0;
    for (int k = 1; k <= 11; ++k) c[k] = cc25_x[k - 1];
    c[12] = 0.0;
    for (int k = 13; k <= 24; ++k) c[k] = -c[24 - k];
    for (int k = 25; k < 48; ++k) c[k] = c[48 - k];
    return c;
  }();
  return t;
}

// The node t_j = cos(j*pi/24) of [-1, 1].
inline double cc_node(int j) { return cos24()[j]; }

// f at centre + hl*t_j, j = 0..24, in the published order: the right end,
// the centre, the left end, then the symmetric pairs from the outside in.
template <class F>
void cc_sample(F& f, double centre, double hl, double (&fv)[25]) {
  fv[0] = f(centre + hl);
  fv[12] = f(centre);
  fv[24] = f(centre - hl);
  for (int j = 1; j < 12; ++j) {
    const double u = hl * cc25_x[j - 1];
    fv[j] = f(centre + u);
    fv[24 - j] = f(centre - u);
  }
}

// Coefficients c_k of f ~ sum c_k T_k (the first and last already halved),
// from the samples of cc_sample, by the discrete cosine sums.
struct Cheb {
  double c12[13];
  double c24[25];
};

inline Cheb chebyshev(const double (&fv)[25]) {
  const auto& cs = cos24();
  double g[25];
  for (int j = 0; j < 25; ++j) g[j] = fv[j];
  g[0] *= 0.5;
  g[24] *= 0.5;
  Cheb c{};
  for (int k = 0; k <= 24; ++k) {
    double s24 = 0.0, s12 = 0.0;
    for (int j = 0; j <= 24; ++j) {
      const double term = g[j] * cs[(k * j) % 48];
      s24 += term;
      if (j % 2 == 0) s12 += term;
    }
    c.c24[k] = s24 / 12.0;
    if (k <= 12) c.c12[k] = s12 / 6.0;
  }
  c.c24[0] *= 0.5;
  c.c24[24] *= 0.5;
  c.c12[0] *= 0.5;
  c.c12[12] *= 0.5;
  return c;
}

// sum of c_k * mom[k] over both degrees: the 24-degree result and the
// difference of the two.
struct ChebSum {
  double r12 = 0.0, r24 = 0.0;
};
inline ChebSum cheb_sum(const Cheb& c, const double* mom) {
  ChebSum s;
  for (int k = 0; k <= 12; ++k) s.r12 += c.c12[k] * mom[k];
  for (int k = 0; k <= 24; ++k) s.r24 += c.c24[k] * mom[k];
  return s;
}

// ---- Cauchy weight 1/(x - c) ----------------------------------------------

// Principal value of f(x)/(x - c) on [a, b]; cc is c in the variable of
// [-1, 1].  The moments int T_k(t)/(t - cc) follow the published three-term
// recurrence from log|(1-cc)/(1+cc)|; the rule is used only for |cc| < 1.1,
// where the recurrence is stable.
template <class F>
Est cc25_cauchy(F& f, double a, double b, double cc) {
  const double hl = 0.5 * (b - a), centre = 0.5 * (b + a);
  double fv[25];
  cc_sample(f, centre, hl, fv);
  const Cheb ch = chebyshev(fv);
  double mom[25];
  mom[0] = std::log(std::fabs((1.0 - cc) / (1.0 + cc)));
  mom[1] = 2.0 + cc * mom[0];
  for (int k = 2; k < 25; ++k) {
    mom[k] = 2.0 * cc * mom[k - 1] - mom[k - 2];
    // T_k = 2t T_{k-1} - T_{k-2} and int T_{k-1} = -2/((k-1)^2 - 1) for odd k.
    if (k % 2 == 1) mom[k] -= 4.0 / (static_cast<double>(k - 1) * (k - 1) - 1.0);
  }
  const ChebSum s = cheb_sum(ch, mom);
  Est e;
  e.result = s.r24;
  e.abserr = std::fabs(s.r24 - s.r12);
  return e;
}

// ---- Algebraic-logarithmic end weights -------------------------------------

// Modified Chebyshev moments of the end weights, by the published forward
// recurrences: ri[k] = int (1+t)^alfa T_k, rj[k] = int (1-t)^beta T_k,
// rg[k] = int (1+t)^alfa log((1+t)/2) T_k, rh[k] = int (1-t)^beta
// log((1-t)/2) T_k, all over [-1, 1].
struct EndMoments {
  double ri[25], rj[25], rg[25], rh[25];
};

inline EndMoments end_moments(double alfa, double beta) {
  EndMoments m{};
  const double alfp1 = alfa + 1.0, betp1 = beta + 1.0;
  const double alfp2 = alfa + 2.0, betp2 = beta + 2.0;
  const double ralf = std::pow(2.0, alfp1), rbet = std::pow(2.0, betp1);
  // The recurrences run in the variable (1+t) for both weights; rj and rh
  // take the sign of T_k(-t) at the end.
  m.ri[0] = ralf / alfp1;
  m.rj[0] = rbet / betp1;
  m.ri[1] = m.ri[0] * alfa / alfp2;
  m.rj[1] = m.rj[0] * beta / betp2;
  m.rg[0] = -m.ri[0] / alfp1;
  m.rg[1] = -(ralf + ralf) / (alfp2 * alfp2) - m.rg[0];
  m.rh[0] = -m.rj[0] / betp1;
  m.rh[1] = -(rbet + rbet) / (betp2 * betp2) - m.rh[0];
  double an = 2.0, anm1 = 1.0;
  for (int i = 2; i < 25; ++i) {
    m.ri[i] = -(ralf + an * (an - alfp2) * m.ri[i - 1]) / (anm1 * (an + alfp1));
    m.rj[i] = -(rbet + an * (an - betp2) * m.rj[i - 1]) / (anm1 * (an + betp1));
    m.rg[i] = -(an * (an - alfp2) * m.rg[i - 1] - an * m.ri[i - 1] + anm1 * m.ri[i]) /
              (anm1 * (an + alfp1));
    m.rh[i] = -(an * (an - betp2) * m.rh[i - 1] - an * m.rj[i - 1] + anm1 * m.rj[i]) /
              (anm1 * (an + betp1));
    anm1 = an;
    an += 1.0;
  }
  for (int i = 1; i < 25; i += 2) {
    m.rj[i] = -m.rj[i];
    m.rh[i] = -m.rh[i];
  }
  return m;
}

// kind: 1 (x-a)^alfa (b-x)^beta, 2 times log(x-a), 3 times log(b-x), 4 both.
struct AlgLog {
  double a, b, alfa, beta;
  int kind;
  double operator()(double x) const {
    const double xma = x - a, bmx = b - x;
    double w = std::pow(xma, alfa) * std::pow(bmx, beta);
    if (kind == 2 || kind == 4) w *= std::log(xma);
    if (kind == 3 || kind == 4) w *= std::log(bmx);
    return w;
  }
};

// The rule on [bl, br] inside [a, b]: at an end with a singular factor the
// Clenshaw-Curtis rule with the end moments, elsewhere the weighted 15-point
// Kronrod rule.  The Clenshaw-Curtis path leaves resasc at 0.
template <class F>
Est cc25_alglog(F& f, const AlgLog& w, const EndMoments& mo, double bl, double br,
                const Machine& mach) {
  const bool left = bl == w.a && (w.alfa != 0.0 || w.kind == 2 || w.kind == 4);
  const bool right = !left && br == w.b && (w.beta != 0.0 || w.kind == 3 || w.kind == 4);
  if (!left && !right) return gk15_weighted(f, w, bl, br, mach);
  const double hl = 0.5 * (br - bl), centre = 0.5 * (br + bl);
  double fv[25];
  cc_sample(f, centre, hl, fv);
  // The smooth factor of the weight, seen from the singular end: at the
  // left end (b - x)^beta, at the right end (x - a)^alfa; a log of the
  // smooth side joins it.
  const double fix = left ? w.b - centre : centre - w.a;
  const double sgn = left ? -1.0 : 1.0;
  const double power = left ? w.beta : w.alfa;
  const bool smooth_log = left ? (w.kind == 3 || w.kind == 4) : (w.kind == 2 || w.kind == 4);
  const bool end_log = left ? (w.kind == 2 || w.kind == 4) : (w.kind == 3 || w.kind == 4);
  for (int j = 0; j < 25; ++j) {
    const double d = fix + sgn * hl * cc_node(j);
    fv[j] *= std::pow(d, power);
    if (smooth_log) fv[j] *= std::log(d);
  }
  const Cheb ch = chebyshev(fv);
  const double* plain = left ? mo.ri : mo.rj;
  const double* logm = left ? mo.rg : mo.rh;
  ChebSum s = cheb_sum(ch, plain);
  double result = 0.0, abserr = 0.0;
  if (end_log) {
    // log(x - end) = log(br - bl) + log((1 +- t)/2).
    const double dc = std::log(br - bl);
    result = s.r24 * dc;
    abserr = std::fabs((s.r24 - s.r12) * dc);
    s = cheb_sum(ch, logm);
  }
  const double factor = std::pow(hl, (left ? w.alfa : w.beta) + 1.0);
  Est e;
  e.result = (result + s.r24) * factor;
  e.abserr = (abserr + std::fabs(s.r24 - s.r12)) * factor;
  return e;
}

// ---- Trigonometric weight cos(omega x), sin(omega x) -----------------------

// Moments of cos(p t) T_{2j} and sin(p t) T_{2j+1} over [-1, 1] for one
// bisection level, the published scheme: forward recursion when |p| > 24,
// otherwise a boundary value problem with an asymptotic end value, solved by
// Gaussian elimination with partial pivoting on the tridiagonal system.
// mom[2j] holds the cosine moments, mom[2j+1] the sine moments.
void trig_moments(double p, double (&mom)[25]);

// The moment store of one run: one row of 25 per bisection level, reused by
// the two halves of a bisection and by every interval of the same level.
struct TrigMoments {
  static constexpr int maxp1 = 21;
  double row[maxp1][25];
  int momcom = 0;  // rows computed
  int m = 0;       // the row of the last call
  // The row for an interval of level nrmom (0 for the whole range) whose
  // half length times omega is p; right: the second half of a bisection,
  // whose row the first half has just made.
  const double* get(int nrmom, bool right, double p) {
    if (!(nrmom < momcom || right)) {
      m = momcom;
      trig_moments(p, row[m]);
    }
    if (nrmom < momcom) m = nrmom;
    if (momcom < maxp1 - 1 && nrmom >= momcom) ++momcom;
    return row[m];
  }
};

// The rule on [a, b] with weight cos(omega x) (sine = false) or sin(omega x),
// omega >= 0: the 15-point Kronrod rule when the interval holds few
// oscillations, the Clenshaw-Curtis rule with the moments otherwise (resasc
// is oflow then, so that the loop's round-off test passes it by).
template <class F>
Est cc25_trig(F& f, double a, double b, double omega, bool sine, int nrmom, bool right,
              TrigMoments& store, const Machine& mach) {
  const double centre = 0.5 * (b + a), hl = 0.5 * (b - a);
  const double parint = omega * hl;
  if (std::fabs(parint) <= 2.0) {
    auto w = [&](double x) { return sine ? std::sin(omega * x) : std::cos(omega * x); };
    return gk15_weighted(f, w, a, b, mach);
  }
  const double conc = hl * std::cos(centre * omega);
  const double cons = hl * std::sin(centre * omega);
  const double* mom = store.get(nrmom, right, parint);
  double fv[25];
  cc_sample(f, centre, hl, fv);
  const Cheb ch = chebyshev(fv);
  double resc12 = 0.0, ress12 = 0.0, resc24 = 0.0, ress24 = 0.0, resabs = 0.0;
  for (int k = 0; k <= 12; k += 2) resc12 += ch.c12[k] * mom[k];
  for (int k = 1; k <= 11; k += 2) ress12 += ch.c12[k] * mom[k];
  for (int k = 0; k <= 24; k += 2) resc24 += ch.c24[k] * mom[k];
  for (int k = 1; k <= 23; k += 2) ress24 += ch.c24[k] * mom[k];
  for (int k = 0; k <= 24; ++k) resabs += std::fabs(ch.c24[k]);
  const double estc = std::fabs(resc24 - resc12), ests = std::fabs(ress24 - ress12);
  Est e;
  e.resabs = resabs * std::fabs(hl);
  e.resasc = mach.oflow;
  if (sine) {
    e.result = conc * ress24 + cons * resc24;
    e.abserr = std::fabs(conc * ests) + std::fabs(cons * estc);
  } else {
    e.result = conc * resc24 - cons * ress24;
    e.abserr = std::fabs(conc * estc) + std::fabs(cons * ests);
  }
  return e;
}

}  // namespace zil::quad
