// The f16 fronts of the Level-2 and Level-3 operations, one template per
// family over double and Complex.  Each checks its arguments in the fixed
// order of F16Check and then calls the BLAS in column-major terms.
//
// A row-major matrix is the transpose of the same memory read column-major,
// so no matrix is ever copied: the operation is changed instead (trans
// exchanged, uplo and side exchanged, m and n swapped).  What the exchange
// cannot say is a conjugate without a transpose; there the vectors are
// conjugated around the call (y in place and back, x into a temporary),
// which is the only copying these fronts do.
#pragma once

#include <cstdlib>
#include <optional>
#include <type_traits>

#include "frame/workspace.hpp"
#include "linalg/detail/blas.hpp"
#include "linalg/detail/complex.hpp"
#include "linalg/detail/f16check.hpp"
#include "linalg/detail/strided.hpp"
#include "zil_linalg.h"

namespace zil::linalg {

template <class T>
inline constexpr bool kComplex = std::is_same_v<T, Complex>;

// ---- option words in column-major terms --------------------------------

// A real matrix reads "C" as "T".
template <class T>
char trans_char(Integer t) {
  if (t == Zil_NoTrans) return 'N';
  return t == Zil_ConjTrans && kComplex<T> ? 'C' : 'T';
}
inline char flip_trans(char t) { return t == 'N' ? 'T' : 'N'; }
inline char uplo_char(Integer u, bool row) { return (u == Zil_Upper) != row ? 'U' : 'L'; }
inline char side_char(Integer s, bool row) { return (s == Zil_LeftSide) != row ? 'L' : 'R'; }
inline char diag_char(Integer d) { return d == Zil_UnitDiag ? 'U' : 'N'; }

// ---- vector helpers --------------------------------------------------------

inline void scale(Integer n, double a, double* x, Integer inc) { f06edc(n, a, x, inc); }
inline void scale(Integer n, Complex a, Complex* x, Integer inc) { f06gdc(n, a, x, inc); }
inline void scale(Integer n, double a, Complex* x, Integer inc) { f06jdc(n, a, x, inc); }

template <class T>
void conj_in_place(Integer n, T* x, Integer inc) {
  if constexpr (kComplex<T>) walk1(n, x, std::abs(inc), [](Complex& v) { v.im = -v.im; });
}

// The vector x conjugated into t with unit stride, in the published order.
template <class T>
void conj_copy(Integer n, const T* x, Integer inc, T* t) {
  walk2(n, x, inc, t, 1, [](const T& a, T& b) { b = conj(a); });
}

// A vector as the BLAS should see it: x itself, or (when asked) its
// conjugate copied into a workspace of unit stride.
template <class T>
class VectorArg {
 public:
  VectorArg(bool conjugate, Integer n, const T* x, Integer inc) : p_(x), inc_(inc) {
    if (!conjugate) return;
    w_.emplace(static_cast<std::size_t>(n));
    if (!*w_) {
      failed_ = true;
      return;
    }
    conj_copy(n, x, inc, w_->get());
    p_ = w_->get();
    inc_ = 1;
  }
  bool failed() const { return failed_; }
  const T* p() const { return p_; }
  Integer inc() const { return inc_; }

