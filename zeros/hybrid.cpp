// Powell's hybrid method, in the form of the published MINPACK routines
// hybrd and hybrj (Moré, Garbow and Hillstrom, Argonne ANL-80-74, 1980).
//
// The Jacobian is held as its QR factors: Q explicitly (n by n) and R packed
// by rows.  Each step is a dogleg within the trust radius delta, between the
// Gauss-Newton step and the scaled steepest-descent step of the linear
// model.  After each step Broyden's rank-one formula updates R and Q by
// plane rotations, in O(n^2); the Jacobian is recomputed (n evaluations by
// differences, or one call of the caller's) only when two steps in a row
// fail, or when progress stalls.
#include <algorithm>
#include <cmath>

#include "linalg/detail/kernels.hpp"
#include "zeros/detail/hybrid.hpp"
#include "zil_enums.h"
#include "zil_env.h"
#include "zil_linalg.h"

namespace zil::zeros {
namespace {

using linalg::rotation_generate;

// Start of row i of an upper triangle of order n packed by rows.
inline std::size_t row_start(Integer i, Integer n) {
  return static_cast<std::size_t>(i) * (2 * static_cast<std::size_t>(n) - i + 1) / 2;
}

// Forward differences, one column per evaluation, or with a band of ml
// lower and mu upper diagonals ml + mu + 1 evaluations in all: columns
// ml + mu + 1 apart touch no common row, so one evaluation serves them all.
void difference_jacobian(System& sys, Integer n, double* x, const double* fvec, const Matrix& a, Integer ml,
                         Integer mu, double epsfcn, double* wa1, double* wa2, Integer& flag) {
  const double eps = std::sqrt(std::max(epsfcn, x02ajc()));
  const auto step = [eps](double v) {
    const double h = eps * std::fabs(v);
    return h == 0.0 ? eps : h;
  };
  const Integer msum = ml + mu + 1;
  if (msum >= n) {
    for (Integer j = 0; j < n; ++j) {
      const double xj = x[j];
      const double h = step(xj);
      x[j] = xj + h;
      sys.values(x, wa1, flag);
      if (flag < 0) return;
      x[j] = xj;
      for (Integer i = 0; i < n; ++i) a(i, j) = (wa1[i] - fvec[i]) / h;
    }
    return;
  }
  for (Integer k = 0; k < msum; ++k) {
    for (Integer j = k; j < n; j += msum) {
      wa2[j] = x[j];
      x[j] = wa2[j] + step(wa2[j]);
    }
    sys.values(x, wa1, flag);
    if (flag < 0) return;
    for (Integer j = k; j < n; j += msum) {
      x[j] = wa2[j];
      const double h = step(wa2[j]);
      for (Integer i = 0; i < n; ++i) a(i, j) = (i >= j - mu && i <= j + ml) ? (wa1[i] - fvec[i]) / h : 0.0;
    }
  }
}

// Householder QR without pivoting: R's diagonal in rdiag, the column norms
// of the matrix in acnorm, the reflectors below and on the diagonal of a.
void qr_factor(Integer n, const Matrix& a, double* rdiag, double* acnorm) {
  for (Integer j = 0; j < n; ++j) acnorm[j] = f06ejc(n, &a(0, j), a.rs);
  for (Integer j = 0; j < n; ++j) {
    double ajnorm = f06ejc(n - j, &a(j, j), a.rs);
    if (ajnorm != 0.0) {
      if (a(j, j) < 0.0) ajnorm = -ajnorm;
      for (Integer i = j; i < n; ++i) a(i, j) /= ajnorm;
      a(j, j) += 1.0;
      for (Integer k = j + 1; k < n; ++k) {
        const double t = f06eac(n - j, &a(j, j), a.rs, &a(j, k), a.rs) / a(j, j);
        for (Integer i = j; i < n; ++i) a(i, k) -= t * a(i, j);
      }
    }
    rdiag[j] = -ajnorm;
  }
}

// qtf = Q' fvec from the reflectors that qr_factor left in a.
void apply_qt(Integer n, const Matrix& a, const double* fvec, double* qtf) {
  std::copy(fvec, fvec + n, qtf);
  for (Integer j = 0; j < n; ++j) {
    if (a(j, j) == 0.0) continue;
    const double t = -f06eac(n - j, &a(j, j), a.rs, qtf + j, 1) / a(j, j);
    for (Integer i = j; i < n; ++i) qtf[i] += a(i, j) * t;
  }
}

// Overwrites the reflectors in a by Q itself.
void form_q(Integer n, const Matrix& a, double* wa) {
  for (Integer j = 1; j < n; ++j)
    for (Integer i = 0; i < j; ++i) a(i, j) = 0.0;
  for (Integer k = n - 1; k >= 0; --k) {
    for (Integer i = k; i < n; ++i) {
      wa[i] = a(i, k);
      a(i, k) = 0.0;
    }
    a(k, k) = 1.0;
    if (wa[k] == 0.0) continue;
    for (Integer j = k; j < n; ++j) {
      const double t = f06eac(n - k, &a(k, j), a.rs, wa + k, 1) / wa[k];
      for (Integer i = k; i < n; ++i) a(i, j) -= t * wa[i];
    }
  }
}

// The dogleg step x within |diag * x| <= delta, for the model min |R x - qtb|:
// the Gauss-Newton step if it fits, else the point on the path from the
// scaled Cauchy point to it where the path leaves the trust region.
void dogleg(Integer n, const double* r, const double* diag, const double* qtb, double delta, double* x, double* wa1,
            double* wa2) {
  const double epsmch = x02ajc();
  for (Integer j = n - 1; j >= 0; --j) {
    const std::size_t jj = row_start(j, n);
    double sum = 0.0;
    for (Integer i = j + 1; i < n; ++i) sum += r[jj + (i - j)] * x[i];
    double t = r[jj];
    if (t == 0.0) {
      // A singular R: a tiny pivot scaled to its column keeps the step finite.
      for (Integer i = 0; i <= j; ++i) t = std::max(t, std::fabs(r[row_start(i, n) + (j - i)]));
      t *= epsmch;
      if (t == 0.0) t = epsmch;
    }
    x[j] = (qtb[j] - sum) / t;
  }
  for (Integer j = 0; j < n; ++j) {
    wa1[j] = 0.0;
    wa2[j] = diag[j] * x[j];
  }
  const double qnorm = f06ejc(n, wa2, 1);
  if (qnorm <= delta) return;

  // The scaled gradient R' qtb / diag.
  std::size_t l = 0;
  for (Integer j = 0; j < n; ++j) {
    const double t = qtb[j];
    for (Integer i = j; i < n; ++i) wa1[i] += r[l++] * t;
    wa1[j] /= diag[j];
  }
  const double gnorm = f06ejc(n, wa1, 1);
  double sgnorm = 0.0;
  double alpha = delta / qnorm;
  if (gnorm != 0.0) {
    // The minimiser of the model along the scaled gradient is sgnorm away.
    for (Integer j = 0; j < n; ++j) wa1[j] = (wa1[j] / gnorm) / diag[j];
    l = 0;
    for (Integer j = 0; j < n; ++j) {
      double sum = 0.0;
      for (Integer i = j; i < n; ++i) sum += r[l++] * wa1[i];
      wa2[j] = sum;
    }
    const double t = f06ejc(n, wa2, 1);
    sgnorm = (gnorm / t) / t;
    alpha = 0.0;
    if (sgnorm < delta) {
      // Where the segment from the Cauchy point to the Gauss-Newton point
      // crosses the boundary, written to avoid cancellation.
      const double bnorm = f06ejc(n, qtb, 1);
      const double dq = delta / qnorm;
      const double sd = sgnorm / delta;
      double u = (bnorm / gnorm) * (bnorm / qnorm) * sd;
      u = u - dq * sd * sd + std::sqrt((u - dq) * (u - dq) + (1.0 - dq * dq) * (1.0 - sd * sd));
      alpha = dq * (1.0 - sd * sd) / u;
    }
  }
  const double t = (1.0 - alpha) * std::min(sgnorm, delta);
  for (Integer j = 0; j < n; ++j) x[j] = t * wa1[j] + alpha * x[j];
}

// Given the lower triangle S (R' packed by rows of R), finds rotations with
// (S + u v') Q lower triangular again, and overwrites S by it.  Each row of
// the packed triangle is contiguous, so every rotation is one f06epc call.
// The rotations are left as their tangents, which rotation_generate stores
// in place of the element it annihilates: the first set in v, the second
// in w.  A zero on the new diagonal needs no action here: the dogleg guards
// its back substitution.
void rank1_update(Integer n, double* s, const double* u, double* v, double* w) {
  const std::size_t last = row_start(n - 1, n);
  w[n - 1] = s[last];
  double c = 1.0, sn = 0.0;
  // Rotate v into a multiple of e_n, which makes a spike in w: the plane
  // (n, j) with the spike in the role of the pivot row.
  for (Integer j = n - 2; j >= 0; --j) {
    w[j] = 0.0;
    if (v[j] == 0.0) continue;
    rotation_generate(v[n - 1], v[j], c, sn);
    f06epc(n - j, w + j, 1, s + row_start(j, n), 1, c, sn);
  }
  for (Integer i = 0; i < n; ++i) w[i] += v[n - 1] * u[i];
  // Eliminate the spike against the diagonal, row by row.
  for (Integer j = 0; j < n - 1; ++j) {
    if (w[j] == 0.0) continue;
    const std::size_t jj = row_start(j, n);
    rotation_generate(s[jj], w[j], c, sn);
    f06epc(n - j - 1, s + jj + 1, 1, w + j + 1, 1, c, sn);
  }
  s[last] = w[n - 1];
}

// a := a Q, for the m by n matrix a, with Q the product of the rotations
// whose tangents rank1_update stored in v and w; c and s (n - 1 each) take
// the rebuilt rotations.  Every rotation is in a plane (j, n), so both sets
// are bottom-pivot sequences.  The first was generated with the pivot in
// the other role, which the applier expresses by the opposite sine.  A
// row-major a is rotated by rows of its column-major transpose.
void apply_rotations(Integer m, Integer n, const Matrix& a, const double* v, const double* w, double* c,
                     double* s) {
  const auto apply = [&](Integer direct) {
    if (a.rs == 1)
      linalg::rotation_sequence_apply(RightSide, BottomPivot, direct, m, n, 1, n, c, s, a.p, a.cs);
    else
      linalg::rotation_sequence_apply(LeftSide, BottomPivot, direct, n, m, 1, n, c, s, a.p, a.rs);
  };
  for (Integer j = 0; j < n - 1; ++j) {
    f06bcc(v[j], c + j, s + j);
    s[j] = -s[j];
  }
  apply(BackwardSequence);
  for (Integer j = 0; j < n - 1; ++j) f06bcc(w[j], c + j, s + j);
  apply(ForwardSequence);
}

}  // namespace

HybridWork hybrid_cut(Integer n, double* block) {
  const std::size_t m = static_cast<std::size_t>(n);
  HybridWork w{};
  w.diag = block;
  w.qtf = block + m;
  for (int k = 0; k < 4; ++k) w.w[k] = block + (2 + k) * m;
  w.r = block + 6 * m;
  w.fjac = Matrix{block + 6 * m + m * (m + 1) / 2, 1, static_cast<std::ptrdiff_t>(m)};
  return w;
}

HybridResult hybrid(System& sys, Integer n, double* x, double* fvec, const HybridControl& ctl, HybridWork& w) {
  HybridResult res{0, 0, 0};
  if (n <= 0 || !(ctl.xtol >= 0.0) || ctl.maxfev <= 0 || ctl.ml < 0 || ctl.mu < 0 || !(ctl.factor > 0.0))
    return res;
  double* const diag = w.diag;
  if (ctl.mode == 2)
    for (Integer j = 0; j < n; ++j)
      if (diag[j] <= 0.0) return res;

  constexpr double p1 = 0.1, p5 = 0.5, p001 = 0.001, p0001 = 0.0001;
  const double epsmch = x02ajc();
  double* const qtf = w.qtf;
  double* const r = w.r;
  double* const wa1 = w.w[0];
  double* const wa2 = w.w[1];
  double* const wa3 = w.w[2];
  double* const wa4 = w.w[3];
  const Matrix& fjac = w.fjac;
  const Matrix qtf_row{qtf, static_cast<std::ptrdiff_t>(n), 1};

  Integer flag = 1;
  Integer info = 0;
  // Ends the run on a stop by the callback, and lets a printing caller see
  // the last point.
  const auto finish = [&](Integer end) {
    info = flag < 0 ? flag : end;
    if (ctl.nprint > 0 && flag >= 0) {
      flag = 0;
      sys.values(x, fvec, flag);
    }
    res.info = info;
    return res;
  };

  sys.values(x, fvec, flag);
  res.nfev = 1;
  if (flag < 0) return finish(0);
  double fnorm = f06ejc(n, fvec, 1);

  const Integer msum = std::min(ctl.ml + ctl.mu + 1, n);
  Integer iter = 1, ncsuc = 0, ncfail = 0, nslow1 = 0, nslow2 = 0;
  double delta = 0.0, xnorm = 0.0;

  for (;;) {
    // The Jacobian at x, fresh.
    bool jeval = true;
    flag = 2;
    if (sys.has_jacobian) {
      sys.jacobian(x, fvec, flag);
      ++res.njev;
    } else {
      difference_jacobian(sys, n, x, fvec, fjac, ctl.ml, ctl.mu, ctl.epsfcn, wa1, wa2, flag);
      res.nfev += msum;
      if (flag < 0) std::copy(wa1, wa1 + n, fvec);
    }
    if (flag < 0) return finish(0);

    qr_factor(n, fjac, wa1, wa2);
    if (iter == 1) {
      if (ctl.mode != 2)
        for (Integer j = 0; j < n; ++j) diag[j] = wa2[j] == 0.0 ? 1.0 : wa2[j];
      for (Integer j = 0; j < n; ++j) wa3[j] = diag[j] * x[j];
      xnorm = f06ejc(n, wa3, 1);
      delta = ctl.factor * xnorm;
      if (delta == 0.0) delta = ctl.factor;
    }
    apply_qt(n, fjac, fvec, qtf);
    for (Integer j = 0; j < n; ++j) {
      for (Integer i = 0; i < j; ++i) r[row_start(i, n) + (j - i)] = fjac(i, j);
      r[row_start(j, n)] = wa1[j];
    }
    form_q(n, fjac, wa1);
    // The scaling only grows, so that the trust region cannot collapse
    // through a column that happens to be small at one point.
    if (ctl.mode != 2)
      for (Integer j = 0; j < n; ++j) diag[j] = std::max(diag[j], wa2[j]);

    for (;;) {
      if (ctl.nprint > 0 && (iter - 1) % ctl.nprint == 0) {
        flag = 0;
        sys.values(x, fvec, flag);
        if (flag < 0) return finish(0);
      }

      dogleg(n, r, diag, qtf, delta, wa1, wa2, wa3);
      for (Integer j = 0; j < n; ++j) {
        wa1[j] = -wa1[j];
        wa2[j] = x[j] + wa1[j];
        wa3[j] = diag[j] * wa1[j];
      }
      const double pnorm = f06ejc(n, wa3, 1);
      if (iter == 1) delta = std::min(delta, pnorm);

      flag = 1;
      sys.values(wa2, wa4, flag);
      ++res.nfev;
      if (flag < 0) {
        std::copy(wa2, wa2 + n, x);
        std::copy(wa4, wa4 + n, fvec);
        return finish(0);
      }
      const double fnorm1 = f06ejc(n, wa4, 1);

      // Actual and predicted relative reductions of |f|^2.
      const double actred = fnorm1 < fnorm ? 1.0 - (fnorm1 / fnorm) * (fnorm1 / fnorm) : -1.0;
      std::size_t l = 0;
      for (Integer i = 0; i < n; ++i) {
        double sum = 0.0;
        for (Integer j = i; j < n; ++j) sum += r[l++] * wa1[j];
        wa3[i] = qtf[i] + sum;
      }
      const double lin = f06ejc(n, wa3, 1);
      const double prered = lin < fnorm ? 1.0 - (lin / fnorm) * (lin / fnorm) : 0.0;
      const double ratio = prered > 0.0 ? actred / prered : 0.0;

      // The trust radius follows how well the model predicted.
      if (ratio < p1) {
        ncsuc = 0;
        ++ncfail;
        delta *= p5;
      } else {
        ncfail = 0;
        ++ncsuc;
        if (ratio >= p5 || ncsuc > 1) delta = std::max(delta, pnorm / p5);
        if (std::fabs(ratio - 1.0) <= p1) delta = pnorm / p5;
      }

      if (ratio >= p0001) {
        for (Integer j = 0; j < n; ++j) {
          x[j] = wa2[j];
          wa2[j] = diag[j] * x[j];
          fvec[j] = wa4[j];
        }
        xnorm = f06ejc(n, wa2, 1);
        fnorm = fnorm1;
        ++iter;
      }

      ++nslow1;
      if (actred >= p001) nslow1 = 0;
      if (jeval) ++nslow2;
      if (actred >= p1) nslow2 = 0;

      if (delta <= ctl.xtol * xnorm || fnorm == 0.0) return finish(1);
      if (res.nfev >= ctl.maxfev) return finish(2);
      if (p1 * std::max(p1 * delta, pnorm) <= epsmch * xnorm) return finish(3);
      if (nslow2 == 5) return finish(4);
      if (nslow1 == 10) return finish(5);

      if (ncfail == 2) break;

      // Broyden's update of the factors by the step just taken:
      // J+ = J + (f(x+p) - f(x) - J p) (D'D p)' / |D p|^2.
      for (Integer j = 0; j < n; ++j) {
        const double sum = f06eac(n, &fjac(0, j), fjac.rs, wa4, 1);
        wa2[j] = (sum - wa3[j]) / pnorm;
        wa1[j] = diag[j] * ((diag[j] * wa1[j]) / pnorm);
        if (ratio >= p0001) qtf[j] = sum;
      }
      rank1_update(n, r, wa1, wa2, wa3);
      // u and f(x + p) are spent: their arrays hold the rebuilt rotations.
      apply_rotations(n, n, fjac, wa2, wa3, wa1, wa4);
      apply_rotations(1, n, qtf_row, wa2, wa3, wa1, wa4);
      jeval = false;
    }
  }
}

}  // namespace zil::zeros
