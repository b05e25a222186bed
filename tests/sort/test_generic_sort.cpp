// m01csc and m01ctc: elements of several sizes and layouts, stability, and
// comparison functions that are not orders at all.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <set>
#include <vector>

#include "patterns.hpp"
#include "zil.h"

using namespace sort_test;

namespace {

using SortFn = void (*)(Pointer, size_t, size_t, ptrdiff_t, Integer (*)(const void*, const void*),
                        Integer, ZilError*);

struct Sorter {
  const char* name;
  SortFn fn;
};
const Sorter kSorters[] = {{"m01csc", m01csc}, {"m01ctc", m01ctc}};

class GenericSort : public ::testing::TestWithParam<Sorter> {};

TEST_P(GenericSort, DoublesOverEveryPatternAndOrder) {
  for (Pattern p : kPatterns)
    for (std::size_t n : {2u, 10u, 11u, 12u, 100u, 5000u})
      for (Integer order : {Zil_Ascending, Zil_Descending}) {
        auto v = make(p, n, static_cast<unsigned>(n));
        const auto expected = sorted_copy(v, order);
        ZilError fail = quiet_record();
        GetParam().fn(v.data(), n, sizeof(double), sizeof(double), cmp_double, order, &fail);
        ASSERT_EQ(fail.code, 0);
        EXPECT_EQ(v, expected) << name(p) << " n=" << n;
      }
}

// A negative stride walks backwards from the base address: the vector laid
// out backwards comes out sorted when read forwards in memory the other way.
TEST_P(GenericSort, NegativeStrideSortsTheVectorLaidOutBackwards) {
  auto v = make(Pattern::Random, 777, 9);
  ZilError fail = quiet_record();
  GetParam().fn(&v.back(), v.size(), sizeof(double), -static_cast<ptrdiff_t>(sizeof(double)),
                cmp_double, Zil_Ascending, &fail);
  ASSERT_EQ(fail.code, 0);
  EXPECT_TRUE(std::is_sorted(v.rbegin(), v.rend()));
}

// Elements of 12 bytes with a stride of 20: the bytes between elements are
// not the routine's and must survive.
TEST_P(GenericSort, StrideWiderThanTheElementLeavesTheGapsAlone) {
  constexpr std::size_t n = 300, stride = 20;
  std::vector<unsigned char> buf(n * stride, 0xAB);
  std::mt19937 gen(4);
  std::vector<std::array<Integer, 3>> expect(n);
  for (std::size_t i = 0; i < n; ++i) {
    std::array<Integer, 3> e = {static_cast<Integer>(gen() % 50), static_cast<Integer>(i), -1};
    std::memcpy(&buf[i * stride], e.data(), sizeof e);
    expect[i] = e;
  }
  ZilError fail = quiet_record();
  GetParam().fn(buf.data(), n, 12, stride, cmp_int, Zil_Descending, &fail);
  ASSERT_EQ(fail.code, 0);
  std::multiset<std::array<Integer, 3>> got;
  Integer last = 1 << 30;
  for (std::size_t i = 0; i < n; ++i) {
    std::array<Integer, 3> e;
    std::memcpy(e.data(), &buf[i * stride], sizeof e);
    EXPECT_LE(e[0], last);
    last = e[0];
    got.insert(e);
    for (std::size_t k = 12; k < stride; ++k) ASSERT_EQ(buf[i * stride + k], 0xAB);
  }
  const std::multiset<std::array<Integer, 3>> want(expect.begin(), expect.end());
  EXPECT_EQ(got, want);
}

// An element of 257 bytes does not fit the stack slot and waits on the heap.
TEST_P(GenericSort, ElementsLargerThanTheStackSlot) {
  struct Big {
    Integer key;
    unsigned char fill[253];
  };
  static_assert(sizeof(Big) == 257 || sizeof(Big) == 260);
  constexpr std::size_t size = 257, n = 64;
  std::vector<unsigned char> buf(n * size);
  std::mt19937 gen(8);
  for (std::size_t i = 0; i < n; ++i) {
    const Integer key = static_cast<Integer>(gen() % 1000);
    std::memcpy(&buf[i * size], &key, sizeof key);
    std::memset(&buf[i * size + 4], static_cast<int>(key % 251), size - 4);
  }
  ZilError fail = quiet_record();
  GetParam().fn(buf.data(), n, size, size, cmp_int, Zil_Ascending, &fail);
  ASSERT_EQ(fail.code, 0);
  Integer last = -1;
  for (std::size_t i = 0; i < n; ++i) {
    Integer key;
    std::memcpy(&key, &buf[i * size], sizeof key);
    EXPECT_GE(key, last);
    last = key;
    for (std::size_t k = 4; k < size; ++k) ASSERT_EQ(buf[i * size + k], key % 251);
  }
}

// Comparisons that are no order: random answers, "always less", and one
// that is not transitive.  Nothing may crash or leave the vector (checked by
// the sanitizer build), and the data must come back as a permutation.
Integer cmp_random(const void*, const void*) {
  static thread_local std::mt19937 gen(17);
  return static_cast<Integer>(gen() % 3) - 1;
}
Integer cmp_always_less(const void*, const void*) { return -1; }
Integer cmp_always_more(const void*, const void*) { return 1; }
Integer cmp_rock_paper_scissors(const void* a, const void* b) {
  Integer x, y;
  std::memcpy(&x, a, sizeof x);
  std::memcpy(&y, b, sizeof y);
  const Integer d = ((x - y) % 3 + 3) % 3;
  return d == 0 ? 0 : d == 1 ? 1 : -1;
}
Integer cmp_extreme(const void* a, const void* b) {
  // The full range of Integer, INT_MIN included, for "less".
  return cmp_int(a, b) < 0 ? std::numeric_limits<Integer>::min() : cmp_int(a, b);
}

TEST_P(GenericSort, ComparisonsThatAreNoOrderYieldAPermutation) {
  for (auto cmp : {cmp_random, cmp_always_less, cmp_always_more, cmp_rock_paper_scissors})
    for (std::size_t n : {11u, 12u, 50u, 2000u})
      for (Integer order : {Zil_Ascending, Zil_Descending}) {
        std::vector<Integer> v(n);
        for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<Integer>((i * 7919) % n);
        ZilError fail = quiet_record();
        GetParam().fn(v.data(), n, sizeof(Integer), sizeof(Integer), cmp, order, &fail);
        EXPECT_EQ(fail.code, 0);
        std::sort(v.begin(), v.end());
        for (std::size_t i = 0; i < n; ++i) ASSERT_EQ(v[i], static_cast<Integer>(i));
      }
}

TEST_P(GenericSort, DescendingOrderFoldsTheSignWithoutOverflow) {
  std::vector<Integer> v(500);
  for (std::size_t i = 0; i < v.size(); ++i) v[i] = static_cast<Integer>((i * 37) % 101);
  auto expected = v;
  std::sort(expected.begin(), expected.end(), std::greater<>());
  ZilError fail = quiet_record();
  GetParam().fn(v.data(), v.size(), sizeof(Integer), sizeof(Integer), cmp_extreme, Zil_Descending,
                &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(v, expected);
}

INSTANTIATE_TEST_SUITE_P(Sorts, GenericSort, ::testing::ValuesIn(kSorters),
                         [](const auto& info) { return std::string(info.param.name); });

// Equal keys keep the order in which they came, in both orders.
TEST(StableSort, EqualKeysKeepTheirOrder) {
  for (Integer distinct : {1, 3, 100})
    for (Integer order : {Zil_Ascending, Zil_Descending}) {
      auto v = keyed_records(3000, distinct, static_cast<unsigned>(distinct));
      auto expected = v;
      std::stable_sort(expected.begin(), expected.end(), [&](const Keyed& a, const Keyed& b) {
        return order == Zil_Ascending ? a.key < b.key : a.key > b.key;
      });
      ZilError fail = quiet_record();
      m01ctc(v.data(), v.size(), sizeof(Keyed), sizeof(Keyed), cmp_keyed, order, &fail);
      ASSERT_EQ(fail.code, 0);
      for (std::size_t i = 0; i < v.size(); ++i) {
        ASSERT_EQ(v[i].key, expected[i].key) << i;
        ASSERT_EQ(v[i].tag, expected[i].tag) << i;
      }
    }
}

TEST(StableSort, EmptyAndSingle) {
  for (SortFn fn : {m01csc, m01ctc}) {
    ZilError fail = quiet_record();
    fn(nullptr, 0, 8, 8, cmp_double, Zil_Ascending, &fail);
    EXPECT_EQ(fail.code, 0);
    double one = 2.0;
    fail = quiet_record();
    fn(&one, 1, 8, 8, cmp_double, Zil_Descending, &fail);
    EXPECT_EQ(fail.code, 0);
    EXPECT_EQ(one, 2.0);
  }
}

}  // namespace
