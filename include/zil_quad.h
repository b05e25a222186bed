/* Zil: globally adaptive one-dimensional integrators (chapter d01). */
#ifndef ZIL_QUAD_H
#define ZIL_QUAD_H

#include "zil_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The subdivision of a run, handed to the caller.  The four arrays have
   max_num_subint elements, allocated by the routine; release each one with
   x04bdc.  The first subint_count entries are in ascending order of the left
   end, the rest are zero.  d01amc reports its subintervals in the variable t
   of (0, 1) on which it integrates (x = bound + dinf*(1-t)/t). */
typedef struct {
  Integer subint_count;
  Integer eval_count;
  double *subint_lower;
  double *subint_upper;
  double *subint_result;
  double *subint_error;
} Zil_QuadReport;

/* The cycles of a Fourier integral (d01asc): maxintervals elements each,
   released with x04bdc, zero beyond interval_count. */
typedef struct {
  Integer interval_count;
  Integer eval_count;
  Integer max_subint_used;
  double *interval_error;
  double *interval_result;
  Integer *interval_flag;
} Zil_QuadCycleReport;

typedef double (*Zil_QuadFun)(double x);
typedef double (*Zil_QuadFunComm)(double x, Zil_Comm *comm);

ZIL_API void d01ajc(Zil_QuadFun f, double a, double b, double epsabs, double epsrel,
                    Integer max_num_subint, double *result, double *abserr,
                    Zil_QuadReport *qp, ZilError *fail);
ZIL_API void d01sjc(Zil_QuadFunComm f, double a, double b, double epsabs, double epsrel,
                    Integer max_num_subint, double *result, double *abserr,
                    Zil_QuadReport *qp, Zil_Comm *comm, ZilError *fail);
ZIL_API void d01akc(Zil_QuadFun f, double a, double b, double epsabs, double epsrel,
                    Integer max_num_subint, double *result, double *abserr,
                    Zil_QuadReport *qp, ZilError *fail);
ZIL_API void d01skc(Zil_QuadFunComm f, double a, double b, double epsabs, double epsrel,
                    Integer max_num_subint, double *result, double *abserr,
                    Zil_QuadReport *qp, Zil_Comm *comm, ZilError *fail);
ZIL_API void d01alc(Zil_QuadFun f, double a, double b, Integer nbrkpts, const double brkpts[],
                    double epsabs, double epsrel, Integer max_num_subint, double *result,
                    double *abserr, Zil_QuadReport *qp, ZilError *fail);
ZIL_API void d01slc(Zil_QuadFunComm f, double a, double b, Integer nbrkpts, const double brkpts[],
                    double epsabs, double epsrel, Integer max_num_subint, double *result,
                    double *abserr, Zil_QuadReport *qp, Zil_Comm *comm, ZilError *fail);
ZIL_API void d01amc(Zil_QuadFun f, Integer boundinf, double bound, double epsabs, double epsrel,
                    Integer max_num_subint, double *result, double *abserr,
                    Zil_QuadReport *qp, ZilError *fail);
ZIL_API void d01smc(Zil_QuadFunComm f, Integer boundinf, double bound, double epsabs,
                    double epsrel, Integer max_num_subint, double *result, double *abserr,
                    Zil_QuadReport *qp, Zil_Comm *comm, ZilError *fail);
ZIL_API void d01anc(Zil_QuadFun f, double a, double b, double omega, Integer wt_func,
                    double epsabs, double epsrel, Integer max_num_subint, double *result,
                    double *abserr, Zil_QuadReport *qp, ZilError *fail);
ZIL_API void d01snc(Zil_QuadFunComm f, double a, double b, double omega, Integer wt_func,
                    double epsabs, double epsrel, Integer max_num_subint, double *result,
                    double *abserr, Zil_QuadReport *qp, Zil_Comm *comm, ZilError *fail);
ZIL_API void d01apc(Zil_QuadFun f, double a, double b, double alfa, double beta,
                    Integer wt_func, double epsabs, double epsrel, Integer max_num_subint,
                    double *result, double *abserr, Zil_QuadReport *qp, ZilError *fail);
ZIL_API void d01spc(Zil_QuadFunComm f, double a, double b, double alfa, double beta,
                    Integer wt_func, double epsabs, double epsrel, Integer max_num_subint,
                    double *result, double *abserr, Zil_QuadReport *qp, Zil_Comm *comm,
                    ZilError *fail);