 private:
  std::optional<Workspace<T>> w_;
  const T* p_;
  Integer inc_;
  bool failed_ = false;
};

// y = alpha conj(M) x + beta y, computed as the conjugate of
// conj(alpha) M conj(x) + conj(beta) conj(y): call(xt, alpha', beta') does
// the BLAS operation with M on the conjugated copy xt of unit stride.
template <class T, class Call>
bool conjugated(F16Check& c, Integer nx, const T* x, Integer incx, Integer ny, T* y, Integer incy,
                T alpha, T beta, Call call) {
  VectorArg<T> xt(true, nx, x, incx);
  if (xt.failed()) {
    c.alloc_fail();
    return false;
  }
  conj_in_place(ny, y, incy);
  call(xt.p(), conj(alpha), conj(beta));
  conj_in_place(ny, y, incy);
  return true;
}

// beta times the stored triangle (column-major terms) or the whole matrix.
template <class T, class S>
void scale_triangle(char u, Integer n, S beta, T* a, Integer pda) {
  for (Integer j = 0; j < n; ++j) {
    T* col = a + static_cast<Index>(j) * pda;
    if (u == 'U')
      scale(j + 1, beta, col, 1);
    else
      scale(n - j, beta, col + j, 1);
  }
}
template <class T, class S>
void scale_matrix(Integer rows, Integer cols, S beta, T* a, Integer pda) {
  for (Integer j = 0; j < cols; ++j) scale(rows, beta, a + static_cast<Index>(j) * pda, 1);
}

// ---- Level 2 -----------------------------------------------------------------

template <class T>
void gemv(const char* r, Integer order, Integer trans, Integer m, Integer n, T alpha, const T* a,
          Integer pda, const T* x, Integer incx, T beta, T* y, Integer incy, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.trans(2, trans) || c.dim(3, "m", m) || c.dim(4, "n", n) ||
      c.array(6, "a", a) || c.array(8, "x", x) || c.array(11, "y", y) || c.inc(9, "incx", incx) ||
      c.inc(12, "incy", incy) || c.ld_max1(7, "pda", pda, row ? "n" : "m", row ? n : m))
    return;
  char t = trans_char<T>(trans);
  if (!row)
    blas::gemv(t, m, n, alpha, a, pda, x, incx, beta, y, incy);
  else if (t != 'C')
    blas::gemv(flip_trans(t), n, m, alpha, a, pda, x, incx, beta, y, incy);
  else if (!conjugated(c, m, x, incx, n, y, incy, alpha, beta, [&](const T* xt, T al, T be) {
             blas::gemv('N', n, m, al, a, pda, xt, 1, be, y, incy);
           }))
    return;
  c.success();
}

template <class T>
void gbmv(const char* r, Integer order, Integer trans, Integer m, Integer n, Integer kl, Integer ku,
          T alpha, const T* ab, Integer pdab, const T* x, Integer incx, T beta, T* y, Integer incy,
          ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.trans(2, trans) || c.dim(3, "m", m) || c.dim(4, "n", n) ||
      c.dim(5, "kl", kl) || c.dim(6, "ku", ku) || c.array(8, "ab", ab) || c.array(10, "x", x) ||
      c.array(13, "y", y) || c.inc(11, "incx", incx) || c.inc(14, "incy", incy) ||
      c.ld(9, "pdab", pdab, kl + ku + 1, "pdab >= kl+ku+1"))
    return;
  char t = trans_char<T>(trans);
  if (!row)
    blas::gbmv(t, m, n, kl, ku, alpha, ab, pdab, x, incx, beta, y, incy);
  else if (t != 'C')
    blas::gbmv(flip_trans(t), n, m, ku, kl, alpha, ab, pdab, x, incx, beta, y, incy);
  else if (!conjugated(c, m, x, incx, n, y, incy, alpha, beta, [&](const T* xt, T al, T be) {
             blas::gbmv('N', n, m, ku, kl, al, ab, pdab, xt, 1, be, y, incy);
           }))
    return;
  c.success();
}

// Symmetric (real) and Hermitian (complex) products: full, band, packed.
// For a Hermitian matrix the exchanged triangle holds conj(A), so the
// row-major complex case goes through the conjugated vectors.
template <class T, class Call>
void hermitian_product(F16Check& c, bool row, Integer n, const T* x, Integer incx, T beta, T* y,
                       Integer incy, T alpha, Call call) {
  if (row && kComplex<T>) {
    if (!conjugated(c, n, x, incx, n, y, incy, alpha, beta,
                    [&](const T* xt, T al, T be) { call(xt, 1, al, be); }))
      return;
  } else {
    call(x, incx, alpha, beta);
  }
  c.success();
}

template <class T>
void symv(const char* r, Integer order, Integer uplo, Integer n, T alpha, const T* a, Integer pda,
          const T* x, Integer incx, T beta, T* y, Integer incy, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.uplo(2, uplo) || c.dim(3, "n", n) || c.array(5, "a", a) ||
      c.array(7, "x", x) || c.array(10, "y", y) || c.inc(8, "incx", incx) || c.inc(11, "incy", incy) ||
      c.ld_max1(6, "pda", pda, "n", n))
    return;
  char u = uplo_char(uplo, row);
  hermitian_product(c, row, n, x, incx, beta, y, incy, alpha, [&](const T* xv, Integer ix, T al, T be) {
    blas::symv(u, n, al, a, pda, xv, ix, be, y, incy);
  });
}

