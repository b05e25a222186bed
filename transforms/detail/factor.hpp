// The two factorisations of the transform chapter.  They are kept apart on
// purpose: the single-sequence transforms need the symmetric ordering that
// makes their reordering in place cheap, while the trig table of the
// multiple-sequence routines follows its own radix order.
#pragma once

#include "zil_types.h"

namespace zil::fft {

// Room for every list: a 32-bit length has at most 31 prime factors.
inline constexpr int kListSize = 32;
inline constexpr Integer kLargestPrime = 19;
inline constexpr Integer kMaxFactors = 20;

// The lists of the single-sequence factoriser, each terminated by 0.
struct Factors {
  Integer stage[kListSize];       // radices in pass order; 1 marks a merged-away 2
  Integer digit[kListSize];       // squares, the square-free part, squares; empty if no square
  Integer square_free[kListSize]; // the unpaired primes, ascending; empty if fewer than two
  Integer kt;                     // product of one member of each square pair
};

enum class FactorStatus { ok, prime_above_limit, too_many_factors };

// When the count of prime factors is tested against its limit: after the
// factor has been counted (the public routines, so exactly 20 factors pass),
// or before the next factor is taken (the inner forms).
enum class CountTest { after_taking, before_taking };

namespace factor_detail {

// The factor 2 by shifts: a hardware division per step was most of the
// factorisation of a power of two, itself a sixteenth of a real transform of 64.
constexpr bool divides(Integer r, Integer p) { return p == 2 ? (r & 1) == 0 : r % p == 0; }
constexpr Integer quotient(Integer r, Integer p) { return p == 2 ? r >> 1 : r / p; }

}  // namespace factor_detail

// Constant-evaluable, so that the short lengths whose passes are compiled
// for their length can take their stage list at compile time.
constexpr FactorStatus factorise(Integer n, Factors& fac,
                                 CountTest test = CountTest::after_taking) {
  using factor_detail::divides, factor_detail::quotient;
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


// The trig table's factorisation: divisors 6, 4, 2, 3, 5, then 6j-1, 6j+1.
// Returns the number of factors written to fac (1 for n = 1, 0 for n < 1).
Integer factorise_trig(Integer n, Integer fac[kListSize]);

}  // namespace zil::fft
