// The adaptive core shared by the integrators: the list of subintervals, the
// error-ordered index, Wynn's epsilon algorithm and the bisection loop.
#pragma once

#include <cmath>

#include "quadrature/detail/rules.hpp"
#include "zil_types.h"

namespace zil::quad {

// The working lists.  alist..elist are the caller's result arrays; iord and
// level are workspace.  Indices are 1-based as in the published algorithm
// (slot i lives at [i-1]).
struct Lists {
  double* alist;
  double* blist;
  double* rlist;
  double* elist;
  Integer* iord;
  Integer* level;  // null unless the routine keeps levels
  Integer limit;
  // The intervals in their order along the range, a circular list through
  // slot 0 (next at link[0..limit], prev at link[limit+1..2*limit+1]), or
  // null.  Each bisection puts the new slot beside the one it split, so the
  // record can be put in order of the left end with no sort.
  Integer* link = nullptr;
  double& a(int i) const { return alist[i - 1]; }
  double& b(int i) const { return blist[i - 1]; }
  double& r(int i) const { return rlist[i - 1]; }
  double& e(int i) const { return elist[i - 1]; }
  Integer& ord(int i) const { return iord[i - 1]; }
  Integer& next(int i) const { return link[i]; }
  Integer& prev(int i) const { return link[limit + 1 + i]; }
  // Slots 1..count lie along the range in slot order.
  void link_in_order(int count) const {
    for (int i = 0; i <= count; ++i) {
      next(i) = i == count ? 0 : i + 1;
      prev(i) = i == 0 ? count : i - 1;
    }
  }
  // Slot added now lies just before (or after) slot at.
  void link_beside(int at, int added, bool before) const {
    const int p = before ? prev(at) : at, q = before ? at : next(at);
    next(p) = added;
    prev(added) = p;
    next(added) = q;
    prev(q) = added;
  }
};

// Keeps iord descending by error after a bisection that filled the slots
// maxerr and last, and picks the next interval to bisect (maxerr, errmax).
void sort_errors(const Lists& L, int last, int& maxerr, double& errmax, int& nrmax);

// Wynn's epsilon algorithm over the sequence of areas.
class Epsilon {
 public:
  explicit Epsilon(const Machine& m) : m_(m) {}
  double& at(int i) { return tab_[i - 1]; }  // 1-based, as numrl2 counts
  // Extrapolates the n entries in the table; n may be cut.
  void run(int& n, double& result, double& abserr);

 private:
  const Machine& m_;
  double tab_[52] = {};
  double res3la_[3] = {};
  int nres_ = 0;
};

// Failure numbers of a run, before the final shift of the extrapolating loop
// (bad integrand is 4 there, 3 after it).
struct Outcome {
  double result = 0.0;
  double abserr = 0.0;
  int last = 0;
  int ier = 0;
  double bad_a = 0.0;  // the interval of the last bisection, for ier 3
  double bad_b = 0.0;
  bool linked = false;  // the lists' link holds the order of slots 1..last
};

double sum_results(const Lists& L, int last);

// What a rule family tells the loop.  A Family provides
//   Est rule(double a, double b, int level, bool right)   one subinterval
//   double split(double a, double b)                       bisection point
//   bool large(const Lists&, int i, double small)          for extrapolation
// and the constants below.
struct LoopConstants {
  bool extrapolate = true;
  double bad_rel = 1000.0;   // (1 + bad_rel*epmach)*(|mid| + bad_abs*uflow)
  double bad_abs = 1000.0;
  int roff1_max = 6;         // plain loop: iroff1 >= roff1_max or iroff2 >= 20
  double small0 = 0.375;     // starting `small`, a fraction of |b - a|
  bool by_level = false;     // `large` is a level test (break points)
  bool trig_start = false;   // the oscillatory rule's start of extrapolation
};

// The state after the first rule(s), which each routine builds for itself.
struct Start {
  double result;
  double abserr;
  double defabs;
  double resabs;  // resasc of the first rule
  int last;       // intervals already in the lists
  double a, b;
  double omega_h = 0.0;  // |omega| for the oscillatory rule
};

}  // namespace zil::quad

#include "quadrature/detail/loop.hpp"