template <class T>
void sbmv(const char* r, Integer order, Integer uplo, Integer n, Integer k, T alpha, const T* ab,
          Integer pdab, const T* x, Integer incx, T beta, T* y, Integer incy, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.uplo(2, uplo) || c.dim(3, "n", n) || c.dim(4, "k", k) ||
      c.array(6, "ab", ab) || c.array(8, "x", x) || c.array(11, "y", y) || c.inc(9, "incx", incx) ||
      c.inc(12, "incy", incy) || c.ld(7, "pdab", pdab, k + 1, "pdab >=k+1"))
    return;
  char u = uplo_char(uplo, row);
  hermitian_product(c, row, n, x, incx, beta, y, incy, alpha, [&](const T* xv, Integer ix, T al, T be) {
    blas::sbmv(u, n, k, al, ab, pdab, xv, ix, be, y, incy);
  });
}

template <class T>
void spmv(const char* r, Integer order, Integer uplo, Integer n, T alpha, const T* ap, const T* x,
          Integer incx, T beta, T* y, Integer incy, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.uplo(2, uplo) || c.dim(3, "n", n) || c.array(5, "ap", ap) ||
      c.array(6, "x", x) || c.array(9, "y", y) || c.inc(7, "incx", incx) || c.inc(10, "incy", incy))
    return;
  char u = uplo_char(uplo, row);
  hermitian_product(c, row, n, x, incx, beta, y, incy, alpha, [&](const T* xv, Integer ix, T al, T be) {
    blas::spmv(u, n, al, ap, xv, ix, be, y, incy);
  });
}

// Triangular products and solves: op(u, t, d) does the BLAS call on x.  A
// row-major conjugate transpose is conj(M) on the exchanged view, done on
// x conjugated in place.  alpha scales the result afterwards, so a solve
// is solve-then-scale.
template <class T, class Op>
void triangular(F16Check& c, bool row, Integer uplo, Integer trans, Integer diag, Integer n, T alpha,
                T* x, Integer incx, Op op) {
  char u = uplo_char(uplo, row), d = diag_char(diag), t = trans_char<T>(trans);
  if (!row) {
    op(u, t, d);
  } else if (t != 'C') {
    op(u, flip_trans(t), d);
  } else {
    conj_in_place(n, x, incx);
    op(u, 'N', d);
    conj_in_place(n, x, incx);
  }
  scale(n, alpha, x, std::abs(incx));
  c.success();
}

template <class T, bool Solve>
void trxv(const char* r, Integer order, Integer uplo, Integer trans, Integer diag, Integer n, T alpha,
          const T* t, Integer pdt, T* x, Integer incx, ZilError* fail) {
  F16Check c(fail, r);
  if (c.order(1, order) || c.uplo(2, uplo) || c.trans(3, trans) || c.diag(4, diag) || c.dim(5, "n", n) ||
      c.array(7, "t", t) || c.array(9, "x", x) || c.inc(10, "incx", incx) ||
      c.ld_max1(8, "pdt", pdt, "n", n))
    return;
  triangular(c, order == Zil_RowMajor, uplo, trans, diag, n, alpha, x, incx, [&](char u, char tr, char d) {
    if constexpr (Solve)
      blas::trsv(u, tr, d, n, t, pdt, x, incx);
    else
      blas::trmv(u, tr, d, n, t, pdt, x, incx);
  });
}

template <class T, bool Solve>
void tbxv(const char* r, Integer order, Integer uplo, Integer trans, Integer diag, Integer n, Integer k,
          T alpha, const T* ab, Integer pdab, T* x, Integer incx, ZilError* fail) {
  F16Check c(fail, r);
  if (c.order(1, order) || c.uplo(2, uplo) || c.trans(3, trans) || c.diag(4, diag) || c.dim(5, "n", n) ||
      c.dim(6, "k", k) || c.array(8, "ab", ab) || c.array(10, "x", x) || c.inc(11, "incx", incx) ||
      c.ld(9, "pdab", pdab, k + 1, "pdab >=k+1"))
    return;
  triangular(c, order == Zil_RowMajor, uplo, trans, diag, n, alpha, x, incx, [&](char u, char tr, char d) {
    if constexpr (Solve)
      blas::tbsv(u, tr, d, n, k, ab, pdab, x, incx);
    else
      blas::tbmv(u, tr, d, n, k, ab, pdab, x, incx);
  });
}

