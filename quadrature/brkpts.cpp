// d01alc: the general integrator with known difficult points inside the range.
#include <algorithm>
#include <cmath>

#include "frame/export.hpp"
#include "quadrature/detail/frame.hpp"

namespace zil::quad {
namespace {

// The first-level intervals between min(a,b), the points and max(a,b); the
// loop then bisects by level, each interval knowing how often it was halved.
template <class F>
void brkpts(const char* name, F f, double a, double b, Integer nbrkpts, const double* points,
            double epsabs, double epsrel, Integer limit, double* result, double* abserr,
            Zil_QuadReport* qp, ZilError* fail) {
  Reporter rep(fail, name);
  if (rep.int_lt("nbrkpts", nbrkpts, 0)) return;
  if (nbrkpts > 0 && rep.null_param(points, "brkpts")) return;
  if (rep.int_lt("max_num_subint", limit, 1)) return;
  if (rep.int2_le("max_num_subint", limit, "nbrkpts", nbrkpts)) return;
  ResultLists w(limit, true);
  Workspace<double> pts(nbrkpts + 2);
  if (!w || !pts) return rep.alloc_fail();
  const Machine m;
  epsabs = std::fabs(epsabs);
  epsrel = std::fabs(epsrel);
  const Lists L = w.lists(limit);
  const int nint = nbrkpts + 1;
  const double sign = a > b ? -1.0 : 1.0;
  const double lo = std::min(a, b), hi = std::max(a, b);
  pts[0] = lo;
  for (int i = 0; i < nbrkpts; ++i) pts[i + 1] = points[i];
  pts[nint] = hi;
  // Sorting by exchange, as published: the list is short.
  for (int i = 0; i < nint; ++i)
    for (int j = i + 1; j <= nint; ++j)
      if (pts[i] > pts[j]) std::swap(pts[i], pts[j]);
  Outcome o;
  if (pts[0] != lo || pts[nint] != hi) {
    o.ier = 6;
    L.a(1) = a;
    L.b(1) = b;
    L.r(1) = L.e(1) = 0.0;
    o.last = 1;
    *result = *abserr = 0.0;
    w.hand_over(qp, 1, 0);
    EndText et;
    et.a = a;
    et.b = b;
    return report_end(rep, o, et);
  }
  Bisect fam{[&](double p, double q) { return gk21(f, p, q, m); }};
  double res = 0.0, err = 0.0, resabs = 0.0;
  for (int i = 1; i <= nint; ++i) {
    const Est e = gk21(f, pts[i - 1], pts[i], m);
    err += e.abserr;
    res += e.result;
    resabs += e.resabs;
    L.a(i) = pts[i - 1];
    L.b(i) = pts[i];
    L.r(i) = e.result;
    L.e(i) = e.abserr;
    // An interval whose error equals resasc gave the rule nothing to judge
    // by: it takes the total error instead.
    L.level[i - 1] = (e.abserr == e.resasc && e.abserr != 0.0) ? -1 : 0;
    L.ord(i) = i;
  }
  for (int i = 1; i <= nint; ++i)
    if (L.level[i - 1] == -1) {
      L.e(i) = err;
      L.level[i - 1] = 0;
    }
  const double errbnd = std::max(epsabs, epsrel * std::fabs(res));
  o.result = res;
  o.abserr = err;
  o.last = nint;
  if (err <= 100.0 * m.epmach * resabs && err > errbnd) o.ier = 2;
  // The first-level intervals in descending order of error.
  for (int i = 1; i < nint; ++i) {
    int k = i;
    for (int j = i + 1; j <= nint; ++j)
      if (L.e(L.ord(j)) > L.e(L.ord(k))) k = j;
    std::swap(L.ord(i), L.ord(k));
  }
  if (limit < nint + 1) o.ier = o.ier ? o.ier : 1;
  if (o.ier == 0 && err > errbnd) {
    const Start s{res, err, resabs, 0.0, nint, lo, hi, 0.0};
    LoopConstants K;
    K.by_level = true;
    o = adapt<Variant::Levels>(fam, K, L, s, epsabs, epsrel, m);
  }
  *result = sign * o.result;
  *abserr = o.abserr;
  w.hand_over(qp, o.last, 21 * nint + 42 * (o.last - nint), o.linked);
  report_end(rep, o, EndText{"max_num_subint", limit, epsabs, epsrel});
}

}  // namespace
}  // namespace zil::quad

extern "C" {
void d01alc(Zil_QuadFun f, double a, double b, Integer nbrkpts, const double brkpts[],
            double epsabs, double epsrel, Integer max_num_subint, double* result, double* abserr,
            Zil_QuadReport* qp, ZilError* fail) {
  zil::quad::brkpts("d01alc", zil::quad::PlainFun{f}, a, b, nbrkpts, brkpts, epsabs, epsrel,
                    max_num_subint, result, abserr, qp, fail);
}
void d01slc(Zil_QuadFunComm f, double a, double b, Integer nbrkpts, const double brkpts[],
            double epsabs, double epsrel, Integer max_num_subint, double* result, double* abserr,
            Zil_QuadReport* qp, Zil_Comm* comm, ZilError* fail) {
  zil::quad::brkpts("d01slc", zil::quad::CommFun{f, comm}, a, b, nbrkpts, brkpts, epsabs, epsrel,
                    max_num_subint, result, abserr, qp, fail);
}
}

ZIL_ALIAS(d01alc, zil_1d_quad_brkpts);
ZIL_ALIAS(d01slc, zil_1d_quad_brkpts_1);
