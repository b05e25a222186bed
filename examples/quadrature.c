/* Adaptive quadrature: a general integrand with an end-point singularity, a
   smooth oscillating one, interior break points and an infinite range. */
#include <math.h>
#include <stdio.h>

#include "zil.h"

static double f_log(double x) { return log(x); }
static double f_osc(double x) { return x * sin(30.0 * x) * cos(x); }
static double f_kink(double x) { return fabs(x - 1.0 / 3.0); }
static double f_gauss(double x) { return exp(-x * x); }

static void show(const char *name, double result, double abserr, const Zil_QuadReport *qp,
                 const ZilError *fail) {
  printf("%-7s result = %.12f  abserr < 1e-8: %s  intervals = %ld  evaluations = %ld  code = %ld\n",
         name, result, abserr < 1e-8 ? "yes" : "no", (long)qp->subint_count, (long)qp->eval_count,
         (long)fail->code);
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
  double result, abserr;
  const double point = 1.0 / 3.0;

  d01ajc(f_log, 0.0, 1.0, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  show("d01ajc", result, abserr, &qp, &fail);
  release(&qp);

  d01akc(f_osc, 0.0, 2.0 * 3.141592653589793, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  show("d01akc", result, abserr, &qp, &fail);
  release(&qp);

  d01alc(f_kink, 0.0, 1.0, 1, &point, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  show("d01alc", result, abserr, &qp, &fail);
  release(&qp);

  d01amc(f_gauss, Zil_Infinite, 0.0, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  show("d01amc", result, abserr, &qp, &fail);
  release(&qp);

  /* A limit of one interval on a singular integrand. */
  d01ajc(f_log, 0.0, 1.0, 0.0, 1e-12, 1, &result, &abserr, &qp, &fail);
  printf("%s\n", fail.message);
  release(&qp);
  return 0;
}
