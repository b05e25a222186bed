// Complex arithmetic on the by-value record.  None of these routines reports:
// an overflow, a zero divisor or a NaN comes out as the arithmetic gives it.
#include <cmath>
#include <numbers>

#include "frame/env.hpp"
#include "frame/export.hpp"
#include "zil_env.h"

extern "C" {

// The larger part times sqrt(1 + (smaller/larger)^2): no large number is
// ever squared, so the modulus overflows only when it is itself too large.
double a02abf_f(double re, double im) {
  double a = std::fabs(re);
  double b = std::fabs(im);
  if (b > a) {
    double t = a;
    a = b;
    b = t;
  }
  if (b == 0.0) return a;
  double t = b / a;
  return a * std::sqrt(t * t + 1.0);
}

double a02abf(const double* re, const double* im) { return a02abf_f(*re, *im); }

void a02aaf(double xr, double xi, double* yr, double* yi) {
  double a = std::fabs(xr);
  // Above 1 the modulus is taken of half the number, so that it cannot
  // overflow near the largest double; below 1 halving would lose bits to
  // underflow instead, so the half goes into the final factor.
  double s = a <= 1.0 ? std::sqrt(a02abf_f(a, xi) + a) * std::sqrt(0.5)
                      : std::sqrt(a02abf_f(a / 2.0, xi / 2.0) + a / 2.0);
  // t keeps y itself when y compares equal to 0, so that -0.0 carries its
  // sign into the result.
  double t = xi;
  if (xi != 0.0) t = xi / (s + s);
  if (xr >= 0.0) {
    *yr = s;
    *yi = t;
  } else if (t >= 0.0) {
    *yr = t;
    *yi = s;
  } else {
    *yr = -t;
    *yi = -s;
  }
}

// Smith's division: one ratio of the divisor's parts below 1 in size and one
// reciprocal in place of two divisions.  The tie |d| = |c| takes the first
// branch.
void a02acf(double a, double b, double c, double d, double* cr, double* ci) {
  if (std::fabs(d) >= std::fabs(c)) {
    double r = c / d;
    double s = 1.0 / (r * c + d);
    *cr = (a * r + b) * s;
    *ci = (b * r - a) * s;
  } else {
    double r = d / c;
    double s = 1.0 / (r * d + c);
    *cr = (b * r + a) * s;
    *ci = (b - a * r) * s;
  }
}

}  // extern "C"

namespace {

Complex cx(double re, double im) { return Complex{re, im}; }

// ln|z| as ln 2 times log2|z|, and e^x as 2^(x log2 e), both in the
// extended format so that the change of base costs no accuracy.
double log_modulus(double m) {
  return static_cast<double>(std::numbers::ln2_v<long double> * std::log2(static_cast<long double>(m)));
}

double exp_real(double x) {
  return static_cast<double>(std::exp2(static_cast<long double>(x) * std::numbers::log2e_v<long double>));
}

}  // namespace

