// Arithmetic on the Complex record, inlined into the kernels' loops.
#pragma once

#include <cmath>

#include "zil_types.h"

namespace zil::linalg {

inline Complex cmul(Complex a, Complex b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
inline Complex cadd(Complex a, Complex b) { return {a.re + b.re, a.im + b.im}; }
inline Complex conj(Complex a) { return {a.re, -a.im}; }
inline bool is_zero(Complex a) { return a.re == 0.0 && a.im == 0.0; }
inline bool is_one(Complex a) { return a.re == 1.0 && a.im == 0.0; }
inline bool is_zero(double a) { return a == 0.0; }
inline bool is_one(double a) { return a == 1.0; }
// |re| + |im|, the measure of izamax and dzasum.
inline double abs1(Complex a) { return std::fabs(a.re) + std::fabs(a.im); }

}  // namespace zil::linalg

namespace zil::linalg {
// The identity on reals, so that one template serves both element types.
inline double conj(double a) { return a; }
}  // namespace zil::linalg
