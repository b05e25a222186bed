// Matrix copy, load and norm: the f16 fronts and the older utilities.
#include <algorithm>
#include <cstring>
#include <type_traits>

#include "frame/export.hpp"
#include "frame/workspace.hpp"
#include "linalg/detail/complex.hpp"
#include "linalg/detail/f06report.hpp"
#include "linalg/detail/f16check.hpp"
#include "linalg/detail/lapack.hpp"
#include "linalg/detail/options.hpp"
#include "linalg/detail/strided.hpp"
#include "zil_linalg.h"

namespace zil::linalg {
namespace {

template <class T>
constexpr bool kCplx = std::is_same_v<T, Complex>;

// Every (i, j) of a column-major m by n shape: General, UpperTriangular
// (i <= j) or LowerTriangular (i >= j), column by column.
template <class F>
void for_shape(Integer shape, Integer m, Integer n, F f) {
  for (Integer j = 0; j < n; ++j) {
    Integer lo = shape == LowerTriangular ? j : 0;
    Integer hi = shape == UpperTriangular ? std::min(j + 1, m) : m;
    for (Integer i = lo; i < hi; ++i) f(i, j);
  }
}

template <class T>
T& at(T* a, Integer pd, Integer i, Integer j) {
  return a[static_cast<Index>(j) * pd + i];
}

template <class T>
void copy_shape(Integer shape, Integer m, Integer n, const T* a, Integer pda, T* b, Integer pdb) {
  for_shape(shape, m, n, [&](Integer i, Integer j) { at(b, pdb, i, j) = at(a, pda, i, j); });
}

template <class T>
void load_shape(Integer shape, Integer m, Integer n, T con, T diag, T* a, Integer pda) {
  for_shape(shape, m, n, [&](Integer i, Integer j) { at(a, pda, i, j) = con; });
  if (std::memcmp(&con, &diag, sizeof(T)) != 0)
    for (Integer i = 0; i < std::min(m, n); ++i) at(a, pda, i, i) = diag;
}

// B = op(A) element by element for the (i, j) that keep(i, j) names, in
// column-major terms: B(j, i) = A(i, j) (conjugated for 'C') when
// transposing.
template <class T, class Keep>
void copy_op(char t, Integer m, Integer n, const T* a, Integer pda, T* b, Integer pdb, Keep keep) {
  for (Integer j = 0; j < n; ++j)
    for (Integer i = 0; i < m; ++i) {
      if (!keep(i, j)) continue;
      const T& v = at(const_cast<T*>(a), pda, i, j);
      if (t == 'N')
        at(b, pdb, i, j) = v;
      else
        at(b, pdb, j, i) = t == 'C' ? conj(v) : v;
    }
}

template <class T>
char trans_letter(Integer t) {
  if (t == Zil_NoTrans) return 'N';
  return t == Zil_ConjTrans && kCplx<T> ? 'C' : 'T';
}

// ---- copy and load fronts ----------------------------------------------------
// A row-major matrix is handled as its column-major transpose: B = op(A)
// holds exactly when B^T = op(A^T), so only the shapes swap.

template <class T>
void ge_copy(const char* r, Integer order, Integer trans, Integer m, Integer n, const T* a, Integer pda,
             T* b, Integer pdb, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor, plain = trans == Zil_NoTrans;
  // Rows of the column-major view of A and of B.
  Integer ar = row ? n : m, br = plain ? ar : (row ? m : n);
  if (c.order(1, order) || c.trans(2, trans) || c.dim(3, "m", m) || c.dim(4, "n", n) || c.array(5, "a", a) ||
      c.array(7, "b", b) || c.ld_max1(6, "pda", pda, row ? "n" : "m", ar) ||
      c.ld_max1(8, "pdb", pdb, br == m ? "m" : "n", br))
    return;
  copy_op(trans_letter<T>(trans), ar, row ? m : n, a, pda, b, pdb, [](Integer, Integer) { return true; });
  c.success();
}

template <class T>
void tr_copy(const char* r, Integer order, Integer uplo, Integer trans, Integer diag, Integer n, const T* a,
             Integer pda, T* b, Integer pdb, ZilError* fail) {
  F16Check c(fail, r);
  if (c.order(1, order) || c.uplo(2, uplo) || c.trans(3, trans) || c.diag(4, diag) || c.dim(5, "n", n) ||
      c.array(6, "a", a) || c.array(8, "b", b) || c.ld_max1(7, "pda", pda, "n", n) ||
      c.ld_max1(9, "pdb", pdb, "n", n))
    return;
  bool upper = (uplo == Zil_Upper) != (order == Zil_RowMajor);
  bool unit = diag == Zil_UnitDiag;
  // The diagonal of a unit triangle is neither read nor written.
  copy_op(trans_letter<T>(trans), n, n, a, pda, b, pdb,
          [&](Integer i, Integer j) { return (upper ? i <= j : i >= j) && !(unit && i == j); });
  c.success();
}

template <class T>
void ge_load(const char* r, Integer order, Integer m, Integer n, T alpha, T beta, T* a, Integer pda,
             ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.dim(2, "m", m) || c.dim(3, "n", n) || c.array(6, "a", a) ||
      c.ld_max1(7, "pda", pda, row ? "n" : "m", row ? n : m))
    return;
  load_shape(General, row ? n : m, row ? m : n, alpha, beta, a, pda);
  c.success();
}

template <class T>
void tr_load(const char* r, Integer order, Integer uplo, Integer n, T alpha, T beta, T* a, Integer pda,
             ZilError* fail) {
  F16Check c(fail, r);
  if (c.order(1, order) || c.uplo(2, uplo) || c.dim(3, "n", n) || c.array(6, "a", a) ||
      c.ld_max1(7, "pda", pda, "n", n))
    return;
  bool upper = (uplo == Zil_Upper) != (order == Zil_RowMajor);
  load_shape(upper ? UpperTriangular : LowerTriangular, n, n, alpha, beta, a, pda);
  c.success();
}

// ---- norms -------------------------------------------------------------------------
// The published norm functions, in column-major terms: row-major exchanges
// the one-norm and the infinity-norm (the norms of the transpose).

char norm_letter(Integer norm, bool row) {
  switch (norm) {
    case Zil_OneNorm: case Zil_RealOneNorm: return row ? 'I' : 'O';
    case Zil_InfNorm: case Zil_RealInfNorm: return row ? 'O' : 'I';
    case Zil_FrobeniusNorm: return 'F';
    default: return 'M';
  }
}

// Runs norm(work) with a work array of rows reals when need is set.
template <class F>
void with_work(F16Check& c, bool need, Integer rows, double* value, F norm) {
  if (!need) {
    *value = norm(nullptr);
    return c.success();
  }
  Workspace<double> w(static_cast<std::size_t>(rows));
  if (!w) return c.alloc_fail();
  *value = norm(w.get());
  c.success();
}

template <class T>
void ge_norm(const char* r, Integer order, Integer norm, Integer m, Integer n, const T* a, Integer pda,
             double* value, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.norm(2, norm) || c.dim(3, "m", m) || c.dim(4, "n", n) || c.array(5, "a", a) ||
      c.array(7, "value", value) || c.ld_max1(6, "pda", pda, row ? "n" : "m", row ? n : m))
    return;
  char nm = norm_letter(norm, row);
  Integer rows = row ? n : m, cols = row ? m : n;
  // The column work array serves the infinity-norm only.
  with_work(c, nm == 'I', rows, value, [&](double* w) { return lapack::lange(nm, rows, cols, a, pda, w); });
}

