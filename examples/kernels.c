/* The vector and matrix kernels: a row-major product, a triangular solve,
   norms, the safeguarded scalars and a failure record. */
#include <stdio.h>
#include <zil.h>

int main(void) {
  /* A 2 by 3 row-major matrix with a row length (pda) of 4. */
  double a[8] = {1.0, 2.0, 3.0, -1.0,
                 4.0, 5.0, 6.0, -1.0};
  double x[3] = {1.0, -1.0, 2.0};
  double y[2] = {10.0, 20.0};
  /* An upper triangle, column-major. */
  double t[9] = {2.0, 0.0, 0.0,
                 1.0, 4.0, 0.0,
                 -1.0, 2.0, 8.0};
  double b[3] = {3.0, 10.0, 16.0};
  double big[3] = {3e300, -4e300, 12e300};
  double value = 0.0, c, s;
  ZilError fail = {0};

  /* y = 2 A x - y */
  f16pac(Zil_RowMajor, Zil_NoTrans, 2, 3, 2.0, a, 4, x, 1, -1.0, y, 1, &fail);
  printf("y = 2 A x - y       %g %g  (code %d)\n", y[0], y[1], (int)fail.code);

  /* T b' = b, then b' times 0.5 */
  zil_dtrsv(Zil_ColMajor, Zil_Upper, Zil_NoTrans, Zil_NonUnitDiag, 3, 0.5, t, 3, b, 1, &fail);
  printf("solve then scale    %g %g %g\n", b[0], b[1], b[2]);

  zil_dge_norm(Zil_RowMajor, Zil_OneNorm, 2, 3, a, 4, &value, &fail);
  printf("one-norm of A       %g\n", value);
  zil_dge_norm(Zil_RowMajor, Zil_FrobeniusNorm, 2, 3, a, 4, &value, &fail);
  printf("Frobenius of A      %.12g\n", value);

  printf("dot x.x             %g\n", f06eac(3, x, 1, x, 1));
  printf("norm near overflow  %.12g\n", f06ejc(3, big, 1));
  printf("hypot(3e200,4e200)  %.12g\n", f06bnc(3e200, 4e200));
  f06bcc(0.75, &c, &s);
  printf("rotation of t=0.75  c = %.12g, s = %.12g\n", c, s);

  /* An illegal leading dimension: the record names the argument. */
  fail.print = FALSE;
  f16pac(Zil_RowMajor, Zil_NoTrans, 2, 3, 1.0, a, 2, x, 1, 0.0, y, 1, &fail);
  printf("code %d, argnum %d, argval %d\n%s\n", (int)fail.code, (int)fail.argnum, (int)fail.argval,
         fail.message);
  return 0;
}
