// The inner routines: sections m1 to m2 counted from 1, ranks from m1, the
// ifail convention, and arrays left alone on every failure.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "sort/inner.hpp"

namespace {

constexpr Integer kSoftSilent = 1;

std::vector<double> random_reals(std::size_t n, unsigned seed) {
  std::mt19937 gen(seed);
  std::vector<double> v(n);
  for (double& x : v) x = static_cast<double>(gen() % 20) - 10.0;
  return v;
}

TEST(InnerSort, SortsOnlyTheSection) {
  for (const char* order : {"A", "a", "D", "d"})
    for (auto [m1, m2] : {std::pair{1, 40}, std::pair{5, 20}, std::pair{5, 21}, std::pair{7, 7},
                          std::pair{3, 38}}) {
      const auto original = random_reals(40, static_cast<unsigned>(m1 * 100 + m2));
      auto v = original;
      Integer ifail = kSoftSilent;
      zil::m01caf_f(v.data(), m1, m2, order, &ifail);
      ASSERT_EQ(ifail, 0);
      auto expected = original;
      if (order[0] == 'A' || order[0] == 'a') std::sort(expected.begin() + m1 - 1, expected.begin() + m2);
      else std::sort(expected.begin() + m1 - 1, expected.begin() + m2, std::greater<>());
      EXPECT_EQ(v, expected) << order << " " << m1 << ":" << m2;

      std::vector<Integer> iv(original.begin(), original.end());
      std::vector<Integer> iexp(expected.begin(), expected.end());
      ifail = kSoftSilent;
      zil::m01cbf(iv.data(), &m1, &m2, order, &ifail);
      ASSERT_EQ(ifail, 0);
      EXPECT_EQ(iv, iexp);
    }
}

// Ranks from m1, ties in their order; rearranging by them sorts the section
// as the sort does.
TEST(InnerRank, RankThenRearrangeIsTheSort) {
  const Integer m1 = 4, m2 = 3000;
  for (const char* order : {"A", "D"}) {
    const auto original = random_reals(3005, 2);
    std::vector<Integer> irank(3005, -7);
    Integer ifail = kSoftSilent;
    zil::m01daf_f(original.data(), m1, m2, order, irank.data(), &ifail);
    ASSERT_EQ(ifail, 0);
    EXPECT_EQ(irank[m1 - 2], -7);
    EXPECT_EQ(irank[m2], -7);
    for (Integer i = m1; i < m2; ++i) {
      const double a = original[i - 1], b = original[i];
      if (a == b) EXPECT_LT(irank[i - 1], irank[i]);
    }

    auto v = original;
    const auto ranks = irank;
    ifail = kSoftSilent;
    zil::m01eaf_f(v.data(), m1, m2, irank.data(), &ifail);
    ASSERT_EQ(ifail, 0);
    EXPECT_EQ(irank, ranks) << "the marks must be gone";
    auto sorted = original;
    zil::m01caf_f(sorted.data(), m1, m2, order, &ifail);
    EXPECT_EQ(v, sorted);

    // The same ranks carry integers and fixed-length strings along.
    std::vector<Integer> iv(original.begin(), original.end());
    std::vector<Integer> ranks_i(3005, -7);
    zil::m01dbf(iv.data(), &m1, &m2, order, ranks_i.data(), &ifail);
    ASSERT_EQ(ifail, 0);
    EXPECT_EQ(ranks_i, ranks);  // the values are whole numbers either way
    std::string ch;
    for (double x : original) ch += "<" + std::to_string(static_cast<int>(x) + 50) + ">";  // 4 characters each
    std::string ch_expected;
    for (double x : sorted) ch_expected += "<" + std::to_string(static_cast<int>(x) + 50) + ">";
    zil::m01ebf(iv.data(), &m1, &m2, ranks_i.data(), &ifail);
    ASSERT_EQ(ifail, 0);
    EXPECT_EQ(iv, std::vector<Integer>(sorted.begin(), sorted.end()));
    zil::m01ecf(ch.data(), &m1, &m2, ranks_i.data(), &ifail, 4);
    ASSERT_EQ(ifail, 0);
    EXPECT_EQ(ch, ch_expected);
  }
}

TEST(InnerRecords, ParallelArraysTakeTheStableOrderOfTheirKey) {
  // Keys with many ties (20 values over up to 300 records), so that a sort
  // that let equal keys trade places would show in the second array, which
  // carries each record's original position.
  // Both rankings: by counting (short runs under a strict weak order) and
  // by merging, on both sides of the length where they part.
  for (bool strict_weak : {false, true}) {
    for (Integer n : {0, 1, 2, 3, 19, 32, 33, 64, 300}) {
      const auto key0 = random_reals(static_cast<std::size_t>(n), static_cast<unsigned>(n + 7));
      std::vector<double> key = key0, pos(key0.size()), tag(key0.size());
      for (std::size_t i = 0; i < pos.size(); ++i) {
        pos[i] = static_cast<double>(i);
        tag[i] = key0[i] * 3.0 + 0.5;
      }
      std::vector<Integer> scratch(key0.size() + 1);
      zil::order_records(
          n, scratch.data(), strict_weak, [&](Integer i, Integer j) { return key[i] < key[j]; },
          [&](Integer i, Integer j) {
            for (auto* v : {&key, &pos, &tag}) std::swap((*v)[i], (*v)[j]);
          });
      std::vector<std::size_t> want(key0.size());
      std::iota(want.begin(), want.end(), std::size_t{0});
      std::stable_sort(want.begin(), want.end(), [&](std::size_t i, std::size_t j) { return key0[i] < key0[j]; });
      for (std::size_t k = 0; k < want.size(); ++k) {
        ASSERT_EQ(pos[k], static_cast<double>(want[k])) << "n " << n << " k " << k << " counted " << strict_weak;
        EXPECT_EQ(key[k], key0[want[k]]);
        EXPECT_EQ(tag[k], key0[want[k]] * 3.0 + 0.5);
      }
    }
  }
}

TEST(InnerPermutation, InverseTwiceIsTheIdentity) {
  const Integer m1 = 3, m2 = 1002;
  std::vector<Integer> p(1005, 0);
  std::iota(p.begin() + m1 - 1, p.begin() + m2, m1);
  std::shuffle(p.begin() + m1 - 1, p.begin() + m2, std::mt19937(5));
  auto q = p;
  Integer ifail = kSoftSilent;
  zil::m01zaf_f(q.data(), m1, m2, &ifail);
  ASSERT_EQ(ifail, 0);
  for (Integer i = m1; i <= m2; ++i) ASSERT_EQ(q[p[i - 1] - 1], i);
  zil::m01zaf_f(q.data(), m1, m2, &ifail);
  EXPECT_EQ(q, p);
}

// Failure numbers with ifail = 1 (soft, silent), and nothing touched.
TEST(InnerFailures, SectionOrderAndRanks) {
  std::vector<double> rv = {3, 1, 2};
  const auto rv0 = rv;
  struct Row {
    Integer m1, m2;
    const char* order;
    Integer expected;
  } rows[] = {{1, 0, "A", 1}, {0, 3, "A", 1}, {3, 2, "A", 1}, {-5, -6, "X", 1},
              {1, 3, "X", 2}, {1, 3, "", 2},  {1, 3, nullptr, 2}};
  for (const Row& r : rows) {
    Integer ifail = kSoftSilent;
    zil::m01caf_f(rv.data(), r.m1, r.m2, r.order, &ifail);
    EXPECT_EQ(ifail, r.expected) << r.m1 << ":" << r.m2;
    Integer irank[3] = {9, 9, 9};
    ifail = kSoftSilent;
    zil::m01daf_f(rv.data(), r.m1, r.m2, r.order, irank, &ifail);
    EXPECT_EQ(ifail, r.expected);
    EXPECT_EQ(irank[0], 9);
    std::vector<Integer> iv = {3, 1, 2};
    ifail = kSoftSilent;
    zil::m01cbf(iv.data(), &r.m1, &r.m2, r.order, &ifail);
    EXPECT_EQ(ifail, r.expected);
    EXPECT_EQ(iv, (std::vector<Integer>{3, 1, 2}));
  }
  EXPECT_EQ(rv, rv0);

  struct Bad {
    std::vector<Integer> ranks;
    Integer expected;
  } bad[] = {{{1, 4, 2}, 2}, {{1, 0, 2}, 2}, {{-1, 2, 3}, 2}, {{3, 1, 3}, 3}, {{2, 2, 2}, 3}};
  for (const Bad& b : bad) {
    auto ranks = b.ranks;
    auto v = rv0;
    Integer ifail = kSoftSilent;
    zil::m01eaf_f(v.data(), 1, 3, ranks.data(), &ifail);
    EXPECT_EQ(ifail, b.expected);
    EXPECT_EQ(ranks, b.ranks);
    EXPECT_EQ(v, rv0);
    ifail = kSoftSilent;
    zil::m01zaf_f(ranks.data(), 1, 3, &ifail);
    EXPECT_EQ(ifail, b.expected);
    EXPECT_EQ(ranks, b.ranks);
  }
}

// With ifail = -1 (soft, noisy) the message, the closing line and the soft
// line go to the error channel, which starts as the standard output.
struct Noisy {
  const char* what;
  std::function<Integer()> call;
  const char* shown;
};

TEST(InnerFailures, MessagesOfTheNoisySoftExit) {
  static double rv[3] = {3, 1, 2};
  static Integer iv[3] = {3, 1, 2};
  const Noisy rows[] = {
      {"m2", [] { Integer f = -1; zil::m01caf_f(rv, 1, 0, "A", &f); return f; },
       " ** On entry, M2 .lt. 1: M2 =               0.\n"
       " ** ABNORMAL EXIT from ZIL Library routine m01caf_f: IFAIL =     1 **\n"
       " ** ZIL soft failure - control returned\n"},
      {"m1 > m2", [] { Integer f = -1; zil::m01daf_f(rv, 3, 2, "A", iv, &f); return f; },
       " ** On entry, M1 .gt. M2:\n    M1 =               3, M2 =               2.\n"
       " ** ABNORMAL EXIT from ZIL Library routine m01daf_f: IFAIL =     1 **\n"
       " ** ZIL soft failure - control returned\n"},
      {"order by value", [] { Integer f = -1; zil::m01caf_f(rv, 1, 3, "x", &f); return f; },
       " ** On entry, ORDER has an illegal value: ORDER = x\n\n"
       " ** ABNORMAL EXIT from ZIL Library routine m01caf_f: IFAIL =     2 **\n"
       " ** ZIL soft failure - control returned\n"},
      {"m1 by reference", [] { Integer f = -1, m1 = 0, m2 = 3; zil::m01cbf(iv, &m1, &m2, "A", &f); return f; },
       " ** On entry, M1 .lt. 1: M1 =               0.\n"
       " ** ABNORMAL EXIT from ZIL Library routine M01CBF: IFAIL =     1\n"
       " ** ZIL soft failure - control returned\n"},
      {"order by reference", [] { Integer f = -1, m1 = 1, m2 = 3; zil::m01dbf(iv, &m1, &m2, "Q", iv, &f); return f; },
       " ** On entry, ORDER has an illegal value: ORDER = Q\n"
       " ** ABNORMAL EXIT from ZIL Library routine M01DBF: IFAIL =     2\n"
       " ** ZIL soft failure - control returned\n"},
      {"rank out of range", [] { Integer f = -1, r[3] = {1, 4, 3}; zil::m01eaf_f(rv, 1, 3, r, &f); return f; },
       " ** On entry, IRANK is not a permutation of M1 to M2:\n"
       "    IRANK(I) =          4 for I =          2.\n"
       " ** ABNORMAL EXIT from ZIL Library routine m01eaf_f: IFAIL =     2 **\n"
       " ** ZIL soft failure - control returned\n"},
      {"repeated", [] { Integer f = -1, r[3] = {1, 3, 3}; zil::m01zaf_f(r, 1, 3, &f); return f; },
       " ** On entry, IPERM is not a permutation of M1 to M2:\n"
       "    the value          3 occurs more than once.\n"
       " ** ABNORMAL EXIT from ZIL Library routine m01zaf_f: IFAIL =     3 **\n"
       " ** ZIL soft failure - control returned\n"},
  };
  for (const Noisy& r : rows) {
    ::testing::internal::CaptureStdout();
    const Integer ifail = r.call();
    const std::string shown = ::testing::internal::GetCapturedStdout();
    EXPECT_NE(ifail, 0) << r.what;
    EXPECT_EQ(shown, r.shown) << r.what;
  }
}

// ifail = 2 is silent, and ifail = 0 is hard, yet the by-value form only
// prints the hard line and returns.
TEST(InnerFailures, SilentAndHardByValue) {
  double rv[3] = {3, 1, 2};
  ::testing::internal::CaptureStdout();
  Integer ifail = 2;
  zil::m01caf_f(rv, 2, 1, "A", &ifail);
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(ifail, 1);
  ::testing::internal::CaptureStdout();
  ifail = 0;
  zil::m01caf_f(rv, 2, 1, "A", &ifail);
  EXPECT_NE(::testing::internal::GetCapturedStdout().find("hard failure"), std::string::npos);
  EXPECT_EQ(ifail, 1);
}

}  // namespace
