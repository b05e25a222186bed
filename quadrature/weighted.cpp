// The integrators with a weight function: d01anc (cos or sin of omega x),
// d01apc (algebraic-logarithmic end singularities), d01aqc (Cauchy principal
// value) and d01asc (Fourier integral over a semi-infinite range), in both
// forms.  All run the shared loop; their rules are the 25-point modified
// Clenshaw-Curtis rules of cc25.hpp.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "frame/export.hpp"
#include "quadrature/detail/cc25.hpp"
#include "quadrature/detail/frame.hpp"
#include "zil_enums.h"

namespace zil::quad {
namespace {

// The lists after the first rule(s), slot 1 holding [a, b] or its left half.
void first_slot(const Lists& L, int i, double a, double b, const Est& e) {
  L.a(i) = a;
  L.b(i) = b;
  L.r(i) = e.result;
  L.e(i) = e.abserr;
  L.ord(i) = i;
}

// Hands the lists and the counts to the caller and reports the end.
void finish(Reporter& rep, ResultLists& w, const Outcome& o, Integer evals, double* result,
            double* abserr, Zil_QuadReport* qp, const EndText& et) {
  *result = o.result;
  *abserr = o.abserr;
  w.hand_over(qp, o.last, evals, o.linked);
  report_end(rep, o, et);
}

// ---- Cauchy principal value (QAWC) -----------------------------------------

template <class F>
struct CauchyFamily {
  F& f;
  double c;
  const Machine& m;
  int kr = 0;  // the published krule: 0 when both halves took the moments
  Est rule(double a, double b, int, bool right) {
    if (!right) kr = 0;
    const double cc = (2.0 * c - b - a) / (b - a);
    if (std::fabs(cc) >= 1.1) {
      auto w = [this](double x) { return 1.0 / (x - c); };
      const Est e = gk15_weighted(f, w, a, b, m);
      if (e.resasc != e.abserr) --kr;
      return e;
    }
    return cc25_cauchy(f, a, b, cc);
  }
  // Bisect, but never at c itself: a half with c inside is cut between c
  // and its far end.
  double split(double a, double b) const {
    const double mid = 0.5 * (a + b);
    if (c <= mid && c > a) return 0.5 * (c + b);
    if (c > mid && c < b) return 0.5 * (a + c);
    return mid;
  }
  bool watch_roundoff(double, double, const Est&, const Est&) const { return kr == 0; }
};

template <class F>
Outcome qawc(F& f, const Lists& L, double a, double b, double c, double epsabs, double epsrel,
             const Machine& m) {
  CauchyFamily<F> fam{f, c, m};
  const Est e = fam.rule(a, b, 0, false);
  first_slot(L, 1, a, b, e);
  Outcome o;
  o.result = e.result;
  o.abserr = e.abserr;
  o.last = 1;
  const double errbnd = std::max(epsabs, epsrel * std::fabs(e.result));
  // The published test is strict and also asks for two correct digits: the
  // Clenshaw-Curtis estimate of a principal value can be small by chance.
  if (e.abserr < std::min(0.01 * std::fabs(e.result), errbnd)) return o;
  if (L.limit == 1) {
    o.ier = 1;
    return o;
  }
  const Start s{e.result, e.abserr, e.resabs, e.resasc, 1, a, b};
  return adapt<Variant::Plain>(fam, LoopConstants{}, L, s, epsabs, epsrel, m);
}

// ---- Algebraic-logarithmic weight (QAWS) -----------------------------------

template <class F>
struct AlgLogFamily {
  F& f;
  AlgLog w;
  EndMoments mo;
  const Machine& m;
  Est rule(double a, double b, int, bool) { return cc25_alglog(f, w, mo, a, b, m); }
  static double split(double a, double b) { return 0.5 * (a + b); }
  // The end intervals, where the moments integrate the singularity, are not
  // judged by the round-off counters.
  bool watch_roundoff(double a1, double b2, const Est& r1, const Est& r2) const {
    return a1 != w.a && b2 != w.b && distinct(r1, r2);
  }
};

// Starts from both halves of [a, b], so that each end singularity has its
// own interval from the outset.  With room for one interval only, the two
// are reported as one.
template <class F>
Outcome qaws(F& f, const Lists& L, Integer limit, double a, double b, double alfa, double beta,
             int kind, double epsabs, double epsrel, const Machine& m) {
  AlgLogFamily<F> fam{f, AlgLog{a, b, alfa, beta, kind}, end_moments(alfa, beta), m};
  const double centre = 0.5 * (a + b);
  const Est e1 = fam.rule(a, centre, 0, false);
  const Est e2 = fam.rule(centre, b, 0, true);
  first_slot(L, 1, a, centre, e1);
  first_slot(L, 2, centre, b, e2);
  if (e2.abserr > e1.abserr) {
    L.ord(1) = 2;
    L.ord(2) = 1;
  }
  Outcome o;
  o.result = e1.result + e2.result;
  o.abserr = e1.abserr + e2.abserr;
  o.last = 2;
  const double errbnd = std::max(epsabs, epsrel * std::fabs(o.result));
  if (o.abserr > errbnd && limit <= 2) o.ier = 1;
  if (limit == 1) {
    L.b(1) = b;
    L.r(1) = o.result;
    L.e(1) = o.abserr;
    o.last = 1;
  }
  if (o.abserr <= errbnd || o.ier != 0) return o;
  const Lists Lr{L.alist, L.blist, L.rlist, L.elist, L.iord, L.level, limit};
  const Start s{o.result, o.abserr, 0.0, 0.0, 2, a, b};
  return adapt<Variant::Plain>(fam, LoopConstants{}, Lr, s, epsabs, epsrel, m);
}

// ---- Trigonometric weight (QAWO) --------------------------------------------

template <class F>
struct TrigFamily {
  F& f;
  double omega;  // |omega|
  bool sine;
  TrigMoments& store;
  const Machine& m;
  Est rule(double a, double b, int level, bool right) {
    return cc25_trig(f, a, b, omega, sine, level, right, store, m);
  }
  static double split(double a, double b) { return 0.5 * (a + b); }
  static bool watch_roundoff(double, double, const Est& r1, const Est& r2) { return distinct(r1, r2); }
};

template <class F>
Outcome qawo(F& f, const Lists& L, double a, double b, double omega, bool sine,
             TrigMoments& store, double epsabs, double epsrel, const Machine& m) {
  TrigFamily<F> fam{f, std::fabs(omega), sine, store, m};
  LoopConstants K;
  K.small0 = 0.75;
  Outcome o = run_single<Variant::Trig>(fam, K, L, a, b, epsabs, epsrel, 100.0, m, omega);
  // sin(-w x) = -sin(w x); the rule ran with |omega|.
  if (sine && omega < 0.0) o.result = -o.result;
  return o;
}

// ---- Public forms --------------------------------------------------------

template <class F>
void wt_cauchy(const char* name, F f, double a, double b, double c, double epsabs, double epsrel,
               Integer limit, double* result, double* abserr, Zil_QuadReport* qp, ZilError* fail) {
  Reporter rep(fail, name);
  if (rep.require(c != a, ZE_2_REAL_ARG_EQ, "c", c, "a", a, "c", "a")) return;
  if (rep.require(c != b, ZE_2_REAL_ARG_EQ, "c", c, "b", b, "c", "b")) return;
  if (rep.int_lt("max_num_subint", limit, 1)) return;
  ResultLists w(limit, false);
  if (!w) return rep.alloc_fail();
  const Machine m;
  epsabs = std::fabs(epsabs);
  epsrel = std::fabs(epsrel);
  Counted<F> cf{f};
  const double sign = a > b ? -1.0 : 1.0;
  Outcome o = qawc(cf, w.lists(limit), std::min(a, b), std::max(a, b), c, epsabs, epsrel, m);
  o.result *= sign;
  finish(rep, w, o, cf.n, result, abserr, qp, EndText{"max_num_subint", limit, epsabs, epsrel});
}

template <class F>
void wt_alglog(const char* name, F f, double a, double b, double alfa, double beta,
               Integer wt_func, double epsabs, double epsrel, Integer limit, double* result,
               double* abserr, Zil_QuadReport* qp, ZilError* fail) {
  Reporter rep(fail, name);
  if (rep.require(b > a, ZE_2_REAL_ARG_LE, "b", b, "a", a, "b", "a")) return;
  if (rep.real_le("alfa", alfa, -1.0, "-1.0")) return;
  if (rep.real_le("beta", beta, -1.0, "-1.0")) return;
  if (rep.enum_in(wt_func >= Zil_Alg && wt_func <= Zil_Alg_loga_logb, "wt_func")) return;
  if (rep.int_lt("max_num_subint", limit, 1)) return;
  // Two slots at least: the run starts from both halves.
  ResultLists w(std::max<Integer>(limit, 2), false);
  if (!w) return rep.alloc_fail();
  const Machine m;
  epsabs = std::fabs(epsabs);
  epsrel = std::fabs(epsrel);
  Counted<F> cf{f};
  const int kind = static_cast<int>(wt_func - Zil_Alg) + 1;
  const Outcome o = qaws(cf, w.lists(std::max<Integer>(limit, 2)), limit, a, b, alfa, beta, kind,
                         epsabs, epsrel, m);
  finish(rep, w, o, cf.n, result, abserr, qp, EndText{"max_num_subint", limit, epsabs, epsrel});
}

template <class F>
void wt_trig(const char* name, F f, double a, double b, double omega, Integer wt_func,
             double epsabs, double epsrel, Integer limit, double* result, double* abserr,
             Zil_QuadReport* qp, ZilError* fail) {
  Reporter rep(fail, name);
  if (rep.enum_in(wt_func == Zil_Cosine || wt_func == Zil_Sine, "wt_func")) return;
  if (rep.int_lt("max_num_subint", limit, 1)) return;
  ResultLists w(limit, true);
  if (!w) return rep.alloc_fail();
  const Machine m;
  epsabs = std::fabs(epsabs);
  epsrel = std::fabs(epsrel);
  Counted<F> cf{f};
  TrigMoments store;
  const Outcome o = qawo(cf, w.lists(limit), a, b, omega, wt_func == Zil_Sine, store, epsabs,
                         epsrel, m);
  finish(rep, w, o, cf.n, result, abserr, qp, EndText{"max_num_subint", limit, epsabs, epsrel});
}

// ---- Fourier integral over (a, infinity) (QAWF) ---------------------------

// The failure of one cycle, reported at once; a later report replaces it.
void report_cycle(Reporter& rep, int ier, Integer k, Integer limit, double c1, double c2) {
  const char* sfx = ordinal_suffix(k);
  const long idx = k - 1, flag = ier;
  switch (ier) {
    case 1:
      rep.raise(ZE_QUAD_MAX_SUBDIV_SPEC_INT, "maxsubint_per_int", static_cast<long>(limit),
                static_cast<long>(k), sfx, idx, flag, c1, c2);
      break;
    case 2:
      rep.raise(ZE_QUAD_ROUNDOFF_TOL_SPEC_INT, static_cast<long>(k), sfx, idx, flag, c1, c2);
      break;
    case 3:
      rep.raise(ZE_QUAD_BAD_SPEC_INT, static_cast<long>(k), sfx, idx, flag, c1, c2);
      break;
    case 4:
      rep.raise(ZE_QUAD_NO_CONV_SPEC_INT, static_cast<long>(k), sfx, idx, flag, c1, c2);
      break;
    default:
      rep.raise(ZE_QUAD_DIVERGENCE_SPEC_INT, static_cast<long>(k), sfx, idx, flag, c1, c2);
      break;
  }
}

struct CycleOutcome {
  double result = 0.0, abserr = 0.0;
  int ier = 0;
  Integer count = 0, max_used = 0;
  double bad_a = 0.0, bad_b = 0.0;
};

// Integrates cycle after cycle of length (2*trunc|omega| + 1)*pi/|omega|,
// each to a tolerance shrinking by 0.9, and extrapolates the partial sums
// with the epsilon algorithm (the published QAWF).
template <class F>
CycleOutcome qawf(F& f, Reporter& rep, const Lists& L, double a, double omega, bool sine,
                  Integer maxintervals, double epsabs, double* res, double* err, Integer* flag,
                  const Machine& m) {
  CycleOutcome co;
  co.count = 1;
  if (omega == 0.0) {
    // cos(0 x) = 1: an integral over an infinite range; sin(0 x) = 0.
    if (!sine) {
      const Outcome o = qagi(f, L, a, 1, epsabs, 0.0, m);
      co.result = o.result;
      co.abserr = o.abserr;
      co.ier = o.ier;
      co.max_used = o.last;
      co.bad_a = o.bad_a;
      co.bad_b = o.bad_b;
      res[0] = o.result;
      err[0] = o.abserr;
      flag[0] = o.ier;
    }
    return co;
  }
  constexpr double p = 0.9, p1 = 1.0 - p;
  const double cycle = (2.0 * std::trunc(std::fabs(omega)) + 1.0) * std::numbers::pi / std::fabs(omega);
  double eps = epsabs;
  if (epsabs > m.uflow / p1) eps = epsabs * p1;
  const double ep = eps;
  double fact = 1.0, correc = 0.0, errsum = 0.0, drl = 0.0;
  int ktmin = 0, numrl2 = 0, ll = 0, ier = 0;
  Epsilon psum(m);
  TrigMoments store;  // every cycle has the same length: the moments carry over
  double c1 = a, c2 = a + cycle;
  bool plain = false;
  Integer lst = 1;
  for (;; ++lst) {
    const Outcome o = qawo(f, L, c1, c2, omega, sine, store, eps * fact, 0.0, m);
    res[lst - 1] = o.result;
    err[lst - 1] = o.abserr;
    flag[lst - 1] = o.ier;
    co.max_used = std::max<Integer>(co.max_used, o.last);
    fact *= p;
    errsum += o.abserr;
    drl = 50.0 * std::fabs(o.result);
    // The tail is negligible once six cycles are in and the last is small.
    if (errsum + drl <= epsabs && lst >= 6) {
      plain = true;
      break;
    }
    correc = std::max(correc, o.abserr);
    if (o.ier != 0) {
      eps = std::max(ep, correc * p1);
      ier = 7;
      report_cycle(rep, o.ier, lst, L.limit, c1, c2);
    }
    if (ier == 7 && errsum + drl <= correc * 10.0 && lst > 5) {
      plain = true;
      break;
    }
    ++numrl2;
    if (lst == 1) {
      psum.at(1) = o.result;
    } else {
      psum.at(numrl2) = psum.at(ll) + o.result;
      if (lst > 2) {
        if (lst == maxintervals) ier = 8;
        double reseps = 0.0, abseps = 0.0;
        psum.run(numrl2, reseps, abseps);
        ++ktmin;
        if (ktmin >= 15 && co.abserr <= 1.0e-3 * (errsum + drl)) ier = 9;
        if (abseps <= co.abserr || lst == 3) {
          co.abserr = abseps;
          co.result = reseps;
          ktmin = 0;
          if (co.abserr + 10.0 * correc <= epsabs ||
              (co.abserr <= epsabs && 10.0 * correc >= epsabs))
            break;
        }
        if (ier != 0 && ier != 7) break;
      }
    }
    if (lst == maxintervals) break;
    ll = numrl2;
    c1 = c2;
    c2 += cycle;
  }
  co.count = lst;
  if (!plain) {
    // Between the extrapolated and the plain sum, by their error per result.
    co.abserr += 10.0 * correc;
    if (ier == 0) {
      co.ier = 0;
      return co;
    }
    const double last_sum = psum.at(numrl2);
    bool ratio = co.result != 0.0 && last_sum != 0.0;
    if (!ratio) {
      if (co.abserr > errsum) {
        plain = true;
      } else if (last_sum != 0.0) {
        ratio = true;
      }
    }
    if (ratio) {
      if (co.abserr / std::fabs(co.result) > (errsum + drl) / std::fabs(last_sum))
        plain = true;
      else if (ier >= 1 && ier != 7)
        co.abserr += drl;
    }
  }
  if (plain) {
    co.result = psum.at(numrl2);
    co.abserr = errsum + drl;
  }
  co.ier = ier;
  return co;
}

template <class F>
void inf_wt_trig(const char* name, F f, double a, double omega, Integer wt_func,
                 Integer maxintervals, Integer limit, double epsabs, double* result,
                 double* abserr, Zil_QuadCycleReport* qp, ZilError* fail) {
  Reporter rep(fail, name);
  if (rep.enum_in(wt_func == Zil_Cosine || wt_func == Zil_Sine, "wt_func")) return;
  if (rep.int_lt("maxintervals", maxintervals, 3)) return;
  if (rep.int_lt("maxsubint_per_int", limit, 1)) return;
  Workspace<double> res(maxintervals), err(maxintervals);
  Workspace<Integer> flag(maxintervals);
  ResultLists w(limit, true);
  if (!res || !err || !flag || !w) return rep.alloc_fail();
  std::fill(res.get(), res.get() + maxintervals, 0.0);
  std::fill(err.get(), err.get() + maxintervals, 0.0);
  std::fill(flag.get(), flag.get() + maxintervals, Integer{0});
  const Machine m;
  epsabs = std::fabs(epsabs);
  Counted<F> cf{f};
  const CycleOutcome co = qawf(cf, rep, w.lists(limit), a, omega, wt_func == Zil_Sine, maxintervals,
                               epsabs, res.get(), err.get(), flag.get(), m);
  *result = co.result;
  *abserr = co.abserr;
  qp->interval_count = co.count;
  qp->eval_count = cf.n;
  qp->max_subint_used = co.max_used;
  qp->interval_error = err.release();
  qp->interval_result = res.release();
  qp->interval_flag = flag.release();
  switch (co.ier) {
    case 0: return rep.success();
    case 1: return rep.raise(ZE_QUAD_MAX_SUBDIV, "maxsubint_per_int", static_cast<long>(limit));
    case 2: return rep.raise(ZE_QUAD_ROUNDOFF_ABS_TOL, epsabs);
    case 3: return rep.raise(ZE_QUAD_BAD_SUBDIV, co.bad_a, co.bad_b);
    case 4: return rep.raise(ZE_QUAD_ROUNDOFF_EXTRAPL);
    case 5: return rep.raise(ZE_QUAD_NO_CONV);
    case 7: return rep.raise(ZE_QUAD_BAD_SUBDIV_INT);
    case 8: return rep.raise(ZE_QUAD_MAX_INT);
    default: return rep.raise(ZE_QUAD_EXTRAPL_INT);
  }
}

}  // namespace
}  // namespace zil::quad

