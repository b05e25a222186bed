// The Faddeeva function w(z) = exp(-z^2) erfc(-iz).
//
// In the upper half plane w(z) = (i/pi) int exp(-t^2)/(z - t) dt over the
// real line.  The trapezoidal rule of step h = pi/7 gives it with an error
// near exp(-pi^2/h^2) = 5e-22 once the residue of the pole t = z, which the
// rule misses while the pole lies in the strip |Im t| < pi/h, is added back
// (Chiarella and Reichel 1968, Matta and Reichel 1971; the error bounds in
// Al Azah and Chandler-Wilde, SIAM J. Numer. Anal. 59, 2021).  Where Re z
// lies near a node the rule on the midpoints is used instead, so that the
// pole's own term and the residue never cancel.  The lower half plane
// follows from w(z) = 2 exp(-z^2) - w(-z).
#include <cmath>
#include <complex>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "specfun/detail/coefficients.hpp"
#include "specfun/detail/series.hpp"
#include "specfun/specfun.hpp"
#include "zil_specfun.h"

namespace zil::sf {

namespace {

using Cx = std::complex<double>;

// Above this modulus w(z) = i/(sqrt(pi) z) (1 + 1/(2 z^2)) to the working
// precision (the next term is 3/(4 z^4) relative).
constexpr double kAsymptotic = 1e8;
// ln(largest/2): beyond it 2 exp(-z^2) overflows.
constexpr double kOverflowExponent = 709.08956571282405;

// -z^2 = (y^2 - x^2) - 2ixy to twice the working precision: the real part
// reaches hundreds before the exponential leaves the range, and an error of
// one unit in it is as large relatively in exp(-z^2).
struct MinusSquare {
  Twofold re;
  Twofold im;
};

MinusSquare minus_square(double x, double y) {
  const Twofold xx = two_prod(x, x), yy = two_prod(y, y), xy = two_prod(x, y);
  const Twofold d = two_sum(yy.hi, -xx.hi);
  return {{d.hi, d.lo + (yy.lo - xx.lo)}, {-2.0 * xy.hi, -2.0 * xy.lo}};
}

// exp(hi + lo) and e^{i(hi + lo)} for a small correction lo.
Cx exp_twofold(const MinusSquare& s) {
  const double m = std::exp(s.re.hi) * (1.0 + s.re.lo);
  const double c = std::cos(s.im.hi), sn = std::sin(s.im.hi);
  return {m * (c - sn * s.im.lo), m * (sn + c * s.im.lo)};
}

// w(z) for Im z >= 0.
Cx upper(double x, double y) {
  if (std::hypot(x, y) >= kAsymptotic) {
    const Cx r = 1.0 / Cx(x, y);
    return Cx(0.0, kOneOverSqrtPi) * r * (1.0 + 0.5 * r * r);
  }
  const double u = x * (7.0 / kPi);
  const bool mid = std::fabs(u - std::nearbyint(u)) < 0.25;
  const auto& rule = mid ? coef::faddeeva_midpoints : coef::faddeeva_nodes;
  // sum over +-t of c/(z - t), the pair for node t taken together.
  double sr = 0.0, si = 0.0;
  const double y2 = y * y;
  for (std::size_t k = (mid ? 0 : 1); k < rule.size(); ++k) {
    const double t = rule[k][0], c = rule[k][1];
    const double dm = x - t, dp = x + t;
    const double gm = c / (dm * dm + y2), gp = c / (dp * dp + y2);
    sr += gm * dm + gp * dp;
    si -= (gm + gp) * y;
  }
  if (!mid) {  // the node t = 0, counted once
    const double g = rule[0][1] / (x * x + y2);
    sr += g * x;
    si -= g * y;
  }
  Cx w(-si, sr);
  // The residue 2 exp(-z^2)/(1 -+ exp(-2 pi i z/h)) of the pole within the
  // strip; beyond |x| = 28 it is below the smallest number.
  if (y < 7.0 && std::fabs(x) < 28.0) {
    const Cx e = exp_twofold(minus_square(x, y));
    const Twofold ph = two_prod(-14.0, x);  // the phase of exp(-2 pi i z/h), h = pi/7
    const double m = std::exp(14.0 * y);
    const double c = std::cos(ph.hi), s = std::sin(ph.hi);
    const Cx q(m * (c - s * ph.lo), m * (s + c * ph.lo));
    w += 2.0 * e / (mid ? 1.0 + q : 1.0 - q);
  }
  return w;
}

}  // namespace

ComplexResult faddeeva(Cx z) {
  const double x = z.real(), y = z.imag();
  if (std::isnan(x) || std::isnan(y)) return {{x + y, x + y}, 0};
  if (y >= 0.0) return {upper(x, y), 0};
  const MinusSquare s = minus_square(x, y);
  if (!(s.re.hi <= kOverflowExponent)) return {{0.0, 0.0}, 1};
  const Cx e = s.re.hi < -746.0 ? Cx(0.0, 0.0) : exp_twofold(s);
  return {2.0 * e - upper(-x, -y), 0};
}

}  // namespace zil::sf

extern "C" {

Complex s15ddc(Complex z, ZilError* fail) {
  zil::Reporter rep(fail, "s15ddc");
  const zil::sf::ComplexResult r = zil::sf::faddeeva({z.re, z.im});
  if (r.exit)
    rep.raise(ZE_RESULT_OVERFLOW);
  else
    rep.success();
  return {r.value.real(), r.value.imag()};
}

}  // extern "C"

ZIL_ALIAS(s15ddc, zil_complex_erfc);
