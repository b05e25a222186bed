// The Fresnel integrals S(x) and C(x).
#include <cmath>

#include "frame/export.hpp"
#include "specfun/detail/coefficients.hpp"
#include "specfun/detail/series.hpp"
#include "specfun/specfun.hpp"
#include "zil_specfun.h"

namespace zil::sf {

namespace {
// Beyond |x| = 3: C = 1/2 + f sin(pi x^2/2) - g cos(pi x^2/2) and
// S = 1/2 - f cos(pi x^2/2) - g sin(pi x^2/2), with x f and x^3 g smooth in
// (3/x)^4.  The terms returned are f and g.
struct Tail {
  double f;
  double g;
  double sin;
  double cos;
};

Tail tail(double a) {
  Tail r;
  if (a >= 50000.0) {
    // The leading terms 1/(pi a) and 1/(pi^2 a^3) are exact to the working
    // precision from here.
    r.f = 1.0 / (kPi * a);
    r.g = 1.0 / (kPi * kPi * a * a * a);
  } else {
    const double q = 3.0 / a;
    const double q2 = q * q;
    const double t = q2 * q2 * 2.0 - 1.0;
    r.f = series(coef::s20_f, coef::s20_f_centre, t) / a;
    r.g = series(coef::s20_g, coef::s20_g_centre, t) / (a * a * a);
  }
  // pi a^2/2 has period 4 in a^2: reduce a^2, carried exactly in two parts,
  // before multiplying by pi/2, so that the angle keeps its digits for a as
  // large as 4.3e9.
  const Twofold sq = two_prod(a, a);
  const double r4 = std::fmod(sq.hi, 4.0) + std::fmod(sq.lo, 4.0);
  const double angle = kHalfPi * r4;
  r.sin = std::sin(angle);
  r.cos = std::cos(angle);
  return r;
}

double odd(double x, double v) { return x < 0.0 ? -v : v; }

// 2/81 to twice the working precision.
constexpr double kTwoOver81Hi = 0.024691358024691357;
constexpr double kTwoOver81Lo = 1.3706457094137734e-18;

// The series of S(x)/x^3 or C(x)/x in t = 2 (x/3)^4 - 1, for |x| <= 3.
// These functions fall from their value at 0 to a twenty-eighth (S) and a
// fifth (C) of it at x = 3, through terms that nearly cancel, and they are
// steep in t: the variable is formed to twice the working precision and the
// series by the compensated nested multiplication, which leave the error of
// the truncated expansion and of the final roundings alone.
template <std::size_t N>
double small_series(const std::array<double, N>& c, double centre, double x) {
  const Twofold x2 = two_prod(x, x);
  Twofold x4 = two_prod(x2.hi, x2.hi);
  x4.lo += 2.0 * x2.hi * x2.lo;
  Twofold q = two_prod(x4.hi, kTwoOver81Hi);
  q.lo += x4.hi * kTwoOver81Lo + x4.lo * kTwoOver81Hi;
  Twofold s = two_sum(q.hi, -1.0 - centre);
  s.lo += q.lo;
  return poly_compensated(c, s);
}
}  // namespace

double fresnel_s(double x) {
  const double a = std::fabs(x);
  if (a <= 3.0) {
    if (a <= 0.00044) return a < 3.49e-103 ? 0.0 : x * x * x * 0.5235987755982989;
    return x * x * x * small_series(coef::s20ac, coef::s20ac_centre, x);
  }
  if (a >= 4294967290.0) return odd(x, 0.5);
  const Tail r = tail(a);
  return odd(x, 0.5 - r.f * r.cos - r.g * r.sin);
}

double fresnel_c(double x) {
  const double a = std::fabs(x);
  if (a <= 3.0) {
    if (a <= 0.00044) return x;
    return x * small_series(coef::s20ad, coef::s20ad_centre, x);
  }
  if (a >= 4294967290.0) return odd(x, 0.5);
  const Tail r = tail(a);
  return odd(x, 0.5 + r.f * r.sin - r.g * r.cos);
}

}  // namespace zil::sf

extern "C" {
double s20acc(double x) { return zil::sf::fresnel_s(x); }
double s20adc(double x) { return zil::sf::fresnel_c(x); }
}

ZIL_ALIAS(s20acc, zil_fresnel_s);
ZIL_ALIAS(s20adc, zil_fresnel_c);