template <class T>
void gb_norm(const char* r, Integer order, Integer norm, Integer n, Integer kl, Integer ku, const T* ab,
             Integer pdab, double* value, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.norm(2, norm) || c.dim(3, "n", n) || c.dim(4, "kl", kl) || c.dim(5, "ku", ku) ||
      c.array(6, "ab", ab) || c.array(8, "value", value) || c.ld(7, "pdab", pdab, kl + ku + 1, "pdab >= kl+ku+1"))
    return;
  char nm = norm_letter(norm, row);
  with_work(c, nm == 'I', n, value, [&](double* w) {
    return lapack::langb(nm, n, row ? ku : kl, row ? kl : ku, ab, pdab, w);
  });
}

// Symmetric or Hermitian (Herm), full, packed or band: the one- and the
// infinity-norm both need the work array.
template <class T, bool Herm>
void sy_norm(const char* r, Integer order, Integer norm, Integer uplo, Integer n, const T* a, Integer pda,
             double* value, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.norm(2, norm) || c.uplo(3, uplo) || c.dim(4, "n", n) || c.array(5, "a", a) ||
      c.array(7, "value", value) || c.ld_max1(6, "pda", pda, "n", n))
    return;
  char nm = norm_letter(norm, row), u = (uplo == Zil_Upper) != row ? 'U' : 'L';
  with_work(c, nm == 'I' || nm == 'O', n, value,
            [&](double* w) { return lapack::lansy<Herm>(nm, u, n, a, pda, w); });
}

