/* Zil special functions: elementary, error-function and gamma families
   (chapters s01 to s15 and s20). */
#ifndef ZIL_SPECFUN_H
#define ZIL_SPECFUN_H

#include "zil_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Elementary functions ---------------------------------------------- */

ZIL_API double s01bac(double x, ZilError *fail); /* ln(1 + x) */
ZIL_API double zil_shifted_log(double x, ZilError *fail);
ZIL_API double s07aac(double x, ZilError *fail); /* tan(x) */
ZIL_API double s10aac(double x);                 /* tanh(x) */
ZIL_API double zil_tanh(double x);
ZIL_API double s10abc(double x, ZilError *fail); /* sinh(x) */
ZIL_API double zil_sinh(double x, ZilError *fail);
ZIL_API double s10acc(double x, ZilError *fail); /* cosh(x) */
ZIL_API double zil_cosh(double x, ZilError *fail);
ZIL_API double s11aac(double x, ZilError *fail); /* artanh(x) */
ZIL_API double zil_arctanh(double x, ZilError *fail);
ZIL_API double s11abc(double x);                 /* arsinh(x) */
ZIL_API double zil_arcsinh(double x);
ZIL_API double s11acc(double x, ZilError *fail); /* arcosh(x) */
ZIL_API double zil_arccosh(double x, ZilError *fail);

/* ---- Exponential, cosine and sine integrals ------------------------------ */

ZIL_API double s13aac(double x, ZilError *fail); /* E1(x) */
ZIL_API double zil_exp_integral(double x, ZilError *fail);
ZIL_API double s13acc(double x, ZilError *fail); /* Ci(x) */
ZIL_API double zil_cos_integral(double x, ZilError *fail);
ZIL_API double s13adc(double x);                 /* Si(x) */
ZIL_API double zil_sin_integral(double x);

/* ---- Gamma family ------------------------------------------------------- */

ZIL_API double s14aac(double x, ZilError *fail); /* Gamma(x) */
ZIL_API double zil_gamma(double x, ZilError *fail);
ZIL_API double s14abc(double x, ZilError *fail); /* ln Gamma(x) */
ZIL_API double zil_log_gamma(double x, ZilError *fail);
ZIL_API double s14acc(double x, ZilError *fail); /* psi(x) - ln x */
ZIL_API double zil_polygamma_fun(double x, ZilError *fail);
/* ans[j] = (-1)^(k+1) psi^(k)(x) / k!, k = n + j, j = 0, ..., m-1. */
ZIL_API void s14adc(double x, Integer n, Integer m, double ans[], ZilError *fail);
ZIL_API void zil_polygamma_deriv(double x, Integer n, Integer m, double ans[], ZilError *fail);
ZIL_API double s14aec(double x, Integer k, ZilError *fail); /* psi^(k)(x) */
ZIL_API double zil_real_polygamma(double x, Integer k, ZilError *fail);
ZIL_API Complex s14afc(Complex z, Integer k, ZilError *fail); /* psi^(k)(z) */
ZIL_API Complex zil_complex_polygamma(Complex z, Integer k, ZilError *fail);
ZIL_API Complex s14agc(Complex z, ZilError *fail); /* ln Gamma(z) */
ZIL_API Complex zil_complex_log_gamma(Complex z, ZilError *fail);
/* Incomplete gamma ratios P(a,x) and Q(a,x) to the relative accuracy tol. */
ZIL_API void s14bac(double a, double x, double tol, double *p, double *q, ZilError *fail);
ZIL_API void zil_incomplete_gamma(double a, double x, double tol, double *p, double *q, ZilError *fail);

/* ---- Error function family ---------------------------------------------- */

ZIL_API double s15abc(double x); /* normal cumulative distribution */
ZIL_API double zil_cumul_normal(double x);
ZIL_API double s15acc(double x); /* its complement */
ZIL_API double zil_cumul_normal_complem(double x);
ZIL_API double s15adc(double x); /* erfc(x) */
ZIL_API double zil_erfc(double x);
ZIL_API double s15aec(double x); /* erf(x) */
ZIL_API double zil_erf(double x);
ZIL_API double s15afc(double x); /* Dawson's integral */
ZIL_API double zil_dawson(double x);
ZIL_API Complex s15ddc(Complex z, ZilError *fail); /* exp(-z*z) erfc(-iz) */
ZIL_API Complex zil_complex_erfc(Complex z, ZilError *fail);

/* ---- Fresnel integrals -------------------------------------------------- */

ZIL_API double s20acc(double x); /* S(x) */
ZIL_API double zil_fresnel_s(double x);
ZIL_API double s20adc(double x); /* C(x) */
ZIL_API double zil_fresnel_c(double x);

#ifdef __cplusplus
}
#endif

#endif /* ZIL_SPECFUN_H */