template <class T, bool Solve>
void tpxv(const char* r, Integer order, Integer uplo, Integer trans, Integer diag, Integer n, T alpha,
          const T* ap, T* x, Integer incx, ZilError* fail) {
  F16Check c(fail, r);
  if (c.order(1, order) || c.uplo(2, uplo) || c.trans(3, trans) || c.diag(4, diag) || c.dim(5, "n", n) ||
      c.array(7, "ap", ap) || c.array(8, "x", x) || c.inc(9, "incx", incx))
    return;
  triangular(c, order == Zil_RowMajor, uplo, trans, diag, n, alpha, x, incx, [&](char u, char tr, char d) {
    if constexpr (Solve)
      blas::tpsv(u, tr, d, n, ap, x, incx);
    else
      blas::tpmv(u, tr, d, n, ap, x, incx);
  });
}

// ---- rank updates (with this layer's beta on a) ---------------------------

template <class T>
void ger(const char* r, Integer order, Integer conj_opt, Integer m, Integer n, T alpha, const T* x,
         Integer incx, const T* y, Integer incy, T beta, T* a, Integer pda, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.conj(2, conj_opt) || c.dim(3, "m", m) || c.dim(4, "n", n) ||
      c.array(6, "x", x) || c.array(8, "y", y) || c.array(11, "a", a) || c.inc(7, "incx", incx) ||
      c.inc(9, "incy", incy) || c.ld_max1(12, "pda", pda, row ? "n" : "m", row ? n : m))
    return;
  bool cj = kComplex<T> && conj_opt == Zil_Conj;
  // Row-major, A + alpha x y^H read transposed is A^T + alpha conj(y) x^T.
  VectorArg<T> yv(row && cj, n, y, incy);
  if (yv.failed()) return c.alloc_fail();
  if (!is_one(beta)) row ? scale_matrix(n, m, beta, a, pda) : scale_matrix(m, n, beta, a, pda);
  if (row) {
    blas::ger(n, m, alpha, yv.p(), yv.inc(), x, incx, a, pda);
  } else if constexpr (kComplex<T>) {
    if (cj)
      blas::gerc(m, n, alpha, x, incx, y, incy, a, pda);
    else
      blas::ger(m, n, alpha, x, incx, y, incy, a, pda);
  } else {
    blas::ger(m, n, alpha, x, incx, y, incy, a, pda);
  }
  c.success();
}

// Symmetric and Hermitian rank-1 and rank-2 updates, full and packed
// storage.  The exchanged triangle of a row-major Hermitian matrix holds
// conj(A), so the row-major complex updates work on conjugated copies of x
// (and y, which then goes first: conj(A) + alpha' y' x'^H + ...).
template <class T>
bool conjugates(bool row) {
  return row && kComplex<T>;
}

template <class T, bool Packed>
void syr(const char* r, Integer order, Integer uplo, Integer n, double alpha, const T* x, Integer incx,
         double beta, T* a, Integer pda, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.uplo(2, uplo) || c.dim(3, "n", n) || c.array(5, "x", x) ||
      c.array(8, Packed ? "ap" : "a", a) || c.inc(6, "incx", incx) ||
      (!Packed && c.ld_max1(9, "pda", pda, "n", n)))
    return;
  VectorArg<T> xv(conjugates<T>(row), n, x, incx);
  if (xv.failed()) return c.alloc_fail();
  char u = uplo_char(uplo, row);
  if constexpr (Packed) {
    if (beta != 1.0) scale(n * (n + 1) / 2, beta, a, 1);
    blas::spr(u, n, alpha, xv.p(), xv.inc(), a);
  } else {
    if (beta != 1.0) scale_triangle(u, n, beta, a, pda);
    blas::syr(u, n, alpha, xv.p(), xv.inc(), a, pda);
  }
  c.success();
}

