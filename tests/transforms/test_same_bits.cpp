// Routes of the complex transform that must give the very same bits.
//
// The complex passes exist in two copies, two lanes (SSE2) and four (AVX2),
// and the public routine runs the wider one wherever the processor has it,
// so the accuracy tests see only that one.  Each lane does the scalar
// arithmetic with no fused multiply-add, so the narrow copy must agree
// exactly: comparing them checks the copy that the other tests do not
// reach, and every index left over by a four-wide loop.
//
// c06ecc divides by sqrt(n) inside the last pass; that must be the division
// of the finished transform, element by element.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "fft_test_util.hpp"
#include "transforms/detail/passes.hpp"

namespace {

using zil::fft::Lanes;

bool same_bits(const std::vector<double>& a, const std::vector<double>& b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

// Unscaled transforms of the same data by the two widths, compared bit for
// bit (NaN-free data, so memcmp is equality of every value and sign).
void expect_same_bits(long n) {
  zil::fft::Factors fac;
  ASSERT_EQ(zil::fft::factorise(static_cast<Integer>(n), fac), zil::fft::FactorStatus::ok) << n;
  auto x2 = fftt::data(n, 11), y2 = fftt::data(n, 12);
  auto x4 = x2, y4 = y2;
  zil::fft::complex_transform(static_cast<Integer>(n), fac, x2.data(), y2.data(), 1.0, Lanes::two);
  zil::fft::complex_transform(static_cast<Integer>(n), fac, x4.data(), y4.data(), 1.0, Lanes::four);
  EXPECT_TRUE(same_bits(x2, x4)) << n;
  EXPECT_TRUE(same_bits(y2, y4)) << n;
}

bool has_avx2() { return __builtin_cpu_supports("avx2"); }

// Every accepted length to 1100: each radix at every span, and every
// count of indices left over by the wide loops.
TEST(FftSameBits, LanesEveryLengthTo1100) {
  if (!has_avx2()) GTEST_SKIP() << "no AVX2 on this processor";
  for (long n = 2; n <= 1100; ++n)
    if (fftt::valid_length(n)) expect_same_bits(n);
}

// Lengths long enough for the passes to run block by block, and with spans
// that are multiples of 512 (the radix-8 passes' cache-line handling).
TEST(FftSameBits, LanesLongLengths) {
  if (!has_avx2()) GTEST_SKIP() << "no AVX2 on this processor";
  for (long n : {4096L, 30030L, 1L << 16, 19L * 19 * 32 * 9, 3L * 5 * 7 * 11 * 13 * 17})
    expect_same_bits(n);
}

// The powers of two up to 64 run copies of the passes compiled for their
// length, with their own list of swaps for the reordering: both widths of
// them must give the general passes' bits, and other lengths are left to
// those, their data untouched.
TEST(FftSameBits, ShortLengthCopiesAgreeWithTheGeneralPasses) {
  for (Integer n = 2; n <= 64; n *= 2) {
    zil::fft::Factors fac;
    ASSERT_EQ(zil::fft::factorise(n, fac), zil::fft::FactorStatus::ok) << n;
    const double d = std::sqrt(static_cast<double>(n));
    auto x = fftt::data(n, 31), y = fftt::data(n, 32);
    auto xw = x, yw = y, xn = x, yn = y;
    zil::fft::complex_transform(n, fac, x.data(), y.data(), d, Lanes::two);
    ASSERT_TRUE(zil::fft::complex_transform_short(n, xw.data(), yw.data(), d, Lanes::best)) << n;
    ASSERT_TRUE(zil::fft::complex_transform_short(n, xn.data(), yn.data(), d, Lanes::two)) << n;
    EXPECT_TRUE(same_bits(x, xw) && same_bits(y, yw)) << n;
    EXPECT_TRUE(same_bits(x, xn) && same_bits(y, yn)) << n;
  }
  for (Integer n : {3, 12, 48, 128}) {
    const auto x = fftt::data(n, 33);
    auto xs = x, ys = x;
    EXPECT_FALSE(zil::fft::complex_transform_short(n, xs.data(), ys.data(), 1.0)) << n;
    EXPECT_TRUE(same_bits(x, xs) && same_bits(x, ys)) << n;
  }
}

// The scaled public transform against the unscaled one followed by the
// division: lengths whose sqrt(n) is a power of two (divided by its exact
// reciprocal) and others (a true division), with each radix last.
TEST(FftSameBits, DivisionInTheLastPass) {
  for (long n : {2L, 3L, 4L, 16L, 64L, 1024L, 5L, 7L, 8L, 19L, 38L, 120L, 720L, 1000L, 2310L,
                 4096L, 30030L, 1L << 17}) {
    zil::fft::Factors fac;
    ASSERT_EQ(zil::fft::factorise(static_cast<Integer>(n), fac), zil::fft::FactorStatus::ok) << n;
    const auto x = fftt::data(n, 21), y = fftt::data(n, 22);
    auto px = x, py = y;
    ZilError fail{};
    c06ecc(static_cast<Integer>(n), px.data(), py.data(), &fail);
    ASSERT_EQ(fail.code, 0) << n;
    auto ux = x, uy = y;
    zil::fft::complex_transform(static_cast<Integer>(n), fac, ux.data(), uy.data(), 1.0);
    const double root = std::sqrt(static_cast<double>(n));
    zil::fft::divide(static_cast<Integer>(n), ux.data(), root);
    zil::fft::divide(static_cast<Integer>(n), uy.data(), root);
    EXPECT_TRUE(same_bits(px, ux)) << n;
    EXPECT_TRUE(same_bits(py, uy)) << n;
  }
}

}  // namespace
