// The public drivers of the hybrid method: c05nbc and c05tbc difference the
// Jacobian, c05pbc and c05ubc take the caller's; and the exported c05nct
// with every control open.
#include <algorithm>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "frame/workspace.hpp"
#include "zeros/detail/hybrid.hpp"
#include "zil_errors.h"
#include "zil_zeros.h"

namespace zil::zeros {
namespace {

// The caller's function giving values only.
template <class F>
class ValueSystem final : public System {
 public:
  explicit ValueSystem(F f) : f_(f) {}
  void values(const double* x, double* fvec, Integer& flag) override { f_(x, fvec, flag); }

 private:
  F f_;
};

// The caller's function giving values (flag 1) or the Jacobian (flag 2)
// into the caller's fjac.
template <class F>
class JacobianSystem final : public System {
 public:
  explicit JacobianSystem(F f) : f_(f) { has_jacobian = true; }
  void values(const double* x, double* fvec, Integer& flag) override { f_(x, fvec, flag); }
  void jacobian(const double* x, double* fvec, Integer& flag) override { f_(x, fvec, flag); }

 private:
  F f_;
};

// Steps 2 to 5 of every driver, after its own argument checks: one block,
// the core with the drivers' fixed controls, the mapping of its end.
void run_driver(Reporter& rep, System& sys, Integer n, double* x, double* fvec, double xtol, double* user_fjac,
                Integer tdfjac) {
  Workspace<double> block(hybrid_block_size(n));
  if (!block) return rep.alloc_fail();
  HybridWork w = hybrid_cut(n, block.get());
  if (user_fjac) w.fjac = Matrix{user_fjac, tdfjac, 1};
  std::fill(w.diag, w.diag + n, 1.0);

  const Integer per = sys.has_jacobian ? 100 : 200;
  const HybridControl ctl{xtol, per * (n + 1), n - 1, n - 1, 0.0, 2, 100.0, 0};
  const HybridResult res = hybrid(sys, n, x, fvec, ctl, w);

  if (res.info < 0) {
    rep.set_errnum(res.info);
    return rep.raise(ZE_USER_STOP, res.info);
  }
  switch (res.info) {
    case 2:
      return rep.raise(ZE_TOO_MANY_FUNC_EVAL, sys.has_jacobian ? "100*(n+1)" : "200*(n+1)");
    case 3:
      return rep.raise(ZE_XTOL_TOO_SMALL, xtol);
    case 4:
    case 5:
      return rep.raise_plain(ZE_NO_IMPROVEMENT);
    default:
      return rep.success();
  }
}

// The checks, in the order the drivers state them: n, xtol, then tdfjac
// for a caller's Jacobian; the arrays and the function last.
bool bad_arguments(Reporter& rep, Integer n, const double* x, const double* fvec, const double* fjac,
                   bool with_fjac, Integer tdfjac, const void* f, double xtol) {
  if (rep.int_le("n", n, 0)) return true;
  if (rep.real_lt("xtol", xtol, 0.0, "0.0")) return true;
  if (with_fjac && rep.int2_lt("tdfjac", tdfjac, "n", n)) return true;
  return rep.null_param(x, "x") || rep.null_param(fvec, "fvec") || (with_fjac && rep.null_param(fjac, "fjac")) ||
         rep.null_param(f, "f");
}

template <class F>
void values_driver(const char* routine, Integer n, double* x, double* fvec, const void* fptr, F call, double xtol,
                   ZilError* fail) {
  Reporter rep(fail, routine);
  if (bad_arguments(rep, n, x, fvec, nullptr, false, 0, fptr, xtol)) return;
  ValueSystem sys(call);
  run_driver(rep, sys, n, x, fvec, xtol, nullptr, 0);
}

template <class F>
void jacobian_driver(const char* routine, Integer n, double* x, double* fvec, double* fjac, Integer tdfjac,
                     const void* fptr, F call, double xtol, ZilError* fail) {
  Reporter rep(fail, routine);
  if (bad_arguments(rep, n, x, fvec, fjac, true, tdfjac, fptr, xtol)) return;
  JacobianSystem sys(call);
  run_driver(rep, sys, n, x, fvec, xtol, fjac, tdfjac);
}

}  // namespace
}  // namespace zil::zeros

