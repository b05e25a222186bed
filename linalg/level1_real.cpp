// Level-1 real vector routines: plain loops with a unit-stride path.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "frame/export.hpp"
#include "linalg/detail/consts.hpp"
#include "linalg/detail/f06report.hpp"
#include "linalg/detail/f16check.hpp"
#include "linalg/detail/strided.hpp"
#include "zil_linalg.h"

using namespace zil::linalg;

extern "C" void f06dbc(Integer n, Integer con, Integer x[], Integer incx) {
  walk1(n, x, incx, [con](Integer& v) { v = con; });
}

extern "C" void f06dfc(Integer n, const Integer x[], Integer incx, Integer y[], Integer incy) {
  copy_vector(n, x, incx, y, incy);
}

extern "C" double f06eac(Integer n, const double x[], Integer incx, const double y[], Integer incy) {
  if (n < 1) return 0.0;
  if (incx == 1 && incy == 1) {
    // Four partial sums break the dependence on one accumulator.
    double s0 = 0.0, s1 = 0.0, s2 = 0.0, s3 = 0.0;
    Index i = 0;
    for (; i + 4 <= n; i += 4) {
      s0 += x[i] * y[i];
      s1 += x[i + 1] * y[i + 1];
      s2 += x[i + 2] * y[i + 2];
      s3 += x[i + 3] * y[i + 3];
    }
    for (; i < n; ++i) s0 += x[i] * y[i];
    return (s0 + s1) + (s2 + s3);
  }
  double sum = 0.0;
  walk2(n, x, incx, y, incy, [&sum](double a, double b) { sum += a * b; });
  return sum;
}
ZIL_ALIAS(f06eac, f06eaf_f);

extern "C" void f06edc(Integer n, double alpha, double x[], Integer incx) {
  // alpha 1 leaves memory untouched; 0 stores zeros even over NaNs.
  if (n < 1 || alpha == 1.0) return;
  if (alpha == 0.0)
    walk1(n, x, incx, [](double& v) { v = 0.0; });
  else if (alpha == -1.0)
    walk1(n, x, incx, [](double& v) { v = -v; });
  else
    walk1(n, x, incx, [alpha](double& v) { v *= alpha; });
}
ZIL_ALIAS(f06edc, f06edf_f);

extern "C" void f06efc(Integer n, const double x[], Integer incx, double y[], Integer incy) {
  copy_vector(n, x, incx, y, incy);
}

extern "C" void f06egc(Integer n, double x[], Integer incx, double y[], Integer incy) {
  swap_vectors(n, x, incx, y, incy);
}

extern "C" void f06fjc(Integer n, const double x[], Integer incx, double* scale, double* sumsq) {
  if (n < 1) return;
  // One pass for the largest modulus, then the sum of squares of the
  // elements scaled by its reciprocal: the same result as updating scale
  // element by element, without a division per element.
  // The maximum passes over a NaN, so it is looked for on the way: the
  // element-by-element update would have carried it into sumsq, and a
  // vector of NaNs and zeros must not come out as a zero vector.
  double amax = 0.0;
  bool nan = false;
  walk1(n, x, incx, [&amax, &nan](double v) {
    double a = std::fabs(v);
    amax = a > amax ? a : amax;
    nan = nan || a != a;
  });
  if (nan) {
    *sumsq = std::numeric_limits<double>::quiet_NaN();
    return;
  }
  if (amax == 0.0) return;
  double sc = *scale, ss = *sumsq;
  if (amax > sc) {
    double q = sc / amax;
    ss *= q * q;
    sc = amax;
  }
  double r = 1.0 / sc;
  if (std::isfinite(r) && std::isfinite(sc) && r != 0.0) {
    double s0 = 0.0, s1 = 0.0;
    if (incx == 1) {
      Index i = 0;
      for (; i + 2 <= n; i += 2) {
        double a = x[i] * r, b = x[i + 1] * r;
        s0 += a * a;
        s1 += b * b;
      }
      if (i < n) s0 += (x[i] * r) * (x[i] * r);
    } else {
      walk1(n, x, incx, [&s0, r](double v) { s0 += (v * r) * (v * r); });
    }
    *scale = sc;
    *sumsq = ss + (s0 + s1);
    return;
  }
  // A subnormal or infinite largest element: the element-by-element
  // update, whose reciprocal never overflows.
  sc = *scale;
  ss = *sumsq;
  walk1(n, x, incx, [&sc, &ss](double v) {
    if (v == 0.0) return;
    double a = std::fabs(v);
    if (a <= sc) {
      double q = a / sc;
      ss += q * q;
    } else {
      double q = sc / a;
      ss = ss * (q * q) + 1.0;
      sc = a;
    }
  });
  *scale = sc;
  *sumsq = ss;
}

