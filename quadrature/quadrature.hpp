// The integrators as other chapters call them: the inner forms by reference
// with a fixed work array and the ifail convention.
#pragma once

#include "zil_types.h"

namespace zil {

using InnerQuadFun = double (*)(const double& x);

// W holds LW doubles, split into four lists of LW/4 subintervals (left and
// right ends, results, errors); IW holds at least LW/4 integers (the error
// order; on exit IW[0] is the number of subintervals used).  Failure
// numbers: 1..5 as the public routines' ends, 6 for LW < 4 or LIW < LW/4.
void D01AJF(InnerQuadFun f, double a, double b, double epsabs, double epsrel, double& result,
            double& abserr, double* w, Integer lw, Integer* iw, Integer liw, Integer& ifail);
// inf: 1 (bound, infinity), -1 (-infinity, bound), 2 (-infinity, infinity).
void D01AMF(InnerQuadFun f, double bound, Integer inf, double epsabs, double epsrel,
            double& result, double& abserr, double* w, Integer lw, Integer* iw, Integer liw,
            Integer& ifail);

}  // namespace zil
