// The rngs suite (g05kac, g05kbc, g05kcc): streams against the exact model,
// the normalisation of igen and iseed, the Wichmann-Hill table and the
// clock seeds.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <set>

#include "model_data.hpp"
#include "random/detail/generator.hpp"
#include "random/detail/wichmann_hill_table.hpp"
#include "zil.h"

namespace {

using zil_test::model;

constexpr double kEps = 0x1p-53;  // x02ajc to the rounding of the tests

TEST(G05Rngs, BaseGeneratorMatchesTheModelStateByState) {
  for (const auto& m : model().streams) {
    if (m.kind != "seeded") continue;
    Integer igen = -7;  // any igen <= 0 selects the base generator
    Integer iseed[4] = {static_cast<Integer>(m.id), 99, 99, 99};
    g05kbc(&igen, iseed);
    ASSERT_EQ(igen, 0);
    for (std::size_t i = 0; i < m.u.size(); ++i) {
      // Seeding steps once, so the first number is that of the third state,
      // as after g05cbc.
      ASSERT_EQ(g05kac(igen, iseed), m.u[i]) << m.id << " " << i;
      const auto expect = zil_test::limbs(m.x[i]);
      for (int r = 0; r < 4; ++r) ASSERT_EQ(iseed[r], expect[r]) << m.id << " " << i;
    }
  }
}

TEST(G05Rngs, WichmannHillMatchesTheModel) {
  for (const auto& m : model().streams) {
    if (m.kind != "wh") continue;
    Integer igen = static_cast<Integer>(m.id);
    Integer iseed[4] = {m.start[0], m.start[1], m.start[2], m.start[3]};
    zil_rngs_init_repeatable(&igen, iseed);
    ASSERT_EQ(igen, m.id);
    for (std::size_t i = 0; i < m.u.size(); ++i) {
      const double u = zil_rngs_basic(igen, iseed);
      for (int j = 0; j < 4; ++j) ASSERT_EQ(iseed[j], m.seeds[i][j]) << m.id << " " << i;
      // Four correctly rounded quotients and three sums below 4: at most
      // 4 * 2^-54 + 3 * 2^-52 = 8 eps from the exact fractional part.
      ASSERT_NEAR(u, m.u[i], 8 * kEps) << m.id << " " << i;
      ASSERT_GE(u, 0.0);
      ASSERT_LT(u, 1.0);
    }
  }
}

TEST(G05Rngs, IgenIsTakenCyclically) {
  const struct {
    Integer in, out;
  } cases[] = {{1, 1}, {273, 273}, {274, 1}, {275, 2}, {546, 273}, {547, 1},
               {INT_MAX, static_cast<Integer>((INT_MAX + 272LL) % 273 + 1)}};
  for (const auto& c : cases) {
    Integer igen = c.in;
    Integer iseed[4] = {1, 2, 3, 4};
    g05kbc(&igen, iseed);
    EXPECT_EQ(igen, c.out) << c.in;
  }
  // igen 0 keeps the base generator, any negative value becomes 0.
  for (Integer in : {0, -1, INT_MIN}) {
    Integer igen = in;
    Integer iseed[4] = {5, 0, 0, 0};
    g05kbc(&igen, iseed);
    EXPECT_EQ(igen, 0);
    EXPECT_EQ(iseed[0] % 4, 2);  // a state of the base generator
  }
}

TEST(G05Rngs, WichmannHillSeedsAreBroughtIntoRange) {
  const struct {
    Integer in, out;
  } cases[] = {{1, 1},
               {16909320, 16909320},
               {0, 2},
               {-5, 7},
               {16909321, 3},
               {INT_MAX, static_cast<Integer>((INT_MAX + 1LL) % 16909320 + 1)},
               {INT_MIN, static_cast<Integer>((2147483648LL + 1) % 16909320 + 1)}};
  for (const auto& c : cases) {
    Integer igen = 3;
    Integer iseed[4] = {c.in, c.in, 1, c.in};
    g05kbc(&igen, iseed);
    EXPECT_EQ(iseed[0], c.out) << c.in;
    EXPECT_EQ(iseed[1], c.out) << c.in;
    EXPECT_EQ(iseed[2], 1);
    EXPECT_EQ(iseed[3], c.out) << c.in;
  }
}

TEST(G05Rngs, BaseGeneratorNeverGivesZeroOrOne) {
  for (const auto& e : model().edges) {
    const auto l = zil_test::limbs(e.before);
    Integer iseed[4] = {l[0], l[1], l[2], l[3]};
    EXPECT_EQ(g05kac(0, iseed), e.u);
  }
}

TEST(G05Rngs, StateIsTheCallersAndMayBeCopied) {
  Integer igen = 137;
  Integer a[4] = {11, 22, 33, 44};
  g05kbc(&igen, a);
  Integer b[4] = {a[0], a[1], a[2], a[3]};
  for (int i = 0; i < 50; ++i) g05kac(igen, a);
  const double next = g05kac(igen, a);
  for (int i = 0; i < 50; ++i) g05kac(igen, b);
  EXPECT_EQ(g05kac(igen, b), next);
}

bool is_prime(std::uint32_t n) {
  if (n % 2 == 0) return n == 2;
  for (std::uint32_t d = 3; d * d <= n; d += 2)
    if (n % d == 0) return false;
  return true;
}

std::uint64_t power_mod(std::uint64_t a, std::uint64_t e, std::uint64_t m) {
  std::uint64_t r = 1;
  for (a %= m; e; e >>= 1, a = a * a % m)
    if (e & 1) r = r * a % m;
  return r;
}

bool is_primitive_root(std::uint32_t a, std::uint32_t p) {
  std::uint32_t n = p - 1;
  for (std::uint32_t q = 2; q * q <= n; ++q) {
    if (n % q) continue;
    if (power_mod(a, (p - 1) / q, p) == 1) return false;
    while (n % q == 0) n /= q;
  }
  return n == 1 || power_mod(a, (p - 1) / n, p) != 1;
}

TEST(G05Rngs, WichmannHillTableHasTheStatedProperties) {
  using zil::rng::kWichmannHill;
  ASSERT_EQ(kWichmannHill.size(), 273u);
  std::set<std::uint32_t> moduli;
  for (const auto& row : kWichmannHill)
    for (int j = 0; j < 4; ++j) {
      EXPECT_GE(row.a[j], 112u);
      EXPECT_LE(row.a[j], 127u);
      EXPECT_GE(row.m[j], 16718909u);
      EXPECT_LE(row.m[j], 16776971u);
      EXPECT_TRUE(is_prime(row.m[j])) << row.m[j];
      // Full period m - 1 for every component.
      EXPECT_TRUE(is_primitive_root(row.a[j], row.m[j])) << row.a[j] << " " << row.m[j];
      moduli.insert(row.m[j]);
    }
  EXPECT_EQ(moduli.size(), 1092u);
  // The published rows.
  const struct {
    int igen;
    zil::rng::WichmannHillRow row;
  } published[] = {
      {1, {{125, 117, 127, 126}, {16770647, 16770643, 16770623, 16770617}}},
      {2, {{127, 126, 125, 123}, {16770311, 16770283, 16770263, 16770209}}},
      {3, {{125, 119, 123, 126}, {16769807, 16769771, 16769749, 16769663}}},
      {4, {{123, 125, 122, 126}, {16769591, 16769537, 16769479, 16769387}}},
      {5, {{125, 126, 117, 127}, {16765883, 16765877, 16765807, 16765739}}},
      {270, {{120, 126, 127, 125}, {16767011, 16766993, 16766767, 16766627}}},
      {271, {{124, 127, 125, 126}, {16766891, 16766833, 16766543, 16766483}}},
      {272, {{127, 124, 126, 118}, {16766831, 16766803, 16766459, 16766429}}},
      {273, {{126, 127, 125, 124}, {16766363, 16766359, 16766327, 16766231}}},
  };
  for (const auto& p : published) {
    EXPECT_EQ(kWichmannHill[p.igen - 1].a, p.row.a) << p.igen;
    EXPECT_EQ(kWichmannHill[p.igen - 1].m, p.row.m) << p.igen;
  }
}

TEST(G05Rngs, ClockSeedMatchesTheModel) {
  ASSERT_FALSE(model().clocks.empty());
  for (const auto& c : model().clocks) {
    const zil::rng::ClockReading r{c.fields[0], c.fields[1], c.fields[2], c.fields[3],
                                   c.fields[4], c.fields[5], c.cpu};
    EXPECT_EQ(zil::rng::clock_seed(r, c.key), c.seed) << c.key;
  }
}

TEST(G05Rngs, ClockSeedingGivesUsableStates) {
  Integer igen = 274;
  Integer iseed[4] = {0, 0, 0, 0};
  g05kcc(&igen, iseed);
  EXPECT_EQ(igen, 1);
  for (Integer s : iseed) {
    EXPECT_GE(s, 0);
    EXPECT_LT(s, 16770647);  // stepped once, so below its modulus
  }
  igen = -3;
  zil_rngs_init_nonrepeatable(&igen, iseed);
  EXPECT_EQ(igen, 0);
  EXPECT_EQ(iseed[0] % 4, 2);
  for (Integer s : iseed) {
    EXPECT_GE(s, 0);
    EXPECT_LE(s, 0x7FFF);
  }
}

}  // namespace