template <class T, bool Packed>
void syr2(const char* r, Integer order, Integer uplo, Integer n, T alpha, const T* x, Integer incx,
          const T* y, Integer incy, double beta, T* a, Integer pda, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.uplo(2, uplo) || c.dim(3, "n", n) || c.array(5, "x", x) ||
      c.array(7, "y", y) || c.array(10, Packed ? "ap" : "a", a) || c.inc(6, "incx", incx) ||
      c.inc(8, "incy", incy) || (!Packed && c.ld_max1(11, "pda", pda, "n", n)))
    return;
  bool cj = conjugates<T>(row);
  VectorArg<T> xv(cj, n, x, incx), yv(cj, n, y, incy);
  if (xv.failed() || yv.failed()) return c.alloc_fail();
  const VectorArg<T>& first = cj ? yv : xv;
  const VectorArg<T>& second = cj ? xv : yv;
  char u = uplo_char(uplo, row);
  if constexpr (Packed) {
    if (beta != 1.0) scale(n * (n + 1) / 2, beta, a, 1);
    blas::spr2(u, n, alpha, first.p(), first.inc(), second.p(), second.inc(), a);
  } else {
    if (beta != 1.0) scale_triangle(u, n, beta, a, pda);
    blas::syr2(u, n, alpha, first.p(), first.inc(), second.p(), second.inc(), a, pda);
  }
  c.success();
}

}  // namespace zil::linalg

