// The two factorisations, the limits on a length, and the table of c06gzc
// with its stamp.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "transforms/detail/factor.hpp"
#include "transforms/detail/trig.hpp"
#include "zil.h"

namespace {

using zil::fft::CountTest;
using zil::fft::Factors;
using zil::fft::FactorStatus;

std::vector<Integer> list(const Integer* l) {
  std::vector<Integer> v;
  while (*l != 0) v.push_back(*l++);
  return v;
}

using V = std::vector<Integer>;

TEST(FftFactors, ListsOf720) {
  Factors f;
  ASSERT_EQ(zil::fft::factorise(720, f), FactorStatus::ok);
  EXPECT_EQ(list(f.stage), (V{3, 1, 4, 5, 1, 4, 3}));
  EXPECT_EQ(list(f.digit), (V{3, 2, 2, 5, 2, 2, 3}));
  EXPECT_EQ(list(f.square_free), V{});
  EXPECT_EQ(f.kt, 12);
}

TEST(FftFactors, ShapesOfTheLists) {
  Factors f;
  // Square-free with several factors: only the second reordering.
  ASSERT_EQ(zil::fft::factorise(2310, f), FactorStatus::ok);
  EXPECT_EQ(list(f.stage), (V{2, 3, 5, 7, 11}));
  EXPECT_EQ(list(f.digit), V{});
  EXPECT_EQ(list(f.square_free), (V{2, 3, 5, 7, 11}));
  EXPECT_EQ(f.kt, 1);
  // A perfect square: only the first.
  ASSERT_EQ(zil::fft::factorise(144, f), FactorStatus::ok);
  EXPECT_EQ(list(f.stage), (V{3, 1, 1, 8, 2, 3}));
  EXPECT_EQ(list(f.digit), (V{3, 2, 2, 2, 2, 3}));
  EXPECT_EQ(list(f.square_free), V{});
  EXPECT_EQ(f.kt, 12);
  // A lone prime: one pass, no reordering.
  ASSERT_EQ(zil::fft::factorise(19, f), FactorStatus::ok);
  EXPECT_EQ(list(f.stage), V{19});
  EXPECT_EQ(list(f.digit), V{});
  EXPECT_EQ(list(f.square_free), V{});
  // Three 2s in a row make a radix-8 pass; 2,2 after it a radix-4 one.
  ASSERT_EQ(zil::fft::factorise(32, f), FactorStatus::ok);
  EXPECT_EQ(list(f.stage), (V{1, 1, 8, 1, 4}));
  EXPECT_EQ(list(f.digit), (V{2, 2, 2, 2, 2}));
  ASSERT_EQ(zil::fft::factorise(2, f), FactorStatus::ok);
  EXPECT_EQ(list(f.stage), V{2});
  // Runs of 3 are not merged.
  ASSERT_EQ(zil::fft::factorise(27, f), FactorStatus::ok);
  EXPECT_EQ(list(f.stage), (V{3, 3, 3}));
  EXPECT_EQ(list(f.digit), (V{3, 3, 3}));
}

TEST(FftFactors, LargestPowerOfTwoHasOnlyMergedRadices) {
  Factors f;
  ASSERT_EQ(zil::fft::factorise(1 << 20, f), FactorStatus::ok);
  long product = 1;
  for (Integer r : list(f.stage)) {
    EXPECT_TRUE(r == 1 || r == 4 || r == 8) << r;
    product *= r;
  }
  EXPECT_EQ(product, 1L << 20);
  EXPECT_EQ(f.kt, 1 << 10);
}

TEST(FftFactors, Limits) {
  Factors f;
  EXPECT_EQ(zil::fft::factorise(1 << 21, f), FactorStatus::too_many_factors);
  EXPECT_EQ(zil::fft::factorise(23, f), FactorStatus::prime_above_limit);
  EXPECT_EQ(zil::fft::factorise(46, f), FactorStatus::prime_above_limit);
  EXPECT_EQ(zil::fft::factorise(19 * 19 * 32, f), FactorStatus::ok);
  EXPECT_EQ(zil::fft::factorise(3 * (1 << 19), f), FactorStatus::ok);       // 20 factors
  EXPECT_EQ(zil::fft::factorise(3 * (1 << 20), f), FactorStatus::too_many_factors);
  // 20 factors, then 23: the public test finds the prime first.
  EXPECT_EQ(zil::fft::factorise(23 << 20, f), FactorStatus::prime_above_limit);
}

// The inner factoriser tests the count before taking a factor, so a square
// pair taken at a count of 19 slips past it: 2^19 * 9 has 21 factors.
TEST(FftFactors, InnerCountTestComesFirst) {
  Factors f;
  const Integer n = (1 << 19) * 9;
  EXPECT_EQ(zil::fft::factorise(n, f), FactorStatus::too_many_factors);
  EXPECT_EQ(zil::fft::factorise(n, f, CountTest::before_taking), FactorStatus::ok);
  EXPECT_EQ(zil::fft::factorise(1 << 21, f, CountTest::before_taking), FactorStatus::too_many_factors);
  // With 20 factors taken the count fails before the prime 23 is looked at.
  EXPECT_EQ(zil::fft::factorise(23 << 20, f, CountTest::before_taking),
            FactorStatus::too_many_factors);
}

TEST(FftFactors, TrigFactorisation) {
  Integer fac[32], nf = -1;
  auto check = [&](Integer n, V want) {
    c06fpz(n, &nf, fac);
    EXPECT_EQ(V(fac, fac + nf), want) << n;
  };
  check(1, {1});
  check(720, {6, 6, 4, 5});
  check(8, {4, 2});
  check(12, {6, 2});
  check(7 * 7 * 23, {7, 7, 23});
  check(25 * 29, {5, 5, 29});
  check(2147483647, {2147483647});
  c06fpz(0, &nf, fac);
  EXPECT_EQ(nf, 0);
}

// cos and -sin of 2*pi*t/n for the given multiples t.
void expect_table(Integer n, const std::vector<long>& t) {
  std::vector<double> trig(2 * n, -7.0);
  ZilError fail{};
  c06gzc(n, trig.data(), &fail);
  ASSERT_EQ(fail.code, 0);
  ASSERT_EQ(static_cast<long>(t.size()), n - 1);
  for (Integer k = 0; k + 1 < n; ++k) {
    const long double a = 6.283185307179586476925286766559L * t[k] / n;
    // The angles are formed in double, a product i*j*d of a rounded d: two
    // roundings of an angle below 2*pi, about 2 * 2pi units of 2^-53.
    const double tol = 16 * 0x1p-53;
    EXPECT_NEAR(trig[k], std::cos(a), tol) << n << " slot " << k;
    EXPECT_NEAR(trig[n + k], -std::sin(a), tol) << n << " slot " << k;
  }
  EXPECT_EQ(trig[n - 1], n);
  EXPECT_EQ(trig[2 * n - 1], n);
}

// Slots worked out by hand from the slot order: factor by factor, j
// outer, i inner, angle i*j*d, d growing by each factor; for a factor of 7
// or more the first slot of each j carries that radix's root of order j.
TEST(FftTrig, TablesByHand) {
  expect_table(1, {});
  expect_table(6, {0, 0, 0, 0, 0});
  // 12 = 6 * 2: m = 2 with d = 2pi/12, then m = 1 with d = 2pi/2.
  expect_table(12, {0, 1, 0, 2, 0, 3, 0, 4, 0, 5, 0});
  // 7: every slot is a root: 2pi*j/7.
  expect_table(7, {1, 2, 3, 4, 5, 6});
  // 14 = 2 * 7: i*2pi/14 for i < 7, then 2pi*j/7 = 2j * 2pi/14.
  expect_table(14, {0, 1, 2, 3, 4, 5, 6, 2, 4, 6, 8, 10, 12});
}

TEST(FftTrig, StampCheck) {
  std::vector<double> trig(2 * 30);
  ZilError fail{};
  c06gzc(30, trig.data(), &fail);
  {
    zil::Reporter rep(&fail, "test");
    EXPECT_FALSE(zil::fft::trig_refused(rep, 30, trig.data(), "n", "trig"));
  }
  // Built for 30, used for 20: trig[19] holds a cosine, not 20.
  zil::Reporter rep(&fail, "c06fuc");
  EXPECT_TRUE(zil::fft::trig_refused(rep, 20, trig.data(), "m", "trigm"));
  EXPECT_EQ(fail.code, ZE_C06_NOT_TRIG);
  if (zil_errlist[ZE_C06_NOT_TRIG])
    EXPECT_STREQ(fail.message,
                 "ZE_C06_NOT_TRIG:\n  Value of m and trigm array are incompatible\n  or trigm array "
                 "not initialized.");
  // Never built: zeros.
  std::vector<double> zeros(40, 0.0);
  EXPECT_FALSE(zil::fft::trig_stamp_ok(20, zeros.data()));
  // Only the two stamped slots are read.
  zeros[19] = zeros[39] = 20.0;
  EXPECT_TRUE(zil::fft::trig_stamp_ok(20, zeros.data()));
  zeros[39] = 21.0;
  EXPECT_FALSE(zil::fft::trig_stamp_ok(20, zeros.data()));
}

}  // namespace
