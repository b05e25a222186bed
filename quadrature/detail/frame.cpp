#include "quadrature/detail/frame.hpp"

#include <algorithm>
#include <cstring>

namespace zil::quad {

// The one place that puts the result records in order of their left end.
void order_by_left_end(double* lo, double* up, double* res, double* err, Integer n) {
  if (n < 2) return;
  Workspace<Integer> idx(n);
  Workspace<double> tmp(n);
  if (!idx || !tmp) {
    // Without room for an index, a stable insertion sort in place does.
    for (Integer i = 1; i < n; ++i)
      for (Integer j = i; j > 0 && lo[j - 1] > lo[j]; --j) {
        std::swap(lo[j - 1], lo[j]);
        std::swap(up[j - 1], up[j]);
        std::swap(res[j - 1], res[j]);
        std::swap(err[j - 1], err[j]);
      }
    return;
  }
  for (Integer i = 0; i < n; ++i) idx[i] = i;
  std::stable_sort(idx.get(), idx.get() + n, [&](Integer x, Integer y) { return lo[x] < lo[y]; });
  for (double* v : {lo, up, res, err}) {
    for (Integer i = 0; i < n; ++i) tmp[i] = v[idx[i]];
    std::memcpy(v, tmp.get(), sizeof(double) * static_cast<std::size_t>(n));
  }
}

void ResultLists::hand_over(Zil_QuadReport* qp, Integer count, Integer evals) {
  for (double* v : {lo_.get(), up_.get(), res_.get(), err_.get()})
    std::fill(v + count, v + n_, 0.0);
  order_by_left_end(lo_.get(), up_.get(), res_.get(), err_.get(), count);
  qp->subint_count = count;
  qp->eval_count = evals;
  qp->subint_lower = lo_.release();
  qp->subint_upper = up_.release();
  qp->subint_result = res_.release();
  qp->subint_error = err_.release();
}

void report_end(Reporter& rep, const Outcome& o, const EndText& t) {
  switch (o.ier) {
    case 0:
      rep.success();
      break;
    case 1:
      rep.raise(ZE_QUAD_MAX_SUBDIV, t.limit_name, t.limit);
      break;
    case 2:
      rep.raise(ZE_QUAD_ROUNDOFF_TOL, t.epsabs, t.epsrel);
      break;
    case 3:
      if (t.both_sides)
        rep.raise(ZE_QUAD_BAD_SUBDIV_INTS, o.bad_a, o.bad_b, -o.bad_b, -o.bad_a);
      else
        rep.raise(ZE_QUAD_BAD_SUBDIV, o.bad_a, o.bad_b);
      break;
    case 4:
      rep.raise(ZE_QUAD_ROUNDOFF_EXTRAPL);
      break;
    case 5:
      rep.raise(ZE_QUAD_NO_CONV);
      break;
    default:
      rep.raise(ZE_QUAD_BRKPTS_INVAL, t.a, t.b);
      break;
  }
}

}  // namespace zil::quad
