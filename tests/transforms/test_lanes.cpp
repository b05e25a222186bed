// The complex passes exist in two copies, two lanes (SSE2) and four (AVX2),
// and the public routine runs the wider one wherever the processor has it,
// so the accuracy tests see only that one.  Each lane does the scalar
// arithmetic with no fused multiply-add, so the narrow copy must give the
// very same bits: comparing them checks the copy that the other tests do not
// reach, and every index left over by a four-wide loop.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "fft_test_util.hpp"
#include "transforms/detail/passes.hpp"

namespace {

using zil::fft::Lanes;

// Unscaled transforms of the same data by the two widths, compared bit for
// bit (NaN-free data, so memcmp is equality of every value and sign).
void expect_same_bits(long n) {
  zil::fft::Factors fac;
  ASSERT_EQ(zil::fft::factorise(static_cast<Integer>(n), fac), zil::fft::FactorStatus::ok) << n;
  auto x2 = fftt::data(n, 11), y2 = fftt::data(n, 12);
  auto x4 = x2, y4 = y2;
  zil::fft::complex_transform(static_cast<Integer>(n), fac, x2.data(), y2.data(), Lanes::two);
  zil::fft::complex_transform(static_cast<Integer>(n), fac, x4.data(), y4.data(), Lanes::four);
  EXPECT_EQ(std::memcmp(x2.data(), x4.data(), n * sizeof(double)), 0) << n;
  EXPECT_EQ(std::memcmp(y2.data(), y4.data(), n * sizeof(double)), 0) << n;
}

bool has_avx2() { return __builtin_cpu_supports("avx2"); }

// Every accepted length to 1100: each radix at every span, and every
// count of indices left over by the wide loops.
TEST(FftLanes, SameBitsEveryLengthTo1100) {
  if (!has_avx2()) GTEST_SKIP() << "no AVX2 on this processor";
  for (long n = 2; n <= 1100; ++n)
    if (fftt::valid_length(n)) expect_same_bits(n);
}

// Lengths long enough for the passes to run block by block, and with spans
// that are multiples of 512 (the radix-8 passes' cache-line handling).
TEST(FftLanes, SameBitsLongLengths) {
  if (!has_avx2()) GTEST_SKIP() << "no AVX2 on this processor";
  for (long n : {4096L, 30030L, 1L << 16, 19L * 19 * 32 * 9, 3L * 5 * 7 * 11 * 13 * 17})
    expect_same_bits(n);
}

}  // namespace
