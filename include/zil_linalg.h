/* Zil vector and matrix kernels: the option words, the Level-1 and scalar
   routines, and the matrix copy, load and norm routines.  The checking
   fronts of the Level-2 and Level-3 operations and their older forms are in
   zil_blas_fronts.h, included here. */
#ifndef ZIL_LINALG_H
#define ZIL_LINALG_H

#include "zil_types.h"
#include "zil_enums.h"
#include "zil_blas_fronts.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The option words (Zil_RowMajor, NoTranspose, ...) are in zil_enums.h. */

/* ---- Level-1 real -------------------------------------------------------
   Routines of one vector walk from x[0] by the stride (a negative stride
   reaches below x); routines of two vectors start a vector with a negative
   stride at its far end, as the published BLAS do.  A stride of 0 is outside
   the contract except where an f16 routine checks it. */

ZIL_API void f06dbc(Integer n, Integer con, Integer x[], Integer incx);
ZIL_API void f06dfc(Integer n, const Integer x[], Integer incx, Integer y[], Integer incy);
ZIL_API double f06eac(Integer n, const double x[], Integer incx, const double y[], Integer incy);
ZIL_API double f06eaf_f(Integer n, const double x[], Integer incx, const double y[], Integer incy);
ZIL_API void f06ecc(Integer n, double alpha, const double x[], Integer incx, double y[], Integer incy);
ZIL_API void f06edc(Integer n, double alpha, double x[], Integer incx);
ZIL_API void f06edf_f(Integer n, double alpha, double x[], Integer incx);
ZIL_API void f06efc(Integer n, const double x[], Integer incx, double y[], Integer incy);
ZIL_API void f06egc(Integer n, double x[], Integer incx, double y[], Integer incy);
ZIL_API double f06ejc(Integer n, const double x[], Integer incx);
ZIL_API double f06ekc(Integer n, const double x[], Integer incx);
ZIL_API void f06epc(Integer n, double x[], Integer incx, double y[], Integer incy, double c, double s);
ZIL_API void f06fbc(Integer n, double con, double x[], Integer incx);
ZIL_API void f06fdc(Integer n, double alpha, const double x[], Integer incx, double y[], Integer incy);
ZIL_API void f06fgc(Integer n, double x[], Integer incx);
ZIL_API void f06fjc(Integer n, const double x[], Integer incx, double *scale, double *sumsq);
ZIL_API void f06frc(Integer n, double *alpha, double x[], Integer incx, double tol, double *zeta);
ZIL_API Integer f06jlc(Integer n, const double x[], Integer incx);

/* ---- Level-1 complex --------------------------------------------------- */

ZIL_API Complex f06gbc(Integer n, const Complex x[], Integer incx, const Complex y[], Integer incy);
ZIL_API void f06gcc(Integer n, Complex alpha, const Complex x[], Integer incx, Complex y[], Integer incy);
ZIL_API void f06gdc(Integer n, Complex alpha, Complex x[], Integer incx);
ZIL_API void f06gfc(Integer n, const Complex x[], Integer incx, Complex y[], Integer incy);
ZIL_API void f06ggc(Integer n, Complex x[], Integer incx, Complex y[], Integer incy);
ZIL_API void f06hbc(Integer n, Complex con, Complex x[], Integer incx);
ZIL_API void f06jdc(Integer n, double alpha, Complex x[], Integer incx);
ZIL_API double f06jjc(Integer n, const Complex x[], Integer incx);
ZIL_API double f06jkc(Integer n, const Complex x[], Integer incx);
ZIL_API Integer f06jmc(Integer n, const Complex x[], Integer incx);

/* ---- Safeguarded scalars ----------------------------------------------- */

/* Cosine and sine of the rotation with tangent t. */
ZIL_API void f06bcc(double t, double *c, double *s);
/* scale * sqrt(sumsq), limited to the reciprocal of the safe range. */
ZIL_API double f06bmc(double scale, double sumsq);
/* sqrt(a^2 + b^2) without overflow. */
ZIL_API double f06bnc(double a, double b);

/* The inner layer's report of an illegal argument at position (from 1) of
   the routine srname, always noisy, never ending the process. */
ZIL_API void f06aaf_f(const char *srname, Integer position);

/* ---- Vector fronts with a failure record -------------------------------- */

ZIL_API void f16dbc(Integer n, Integer alpha, Integer x[], Integer incx, ZilError *fail);
ZIL_API void f16ecc(Integer n, double alpha, const double x[], Integer incx, double beta,
                    double y[], Integer incy, ZilError *fail);
