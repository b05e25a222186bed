/* Zil support frame: identification, complex arithmetic, constants of the
   arithmetic, the extended-precision inner product and the clock. */
#ifndef ZIL_ENV_H
#define ZIL_ENV_H

#include "zil_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Identification ----------------------------------------------------- */

/* Shows the library's mark, platform, implementation code, compilers and
   build stamp in a box titled "About ZIL C Library"; returns the box's
   result. */
ZIL_API int a00aac(void);
ZIL_API int zil_implementation_details(void);

/* Writes the same facts line by line to the file outfile (appended), or to
   the console when outfile is null. */
ZIL_API void a00abc(const char *outfile);

/* ---- Complex arithmetic -------------------------------------------------- */
/* No routine here reports: overflow, division by zero and NaN go through as
   the arithmetic gives them. */

ZIL_API Complex a02bac(double x, double y);
ZIL_API Complex zil_complex(double x, double y);
ZIL_API double a02bbc(Complex z);
ZIL_API double zil_complex_real(Complex z);
ZIL_API double a02bcc(Complex z);
ZIL_API double zil_complex_imag(Complex z);

ZIL_API Complex a02cac(Complex z, Complex w);
ZIL_API Complex zil_complex_add(Complex z, Complex w);
ZIL_API Complex a02cbc(Complex z, Complex w);
ZIL_API Complex zil_complex_subtract(Complex z, Complex w);
ZIL_API Complex a02ccc(Complex z, Complex w);
ZIL_API Complex zil_complex_multiply(Complex z, Complex w);
/* z / w, scaled so that no intermediate overflows needlessly; w = 0 is not
   detected. */
ZIL_API Complex a02cdc(Complex z, Complex w);
ZIL_API Complex zil_complex_divide(Complex z, Complex w);
ZIL_API Complex a02cec(Complex z);
ZIL_API Complex zil_complex_negate(Complex z);
ZIL_API Complex a02cfc(Complex z);
ZIL_API Complex zil_complex_conjg(Complex z);
ZIL_API Boolean a02cgc(Complex z, Complex w);
ZIL_API Boolean zil_complex_equal(Complex z, Complex w);
ZIL_API Boolean a02chc(Complex z, Complex w);
ZIL_API Boolean zil_complex_not_equal(Complex z, Complex w);

ZIL_API double a02dac(Complex z);
ZIL_API double zil_complex_arg(Complex z);
ZIL_API double a02dbc(Complex z);
ZIL_API double zil_complex_abs(Complex z);
ZIL_API Complex a02dcc(Complex z);
ZIL_API Complex zil_complex_sqrt(Complex z);
ZIL_API Complex a02ddc(Complex z, Integer n);
ZIL_API Complex zil_complex_i_power(Complex z, Integer n);
ZIL_API Complex a02dec(Complex z, double r);
ZIL_API Complex zil_complex_r_power(Complex z, double r);
ZIL_API Complex a02dfc(Complex z, Complex c);
ZIL_API Complex zil_complex_c_power(Complex z, Complex c);
ZIL_API Complex a02dgc(Complex z);
ZIL_API Complex zil_complex_log(Complex z);
ZIL_API Complex a02dhc(Complex z);
ZIL_API Complex zil_complex_exp(Complex z);
ZIL_API Complex a02djc(Complex z);
ZIL_API Complex zil_complex_sin(Complex z);
ZIL_API Complex a02dkc(Complex z);
ZIL_API Complex zil_complex_cos(Complex z);
ZIL_API Complex a02dlc(Complex z);
ZIL_API Complex zil_complex_tan(Complex z);

/* z times the real part of w (the imaginary part of w is not read). */
ZIL_API Complex a02eic(Complex z, Complex w);
/* z times the real r. */
ZIL_API Complex a02ejc(Complex z, double r);

/* ---- Constants of the arithmetic ----------------------------------------- */

/* Largest argument for the circular functions. */
ZIL_API double x02ahc(void);
/* Machine precision. */
ZIL_API double x02ajc(void);
/* Smallest positive model number (three names, one value). */
ZIL_API double x02akc(void);
ZIL_API double x02amc(void);
ZIL_API double x02anc(void);
/* Largest positive model number. */
ZIL_API double x02alc(void);

/* ---- Extended-precision inner product ------------------------------------ */

/* d1 + d2 = c1 + c2 + sum over i < n of a[i*stepa] * b[i*stepb].  With sw
   true the sum is carried as an unevaluated pair of doubles and is exact to
   about twice the working precision; with sw false it is a plain sum that
   starts from c1 (c2 is not read, d2 is 0). */
ZIL_API void x03aac(const double a[], Integer isizea, const double b[], Integer isizeb,
                    Integer n, Integer stepa, Integer stepb, double c1, double c2,
                    double *d1, double *d2, Boolean sw, ZilError *fail);

/* ---- Clock ---------------------------------------------------------------- */

/* Seconds since the epoch, from the system's clock. */
ZIL_API Integer x05aac(void);

/* ---- Inner layer ---------------------------------------------------------
   The by-reference kernels' own forms.  Their constants carry other low bits
   than the public ones above, on purpose; the argument of the forms that
   take one is ignored. */

ZIL_API double x02ahf(double x);
ZIL_API double x02ajf(void);
ZIL_API double x02akf(void);
ZIL_API double x02amf(void);
ZIL_API double x02anf(void);
ZIL_API double x02alf(void);
ZIL_API Integer x02int_max(double x);
ZIL_API Integer x02base(void);
ZIL_API Integer x02digits(void);
ZIL_API Integer x02emin(void);
ZIL_API Integer x02emax(void);
ZIL_API Boolean x02flag(double x);
/* a + b, rounded to a double at the call. */
ZIL_API double x02add(const double *a, const double *b);

/* The constants the linear algebra layer reads in one piece. */
typedef struct {
  double base;
  double digits;
  double eps;
  double sqrt_eps;
  double small;
  double sqrt_small;
  double big;
  double sqrt_big;
  double zero;
} x02consts;
ZIL_API void x02consts_fill(x02consts *c);

/* Modulus of (re, im), by value and by reference. */
ZIL_API double a02abf_f(double re, double im);
ZIL_API double a02abf(const double *re, const double *im);
/* Principal square root of (xr, xi) into (yr, yi). */
ZIL_API void a02aaf(double xr, double xi, double *yr, double *yi);
/* (ar, ai) / (br, bi) into (cr, ci). */
ZIL_API void a02acf(double ar, double ai, double br, double bi, double *cr, double *ci);

/* year, month, day, hour, minute, second, millisecond, in local time. */
ZIL_API void x05date(Integer values[7]);
/* CPU time of the process (user plus system) in seconds. */
ZIL_API float x05cpu(void);

#ifdef __cplusplus
}
#endif

#endif /* ZIL_ENV_H */
