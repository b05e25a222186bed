// The bracketing core shared by c05azc and C05AZF.
#pragma once

#include "zil_types.h"

namespace zil::zeros {

// How a call of the core ended.  None: ind holds the next request (or 0
// for a zero found); the others end the run with ind = 0.
enum class AzEnd { None, SameSign, BadInd, BadXtol, BadIr, Pole, Accuracy };

// One entry of the reverse-communication core (c has 17 elements).
AzEnd bracket_step(double& x, double& y, double fx, double xtol, Integer ir, double* c, Integer& ind);

}  // namespace zil::zeros

namespace zil {

// The inner form: ifail leaves as 0, or 1 equal signs at the ends, 2 a wrong
// ind, 3 a wrong xtol or ir, 4 a probable pole, 5 the limit of accuracy.
void C05AZF(double& x, double& y, double fx, double tolx, Integer ir, double* c, Integer& ind,
            Integer& ifail);

}  // namespace zil
