// The single-sequence transforms below the public layer: passes over the
// stage list, the reordering in place and the final scaling.  No routine
// here allocates: every table lives on the stack of the pass that uses it.
#pragma once

#include "transforms/detail/factor.hpp"
#include "zil_types.h"

namespace zil::fft {

// Real to Hermitian, divided by d: reorder, then decimation-in-time passes
// with the span rising from 1, the last of which divides each value by d
// as it stores it.  The passes run in their AVX2 copy when the processor
// has it, unless wide is false; either way gives the same bits.
void real_transform(Integer n, const Factors& fac, double* x, double d, bool wide = true);

// Hermitian to real, unscaled: decimation-in-frequency passes with the span
// falling from n, then reorder.
void hermitian_transform(Integer n, const Factors& fac, double* x);

// Complex to complex, unscaled.
void complex_transform(Integer n, const Factors& fac, double* x, double* y);

// Divides x[0..n-1] by d (a division, not a product with 1/d, so that each
// element is rounded once).
void divide(Integer n, double* x, double d);

}  // namespace zil::fft
