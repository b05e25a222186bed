// Input patterns and comparison functions shared by the sorting tests.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "zil.h"

namespace sort_test {

enum class Pattern { Random, Sorted, Reversed, AllEqual, OrganPipe, FewValues };

inline const char* name(Pattern p) {
  switch (p) {
    case Pattern::Random: return "random";
    case Pattern::Sorted: return "sorted";
    case Pattern::Reversed: return "reversed";
    case Pattern::AllEqual: return "equal";
    case Pattern::OrganPipe: return "organpipe";
    case Pattern::FewValues: return "few";
  }
  return "?";
}

inline constexpr Pattern kPatterns[] = {Pattern::Random,   Pattern::Sorted,    Pattern::Reversed,
                                        Pattern::AllEqual, Pattern::OrganPipe, Pattern::FewValues};

inline std::vector<double> make(Pattern p, std::size_t n, unsigned seed = 1) {
  std::vector<double> v(n);
  std::mt19937_64 gen(seed);
  std::uniform_real_distribution<double> u(-1e3, 1e3);
  for (std::size_t i = 0; i < n; ++i) {
    switch (p) {
      case Pattern::Random: v[i] = u(gen); break;
      case Pattern::Sorted: v[i] = static_cast<double>(i); break;
      case Pattern::Reversed: v[i] = static_cast<double>(n - i); break;
      case Pattern::AllEqual: v[i] = 7.5; break;
      case Pattern::OrganPipe: v[i] = static_cast<double>(i < n / 2 ? i : n - i); break;
      case Pattern::FewValues: v[i] = static_cast<double>(gen() % 4); break;
    }
  }
  return v;
}

inline Integer cmp_double(const void* a, const void* b) {
  double x, y;
  std::memcpy(&x, a, sizeof x);
  std::memcpy(&y, b, sizeof y);
  return x < y ? -1 : x > y ? 1 : 0;
}

inline Integer cmp_int(const void* a, const void* b) {
  Integer x, y;
  std::memcpy(&x, a, sizeof x);
  std::memcpy(&y, b, sizeof y);
  return x < y ? -1 : x > y ? 1 : 0;
}

// The expected result of a sort: the same values in order.
inline std::vector<double> sorted_copy(std::vector<double> v, Integer order) {
  if (order == Zil_Ascending) std::sort(v.begin(), v.end());
  else std::sort(v.begin(), v.end(), [](double a, double b) { return a > b; });
  return v;
}

// A record sorted on its key alone, whose tag tells where it started.
struct Keyed {
  Integer key;
  Integer tag;
};

inline Integer cmp_keyed(const void* a, const void* b) {
  Keyed x, y;
  std::memcpy(&x, a, sizeof x);
  std::memcpy(&y, b, sizeof y);
  return (x.key > y.key) - (x.key < y.key);
}

inline std::vector<Keyed> keyed_records(std::size_t n, Integer distinct, unsigned seed) {
  std::mt19937 gen(seed);
  std::vector<Keyed> v(n);
  for (std::size_t i = 0; i < n; ++i)
    v[i] = {static_cast<Integer>(gen() % static_cast<unsigned>(distinct)), static_cast<Integer>(i)};
  return v;
}

// A record of a user's record with fresh defaults.
inline ZilError quiet_record() {
  ZilError e{};
  e.code = -1;
  return e;
}

}  // namespace sort_test
