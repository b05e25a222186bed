// Checks a caller's Jacobian: the directional derivatives of the sum of
// squares |f|^2 that the Jacobian gives are compared with forward
// differences along two fixed, orthogonal directions.
#include <cmath>
#include <initializer_list>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "frame/workspace.hpp"
#include "zil_env.h"
#include "zil_errors.h"
#include "zil_linalg.h"
#include "zil_zeros.h"

namespace zil::zeros {
namespace {

// call(x, fvec, fjac, tdfjac, flag) is the caller's function.
template <class F>
void check_jacobian(const char* routine, Integer n, double* x, double* fvec, double* fjac, Integer tdfjac, F call,
                    ZilError* fail) {
  Reporter rep(fail, routine);
  if (n < 1) {
    // Reported under the code of the strict form with the other's text.
    return rep.raise_text(ZE_INT_ARG_LT, zil_errlist[ZE_INT_ARG_LE], "n", "0", "n", n);
  }
  if (rep.int2_lt("tdfjac", tdfjac, "n", n)) return;
  const std::size_t m = static_cast<std::size_t>(n);
  Workspace<double> block((m + 4) * m);
  if (!block) return rep.alloc_fail();
  double* const jac = block.get();  // the Jacobian at the trial points, unused
  double* const y = jac + m * m;
  double* const z = y + m;
  double* const xp = z + m;
  double* const fp = xp + m;

  // Jacobian and values at x; a negative flag is the caller's stop.
  const auto evaluate = [&](double* at, double* fv, double* fj, Integer td) {
    for (Integer flag : {2, 1}) {
      call(at, fv, fj, td, flag);
      if (flag < 0) {
        rep.set_errnum(flag);
        rep.raise(ZE_USER_STOP, flag);
        return false;
      }
    }
    return true;
  };
  if (!evaluate(x, fvec, fjac, tdfjac)) return;

  const double h = std::sqrt(x02ajc());
  const double f0 = f06eac(n, fvec, 1, fvec, 1);

  // Two directions that no simple structure of f can favour, z made
  // orthogonal to y.
  double a = 0.5726, b = 0.18267076, s1 = 0.32787076, s2 = 0.104597277176;
  y[0] = a;
  z[0] = b;
  for (Integer i = 1; i < n; ++i) {
    a *= a;
    if (a < 0.1) a += 0.88;
    b = (1.0 - a) * (1.0 - a);
    y[i] = a;
    z[i] = b;
    s1 += a * a;
    s2 += a * b;
  }
  if (n == 1) {
    z[0] = 0.0;
  } else {
    const double ratio = s1 / s2;
    for (Integer i = 0; i < n; ++i) z[i] = (y[i] - ratio * z[i]) / (ratio + 1.0);
  }

  // Exact directional derivatives from the gradient 2 J' f.
  double sz = 0.0, sy = 0.0;
  for (Integer j = 0; j < n; ++j) {
    const double g = 2.0 * f06eac(n, fjac + j, tdfjac, fvec, 1);
    sz += z[j] * g;
    sy += y[j] * g;
  }
  // Forward differences along a direction.
  const auto difference = [&](const double* dir, double& d) {
    for (Integer i = 0; i < n; ++i) xp[i] = x[i] + h * dir[i];
    if (!evaluate(xp, fp, jac, n)) return false;
    d = (f06eac(n, fp, 1, fp, 1) - f0) / h;
    return true;
  };
  double dz = 0.0, dy = 0.0;
  if (n > 1 && !difference(z, dz)) return;
  if (!difference(y, dy)) return;

  if (h * (sz * sz + 1.0) > (dz - sz) * (dz - sz) && h * (sy * sy + 1.0) > (dy - sy) * (dy - sy))
    return rep.success();
  rep.raise(ZE_DERIV_ERRORS, "");
}

}  // namespace
}  // namespace zil::zeros

extern "C" {

void c05zbc(Integer n, double x[], double fvec[], double fjac[], Integer tdfjac,
            void (*f)(Integer, const double[], double[], double[], Integer, Integer*), ZilError* fail) {
  zil::zeros::check_jacobian(
      "c05zbc", n, x, fvec, fjac, tdfjac,
      [f, n](const double* xx, double* fv, double* fj, Integer td, Integer& flag) { f(n, xx, fv, fj, td, &flag); },
      fail);
}

void c05zcc(Integer n, double x[], double fvec[], double fjac[], Integer tdfjac,
            void (*f)(Integer, const double[], double[], double[], Integer, Integer*, Zil_Comm*), Zil_Comm* comm,
            ZilError* fail) {
  zil::zeros::check_jacobian(
      "c05zcc", n, x, fvec, fjac, tdfjac,
      [f, n, comm](const double* xx, double* fv, double* fj, Integer td, Integer& flag) {
        f(n, xx, fv, fj, td, &flag, comm);
      },
      fail);
}

}  // extern "C"

ZIL_ALIAS(c05zbc, zil_check_deriv);
ZIL_ALIAS(c05zcc, zil_check_deriv_1);
