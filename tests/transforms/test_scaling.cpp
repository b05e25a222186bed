// The final scaling is a correctly rounded quotient x/d for every element,
// whichever way it is computed: bit for bit the quotient of one division,
// for the roots of the powers of four (exact reciprocals) and for the
// others, on normal, subnormal, signed-zero and non-finite elements.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "transforms/detail/passes.hpp"
#include "zil.h"

namespace {

TEST(FftScaling, EveryElementIsTheRoundedQuotient) {
  std::vector<double> x0 = {0.0, -0.0, 1.0, -3.5, 0x1.fffffffffffffp-1, 0x1p-1074, -0x1.8p-1070,
                            0x1.23456789abcdep-1020, 1e308, std::numeric_limits<double>::infinity(),
                            std::numeric_limits<double>::quiet_NaN()};
  std::uint64_t s = 12345;
  for (int i = 0; i < 200; ++i) {  // odd count: the last element goes alone
    s = s * 6364136223846793005u + 1442695040888963407u;
    x0.push_back(std::ldexp(static_cast<double>(s >> 11) * 0x1p-53, static_cast<int>(s % 2100) - 1075));
  }
  for (Integer n : {64, 1024, 1 << 20, 720, 1000, 30030}) {
    const double d = std::sqrt(static_cast<double>(n));
    auto x = x0;
    zil::fft::divide(static_cast<Integer>(x.size()), x.data(), d);
    for (std::size_t i = 0; i < x.size(); ++i)
      EXPECT_EQ(std::bit_cast<std::uint64_t>(x[i]), std::bit_cast<std::uint64_t>(x0[i] / d))
          << "n = " << n << ", x = " << x0[i];
  }
}

// The real transform divides in its last pass, as it stores each value.
// An impulse a at 0 has the unscaled spectrum a at every index, exactly
// (only sums with exact zeros and products of them reach it), so every
// stored real part must be the one quotient a/sqrt(n) (for a = 0.7 not
// always the product with 1/sqrt(n)) and every imaginary part a zero: this covers each store of the last pass (first, inner, partner and
// middle indices), at lengths whose last pass is also the first, and the
// powers of four, whose quotient is a product with an exact reciprocal.
TEST(FftScaling, RealTransformDividesInItsLastPass) {
  for (Integer n : {2, 3, 4, 5, 7, 8, 11, 13, 16, 17, 19, 6, 12, 36, 64, 100, 720, 1000, 1024, 2310,
                    4096, 30030, 19 * 19 * 4}) {
    std::vector<double> x(n, 0.0);
    x[0] = 0.7;
    ZilError fail{};
    c06eac(n, x.data(), &fail);
    ASSERT_EQ(fail.code, 0);
    const double q = 0.7 / std::sqrt(static_cast<double>(n));
    for (Integer j = 0; j < n; ++j) {
      if (2 * j <= n)
        EXPECT_EQ(std::bit_cast<std::uint64_t>(x[j]), std::bit_cast<std::uint64_t>(q)) << "n = " << n << ", j = " << j;
      else
        EXPECT_EQ(x[j], 0.0) << "n = " << n << ", j = " << j;
    }
  }
}

}  // namespace
