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

}  // namespace
