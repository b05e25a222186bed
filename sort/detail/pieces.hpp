// The bookkeeping of the quicksorts: which piece to partition next.
//
// After a split at j ([lo, j] and [j+1, hi]) the smaller part is done first
// and the larger put aside, so the stack never holds more than log2(n)
// pieces.  Parts of at most `cutoff` elements are left for the final
// insertion pass.  A larger part of more than 5 * smaller + 25 elements shows
// that the pivot was poor, and the part is marked so that its own pivot is
// drawn at random.
#pragma once

#include <cstddef>

#include "zil_types.h"

namespace zil::sort {

// Two stacks of Integer ends, the complement of a lower end marking a piece
// to be randomised.
template <int Depth>
class MarkedEndStack {
 public:
  using Index = Integer;
  bool empty() const { return depth_ == 0; }
  void push(Index lo, Index hi, bool randomise) {
    lo_[depth_] = randomise ? ~lo : lo;
    hi_[depth_] = hi;
    ++depth_;
  }
  void pop(Index& lo, Index& hi, bool& randomise) {
    --depth_;
    lo = lo_[depth_];
    hi = hi_[depth_];
    randomise = lo < 0;
    if (randomise) lo = ~lo;
  }

 private:
  Index lo_[Depth], hi_[Depth];
  int depth_ = 0;
};

// Pieces of unsigned ends with a flag byte each.
template <int Depth>
class FlaggedPieceStack {
 public:
  using Index = std::size_t;
  bool empty() const { return depth_ == 0; }
  void push(Index lo, Index hi, bool randomise) {
    pieces_[depth_] = {lo, hi};
    flags_[depth_] = randomise;
    ++depth_;
  }
  void pop(Index& lo, Index& hi, bool& randomise) {
    --depth_;
    lo = pieces_[depth_].lo;
    hi = pieces_[depth_].hi;
    randomise = flags_[depth_] != 0;
  }

 private:
  struct {
    Index lo, hi;
  } pieces_[Depth];
  unsigned char flags_[Depth];
  int depth_ = 0;
};

// The piece being partitioned.
template <class Stack>
struct Piece {
  using Index = typename Stack::Index;
  Index lo, hi;
  bool randomise = false;

  // Moves on after a split at j; false when nothing is left to partition.
  bool advance(Stack& stack, Index j, Index cutoff) {
    const Index left = j - lo + 1, right = hi - j;
    const bool left_small = left <= right;
    const Index small = left_small ? left : right;
    const Index large = left_small ? right : left;
    const bool large_random = static_cast<unsigned long long>(large) > 5ull * small + 25;
    const Index large_lo = left_small ? j + 1 : lo, large_hi = left_small ? hi : j;
    if (small > cutoff) {
      stack.push(large_lo, large_hi, large_random);
      if (left_small) hi = j;
      else lo = j + 1;
      randomise = false;
    } else if (large > cutoff) {
      lo = large_lo;
      hi = large_hi;
      randomise = large_random;
    } else {
      if (stack.empty()) return false;
      stack.pop(lo, hi, randomise);
    }
    return true;
  }
};

}  // namespace zil::sort
