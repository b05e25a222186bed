/* Special functions: a few values of the error-function and gamma families,
   and one reported failure. */
#include <stdio.h>
#include <zil.h>

int main(void) {
  ZilError fail = {0};
  double p, q;
  printf("erfc(0.5)        = %.15e\n", s15adc(0.5));
  printf("erf(0.5)         = %.15e\n", s15aec(0.5));
  printf("Phi(1.96)        = %.15e\n", s15abc(1.96));
  printf("Gamma(4.5)       = %.15e\n", s14aac(4.5, &fail));
  printf("lnGamma(100)     = %.15e\n", s14abc(100.0, &fail));
  printf("E1(1)            = %.15e\n", s13aac(1.0, &fail));
  printf("Si(10)           = %.15e\n", s13adc(10.0));
  printf("S(1), C(1)       = %.15e %.15e\n", s20acc(1.0), s20adc(1.0));
  s14bac(3.0, 2.0, 0.0, &p, &q, &fail);
  printf("P(3,2), Q(3,2)   = %.15e %.15e\n", p, q);
  printf("Gamma(-2.0)      = %g\n", s14aac(-2.0, &fail));
  printf("code %d\n%s\n", (int)fail.code, fail.message);
  return 0;
}
