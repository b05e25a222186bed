// Building blocks shared by the special functions: nested multiplication of
// the generated tables, the Clenshaw recurrence, exact products and the
// machine constants.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <type_traits>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "frame/env.hpp"

namespace zil::sf {

// The constants of the arithmetic, in their inner-layer forms.
inline constexpr double kEps = x02ajf();
inline constexpr double kTiny = x02akf();
inline constexpr double kHuge = x02alf();

inline constexpr double kPi = 3.141592653589793238;
inline constexpr double kHalfPi = 1.570796326794896619;
inline constexpr double kLn2 = 0.6931471805599453094;
inline constexpr double kLnSqrt2Pi = 0.9189385332046727418;
inline constexpr double kTwoOverSqrtPi = 1.128379167095512574;
inline constexpr double kOneOverSqrtPi = 0.5641895835477562869;

// A table's polynomial at s, highest power first.
template <std::size_t N>
constexpr double poly(const std::array<double, N>& c, double s) {
  double p = c[0];
  for (std::size_t k = 1; k < N; ++k) p = p * s + c[k];
  return p;
}

// The same polynomial by second-order Horner: the even and the odd powers
// as two nested multiplications in s^2 that run side by side, which halves
// the chain of dependent operations of a long table.
//
// The two chains step together on the coefficient pairs (c[k], c[k+1]),
// which lie side by side in the table: with SSE2, the base of every x86-64
// processor, as one packed multiplication and one packed addition per step,
// each lane rounding exactly as the scalar operation would.  A call is
// limited by the number of floating-point operations it issues more than by
// their chain, and this halves them.
template <std::size_t N>
constexpr double poly2(const std::array<double, N>& c, double s) {
  static_assert(N >= 3);
  const double s2 = s * s;
  // c[0] s^(N-1) + ...: the chain that ends in the constant term and the
  // chain that ends in the linear one.
  double a = c[0], b = c[1];
  std::size_t k = 2;
#if defined(__SSE2__)
  if (!std::is_constant_evaluated()) {
    __m128d ab = _mm_loadu_pd(&c[0]);
    const __m128d m = _mm_set1_pd(s2);
    for (; k + 1 < N; k += 2) ab = _mm_add_pd(_mm_mul_pd(ab, m), _mm_loadu_pd(&c[k]));
    a = _mm_cvtsd_f64(ab);
    b = _mm_cvtsd_f64(_mm_unpackhi_pd(ab, ab));
  }
#endif
  for (; k + 1 < N; k += 2) {
    a = a * s2 + c[k];
    b = b * s2 + c[k + 1];
  }
  if (k < N) return (a * s2 + c[k]) + b * s;  // N odd: a ends in the constant
  return a * s + b;                           // N even: b ends in the constant
}

// The same polynomial by fourth-order nested multiplication: four chains in
// s^4, two by two in packed SSE2 operations, joined at the end.  The chain
// of dependent operations is half that of poly2, for the tables that sit in
// front of a logarithm or a long product, where the call waits on it.
template <std::size_t N>
double poly4(const std::array<double, N>& c, double s) {
  static_assert(N >= 8);
  constexpr std::size_t r = (N - 4) % 4;  // coefficients after the chains
  const double s2 = s * s, s4 = s2 * s2;
  double a = c[0], b = c[1], cc = c[2], d = c[3];
  std::size_t k = 4;
#if defined(__SSE2__)
  __m128d ab = _mm_loadu_pd(&c[0]), cd = _mm_loadu_pd(&c[2]);
  const __m128d m = _mm_set1_pd(s4);
  for (; k + 3 < N; k += 4) {
    ab = _mm_add_pd(_mm_mul_pd(ab, m), _mm_loadu_pd(&c[k]));
    cd = _mm_add_pd(_mm_mul_pd(cd, m), _mm_loadu_pd(&c[k + 2]));
  }
  a = _mm_cvtsd_f64(ab);
  b = _mm_cvtsd_f64(_mm_unpackhi_pd(ab, ab));
  cc = _mm_cvtsd_f64(cd);
  d = _mm_cvtsd_f64(_mm_unpackhi_pd(cd, cd));
#else
  for (; k + 3 < N; k += 4) {
    a = a * s4 + c[k];
    b = b * s4 + c[k + 1];
    cc = cc * s4 + c[k + 2];
    d = d * s4 + c[k + 3];
  }
#endif
  // The chains end at the powers r + 3, r + 2, r + 1 and r.
  const double head = (a * s + b) * s2 + (cc * s + d);
  if constexpr (r == 0) return head;
  if constexpr (r == 1) return head * s + c[k];
  if constexpr (r == 2) return head * s2 + (c[k] * s + c[k + 1]);
  if constexpr (r == 3) return head * (s2 * s) + ((c[k] * s + c[k + 1]) * s + c[k + 2]);
}

// A generated table kept about its centre (see coefficients.hpp), at t.
template <std::size_t N>
constexpr double series(const std::array<double, N>& c, double centre, double t) {
  return poly(c, t - centre);
}

// sum' c(k) T_k(t/2), by b(k) = t b(k+1) - b(k+2) + c(k) and (b(0) - b(2))/2.
template <std::size_t N>
constexpr double clenshaw(const std::array<double, N>& c, double t) {
  double b0 = 0.0, b1 = 0.0, b2 = 0.0;
  for (std::size_t k = N; k-- > 0;) {
    b2 = b1;
    b1 = b0;
    // c(k) - b(k+2) is ready before t b(k+1): the step waits on one
    // multiplication and one addition only.
    b0 = t * b1 + (c[k] - b2);
  }
  return (b0 - b2) * 0.5;
}

// Value plus a correction: a number carried to twice the working precision.
struct Twofold {
  double hi;
  double lo;
};

// a+b exactly (Knuth's two-sum, for operands of any order of size).
inline Twofold two_sum(double a, double b) {
  const double s = a + b;
  const double bb = s - a;
  return {s, (a - (s - bb)) + (b - bb)};
}

// a*b exactly, by Dekker's splitting (no fused multiply-add is assumed);
// valid while neither factor is near the overflow limit.
inline Twofold two_prod(double a, double b) {
  constexpr double split = 134217729.0;  // 2^27 + 1
  const double p = a * b;
  const double ca = split * a, cb = split * b;
  const double ah = ca - (ca - a), al = a - ah;
  const double bh = cb - (cb - b), bl = b - bh;
  return {p, ((ah * bh - p) + ah * bl + al * bh) + al * bl};
}

// A table's polynomial at s = hi + lo by the compensated nested
// multiplication (Graillat, Langlois and Louvet, 2005): the rounding errors
// of every product and sum, and the part lo of the variable, are gathered in
// a second nested multiplication, and the result is as accurate as if the
// polynomial had been evaluated in twice the working precision.  For tables
// whose terms cancel to a small value, where plain nesting loses digits.
template <std::size_t N>
double poly_compensated(const std::array<double, N>& c, Twofold s) {
  double p = c[0], e = 0.0;
  for (std::size_t k = 1; k < N; ++k) {
    const Twofold prod = two_prod(p, s.hi);
    const Twofold sum = two_sum(prod.hi, c[k]);
    e = e * s.hi + (prod.lo + sum.lo) + p * s.lo;
    p = sum.hi;
  }
  return p + e;
}

// exp(-x*x) without the loss that rounding x*x would bring for large x.
inline double exp_minus_square(double x) {
  const Twofold sq = two_prod(x, x);
  return std::exp(-sq.hi) * (1.0 - sq.lo);
}

// A running product kept to twice the working precision, so that the long
// recurrences of the gamma function lose no more than one rounding.
class Product {
 public:
  // The rounding error comes from a fused multiply-add, which unlike the
  // splitting stays exact up to the overflow limit (Gamma(170) ~ 4e304).
  void times(double f) {
    const double p = hi_ * f;
    const double lo = std::fma(hi_, f, -p) + lo_ * f;
    hi_ = p + lo;
    lo_ = lo - (hi_ - p);
  }
  // Times another such product, to the same precision.
  void times(const Product& f) {
    const double p = hi_ * f.hi_;
    const double lo = std::fma(hi_, f.hi_, -p) + (hi_ * f.lo_ + lo_ * f.hi_);
    hi_ = p + lo;
    lo_ = lo - (hi_ - p);
  }
  double value() const { return hi_ + lo_; }

 private:
  double hi_ = 1.0;
  double lo_ = 0.0;
};

}  // namespace zil::sf
