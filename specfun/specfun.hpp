// The special functions as other chapters call them: the numerical kernels
// (pure functions, no reporting) and the inner forms with ifail.  The public
// routines of include/zil_specfun.h are thin frames over these.
#pragma once

#include <complex>
#include <limits>

#include "zil_types.h"

namespace zil {

namespace sf {

// erfc(h + l) for a point given as a value and a small correction (|l| at
// most an ulp of h); the thresholds are taken on h.
double erfc_split(double h, double l);
double erfc(double x);
double erf(double x);
double normal_cdf(double x);       // 0.5 erfc(-x/sqrt(2))
double normal_cdf_upper(double x); // 0.5 erfc(x/sqrt(2))
double dawson(double x);
double fresnel_s(double x);
double fresnel_c(double x);
double sin_integral(double x);
double tanh(double x);
double arsinh(double x);
// ln(1 + y) - y, with full relative accuracy also where the terms cancel.
double log1pmx(double y);

// The exponents of front factors such as x^a exp(-x) reach several hundred
// in the tails, and exp passes an absolute error in its argument on as a
// relative one: they are formed in the extended format, whose 64-bit
// significand leaves them an error well below 2^-53 of the result.
using Wide = long double;
static_assert(std::numeric_limits<Wide>::digits >= 64, "the exponents need an extended format");
Wide log1pmx_wide(Wide y);
double exp_minus(Wide e);  // exp(-e), rounded once to double

// Kernels of the routines that can fail: the value, and the failure number
// of the inner form (0 on success).
struct Result {
  double value;
  int exit;
};
Result shifted_log(double x);   // 1: x <= -1
Result tan(double x);           // 1: |x| > 1e10, 2: too near an odd multiple of pi/2
Result sinh(double x);          // 1: |x| > 708
Result cosh(double x);          // 1: |x| > 708
Result artanh(double x);        // 1: |x| >= 1
Result arcosh(double x);        // 1: x < 1
Result exp_integral(double x);  // 1: x <= 0
Result cos_integral(double x);  // 1: x <= 0
Result gamma(double x);         // 1: x >= 170, 2: x <= -170, 3: negative integer, 4: |x| too small
Result log_gamma(double x);     // 1: x <= 0, 2: x > 2.55e305

// P(a,x) and Q(a,x); exit 1: a <= 0, 2: x < 0, 3: no convergence (iterations
// in `iterations`).
struct GammaRatios {
  double p;
  double q;
  int exit;
  int iterations;
};
GammaRatios incomplete_gamma(double a, double x, double tol);

// w(z) = exp(-z^2) erfc(-iz); exit 1: the result would overflow (value 0).
struct ComplexResult {
  std::complex<double> value;
  int exit;
};
ComplexResult faddeeva(std::complex<double> z);

}  // namespace sf

// Inner forms by value: ifail on entry as in the inner layer's convention,
// on exit 0 or the failure number.
double s01baf_f(double x, Integer& ifail);
double s07aaf_f(double x, Integer& ifail);
double s14abf_f(double x, Integer& ifail);
void s14baf_f(double a, double x, double tol, double& p, double& q, Integer& ifail);
inline double s15abf_f(double x) { return sf::normal_cdf(x); }
inline double s15acf_f(double x) { return sf::normal_cdf_upper(x); }
inline double s15adf_f(double x) { return sf::erfc(x); }
inline double s15aef_f(double x) { return sf::erf(x); }

// Inner forms by reference with the inner error record errbuf (at least 200
// characters), which the public routines read back.
double S14ACF(double x, Integer& ifail, char* errbuf);
void S14ADF(double x, Integer n, Integer m, double* ans, Integer& ifail, char* errbuf);
double S14AEF(double x, Integer k, Integer& ifail, char* errbuf);
std::complex<double> S14AFF(std::complex<double> z, Integer k, Integer& ifail, char* errbuf);
std::complex<double> S14AGF(std::complex<double> z, Integer& ifail, char* errbuf);

}  // namespace zil
