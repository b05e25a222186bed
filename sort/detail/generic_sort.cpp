#include "sort/detail/generic_sort.hpp"

#include "sort/detail/generators.hpp"
#include "sort/detail/pieces.hpp"

namespace zil::sort {

namespace {

// Pieces of at most this many elements are left to the final insertion pass.
constexpr std::size_t kGenericCutoff = 10;

template <class Moves>
void sort_with(char* base, std::size_t n, std::ptrdiff_t stride, Order order, Moves mv,
               char* pivot, SharedLcg& rng) {
  auto at = [&](std::size_t i) { return base + static_cast<std::ptrdiff_t>(i) * stride; };

  if (n > kGenericCutoff) {
    // With the smaller part always done first, 64 pieces cover any length
    // that fits in memory.
    FlaggedPieceStack<64> stack;
    Piece<FlaggedPieceStack<64>> piece{0, n - 1};
    for (;;) {
      const std::size_t lo = piece.lo, hi = piece.hi;
      const std::size_t mid = lo + (hi - lo) / 2;
      if (piece.randomise) {
        const auto k = static_cast<std::size_t>(rng.next() * static_cast<double>(hi - lo));
        mv.copy(pivot, at(lo + k));
      } else {
        if (order.before(at(mid), at(lo))) mv.swap(at(mid), at(lo));
        if (order.before(at(hi), at(mid))) mv.swap(at(hi), at(mid));
        if (order.before(at(mid), at(lo))) mv.swap(at(mid), at(lo));
        mv.copy(pivot, at(mid));
      }

      std::size_t i = lo, j = hi;
      char* pi = at(lo);
      char* pj = at(hi);
      for (;;) {
        while (i < hi && order.before(pi, pivot)) ++i, pi += stride;
        while (j > lo && order.before(pivot, pj)) --j, pj -= stride;
        if (i >= j) break;
        mv.swap(pi, pj);
        ++i, pi += stride;
        --j, pj -= stride;
      }
      // [lo, j] and [j+1, hi].  The pivot, which lies inside the piece, stops
      // the first upward scan, so with a consistent order the scans never
      // meet at hi; an inconsistent order can bring them there, and then the
      // last element is split off alone so that the piece still shrinks.
      if (j == hi) --j;

      if (!piece.advance(stack, j, kGenericCutoff)) break;
    }
  }

  // One insertion pass finishes the short pieces; the held element waits in
  // the scratch slot.
  char* held = pivot;
  for (std::size_t i = 1; i < n; ++i) {
    char* pi = at(i);
    if (!order.before(pi, pi - stride)) continue;
    mv.copy(held, pi);
    std::size_t j = i;
    char* pj = pi;
    do {
      mv.copy(pj, pj - stride);
      --j, pj -= stride;
    } while (j > 0 && order.before(held, pj - stride));
    mv.copy(pj, held);
  }
}

}  // namespace

void generic_quicksort(char* base, std::size_t n, std::size_t size, std::ptrdiff_t stride,
                       Order order, char* scratch, std::atomic<std::uint32_t>& rng_state) {
  SharedLcg rng(rng_state);
  with_moves(size, [&](auto mv) { sort_with(base, n, stride, order, mv, scratch, rng); });
}

}  // namespace zil::sort