ZIL_API void d01aqc(Zil_QuadFun f, double a, double b, double c, double epsabs, double epsrel,
                    Integer max_num_subint, double *result, double *abserr,
                    Zil_QuadReport *qp, ZilError *fail);
ZIL_API void d01sqc(Zil_QuadFunComm f, double a, double b, double c, double epsabs,
                    double epsrel, Integer max_num_subint, double *result, double *abserr,
                    Zil_QuadReport *qp, Zil_Comm *comm, ZilError *fail);
ZIL_API void d01asc(Zil_QuadFun f, double a, double omega, Integer wt_func, Integer maxintervals,
                    Integer maxsubint_per_int, double epsabs, double *result, double *abserr,
                    Zil_QuadCycleReport *qp, ZilError *fail);
ZIL_API void d01ssc(Zil_QuadFunComm f, double a, double omega, Integer wt_func,
                    Integer maxintervals, Integer maxsubint_per_int, double epsabs,
                    double *result, double *abserr, Zil_QuadCycleReport *qp, Zil_Comm *comm,
                    ZilError *fail);

/* Long names. */
ZIL_API void zil_1d_quad_gen(Zil_QuadFun, double, double, double, double, Integer, double *,
                             double *, Zil_QuadReport *, ZilError *);
ZIL_API void zil_1d_quad_gen_1(Zil_QuadFunComm, double, double, double, double, Integer,
                               double *, double *, Zil_QuadReport *, Zil_Comm *, ZilError *);
ZIL_API void zil_1d_quad_osc(Zil_QuadFun, double, double, double, double, Integer, double *,
                             double *, Zil_QuadReport *, ZilError *);
ZIL_API void zil_1d_quad_osc_1(Zil_QuadFunComm, double, double, double, double, Integer,
                               double *, double *, Zil_QuadReport *, Zil_Comm *, ZilError *);
ZIL_API void zil_1d_quad_brkpts(Zil_QuadFun, double, double, Integer, const double[], double,
                                double, Integer, double *, double *, Zil_QuadReport *,
                                ZilError *);
ZIL_API void zil_1d_quad_brkpts_1(Zil_QuadFunComm, double, double, Integer, const double[],
                                  double, double, Integer, double *, double *,
                                  Zil_QuadReport *, Zil_Comm *, ZilError *);
ZIL_API void zil_1d_quad_inf(Zil_QuadFun, Integer, double, double, double, Integer, double *,
                             double *, Zil_QuadReport *, ZilError *);
ZIL_API void zil_1d_quad_inf_1(Zil_QuadFunComm, Integer, double, double, double, Integer,
                               double *, double *, Zil_QuadReport *, Zil_Comm *, ZilError *);
ZIL_API void zil_1d_quad_wt_trig(Zil_QuadFun, double, double, double, Integer, double, double,
                                 Integer, double *, double *, Zil_QuadReport *, ZilError *);
ZIL_API void zil_1d_quad_wt_trig_1(Zil_QuadFunComm, double, double, double, Integer, double,
                                   double, Integer, double *, double *, Zil_QuadReport *,
                                   Zil_Comm *, ZilError *);
ZIL_API void zil_1d_quad_wt_alglog(Zil_QuadFun, double, double, double, double, Integer,
                                   double, double, Integer, double *, double *,
                                   Zil_QuadReport *, ZilError *);
ZIL_API void zil_1d_quad_wt_alglog_1(Zil_QuadFunComm, double, double, double, double, Integer,
                                     double, double, Integer, double *, double *,
                                     Zil_QuadReport *, Zil_Comm *, ZilError *);
ZIL_API void zil_1d_quad_wt_cauchy(Zil_QuadFun, double, double, double, double, double,
                                   Integer, double *, double *, Zil_QuadReport *, ZilError *);
ZIL_API void zil_1d_quad_wt_cauchy_1(Zil_QuadFunComm, double, double, double, double, double,
                                     Integer, double *, double *, Zil_QuadReport *,
                                     Zil_Comm *, ZilError *);
ZIL_API void zil_1d_quad_inf_wt_trig(Zil_QuadFun, double, double, Integer, Integer, Integer,
                                     double, double *, double *, Zil_QuadCycleReport *,
                                     ZilError *);
ZIL_API void zil_1d_quad_inf_wt_trig_1(Zil_QuadFunComm, double, double, Integer, Integer,
                                       Integer, double, double *, double *,
                                       Zil_QuadCycleReport *, Zil_Comm *, ZilError *);

#ifdef __cplusplus
}
#endif

#endif /* ZIL_QUAD_H */
