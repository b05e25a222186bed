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
}  // namespace

double fresnel_s(double x) {
  const double a = std::fabs(x);
  if (a <= 3.0) {
    if (a <= 0.00044) return a < 3.49e-103 ? 0.0 : x * x * x * 0.5235987755982989;
    const double u = x / 3.0, u2 = u * u;
    return x * x * x * series(coef::s20ac, coef::s20ac_centre, 2.0 * u2 * u2 - 1.0);
  }
  if (a >= 4294967290.0) return odd(x, 0.5);
  const Tail r = tail(a);
  return odd(x, 0.5 - r.f * r.cos - r.g * r.sin);
}

double fresnel_c(double x) {
  const double a = std::fabs(x);
  if (a <= 3.0) {
    if (a <= 0.00044) return x;
    const double u = x / 3.0, u2 = u * u;
    return x * series(coef::s20ad, coef::s20ad_centre, 2.0 * u2 * u2 - 1.0);
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
