// The real passes exist in two compiled copies, one on SSE2 pairs and one
// on AVX2 quadruples of neighbouring indices, chosen at run time.  Each lane
// does the scalar arithmetic, so both must give the same bits; the accuracy
// tests, run on whichever copy this machine picks, then speak for both.
// Below them, the real-input butterflies that start every real pass.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

#include "fft_test_util.hpp"
#include "transforms/detail/factor.hpp"
#include "transforms/detail/kernels.hpp"
#include "transforms/detail/passes.hpp"

namespace {

// Lengths whose passes have spans long enough for four-index butterflies,
// with leftover pairs and single indices, the middle index alone and joined
// to a vector (72: radix 3 over m = 24), both scalings (a power of four
// divides by a product with an exact reciprocal), both reorderings and the
// data read through a copy (up to 2048) or reordered in place, and the
// radix-4 and radix-8 passes over odd spans that run four groups at a time
// transposed (720: 4 over 3, 1000: 4 over 5, 288: 8 over 3, 784: 8 over 7).
TEST(FftRealPaths, WideAndNarrowCopiesAgreeBitForBit) {
  for (Integer n : {16, 64, 72, 100, 288, 720, 784, 1000, 1024, 2048, 2310, 4096, 6561, 30030,
                    19 * 19 * 8, 1 << 16}) {
    zil::fft::Factors fac;
    ASSERT_EQ(zil::fft::factorise(n, fac), zil::fft::FactorStatus::ok);
    const double d = std::sqrt(static_cast<double>(n));
    auto wide = fftt::data(n, static_cast<std::uint64_t>(n)), narrow = wide, pub = wide;
    zil::fft::real_transform(n, fac, wide.data(), d, zil::fft::Lanes::best);
    zil::fft::real_transform(n, fac, narrow.data(), d, zil::fft::Lanes::two);
    ZilError fail{};
    c06eac(n, pub.data(), &fail);
    ASSERT_EQ(fail.code, 0);
    long differ = 0, differ_pub = 0;
    for (Integer j = 0; j < n; ++j) {
      differ += std::bit_cast<std::uint64_t>(wide[j]) != std::bit_cast<std::uint64_t>(narrow[j]);
      differ_pub += std::bit_cast<std::uint64_t>(wide[j]) != std::bit_cast<std::uint64_t>(pub[j]);
    }
    EXPECT_EQ(differ, 0) << "n = " << n;
    EXPECT_EQ(differ_pub, 0) << "n = " << n;
  }
}

// The powers of two up to 64 run copies of the passes compiled for their
// length: both widths of them must give the bits of the general passes,
// and any other length must be left to those.
TEST(FftRealPaths, ShortLengthCopiesAgreeWithTheGeneralPasses) {
  using zil::fft::Lanes;
  auto same = [](const std::vector<double>& a, const std::vector<double>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), [](double u, double v) {
      return std::bit_cast<std::uint64_t>(u) == std::bit_cast<std::uint64_t>(v);
    });
  };
  for (Integer n = 2; n <= 64; n *= 2) {
    zil::fft::Factors fac;
    ASSERT_EQ(zil::fft::factorise(n, fac), zil::fft::FactorStatus::ok);
    const double d = std::sqrt(static_cast<double>(n));
    auto general = fftt::data(n, static_cast<std::uint64_t>(n) + 5), wide = general, narrow = general;
    zil::fft::real_transform(n, fac, general.data(), d, Lanes::two);
    ASSERT_TRUE(zil::fft::real_transform_short(n, wide.data(), d, Lanes::best)) << n;
    ASSERT_TRUE(zil::fft::real_transform_short(n, narrow.data(), d, Lanes::two)) << n;
    EXPECT_TRUE(same(general, wide)) << "n = " << n;
    EXPECT_TRUE(same(general, narrow)) << "n = " << n;
  }
  for (Integer n : {3, 12, 48, 128}) {
    const auto x = fftt::data(n, 9);
    auto y = x;
    EXPECT_FALSE(zil::fft::real_transform_short(n, y.data(), 1.0)) << n;
    EXPECT_TRUE(same(x, y)) << n;
  }
}

// Each radix's real-input butterfly against the defining sum in long
// double, on both lanes of a pair (two different inputs): the result in the
// Hermitian layout of length f, within a few units of rounding of the
// largest output.
template <class D>
void expect_real_butterfly(const D& dft) {
  constexpr int f = D::f;
  const auto a = fftt::data(f, 7 * f), b = fftt::data(f, 7 * f + 1);
  zil::fft::Pair v[f];
  for (int l = 0; l < f; ++l) v[l] = zil::fft::Pair{a[l], b[l]};
  dft.real(v);
  for (int lane = 0; lane < 2; ++lane) {
    const auto& in = lane == 0 ? a : b;
    std::vector<long double> want(f);
    long double largest = 0;
    for (int q = 0; 2 * q <= f; ++q) {
      long double re = 0, im = 0;
      for (int l = 0; l < f; ++l) {
        const long double angle = oracle::kTwoPiL * ((l * q) % f) / f;
        re += in[l] * std::cos(angle);
        im -= in[l] * std::sin(angle);
      }
      want[q] = re;
      if (q > 0 && 2 * q < f) want[f - q] = im;
      largest = std::max({largest, std::fabs(re), std::fabs(im)});
    }
    for (int q = 0; q < f; ++q)
      EXPECT_NEAR(static_cast<double>(v[q][lane]), static_cast<double>(want[q]),
                  static_cast<double>(4 * fftt::kEps * largest))
          << "radix " << f << ", slot " << q << ", lane " << lane;
  }
}

TEST(FftRealPaths, RealInputButterfliesMatchTheDefiningSum) {
  expect_real_butterfly(zil::fft::Dft2{});
  expect_real_butterfly(zil::fft::Dft3{});
  expect_real_butterfly(zil::fft::Dft4{});
  expect_real_butterfly(zil::fft::Dft5{});
  expect_real_butterfly(zil::fft::Dft8{});
  expect_real_butterfly(zil::fft::DftOdd<7>{});
  expect_real_butterfly(zil::fft::DftOdd<11>{});
  expect_real_butterfly(zil::fft::DftOdd<13>{});
  expect_real_butterfly(zil::fft::DftOdd<17>{});
  expect_real_butterfly(zil::fft::DftOdd<19>{});
}

}  // namespace
