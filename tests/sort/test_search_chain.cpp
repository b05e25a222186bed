// m01fsc on the edges of a sorted vector, and m01cuc on linked lists.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "patterns.hpp"
#include "zil.h"

using namespace sort_test;

namespace {

struct Found {
  bool found;
  Integer index;
};

Found search(const std::vector<double>& v, double key, Integer order, Integer final,
             ptrdiff_t stride = sizeof(double)) {
  Integer index = -99;
  ZilError fail = quiet_record();
  const void* base = stride > 0 ? v.data() : static_cast<const void*>(&v.back());
  const Boolean found = m01fsc(&key, base, v.size(), stride, cmp_double, order, final, &index, &fail);
  EXPECT_EQ(fail.code, 0);
  return {found != 0, index};
}

//                         0  1  2  3  4  5  6
const std::vector<double> kUp = {1, 3, 3, 3, 5, 7, 7};

TEST(Search, AscendingEdgesAndRuns) {
  struct Row {
    double key;
    Integer final;
    bool found;
    Integer index;
  } rows[] = {
      {0.0, Zil_First, false, -1}, {0.0, Zil_Last, false, -1},  // before everything
      {1.0, Zil_First, true, 0},   {1.0, Zil_Last, true, 0},    // the first element
      {2.0, Zil_First, false, 0},  {2.0, Zil_Last, false, 0},   // between 1 and 3
      {3.0, Zil_First, true, 1},   {3.0, Zil_Last, true, 3},    // a run of three
      {6.0, Zil_Last, false, 4},   {7.0, Zil_First, true, 5},   // the last run
      {7.0, Zil_Last, true, 6},    {8.0, Zil_First, false, 6},  // beyond everything
  };
  for (const auto& r : rows) {
    const Found f = search(kUp, r.key, Zil_Ascending, r.final);
    EXPECT_EQ(f.found, r.found) << r.key;
    EXPECT_EQ(f.index, r.index) << r.key << (r.final == Zil_First ? " first" : " last");
  }
}

TEST(Search, DescendingOrderAndNegativeStride) {
  std::vector<double> down(kUp.rbegin(), kUp.rend());  // 7 7 5 3 3 3 1
  EXPECT_EQ(search(down, 3.0, Zil_Descending, Zil_First).index, 3);
  EXPECT_EQ(search(down, 3.0, Zil_Descending, Zil_Last).index, 5);
  EXPECT_EQ(search(down, 8.0, Zil_Descending, Zil_Last).index, -1);
  EXPECT_EQ(search(down, 0.0, Zil_Descending, Zil_Last).index, 6);
  EXPECT_FALSE(search(down, 4.0, Zil_Descending, Zil_Last).found);
  // kUp read backwards is the descending vector.
  const Found f = search(kUp, 7.0, Zil_Descending, Zil_Last, -static_cast<ptrdiff_t>(sizeof(double)));
  EXPECT_TRUE(f.found);
  EXPECT_EQ(f.index, 1);
}

TEST(Search, EmptyAndSingle) {
  EXPECT_EQ(search({}, 1.0, Zil_Ascending, Zil_First).index, -1);
  EXPECT_FALSE(search({}, 1.0, Zil_Ascending, Zil_First).found);
  EXPECT_EQ(search({2.0}, 1.0, Zil_Ascending, Zil_Last).index, -1);
  EXPECT_EQ(search({2.0}, 3.0, Zil_Ascending, Zil_Last).index, 0);
  EXPECT_TRUE(search({2.0}, 2.0, Zil_Ascending, Zil_First).found);
}

TEST(Search, AgreesWithTheStandardBoundsOnRandomData) {
  auto v = make(Pattern::FewValues, 1000, 2);
  std::sort(v.begin(), v.end());
  for (double key : {-1.0, 0.0, 0.5, 1.0, 2.0, 3.0, 3.5}) {
    const auto lo = std::lower_bound(v.begin(), v.end(), key) - v.begin();
    const auto hi = std::upper_bound(v.begin(), v.end(), key) - v.begin();
    const Found first = search(v, key, Zil_Ascending, Zil_First);
    const Found last = search(v, key, Zil_Ascending, Zil_Last);
    EXPECT_EQ(first.found, lo != hi);
    EXPECT_EQ(last.index, hi - 1);
    EXPECT_EQ(first.index, lo != hi ? lo : hi - 1);
  }
}

// A list node with its link in the middle, so the offset matters.
struct Node {
  Integer key;
  Node* next;
  Integer tag;
};

Integer cmp_node(const void* a, const void* b) {
  return cmp_int(&static_cast<const Node*>(a)->key, &static_cast<const Node*>(b)->key);
}

Node* link_all(std::vector<Node>& nodes) {
  for (std::size_t i = 0; i + 1 < nodes.size(); ++i) nodes[i].next = &nodes[i + 1];
  if (!nodes.empty()) nodes.back().next = nullptr;
  return nodes.empty() ? nullptr : &nodes[0];
}

TEST(ChainSort, RelinksIntoStableOrder) {
  for (std::size_t n : {0u, 1u, 2u, 3u, 64u, 1000u})
    for (Integer order : {Zil_Ascending, Zil_Descending}) {
      std::vector<Node> nodes(n);
      std::mt19937 gen(static_cast<unsigned>(n));
      for (std::size_t i = 0; i < n; ++i)
        nodes[i] = {static_cast<Integer>(gen() % 10), nullptr, static_cast<Integer>(i)};
      Pointer head = link_all(nodes);
      ZilError fail = quiet_record();
      m01cuc(&head, offsetof(Node, next), cmp_node, order, &fail);
      ASSERT_EQ(fail.code, 0);
      std::size_t count = 0;
      const Node* prev = nullptr;
      for (auto* p = static_cast<const Node*>(head); p; p = p->next, ++count) {
        if (prev) {
          if (prev->key == p->key) EXPECT_LT(prev->tag, p->tag);
          else EXPECT_EQ(prev->key < p->key, order == Zil_Ascending);
        }
        prev = p;
      }
      EXPECT_EQ(count, n);
    }
}

}  // namespace
