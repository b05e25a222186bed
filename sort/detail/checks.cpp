#include "sort/detail/checks.hpp"

namespace zil::sort {

namespace {

// The table's ZE_INT_ARG_xx formats take the bound as text; these limits are
// printed with "%d".
bool over(Reporter& rep, Integer code, const char* name, std::size_t v, const char* bound) {
  rep.raise(code, name, bound, name, static_cast<long>(v));
  return true;
}

}  // namespace

bool bad_n(Reporter& rep, std::size_t n) {
  if (n <= kMaxN) return false;
  char bound[16];
  format_into(bound, "%d", static_cast<int>(kMaxN));
  return over(rep, ZE_INT_ARG_GT, "n", n, bound);
}

bool bad_size(Reporter& rep, std::size_t size, std::size_t n) {
  if (size < 1) return over(rep, ZE_INT_ARG_LT, "size", size, "1");
  const std::size_t limit = kMaxBytes / (n > 1 ? n : 1);
  if (size <= limit) return false;
  char bound[16];
  format_into(bound, "%d", static_cast<int>(limit));
  return over(rep, ZE_INT_ARG_GT, "size", size, bound);
}

bool bad_stride_for_size(Reporter& rep, std::ptrdiff_t stride, std::size_t size) {
  const std::size_t s = magnitude(stride);
  if (s >= size) return false;
  rep.raise(ZE_2_INT_ARG_LT, "|stride|", static_cast<long>(s), "size", static_cast<long>(size),
            "|stride|", "size");
  return true;
}

bool bad_stride(Reporter& rep, std::ptrdiff_t stride, std::size_t n) {
  const std::size_t s = magnitude(stride);
  if (s < 1) return over(rep, ZE_INT_ARG_LT, "|stride|", s, "1");
  const std::size_t limit = kMaxBytes / (n > 1 ? n : 1);
  if (s <= limit) return false;
  char bound[32];
  format_into(bound, "p (p = %d)", static_cast<int>(limit));
  return over(rep, ZE_INT_ARG_GT, "|stride|", s, bound);
}

bool bad_order(Reporter& rep, Integer order) {
  return rep.enum_in(order == Zil_Ascending || order == Zil_Descending, "order");
}

}  // namespace zil::sort
