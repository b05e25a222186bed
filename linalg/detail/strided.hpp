// Walking strided vectors.
//
// Two rules for a negative stride exist side by side.  A routine of one
// vector walks from the base element by the stride (so it reaches below the
// base pointer); a routine of two vectors follows the published rule and
// starts each vector at its far end, so that x[0] pairs with y[0] whatever
// the signs.  Each walker keeps a separate unit-stride loop, which the
// compiler vectorises.
#pragma once

#include <cstddef>

#include "zil_types.h"

namespace zil::linalg {

using Index = std::ptrdiff_t;

// Offset of element 0 under the published rule.
inline Index start(Integer n, Integer inc) {
  return inc < 0 ? static_cast<Index>(1 - n) * inc : 0;
}

template <class T, class F>
inline void walk1(Integer n, T* x, Integer incx, F f) {
  if (incx == 1) {
    for (Index i = 0; i < n; ++i) f(x[i]);
  } else {
    for (Index i = 0, ix = 0; i < n; ++i, ix += incx) f(x[ix]);
  }
}

template <class T, class U, class F>
inline void walk2(Integer n, T* x, Integer incx, U* y, Integer incy, F f) {
  if (incx == 1 && incy == 1) {
    for (Index i = 0; i < n; ++i) f(x[i], y[i]);
  } else {
    Index ix = start(n, incx), iy = start(n, incy);
    for (Index i = 0; i < n; ++i, ix += incx, iy += incy) f(x[ix], y[iy]);
  }
}

}  // namespace zil::linalg

namespace zil::linalg {

template <class T>
inline void copy_vector(Integer n, const T* x, Integer incx, T* y, Integer incy) {
  walk2(n, x, incx, y, incy, [](const T& a, T& b) { b = a; });
}

template <class T>
inline void swap_vectors(Integer n, T* x, Integer incx, T* y, Integer incy) {
  walk2(n, x, incx, y, incy, [](T& a, T& b) {
    T t = a;
    a = b;
    b = t;
  });
}

// Index from 1 of the first element of largest measure; 0 when n < 1.
template <class T, class M>
inline Integer index_of_largest(Integer n, const T* x, Integer incx, M measure) {
  if (n < 1) return 0;
  Integer best = 1, k = 0;
  double big = -1.0;
  walk1(n, x, incx, [&](const T& v) {
    ++k;
    double a = measure(v);
    if (a > big) {
      big = a;
      best = k;
    }
  });
  return best;
}

}  // namespace zil::linalg
