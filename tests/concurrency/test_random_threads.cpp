// The older g05 suite keeps one state per thread: threads drawing at once
// each see their own stream, every new thread starting from the default
// state; the clock seeds of g05ccc differ even when threads ask together.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <latch>
#include <thread>
#include <vector>

#include "zil.h"

namespace {

constexpr int kThreads = 6;
constexpr int kDraws = 500;

std::vector<double> draw(int n) {
  std::vector<double> v(n);
  for (double& u : v) u = g05cac();
  return v;
}

// Runs body(t) on kThreads threads released together.
template <class F>
void run_together(F body) {
  std::latch go(kThreads);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t)
    threads.emplace_back([&, t] {
      go.arrive_and_wait();
      body(t);
    });
  for (auto& th : threads) th.join();
}

TEST(RandomThreads, EachThreadHasItsOwnStreamFromTheDefaultState) {
  g05cxc();
  const std::vector<double> fresh = draw(kDraws);
  g05cbc(7);
  const std::vector<double> seeded = draw(kDraws);
  // The main thread's own position must not leak into the others.
  g05cbc(12345);
  draw(3);

  std::array<std::vector<double>, kThreads> got;
  run_together([&](int t) {
    // Odd threads seed their own state; even ones never do.
    if (t % 2) g05cbc(7);
    got[t] = draw(kDraws);
  });
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(got[t], t % 2 ? seeded : fresh) << "thread " << t;
}

TEST(RandomThreads, ClockSeedsDifferAcrossThreads) {
  std::array<std::array<Integer, 9>, kThreads> saved{};
  run_together([&](int t) {
    double xstate[4];
    g05ccc();
    g05cfc(saved[t].data(), xstate);
  });
  std::sort(saved.begin(), saved.end());
  EXPECT_EQ(std::adjacent_find(saved.begin(), saved.end()), saved.end());
}

TEST(RandomThreads, RngsSuiteIsReentrant) {
  auto stream = [](Integer igen) {
    Integer iseed[4] = {igen + 1, 2, 3, 4};
    g05kbc(&igen, iseed);
    std::vector<double> v(kDraws);
    for (double& u : v) u = g05kac(igen, iseed);
    return v;
  };
  std::array<std::vector<double>, kThreads> got;
  run_together([&](int t) { got[t] = stream(t * 50); });
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(got[t], stream(t * 50)) << "thread " << t;
}

}  // namespace
