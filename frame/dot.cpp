// The extended-precision inner product.
#include <cfenv>
#include <cmath>
#include <cstddef>

#include "frame/report.hpp"
#include "zil_env.h"

namespace {

// Veltkamp's constant 2^27 + 1: x * kSplit splits a double into two halves
// of 26 bits each, whose products with another such half are exact.
constexpr double kSplit = 134217729.0;

// c1 + c2 + sum a[i*stepa] * b[i*stepb] as a pair (hi, lo).  Each product
// is made exact by Dekker's splitting and added to the pair with its
// rounding error kept (Dekker, 1971; the same scheme as Ogita, Rump and
// Oishi's Dot2).  Every parenthesis below is part of the algorithm: the
// library is compiled without floating-point contraction or reassociation,
// and any reordering of these sums loses the low part.  Kept out of line so
// that none of it is scheduled before the caller has set the rounding mode.
[[gnu::noinline]] void dot2(const double* a, const double* b, Integer n, std::ptrdiff_t stepa,
                            std::ptrdiff_t stepb, double c1, double c2, double* d1, double* d2) {
  double hi = c1 + c2;
  double lo = (c1 - hi) + c2;
  for (Integer i = 0; i < n; ++i) {
    double x = a[i * stepa];
    double y = b[i * stepb];
    double t = x * kSplit;
    double xh = t + (x - t);
    double xl = x - xh;
    t = y * kSplit;
    double yh = t + (y - t);
    double yl = y - yh;
    double p = x * y;
    double e = (((yh * xh - p) + yl * xh) + yh * xl) + yl * xl;
    double s = p + hi;
    double f;
    if (std::fabs(hi) >= std::fabs(p))
      f = (((hi - s) + p) + e) + lo;
    else
      f = e + (((p - s) + hi) + lo);
    hi = f + s;
    lo = (s - hi) + f;
  }
  *d1 = lo + hi;
  *d2 = (hi - *d1) + lo;
}

}  // namespace

extern "C" void x03aac(const double a[], Integer /*isizea*/, const double b[], Integer /*isizeb*/,
                       Integer n, Integer stepa, Integer stepb, double c1, double c2, double* d1,
                       double* d2, Boolean sw, ZilError* fail) {
  zil::Reporter rep(fail, "x03aac", zil::Reporter::Clear::CodeOnly);
  if (rep.int_le("stepa", stepa, 0)) return;
  if (rep.int_le("stepb", stepb, 0)) return;

  if (sw) {
    // The pair is exact only under rounding to nearest; a caller's directed
    // rounding is set aside for the loop and put back after it.  (Doubles
    // are held in SSE registers here, so no precision control is needed.)
    int saved = std::fegetround();
    if (saved != FE_TONEAREST) std::fesetround(FE_TONEAREST);
    dot2(a, b, n, stepa, stepb, c1, c2, d1, d2);
    if (saved != FE_TONEAREST) std::fesetround(saved);
  } else {
    double sum = c1;
    for (Integer i = 0; i < n; ++i) sum += a[static_cast<std::ptrdiff_t>(i) * stepa] * b[static_cast<std::ptrdiff_t>(i) * stepb];
    *d1 = sum;
    *d2 = 0.0;
  }
  rep.success();
}
