/* The spectrum of a sampled signal and its inverse.

   Sixteen samples of 1 + 2 cos(2 pi 3 t) + sin(2 pi 5 t) on t = j/16 go
   through c06eac; the transform (unitary, so each cosine of amplitude a
   shows as a*sqrt(n)/2 in the real part) is printed by frequency, then
   c06gbc and c06ebc bring the samples back. */
#include <math.h>
#include <stdio.h>
#include <zil.h>

#define N 16

/* Values below the rounding level print as zero, not as -0.0000. */
static double tidy(double v) { return fabs(v) < 1e-12 ? 0.0 : v; }

int main(void) {
  const double two_pi = 6.283185307179586;
  double x[N], x0[N];
  ZilError fail = {0};
  int j, k;

  for (j = 0; j < N; ++j) {
    const double t = (double)j / N;
    x0[j] = x[j] = 1.0 + 2.0 * cos(two_pi * 3 * t) + sin(two_pi * 5 * t);
  }

  c06eac(N, x, &fail);
  if (fail.code != 0) {
    printf("c06eac failed: %s\n", fail.message);
    return 1;
  }
  printf("Spectrum (unitary, n = %d)\n", N);
  printf("   k        Re z(k)        Im z(k)\n");
  for (k = 0; k <= N / 2; ++k) {
    const double im = (k == 0 || 2 * k == N) ? 0.0 : x[N - k];
    printf("%4d %14.6f %14.6f\n", k, tidy(x[k]), tidy(im));
  }

  c06gbc(N, x, &fail);
  c06ebc(N, x, &fail);
  if (fail.code != 0) {
    printf("c06ebc failed: %s\n", fail.message);
    return 1;
  }
  printf("Samples and their inverse transform\n");
  printf("   j       original      recovered\n");
  for (j = 0; j < N; ++j) printf("%4d %14.6f %14.6f\n", j, x0[j], tidy(x[j]));
  return 0;
}
