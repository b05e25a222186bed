/* Monte Carlo estimates with fixed seeds, so that every run prints the same
   numbers.

   1. pi from the share of points of the unit square inside the quarter
      circle, drawn from the thread's generator (g05cbc, g05cac);
   2. the integral of exp(-x*x) over [0, 1] by the mean of the integrand at
      uniform points, drawn from a Wichmann-Hill generator whose whole state
      is the program's igen and iseed (g05kbc, g05kac);
   3. a saved state (g05cfc) restored later (g05cgc) repeats its numbers. */
#include <math.h>
#include <stdio.h>
#include <zil.h>

int main(void) {
  const long n = 1000000;
  long i, inside = 0;
  double sum = 0.0, sum2 = 0.0, mean, err;
  Integer igen = 12, iseed[4] = {1966, 2006, 42, 7};
  Integer istate[9];
  double xstate[4], first[3], again[3];
  ZilError fail;

  g05cbc(2024);
  for (i = 0; i < n; ++i) {
    double x = g05cac(), y = g05cac();
    if (x * x + y * y < 1.0) ++inside;
  }
  mean = (double)inside / (double)n;
  err = 4.0 * sqrt(mean * (1.0 - mean) / (double)n);
  printf("pi        estimate %.6f  standard error %.6f  (error %+.6f)\n", 4.0 * mean, err,
         4.0 * mean - 3.14159265358979324);

  g05kbc(&igen, iseed);
  for (i = 0; i < n; ++i) {
    double x = g05kac(igen, iseed), f = exp(-x * x);
    sum += f;
    sum2 += f * f;
  }
  mean = sum / (double)n;
  err = sqrt((sum2 / (double)n - mean * mean) / (double)n);
  printf("integral  estimate %.6f  standard error %.6f  (error %+.6f)\n", mean, err,
         mean - 0.746824132812427025);

  fail.print = FALSE;
  fail.handler = NULL;
  g05cfc(istate, xstate);
  for (i = 0; i < 3; ++i) first[i] = g05cac();
  g05cgc(istate, xstate, &fail);
  for (i = 0; i < 3; ++i) again[i] = g05cac();
  printf("restored  code %d  same numbers: %s\n", (int)fail.code,
         first[0] == again[0] && first[1] == again[1] && first[2] == again[2] ? "yes" : "no");
  return 0;
}
