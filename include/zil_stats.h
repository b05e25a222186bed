/* Zil chapter g01: probabilities, densities and quantiles of the classical
   distributions.

   The tail argument is one of Zil_LowerTail, Zil_UpperTail,
   Zil_TwoTailSignif and Zil_TwoTailConfid (zil_enums.h).  A tol argument is a
   relative accuracy; a value below 10 * x02ajc() or not below 1.0 is
   replaced by 10 * x02ajc().  On a failure the result is 0.0 unless the
   routine's comment says otherwise. */
#ifndef ZIL_STATS_H
#define ZIL_STATS_H

#include "zil_enums.h"
#include "zil_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Probabilities ------------------------------------------------------ */

ZIL_API double g01eac(Integer tail, double x, ZilError *fail);
ZIL_API double zil_prob_normal(Integer tail, double x, ZilError *fail);
ZIL_API double g01ebc(Integer tail, double t, double df, ZilError *fail);
ZIL_API double zil_prob_students_t(Integer tail, double t, double df, ZilError *fail);
/* Lower and upper tails only. */
ZIL_API double g01ecc(Integer tail, double x, double df, ZilError *fail);
ZIL_API double zil_prob_chi_sq(Integer tail, double x, double df, ZilError *fail);
/* Lower and upper tails only. */
ZIL_API double g01edc(Integer tail, double f, double df1, double df2, ZilError *fail);
ZIL_API double zil_prob_f_dist(Integer tail, double f, double df1, double df2, ZilError *fail);
/* I_x(a, b) in *p, 1 - I_x(a, b) in *q and the beta density in *pdf. */
ZIL_API void g01eec(double x, double a, double b, double tol, double *p, double *q, double *pdf,
                    ZilError *fail);
ZIL_API void zil_prob_beta_dist(double x, double a, double b, double tol, double *p, double *q,
                                double *pdf, ZilError *fail);
/* Gamma distribution of shape a and scale b; lower and upper tails only. */
ZIL_API double g01efc(Integer tail, double g, double a, double b, ZilError *fail);
ZIL_API double zil_gamma_dist(Integer tail, double g, double a, double b, ZilError *fail);

/* ---- Quantiles ---------------------------------------------------------- */

ZIL_API double g01cec(double p, ZilError *fail);
ZIL_API double zil_deviates_normal_dist(double p, ZilError *fail);
ZIL_API double g01fac(Integer tail, double p, ZilError *fail);
ZIL_API double zil_deviates_normal(Integer tail, double p, ZilError *fail);
ZIL_API double g01fbc(Integer tail, double p, double df, ZilError *fail);
ZIL_API double zil_deviates_students_t(Integer tail, double p, double df, ZilError *fail);
ZIL_API double g01fcc(double p, double df, ZilError *fail);
ZIL_API double zil_deviates_chi_sq(double p, double df, ZilError *fail);
ZIL_API double g01fdc(double p, double df1, double df2, ZilError *fail);
ZIL_API double zil_deviates_f_dist(double p, double df1, double df2, ZilError *fail);
ZIL_API double g01fec(double p, double a, double b, double tol, ZilError *fail);
ZIL_API double zil_deviates_beta(double p, double a, double b, double tol, ZilError *fail);
ZIL_API double g01ffc(double p, double a, double b, double tol, ZilError *fail);
ZIL_API double zil_deviates_gamma_dist(double p, double a, double b, double tol, ZilError *fail);

/* ---- Discrete distributions: P(X <= k), P(X > k) and P(X = k) ------------ */

ZIL_API void g01bjc(Integer n, double p, Integer k, double *plek, double *pgtk, double *peqk,
                    ZilError *fail);
ZIL_API void zil_binomial_dist(Integer n, double p, Integer k, double *plek, double *pgtk,
                               double *peqk, ZilError *fail);
ZIL_API void g01bkc(double rlamda, Integer k, double *plek, double *pgtk, double *peqk,
                    ZilError *fail);
ZIL_API void zil_poisson_dist(double rlamda, Integer k, double *plek, double *pgtk, double *peqk,
                              ZilError *fail);
/* A population of n holding l marked items; a sample of m; k marked in it. */
ZIL_API void g01blc(Integer n, Integer l, Integer m, Integer k, double *plek, double *pgtk,
                    double *peqk, ZilError *fail);
ZIL_API void zil_hypergeom_dist(Integer n, Integer l, Integer m, Integer k, double *plek,
                                double *pgtk, double *peqk, ZilError *fail);

#ifdef __cplusplus
}
#endif

#endif /* ZIL_STATS_H */
