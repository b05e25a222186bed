// d01ajc (general integrand, extrapolated), d01akc (61-point rule, no
// extrapolation) and d01amc (infinite range), in both forms, and the inner
// forms D01AJF and D01AMF.
#include <cmath>

#include "frame/export.hpp"
#include "frame/inner.hpp"
#include "quadrature/detail/frame.hpp"
#include "quadrature/quadrature.hpp"
#include "zil_enums.h"

namespace zil::quad {
namespace {

// The 61-point rule is the published key 6; the key scales two constants.
constexpr int kKey = 6;

template <class F>
Outcome qags(F& f, const Lists& L, double a, double b, double epsabs, double epsrel,
             const Machine& m) {
  Bisect fam{[&](double p, double q) { return gk21(f, p, q, m); }};
  return run_single<Variant::General>(fam, LoopConstants{}, L, a, b, epsabs, epsrel, 100.0, m);
}

template <class F>
Outcome qag(F& f, const Lists& L, double a, double b, double epsabs, double epsrel,
            const Machine& m) {
  Bisect fam{[&](double p, double q) { return gk61(f, p, q, m); }};
  LoopConstants K;
  K.extrapolate = false;
  K.bad_rel = 1000.0 * kKey;
  K.bad_abs = 10000.0;
  return run_single<Variant::Plain>(fam, K, L, a, b, epsabs, epsrel, 50.0 * kKey, m);
}

struct Tol {
  double abs, rel;
};
Tol tolerances(double epsabs, double epsrel) { return {std::fabs(epsabs), std::fabs(epsrel)}; }

template <class F>
void finite_range(const char* name, bool osc, F f, double a, double b, double epsabs,
                  double epsrel, Integer limit, double* result, double* abserr,
                  Zil_QuadReport* qp, ZilError* fail) {
  Reporter rep(fail, name);
  if (rep.int_lt("max_num_subint", limit, 1)) return;
  ResultLists w(limit, false);
  if (!w) return rep.alloc_fail();
  const Machine m;
  const Tol t = tolerances(epsabs, epsrel);
  const Lists L = w.lists(limit);
  const Outcome o = osc ? qag(f, L, a, b, t.abs, t.rel, m) : qags(f, L, a, b, t.abs, t.rel, m);
  *result = o.result;
  *abserr = o.abserr;
  const Integer evals = osc ? (2 * (o.last - 1) + 1) * (10 * kKey + 1) : 42 * o.last - 21;
  w.hand_over(qp, o.last, evals, o.linked);
  report_end(rep, o, EndText{"max_num_subint", limit, t.abs, t.rel});
}

template <class F>
void infinite_range(const char* name, F f, Integer boundinf, double bound, double epsabs,
                    double epsrel, Integer limit, double* result, double* abserr,
                    Zil_QuadReport* qp, ZilError* fail) {
  Reporter rep(fail, name);
  if (rep.enum_in(boundinf == Zil_UpperSemiInfinite || boundinf == Zil_LowerSemiInfinite ||
                      boundinf == Zil_Infinite,
                  "boundinf"))
    return;
  if (rep.int_lt("max_num_subint", limit, 1)) return;
  ResultLists w(limit, false);
  if (!w) return rep.alloc_fail();
  const Machine m;
  const Tol t = tolerances(epsabs, epsrel);
  const int inf = boundinf == Zil_UpperSemiInfinite ? 1 : boundinf == Zil_LowerSemiInfinite ? -1 : 2;
  const Outcome o = qagi(f, w.lists(limit), bound, inf, t.abs, t.rel, m);
  *result = o.result;
  *abserr = o.abserr;
  w.hand_over(qp, o.last, (30 * o.last - 15) * (inf == 2 ? 2 : 1), o.linked);
  EndText et{"max_num_subint", limit, t.abs, t.rel};
  et.both_sides = inf == 2;
  Outcome shown = o;
  if (o.ier == 3) {
    // Name the interval in x rather than in the variable of (0, 1).
    const double b0 = inf == 2 ? 0.0 : bound, dinf = inf == -1 ? -1.0 : 1.0;
    const double x1 = b0 + dinf * (1.0 - o.bad_a) / o.bad_a;
    const double x2 = b0 + dinf * (1.0 - o.bad_b) / o.bad_b;
    shown.bad_a = std::min(x1, x2);
    shown.bad_b = std::max(x1, x2);
  }
  report_end(rep, shown, et);
}

// The inner forms: the lists live in the caller's W and IW.
struct InnerFun {
  InnerQuadFun f;
  double operator()(double x) const { return f(x); }
};

template <class Run>
void inner_run(const char* srname, double& result, double& abserr, double* w, Integer lw,
               Integer* iw, Integer liw, Integer& ifail, Run run) {
  const Integer limit = lw / 4;
  if (lw < 4 || liw < limit || limit < 1) {
    ifail = inner_exit_r(ifail, 6, srname,
                         edit_format("(' ** On entry, LW.lt.4 or LIW.lt.LW/4: LW =',I8,', LIW =',I8)",
                                     static_cast<long>(lw), static_cast<long>(liw)));
    return;
  }
  const Lists L{w, w + limit, w + 2 * limit, w + 3 * limit, iw, nullptr, limit};
  const Machine m;
  const Outcome o = run(L, m);
  result = o.result;
  abserr = o.abserr;
  iw[0] = o.last;
  static const char* const texts[] = {
      "",
      "(' ** The maximum number of subdivisions (LW/4 =',I8,') has been reached')",
      "(' ** Round-off error prevents the requested tolerance from being achieved')",
      "(' ** Extremely bad integrand behaviour occurs around the sub-interval (',1P,E13.5,',',E13.5,')')",
      "(' ** Round-off error is detected in the extrapolation table')",
      "(' ** The integral is probably divergent or slowly convergent')"};
  if (o.ier == 0) {
    ifail = 0;
  } else if (o.ier == 1) {
    ifail = inner_exit_r(ifail, 1, srname, edit_format(texts[1], static_cast<long>(limit)));
  } else if (o.ier == 3) {
    ifail = inner_exit_r(ifail, 3, srname, edit_format(texts[3], o.bad_a, o.bad_b));
  } else {
    ifail = inner_exit_r(ifail, o.ier, srname, edit_format(texts[o.ier]));
  }
}

}  // namespace
}  // namespace zil::quad

