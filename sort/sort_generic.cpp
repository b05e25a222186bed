// m01csc and m01ctc: sorts of vectors of arbitrary elements.
#include <atomic>
#include <cstdint>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "frame/workspace.hpp"
#include "sort/detail/checks.hpp"
#include "sort/detail/elements.hpp"
#include "sort/detail/generators.hpp"
#include "sort/detail/generic_sort.hpp"
#include "zil_sort.h"

namespace {

std::atomic<std::uint32_t> g_m01csc_state{zil::sort::SharedLcg::kStart};

// Elements up to this size are held on the stack while they wait.
constexpr std::size_t kStackElement = 256;

using zil::sort::Compare;

// The checks the two sorts share, in argument order.
bool bad_sort_args(zil::Reporter& rep, Pointer vec, size_t n, size_t size, ptrdiff_t stride,
                   Compare compare, Integer order) {
  using namespace zil::sort;
  return (n > 0 && rep.null_param(vec, "vec")) || bad_vector(rep, n, size, stride) ||
         bad_compare(rep, compare) ||
         bad_order(rep, order);
}

}  // namespace

extern "C" void m01csc(Pointer vec, size_t n, size_t size, ptrdiff_t stride, Compare compare,
                       Integer order, ZilError* fail) {
  using namespace zil::sort;
  zil::Reporter rep(fail, "m01csc");
  if (bad_sort_args(rep, vec, n, size, stride, compare, order)) return;
  if (n > 1) {
    auto sort = [&](char* scratch) {
      generic_quicksort(static_cast<char*>(vec), n, size, stride,
                        Order{compare, order == Zil_Descending}, scratch, g_m01csc_state);
    };
    if (size <= kStackElement) {
      alignas(16) char local[kStackElement];
      sort(local);
    } else {
      zil::Workspace<char> heap(size);
      if (!heap) return rep.alloc_fail();
      sort(heap.get());
    }
  }
  rep.success();
}
ZIL_ALIAS(m01csc, zil_quicksort);

// Stable: rank (a stable merge), turn the ranks into indices, then gather.
extern "C" void m01ctc(Pointer vec, size_t n, size_t size, ptrdiff_t stride, Compare compare,
                       Integer order, ZilError* fail) {
  zil::Reporter rep(fail, "m01ctc");
  if (bad_sort_args(rep, vec, n, size, stride, compare, order)) return;
  if (n > 1) {
    zil::Workspace<Integer> work(n);
    if (!work) return rep.alloc_fail();
    ZilError own{};
    m01dsc(vec, n, stride, compare, order, work.get(), &own);
    if (own.code == 0) m01zac(work.get(), n, &own);
    if (own.code == 0) m01esc(vec, n, size, stride, work.get(), &own);
    // A failure of a routine called on our behalf is repeated under this
    // routine's name.
    if (own.code != 0) return rep.raise_text(own.code, own.message);
  }
  rep.success();
}
ZIL_ALIAS(m01ctc, zil_stable_sort);
