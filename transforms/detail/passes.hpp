// The single-sequence transforms below the public layer: passes over the
// stage list, the reordering in place and the final scaling.  No routine
// here allocates: every table lives on the stack of the pass that uses it.
#pragma once

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

// Where the first pass of a real transform finds its inputs when the data
// are read in their original order rather than reordered in place: the
// reordering is a digit reversal, linear in the digits, so input j of the
// group with index G (f consecutive elements of the reordered array) is
// from[base[G] + off[j]].
inline constexpr Integer kGatherMost = 2048;

struct Gather {
  const double* from;
  Integer off[kLargestPrime];
  Integer base[kGatherMost / 2];
  // The reversal of the stage list of n <= kGatherMost (a merged radix
  // standing for its 2s), over the data in from.
  Gather(const Integer* stage, const double* data);
};

// Real to Hermitian, divided by d: reorder, then decimation-in-time passes
// with the span rising from 1, the last of which divides each value by d
// as it stores it.
void real_transform(Integer n, const Factors& fac, double* x, double d,
                    Lanes lanes = Lanes::best);

// Complex to complex, each result divided by divisor as divide() does it
// (1 for the unscaled transform).
void complex_transform(Integer n, const Factors& fac, double* x, double* y, double divisor,
                       Lanes lanes = Lanes::best);

// Divides x[0..n-1] by d (a division, not a product with 1/d, so that each
// element is rounded once).
void divide(Integer n, double* x, double d);

}  // namespace zil::fft