ZIL_API void f16fbc(Integer n, double alpha, double x[], Integer incx, ZilError *fail);
ZIL_API void f16hbc(Integer n, Complex alpha, Complex x[], Integer incx, ZilError *fail);
ZIL_API void zil_iload(Integer n, Integer alpha, Integer x[], Integer incx, ZilError *fail);
ZIL_API void zil_daxpby(Integer n, double alpha, const double x[], Integer incx, double beta,
                        double y[], Integer incy, ZilError *fail);
ZIL_API void zil_dload(Integer n, double alpha, double x[], Integer incx, ZilError *fail);
ZIL_API void zil_zload(Integer n, Complex alpha, Complex x[], Integer incx, ZilError *fail);

/* ---- Matrix copy, load and norm ------------------------------------------
   f16 forms: order first; B = op(A) for the copies, alpha off the diagonal
   and beta on it for the loads, and the norm (one, Frobenius, infinity or
   largest modulus; not the two-norm) in value. */

ZIL_API void f16qfc(Integer order, Integer trans, Integer m, Integer n, const double a[], Integer pda,
                    double b[], Integer pdb, ZilError *fail);
ZIL_API void zil_dge_copy(Integer order, Integer trans, Integer m, Integer n, const double a[], Integer pda,
                          double b[], Integer pdb, ZilError *fail);
ZIL_API void f16tfc(Integer order, Integer trans, Integer m, Integer n, const Complex a[], Integer pda,
                    Complex b[], Integer pdb, ZilError *fail);
ZIL_API void zil_zge_copy(Integer order, Integer trans, Integer m, Integer n, const Complex a[], Integer pda,
                          Complex b[], Integer pdb, ZilError *fail);
ZIL_API void f16qec(Integer order, Integer uplo, Integer trans, Integer diag, Integer n, const double a[],
                    Integer pda, double b[], Integer pdb, ZilError *fail);
ZIL_API void zil_dtr_copy(Integer order, Integer uplo, Integer trans, Integer diag, Integer n, const double a[],
                          Integer pda, double b[], Integer pdb, ZilError *fail);
ZIL_API void f16tec(Integer order, Integer uplo, Integer trans, Integer diag, Integer n, const Complex a[],
                    Integer pda, Complex b[], Integer pdb, ZilError *fail);
ZIL_API void zil_ztr_copy(Integer order, Integer uplo, Integer trans, Integer diag, Integer n, const Complex a[],
                          Integer pda, Complex b[], Integer pdb, ZilError *fail);
ZIL_API void f16qhc(Integer order, Integer m, Integer n, double alpha, double beta, double a[], Integer pda,
                    ZilError *fail);
ZIL_API void zil_dge_load(Integer order, Integer m, Integer n, double alpha, double beta, double a[], Integer pda,
                          ZilError *fail);
ZIL_API void f16thc(Integer order, Integer m, Integer n, Complex alpha, Complex beta, Complex a[], Integer pda,
                    ZilError *fail);
ZIL_API void zil_zge_load(Integer order, Integer m, Integer n, Complex alpha, Complex beta, Complex a[],
                          Integer pda, ZilError *fail);
ZIL_API void f16qgc(Integer order, Integer uplo, Integer n, double alpha, double beta, double a[], Integer pda,
                    ZilError *fail);
ZIL_API void zil_dtr_load(Integer order, Integer uplo, Integer n, double alpha, double beta, double a[],
                          Integer pda, ZilError *fail);
ZIL_API void f16tgc(Integer order, Integer uplo, Integer n, Complex alpha, Complex beta, Complex a[], Integer pda,
                    ZilError *fail);
ZIL_API void zyl_ztr_load(Integer order, Integer uplo, Integer n, Complex alpha, Complex beta, Complex a[],
                          Integer pda, ZilError *fail);

ZIL_API void f16rac(Integer order, Integer norm, Integer m, Integer n, const double a[], Integer pda,
                    double *value, ZilError *fail);
ZIL_API void zil_dge_norm(Integer order, Integer norm, Integer m, Integer n, const double a[], Integer pda,
                          double *value, ZilError *fail);
ZIL_API void f16uac(Integer order, Integer norm, Integer m, Integer n, const Complex a[], Integer pda,
                    double *value, ZilError *fail);
ZIL_API void zil_zge_norm(Integer order, Integer norm, Integer m, Integer n, const Complex a[], Integer pda,
                          double *value, ZilError *fail);
ZIL_API void f16rbc(Integer order, Integer norm, Integer n, Integer kl, Integer ku, const double ab[],
                    Integer pdab, double *value, ZilError *fail);
