// Elements of a strided vector of arbitrary objects, moved as raw bytes.
#pragma once

#include <cstddef>
#include <cstring>

#include "zil_types.h"

namespace zil::sort {

using Compare = Integer (*)(const void*, const void*);

// A comparison with the requested order folded in: before(a, b) is true when
// a must come before b.  The descending test reads the sign the other way
// rather than negating the result, which could overflow.
struct Order {
  Compare compare;
  bool descending;
  bool before(const void* a, const void* b) const {
    const Integer c = compare(a, b);
    return descending ? c > 0 : c < 0;
  }
};

// Moves for elements whose size is known when the code is compiled (the
// copies become single loads and stores) ...
template <std::size_t S>
struct FixedBytes {
  std::size_t size() const { return S; }
  void copy(char* dst, const char* src) const { std::memcpy(dst, src, S); }
  void swap(char* a, char* b) const {
    char t[S];
    std::memcpy(t, a, S);
    std::memcpy(a, b, S);
    std::memcpy(b, t, S);
  }
};

// ... and for any other size, through a small bounce buffer.
struct AnyBytes {
  std::size_t n;
  std::size_t size() const { return n; }
  void copy(char* dst, const char* src) const { std::memcpy(dst, src, n); }
  void swap(char* a, char* b) const {
    char t[64];
    for (std::size_t k = 0; k < n; k += sizeof t) {
      const std::size_t m = n - k < sizeof t ? n - k : sizeof t;
      std::memcpy(t, a + k, m);
      std::memcpy(a + k, b + k, m);
      std::memcpy(b + k, t, m);
    }
  }
};

// Calls body(moves) with the fastest moves for elements of `size` bytes.
template <class Body>
void with_moves(std::size_t size, Body&& body) {
  switch (size) {
    case 4: return body(FixedBytes<4>{});
    case 8: return body(FixedBytes<8>{});
    case 16: return body(FixedBytes<16>{});
    default: return body(AnyBytes{size});
  }
}

}  // namespace zil::sort
