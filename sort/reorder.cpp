// m01zac and m01esc: ranks into indices, and a vector reordered by indices,
// both in place.
#include "frame/export.hpp"
#include "frame/report.hpp"
#include "frame/workspace.hpp"
#include "sort/detail/checks.hpp"
#include "sort/detail/elements.hpp"
#include "sort/detail/permute.hpp"
#include "zil_sort.h"

namespace {

using zil::sort::Bit30Mark;

// Checks and marks a permutation array of the public layer, reporting a bad
// one under the array's name.
bool bad_permutation(zil::Reporter& rep, Integer* p, size_t n, const char* name) {
  if (!zil::sort::mark_permutation<Bit30Mark>(p, static_cast<Integer>(n), 0)) return false;
  rep.raise(ZE_BAD_RANK, name);
  return true;
}

// One element at a time through a scratch slot, for the gathering walk.
template <class Moves>
struct StridedSlots {
  char* base;
  ptrdiff_t stride;
  Moves mv;
  char* kept;
  char* at(Integer i) const { return zil::sort::element(base, stride, static_cast<size_t>(i)); }
  void save(Integer i) { mv.copy(kept, at(i)); }
  void restore(Integer i) { mv.copy(at(i), kept); }
  void move(Integer dst, Integer src) { mv.copy(at(dst), at(src)); }
};

}  // namespace

extern "C" void m01zac(Integer rank[], size_t n, ZilError* fail) {
  using namespace zil::sort;
  zil::Reporter rep(fail, "m01zac");
  if (n > 0 && rep.null_param(rank, "rank")) return;
  if (bad_n(rep, n)) return;
  if (bad_permutation(rep, rank, n, "rank")) return;
  invert_marked<Bit30Mark>(rank, static_cast<Integer>(n), 0);
  rep.success();
}
ZIL_ALIAS(m01zac, zil_make_indices);

extern "C" void m01esc(Pointer vec, size_t n, size_t size, ptrdiff_t stride, Integer indices[],
                       ZilError* fail) {
  using namespace zil::sort;
  zil::Reporter rep(fail, "m01esc");
  if (n > 0 && rep.null_param(vec, "vec")) return;
  if (bad_vector(rep, n, size, stride)) return;
  if (n > 0 && rep.null_param(indices, "indices")) return;
  if (n == 0) return rep.success();

  zil::Workspace<char> kept(size);
  if (!kept) return rep.alloc_fail();
  if (bad_permutation(rep, indices, n, "indices")) return;
  with_moves(size, [&](auto mv) {
    StridedSlots<decltype(mv)> slots{static_cast<char*>(vec), stride, mv, kept.get()};
    gather_marked<Bit30Mark>(indices, static_cast<Integer>(n), 0, slots);
  });
  rep.success();
}
ZIL_ALIAS(m01esc, zil_reorder_vector);
