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

#ifdef __cplusplus
}
#endif

#endif /* ZIL_LINALG_H */
