// The pivot generators of m01cac and m01csc keep one word each between
// calls, shared by all threads.  Concurrent sorts must each come out right,
// and the ThreadSanitizer build must find no race on those words.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <thread>
#include <vector>

#include "zil.h"

namespace {

Integer cmp_double(const void* a, const void* b) {
  double x, y;
  std::memcpy(&x, a, sizeof x);
  std::memcpy(&y, b, sizeof y);
  return x < y ? -1 : x > y ? 1 : 0;
}

// Organ pipes split badly under a median of three, so every thread keeps
// drawing random pivots from the shared words.
std::vector<double> organ_pipe(std::size_t n, unsigned seed) {
  std::vector<double> v(n);
  for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(i < n / 2 ? i : n - i);
  std::mt19937 gen(seed);
  for (int k = 0; k < 10; ++k) std::swap(v[gen() % n], v[gen() % n]);
  return v;
}

TEST(SortThreads, ConcurrentQuicksortsShareTheirGeneratorsSafely) {
  constexpr int kThreads = 4, kRounds = 20;
  std::vector<int> bad(kThreads, 0);
  std::vector<std::thread> pool;
  for (int t = 0; t < kThreads; ++t) {
    pool.emplace_back([t, &bad] {
      for (int r = 0; r < kRounds; ++r) {
        auto v = organ_pipe(3000 + 17 * r, static_cast<unsigned>(t * 100 + r));
        auto w = v;
        auto expected = v;
        std::sort(expected.begin(), expected.end());
        ZilError fail{};
        m01cac(v.data(), v.size(), Zil_Ascending, &fail);
        bad[t] += fail.code != 0 || v != expected;
        m01csc(w.data(), w.size(), sizeof(double), sizeof(double), cmp_double, Zil_Ascending, &fail);
        bad[t] += fail.code != 0 || w != expected;
      }
    });
  }
  for (auto& th : pool) th.join();
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(bad[t], 0) << "thread " << t;
}

}  // namespace