using zil::zeros::jacobian_driver;
using zil::zeros::values_driver;

extern "C" {

void c05nbc(Integer n, double x[], double fvec[], void (*f)(Integer, const double[], double[], Integer*),
            double xtol, ZilError* fail) {
  values_driver(
      "c05nbc", n, x, fvec, reinterpret_cast<const void*>(f),
      [f, n](const double* xx, double* fv, Integer& flag) { f(n, xx, fv, &flag); }, xtol, fail);
}

void c05tbc(Integer n, double x[], double fvec[], void (*f)(Integer, const double[], double[], Integer*, Zil_Comm*),
            double xtol, Zil_Comm* comm, ZilError* fail) {
  values_driver(
      "c05tbc", n, x, fvec, reinterpret_cast<const void*>(f),
      [f, n, comm](const double* xx, double* fv, Integer& flag) { f(n, xx, fv, &flag, comm); }, xtol, fail);
}

void c05pbc(Integer n, double x[], double fvec[], double fjac[], Integer tdfjac,
            void (*f)(Integer, const double[], double[], double[], Integer, Integer*), double xtol, ZilError* fail) {
  jacobian_driver(
      "c05pbc", n, x, fvec, fjac, tdfjac, reinterpret_cast<const void*>(f),
      [=](const double* xx, double* fv, Integer& flag) { f(n, xx, fv, fjac, tdfjac, &flag); }, xtol, fail);
}

void c05ubc(Integer n, double x[], double fvec[], double fjac[], Integer tdfjac,
            void (*f)(Integer, const double[], double[], double[], Integer, Integer*, Zil_Comm*), double xtol,
            Zil_Comm* comm, ZilError* fail) {
  jacobian_driver(
      "c05ubc", n, x, fvec, fjac, tdfjac, reinterpret_cast<const void*>(f),
      [=](const double* xx, double* fv, Integer& flag) { f(n, xx, fv, fjac, tdfjac, &flag, comm); }, xtol, fail);
}

void c05nct(Integer n, double x[], double fvec[], void (*f)(Integer, const double[], double[], Integer*, Zil_Comm*),
            double xtol, Integer maxfev, Integer ml, Integer mu, double epsfcn, double diag[], Integer mode,
            double factor, Integer nprint, Integer* nfev, double fjac[], Integer tdfjac, double r[], Integer lr,
            double qtf[], double w[], Zil_Comm* comm, Integer* ifail) {
  using namespace zil::zeros;
  *nfev = 0;
  *ifail = 0;
  if (n <= 0 || tdfjac < n || lr < static_cast<long long>(n) * (n + 1) / 2) return;
  const std::size_t m = static_cast<std::size_t>(n);
  HybridWork work{diag, qtf, r, {w, w + m, w + 2 * m, w + 3 * m}, Matrix{fjac, tdfjac, 1}};
  auto call = [f, n, comm](const double* xx, double* fv, Integer& flag) { f(n, xx, fv, &flag, comm); };
  ValueSystem sys(call);
  const HybridControl ctl{xtol, maxfev, ml, mu, epsfcn, mode, factor, nprint};
  const HybridResult res = hybrid(sys, n, x, fvec, ctl, work);
  *nfev = res.nfev;
  *ifail = res.info;
}

}  // extern "C"

ZIL_ALIAS(c05nbc, zil_zero_nonlin_eqns);
ZIL_ALIAS(c05pbc, zil_zero_nonlin_eqns_deriv);
ZIL_ALIAS(c05tbc, zil_zero_nonlin_eqns_1);
ZIL_ALIAS(c05ubc, zil_zero_nonlin_eqns_deriv_1);
