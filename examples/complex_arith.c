/* Complex arithmetic and the extended-precision inner product. */
#include <stdio.h>
#include <zil.h>

static void show(const char *what, Complex z) { printf("%-22s (%.12g, %.12g)\n", what, a02bbc(z), a02bcc(z)); }

int main(void) {
  Complex z = a02bac(3.0, 4.0);
  Complex w = a02bac(1.0, -2.0);
  /* The terms 1e16 + 1 - 1e16 cancel: a plain sum loses the 1, the
     double-length sum keeps it. */
  double a[3] = {1e16, 1.0, -1e16};
  double b[3] = {1.0, 1.0, 1.0};
  double d1, d2;
  ZilError fail;

  printf("z = (3, 4), w = (1, -2)\n");
  printf("%-22s %.12g\n", "|z|", a02dbc(z));
  printf("%-22s %.12g\n", "arg z", a02dac(z));
  show("z * w", a02ccc(z, w));
  show("z / w", a02cdc(z, w));
  show("sqrt(z)", a02dcc(z));
  show("sqrt(-4)", a02dcc(a02bac(-4.0, 0.0)));
  show("z^-3", a02ddc(z, -3));
  show("z^0.5", a02dec(z, 0.5));
  show("log(z)", a02dgc(z));
  show("exp(log(z))", a02dhc(a02dgc(z)));
  show("sin(w)", a02djc(w));
  show("tan(w)", a02dlc(w));

  fail.print = FALSE;
  fail.handler = NULL;
  x03aac(a, 3, b, 3, 3, 1, 1, 0.0, 0.0, &d1, &d2, FALSE, &fail);
  printf("plain sum:        %.17g\n", d1);
  x03aac(a, 3, b, 3, 3, 1, 1, 0.0, 0.0, &d1, &d2, TRUE, &fail);
  printf("double length:    %.17g + %.17g\n", d1, d2);

  /* A step of 0 is refused; with print false the failure is reported only
     through the record. */
  x03aac(a, 3, b, 3, 3, 0, 1, 0.0, 0.0, &d1, &d2, TRUE, &fail);
  printf("fail.code = %d\n%s\n", (int)fail.code, fail.message);
  return 0;
}
