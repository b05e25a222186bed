#include "quadrature/detail/core.hpp"

#include <algorithm>
#include <cmath>

namespace zil::quad {

double sum_results(const Lists& L, int last) {
  double s = 0.0;
  for (int k = 1; k <= last; ++k) s += L.r(k);
  return s;
}

// iord holds the slots in descending order of error; after a bisection the
// slot maxerr (the larger half) and the slot last (the smaller) go back in by
// their value.  Near the end of a run only limit+3-last entries can still be
// bisected, so the list is kept no longer than that.
void sort_errors(const Lists& L, int last, int& maxerr, double& errmax, int& nrmax) {
  if (last <= 2) {
    L.ord(1) = 1;
    L.ord(2) = 2;
  } else {
    errmax = L.e(maxerr);
    // The entry at nrmax may now exceed those ahead of it: move it up.
    const int ido = nrmax - 1;
    for (int i = 1; i <= ido; ++i) {
      const int isucc = L.ord(nrmax - 1);
      if (errmax <= L.e(isucc)) break;
      L.ord(nrmax) = isucc;
      --nrmax;
    }
    int jupbn = last;
    if (last > L.limit / 2 + 2) jupbn = L.limit + 3 - last;
    const double errmin = L.e(last);
    const int jbnd = jupbn - 1;
    int i = nrmax + 1;
    for (; i <= jbnd; ++i) {
      const int isucc = L.ord(i);
      if (errmax >= L.e(isucc)) break;
      L.ord(i - 1) = isucc;
    }
    if (i > jbnd) {
      L.ord(jbnd) = maxerr;
      L.ord(jupbn) = last;
    } else {
      L.ord(i - 1) = maxerr;
      int k = jbnd;
      bool placed = false;
      for (int j = i; j <= jbnd; ++j) {
        const int isucc = L.ord(k);
        if (errmin < L.e(isucc)) {
          L.ord(k + 1) = last;
          placed = true;
          break;
        }
        L.ord(k + 1) = isucc;
        --k;
      }
      if (!placed) L.ord(i) = last;
    }
  }
  maxerr = L.ord(nrmax);
  errmax = L.e(maxerr);
}

// Wynn's epsilon algorithm as published (limit 50 on the table, the last
// three results kept to judge the error), with this library's settlements:
// negligible differences are judged against epmach times the larger of their
// pair, and the error never falls below 0.5*epmach*|result|.
void Epsilon::run(int& n, double& result, double& abserr) {
  constexpr int limexp = 50;
  ++nres_;
  abserr = m_.oflow;
  result = at(n);
  if (n >= 3) {
    at(n + 2) = at(n);
    const int newelm = (n - 1) / 2;
    at(n) = m_.oflow;
    const int num = n;
    int k1 = n;
    bool final_entry = false;
    for (int i = 1; i <= newelm; ++i) {
      const int k2 = k1 - 1, k3 = k1 - 2;
      double res = at(k1 + 2);
      const double e0 = at(k3), e1 = at(k2), e2 = res;
      const double e1abs = std::fabs(e1);
      const double delta2 = e2 - e1, err2 = std::fabs(delta2);
      const double tol2 = std::max(std::fabs(e2), e1abs) * m_.epmach;
      const double delta3 = e1 - e0, err3 = std::fabs(delta3);
      const double tol3 = std::max(e1abs, std::fabs(e0)) * m_.epmach;
      if (err2 <= tol2 && err3 <= tol3) {
        // e0, e1 and e2 agree to machine accuracy: the new entry is final.
        result = res;
        abserr = err2 + err3;
        final_entry = true;
        break;
      }
      const double e3 = at(k1);
      at(k1) = e1;
      const double delta1 = e1 - e3, err1 = std::fabs(delta1);
      const double tol1 = std::max(e1abs, std::fabs(e3)) * m_.epmach;
      double ss = 0.0;
      bool cut = err1 <= tol1 || err2 <= tol2 || err3 <= tol3;
      if (!cut) {
        ss = 1.0 / delta1 + 1.0 / delta2 - 1.0 / delta3;
        cut = std::fabs(ss * e1) <= 1.0e-4;
      }
      if (cut) {
        // Irregular behaviour of the table: keep it up to this entry.
        n = i + i - 1;
        break;
      }
      res = e1 + 1.0 / ss;
      at(k1) = res;
      k1 -= 2;
      const double error = err2 + std::fabs(res - e2) + err3;
      if (error <= abserr) {
        abserr = error;
        result = res;
      }
    }
    if (!final_entry) {
      if (n == limexp) n = 2 * (limexp / 2) - 1;
      int ib = (num % 2 == 0) ? 2 : 1;
      for (int i = 1; i <= newelm + 1; ++i) {
        at(ib) = at(ib + 2);
        ib += 2;
      }
      if (num != n) {
        int indx = num - n + 1;
        for (int i = 1; i <= n; ++i) at(i) = at(indx++);
      }
      if (nres_ < 4) {
        res3la_[nres_ - 1] = result;
        abserr = m_.oflow;
      } else {
        abserr = std::fabs(result - res3la_[2]) + std::fabs(result - res3la_[1]) +
                 std::fabs(result - res3la_[0]);
        res3la_[0] = res3la_[1];
        res3la_[1] = res3la_[2];
        res3la_[2] = result;
      }
    }
  }
  abserr = std::max(abserr, 0.5 * m_.epmach * std::fabs(result));
}

}  // namespace zil::quad
