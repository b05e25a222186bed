// Accuracy of the three transforms against the reference DFT in long
// double, and round trips.  Errors are RMS relative over the whole result;
// the goal is 4e-16 * log2(n).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "fft_test_util.hpp"

namespace {

using fftt::data;
using oracle::cld;

struct Errors {
  double real, hermitian, complex;
};

double complex_error(long n, const std::vector<double>& x, const std::vector<double>& y,
                     const std::vector<cld>& want) {
  auto cx = x, cy = y;
  ZilError fail{};
  c06ecc(static_cast<Integer>(n), cx.data(), cy.data(), &fail);
  EXPECT_EQ(fail.code, 0) << n;
  return fftt::rms_rel(cx, cy, want);
}

// Applies a transform of one real array to a copy of v and measures it.
double real_error(void (*transform)(Integer, double*, ZilError*), std::vector<double> v,
                  const std::vector<long double>& want) {
  ZilError fail{};
  transform(static_cast<Integer>(v.size()), v.data(), &fail);
  EXPECT_EQ(fail.code, 0) << v.size();
  return fftt::rms_rel(v, want);
}

// One reference transform serves all three routines.  Its input is
// z = A + iB with A and B Hermitian sequences expanded from layouts a and
// b, so Z = DFT(A) + i DFT(B) with both parts real: Re Z is the reference
// of c06ebc on a and Im Z on b.  c06ecc takes z itself, and c06eac its
// real part x, whose transform is X(k) = (Z(k) + conj Z(n-k))/2.  Up to
// 4096 a second reference on unstructured complex data checks c06ecc too.
Errors measure(long n, std::uint64_t seed) {
  const auto a = data(n, seed), b = data(n, seed + 1);
  const auto za = fftt::from_layout(a), zb = fftt::from_layout(b);
  std::vector<cld> z(n);
  std::vector<double> x(n), y(n);
  for (long j = 0; j < n; ++j) {
    z[j] = za[j] + cld(0, 1) * zb[j];
    x[j] = static_cast<double>(z[j].real());
    y[j] = static_cast<double>(z[j].imag());
  }
  auto zt = oracle::dft(z);
  const long double scale = std::sqrt(static_cast<long double>(n));
  for (auto& v : zt) v /= scale;
  std::vector<cld> xt(n);
  std::vector<long double> at(n), bt(n);
  for (long k = 0; k < n; ++k) {
    xt[k] = (zt[k] + std::conj(zt[(n - k) % n])) / 2.0L;
    at[k] = zt[k].real();
    bt[k] = zt[k].imag();
  }

  Errors e{};
  e.complex = complex_error(n, x, y, zt);
  e.real = real_error(c06eac, x, fftt::to_layout(xt));
  e.hermitian = std::max(real_error(c06ebc, a, at), real_error(c06ebc, b, bt));
  if (n <= 4096) {
    const auto gx = data(n, seed + 2), gy = data(n, seed + 3);
    std::vector<cld> g(n);
    for (long j = 0; j < n; ++j) g[j] = cld(gx[j], gy[j]);
    auto gt = oracle::dft(g);
    for (auto& v : gt) v /= scale;
    e.complex = std::max(e.complex, complex_error(n, gx, gy, gt));
  }
  return e;
}

void expect_accurate(long n) {
  const Errors e = measure(n, static_cast<std::uint64_t>(n));
  const double b = fftt::bound(n);
  EXPECT_LE(e.real, b) << "c06eac n = " << n;
  EXPECT_LE(e.hermitian, b) << "c06ebc n = " << n;
  EXPECT_LE(e.complex, b) << "c06ecc n = " << n;
  if (std::getenv("ZIL_FFT_PRINT_ERRORS"))
    std::printf("n = %8ld  bound %.2e  c06eac %.2e  c06ebc %.2e  c06ecc %.2e\n", n, b, e.real,
                e.hermitian, e.complex);
}

// Every accepted length up to 256 against the defining sum: all radix
// combinations, both permutation stages, and every pass kind's edge indices.
TEST(FftAccuracy, EveryLengthTo256) {
  for (long n = 2; n <= 256; ++n)
    if (fftt::valid_length(n)) expect_accurate(n);
}

// The lengths named for the chapter's accuracy note.
TEST(FftAccuracy, NamedLengths) {
  const long lengths[] = {1 << 10, 1 << 12, 1 << 16, 3 * 3 * 3 * 3 * 3 * 3 * 3,  // 2187
                          5 * 5 * 5 * 5 * 5, 7 * 7 * 7, 11 * 11, 13 * 13, 17 * 17, 19 * 19,
                          720, 1000, 2310, 30030, (1 << 10) * 19, 19 * 19 * 32};
  for (long n : lengths) expect_accurate(n);
}

TEST(FftAccuracy, LongestLengths) {
  if (fftt::kSanitized) GTEST_SKIP() << "left to the optimised build";
  for (long n : {1L << 20, 531441L /* 3^12 */, 390625L /* 5^8 */}) expect_accurate(n);
}

// The oracle's long route agrees with its defining sum.
TEST(FftAccuracy, OracleRoutesAgree) {
  for (long n : {600L, 1331L, 1024L}) {
    const auto x = data(n, 7), y = data(n, 8);
    std::vector<cld> z(n);
    for (long j = 0; j < n; ++j) z[j] = cld(x[j], y[j]);
    const auto a = oracle::dft(z, true), b = oracle::dft(z);
    long double num = 0, den = 0;
    for (long k = 0; k < n; ++k) {
      num += std::norm(a[k] - b[k]);
      den += std::norm(a[k]);
    }
    EXPECT_LT(std::sqrt(num / den), 1e-17L) << n;
  }
}

// c06eac, c06gbc, c06ebc returns the sequence; so does c06gcc, c06ecc,
// c06gcc for a complex one; every accepted length up to 2048.
TEST(FftRoundTrip, EveryLengthTo2048) {
  ZilError fail{};
  for (long n = 2; n <= 2048; ++n) {
    if (!fftt::valid_length(n)) continue;
    const Integer ni = static_cast<Integer>(n);
    const auto x0 = data(n, 100 + n), y0 = data(n, 200 + n);
    auto x = x0;
    c06eac(ni, x.data(), &fail);
    c06gbc(ni, x.data(), &fail);
    c06ebc(ni, x.data(), &fail);
    ASSERT_EQ(fail.code, 0);
    EXPECT_LE(fftt::rms_rel(x, x0), fftt::bound(n)) << "real n = " << n;
    // Forward, then the inverse: conjugate, forward, conjugate.
    auto cx = x0, cy = y0;
    c06ecc(ni, cx.data(), cy.data(), &fail);
    c06gcc(ni, cy.data(), &fail);
    c06ecc(ni, cx.data(), cy.data(), &fail);
    c06gcc(ni, cy.data(), &fail);
    ASSERT_EQ(fail.code, 0);
    std::vector<cld> want(n);
    for (long j = 0; j < n; ++j) want[j] = cld(x0[j], y0[j]);
    EXPECT_LE(fftt::rms_rel(cx, cy, want), fftt::bound(n)) << "complex n = " << n;
  }
}

// Square-free lengths whose second reordering stage has more blocks than
// fit one window of its marks (2^15), so that cycles met again in a later
// window must be recognised as placed: unit impulses at 1 (real) and at j
// (imaginary) give z(k) = (exp(-i*2*pi*k/n) + i*exp(-i*2*pi*j*k/n))/sqrt(n)
// in closed form, and any misplaced block shows at once.
TEST(FftReorder, ImpulsesAtLongSquareFreeLengths) {
  constexpr long double two_pi = 6.283185307179586476925286766559005768L;
  // 2*3*5*7*11*13*17 (kt = 1), and 4 times 3*5*7*11*13*17 (kt = 2).
  for (long n : {510510L, 1021020L}) {
    const long j = 12347;
    std::vector<double> x(n, 0.0), y(n, 0.0);
    x[1] = 1.0;
    y[j] = 1.0;
    ZilError fail{};
    c06ecc(static_cast<Integer>(n), x.data(), y.data(), &fail);
    ASSERT_EQ(fail.code, 0);
    std::vector<cld> want(n);
    const long double s = std::sqrt(static_cast<long double>(n));
    for (long k = 0; k < n; ++k) {
      const long double a = two_pi * k / n, b = two_pi * ((j * k) % n) / n;
      want[k] = (cld(std::cos(a), -std::sin(a)) + cld(std::sin(b), std::cos(b))) / s;
    }
    EXPECT_LE(fftt::rms_rel(x, y, want), fftt::bound(n)) << "n = " << n;
  }
}

}  // namespace