extern "C" double f06bmc(double scale, double sumsq) {
  double r = std::sqrt(sumsq);
  return scale >= fl_max() / r ? fl_max() : r * scale;
}

namespace {

// The plain sum of squares and the largest modulus of a unit-stride vector,
// eight of each in flight as four pairs (the vector extension maps a pair
// onto one SSE2 register; without reassociation the compiler would keep a
// single chain).
using Pair = double __attribute__((vector_size(16)));
using Bits = unsigned long long __attribute__((vector_size(16)));

void squares_and_max(Integer n, const double x[], double& sum, double& amax) {
  Pair s[4] = {}, m[4] = {};
  const Pair sign = {-0.0, -0.0};
  Index i = 0;
  for (; i + 8 <= n; i += 8) {
    for (int k = 0; k < 4; ++k) {
      Pair v;
      std::memcpy(&v, x + i + 2 * k, sizeof v);
      Pair a = reinterpret_cast<Pair>(~reinterpret_cast<Bits>(sign) & reinterpret_cast<Bits>(v));
      s[k] += v * v;
      m[k] = a > m[k] ? a : m[k];
    }
  }
  Pair st = (s[0] + s[1]) + (s[2] + s[3]);
  double total = st[0] + st[1], big = 0.0;
  for (int k = 0; k < 4; ++k) big = std::max({big, m[k][0], m[k][1]});
  for (; i < n; ++i) {
    total += x[i] * x[i];
    big = std::max(big, std::fabs(x[i]));
  }
  sum = total;
  amax = big;
}

}  // namespace

extern "C" double f06ejc(Integer n, const double x[], Integer incx) {
  if (n < 1) return 0.0;
  if (n == 1) return std::fabs(x[0]);
  if (incx == 1) {
    // Where the largest element lies well inside the exponent range the
    // squares can neither overflow nor lose anything that matters (an
    // element whose square underflows is below 2^-1022 of the largest
    // one's), so the plain sum is the norm; otherwise the scaled sum.
    constexpr double lo = 0x1p-500, hi = 0x1p+480;
    double sum, amax;
    squares_and_max(n, x, sum, amax);
    if (amax >= lo && amax <= hi && std::isfinite(sum)) return std::sqrt(sum);
  }
  double scale = 0.0, sumsq = 1.0;
  f06fjc(n, x, incx, &scale, &sumsq);
  return f06bmc(scale, sumsq);
}

extern "C" double f06ekc(Integer n, const double x[], Integer incx) {
  double sum = 0.0;
  walk1(n, x, incx, [&sum](double v) { sum += std::fabs(v); });
  return sum;
}

extern "C" void f06epc(Integer n, double x[], Integer incx, double y[], Integer incy, double c, double s) {
  if (n < 1 || (c == 1.0 && s == 0.0)) return;
  if (c == 0.0 && s == 1.0) {
    walk2(n, x, incx, y, incy, [](double& a, double& b) {
      double t = a;
      a = b;
      b = -t;
    });
  } else if (c == 0.0 && s == -1.0) {
    walk2(n, x, incx, y, incy, [](double& a, double& b) {
      double t = a;
      a = -b;
      b = t;
    });
  } else {
    walk2(n, x, incx, y, incy, [c, s](double& a, double& b) {
      double t = a;
      a = c * t + s * b;
      b = c * b - s * t;
    });
  }
}