extern "C" {

Complex a02bac(double x, double y) { return cx(x, y); }
double a02bbc(Complex z) { return z.re; }
double a02bcc(Complex z) { return z.im; }

Complex a02cac(Complex z, Complex w) { return cx(z.re + w.re, z.im + w.im); }
Complex a02cbc(Complex z, Complex w) { return cx(z.re - w.re, z.im - w.im); }
Complex a02ccc(Complex z, Complex w) { return cx(z.re * w.re - z.im * w.im, z.re * w.im + z.im * w.re); }

Complex a02cdc(Complex z, Complex w) {
  Complex q;
  a02acf(z.re, z.im, w.re, w.im, &q.re, &q.im);
  return q;
}

Complex a02cec(Complex z) { return cx(-z.re, -z.im); }
Complex a02cfc(Complex z) { return cx(z.re, -z.im); }
Boolean a02cgc(Complex z, Complex w) { return z.re == w.re && z.im == w.im; }
Boolean a02chc(Complex z, Complex w) { return z.re != w.re || z.im != w.im; }

double a02dac(Complex z) { return std::atan2(z.im, z.re); }
double a02dbc(Complex z) { return a02abf_f(z.re, z.im); }

Complex a02dcc(Complex z) {
  Complex r;
  a02aaf(z.re, z.im, &r.re, &r.im);
  return r;
}

// Binary powering.  |n| is taken in modular arithmetic, as the two's
// complement machine gives it: for n = INT_MIN it stays negative, the loop
// does not run, and the result is 1/1 = (1, 0).
Complex a02ddc(Complex z, Integer n) {
  Integer m = n < 0 ? static_cast<Integer>(0u - static_cast<unsigned>(n)) : n;
  Complex p = cx(1.0, 0.0);
  while (m > 0) {
    if (m % 2 == 1) p = a02ccc(p, z);
    z = a02ccc(z, z);
    m /= 2;
  }
  return n < 0 ? a02cdc(cx(1.0, 0.0), p) : p;
}

Complex a02dec(Complex z, double r) {
  Complex l = a02dgc(z);
  return a02dhc(cx(l.re * r, l.im * r));
}

Complex a02dfc(Complex z, Complex c) { return a02dhc(a02ccc(a02dgc(z), c)); }

Complex a02dgc(Complex z) { return cx(log_modulus(a02dbc(z)), std::atan2(z.im, z.re)); }

Complex a02dhc(Complex z) {
  double e = exp_real(z.re);
  return cx(e * std::cos(z.im), e * std::sin(z.im));
}

Complex a02djc(Complex z) {
  return cx(std::cosh(z.im) * std::sin(z.re), std::sinh(z.im) * std::cos(z.re));
}

Complex a02dkc(Complex z) {
  return cx(std::cosh(z.im) * std::cos(z.re), -(std::sinh(z.im) * std::sin(z.re)));
}

Complex a02dlc(Complex z) {
  double x2 = z.re + z.re;
  double y2 = z.im + z.im;
  double d = std::cosh(y2) + std::cos(x2);
  return cx(std::sin(x2) / d, std::sinh(y2) / d);
}

Complex a02eic(Complex z, Complex w) { return cx(z.re * w.re, z.im * w.re); }
Complex a02ejc(Complex z, double r) { return cx(z.re * r, z.im * r); }

}  // extern "C"

ZIL_ALIAS(a02bac, zil_complex);
ZIL_ALIAS(a02bbc, zil_complex_real);
ZIL_ALIAS(a02bcc, zil_complex_imag);
ZIL_ALIAS(a02cac, zil_complex_add);
ZIL_ALIAS(a02cbc, zil_complex_subtract);
ZIL_ALIAS(a02ccc, zil_complex_multiply);
ZIL_ALIAS(a02cdc, zil_complex_divide);
ZIL_ALIAS(a02cec, zil_complex_negate);
ZIL_ALIAS(a02cfc, zil_complex_conjg);
ZIL_ALIAS(a02cgc, zil_complex_equal);
ZIL_ALIAS(a02chc, zil_complex_not_equal);
ZIL_ALIAS(a02dac, zil_complex_arg);
ZIL_ALIAS(a02dbc, zil_complex_abs);
ZIL_ALIAS(a02dcc, zil_complex_sqrt);
ZIL_ALIAS(a02ddc, zil_complex_i_power);
ZIL_ALIAS(a02dec, zil_complex_r_power);
ZIL_ALIAS(a02dfc, zil_complex_c_power);
ZIL_ALIAS(a02dgc, zil_complex_log);
ZIL_ALIAS(a02dhc, zil_complex_exp);
ZIL_ALIAS(a02djc, zil_complex_sin);
ZIL_ALIAS(a02dkc, zil_complex_cos);
ZIL_ALIAS(a02dlc, zil_complex_tan);
