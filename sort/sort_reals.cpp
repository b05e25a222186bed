// m01cac: quicksort of a vector of reals.
#include <atomic>
#include <cstdint>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "sort/detail/checks.hpp"
#include "sort/detail/generators.hpp"
#include "sort/detail/quicksort.hpp"
#include "zil_sort.h"

namespace {

// The pivot generator's word, kept from one call to the next.
std::atomic<std::uint32_t> g_m01cac_state{zil::sort::SharedLcg::kStart};

}  // namespace

extern "C" void m01cac(double vec[], size_t n, Integer order, ZilError* fail) {
  using namespace zil::sort;
  zil::Reporter rep(fail, "m01cac");
  if (n > 0 && rep.null_param(vec, "vec")) return;
  if (bad_n(rep, n) || bad_order(rep, order)) return;

  if (n > 1) {
    SharedLcg rng(g_m01cac_state);
    const auto len = static_cast<Integer>(n);
    quicksort(vec, len, rng);
    if (order == Zil_Descending) reverse(vec, len);
  }
  rep.success();
}
ZIL_ALIAS(m01cac, zil_double_sort);