template <class T, bool Herm>
void sp_norm(const char* r, Integer order, Integer norm, Integer uplo, Integer n, const T* ap, double* value,
             ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.norm(2, norm) || c.uplo(3, uplo) || c.dim(4, "n", n) || c.array(5, "ap", ap) ||
      c.array(6, "value", value))
    return;
  char nm = norm_letter(norm, row), u = (uplo == Zil_Upper) != row ? 'U' : 'L';
  with_work(c, nm == 'I' || nm == 'O', n, value, [&](double* w) { return lapack::lansp<Herm>(nm, u, n, ap, w); });
}

template <class T, bool Herm>
void sb_norm(const char* r, Integer order, Integer norm, Integer uplo, Integer n, Integer k, const T* ab,
             Integer pdab, double* value, ZilError* fail) {
  F16Check c(fail, r);
  bool row = order == Zil_RowMajor;
  if (c.order(1, order) || c.norm(2, norm) || c.uplo(3, uplo) || c.dim(4, "n", n) || c.dim(5, "k", k) ||
      c.array(6, "ab", ab) || c.array(8, "value", value) || c.ld(7, "pdab", pdab, k + 1, "pdab >=k+1"))
    return;
  char nm = norm_letter(norm, row), u = (uplo == Zil_Upper) != row ? 'U' : 'L';
  with_work(c, nm == 'I' || nm == 'O', n, value,
            [&](double* w) { return lapack::lansb<Herm>(nm, u, n, k, ab, pdab, w); });
}

}  // namespace
}  // namespace zil::linalg

using namespace zil::linalg;

// ---- the f16 entry points ---------------------------------------------------------

extern "C" void f16qfc(Integer order, Integer trans, Integer m, Integer n, const double a[], Integer pda,
                       double b[], Integer pdb, ZilError* fail) {
  ge_copy("zil_dge_copy (f16qfc)", order, trans, m, n, a, pda, b, pdb, fail);
}
ZIL_ALIAS(f16qfc, zil_dge_copy);
extern "C" void f16tfc(Integer order, Integer trans, Integer m, Integer n, const Complex a[], Integer pda,
                       Complex b[], Integer pdb, ZilError* fail) {
  ge_copy("zil_zge_copy (f16tfc)", order, trans, m, n, a, pda, b, pdb, fail);
}
ZIL_ALIAS(f16tfc, zil_zge_copy);

extern "C" void f16qec(Integer order, Integer uplo, Integer trans, Integer diag, Integer n, const double a[],
                       Integer pda, double b[], Integer pdb, ZilError* fail) {
  tr_copy("zil_dtr_copy (f16qec)", order, uplo, trans, diag, n, a, pda, b, pdb, fail);
}
ZIL_ALIAS(f16qec, zil_dtr_copy);
extern "C" void f16tec(Integer order, Integer uplo, Integer trans, Integer diag, Integer n, const Complex a[],
                       Integer pda, Complex b[], Integer pdb, ZilError* fail) {
  tr_copy("zil_ztr_copy (f16tec)", order, uplo, trans, diag, n, a, pda, b, pdb, fail);
}
ZIL_ALIAS(f16tec, zil_ztr_copy);

extern "C" void f16qhc(Integer order, Integer m, Integer n, double alpha, double beta, double a[], Integer pda,
                       ZilError* fail) {
  ge_load("zil_dge_load (f16qhc)", order, m, n, alpha, beta, a, pda, fail);
}
ZIL_ALIAS(f16qhc, zil_dge_load);
extern "C" void f16thc(Integer order, Integer m, Integer n, Complex alpha, Complex beta, Complex a[], Integer pda,
                       ZilError* fail) {
  ge_load("zil_zge_load (f16thc)", order, m, n, alpha, beta, a, pda, fail);
}
ZIL_ALIAS(f16thc, zil_zge_load);

extern "C" void f16qgc(Integer order, Integer uplo, Integer n, double alpha, double beta, double a[], Integer pda,
                       ZilError* fail) {
  tr_load("zil_dtr_load (f16qgc)", order, uplo, n, alpha, beta, a, pda, fail);
}
ZIL_ALIAS(f16qgc, zil_dtr_load);
extern "C" void f16tgc(Integer order, Integer uplo, Integer n, Complex alpha, Complex beta, Complex a[],
                       Integer pda, ZilError* fail) {
  tr_load("zil_ztr_load (f16tgc)", order, uplo, n, alpha, beta, a, pda, fail);
}
// Exported under this spelling; its messages say zil_ztr_load.
ZIL_ALIAS(f16tgc, zyl_ztr_load);

