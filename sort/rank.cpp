// m01dsc: ranks a vector of arbitrary elements without moving them.
#include "frame/export.hpp"
#include "frame/report.hpp"
#include "sort/detail/checks.hpp"
#include "sort/detail/elements.hpp"
#include "sort/detail/rank.hpp"
#include "zil_sort.h"

extern "C" void m01dsc(const void* vec, size_t n, ptrdiff_t stride, zil::sort::Compare compare,
                       Integer order, Integer rank[], ZilError* fail) {
  using namespace zil::sort;
  zil::Reporter rep(fail, "m01dsc");
  if (n > 0 && rep.null_param(vec, "vec")) return;
  if (bad_n(rep, n) || bad_stride(rep, stride, n)) return;
  if (bad_compare(rep, compare)) return;
  if (bad_order(rep, order)) return;
  if (n > 0 && rep.null_param(rank, "rank")) return;

  const Order ord{compare, order == Zil_Descending};
  const char* base = static_cast<const char*>(vec);
  merge_rank(rank, static_cast<Integer>(n), [&](Integer a, Integer b) {
    return ord.before(element(base, stride, a), element(base, stride, b));
  });
  rep.success();
}
ZIL_ALIAS(m01dsc, zil_rank_sort);
