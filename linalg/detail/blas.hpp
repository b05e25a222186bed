// The published Fortran BLAS entry points that the f16 fronts call, and
// overloads over double and Complex that let one front serve both.
//
// Every argument is passed by reference.  Each character argument has a
// hidden length word at the end of the list (gfortran's convention, a
// size_t); the BLAS read one character, so the length is always 1.
#pragma once

#include <cstddef>

#include "zil_types.h"

extern "C" {
using L = std::size_t;
using I = const int;
using D = const double;
using Z = const Complex;
// Level 2, real.
void dgemv_(const char*, I*, I*, D*, D*, I*, D*, I*, D*, double*, I*, L);
void dgbmv_(const char*, I*, I*, I*, I*, D*, D*, I*, D*, I*, D*, double*, I*, L);
void dsymv_(const char*, I*, D*, D*, I*, D*, I*, D*, double*, I*, L);
void dsbmv_(const char*, I*, I*, D*, D*, I*, D*, I*, D*, double*, I*, L);
void dspmv_(const char*, I*, D*, D*, D*, I*, D*, double*, I*, L);
void dtrmv_(const char*, const char*, const char*, I*, D*, I*, double*, I*, L, L, L);
void dtbmv_(const char*, const char*, const char*, I*, I*, D*, I*, double*, I*, L, L, L);
void dtpmv_(const char*, const char*, const char*, I*, D*, double*, I*, L, L, L);
void dtrsv_(const char*, const char*, const char*, I*, D*, I*, double*, I*, L, L, L);
void dtbsv_(const char*, const char*, const char*, I*, I*, D*, I*, double*, I*, L, L, L);
void dtpsv_(const char*, const char*, const char*, I*, D*, double*, I*, L, L, L);
void dger_(I*, I*, D*, D*, I*, D*, I*, double*, I*);
void dsyr_(const char*, I*, D*, D*, I*, double*, I*, L);
void dspr_(const char*, I*, D*, D*, I*, double*, L);
void dsyr2_(const char*, I*, D*, D*, I*, D*, I*, double*, I*, L);
void dspr2_(const char*, I*, D*, D*, I*, D*, I*, double*, L);
// Level 2, complex.
void zgemv_(const char*, I*, I*, Z*, Z*, I*, Z*, I*, Z*, Complex*, I*, L);
void zgbmv_(const char*, I*, I*, I*, I*, Z*, Z*, I*, Z*, I*, Z*, Complex*, I*, L);
void zhemv_(const char*, I*, Z*, Z*, I*, Z*, I*, Z*, Complex*, I*, L);
void zhbmv_(const char*, I*, I*, Z*, Z*, I*, Z*, I*, Z*, Complex*, I*, L);
void zhpmv_(const char*, I*, Z*, Z*, Z*, I*, Z*, Complex*, I*, L);
void ztrmv_(const char*, const char*, const char*, I*, Z*, I*, Complex*, I*, L, L, L);
void ztbmv_(const char*, const char*, const char*, I*, I*, Z*, I*, Complex*, I*, L, L, L);
void ztpmv_(const char*, const char*, const char*, I*, Z*, Complex*, I*, L, L, L);
void ztrsv_(const char*, const char*, const char*, I*, Z*, I*, Complex*, I*, L, L, L);
void ztbsv_(const char*, const char*, const char*, I*, I*, Z*, I*, Complex*, I*, L, L, L);
void ztpsv_(const char*, const char*, const char*, I*, Z*, Complex*, I*, L, L, L);
void zgeru_(I*, I*, Z*, Z*, I*, Z*, I*, Complex*, I*);
void zgerc_(I*, I*, Z*, Z*, I*, Z*, I*, Complex*, I*);
void zher_(const char*, I*, D*, Z*, I*, Complex*, I*, L);
void zhpr_(const char*, I*, D*, Z*, I*, Complex*, L);
void zher2_(const char*, I*, Z*, Z*, I*, Z*, I*, Complex*, I*, L);
void zhpr2_(const char*, I*, Z*, Z*, I*, Z*, I*, Complex*, L);
// Level 3.
void dgemm_(const char*, const char*, I*, I*, I*, D*, D*, I*, D*, I*, D*, double*, I*, L, L);
void dsymm_(const char*, const char*, I*, I*, D*, D*, I*, D*, I*, D*, double*, I*, L, L);
void dtrmm_(const char*, const char*, const char*, const char*, I*, I*, D*, D*, I*, double*, I*, L, L, L, L);
void dtrsm_(const char*, const char*, const char*, const char*, I*, I*, D*, D*, I*, double*, I*, L, L, L, L);
void dsyrk_(const char*, const char*, I*, I*, D*, D*, I*, D*, double*, I*, L, L);
void dsyr2k_(const char*, const char*, I*, I*, D*, D*, I*, D*, I*, D*, double*, I*, L, L);
void zgemm_(const char*, const char*, I*, I*, I*, Z*, Z*, I*, Z*, I*, Z*, Complex*, I*, L, L);
void zsymm_(const char*, const char*, I*, I*, Z*, Z*, I*, Z*, I*, Z*, Complex*, I*, L, L);
void zhemm_(const char*, const char*, I*, I*, Z*, Z*, I*, Z*, I*, Z*, Complex*, I*, L, L);
void ztrmm_(const char*, const char*, const char*, const char*, I*, I*, Z*, Z*, I*, Complex*, I*, L, L, L, L);
void ztrsm_(const char*, const char*, const char*, const char*, I*, I*, Z*, Z*, I*, Complex*, I*, L, L, L, L);
void zsyrk_(const char*, const char*, I*, I*, Z*, Z*, I*, Z*, Complex*, I*, L, L);
void zherk_(const char*, const char*, I*, I*, D*, Z*, I*, D*, Complex*, I*, L, L);
void zsyr2k_(const char*, const char*, I*, I*, Z*, Z*, I*, Z*, I*, Z*, Complex*, I*, L, L);
void zher2k_(const char*, const char*, I*, I*, Z*, Z*, I*, Z*, I*, D*, Complex*, I*, L, L);
}

