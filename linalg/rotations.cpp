// Sequences of plane rotations: generation and application.
#include <algorithm>

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

void reduce_column_spike(Integer n, Integer k1, Integer k2, double c[], double s[], double a[], Integer pda) {
  if (k1 < 1 || k2 <= k1 || k2 > n) return;
  // From the bottom of the spike up, so that each rotation of columns k1
  // and j+1 meets only rows that column j+1 already fills.
  for (Integer j = k2 - 1; j >= k1; --j) {
    double spike = s[j - 1];  // row j+1 of column k1
    rotation_generate(elem(a, pda, j + 1, j + 1), spike, c[j - 1], s[j - 1]);
    double cj = c[j - 1], sj = s[j - 1];
    // Rows above: column k1's own triangle, then the spike still waiting.
    for (Integer row = 1; row <= j; ++row) {
      double& p = row <= k1 ? elem(a, pda, row, k1) : s[row - 2];
      rotate(elem(a, pda, row, j + 1), p, cj, sj);
    }
  }
}

void shift_row(Integer n, Integer k1, Integer k2, double c[], double s[], double a[], Integer pda) {
  if (k1 < 1 || k2 <= k1 || k2 > n) return;
  // The cyclic permutation, column by column over the upper triangle and
  // the sub-diagonal: row k2 goes first, rows k1 .. k2-1 one place down.
  for (Integer col = k1; col <= n; ++col) {
    double t = col >= k2 ? elem(a, pda, k2, col) : 0.0;
    for (Integer i = std::min(col + 1, k2); i > k1; --i) elem(a, pda, i, col) = elem(a, pda, i - 1, col);
    elem(a, pda, k1, col) = t;
  }
  // Rows k1 .. k2 are now upper Hessenberg: one column rotation per
  // sub-diagonal element, from the bottom.  The generator annihilates its
  // second argument, here the diagonal's left neighbour, so the sine is
  // stored negated to fit the applier's (j, j+1) convention.
  for (Integer j = k2 - 1; j >= k1; --j) {
    double& sub = elem(a, pda, j + 1, j);
    rotation_generate(elem(a, pda, j + 1, j + 1), sub, c[j - 1], s[j - 1]);
    sub = 0.0;
    s[j - 1] = -s[j - 1];
    for (Integer row = 1; row <= j; ++row)
      rotate(elem(a, pda, row, j), elem(a, pda, row, j + 1), c[j - 1], s[j - 1]);
  }
}

}  // namespace zil::linalg