ZIL_API void zil_dgb_norm(Integer order, Integer norm, Integer n, Integer kl, Integer ku, const double ab[],
                          Integer pdab, double *value, ZilError *fail);
ZIL_API void f16ubc(Integer order, Integer norm, Integer n, Integer kl, Integer ku, const Complex ab[],
                    Integer pdab, double *value, ZilError *fail);
ZIL_API void zil_zgb_norm(Integer order, Integer norm, Integer n, Integer kl, Integer ku, const Complex ab[],
                          Integer pdab, double *value, ZilError *fail);
ZIL_API void f16rcc(Integer order, Integer norm, Integer uplo, Integer n, const double a[], Integer pda,
                    double *value, ZilError *fail);
ZIL_API void zil_dsy_norm(Integer order, Integer norm, Integer uplo, Integer n, const double a[], Integer pda,
                          double *value, ZilError *fail);
ZIL_API void f16ucc(Integer order, Integer norm, Integer uplo, Integer n, const Complex a[], Integer pda,
                    double *value, ZilError *fail);
ZIL_API void zil_zhe_norm(Integer order, Integer norm, Integer uplo, Integer n, const Complex a[], Integer pda,
                          double *value, ZilError *fail);
ZIL_API void f16ufc(Integer order, Integer norm, Integer uplo, Integer n, const Complex a[], Integer pda,
                    double *value, ZilError *fail);
ZIL_API void zil_zsy_norm(Integer order, Integer norm, Integer uplo, Integer n, const Complex a[], Integer pda,
                          double *value, ZilError *fail);
ZIL_API void f16rdc(Integer order, Integer norm, Integer uplo, Integer n, const double ap[], double *value,
                    ZilError *fail);
ZIL_API void zil_dsp_norm(Integer order, Integer norm, Integer uplo, Integer n, const double ap[], double *value,
                          ZilError *fail);
ZIL_API void f16udc(Integer order, Integer norm, Integer uplo, Integer n, const Complex ap[], double *value,
                    ZilError *fail);
ZIL_API void zil_zhp_norm(Integer order, Integer norm, Integer uplo, Integer n, const Complex ap[], double *value,
                          ZilError *fail);
ZIL_API void f16ugc(Integer order, Integer norm, Integer uplo, Integer n, const Complex ap[], double *value,
                    ZilError *fail);
ZIL_API void zil_zsp_norm(Integer order, Integer norm, Integer uplo, Integer n, const Complex ap[], double *value,
                          ZilError *fail);
ZIL_API void f16rec(Integer order, Integer norm, Integer uplo, Integer n, Integer k, const double ab[],
                    Integer pdab, double *value, ZilError *fail);
ZIL_API void zil_dsb_norm(Integer order, Integer norm, Integer uplo, Integer n, Integer k, const double ab[],
                          Integer pdab, double *value, ZilError *fail);
ZIL_API void f16uec(Integer order, Integer norm, Integer uplo, Integer n, Integer k, const Complex ab[],
                    Integer pdab, double *value, ZilError *fail);
ZIL_API void zil_zhb_norm(Integer order, Integer norm, Integer uplo, Integer n, Integer k, const Complex ab[],
                          Integer pdab, double *value, ZilError *fail);

/* Older utilities, column-major, shapes General, UpperTriangular,
   LowerTriangular (and Symmetric/Hermitian for the norms), norms in the
   older words.  A failure shows a box and returns 0.0. */
ZIL_API void f06qfc(Integer shape, Integer m, Integer n, const double a[], Integer pda, double b[], Integer pdb);
ZIL_API void f06tfc(Integer shape, Integer m, Integer n, const Complex a[], Integer pda, Complex b[], Integer pdb);
ZIL_API void f06qff_f(const char *matrix, Integer m, Integer n, const double a[], Integer pda, double b[],
                      Integer pdb, Integer matrix_len);
ZIL_API void f06qhc(Integer shape, Integer m, Integer n, double con, double diag, double a[], Integer pda);
ZIL_API void f06thc(Integer shape, Integer m, Integer n, Complex con, Complex diag, Complex a[], Integer pda);
ZIL_API double f06qgc(Integer norm, Integer shape, Integer m, Integer n, const double a[], Integer pda);
ZIL_API double f06rac(Integer norm, Integer m, Integer n, const double a[], Integer pda);
ZIL_API double f06uaf(Integer norm, Integer m, Integer n, const Complex a[], Integer pda);
ZIL_API double f06vgc(Integer norm, Integer shape, Integer m, Integer n, const Complex a[], Integer pda);

#ifdef __cplusplus
}
#endif

#endif /* ZIL_LINALG_H */
