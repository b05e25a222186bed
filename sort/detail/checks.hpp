// Argument checks shared by the public sorting routines, so that every
// routine words its limits the same way.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frame/report.hpp"
#include "sort/detail/elements.hpp"
#include "zil_sort.h"

namespace zil::sort {

// The length limit leaves bits 28 to 30 of an Integer free, so that bit 30
// can mark entries of rank and index arrays while they are walked.
inline constexpr std::size_t kMaxN = 0xFFFFFFF;
// Element sizes and strides are bounded so that n elements span no more than
// a 32-bit signed byte count.
inline constexpr std::size_t kMaxBytes = 2147483647;

inline std::size_t magnitude(std::ptrdiff_t stride) {
  auto s = static_cast<std::size_t>(stride);
  return stride < 0 ? std::size_t{0} - s : s;
}

// Each returns true when the check failed and has been reported.
bool bad_n(Reporter& rep, std::size_t n);
bool bad_size(Reporter& rep, std::size_t size, std::size_t n);
bool bad_stride_for_size(Reporter& rep, std::ptrdiff_t stride, std::size_t size);
// Routines without an element size bound the stride by the same byte count.
bool bad_stride(Reporter& rep, std::ptrdiff_t stride, std::size_t n);
bool bad_order(Reporter& rep, Integer order);
inline bool bad_compare(Reporter& rep, Compare compare) {
  return rep.null_param(reinterpret_cast<const void*>(compare), "compare");
}

// n, size and stride of the generic vector routines, in argument order.
inline bool bad_vector(Reporter& rep, std::size_t n, std::size_t size, std::ptrdiff_t stride) {
  return bad_n(rep, n) || bad_size(rep, size, n) || bad_stride_for_size(rep, stride, size);
}

// Address of element i of a strided vector.
template <class Byte>
inline Byte* element(Byte* base, std::ptrdiff_t stride, std::size_t i) {
  return base + static_cast<std::ptrdiff_t>(i) * stride;
}

}  // namespace zil::sort
