// The Powell hybrid method for n equations in n unknowns, shared by the
// drivers c05nbc, c05pbc, c05tbc, c05ubc and the exported c05nct.
#pragma once

#include <cstddef>

#include "zil_types.h"

namespace zil::zeros {

// An n by n matrix with element (i, j) at p[i*rs + j*cs]: the drivers' own
// Jacobian is column-major, a caller's array row-major with tdfjac.
struct Matrix {
  double* p;
  std::ptrdiff_t rs, cs;
  double& operator()(std::ptrdiff_t i, std::ptrdiff_t j) const { return p[i * rs + j * cs]; }
};

// The caller's equations.  values() sets fvec = f(x), or with flag 0 lets
// the caller print; jacobian() fills the matrix handed to the core.  A
// negative flag stops the run.
class System {
 public:
  virtual ~System() = default;
  virtual void values(const double* x, double* fvec, Integer& flag) = 0;
  virtual void jacobian(const double* x, double* fvec, Integer& flag) {
    (void)x, (void)fvec, (void)flag;
  }
  bool has_jacobian = false;
};

struct HybridControl {
  double xtol;
  Integer maxfev;
  Integer ml, mu;  // band widths of a differenced Jacobian
  double epsfcn;   // relative error of f, for the difference step
  Integer mode;    // 1: scale from the Jacobian; 2: diag as given
  double factor;   // initial step bound, in units of |diag * x|
  Integer nprint;  // call values() with flag 0 every nprint iterations
};

// The arrays of the method: diag, qtf and w1..w4 (n each), r (n(n+1)/2,
// the triangle by rows) and the Jacobian.
struct HybridWork {
  double* diag;
  double* qtf;
  double* r;
  double* w[4];
  Matrix fjac;
};

// Elements of the single block of the public drivers: 6n vectors, the
// triangle, and the n by n Jacobian, (3n + 13)n/2 in all.
inline std::size_t hybrid_block_size(Integer n) {
  const std::size_t m = static_cast<std::size_t>(n);
  return (3 * m + 13) * m / 2;
}
// Cuts the block; the Jacobian part is left for the caller to place.
HybridWork hybrid_cut(Integer n, double* block);

struct HybridResult {
  Integer info;  // 0 bad input, 1..5 the ends, negative the stop flag
  Integer nfev, njev;
};

// On a numerical end x and fvec hold the best point; on a stop by the
// callback, the point and values of the stopping call.
HybridResult hybrid(System& sys, Integer n, double* x, double* fvec, const HybridControl& ctl, HybridWork& w);

}  // namespace zil::zeros
