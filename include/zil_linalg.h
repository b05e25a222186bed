/* Zil vector and matrix kernels: the option words, the Level-1 and scalar
   routines, and the matrix copy, load and norm routines.  The checking
   fronts of the Level-2 and Level-3 operations and their older forms are in
   zil_blas_fronts.h, included here. */
#ifndef ZIL_LINALG_H
#define ZIL_LINALG_H

#include "zil_types.h"
#include "zil_blas_fronts.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Option words ------------------------------------------------------ */

/* The f16 family. */
enum {
  Zil_RowMajor = 101, Zil_ColMajor = 102,
  Zil_NoTrans = 111, Zil_Trans = 112, Zil_ConjTrans = 113,
  Zil_Upper = 121, Zil_Lower = 122,
  Zil_NonRefDiag = 130, Zil_NonUnitDiag = 131, Zil_UnitDiag = 132,
  Zil_LeftSide = 141, Zil_RightSide = 142, Zil_BothSides = 143,
  Zil_OneNorm = 171, Zil_RealOneNorm = 172, Zil_TwoNorm = 173, Zil_FrobeniusNorm = 174,
  Zil_InfNorm = 175, Zil_RealInfNorm = 176, Zil_MaxNorm = 177, Zil_RealMaxNorm = 178,
  Zil_Conj = 191, Zil_NoConj = 192
};

/* The older family of the f06 forms. */
enum {
  NoTranspose = 1001, Transpose = 1002, ConjugateTranspose = 1003,
  UpperTriangle = 1004, LowerTriangle = 1005,
  UnitTriangular = 1006, NotUnitTriangular = 1007,
  LeftSide = 1008, RightSide = 1009,
  BottomPivot = 1010, TopPivot = 1011, VariablePivot = 1012, FixedPivot = 1013,
  ForwardSequence = 1014, BackwardSequence = 1015,
  OneNorm = 1016, FrobeniusNorm = 1017, MaxAbsValue = 1018, InfinityNorm = 1019,
  General = 1020, UpperTriangular = 1021, LowerTriangular = 1022,
  SymmetricUpper = 1023, SymmetricLower = 1024, HermitianUpper = 1025, HermitianLower = 1026
};

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
