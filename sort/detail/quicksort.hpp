// Quicksort of a contiguous section of plain numbers, ascending.
//
// Singleton's refinements of Hoare's method: the median of the first, middle
// and last elements as pivot, no recursion (pieces.hpp), and short pieces
// finished by one insertion pass over the whole section.  A piece marked
// after a poor split has two random elements brought to its ends before its
// median is taken, which defeats the inputs (organ pipes, median-of-three
// killers) that make a plain median of three quadratic.
#pragma once

#include <cstddef>
#include <utility>

#include "sort/detail/pieces.hpp"
#include "zil_types.h"

namespace zil::sort {

inline constexpr Integer kCutoff = 15;
inline constexpr int kStackDepth = 40;

// Sorts a[0..n) ascending by operator<.  Rng provides next() in [0, 1).
//
// The partition relies only on x < x being false and on each comparison
// giving the same answer every time; with NaNs among the data the order is
// unspecified but every access stays inside the section.
template <class T, class Rng>
void quicksort(T* a, Integer n, Rng& rng) {
  if (n > kCutoff) {
    MarkedEndStack<kStackDepth> stack;
    Piece<MarkedEndStack<kStackDepth>> piece{0, n - 1};
    for (;;) {
      const Integer lo = piece.lo, hi = piece.hi;
      if (piece.randomise) {
        const auto k = static_cast<Integer>(rng.next() * (hi - lo));
        std::swap(a[lo], a[lo + k]);
        std::swap(a[hi], a[hi - k]);
      }
      const Integer mid = lo + (hi - lo) / 2;
      if (a[mid] < a[lo]) std::swap(a[mid], a[lo]);
      if (a[hi] < a[mid]) std::swap(a[hi], a[mid]);
      if (a[mid] < a[lo]) std::swap(a[mid], a[lo]);
      const T pivot = a[mid];

      // The pivot element itself stops both first scans; after each
      // exchange the two exchanged elements stop the next ones.  So no scan
      // needs a bound check, and lo <= j < hi at the end.
      Integer i = lo - 1, j = hi + 1;
      for (;;) {
        do ++i; while (a[i] < pivot);
        do --j; while (pivot < a[j]);
        if (i >= j) break;
        std::swap(a[i], a[j]);
      }
      if (!piece.advance(stack, j, kCutoff)) break;
    }
  }

  // Every element is now within kCutoff places of where it belongs.
  for (Integer i = 1; i < n; ++i) {
    const T x = a[i];
    Integer j = i;
    for (; j > 0 && x < a[j - 1]; --j) a[j] = a[j - 1];
    a[j] = x;
  }
}

template <class T>
void reverse(T* a, Integer n) {
  for (Integer i = 0, j = n - 1; i < j; ++i, --j) std::swap(a[i], a[j]);
}

}  // namespace zil::sort
