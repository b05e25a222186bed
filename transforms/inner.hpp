// The inner forms of the single-sequence transforms, for the time-series
// chapter: by reference, with the ifail convention of the inner layer.
#pragma once

#include "zil_types.h"

namespace zil {

// Real to Hermitian (C06EAF) and Hermitian to real (C06EBF), unitary, in
// place.  ifail leaves as 0, or as 1 (a prime factor above 19), 2 (too many
// factors), 3 (n <= 1).
void C06EAF(double x[], const Integer* n, Integer* ifail);
void C06EBF(double x[], const Integer* n, Integer* ifail);

}  // namespace zil
