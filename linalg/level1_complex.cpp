// Level-1 complex vector routines.
#include <cmath>

#include "linalg/detail/complex.hpp"
#include "linalg/detail/kernels.hpp"
#include "linalg/detail/strided.hpp"
#include "zil_linalg.h"

using namespace zil::linalg;

extern "C" Complex f06gbc(Integer n, const Complex x[], Integer incx, const Complex y[], Integer incy) {
  Complex sum{0.0, 0.0};
  walk2(n, x, incx, y, incy, [&sum](Complex a, Complex b) { sum = cadd(sum, cmul(conj(a), b)); });
  return sum;
}

extern "C" void f06gcc(Integer n, Complex alpha, const Complex x[], Integer incx, Complex y[], Integer incy) {
  if (n < 1 || is_zero(alpha)) return;
  walk2(n, x, incx, y, incy, [alpha](Complex a, Complex& b) { b = cadd(b, cmul(alpha, a)); });
}

extern "C" void f06gdc(Integer n, Complex alpha, Complex x[], Integer incx) {
  if (n < 1 || is_one(alpha)) return;
  if (is_zero(alpha))
    walk1(n, x, incx, [](Complex& v) { v = Complex{0.0, 0.0}; });
  else
    walk1(n, x, incx, [alpha](Complex& v) { v = cmul(alpha, v); });
}

extern "C" void f06gfc(Integer n, const Complex x[], Integer incx, Complex y[], Integer incy) {
  copy_vector(n, x, incx, y, incy);
}

extern "C" void f06ggc(Integer n, Complex x[], Integer incx, Complex y[], Integer incy) {
  swap_vectors(n, x, incx, y, incy);
}

extern "C" void f06hbc(Integer n, Complex con, Complex x[], Integer incx) {
  walk1(n, x, incx, [con](Complex& v) { v = con; });
}

extern "C" void f06jdc(Integer n, double alpha, Complex x[], Integer incx) {
  if (n < 1 || alpha == 1.0) return;
  if (alpha == 0.0)
    walk1(n, x, incx, [](Complex& v) { v = Complex{0.0, 0.0}; });
  else if (alpha == -1.0)
    walk1(n, x, incx, [](Complex& v) { v = Complex{-v.re, -v.im}; });
  else
    walk1(n, x, incx, [alpha](Complex& v) { v = Complex{alpha * v.re, alpha * v.im}; });
}

extern "C" double f06jjc(Integer n, const Complex x[], Integer incx) {
  if (n < 1) return 0.0;
  double scale = 0.0, sumsq = 1.0;
  complex_scaled_ssq(n, x, incx, scale, sumsq);
  return f06bmc(scale, sumsq);
}

extern "C" double f06jkc(Integer n, const Complex x[], Integer incx) {
  double sum = 0.0;
  walk1(n, x, incx, [&sum](Complex v) { sum += abs1(v); });
  return sum;
}

extern "C" Integer f06jmc(Integer n, const Complex x[], Integer incx) {
  return index_of_largest(n, x, incx, [](Complex v) { return abs1(v); });
}

namespace zil::linalg {

void complex_scaled_ssq(Integer n, const Complex x[], Integer incx, double& scale, double& sumsq) {
  // A complex vector of unit stride is a real vector of 2n parts, real part
  // first; otherwise the real and the imaginary parts are two real vectors
  // of twice the stride.
  if (n < 1) return;
  if (incx == 1) {
    f06fjc(2 * n, &x[0].re, 1, &scale, &sumsq);
  } else {
    f06fjc(n, &x[0].re, 2 * incx, &scale, &sumsq);
    f06fjc(n, &x[0].im, 2 * incx, &scale, &sumsq);
  }
}

}  // namespace zil::linalg
