// The single-sequence transforms below the public layer: passes over the
// stage list, the reordering in place and the final scaling.  No routine
// here allocates: every table lives on the stack of the pass that uses it.
#pragma once

#include <algorithm>
#include <iterator>
#include <type_traits>

#include "transforms/detail/factor.hpp"
#include "zil_types.h"

namespace zil::fft {

// Hermitian to real, unscaled: decimation-in-frequency passes with the span
// falling from n, then reorder.
void hermitian_transform(Integer n, const Factors& fac, double* x);

// The vector width of the passes: two lanes (SSE2, on every x86-64
// processor), four (AVX2; only where the processor has it), or the best the
// processor offers.  Both widths give the same bits.
enum class Lanes { two, four, best };

// t[j] = the sum of weight[i] times digit i of j (radix[i], digit 0 least
// significant), for j below the product of the radices: the index maps of
// the reorderings and of the gather.  Each digit extends the table built
// so far to radix times its length, each entry being the one a length
// before it moved by the digit's weight: loops of fixed length, where an
// odometer's carries were branches no predictor could follow, and one loop
// per digit, where a loop per digit value cost a mispredicted exit each.
template <class T, class R>
constexpr void digit_table(T* t, const R* radix, const T* weight, int digits) {
  T length = 1;
  t[0] = 0;
  for (int i = 0; i < digits; ++i) {
    const T end = length * static_cast<T>(radix[i]), w = weight[i];
    for (T j = length; j < end; ++j) t[j] = t[j - length] + w;
    length = end;
  }
}

// Where the first pass of a real transform finds its inputs when the data
// are read in their original order rather than reordered in place: the
// reordering is a digit reversal, linear in the digits, so input j of the
// group with index G (f consecutive elements of the reordered array) is
// from[base[G] + off[j]].
inline constexpr Integer kGatherMost = 2048;

struct Gather {
  const double* from;
  const Integer* off;
  const Integer* base;
};

// The tables of a gather, for lengths with up to Groups groups in their
// first pass.
template <Integer Groups>
struct GatherTables {
  Integer off[kLargestPrime];
  Integer base[Groups];
  // Digit i of an index of the reordered array (radix s_i, the stage list
  // with each merged radix spelt out as 2s, digit 0 least significant) is
  // digit i of the original index read from the most significant end: its
  // weight there is n / (s_0 * ... * s_i).  The first pass takes the digits
  // of its radix, the group index the rest.  Both are tabled ahead, so that
  // the first pass finds each group's start with one load.
  constexpr explicit GatherTables(const Integer* stage) {
    // A table made at compile time must have every entry set; one made on
    // the stack is left as it is beyond the entries used (it has room for
    // 1024 groups).
    if (std::is_constant_evaluated()) {
      std::fill(std::begin(off), std::end(off), 0);
      std::fill(std::begin(base), std::end(base), 0);
    }
    Integer radix[kListSize], weight[kListSize];
    int digits = 0, first_pass = -1;
    for (; stage[digits] != 0; ++digits) {
      const Integer f = stage[digits];
      radix[digits] = f == 1 || f == 4 || f == 8 ? 2 : f;
      if (first_pass < 0 && f != 1) first_pass = digits;
    }
    for (Integer w = 1, i = digits; i-- > 0; w *= radix[i]) weight[i] = w;
    digit_table(off, radix, weight, first_pass + 1);
    digit_table(base, radix + first_pass + 1, weight + first_pass + 1, digits - first_pass - 1);
  }
  Gather over(const double* data) const { return {data, off, base}; }
};

// Real to Hermitian, divided by d: reorder, then decimation-in-time passes
// with the span rising from 1, the last of which divides each value by d
// as it stores it.
void real_transform(Integer n, const Factors& fac, double* x, double d,
                    Lanes lanes = Lanes::best);

// The same for the short lengths whose passes are compiled for their
// length (the powers of two up to 64), needing no factor lists; false, with
// x untouched, for any other length.
bool real_transform_short(Integer n, double* x, double d, Lanes lanes = Lanes::best);

// Complex to complex, each result divided by divisor as divide() does it
// (1 for the unscaled transform).
void complex_transform(Integer n, const Factors& fac, double* x, double* y, double divisor,
                       Lanes lanes = Lanes::best);

// The same for the short lengths (see real_transform_short).
bool complex_transform_short(Integer n, double* x, double* y, double divisor,
                             Lanes lanes = Lanes::best);

// Divides x[0..n-1] by d (a division, not a product with 1/d, so that each
// element is rounded once).
void divide(Integer n, double* x, double d);

}  // namespace zil::fft
