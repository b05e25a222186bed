/* Adaptive quadrature, one call per family of integrator:
     d01ajc  a general integrand (here with an end-point singularity)
     d01akc  a smooth oscillating integrand (61-point rule, no extrapolation)
     d01alc  interior break points where the integrand has a kink
     d01amc  an infinite range
     d01anc  a weight sin(omega x) or cos(omega x)
     d01apc  an algebraic-logarithmic weight at the ends
     d01aqc  a Cauchy principal value, weight 1/(x - c)
     d01asc  a Fourier integral over (a, infinity), cycle by cycle
   Each prints the result, the error estimate, the counts and the first
   entry of the report record, whose arrays the caller releases with x04bdc. */
#include <math.h>
#include <stdio.h>

#include "zil.h"

/* The Clenshaw-Curtis rules of d01anc evaluate at the ends of an interval,
   so the integrand must be defined at x = 0. */
static double f_log(double x) { return x > 0.0 ? log(x) : 0.0; }
static double f_osc(double x) { return x * sin(30.0 * x) * cos(x); }
static double f_kink(double x) { return fabs(x - 1.0 / 3.0); }
static double f_gauss(double x) { return exp(-x * x); }
static double f_one_plus_log2(double x) {
  const double l = log(x);
  return 1.0 / ((1.0 + l * l) * (1.0 + l * l));
}
static double f_cubic(double x) { return 1.0 / (5.0 * x * x * x + 6.0); }
static double f_rsqrt(double x) { return x > 0.0 ? 1.0 / sqrt(x) : 0.0; }

/* The run's figures and the subinterval with the smallest left end. */
static void show(const char *name, double result, double abserr, const Zil_QuadReport *qp,
                 const ZilError *fail) {
  printf("%s  result = %.12f  abserr = %.2e  code = %ld\n", name, result, abserr,
         (long)fail->code);
  printf("        intervals = %ld  evaluations = %ld  first [%.6f, %.6f] %.6e\n",
         (long)qp->subint_count, (long)qp->eval_count, qp->subint_lower[0], qp->subint_upper[0],
         qp->subint_result[0]);
}

static void release(Zil_QuadReport *qp) {
  x04bdc((Pointer *)&qp->subint_lower);
  x04bdc((Pointer *)&qp->subint_upper);
  x04bdc((Pointer *)&qp->subint_result);
  x04bdc((Pointer *)&qp->subint_error);
}

int main(void) {
  ZilError fail = {0};
  Zil_QuadReport qp;
  Zil_QuadCycleReport cp;
  double result, abserr;
  const double pi = 3.141592653589793;
  const double point = 1.0 / 3.0;
  Integer k;

  /* The integral of log x over (0, 1) is -1. */
  d01ajc(f_log, 0.0, 1.0, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  show("d01ajc", result, abserr, &qp, &fail);
  release(&qp);

  d01akc(f_osc, 0.0, 2.0 * pi, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  show("d01akc", result, abserr, &qp, &fail);
  release(&qp);

  /* |x - 1/3| over (0, 1): 5/18 = 0.2777... */
  d01alc(f_kink, 0.0, 1.0, 1, &point, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  show("d01alc", result, abserr, &qp, &fail);
  release(&qp);

  /* exp(-x^2) over the whole line: sqrt(pi).  The report is in the variable
     t of (0, 1) on which the folded range is integrated. */
  d01amc(f_gauss, Zil_Infinite, 0.0, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  show("d01amc", result, abserr, &qp, &fail);
  release(&qp);

  /* log(x) sin(10 pi x) over (0, 1) = -(gamma + log(10 pi) - Ci(10 pi))/(10 pi)
     = -0.1281368483... */
  d01anc(f_log, 0.0, 1.0, 10.0 * pi, Zil_Sine, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  show("d01anc", result, abserr, &qp, &fail);
  release(&qp);

  /* log(x)/(1 + log(x)^2)^2 over (0, 1) = -0.1892751878...: weight log(x - a),
     alfa = beta = 0. */
  d01apc(f_one_plus_log2, 0.0, 1.0, 0.0, 0.0, Zil_Alg_loga, 0.0, 1e-10, 200, &result, &abserr,
         &qp, &fail);
  show("d01apc", result, abserr, &qp, &fail);
  release(&qp);

  /* The principal value of 1/(x (5x^3 + 6)) over (-1, 5), pole at 0:
     log(125/631)/18 = -0.0899440069... */
  d01aqc(f_cubic, -1.0, 5.0, 0.0, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  show("d01aqc", result, abserr, &qp, &fail);
  release(&qp);

  /* cos(pi x/2)/sqrt(x) over (0, infinity) is 1.  The cycle record holds
     one entry per cycle of the weight. */
  d01asc(f_rsqrt, 0.0, 0.5 * pi, Zil_Cosine, 50, 200, 1e-8, &result, &abserr, &cp, &fail);
  printf("d01asc  result = %.12f  abserr = %.2e  code = %ld\n", result, abserr, (long)fail.code);
  printf("        cycles = %ld  evaluations = %ld  most subintervals in a cycle = %ld\n",
         (long)cp.interval_count, (long)cp.eval_count, (long)cp.max_subint_used);
  for (k = 0; k < cp.interval_count && k < 3; ++k)
    printf("        cycle %ld  result = %.10f  abserr = %.2e  flag = %ld\n", (long)(k + 1),
           cp.interval_result[k], cp.interval_error[k], (long)cp.interval_flag[k]);
  x04bdc((Pointer *)&cp.interval_error);
  x04bdc((Pointer *)&cp.interval_result);
  x04bdc((Pointer *)&cp.interval_flag);

  /* A limit of one interval on a singular integrand. */
  d01ajc(f_log, 0.0, 1.0, 0.0, 1e-12, 1, &result, &abserr, &qp, &fail);
  printf("%s\n", fail.message);
  release(&qp);
  return 0;
}
