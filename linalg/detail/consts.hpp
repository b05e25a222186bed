// The constants of the arithmetic that the kernels' safeguards use, from
// the machine-constant routines.
#pragma once

#include "zil_env.h"

namespace zil::linalg {

// Machine precision.
inline double machine_eps() { return x02ajc(); }
// Smallest positive normal number, which is also the safe range.
inline double safe_min() { return x02akc(); }
// Its reciprocal, the largest number a safeguarded quotient may return.
inline double fl_max() { return 1.0 / x02akc(); }

}  // namespace zil::linalg