namespace zil {

void D01AJF(InnerQuadFun f, double a, double b, double epsabs, double epsrel, double& result,
            double& abserr, double* w, Integer lw, Integer* iw, Integer liw, Integer& ifail) {
  quad::InnerFun g{f};
  quad::inner_run("D01AJF", result, abserr, w, lw, iw, liw, ifail,
                  [&](const quad::Lists& L, const quad::Machine& m) {
                    return quad::qags(g, L, a, b, std::fabs(epsabs), std::fabs(epsrel), m);
                  });
}

void D01AMF(InnerQuadFun f, double bound, Integer inf, double epsabs, double epsrel,
            double& result, double& abserr, double* w, Integer lw, Integer* iw, Integer liw,
            Integer& ifail) {
  quad::InnerFun g{f};
  const int k = inf == 2 ? 2 : inf < 0 ? -1 : 1;
  quad::inner_run("D01AMF", result, abserr, w, lw, iw, liw, ifail,
                  [&](const quad::Lists& L, const quad::Machine& m) {
                    return quad::qagi(g, L, bound, k, std::fabs(epsabs), std::fabs(epsrel), m);
                  });
}

}  // namespace zil

using zil::quad::CommFun;
using zil::quad::PlainFun;

extern "C" {

void d01ajc(Zil_QuadFun f, double a, double b, double epsabs, double epsrel, Integer max_num_subint,
            double* result, double* abserr, Zil_QuadReport* qp, ZilError* fail) {
  zil::quad::finite_range("d01ajc", false, PlainFun{f}, a, b, epsabs, epsrel, max_num_subint,
                          result, abserr, qp, fail);
}
void d01sjc(Zil_QuadFunComm f, double a, double b, double epsabs, double epsrel,
            Integer max_num_subint, double* result, double* abserr, Zil_QuadReport* qp,
            Zil_Comm* comm, ZilError* fail) {
  zil::quad::finite_range("d01sjc", false, CommFun{f, comm}, a, b, epsabs, epsrel,
                          max_num_subint, result, abserr, qp, fail);
}
void d01akc(Zil_QuadFun f, double a, double b, double epsabs, double epsrel, Integer max_num_subint,
            double* result, double* abserr, Zil_QuadReport* qp, ZilError* fail) {
  zil::quad::finite_range("d01akc", true, PlainFun{f}, a, b, epsabs, epsrel, max_num_subint,
                          result, abserr, qp, fail);
}
void d01skc(Zil_QuadFunComm f, double a, double b, double epsabs, double epsrel,
            Integer max_num_subint, double* result, double* abserr, Zil_QuadReport* qp,
            Zil_Comm* comm, ZilError* fail) {
  zil::quad::finite_range("d01skc", true, CommFun{f, comm}, a, b, epsabs, epsrel,
                          max_num_subint, result, abserr, qp, fail);
}
void d01amc(Zil_QuadFun f, Integer boundinf, double bound, double epsabs, double epsrel,
            Integer max_num_subint, double* result, double* abserr, Zil_QuadReport* qp,
            ZilError* fail) {
  zil::quad::infinite_range("d01amc", PlainFun{f}, boundinf, bound, epsabs, epsrel,
                            max_num_subint, result, abserr, qp, fail);
}
void d01smc(Zil_QuadFunComm f, Integer boundinf, double bound, double epsabs, double epsrel,
            Integer max_num_subint, double* result, double* abserr, Zil_QuadReport* qp,
            Zil_Comm* comm, ZilError* fail) {
  zil::quad::infinite_range("d01smc", CommFun{f, comm}, boundinf, bound, epsabs, epsrel,
                            max_num_subint, result, abserr, qp, fail);
}

}  // extern "C"

ZIL_ALIAS(d01ajc, zil_1d_quad_gen);
ZIL_ALIAS(d01sjc, zil_1d_quad_gen_1);
ZIL_ALIAS(d01akc, zil_1d_quad_osc);
ZIL_ALIAS(d01skc, zil_1d_quad_osc_1);
ZIL_ALIAS(d01amc, zil_1d_quad_inf);
ZIL_ALIAS(d01smc, zil_1d_quad_inf_1);
