// Drivers over the bracketing core: c05adc and c05sdc evaluate f themselves
// and add a stopping test on |f| that the core does not know of.
#include <cmath>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "zil_errors.h"
#include "zil_frame.h"
#include "zil_zeros.h"

namespace zil::zeros {
namespace {

// |f| < ftol (strictly: a value exactly at ftol goes on) or f = 0.
bool small_enough(double fx, double ftol) { return std::fabs(fx) < ftol || fx == 0.0; }

template <class F>
void bracketed_zero(const char* routine, double a, double b, double* x, F&& f, double xtol, double ftol,
                    ZilError* fail) {
  Reporter rep(fail, routine);
  if (rep.real_le("xtol", xtol, 0.0, "0.0")) return;
  if (a == b) {
    rep.raise(ZE_2_REAL_ARG_EQ, "a", a, "b", b, "a", "b");
    return;
  }

  *x = a;
  const double fa = f(a);
  if (small_enough(fa, ftol)) return rep.success();
  *x = b;
  const double fb = f(b);
  if (small_enough(fb, ftol)) return rep.success();
  if ((fa > 0.0) == (fb > 0.0)) return rep.raise(ZE_FUNC_END_VAL, "a", "b", "a");

  // The core reports into a record of our own, silently.
  ZilError local{};
  local.print = FALSE;
  local.handler = nullptr;
  double c[17] = {};
  c[0] = fa;
  double y = a;
  double fx = fb;
  Integer ind = -1;
  for (;;) {
    c05azc(x, &y, fx, xtol, 1, c, &ind, &local);
    if (ind == 0) break;
    fx = f(*x);
    if (small_enough(fx, ftol)) {
      local.code = ZE_NOERROR;
      break;
    }
  }

  switch (local.code) {
    case ZE_NOERROR:
      rep.success();
      break;
    case ZE_PROBABLE_POLE:
      rep.raise(ZE_PROBABLE_POLE, "[a,b]");
      break;
    case ZE_XTOL_TOO_SMALL:
      rep.raise(ZE_XTOL_TOO_SMALL, xtol);
      break;
    default:
      rep.raise_text(local.code, "%s", local.message);
      break;
  }
}

}  // namespace
}  // namespace zil::zeros

extern "C" void c05adc(double a, double b, double* x, double (*f)(double), double xtol, double ftol,
                       ZilError* fail) {
  zil::zeros::bracketed_zero("c05adc", a, b, x, [f](double t) { return f(t); }, xtol, ftol, fail);
}

extern "C" void c05sdc(double a, double b, double* x, double (*f)(double, Zil_Comm*), double xtol, double ftol,
                       Zil_Comm* comm, ZilError* fail) {
  zil::zeros::bracketed_zero("c05sdc", a, b, x, [f, comm](double t) { return f(t, comm); }, xtol, ftol, fail);
}

ZIL_ALIAS(c05adc, zil_zero_cont_func_bd);
ZIL_ALIAS(c05sdc, zil_zero_cont_func_bd_1);
