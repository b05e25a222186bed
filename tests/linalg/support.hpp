// Shared pieces of the kernel tests: random data, the published rule for
// negative strides, and a record whose failures can be read back.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "zil.h"
#include "zil_linalg.h"

namespace kt {

constexpr double kEps = 1.1102230246251568e-16;

inline std::mt19937_64& rng() {
  static std::mt19937_64 g(20240611);
  return g;
}
inline double uniform() { return std::uniform_real_distribution<double>(-1.0, 1.0)(rng()); }
inline std::vector<double> random_vec(std::size_t n) {
  std::vector<double> v(n);
  for (auto& x : v) x = uniform();
  return v;
}
inline std::vector<Complex> random_cvec(std::size_t n) {
  std::vector<Complex> v(n);
  for (auto& x : v) x = Complex{uniform(), uniform()};
  return v;
}

// Storage of n elements of stride inc, and the index of element i under the
// published rule (a negative stride starts at the far end).
inline std::size_t span(int n, int inc) { return n < 1 ? 1 : 1 + std::size_t(n - 1) * std::abs(inc); }
inline std::size_t far(int n, int inc, int i) {
  return inc > 0 ? std::size_t(i) * inc : std::size_t(n - 1 - i) * -inc;
}

// A record with no box and no handler.
inline ZilError quiet() {
  ZilError f{};
  f.print = FALSE;
  return f;
}

inline Complex cmul(Complex a, Complex b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
inline Complex cadd(Complex a, Complex b) { return {a.re + b.re, a.im + b.im}; }
inline Complex cconj(Complex a) { return {a.re, -a.im}; }

}  // namespace kt
