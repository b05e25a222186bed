/* Zeros: a zero of a function of one variable in a bracket (c05adc) and of
   a system of nonlinear equations (c05nbc), and one reported failure. */
#include <math.h>
#include <stdio.h>
#include <zil.h>

static double cubic(double x) { return (x * x - 2.0) * x - 5.0; }

/* The discrete boundary value problem of More, Garbow and Hillstrom. */
static void bvp(Integer n, const double x[], double fvec[], Integer *userflag) {
  double h = 1.0 / (double)(n + 1);
  Integer k;
  (void)userflag;
  for (k = 0; k < n; ++k) {
    double t = x[k] + (double)(k + 1) * h + 1.0;
    fvec[k] = 2.0 * x[k] - (k > 0 ? x[k - 1] : 0.0) - (k < n - 1 ? x[k + 1] : 0.0) + t * t * t * h * h / 2.0;
  }
}

int main(void) {
  ZilError fail = {0};
  double x, xs[6], fvec[6];
  Integer i, n = 6;

  c05adc(2.0, 3.0, &x, cubic, 1e-12, 0.0, &fail);
  printf("zero of x^3 - 2x - 5 in [2,3]: %.12f (code %d)\n", x, (int)fail.code);

  for (i = 0; i < n; ++i) {
    double t = (double)(i + 1) / (double)(n + 1);
    xs[i] = t * (t - 1.0);
  }
  c05nbc(n, xs, fvec, bvp, 1.4901161193847656e-08, &fail);
  printf("boundary value problem, n = %d (code %d):\n", (int)n, (int)fail.code);
  for (i = 0; i < n; ++i) printf("  x[%d] = %.10f\n", (int)i, xs[i]);

  c05adc(-1.0, 2.0, &x, cubic, 1e-12, 0.0, &fail);
  printf("code %d\n%s\n", (int)fail.code, fail.message);
  return 0;
}
