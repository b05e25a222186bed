// The real passes exist in two compiled copies, one on SSE2 pairs and one
// on AVX2 quadruples of neighbouring indices, chosen at run time.  Each lane
// does the scalar arithmetic, so both must give the same bits; the accuracy
// tests, run on whichever copy this machine picks, then speak for both.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

#include "fft_test_util.hpp"
#include "transforms/detail/factor.hpp"
#include "transforms/detail/passes.hpp"

namespace {

// Lengths whose passes have spans long enough for four-index butterflies,
// with leftover pairs and single indices, the middle index, both scalings
// (a power of four divides by a product with an exact reciprocal) and both
// reorderings.
TEST(FftRealPaths, WideAndNarrowCopiesAgreeBitForBit) {
  for (Integer n : {16, 64, 100, 720, 1000, 1024, 2048, 2310, 4096, 6561, 30030, 19 * 19 * 8, 1 << 16}) {
    zil::fft::Factors fac;
    ASSERT_EQ(zil::fft::factorise(n, fac), zil::fft::FactorStatus::ok);
    const double d = std::sqrt(static_cast<double>(n));
    auto wide = fftt::data(n, static_cast<std::uint64_t>(n)), narrow = wide, pub = wide;
    zil::fft::real_transform(n, fac, wide.data(), d, true);
    zil::fft::real_transform(n, fac, narrow.data(), d, false);
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

}  // namespace
