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

FactorStatus factorise(Integer n, Factors& fac, CountTest test = CountTest::after_taking);

// The trig table's factorisation: divisors 6, 4, 2, 3, 5, then 6j-1, 6j+1.
// Returns the number of factors written to fac (1 for n = 1, 0 for n < 1).
Integer factorise_trig(Integer n, Integer fac[kListSize]);

}  // namespace zil::fft
