// The inner layer of the sorting chapter, for the library's other chapters.
//
// Each routine works on the section m1 to m2 (counted from 1, element i at
// array[i - 1]) and ends with ifail set by the library's convention: 0 on
// success, else the failure number, after whatever report the value of
// ifail on entry asks for.
//
// Failure numbers: 1 for m1 or m2 out of range, 2 for an order letter
// other than A, a, D or d; the rearranging routines report a rank outside
// m1 to m2 as 2 and a repeated rank as 3.  A rank array that fails is left
// as it was, and so is the data.
#pragma once

#include <cstddef>

#include "sort/detail/permute.hpp"
#include "sort/detail/rank.hpp"
#include "zil_types.h"

namespace zil {

// By value.
// Sorts rv(m1:m2) into ascending ("A") or descending ("D") order.
void m01caf_f(double rv[], Integer m1, Integer m2, const char* order, Integer* ifail);
// irank(i) = the rank, from m1, of rv(i) within rv(m1:m2); ties keep their order.
void m01daf_f(const double rv[], Integer m1, Integer m2, const char* order, Integer irank[],
              Integer* ifail);
// Moves rv(i) to position irank(i), for i = m1 to m2.
void m01eaf_f(double rv[], Integer m1, Integer m2, Integer irank[], Integer* ifail);
// Replaces the permutation iperm(m1:m2) by its inverse (ranks into indices).
void m01zaf_f(Integer iperm[], Integer m1, Integer m2, Integer* ifail);

// Moves record i to place rank[i] - 1, for ranks known to be a permutation
// of 1..n (rank is consumed).
template <class Exchange>
void place_records(Integer n, Integer rank[], Exchange&& exchange) {
  using Mark = sort::SignMark;
  for (Integer i = 0; i < n; ++i) rank[i] = Mark::mark(rank[i]);
  sort::scatter_marked<Mark>(rank, n, 1, exchange);
}

// Puts records 0 to n-1, spread over parallel arrays, in order in place:
// before(i, j) is true when record i must come before record j (equal
// records keep their order) and exchange(i, j) swaps records i and j.  rank
// holds n Integers of scratch.  strict_weak: the caller knows before to be a
// strict weak order on these records (as < is on numbers without a NaN),
// which lets a short run be ranked by counting.  For callers whose records
// are known to be well formed, so there is nothing to check or report.
template <class Before, class Exchange>
void order_records(Integer n, Integer rank[], bool strict_weak, Before&& before,
                   Exchange&& exchange) {
  // Below this length counting compares more pairs than the merge but
  // mispredicts none of them.
  constexpr Integer kCountMax = 32;
  // Ranks from 1, so that negation can mark each one as not yet placed;
  // the ranks of a sort are a permutation, which needs no checking.
  if (strict_weak && n <= kCountMax)
    sort::count_rank(rank, n, before, 1);
  else
    sort::merge_rank(rank, n, before, 1);
  place_records(n, rank, exchange);
}

// By reference.  Reports go through the by-reference reporter, so a hard
// failure (ifail = 0 or 10 on entry) ends the process.
void m01cbf(Integer iv[], const Integer* m1, const Integer* m2, const char* order, Integer* ifail);
void m01dbf(const Integer iv[], const Integer* m1, const Integer* m2, const char* order,
            Integer irank[], Integer* ifail);
void m01ebf(Integer iv[], const Integer* m1, const Integer* m2, Integer irank[], Integer* ifail);
// ch holds strings of ch_len characters each, one after another.
void m01ecf(char ch[], const Integer* m1, const Integer* m2, Integer irank[], Integer* ifail,
            std::size_t ch_len);

}  // namespace zil
