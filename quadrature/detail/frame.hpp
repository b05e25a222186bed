// What the public integrators share around the core: the integrand adaptors
// of the two forms, the result arrays handed to the caller, the start of a
// run on one interval, and the map from the core's end to a public code.
#pragma once

#include <cmath>

#include "frame/report.hpp"
#include "frame/workspace.hpp"
#include "quadrature/detail/core.hpp"
#include "zil_quad.h"

namespace zil::quad {

// The plain and the comm forms differ only here.
struct PlainFun {
  Zil_QuadFun f;
  double operator()(double x) const { return f(x); }
};
struct CommFun {
  Zil_QuadFunComm f;
  Zil_Comm* comm;
  double operator()(double x) const { return f(x, comm); }
};

// The four arrays of Zil_QuadReport (taken from x04bbc, so that the caller can
// release them with x04bdc) and the workspace of the loop.
class ResultLists {
 public:
  // iord, the levels and the links share one block, held on the stack up
  // to 4096 entries (1000 subintervals with levels): a run takes no more
  // from the allocator than the four arrays it hands over.
  ResultLists(Integer n, bool levels)
      : n_(n), lo_(n), up_(n), res_(n), err_(n),
        iord_((levels ? 2 * std::size_t(n) : n) + 2 * (std::size_t(n) + 1)), levels_(levels) {}
  explicit operator bool() const { return lo_ && up_ && res_ && err_ && iord_; }
  Lists lists(Integer limit) {
    Integer* block = iord_.get();
    return Lists{lo_.get(), up_.get(), res_.get(), err_.get(), block,
                 levels_ ? block + n_ : nullptr, limit, block + (levels_ ? 2 : 1) * n_};
  }
  // Zero the tail, put the intervals in order of their left end and give the
  // arrays to the caller.  linked: the lists' link holds the order along the
  // range of all count slots.
  void hand_over(Zil_QuadReport* qp, Integer count, Integer evals, bool linked = false);

 private:
  // The intervals follow the link in ascending order of the left end, the
  // common case; false when the link is absent or its order is not that.
  bool place_by_link(Integer count);

  Integer n_;
  Workspace<double> lo_, up_, res_, err_;
  LocalWorkspace<Integer, 4096> iord_;
  bool levels_;
};

// Sorts the first n entries of the four arrays by the left end, with n
// Integers of scratch in index.
void order_by_left_end(double* lo, double* up, double* res, double* err, Integer n,
                       Integer* index);

// The published round-off counters skip a bisection where either half's error
// equals its resasc: the rule saw nothing to judge by there.
inline bool distinct(const Est& r1, const Est& r2) {
  return r1.resasc != r1.abserr && r2.resasc != r2.abserr;
}

// An integrand that counts its evaluations, for the rules whose point count
// varies from interval to interval.
template <class F>
struct Counted {
  F f;
  Integer n = 0;
  double operator()(double x) {
    ++n;
    return f(x);
  }
};
template <class F>
Counted(F) -> Counted<F>;

// A rule family over a plain callable rule on [a, b] with midpoint bisection.
template <class R>
struct Bisect {
  R rule_fn;
  Est rule(double a, double b, int, bool) { return rule_fn(a, b); }
  static double split(double a, double b) { return 0.5 * (a + b); }
  static bool watch_roundoff(double, double, const Est& r1, const Est& r2) {
    return distinct(r1, r2);
  }
};
template <class R>
Bisect(R) -> Bisect<R>;

// The first rule on [a, b] and the early tests, then the loop when they do
// not settle the run.  early: the factor of epmach*defabs under which an
// unmet tolerance is put down to round-off.
template <Variant V, class Fam>
Outcome run_single(Fam& fam, const LoopConstants& K, const Lists& L, double a, double b,
                   double epsabs, double epsrel, double early, const Machine& m,
                   double omega = 0.0) {
  const Est e = fam.rule(a, b, 0, false);
  L.a(1) = a;
  L.b(1) = b;
  L.r(1) = e.result;
  L.e(1) = e.abserr;
  L.ord(1) = 1;
  if (L.level) L.level[0] = 0;
  Outcome o;
  o.result = e.result;
  o.abserr = e.abserr;
  o.last = 1;
  const double errbnd = std::max(epsabs, epsrel * std::fabs(e.result));
  // An error equal to resasc comes from a rule that saw no variation to
  // judge by, e.g. a low-degree polynomial: that alone is no convergence.
  if ((e.abserr <= errbnd && e.abserr != e.resasc) || e.abserr == 0.0) return o;
  if (L.limit == 1) o.ier = 1;
  if (e.abserr <= early * m.epmach * e.resabs && e.abserr > errbnd) o.ier = 2;
  if (o.ier != 0) return o;
  const Start s{e.result, e.abserr, e.resabs, e.resasc, 1, a, b, std::fabs(omega)};
  return adapt<V>(fam, K, L, s, epsabs, epsrel, m);
}

// dinf and the folded flag of an infinite range; an unfolded range starts at
// bound, a folded one at 0.
template <class F>
Outcome qagi(F& f, const Lists& L, double bound, int inf, double epsabs, double epsrel,
             const Machine& m) {
  const double dinf = inf == -1 ? -1.0 : 1.0;
  const bool both = inf == 2;
  const double b0 = both ? 0.0 : bound;
  Bisect fam{[&](double p, double q) { return gk15_inf(f, b0, dinf, both, p, q, m); }};
  return run_single<Variant::General>(fam, LoopConstants{}, L, 0.0, 1.0, epsabs, epsrel, 100.0, m);
}

// Reports the end of a run: ier as the core leaves it (1 limit, 2 round-off,
// 3 bad integrand, 4 round-off in extrapolation, 5 divergence, 6 break points).
struct EndText {
  const char* limit_name = "max_num_subint";
  Integer limit = 0;
  double epsabs = 0.0, epsrel = 0.0;
  bool both_sides = false;  // an infinite range folded at 0
  double a = 0.0, b = 0.0;   // for the break-point failure
};
void report_end(Reporter& rep, const Outcome& o, const EndText& t);

// The suffix of an ordinal number: "st", "nd", "rd" or "th".
const char* ordinal_suffix(Integer n);

}  // namespace zil::quad
