// m01dsc, m01zac and m01esc: ranks, indices and reordering, and their round
// trips: rank, turn into indices and gather is a stable sort.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "patterns.hpp"
#include "zil.h"

using namespace sort_test;

namespace {

std::vector<Integer> ranks_of(const std::vector<double>& v, Integer order) {
  std::vector<Integer> rank(v.size());
  ZilError fail = quiet_record();
  m01dsc(v.data(), v.size(), sizeof(double), cmp_double, order, rank.data(), &fail);
  EXPECT_EQ(fail.code, 0);
  return rank;
}

TEST(Rank, RanksAreTheStableSortedPositions) {
  for (Pattern p : kPatterns)
    for (std::size_t n : {1u, 2u, 3u, 31u, 32u, 33u, 4096u})
      for (Integer order : {Zil_Ascending, Zil_Descending}) {
        const auto v = make(p, n, 11);
        const auto rank = ranks_of(v, order);
        // The stable sorted order of positions; element order[k] has rank k.
        std::vector<Integer> by_rank(n);
        std::iota(by_rank.begin(), by_rank.end(), 0);
        std::stable_sort(by_rank.begin(), by_rank.end(), [&](Integer a, Integer b) {
          return order == Zil_Ascending ? v[a] < v[b] : v[a] > v[b];
        });
        for (std::size_t k = 0; k < n; ++k) ASSERT_EQ(rank[by_rank[k]], static_cast<Integer>(k)) << name(p) << n;
      }
}

TEST(Rank, TheVectorIsNotMoved) {
  const auto v = make(Pattern::Random, 1000, 2);
  auto copy = v;
  ranks_of(copy, Zil_Ascending);
  EXPECT_EQ(copy, v);
}

// m01dsc, then m01zac, then m01esc equals a stable sort, for keyed records
// laid out backwards in memory.
TEST(RankRoundTrip, RankIndicesGatherIsAStableSort) {
  for (Integer order : {Zil_Ascending, Zil_Descending}) {
    auto v = keyed_records(2500, 40, 6);
    auto expected = v;
    std::stable_sort(expected.begin(), expected.end(), [&](const Keyed& a, const Keyed& b) {
      return order == Zil_Ascending ? a.key < b.key : a.key > b.key;
    });
    std::reverse(v.begin(), v.end());
    const ptrdiff_t back = -static_cast<ptrdiff_t>(sizeof(Keyed));
    // Read through the negative stride, the vector is in its original order.
    std::vector<Integer> work(v.size());
    ZilError fail = quiet_record();
    m01dsc(&v.back(), v.size(), back, cmp_keyed, order, work.data(), &fail);
    ASSERT_EQ(fail.code, 0);
    m01zac(work.data(), work.size(), &fail);
    ASSERT_EQ(fail.code, 0);
    m01esc(&v.back(), v.size(), sizeof(Keyed), back, work.data(), &fail);
    ASSERT_EQ(fail.code, 0);
    std::reverse(v.begin(), v.end());
    for (std::size_t i = 0; i < v.size(); ++i) {
      ASSERT_EQ(v[i].key, expected[i].key);
      ASSERT_EQ(v[i].tag, expected[i].tag);
    }
  }
}

TEST(RankRoundTrip, IndicesOfIndicesAreTheRanks) {
  std::vector<Integer> p(10007);
  std::iota(p.begin(), p.end(), 0);
  std::shuffle(p.begin(), p.end(), std::mt19937(3));
  auto q = p;
  m01zac(q.data(), q.size(), nullptr);
  for (std::size_t i = 0; i < p.size(); ++i) ASSERT_EQ(q[p[i]], static_cast<Integer>(i));
  m01zac(q.data(), q.size(), nullptr);
  EXPECT_EQ(q, p);
}

TEST(Reorder, GatherMovesElementKFromIndicesK) {
  std::vector<double> v = {10, 11, 12, 13, 14, 15};
  std::vector<Integer> idx = {3, 0, 5, 1, 2, 4};
  const auto idx0 = idx;
  ZilError fail = quiet_record();
  m01esc(v.data(), v.size(), sizeof(double), sizeof(double), idx.data(), &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(v, (std::vector<double>{13, 10, 15, 11, 12, 14}));
  EXPECT_EQ(idx, idx0) << "the marks must be gone again";
}

// A repeated or out-of-range entry is found before anything moves, so both
// arrays are as they were.
struct BadPermutation {
  const char* what;
  std::vector<Integer> p;
};
const BadPermutation kBad[] = {
    {"repeated", {0, 1, 2, 2, 4}},
    {"too_large", {0, 1, 5, 3, 4}},
    {"negative", {0, -1, 2, 3, 4}},
    {"bit30", {0, 1, 2, 3, 0x40000004}},
    {"repeated_late", {4, 3, 2, 1, 1}},
};

TEST(BadRanks, MakeIndicesReportsAndLeavesTheRanks) {
  for (const auto& bad : kBad) {
    auto p = bad.p;
    ZilError fail = quiet_record();
    m01zac(p.data(), p.size(), &fail);
    EXPECT_EQ(fail.code, ZE_BAD_RANK) << bad.what;
    EXPECT_EQ(p, bad.p) << bad.what;
  }
}

TEST(BadRanks, ReorderReportsAndLeavesBothArrays) {
  for (const auto& bad : kBad) {
    auto p = bad.p;
    std::vector<double> v = {1, 2, 3, 4, 5};
    ZilError fail = quiet_record();
    m01esc(v.data(), v.size(), sizeof(double), sizeof(double), p.data(), &fail);
    EXPECT_EQ(fail.code, ZE_BAD_RANK) << bad.what;
    EXPECT_EQ(p, bad.p) << bad.what;
    EXPECT_EQ(v, (std::vector<double>{1, 2, 3, 4, 5})) << bad.what;
  }
}

}  // namespace
