// Small vector kernels of the hybrid method.  Each is a stand-in, kept to
// the behaviour of the kernel named beside it, until the vector kernels of
// the linear algebra chapter are available to this one.
#pragma once

#include <cmath>
#include <cstddef>

#include "zil_env.h"
#include "zil_types.h"

namespace zil::zeros {

// Euclidean norm by a scaled sum of squares, so that no square overflows or
// underflows on the way.  To be replaced by f06ejc.
inline double norm2(Integer n, const double* x, std::ptrdiff_t inc = 1) {
  double scale = 0.0, ssq = 1.0;
  for (Integer i = 0; i < n; ++i) {
    const double v = x[i * inc];
    if (v == 0.0) continue;
    const double a = std::fabs(v);
    if (scale < a) {
      const double r = scale / a;
      ssq = 1.0 + ssq * r * r;
      scale = a;
    } else {
      const double r = a / scale;
      ssq += r * r;
    }
  }
  return scale * std::sqrt(ssq);
}

// Dot product.  To be replaced by f06eac.
inline double dot(Integer n, const double* x, std::ptrdiff_t incx, const double* y, std::ptrdiff_t incy) {
  double s = 0.0;
  for (Integer i = 0; i < n; ++i) s += x[i * incx] * y[i * incy];
  return s;
}

// A plane rotation that takes (a, b), b != 0, to (r, 0) with r = c*a + s*b,
// and one number tau from which it can be rebuilt: tau = s when |s| < |c|
// (then c = sqrt(1 - s^2)), otherwise tau = 1/c (or 1 when c = 0).  To be
// replaced by the rotation generator of the f06 kernels.
struct Rotation {
  double c, s, tau;
};
inline Rotation rotation_generate(double a, double b) {
  Rotation g;
  if (std::fabs(a) < std::fabs(b)) {
    const double cot = a / b;
    g.s = 0.5 / std::sqrt(0.25 + 0.25 * cot * cot);
    g.c = g.s * cot;
    g.tau = std::fabs(g.c) * x02alc() > 1.0 ? 1.0 / g.c : 1.0;
  } else {
    const double tan = b / a;
    g.c = 0.5 / std::sqrt(0.25 + 0.25 * tan * tan);
    g.s = g.c * tan;
    g.tau = g.s;
  }
  return g;
}

// The rotation that rotation_generate stored as tau.
inline Rotation rotation_from_tau(double tau) {
  Rotation g{0.0, 0.0, tau};
  if (std::fabs(tau) > 1.0) {
    g.c = 1.0 / tau;
    g.s = std::sqrt(1.0 - g.c * g.c);
  } else {
    g.s = tau;
    g.c = std::sqrt(1.0 - g.s * g.s);
  }
  return g;
}

}  // namespace zil::zeros
