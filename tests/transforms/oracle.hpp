// Reference transforms in long double (64-bit significand, eleven more bits
// than double) for the accuracy tests: the defining sum for short lengths
// and, for long ones, a plain recursive mixed-radix transform whose roots
// of unity are each evaluated directly, so that its own error (about
// 1e-19 * log2(n)) stays far below the double tolerances tested.
//
// The reference is not under test, so its hot loops are compiled optimised
// and unsanitised even in the sanitizer build, on raw arrays, to keep the
// suite quick at n = 2^20.
#pragma once

#include <cmath>
#include <complex>
#include <vector>

#define ZIL_ORACLE_FAST __attribute__((optimize("O2"), no_sanitize_address, no_sanitize_undefined))

namespace oracle {

using cld = std::complex<long double>;
struct C {
  long double r, i;
};
inline constexpr long double kTwoPiL = 6.283185307179586476925286766559005768L;

// exp(-i*2*pi*t/n) for t = 0..n-1; the second half as conjugates of the first.
ZIL_ORACLE_FAST inline void roots(long n, C* w) {
  for (long t = 0; 2 * t <= n; ++t) {
    const long double a = kTwoPiL * static_cast<long double>(t) / static_cast<long double>(n);
    w[t] = C{cosl(a), -sinl(a)};
    if (t > 0) w[n - t] = C{w[t].r, -w[t].i};
  }
}

ZIL_ORACLE_FAST inline void naive(long n, const C* x, C* z, const C* w) {
  for (long k = 0; k < n; ++k) {
    long double sr = 0, si = 0;
    long e = 0;
    for (long j = 0; j < n; ++j) {
      sr += x[j].r * w[e].r - x[j].i * w[e].i;
      si += x[j].r * w[e].i + x[j].i * w[e].r;
      e += k;
      if (e >= n) e -= n;
    }
    z[k] = C{sr, si};
  }
}

inline long smallest_factor(long n) {
  for (long p = 2; p * p <= n; ++p)
    if (n % p == 0) return p;
  return n;
}

// Decimation in time: out[0..n) = DFT of in[0], in[s], ..., in[(n-1)s];
// w holds the roots of order big, of which n is a divisor.
ZIL_ORACLE_FAST inline void fft(const C* in, long s, long n, C* out, const C* w, long big) {
  if (n == 1) {
    out[0] = in[0];
    return;
  }
  const long p = smallest_factor(n), m = n / p, step = big / n;
  for (long l = 0; l < p; ++l) fft(in + l * s, s * p, m, out + l * m, w, big);
  C u[32];
  if (p > 32) return;  // the tests use no prime above 19
  for (long k = 0; k < m; ++k) {
    for (long l = 0; l < p; ++l) {
      const C a = out[l * m + k], b = w[l * k * step];
      u[l] = C{a.r * b.r - a.i * b.i, a.r * b.i + a.i * b.r};
    }
    for (long q = 0; q < p; ++q) {
      long double sr = u[0].r, si = u[0].i;
      for (long l = 1; l < p; ++l) {
        const C b = w[((l * q) % p) * m * step];
        sr += u[l].r * b.r - u[l].i * b.i;
        si += u[l].r * b.i + u[l].i * b.r;
      }
      out[k + q * m] = C{sr, si};
    }
  }
}

// The DFT of x by the defining sum (naive = true) or by the transform.
inline std::vector<cld> dft(const std::vector<cld>& x, bool naive_sum = false) {
  const long n = static_cast<long>(x.size());
  std::vector<C> in(n), out(n), w(n);
  for (long j = 0; j < n; ++j) in[j] = C{x[j].real(), x[j].imag()};
  roots(n, w.data());
  if (naive_sum || n <= 512)
    naive(n, in.data(), out.data(), w.data());
  else
    fft(in.data(), 1, n, out.data(), w.data(), n);
  std::vector<cld> z(n);
  for (long k = 0; k < n; ++k) z[k] = cld(out[k].r, out[k].i);
  return z;
}

}  // namespace oracle
