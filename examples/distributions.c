/* Tail probabilities and critical values of the classical distributions:
   a small table of the kind printed at the back of a statistics text. */
#include <stdio.h>

#include "zil.h"

int main(void) {
  static const double alpha[] = {0.10, 0.05, 0.01, 0.001};
  static const double df[] = {1.0, 5.0, 10.0, 30.0};
  ZilError fail = {0};
  int i, j;

  printf("Upper tail of the standard normal\n");
  for (i = 0; i < 4; ++i) {
    const double x = 1.0 + i;
    printf("  P(Z >= %.1f) = %.6e\n", x, g01eac(Zil_UpperTail, x, &fail));
  }

  printf("Two-sided critical values of Student's t\n    df");
  for (j = 0; j < 4; ++j) printf("   alpha=%-6g", alpha[j]);
  printf("\n");
  for (i = 0; i < 4; ++i) {
    printf("  %4g", df[i]);
    for (j = 0; j < 4; ++j) printf("   %12.6f", g01fbc(Zil_TwoTailSignif, alpha[j], df[i], &fail));
    printf("\n");
  }

  printf("Upper 5%% points of chi-squared and F(df, 20)\n");
  for (i = 0; i < 4; ++i)
    printf("  df %4g: chi-squared %10.5f   F %8.5f\n", df[i], g01fcc(0.95, df[i], &fail),
           g01fdc(0.95, df[i], 20.0, &fail));

  {
    double p, q, pdf, le, gt, eq;
    g01eec(0.3, 2.0, 5.0, 0.0, &p, &q, &pdf, &fail);
    printf("Beta(2, 5) at 0.3: P = %.10f, Q = %.10f, density = %.10f\n", p, q, pdf);
    g01bjc(20, 0.3, 5, &le, &gt, &eq, &fail);
    printf("Binomial(20, 0.3), k = 5: %.10f %.10f %.10f\n", le, gt, eq);
    g01bkc(4.5, 2, &le, &gt, &eq, &fail);
    printf("Poisson(4.5), k = 2: %.10f %.10f %.10f\n", le, gt, eq);
    g01blc(50, 10, 20, 3, &le, &gt, &eq, &fail);
    printf("Hypergeometric(50, 10, 20), k = 3: %.10f %.10f %.10f\n", le, gt, eq);
  }

  g01ebc(Zil_LowerTail, 2.0, 0.5, &fail);
  printf("fail.code = %d\n%s\n", (int)fail.code, fail.message);
  return 0;
}