extern "C" void f16rac(Integer order, Integer norm, Integer m, Integer n, const double a[], Integer pda,
                       double* value, ZilError* fail) {
  ge_norm("zil_dge_norm (f16rac)", order, norm, m, n, a, pda, value, fail);
}
ZIL_ALIAS(f16rac, zil_dge_norm);
extern "C" void f16uac(Integer order, Integer norm, Integer m, Integer n, const Complex a[], Integer pda,
                       double* value, ZilError* fail) {
  ge_norm("zil_zge_norm (f16uac)", order, norm, m, n, a, pda, value, fail);
}
ZIL_ALIAS(f16uac, zil_zge_norm);

extern "C" void f16rbc(Integer order, Integer norm, Integer n, Integer kl, Integer ku, const double ab[],
                       Integer pdab, double* value, ZilError* fail) {
  gb_norm("zil_dgb_norm (f16rbc)", order, norm, n, kl, ku, ab, pdab, value, fail);
}
ZIL_ALIAS(f16rbc, zil_dgb_norm);
extern "C" void f16ubc(Integer order, Integer norm, Integer n, Integer kl, Integer ku, const Complex ab[],
                       Integer pdab, double* value, ZilError* fail) {
  gb_norm("zil_zgb_norm (f16ubc)", order, norm, n, kl, ku, ab, pdab, value, fail);
}
ZIL_ALIAS(f16ubc, zil_zgb_norm);

extern "C" void f16rcc(Integer order, Integer norm, Integer uplo, Integer n, const double a[], Integer pda,
                       double* value, ZilError* fail) {
  sy_norm<double, false>("zil_dsy_norm (f16rcc)", order, norm, uplo, n, a, pda, value, fail);
}
ZIL_ALIAS(f16rcc, zil_dsy_norm);
extern "C" void f16ucc(Integer order, Integer norm, Integer uplo, Integer n, const Complex a[], Integer pda,
                       double* value, ZilError* fail) {
  sy_norm<Complex, true>("zil_zhe_norm (f16ucc)", order, norm, uplo, n, a, pda, value, fail);
}
ZIL_ALIAS(f16ucc, zil_zhe_norm);
extern "C" void f16ufc(Integer order, Integer norm, Integer uplo, Integer n, const Complex a[], Integer pda,
                       double* value, ZilError* fail) {
  sy_norm<Complex, false>("zil_zsy_norm (f16ufc)", order, norm, uplo, n, a, pda, value, fail);
}
ZIL_ALIAS(f16ufc, zil_zsy_norm);

extern "C" void f16rdc(Integer order, Integer norm, Integer uplo, Integer n, const double ap[], double* value,
                       ZilError* fail) {
  sp_norm<double, false>("zil_dsp_norm (f16rdc)", order, norm, uplo, n, ap, value, fail);
}
ZIL_ALIAS(f16rdc, zil_dsp_norm);
extern "C" void f16udc(Integer order, Integer norm, Integer uplo, Integer n, const Complex ap[], double* value,
                       ZilError* fail) {
  sp_norm<Complex, true>("zil_zhp_norm (f16udc)", order, norm, uplo, n, ap, value, fail);
}
ZIL_ALIAS(f16udc, zil_zhp_norm);
extern "C" void f16ugc(Integer order, Integer norm, Integer uplo, Integer n, const Complex ap[], double* value,
                       ZilError* fail) {
  sp_norm<Complex, false>("zil_zsp_norm (f16ugc)", order, norm, uplo, n, ap, value, fail);
}
ZIL_ALIAS(f16ugc, zil_zsp_norm);

extern "C" void f16rec(Integer order, Integer norm, Integer uplo, Integer n, Integer k, const double ab[],
                       Integer pdab, double* value, ZilError* fail) {
  sb_norm<double, false>("zil_dsb_norm (f16rec)", order, norm, uplo, n, k, ab, pdab, value, fail);
}
ZIL_ALIAS(f16rec, zil_dsb_norm);
extern "C" void f16uec(Integer order, Integer norm, Integer uplo, Integer n, Integer k, const Complex ab[],
                       Integer pdab, double* value, ZilError* fail) {
  sb_norm<Complex, true>("zil_zhb_norm (f16uec)", order, norm, uplo, n, k, ab, pdab, value, fail);
}
ZIL_ALIAS(f16uec, zil_zhb_norm);

// ---- the older utilities (column-major) ------------------------------------------

