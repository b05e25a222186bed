/* Zil chapter c06: mixed-radix Fourier transforms of single sequences.

   Every transform is unitary (divided by sqrt(n)) and uses the kernel
   exp(-i*2*pi*j*k/n).  A Hermitian sequence z of length n is held in n reals:
   x[0] = Re z(0); x[j] = Re z(j) and x[n-j] = Im z(j) for 1 <= j <= (n-1)/2;
   for even n, x[n/2] = Re z(n/2).

   The inverse of c06eac is c06gbc followed by c06ebc; the inverse of c06ecc
   is c06gcc, c06ecc, c06gcc.  Lengths must have no prime factor above 19 and
   at most 20 prime factors counted with multiplicity. */
#ifndef ZIL_FFT_H
#define ZIL_FFT_H

#include "zil_enums.h"
#include "zil_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Real sequence x[0..n-1] to its Hermitian transform, in place. */
ZIL_API void c06eac(Integer n, double x[], ZilError *fail);
ZIL_API void zil_fft_real(Integer n, double x[], ZilError *fail);

/* Hermitian sequence (layout above) to the real sequence
   x(j) = (1/sqrt(n)) sum_k z(k) exp(-i*2*pi*j*k/n), in place. */
ZIL_API void c06ebc(Integer n, double x[], ZilError *fail);
ZIL_API void zil_fft_hermitian(Integer n, double x[], ZilError *fail);

/* Complex sequence (x real parts, y imaginary parts) to its transform. */
ZIL_API void c06ecc(Integer n, double x[], double y[], ZilError *fail);
ZIL_API void zil_fft_complex(Integer n, double x[], double y[], ZilError *fail);

/* Circular convolution (job Zil_Convolution),
     z(k) = (1/n) sum_j x(j) y((k-j) mod n),
   or correlation (job Zil_Correlation),
     w(k) = (1/n) sum_j x(j) y((j+k) mod n),
   of two real sequences (job from zil_enums.h).  On return x holds the result and y its
   transform in the Hermitian layout. */
ZIL_API void c06ekc(Integer job, Integer n, double x[], double y[], ZilError *fail);
ZIL_API void zil_convolution_real(Integer job, Integer n, double x[], double y[], ZilError *fail);

/* Conjugates a Hermitian sequence: negates x[n/2+1..n-1]. */
ZIL_API void c06gbc(Integer n, double x[], ZilError *fail);
ZIL_API void zil_conjugate_hermitian(Integer n, double x[], ZilError *fail);

/* Conjugates a complex sequence: negates y[0..n-1]. */
ZIL_API void c06gcc(Integer n, double y[], ZilError *fail);
ZIL_API void zil_conjugate_complex(Integer n, double y[], ZilError *fail);

/* Fills trig[0..2n-1] with the cosines and negated sines used by the
   multiple-sequence transforms of length n; trig[n-1] and trig[2n-1] both
   hold n, which those routines check. */
ZIL_API void c06gzc(Integer n, double trig[], ZilError *fail);
ZIL_API void zil_fft_init_trig(Integer n, double trig[], ZilError *fail);

/* Factorises n for the trig table: divisors 6, 4, 2, 3, 5, then 7 and up
   through the numbers 6j-1 and 6j+1, each taken as often as it divides.
   Sets *nfac and fac[0..*nfac-1]; fac needs room for 32 entries.  n = 1
   gives the one factor 1; n < 1 gives no factors. */
ZIL_API void c06fpz(Integer n, Integer *nfac, Integer fac[]);

#ifdef __cplusplus
}
#endif

#endif /* ZIL_FFT_H */
