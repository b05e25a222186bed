/* Zil zeros: a zero of a continuous function of one variable (c05a, c05s)
   and of a system of n nonlinear equations in n unknowns (c05n to c05z). */
#ifndef ZIL_ZEROS_H
#define ZIL_ZEROS_H

#include "zil_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- One variable ---------------------------------------------------------
   A zero of f in the interval with ends a and b (f(a) and f(b) of opposite
   sign), to the absolute tolerance xtol; ftol > 0 also accepts any point
   with |f| < ftol. */
ZIL_API void c05adc(double a, double b, double *x, double (*f)(double xx), double xtol,
                    double ftol, ZilError *fail);
ZIL_API void zil_zero_cont_func_bd(double a, double b, double *x, double (*f)(double xx),
                                   double xtol, double ftol, ZilError *fail);
ZIL_API void c05sdc(double a, double b, double *x, double (*f)(double xx, Zil_Comm *comm),
                    double xtol, double ftol, Zil_Comm *comm, ZilError *fail);
ZIL_API void zil_zero_cont_func_bd_1(double a, double b, double *x,
                                     double (*f)(double xx, Zil_Comm *comm), double xtol,
                                     double ftol, Zil_Comm *comm, ZilError *fail);

/* The reverse-communication core.  Start with *ind = 1 and the interval's
   ends in *x and *y; or with *ind = -1, *fx = f(*x) and c[0] = f(*y).  While
   the core returns *ind != 0, put f(*x) in *fx and call again.  On return
   with *ind = 0, *x is the zero and *y the other end of the final bracket.
   ir: 0 mixed, 1 absolute, 2 relative error test.  c has at least 17
   elements and is the core's whole state between calls. */
ZIL_API void c05azc(double *x, double *y, double fx, double xtol, Integer ir, double c[],
                    Integer *ind, ZilError *fail);

/* ---- Systems -------------------------------------------------------------
   x: the start on entry, the solution on exit; fvec: f(x).  A callback that
   sets *userflag negative stops the run (fail.errnum takes the flag).

   c05nbc's f sets fvec = f(x).  c05pbc's f, with *userflag 1, sets fvec;
   with 2, sets the Jacobian fjac[i*tdfjac + j] = d f_i / d x_j and leaves
   fvec alone. */
ZIL_API void c05nbc(Integer n, double x[], double fvec[],
                    void (*f)(Integer n, const double x[], double fvec[], Integer *userflag),
                    double xtol, ZilError *fail);
ZIL_API void zil_zero_nonlin_eqns(Integer n, double x[], double fvec[],
                                  void (*f)(Integer n, const double x[], double fvec[],
                                            Integer *userflag),
                                  double xtol, ZilError *fail);
ZIL_API void c05pbc(Integer n, double x[], double fvec[], double fjac[], Integer tdfjac,
                    void (*f)(Integer n, const double x[], double fvec[], double fjac[],
                              Integer tdfjac, Integer *userflag),
                    double xtol, ZilError *fail);
ZIL_API void zil_zero_nonlin_eqns_deriv(Integer n, double x[], double fvec[], double fjac[],
                                        Integer tdfjac,
                                        void (*f)(Integer n, const double x[], double fvec[],
                                                  double fjac[], Integer tdfjac,
                                                  Integer *userflag),
                                        double xtol, ZilError *fail);
ZIL_API void c05tbc(Integer n, double x[], double fvec[],
                    void (*f)(Integer n, const double x[], double fvec[], Integer *userflag,
                              Zil_Comm *comm),
                    double xtol, Zil_Comm *comm, ZilError *fail);
ZIL_API void zil_zero_nonlin_eqns_1(Integer n, double x[], double fvec[],
                                    void (*f)(Integer n, const double x[], double fvec[],
                                              Integer *userflag, Zil_Comm *comm),
                                    double xtol, Zil_Comm *comm, ZilError *fail);
ZIL_API void c05ubc(Integer n, double x[], double fvec[], double fjac[], Integer tdfjac,
                    void (*f)(Integer n, const double x[], double fvec[], double fjac[],
                              Integer tdfjac, Integer *userflag, Zil_Comm *comm),
                    double xtol, Zil_Comm *comm, ZilError *fail);
ZIL_API void zil_zero_nonlin_eqns_deriv_1(Integer n, double x[], double fvec[], double fjac[],
                                          Integer tdfjac,
                                          void (*f)(Integer n, const double x[], double fvec[],
                                                    double fjac[], Integer tdfjac,
                                                    Integer *userflag, Zil_Comm *comm),
                                          double xtol, Zil_Comm *comm, ZilError *fail);

/* Checks the Jacobian that f gives at x against differences of the sum of
   squares along two fixed directions; fvec and fjac return f and its
   Jacobian at x. */
ZIL_API void c05zbc(Integer n, double x[], double fvec[], double fjac[], Integer tdfjac,
                    void (*f)(Integer n, const double x[], double fvec[], double fjac[],
                              Integer tdfjac, Integer *userflag),
                    ZilError *fail);
ZIL_API void zil_check_deriv(Integer n, double x[], double fvec[], double fjac[], Integer tdfjac,
                             void (*f)(Integer n, const double x[], double fvec[], double fjac[],
                                       Integer tdfjac, Integer *userflag),
                             ZilError *fail);
ZIL_API void c05zcc(Integer n, double x[], double fvec[], double fjac[], Integer tdfjac,
                    void (*f)(Integer n, const double x[], double fvec[], double fjac[],
                              Integer tdfjac, Integer *userflag, Zil_Comm *comm),
                    Zil_Comm *comm, ZilError *fail);
ZIL_API void zil_check_deriv_1(Integer n, double x[], double fvec[], double fjac[],
                               Integer tdfjac,
                               void (*f)(Integer n, const double x[], double fvec[],
                                         double fjac[], Integer tdfjac, Integer *userflag,
                                         Zil_Comm *comm),
                               Zil_Comm *comm, ZilError *fail);

/* The hybrid method itself, with every control of the drivers open: the
   limit maxfev on evaluations, band widths ml and mu of the differenced
   Jacobian, its relative step sqrt(max(epsfcn, machine precision)), scaling
   mode (1: from the Jacobian's column norms; 2: diag as given, each > 0),
   step-bound factor, and a call of f with *userflag = 0 every nprint
   iterations (nprint > 0).  fjac (n by n, row-major with tdfjac) returns
   the orthogonal factor Q of the last Jacobian, r (lr >= n(n+1)/2) its
   triangular factor by rows, qtf = Q'fvec; w holds 4n reals.  *nfev counts
   the evaluations.  *ifail leaves as the end: 0 input out of range,
   1 converged, 2 limit of evaluations, 3 xtol too small, 4 and 5 no
   progress, negative the stop flag of f. */
ZIL_API void c05nct(Integer n, double x[], double fvec[],
                    void (*f)(Integer n, const double x[], double fvec[], Integer *userflag,
                              Zil_Comm *comm),
                    double xtol, Integer maxfev, Integer ml, Integer mu, double epsfcn,
                    double diag[], Integer mode, double factor, Integer nprint, Integer *nfev,
                    double fjac[], Integer tdfjac, double r[], Integer lr, double qtf[],
                    double w[], Zil_Comm *comm, Integer *ifail);

#ifdef __cplusplus
}
#endif

#endif /* ZIL_ZEROS_H */