using zil::quad::CommFun;
using zil::quad::PlainFun;

extern "C" {

void d01anc(Zil_QuadFun f, double a, double b, double omega, Integer wt_func, double epsabs,
            double epsrel, Integer max_num_subint, double* result, double* abserr,
            Zil_QuadReport* qp, ZilError* fail) {
  zil::quad::wt_trig("d01anc", PlainFun{f}, a, b, omega, wt_func, epsabs, epsrel, max_num_subint,
                     result, abserr, qp, fail);
}
void d01snc(Zil_QuadFunComm f, double a, double b, double omega, Integer wt_func, double epsabs,
            double epsrel, Integer max_num_subint, double* result, double* abserr,
            Zil_QuadReport* qp, Zil_Comm* comm, ZilError* fail) {
  zil::quad::wt_trig("d01snc", CommFun{f, comm}, a, b, omega, wt_func, epsabs, epsrel,
                     max_num_subint, result, abserr, qp, fail);
}
void d01apc(Zil_QuadFun f, double a, double b, double alfa, double beta, Integer wt_func,
            double epsabs, double epsrel, Integer max_num_subint, double* result, double* abserr,
            Zil_QuadReport* qp, ZilError* fail) {
  zil::quad::wt_alglog("d01apc", PlainFun{f}, a, b, alfa, beta, wt_func, epsabs, epsrel,
                       max_num_subint, result, abserr, qp, fail);
}
void d01spc(Zil_QuadFunComm f, double a, double b, double alfa, double beta, Integer wt_func,
            double epsabs, double epsrel, Integer max_num_subint, double* result, double* abserr,
            Zil_QuadReport* qp, Zil_Comm* comm, ZilError* fail) {
  zil::quad::wt_alglog("d01spc", CommFun{f, comm}, a, b, alfa, beta, wt_func, epsabs, epsrel,
                       max_num_subint, result, abserr, qp, fail);
}
void d01aqc(Zil_QuadFun f, double a, double b, double c, double epsabs, double epsrel,
            Integer max_num_subint, double* result, double* abserr, Zil_QuadReport* qp,
            ZilError* fail) {
  zil::quad::wt_cauchy("d01aqc", PlainFun{f}, a, b, c, epsabs, epsrel, max_num_subint, result,
                       abserr, qp, fail);
}
void d01sqc(Zil_QuadFunComm f, double a, double b, double c, double epsabs, double epsrel,
            Integer max_num_subint, double* result, double* abserr, Zil_QuadReport* qp,
            Zil_Comm* comm, ZilError* fail) {
  zil::quad::wt_cauchy("d01sqc", CommFun{f, comm}, a, b, c, epsabs, epsrel, max_num_subint,
                       result, abserr, qp, fail);
}
void d01asc(Zil_QuadFun f, double a, double omega, Integer wt_func, Integer maxintervals,
            Integer maxsubint_per_int, double epsabs, double* result, double* abserr,
            Zil_QuadCycleReport* qp, ZilError* fail) {
  zil::quad::inf_wt_trig("d01asc", PlainFun{f}, a, omega, wt_func, maxintervals,
                         maxsubint_per_int, epsabs, result, abserr, qp, fail);
}
void d01ssc(Zil_QuadFunComm f, double a, double omega, Integer wt_func, Integer maxintervals,
            Integer maxsubint_per_int, double epsabs, double* result, double* abserr,
            Zil_QuadCycleReport* qp, Zil_Comm* comm, ZilError* fail) {
  zil::quad::inf_wt_trig("d01ssc", CommFun{f, comm}, a, omega, wt_func, maxintervals,
                         maxsubint_per_int, epsabs, result, abserr, qp, fail);
}

}  // extern "C"

ZIL_ALIAS(d01anc, zil_1d_quad_wt_trig);
ZIL_ALIAS(d01snc, zil_1d_quad_wt_trig_1);
ZIL_ALIAS(d01apc, zil_1d_quad_wt_alglog);
ZIL_ALIAS(d01spc, zil_1d_quad_wt_alglog_1);
ZIL_ALIAS(d01aqc, zil_1d_quad_wt_cauchy);
ZIL_ALIAS(d01sqc, zil_1d_quad_wt_cauchy_1);
ZIL_ALIAS(d01asc, zil_1d_quad_inf_wt_trig);
ZIL_ALIAS(d01ssc, zil_1d_quad_inf_wt_trig_1);
