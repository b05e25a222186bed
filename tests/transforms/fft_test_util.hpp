// Shared helpers of the transform tests: data, layouts and error measures.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "oracle.hpp"
#include "zil.h"

namespace fftt {

inline constexpr double kEps = 0x1p-53;

// The sanitizer build runs unoptimised; there the lengths above 2^16 are
// left to the optimised build (the same passes and reorderings run at the
// smaller lengths), so that the suite stays quick.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif

// Reproducible data in [-1, 1): a 64-bit linear congruential generator.
inline std::vector<double> data(long n, std::uint64_t seed) {
  std::vector<double> v(n);
  std::uint64_t s = seed * 0x9E3779B97F4A7C15ull + 1;
  for (auto& e : v) {
    s = s * 6364136223846793005ull + 1442695040888963407ull;
    e = static_cast<double>(s >> 11) * 0x1p-52 - 1.0;
  }
  return v;
}

// The Hermitian layout of the first n/2+1 values of a Hermitian sequence.
inline std::vector<long double> to_layout(const std::vector<oracle::cld>& z) {
  const long n = static_cast<long>(z.size());
  std::vector<long double> h(n);
  h[0] = z[0].real();
  for (long j = 1; 2 * j < n; ++j) {
    h[j] = z[j].real();
    h[n - j] = z[j].imag();
  }
  if (n % 2 == 0) h[n / 2] = z[n / 2].real();
  return h;
}

// The full complex sequence held in a Hermitian layout.
inline std::vector<oracle::cld> from_layout(const std::vector<double>& h) {
  const long n = static_cast<long>(h.size());
  std::vector<oracle::cld> z(n);
  z[0] = h[0];
  for (long j = 1; 2 * j < n; ++j) {
    z[j] = oracle::cld(h[j], h[n - j]);
    z[n - j] = oracle::cld(h[j], -h[n - j]);
  }
  if (n % 2 == 0) z[n / 2] = h[n / 2];
  return z;
}

// sqrt(sum |got - want|^2 / sum |want|^2) over one or two arrays.
inline double rms_rel(const std::vector<double>& got, const std::vector<long double>& want) {
  long double num = 0, den = 0;
  for (std::size_t i = 0; i < got.size(); ++i) {
    const long double d = got[i] - want[i];
    num += d * d;
    den += want[i] * want[i];
  }
  return static_cast<double>(std::sqrt(num / den));
}

inline double rms_rel(const std::vector<double>& x, const std::vector<double>& y,
                      const std::vector<oracle::cld>& want) {
  long double num = 0, den = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    num += std::norm(oracle::cld(x[i], y[i]) - want[i]);
    den += std::norm(want[i]);
  }
  return static_cast<double>(std::sqrt(num / den));
}

inline double rms_rel(const std::vector<double>& got, const std::vector<double>& want) {
  return rms_rel(got, std::vector<long double>(want.begin(), want.end()));
}

// The accuracy goal: 4e-16 * log2(n), RMS relative.
inline double bound(long n) { return 4e-16 * std::log2(static_cast<double>(n)); }

// True when n has no prime above 19 and at most 20 prime factors.
inline bool valid_length(long n) {
  int count = 0;
  for (long p = 2; p <= 19; ++p)
    while (n % p == 0) {
      n /= p;
      ++count;
    }
  return n == 1 && count <= 20;
}

}  // namespace fftt
