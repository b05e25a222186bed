// The error-function family: erfc, erf, the normal distribution and its
// complement, and Dawson's integral.
#include <cmath>

#include "frame/export.hpp"
#include "specfun/detail/coefficients.hpp"
#include "specfun/detail/series.hpp"
#include "specfun/specfun.hpp"
#include "zil_specfun.h"

namespace zil::sf {

namespace {
// 1/sqrt(2) to twice the working precision.
constexpr double kRootHalfHi = 0.7071067811865476;
constexpr double kRootHalfLo = -4.833646656726457e-17;

// erfc(-x/sqrt(2)) or erfc(x/sqrt(2)): the scaled argument is carried with
// its rounding error, which erfc would otherwise multiply by up to 2x^2.
double erfc_of_scaled(double x, double sign) {
  const double h = sign * x * kRootHalfHi;
  if (!(std::fabs(x) < 64.0)) return erfc_split(h, 0.0);  // beyond both thresholds
  const Twofold p = two_prod(sign * x, kRootHalfHi);
  return erfc_split(p.hi, p.lo + sign * x * kRootHalfLo);
}
}  // namespace

double erfc_split(double h, double l) {
  if (h >= 26.6) return 0.0;  // erfc(26.6) is below the smallest subnormal
  if (h <= -6.25) return 2.0;  // 2 - erfc(-h) rounds to 2 from here
  const double a = std::fabs(h);
  // The series is kept about t = 1, where t - 1 = -7.5/(a + 3.75) comes with
  // a single rounding.
  static_assert(coef::s15ad_centre == 1.0);
  const double s = poly2(coef::s15ad, -7.5 / (a + 3.75));
  const double e = exp_minus_square(a);
  const double y = e * s;
  const double v = h >= 0.0 ? y : 2.0 - y;
  return v - l * kTwoOverSqrtPi * e;
}

double erfc(double x) { return erfc_split(x, 0.0); }

double erf(double x) {
  const double a = std::fabs(x);
  if (a >= 6.25) return x > 0.0 ? 1.0 : -1.0;
  if (a <= 2.0) return x * clenshaw(coef::s15ae_0, x * x - 2.0);
  const double s = clenshaw(coef::s15ae_1, 2.0 - 20.0 / (a + 3.0));
  // The factors that do not wait on the recurrence are formed while it runs.
  const double y = std::exp(-x * x) * (kOneOverSqrtPi / a) * s;
  return x > 0.0 ? 1.0 - y : y - 1.0;
}

double normal_cdf(double x) { return 0.5 * erfc_of_scaled(x, -1.0); }
double normal_cdf_upper(double x) { return 0.5 * erfc_of_scaled(x, 1.0); }

double dawson(double x) {
  // Below sqrt(eps) the cubic term of the series is lost in rounding; beyond
  // 1/sqrt(eps) the asymptotic 1/(2x) is exact to the working precision, and
  // beyond 0.5/tiny it underflows.
  static const double small = std::sqrt(kEps);
  static const double big = 1.0 / std::sqrt(kEps);
  constexpr double huge = 0.5 / kTiny;
  const double a = std::fabs(x);
  if (x == 0.0) return 0.0;
  if (a <= 4.0) {
    if (a < small) return x;
    return x * series(coef::s15af_0, coef::s15af_0_centre, x * x * 0.125 - 1.0);
  }
  if (a < big) return series(coef::s15af_1, coef::s15af_1_centre, 32.0 / (x * x) - 1.0) / x;
  if (a < huge) return 0.5 / x;
  return 0.0;
}

}  // namespace zil::sf

extern "C" {

double s15abc(double x) { return zil::sf::normal_cdf(x); }
double s15acc(double x) { return zil::sf::normal_cdf_upper(x); }
double s15adc(double x) { return zil::sf::erfc(x); }
double s15aec(double x) { return zil::sf::erf(x); }
double s15afc(double x) { return zil::sf::dawson(x); }

}  // extern "C"

ZIL_ALIAS(s15abc, zil_cumul_normal);
ZIL_ALIAS(s15acc, zil_cumul_normal_complem);
ZIL_ALIAS(s15adc, zil_erfc);
ZIL_ALIAS(s15aec, zil_erf);
ZIL_ALIAS(s15afc, zil_dawson);
