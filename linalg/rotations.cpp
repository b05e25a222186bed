// Sequences of plane rotations: generation and application.
#include "linalg/detail/kernels.hpp"
#include "linalg/detail/strided.hpp"
#include "zil_linalg.h"

namespace zil::linalg {

void rotation_generate_sequence(Integer pivot, Integer direct, Integer n, double& alpha,
                                double x[], Integer incx, double c[], double s[]) {
  if (n < 1) return;
  auto xk = [&](Integer k) -> double& { return x[static_cast<Index>(k) * incx]; };
  bool fixed = pivot == FixedPivot;
  if (direct == BackwardSequence) {
    for (Integer k = n - 1; k >= 1; --k)
      rotation_generate(fixed ? alpha : xk(k - 1), xk(k), c[k], s[k]);
    rotation_generate(alpha, xk(0), c[0], s[0]);
    return;
  }
  // Forward: the pairs from the start.  A fixed pivot meets x[0], x[1], ...
  // in turn; a variable one carries each element into its successor and
  // the last into alpha.  The sines are negated, so that the rotations,
  // applied forward with the pivot as the second row of each pair, repeat
  // the reduction.
  for (Integer k = 0; k < n; ++k) {
    if (fixed || k == n - 1)
      rotation_generate(alpha, xk(k), c[k], s[k]);
    else
      rotation_generate(xk(k + 1), xk(k), c[k], s[k]);
    s[k] = -s[k];
  }
}

namespace {

// One rotation of the pair (ai, ap): ap is the pivot row or column.
inline void rotate(double& ai, double& ap, double c, double s) {
  double t = ai;
  ai = c * t + s * ap;
  ap = c * ap - s * t;
}

}  // namespace

void rotation_sequence_apply(Integer side, Integer pivot, Integer direct, Integer m, Integer n,
                             Integer k1, Integer k2, const double c[], const double s[],
                             double a[], Integer pda) {
  bool left = side == LeftSide;
  Integer len = left ? m : n;  // rows (left) or columns (right) rotated
  if (m < 1 || n < 1 || k1 < 1 || k2 <= k1 || k2 > len) return;
  Integer other = left ? n : m;
  // Element j of row/column r (both counted from 1).
  auto at = [&](Integer r, Integer j) -> double& {
    return left ? a[static_cast<Index>(j - 1) * pda + (r - 1)]
                : a[static_cast<Index>(r - 1) * pda + (j - 1)];
  };
  auto apply = [&](Integer k) {
    double ck = c[k - 1], sk = s[k - 1];
    if (ck == 1.0 && sk == 0.0) return;
    Integer i, p;
    if (pivot == TopPivot) {
      i = k + 1;
      p = k1;
    } else if (pivot == BottomPivot) {
      i = k;
      p = k2;
    } else {
      // Variable pivot: the plane (k, k+1), k rotated against k+1.
      i = k;
      p = k + 1;
    }
    for (Integer j = 1; j <= other; ++j) rotate(at(i, j), at(p, j), ck, sk);
  };
  if (direct == ForwardSequence)
    for (Integer k = k1; k < k2; ++k) apply(k);
  else
    for (Integer k = k2 - 1; k >= k1; --k) apply(k);
}

namespace {

double& elem(double a[], Integer pda, Integer i, Integer j) {  // from 1
  return a[static_cast<Index>(j - 1) * pda + (i - 1)];
}

}  // namespace

void reduce_row_spike(Integer n, Integer k1, Integer k2, double c[], double s[], double a[], Integer pda) {
  if (k1 < 1 || k2 <= k1 || k2 > n) return;
  for (Integer j = k1; j < k2; ++j) {
    // The spike's element in column j against the diagonal of row j.
    double spike = s[j - 1];
    rotation_generate(elem(a, pda, j, j), spike, c[j - 1], s[j - 1]);
    double cj = c[j - 1], sj = s[j - 1];
    // The rest of rows j and k2; left of the diagonal row k2 is the spike.
    for (Integer col = j + 1; col <= n; ++col) {
      double& p = col < k2 ? s[col - 1] : elem(a, pda, k2, col);
      rotate(elem(a, pda, j, col), p, cj, sj);
    }
  }
}

void shift_column(Integer n, Integer k1, Integer k2, double c[], double s[], double a[], Integer pda) {
  if (k1 < 1 || k2 <= k1 || k2 > n) return;
  // The cyclic permutation: column k1 (rows 1 .. k1) goes last.
  for (Integer i = 1; i <= k1; ++i) {
    double t = elem(a, pda, i, k1);
    for (Integer j = k1; j < k2; ++j) elem(a, pda, i, j) = elem(a, pda, i, j + 1);
    elem(a, pda, i, k2) = t;
  }
  for (Integer i = k1 + 1; i <= k2; ++i)
    for (Integer j = i - 1; j < k2; ++j) elem(a, pda, i, j) = elem(a, pda, i, j + 1);
  for (Integer i = k1 + 1; i <= k2; ++i) elem(a, pda, i, k2) = 0.0;
  // Columns k1 .. k2-1 are now upper Hessenberg: one rotation per column.
  for (Integer j = k1; j < k2; ++j) {
    rotation_generate(elem(a, pda, j, j), elem(a, pda, j + 1, j), c[j - 1], s[j - 1]);
    elem(a, pda, j + 1, j) = 0.0;
    for (Integer col = j + 1; col <= n; ++col)
      rotate(elem(a, pda, j, col), elem(a, pda, j + 1, col), c[j - 1], s[j - 1]);
  }
}

}  // namespace zil::linalg
