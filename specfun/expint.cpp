// The exponential integral E1 and the cosine and sine integrals.
#include <cmath>

#include "frame/export.hpp"
#include "specfun/detail/frame.hpp"
#include "specfun/detail/coefficients.hpp"
#include "specfun/detail/series.hpp"
#include "specfun/specfun.hpp"
#include "zil_specfun.h"

namespace zil::sf {

namespace {
// Beyond x = 16, Ci(x) = sin(x) f/x - cos(x) g/x^2 and
// Si(x) = pi/2 - cos(x) f/x - sin(x) g/x^2, with f and g smooth in 512/x^2.
struct Auxiliary {
  double f;
  double g;
};
Auxiliary auxiliary(double a) {
  const double t = 512.0 / (a * a) - 1.0;
  return {series(coef::s13_f, coef::s13_f_centre, t), series(coef::s13_g, coef::s13_g_centre, t)};
}
}  // namespace

Result exp_integral(double x) {
  if (x <= 0.0) return {0.0, 1};
  if (x <= 1.0) return {series(coef::s13aa_0, coef::s13aa_0_centre, 2.0 * x - 1.0) - std::log(x), 0};
  if (x <= 2.0) return {series(coef::s13aa_1, coef::s13aa_1_centre, 2.0 * x - 3.0), 0};
  if (x <= 4.0) {
    // Kept about x = 4, the end where E1 is smallest; x - 4 is exact here.
    static_assert(coef::s13aa_2_centre == 1.0);
    return {poly(coef::s13aa_2, x - 4.0), 0};
  }
  if (x < 708.3) {
    const double t = 14.5 / (x + 3.25) - 1.0;
    return {std::exp(-x) * series(coef::s13aa_3, coef::s13aa_3_centre, t) / x, 0};
  }
  return {0.0, 0};  // E1 is below the smallest subnormal from here
}

Result cos_integral(double x) {
  if (x <= 0.0) return {0.0, 1};
  if (x <= 16.0) {
    // Ci(x) - ln x falls from 0.58 to -2.79 through terms that nearly
    // cancel: t = x^2/128 - 1 is carried to twice the working precision
    // (x^2/128 exactly) and the series nested with compensation.
    Twofold s = two_prod(x, x);
    const double lo = s.lo * 0.0078125;
    s = two_sum(s.hi * 0.0078125, -1.0 - coef::s13ac_0_centre);
    s.lo += lo;
    return {std::log(x) + poly_compensated(coef::s13ac_0, s), 0};
  }
  if (x < 1e16) {
    const Auxiliary fg = auxiliary(x);
    return {std::sin(x) * fg.f / x - std::cos(x) * fg.g / (x * x), 0};
  }
  return {0.0, 0};
}

double sin_integral(double x) {
  const double a = std::fabs(x);
  if (a <= 16.0) return x * series(coef::s13ad_0, coef::s13ad_0_centre, x * x * 0.0078125 - 1.0);
  // From 1e17 the value is |x| itself, as the routine has always given it.
  if (a >= 1e17) return a;
  const Auxiliary fg = auxiliary(a);
  const double v = kHalfPi - std::cos(a) * fg.f / a - std::sin(a) * fg.g / (a * a);
  return x < 0.0 ? -v : v;
}

}  // namespace zil::sf

extern "C" {

double s13aac(double x, ZilError* fail) {
  return zil::sf::report_le("s13aac", x, zil::sf::exp_integral(x), 0.0, "0.0", fail);
}

double s13acc(double x, ZilError* fail) {
  return zil::sf::report_le("s13acc", x, zil::sf::cos_integral(x), 0.0, "0.0", fail);
}

double s13adc(double x) { return zil::sf::sin_integral(x); }

}  // extern "C"

ZIL_ALIAS(s13aac, zil_exp_integral);
ZIL_ALIAS(s13acc, zil_cos_integral);
ZIL_ALIAS(s13adc, zil_sin_integral);
