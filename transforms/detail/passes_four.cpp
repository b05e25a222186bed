// The four-lane copy of the passes, for processors with AVX2: this file
// alone is compiled for that instruction set (transforms/CMakeLists.txt),
// and the public routines call it only where the processor has it.
#include "transforms/detail/pass_bodies.hpp"

namespace zil::fft {

constinit const PassCopy kFourLanes = pass_copy<Quad>();

}  // namespace zil::fft
