// Stable ranking by merging chains of indices.
//
// The items are never moved: rank[] itself holds the links of the chains
// (rank[i] = the item after i, or kEnd), so the ranking needs no storage
// beyond a few dozen chain heads.  Chains are merged like the digits of a
// binary counter (Knuth, TAOCP vol. 3, 5.2.4, list merge sort), always with
// the chain of earlier items on the left and taking from the left on ties,
// which is what keeps equal items in their order.
#pragma once

#include "zil_types.h"

namespace zil::sort {

// before(a, b) is true when item a must come before item b.  On return
// rank[i] = first + the position of item i in the sorted order.
template <class Before>
void merge_rank(Integer* rank, Integer n, Before&& before, Integer first = 0) {
  constexpr Integer kEnd = -1;
  // Merges two chains, the items of a all preceding those of b.
  auto merge = [&](Integer a, Integer b) {
    Integer head;
    Integer* tail = &head;
    while (a != kEnd && b != kEnd) {
      if (before(b, a)) {
        *tail = b;
        tail = &rank[b];
        b = rank[b];
      } else {
        *tail = a;
        tail = &rank[a];
        a = rank[a];
      }
    }
    *tail = a != kEnd ? a : b;
    return head;
  };

  // heads[k] is a chain of 2^k items, or empty.  n < 2^31 needs 32 of them.
  Integer heads[32];
  for (Integer& h : heads) h = kEnd;
  for (Integer i = 0; i < n; ++i) {
    rank[i] = kEnd;
    Integer carry = i;
    int k = 0;
    for (; heads[k] != kEnd; ++k) {
      carry = merge(heads[k], carry);
      heads[k] = kEnd;
    }
    heads[k] = carry;
  }
  // The higher a level, the earlier its items.
  Integer chain = kEnd;
  for (Integer h : heads)
    if (h != kEnd) chain = chain == kEnd ? h : merge(h, chain);

  for (Integer r = first; chain != kEnd; ++r) {
    const Integer next = rank[chain];
    rank[chain] = r;
    chain = next;
  }
}

// Stable ranking by counting, for a few items under a strict weak order:
// item i goes after every item before it and after every earlier item
// equivalent to it.  Every pair is compared, but without a branch, and for
// short lists that beats the mispredicted branches of the chain merge; the
// ranks are the same.  Under a comparison that is no strict weak order
// (< meeting a NaN) the counts need not even be a permutation: such
// comparisons belong to merge_rank.
template <class Before>
void count_rank(Integer* rank, Integer n, Before&& before, Integer first = 0) {
  for (Integer i = 0; i < n; ++i) {
    Integer r = first;
    for (Integer j = 0; j < i; ++j) r += before(i, j) ? 0 : 1;
    for (Integer j = i + 1; j < n; ++j) r += before(j, i) ? 1 : 0;
    rank[i] = r;
  }
}

}  // namespace zil::sort