extern "C" void f06qfc(Integer shape, Integer m, Integer n, const double a[], Integer pda, double b[], Integer pdb) {
  copy_shape(shape, m, n, a, pda, b, pdb);
}
extern "C" void f06tfc(Integer shape, Integer m, Integer n, const Complex a[], Integer pda, Complex b[], Integer pdb) {
  copy_shape(shape, m, n, a, pda, b, pdb);
}
extern "C" void f06qhc(Integer shape, Integer m, Integer n, double con, double diag, double a[], Integer pda) {
  load_shape(shape, m, n, con, diag, a, pda);
}
extern "C" void f06thc(Integer shape, Integer m, Integer n, Complex con, Complex diag, Complex a[], Integer pda) {
  load_shape(shape, m, n, con, diag, a, pda);
}

namespace {

Integer shape_uplo(Integer shape) {
  switch (shape) {
    case UpperTriangular: case SymmetricUpper: case HermitianUpper: return Zil_Upper;
    case LowerTriangular: case SymmetricLower: case HermitianLower: return Zil_Lower;
    default: return kUnknownOption;
  }
}

// A norm of the older form: general, or over one triangle.  On failure the
// f16 position is moved past the older form's extra shape argument.
template <class T, class GeneralFn, class TriangleFn>
double older_norm(const char* tag, Integer norm, Integer shape, Integer m, Integer n, const T* a, Integer pda,
                  GeneralFn general, TriangleFn triangle) {
  ZilError rec = own_record();
  double value = 0.0;
  Integer nm = older_option(norm);
  bool tri = shape != General && m == n;
  if (tri)
    triangle(Zil_ColMajor, nm, shape_uplo(shape), n, a, pda, &value, &rec);
  else
    general(Zil_ColMajor, nm, m, n, a, pda, &value, &rec);
  if (rec.code == ZE_NOERROR) return value;
  if (rec.code != ZE_ALLOC_FAIL && rec.argnum < (tri ? -4 : -2)) rec.argnum -= 1;
  f06aaz_d(tag, &rec);
  return 0.0;
}

}  // namespace

extern "C" double f06qgc(Integer norm, Integer shape, Integer m, Integer n, const double a[], Integer pda) {
  return older_norm("f06qgc", norm, shape, m, n, a, pda, f16rac, f16rcc);
}

extern "C" double f06rac(Integer norm, Integer m, Integer n, const double a[], Integer pda) {
  ZilError rec = own_record();
  double value = 0.0;
  f16rac(Zil_ColMajor, older_option(norm), m, n, a, pda, &value, &rec);
  return report_f06("f06rac", rec) ? 0.0 : value;
}

extern "C" double f06uaf(Integer norm, Integer m, Integer n, const Complex a[], Integer pda) {
  ZilError rec = own_record();
  double value = 0.0;
  f16uac(Zil_ColMajor, older_option(norm), m, n, a, pda, &value, &rec);
  return report_f06("f06uaf", rec) ? 0.0 : value;
}

extern "C" double f06vgc(Integer norm, Integer shape, Integer m, Integer n, const Complex a[], Integer pda) {
  if (std::min(m, n) == 0) return 0.0;
  bool herm = shape == HermitianUpper || shape == HermitianLower;
  return older_norm("f06vgc", norm, shape, m, n, a, pda, f16uac, herm ? f16ucc : f16ufc);
}

// The letter form of f06qfc: "G" copies a rectangle through f16qfc, "U" and
// "L" a square triangle through f16qec (an oblong trapezoid directly).
extern "C" void f06qff_f(const char* matrix, Integer m, Integer n, const double a[], Integer pda, double b[],
                         Integer pdb, Integer) {
  char shape = letter(matrix);
  ZilError rec = own_record();
  if (shape == 'G') {
    f16qfc(Zil_ColMajor, Zil_NoTrans, m, n, a, pda, b, pdb, &rec);
    report_f06("f06qff", rec);
    return;
  }
  if ((shape == 'U' || shape == 'L') && m != n && m >= 0 && n >= 0) {
    copy_shape(shape == 'U' ? UpperTriangular : LowerTriangular, m, n, a, pda, b, pdb);
    return;
  }
  f16qec(Zil_ColMajor, letter_uplo(matrix), Zil_NoTrans, Zil_NonUnitDiag, m, a, pda, b, pdb, &rec);
  if (rec.code == ZE_NOERROR) return;
  // f16qec has uplo, trans and diag where this form has matrix, and n
  // where it has m.
  Integer k = rec.argnum;
  if (k < -5) rec.argnum = k + 1;
  else if (k == -5) rec.argnum = k + 2;
  else if (k < -1) rec.argnum = -2;
  f06aaz_d("f06qff", &rec);
}