namespace zil::linalg {

// ---- Level 3 -------------------------------------------------------------------
// A row-major C is C^T column-major, so each product is formed transposed:
// C^T = op(B)^T op(A)^T for gemm, with side and triangle exchanged for the
// others.  No conjugate problem arises: a whole product is transposed.

template <class T>
void gemm(const char* r, Integer order, Integer transa, Integer transb, Integer m, Integer n, Integer k,
          T alpha, const T* a, Integer pda, const T* b, Integer pdb, T beta, T* c_, Integer pdc,
          ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  bool na = transa == Zil_NoTrans, nb = transb == Zil_NoTrans;
  // The extent that the leading dimension spans, by storage order.
  bool a_m = row ? !na : na, b_k = row ? !nb : nb;
  if (c.order(1, order) || c.trans(2, transa, "transa") || c.trans(3, transb, "transb") ||
      c.dim(4, "m", m) || c.dim(5, "n", n) || c.dim(6, "k", k) || c.array(8, "a", a) ||
      c.array(10, "b", b) || c.array(13, "c", c_) ||
      c.ld_max1(9, "pda", pda, a_m ? "m" : "k", a_m ? m : k) ||
      c.ld_max1(11, "pdb", pdb, b_k ? "k" : "n", b_k ? k : n) ||
      c.ld_max1(14, "pdc", pdc, row ? "n" : "m", row ? n : m))
    return;
  char ta = trans_char<T>(transa), tb = trans_char<T>(transb);
  if (row)
    blas::gemm(tb, ta, n, m, k, alpha, b, pdb, a, pda, beta, c_, pdc);
  else
    blas::gemm(ta, tb, m, n, k, alpha, a, pda, b, pdb, beta, c_, pdc);
  c.success();
}

template <class T, bool Herm>
void symm(const char* r, Integer order, Integer side, Integer uplo, Integer m, Integer n, T alpha,
          const T* a, Integer pda, const T* b, Integer pdb, T beta, T* c_, Integer pdc, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor, left = side == Zil_LeftSide;
  if (c.order(1, order) || c.side(2, side) || c.uplo(3, uplo) || c.dim(4, "m", m) || c.dim(5, "n", n) ||
      c.array(7, "a", a) || c.array(9, "b", b) || c.array(12, "c", c_) ||
      c.ld_max1(8, "pda", pda, left ? "m" : "n", left ? m : n) ||
      c.ld_max1(10, "pdb", pdb, row ? "n" : "m", row ? n : m) ||
      c.ld_max1(13, "pdc", pdc, row ? "n" : "m", row ? n : m))
    return;
  char s = side_char(side, row), u = uplo_char(uplo, row);
  Integer mm = row ? n : m, nn = row ? m : n;
  if constexpr (Herm)
    blas::hemm(s, u, mm, nn, alpha, a, pda, b, pdb, beta, c_, pdc);
  else
    blas::symm(s, u, mm, nn, alpha, a, pda, b, pdb, beta, c_, pdc);
  c.success();
}

template <class T, bool Solve>
void trxm(const char* r, Integer order, Integer side, Integer uplo, Integer transa, Integer diag,
          Integer m, Integer n, T alpha, const T* a, Integer pda, T* b, Integer pdb, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor, left = side == Zil_LeftSide;
  if (c.order(1, order) || c.side(2, side) || c.uplo(3, uplo) || c.trans(4, transa, "transa") ||
      c.diag(5, diag) || c.dim(6, "m", m) || c.dim(7, "n", n) || c.array(9, "a", a) ||
      c.array(11, "b", b) || c.ld_max1(10, "pda", pda, left ? "m" : "n", left ? m : n) ||
      c.ld_max1(12, "pdb", pdb, row ? "n" : "m", row ? n : m))
    return;
  char s = side_char(side, row), u = uplo_char(uplo, row), t = trans_char<T>(transa), d = diag_char(diag);
  Integer mm = row ? n : m, nn = row ? m : n;
  if constexpr (Solve)
    blas::trsm(s, u, t, d, mm, nn, alpha, a, pda, b, pdb);
  else
    blas::trmm(s, u, t, d, mm, nn, alpha, a, pda, b, pdb);
  c.success();
}

// Rank-k and rank-2k updates.  Kind: the published transposition letter
// that goes with the plain product ('T' symmetric, 'C' Hermitian); a
// complex matrix accepts only that one besides "N", a real one all three.
template <class T, char Kind>
bool rank_k_trans(F16Check& c, Integer trans) {
  bool ok = valid_trans(trans);
  if constexpr (kComplex<T>) ok = trans == Zil_NoTrans || trans == (Kind == 'C' ? Zil_ConjTrans : Zil_Trans);
  return c.enumeration(3, "trans", trans, ok);
}

template <class T, char Kind, class S>
void syrk(const char* r, Integer order, Integer uplo, Integer trans, Integer n, Integer k, S alpha,
          const T* a, Integer pda, S beta, T* c_, Integer pdc, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor, plain = trans == Zil_NoTrans;
  bool a_n = row ? !plain : plain;
  if (c.order(1, order) || c.uplo(2, uplo) || rank_k_trans<T, Kind>(c, trans) || c.dim(4, "n", n) ||
      c.dim(5, "k", k) || c.array(7, "a", a) || c.array(10, "c", c_) ||
      c.ld_max1(8, "pda", pda, a_n ? "n" : "k", a_n ? n : k) || c.ld_max1(11, "pdc", pdc, "n", n))
    return;
  char u = uplo_char(uplo, row), t = plain != row ? 'N' : Kind;
  if constexpr (Kind == 'C')
    blas::herk(u, t, n, k, alpha, a, pda, beta, c_, pdc);
  else
    blas::syrk(u, t, n, k, alpha, a, pda, beta, c_, pdc);
  c.success();
}

template <class T, char Kind, class S>
void syr2k(const char* r, Integer order, Integer uplo, Integer trans, Integer n, Integer k, T alpha,
           const T* a, Integer pda, const T* b, Integer pdb, S beta, T* c_, Integer pdc, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor, plain = trans == Zil_NoTrans;
  bool a_n = row ? !plain : plain;
  if (c.order(1, order) || c.uplo(2, uplo) || rank_k_trans<T, Kind>(c, trans) || c.dim(4, "n", n) ||
      c.dim(5, "k", k) || c.array(7, "a", a) || c.array(9, "b", b) || c.array(12, "c", c_) ||
      c.ld_max1(8, "pda", pda, a_n ? "n" : "k", a_n ? n : k) ||
      c.ld_max1(10, "pdb", pdb, a_n ? "n" : "k", a_n ? n : k) || c.ld_max1(13, "pdc", pdc, "n", n))
    return;
  char u = uplo_char(uplo, row), t = plain != row ? 'N' : Kind;
  // Read transposed, alpha A B^H + conj(alpha) B A^H pairs conj(alpha)
  // with the first product.
  if constexpr (Kind == 'C')
    blas::her2k(u, t, n, k, row ? conj(alpha) : alpha, a, pda, b, pdb, beta, c_, pdc);
  else
    blas::syr2k(u, t, n, k, alpha, a, pda, b, pdb, beta, c_, pdc);
  c.success();
}

}  // namespace zil::linalg