namespace zil::linalg::blas {

// Overloads by element type.  On Complex the Level-2 symmetric names
// (symv, sbmv, spmv, syr, spr, syr2, spr2) are the Hermitian routines, the
// only ones the published Level 2 has; in Level 3 the symmetric and the
// Hermitian forms are both published and keep their own names.  Each overload takes the character options by value and passes them with
// their length 1.
inline void gemv(char t, int m, int n, double al, const double* a, int ld, const double* x, int ix, double be, double* y, int iy) { dgemv_(&t, &m, &n, &al, a, &ld, x, &ix, &be, y, &iy, 1); }
inline void gemv(char t, int m, int n, Complex al, const Complex* a, int ld, const Complex* x, int ix, Complex be, Complex* y, int iy) { zgemv_(&t, &m, &n, &al, a, &ld, x, &ix, &be, y, &iy, 1); }
inline void gbmv(char t, int m, int n, int kl, int ku, double al, const double* a, int ld, const double* x, int ix, double be, double* y, int iy) { dgbmv_(&t, &m, &n, &kl, &ku, &al, a, &ld, x, &ix, &be, y, &iy, 1); }
inline void gbmv(char t, int m, int n, int kl, int ku, Complex al, const Complex* a, int ld, const Complex* x, int ix, Complex be, Complex* y, int iy) { zgbmv_(&t, &m, &n, &kl, &ku, &al, a, &ld, x, &ix, &be, y, &iy, 1); }
inline void symv(char u, int n, double al, const double* a, int ld, const double* x, int ix, double be, double* y, int iy) { dsymv_(&u, &n, &al, a, &ld, x, &ix, &be, y, &iy, 1); }
inline void symv(char u, int n, Complex al, const Complex* a, int ld, const Complex* x, int ix, Complex be, Complex* y, int iy) { zhemv_(&u, &n, &al, a, &ld, x, &ix, &be, y, &iy, 1); }
inline void sbmv(char u, int n, int k, double al, const double* a, int ld, const double* x, int ix, double be, double* y, int iy) { dsbmv_(&u, &n, &k, &al, a, &ld, x, &ix, &be, y, &iy, 1); }
inline void sbmv(char u, int n, int k, Complex al, const Complex* a, int ld, const Complex* x, int ix, Complex be, Complex* y, int iy) { zhbmv_(&u, &n, &k, &al, a, &ld, x, &ix, &be, y, &iy, 1); }
inline void spmv(char u, int n, double al, const double* a, const double* x, int ix, double be, double* y, int iy) { dspmv_(&u, &n, &al, a, x, &ix, &be, y, &iy, 1); }
inline void spmv(char u, int n, Complex al, const Complex* a, const Complex* x, int ix, Complex be, Complex* y, int iy) { zhpmv_(&u, &n, &al, a, x, &ix, &be, y, &iy, 1); }

// Triangular Level 2: full (trmv/trsv), band (tbmv/tbsv, with k), packed.
inline void trmv(char u, char t, char d, int n, const double* a, int ld, double* x, int ix) { dtrmv_(&u, &t, &d, &n, a, &ld, x, &ix, 1, 1, 1); }
inline void trmv(char u, char t, char d, int n, const Complex* a, int ld, Complex* x, int ix) { ztrmv_(&u, &t, &d, &n, a, &ld, x, &ix, 1, 1, 1); }
inline void trsv(char u, char t, char d, int n, const double* a, int ld, double* x, int ix) { dtrsv_(&u, &t, &d, &n, a, &ld, x, &ix, 1, 1, 1); }
inline void trsv(char u, char t, char d, int n, const Complex* a, int ld, Complex* x, int ix) { ztrsv_(&u, &t, &d, &n, a, &ld, x, &ix, 1, 1, 1); }
inline void tbmv(char u, char t, char d, int n, int k, const double* a, int ld, double* x, int ix) { dtbmv_(&u, &t, &d, &n, &k, a, &ld, x, &ix, 1, 1, 1); }
inline void tbmv(char u, char t, char d, int n, int k, const Complex* a, int ld, Complex* x, int ix) { ztbmv_(&u, &t, &d, &n, &k, a, &ld, x, &ix, 1, 1, 1); }
inline void tbsv(char u, char t, char d, int n, int k, const double* a, int ld, double* x, int ix) { dtbsv_(&u, &t, &d, &n, &k, a, &ld, x, &ix, 1, 1, 1); }
inline void tbsv(char u, char t, char d, int n, int k, const Complex* a, int ld, Complex* x, int ix) { ztbsv_(&u, &t, &d, &n, &k, a, &ld, x, &ix, 1, 1, 1); }
inline void tpmv(char u, char t, char d, int n, const double* a, double* x, int ix) { dtpmv_(&u, &t, &d, &n, a, x, &ix, 1, 1, 1); }
inline void tpmv(char u, char t, char d, int n, const Complex* a, Complex* x, int ix) { ztpmv_(&u, &t, &d, &n, a, x, &ix, 1, 1, 1); }
inline void tpsv(char u, char t, char d, int n, const double* a, double* x, int ix) { dtpsv_(&u, &t, &d, &n, a, x, &ix, 1, 1, 1); }
inline void tpsv(char u, char t, char d, int n, const Complex* a, Complex* x, int ix) { ztpsv_(&u, &t, &d, &n, a, x, &ix, 1, 1, 1); }

// Rank updates.  ger on Complex is the unconjugated zgeru.
inline void ger(int m, int n, double al, const double* x, int ix, const double* y, int iy, double* a, int ld) { dger_(&m, &n, &al, x, &ix, y, &iy, a, &ld); }
inline void ger(int m, int n, Complex al, const Complex* x, int ix, const Complex* y, int iy, Complex* a, int ld) { zgeru_(&m, &n, &al, x, &ix, y, &iy, a, &ld); }
inline void gerc(int m, int n, Complex al, const Complex* x, int ix, const Complex* y, int iy, Complex* a, int ld) { zgerc_(&m, &n, &al, x, &ix, y, &iy, a, &ld); }
inline void syr(char u, int n, double al, const double* x, int ix, double* a, int ld) { dsyr_(&u, &n, &al, x, &ix, a, &ld, 1); }
inline void syr(char u, int n, double al, const Complex* x, int ix, Complex* a, int ld) { zher_(&u, &n, &al, x, &ix, a, &ld, 1); }
inline void spr(char u, int n, double al, const double* x, int ix, double* a) { dspr_(&u, &n, &al, x, &ix, a, 1); }
inline void spr(char u, int n, double al, const Complex* x, int ix, Complex* a) { zhpr_(&u, &n, &al, x, &ix, a, 1); }
inline void syr2(char u, int n, double al, const double* x, int ix, const double* y, int iy, double* a, int ld) { dsyr2_(&u, &n, &al, x, &ix, y, &iy, a, &ld, 1); }
inline void syr2(char u, int n, Complex al, const Complex* x, int ix, const Complex* y, int iy, Complex* a, int ld) { zher2_(&u, &n, &al, x, &ix, y, &iy, a, &ld, 1); }
inline void spr2(char u, int n, double al, const double* x, int ix, const double* y, int iy, double* a) { dspr2_(&u, &n, &al, x, &ix, y, &iy, a, 1); }
inline void spr2(char u, int n, Complex al, const Complex* x, int ix, const Complex* y, int iy, Complex* a) { zhpr2_(&u, &n, &al, x, &ix, y, &iy, a, 1); }

// Level 3.  symm/syrk/syr2k on Complex are the symmetric z forms; the
// Hermitian ones are hemm/herk/her2k.
inline void gemm(char ta, char tb, int m, int n, int k, double al, const double* a, int lda, const double* b, int ldb, double be, double* c, int ldc) { dgemm_(&ta, &tb, &m, &n, &k, &al, a, &lda, b, &ldb, &be, c, &ldc, 1, 1); }
inline void gemm(char ta, char tb, int m, int n, int k, Complex al, const Complex* a, int lda, const Complex* b, int ldb, Complex be, Complex* c, int ldc) { zgemm_(&ta, &tb, &m, &n, &k, &al, a, &lda, b, &ldb, &be, c, &ldc, 1, 1); }
inline void symm(char s, char u, int m, int n, double al, const double* a, int lda, const double* b, int ldb, double be, double* c, int ldc) { dsymm_(&s, &u, &m, &n, &al, a, &lda, b, &ldb, &be, c, &ldc, 1, 1); }
inline void symm(char s, char u, int m, int n, Complex al, const Complex* a, int lda, const Complex* b, int ldb, Complex be, Complex* c, int ldc) { zsymm_(&s, &u, &m, &n, &al, a, &lda, b, &ldb, &be, c, &ldc, 1, 1); }
inline void hemm(char s, char u, int m, int n, Complex al, const Complex* a, int lda, const Complex* b, int ldb, Complex be, Complex* c, int ldc) { zhemm_(&s, &u, &m, &n, &al, a, &lda, b, &ldb, &be, c, &ldc, 1, 1); }
inline void trmm(char s, char u, char t, char d, int m, int n, double al, const double* a, int lda, double* b, int ldb) { dtrmm_(&s, &u, &t, &d, &m, &n, &al, a, &lda, b, &ldb, 1, 1, 1, 1); }
inline void trmm(char s, char u, char t, char d, int m, int n, Complex al, const Complex* a, int lda, Complex* b, int ldb) { ztrmm_(&s, &u, &t, &d, &m, &n, &al, a, &lda, b, &ldb, 1, 1, 1, 1); }
inline void trsm(char s, char u, char t, char d, int m, int n, double al, const double* a, int lda, double* b, int ldb) { dtrsm_(&s, &u, &t, &d, &m, &n, &al, a, &lda, b, &ldb, 1, 1, 1, 1); }
inline void trsm(char s, char u, char t, char d, int m, int n, Complex al, const Complex* a, int lda, Complex* b, int ldb) { ztrsm_(&s, &u, &t, &d, &m, &n, &al, a, &lda, b, &ldb, 1, 1, 1, 1); }
inline void syrk(char u, char t, int n, int k, double al, const double* a, int lda, double be, double* c, int ldc) { dsyrk_(&u, &t, &n, &k, &al, a, &lda, &be, c, &ldc, 1, 1); }
inline void syrk(char u, char t, int n, int k, Complex al, const Complex* a, int lda, Complex be, Complex* c, int ldc) { zsyrk_(&u, &t, &n, &k, &al, a, &lda, &be, c, &ldc, 1, 1); }
inline void herk(char u, char t, int n, int k, double al, const Complex* a, int lda, double be, Complex* c, int ldc) { zherk_(&u, &t, &n, &k, &al, a, &lda, &be, c, &ldc, 1, 1); }
inline void syr2k(char u, char t, int n, int k, double al, const double* a, int lda, const double* b, int ldb, double be, double* c, int ldc) { dsyr2k_(&u, &t, &n, &k, &al, a, &lda, b, &ldb, &be, c, &ldc, 1, 1); }
inline void syr2k(char u, char t, int n, int k, Complex al, const Complex* a, int lda, const Complex* b, int ldb, Complex be, Complex* c, int ldc) { zsyr2k_(&u, &t, &n, &k, &al, a, &lda, b, &ldb, &be, c, &ldc, 1, 1); }
inline void her2k(char u, char t, int n, int k, Complex al, const Complex* a, int lda, const Complex* b, int ldb, double be, Complex* c, int ldc) { zher2k_(&u, &t, &n, &k, &al, a, &lda, b, &ldb, &be, c, &ldc, 1, 1); }


}  // namespace zil::linalg::blas
