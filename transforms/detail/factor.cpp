#include "transforms/detail/factor.hpp"

#include <initializer_list>

namespace zil::fft {

namespace {

// The factor 2 by shifts: a hardware division per step was most of the
// factorisation of a power of two, itself a sixteenth of a real transform of 64.
bool divides(Integer r, Integer p) { return p == 2 ? (r & 1) == 0 : r % p == 0; }
Integer quotient(Integer r, Integer p) { return p == 2 ? r >> 1 : r / p; }

}  // namespace

FactorStatus factorise(Integer n, Factors& fac, CountTest test) {
  Integer squares[kListSize], singles[kListSize];
  int ns = 0, nt = 0;
  Integer kt = 1, r = n, p = 2;
  while (r > 1) {
    if (test == CountTest::before_taking && nt + 2 * ns >= kMaxFactors)
      return FactorStatus::too_many_factors;
    while (p <= kLargestPrime && !divides(r, p)) ++p;
    if (!divides(r, p)) return FactorStatus::prime_above_limit;
    r = quotient(r, p);
    // A second p makes a square pair; a third one opens a new pair or single.
    if (divides(r, p)) {
      r = quotient(r, p);
      squares[ns++] = p;
      kt *= p;
    } else {
      singles[nt++] = p;
    }
    if (test == CountTest::after_taking && nt + 2 * ns > kMaxFactors)
      return FactorStatus::too_many_factors;
  }

  // Squares outside, singles in the middle: the digit reversal of the outer
  // digits is then an involution, done by pair swaps.
  int len = 0;
  for (int i = ns - 1; i >= 0; --i) fac.stage[len++] = squares[i];
  for (int i = 0; i < nt; ++i) fac.stage[len++] = singles[i];
  for (int i = 0; i < ns; ++i) fac.stage[len++] = squares[i];
  fac.stage[len] = 0;

  len = 0;
  if (ns > 0) {
    for (int i = ns - 1; i >= 0; --i) fac.digit[len++] = squares[i];
    if (nt > 0) fac.digit[len++] = n / (kt * kt);
    for (int i = 0; i < ns; ++i) fac.digit[len++] = squares[i];
  }
  fac.digit[len] = 0;

  len = 0;
  if (nt >= 2)
    for (int i = 0; i < nt; ++i) fac.square_free[len++] = singles[i];
  fac.square_free[len] = 0;
  fac.kt = kt;

  // Runs of 2 become radix-8 and radix-4 passes; the holes left are 1s.
  Integer u = 1;
  for (int i = 0; fac.stage[i] != 0; ++i) {
    if (fac.stage[i] != 2) continue;
    u *= 2;
    fac.stage[i] = 1;
    if (u == 8 || fac.stage[i + 1] != 2) {
      fac.stage[i] = u;
      u = 1;
    }
  }
  return FactorStatus::ok;
}

Integer factorise_trig(Integer n, Integer fac[kListSize]) {
  if (n < 1) return 0;
  if (n == 1) {
    fac[0] = 1;
    return 1;
  }
  Integer count = 0, r = n;
  auto take = [&](Integer d) {
    while (r % d == 0) {
      fac[count++] = d;
      r /= d;
    }
  };
  for (Integer d : {6, 4, 2, 3, 5}) take(d);
  // 7, 11, 13, 17, 19, 23, 25, ...: every number prime to 6.  Composite ones
  // never divide, their primes having gone before them.
  for (Integer d = 7, step = 4; r > 1; d += step, step = 6 - step) {
    if (static_cast<long long>(d) * d > r) {
      fac[count++] = r;
      break;
    }
    take(d);
  }
  return count;
}

}  // namespace zil::fft
