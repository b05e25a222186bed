// m01fsc: binary search of a sorted vector.
#include "frame/export.hpp"
#include "frame/report.hpp"
#include "sort/detail/checks.hpp"
#include "sort/detail/elements.hpp"
#include "zil_sort.h"

extern "C" Boolean m01fsc(const void* key, const void* vec, size_t n, ptrdiff_t stride,
                          zil::sort::Compare compare, Integer order, Integer final,
                          Integer* index, ZilError* fail) {
  using namespace zil::sort;
  zil::Reporter rep(fail, "m01fsc");
  if (rep.null_param(key, "key")) return FALSE;
  if (n > 0 && rep.null_param(vec, "vec")) return FALSE;
  if (bad_n(rep, n) || bad_stride(rep, stride, n)) return FALSE;
  if (bad_compare(rep, compare)) return FALSE;
  if (bad_order(rep, order)) return FALSE;
  if (rep.enum_in(final == Zil_First || final == Zil_Last, "final")) return FALSE;
  if (rep.null_param(index, "index")) return FALSE;

  const Order ord{compare, order == Zil_Descending};
  const char* base = static_cast<const char*>(vec);
  auto at = [&](size_t i) { return element(base, stride, i); };
  // The first position in [0, n) at which `beyond` holds; beyond must be
  // false up to some point and true from there on.
  auto partition_point = [&](auto beyond) {
    size_t lo = 0, len = n;
    while (len > 0) {
      const size_t half = len / 2;
      if (beyond(at(lo + half))) {
        len = half;
      } else {
        lo += half + 1;
        len -= half + 1;
      }
    }
    return lo;
  };

  // Everything before `after` lies at or before the key.
  const size_t after = partition_point([&](const char* e) { return ord.before(key, e); });
  bool found = after > 0 && !ord.before(at(after - 1), key);
  size_t pos = after;  // one past the answer
  if (found && final == Zil_First)
    pos = partition_point([&](const char* e) { return !ord.before(e, key); }) + 1;
  *index = static_cast<Integer>(pos) - 1;
  rep.success();
  return found ? TRUE : FALSE;
}
ZIL_ALIAS(m01fsc, zil_search_vector);
