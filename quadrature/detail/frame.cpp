#include "quadrature/detail/frame.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "sort/inner.hpp"

namespace zil::quad {

// The one place that puts the result records in order of their left end.
// Ties keep their order.  index: n Integers of scratch (the loop's iord, no
// longer needed).
void order_by_left_end(double* lo, double* up, double* res, double* err, Integer n,
                       Integer* index) {
  // < is a strict weak order on the left ends unless one is a NaN (from a
  // NaN or infinite end of the range).
  const bool strict_weak = std::none_of(lo, lo + n, [](double x) { return std::isnan(x); });
  order_records(
      n, index, strict_weak, [lo](Integer i, Integer j) { return lo[i] < lo[j]; },
      [&](Integer i, Integer j) {
        for (double* v : {lo, up, res, err}) std::swap(v[i], v[j]);
      });
}

bool ResultLists::place_by_link(Integer count) {
  const Lists L = lists(n_);
  const double* lo = lo_.get();
  Integer* rank = iord_.get();  // iord is done with; the links lie past it
  Integer prev = 0;
  Integer place = 1;
  for (Integer s = L.next(0); s != 0; s = L.next(s), ++place) {
    // Strictly ascending left ends along the link are the one order a
    // stable sort could give; anything else (a reversed range, a NaN, an
    // interval too short to split) goes to the sort.
    if (place > count || (prev != 0 && !(lo[prev - 1] < lo[s - 1]))) return false;
    rank[s - 1] = place;
    prev = s;
  }
  if (place != count + 1) return false;
  place_records(count, rank, [this](Integer i, Integer j) {
    for (double* v : {lo_.get(), up_.get(), res_.get(), err_.get()}) std::swap(v[i], v[j]);
  });
  return true;
}

void ResultLists::hand_over(Zil_QuadReport* qp, Integer count, Integer evals, bool linked) {
  for (double* v : {lo_.get(), up_.get(), res_.get(), err_.get()})
    std::fill(v + count, v + n_, 0.0);
  if (!(linked && place_by_link(count)))
    order_by_left_end(lo_.get(), up_.get(), res_.get(), err_.get(), count, iord_.get());
  qp->subint_count = count;
  qp->eval_count = evals;
  qp->subint_lower = lo_.release();
  qp->subint_upper = up_.release();
  qp->subint_result = res_.release();
  qp->subint_error = err_.release();
}

// English ordinals: 1st, 2nd, 3rd, 4th ..., 11th, 12th, 13th, 21st.
const char* ordinal_suffix(Integer n) {
  const Integer r100 = n % 100;
  if (r100 >= 11 && r100 <= 13) return "th";
  switch (n % 10) {
    case 1: return "st";
    case 2: return "nd";
    case 3: return "rd";
    default: return "th";
  }
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
