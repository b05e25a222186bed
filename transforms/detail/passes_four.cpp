// The four-lane copy of the passes, for processors with AVX2: this file
// alone is compiled for that instruction set (transforms/CMakeLists.txt),
// and the public routines call it only where the processor has it.
#include "transforms/detail/pass_bodies.hpp"

namespace zil::fft {

void real_passes_four(Integer n, const Integer* stage, double* x, double d, const Gather* gather) {
  real_passes<Quad>(n, stage, x, d, gather);
}

bool real_passes_short_four(Integer n, double* x, double d) {
  return real_passes_short<Quad>(n, x, d);
}

bool complex_passes_short_four(Integer n, double* x, double* y, double divisor) {
  return complex_passes_short<Quad>(n, x, y, divisor);
}

void complex_passes_four(Integer n, const Integer* stage, double* x, double* y, double divisor) {
  complex_passes<Quad>(stage, n, n, x, y, Divisor(divisor));
}

}  // namespace zil::fft
