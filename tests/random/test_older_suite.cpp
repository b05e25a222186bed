// The older suite (g05cac and companions): streams against the exact model,
// seeding rules, save and restore from every position of the block, and the
// refusal of damaged states.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <ctime>
#include <vector>

#include "model_data.hpp"
#include "zil.h"

namespace {

using zil_test::model;

std::vector<double> draw(int n) {
  std::vector<double> v(n);
  for (double& u : v) u = g05cac();
  return v;
}

struct Saved {
  Integer istate[9];
  double xstate[4];
};

Saved save() {
  Saved s{};
  g05cfc(s.istate, s.xstate);
  return s;
}

// A save of state x in the documented format, with the reset values of the
// variates' memory, built by hand.
Saved save_of(std::uint64_t x) {
  Saved s{};
  for (int k = 5; k >= 1; --k, x >>= 12) s.istate[k] = static_cast<Integer>(x & 0xFFF);
  for (int k = 1; k <= 8; ++k) s.istate[0] += s.istate[k];
  s.xstate[1] = 256.0;
  s.xstate[2] = 1.0;
  s.xstate[3] = -1.0;
  s.xstate[0] = s.istate[0] * 0.000244140625 + 256.0 + 1.0 - 1.0;
  return s;
}

void restore(const Saved& s, ZilError* fail = nullptr) {
  ZilError own{};
  g05cgc(s.istate, s.xstate, fail ? fail : &own);
}

// Every number bit for bit: the model's uniforms are correctly rounded, and
// so are the library's.
void expect_stream(const zil_test::ModelStream& m, const std::vector<double>& got) {
  ASSERT_EQ(got.size(), m.u.size());
  for (std::size_t i = 0; i < got.size(); ++i) ASSERT_EQ(got[i], m.u[i]) << m.kind << " " << m.id << " number " << i;
}

TEST(G05Older, SeededStreamsMatchTheModel) {
  for (const auto& m : model().streams) {
    if (m.kind != "seeded") continue;
    g05cbc(static_cast<Integer>(m.id));
    expect_stream(m, draw(static_cast<int>(m.u.size())));
  }
}

TEST(G05Older, SignOfTheSeedIsIgnored) {
  g05cbc(-5);
  expect_stream(model().find("seeded", 5), draw(200));
  zil_random_init_repeatable(-123456789);
  std::vector<double> v(200);
  for (double& u : v) u = zil_random_continuous_uniform();
  expect_stream(model().find("seeded", 123456789), v);
}

TEST(G05Older, DefaultStreamMatchesTheModel) {
  g05cbc(99);
  g05cxc();
  expect_stream(model().find("default", 0), draw(200));
  EXPECT_EQ(get_dg05ca(), 256.0);
  const Zil_RandomPair p = get_bg05ca();
  EXPECT_EQ(p.value[0], 1.0);
  EXPECT_EQ(p.value[1], -1.0);
}

TEST(G05Older, SeedZeroSetsTheLowLimbToTwo) {
  g05cbc(0);
  Integer* flag = nullptr;
  Integer* limbs = nullptr;
  double* out = nullptr;
  g05caz(&flag, &limbs, nullptr, &out, nullptr);
  EXPECT_EQ(*flag, 0);
  // Row r holds limb r of the 64 lanes.
  EXPECT_EQ(limbs[0], 2);
  EXPECT_EQ(limbs[64], 0);
  EXPECT_EQ(limbs[128], 0);
  EXPECT_EQ(limbs[192], 0);
  // The index follows the 63 numbers; after seeding it points at the second.
  Integer index;
  std::memcpy(&index, out + 63, sizeof index);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(g05cac(), out[1]);
}

TEST(G05Older, SaveAndRestoreFromEveryPositionOfTheBlock) {
  // Positions from right after seeding through two refills.
  for (int k = 0; k <= 130; ++k) {
    g05cbc(2718);
    draw(k);
    const Saved s = save();
    const std::vector<double> ahead = draw(70);
    restore(s);
    ASSERT_EQ(draw(70), ahead) << "after " << k << " draws";
    // A save right after a restore is the same save.
    restore(s);
    const Saved again = save();
    ASSERT_EQ(0, std::memcmp(s.istate, again.istate, sizeof s.istate)) << k;
    ASSERT_EQ(0, std::memcmp(s.xstate, again.xstate, sizeof s.xstate)) << k;
  }
  // And from the default state, whose index starts at 0.
  g05cxc();
  const Saved s = save();
  const std::vector<double> ahead = draw(70);
  restore(s);
  EXPECT_EQ(draw(70), ahead);
}

TEST(G05Older, SaveCarriesTheVariatesMemory) {
  g05cbc(31);
  double* bg = nullptr;
  double* dg = nullptr;
  g05caz(nullptr, nullptr, &bg, nullptr, &dg);
  bg[0] = 0.625;
  bg[1] = -3.5;
  *dg = 17.0;
  const Saved s = save();
  EXPECT_EQ(s.xstate[1], 17.0);
  EXPECT_EQ(s.xstate[2], 0.625);
  EXPECT_EQ(s.xstate[3], -3.5);
  g05cxc();
  EXPECT_EQ(get_dg05ca(), 256.0);
  ZilError fail{};
  restore(s, &fail);
  EXPECT_EQ(fail.code, ZE_NOERROR);
  EXPECT_EQ(get_dg05ca(), 17.0);
  EXPECT_EQ(get_bg05ca().value[0], 0.625);
  EXPECT_EQ(get_bg05ca().value[1], -3.5);
}

TEST(G05Older, SaveFormatHoldsTheStateInTwelveBitDigits) {
  // After g05cxc the index is 0, so the lane saved is the default state.
  g05cxc();
  const Saved s = save();
  const Saved expected = save_of(0x0EB79A2A0EB79A2AULL);
  for (int k = 0; k < 9; ++k) EXPECT_EQ(s.istate[k], expected.istate[k]) << k;
  for (int k = 0; k < 4; ++k) EXPECT_EQ(s.xstate[k], expected.xstate[k]) << k;
}

TEST(G05Older, DamagedStatesAreRefusedAndChangeNothing) {
  g05cbc(4242);
  draw(20);
  const Saved good = save();
  const std::vector<double> ahead = draw(50);

  std::vector<Saved> bad;
  for (int k = 0; k < 9; ++k)
    for (int delta : {1, -1}) {
      Saved s = good;
      s.istate[k] += delta;
      bad.push_back(s);
    }
  for (int k = 0; k < 4; ++k)
    for (double v : {good.xstate[k] * (1 + 1e-12), good.xstate[k] + 1.0, std::nan("")}) {
      Saved s = good;
      s.xstate[k] = v;
      bad.push_back(s);
    }
  {
    // Two digits changed so that their sum holds: caught by the digit range.
    Saved s = good;
    s.istate[1] -= 1;
    s.istate[2] += 4096;
    bad.push_back(s);
  }

  for (const Saved& s : bad) {
    restore(good);
    ZilError fail{};
    g05cgc(s.istate, s.xstate, &fail);
    ASSERT_EQ(fail.code, ZE_STATE_CORRUPT);
    EXPECT_STREQ(fail.message,
                 "ZE_STATE_CORRUPT:\n  istate or xstate has been corrupted since the previous call to \n"
                 "  zil_save_random_state (g05cfc).");
    ASSERT_EQ(draw(50), ahead);
  }
  // Without a record the routine reports on stderr and returns.
  restore(good);
  zil_restore_random_state(bad[0].istate, bad[0].xstate, nullptr);
  EXPECT_EQ(draw(50), ahead);
}

TEST(G05Older, NeverZeroNeverOne) {
  // The states before the largest and the smallest reachable ones: 2^60 - 2
  // rounds to 1.0 and must be capped, 2 gives 2^-59.
  const auto& edges = model().edges;
  ASSERT_EQ(edges.size(), 2u);
  EXPECT_EQ(edges[0].u, 1.0 - 0x1p-53);
  EXPECT_EQ(edges[1].u, 0x1p-59);
  for (const auto& e : edges) {
    ZilError fail{};
    const Saved s = save_of(e.before);
    g05cgc(s.istate, s.xstate, &fail);
    ASSERT_EQ(fail.code, ZE_NOERROR);
    EXPECT_EQ(g05cac(), e.u);
  }
}

TEST(G05Older, ClockSeedsDiffer) {
  const auto t0 = static_cast<Integer>(std::time(nullptr));
  g05ccc();
  const std::vector<double> first = draw(5);
  zil_random_init_nonrepeatable();
  const std::vector<double> second = draw(5);
  EXPECT_NE(first, second);
  // The seed is the time, or one more than the last seed if that is later.
  bool found = false;
  for (Integer seed = t0; seed < t0 + 1000 && !found; ++seed) {
    g05cbc(seed);
    found = draw(5) == second;
  }
  EXPECT_TRUE(found);
}

}  // namespace
