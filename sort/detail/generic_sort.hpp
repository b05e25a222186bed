// The quicksort of m01csc over elements of any size and stride.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "sort/detail/elements.hpp"

namespace zil::sort {

// Sorts n elements at base, stride bytes apart, into the given order.
// scratch holds one element.  rng_state is the generator word kept between
// calls.
//
// The comparison is the caller's and may not be a consistent order; every
// scan is therefore bounded by its piece, and a split that leaves one part
// empty is forced to shrink, so that such a function yields some
// permutation of the data without ever leaving the vector.
void generic_quicksort(char* base, std::size_t n, std::size_t size, std::ptrdiff_t stride,
                       Order order, char* scratch, std::atomic<std::uint32_t>& rng_state);

}  // namespace zil::sort