extern "C" void f06fbc(Integer n, double con, double x[], Integer incx) {
  walk1(n, x, incx, [con](double& v) { v = con; });
}

extern "C" void f06fgc(Integer n, double x[], Integer incx) {
  walk1(n, x, incx, [](double& v) { v = -v; });
}

extern "C" Integer f06jlc(Integer n, const double x[], Integer incx) {
  return index_of_largest(n, x, incx, [](double v) { return std::fabs(v); });
}

// ---- daxpby and the forms over it ------------------------------------------

extern "C" void f16ecc(Integer n, double alpha, const double x[], Integer incx, double beta,
                       double y[], Integer incy, ZilError* fail) {
  F16Check c(fail, "zil_daxpby (f16ecc)");
  if (c.dim(1, "n", n) || c.array(3, "x", x) || c.array(6, "y", y) || c.inc(4, "incx", incx) ||
      c.inc(7, "incy", incy))
    return;
  if (alpha == 0.0 && beta == 1.0) {
  } else if (beta == 0.0) {
    // y is written, never read, so a NaN standing in y cannot survive.
    walk2(n, x, incx, y, incy, [alpha](double a, double& b) { b = alpha * a; });
  } else if (beta == 1.0) {
    walk2(n, x, incx, y, incy, [alpha](double a, double& b) { b += alpha * a; });
  } else {
    f06edc(n, beta, y, incy < 0 ? -incy : incy);
    walk2(n, x, incx, y, incy, [alpha](double a, double& b) { b += alpha * a; });
  }
  c.success();
}
ZIL_ALIAS(f16ecc, zil_daxpby);

namespace {
// f06ecc and f06fdc lack f16ecc's beta (position 5).
void axpby_f06(const char* tag, Integer n, double alpha, const double x[], Integer incx, double beta,
               double y[], Integer incy) {
  ZilError rec = own_record();
  f16ecc(n, alpha, x, incx, beta, y, incy, &rec);
  report_f06(tag, rec, {0, 1, 2, 3, 4, 0, 5, 6});
}
}  // namespace

extern "C" void f06ecc(Integer n, double alpha, const double x[], Integer incx, double y[], Integer incy) {
  axpby_f06("f06ecc", n, alpha, x, incx, 1.0, y, incy);
}

extern "C" void f06fdc(Integer n, double alpha, const double x[], Integer incx, double y[], Integer incy) {
  axpby_f06("f06fdc", n, alpha, x, incx, 0.0, y, incy);
}

// ---- loads with a failure record ---------------------------------------------

namespace {
template <class T>
void load_front(const char* routine, Integer n, T alpha, T x[], Integer incx, ZilError* fail) {
  F16Check c(fail, routine);
  if (c.dim(1, "n", n) || c.array(3, "x", x) || c.inc(4, "incx", incx)) return;
  walk1(n, x, incx, [alpha](T& v) { v = alpha; });
  c.success();
}
}  // namespace

extern "C" void f16dbc(Integer n, Integer alpha, Integer x[], Integer incx, ZilError* fail) {
  load_front("zil_iload (f16dbc)", n, alpha, x, incx, fail);
}
ZIL_ALIAS(f16dbc, zil_iload);

extern "C" void f16fbc(Integer n, double alpha, double x[], Integer incx, ZilError* fail) {
  load_front("zil_dload (f16fbc)", n, alpha, x, incx, fail);
}
ZIL_ALIAS(f16fbc, zil_dload);

extern "C" void f16hbc(Integer n, Complex alpha, Complex x[], Integer incx, ZilError* fail) {
  load_front("zil_zload (f16hbc)", n, alpha, x, incx, fail);
}
ZIL_ALIAS(f16hbc, zil_zload);
