// Dense reference matrices for the f16 front tests: a logical matrix kept
// as std::complex values (row by row), stored into the caller's layout in
// either storage order, with NaN in every position the routine must not
// read.
#pragma once

#include <complex>
#include <limits>
#include <type_traits>

#include "linalg/support.hpp"

namespace kt {

using C = std::complex<double>;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

template <class T>
constexpr bool kCx = std::is_same_v<T, Complex>;

template <class T>
C toC(T v) {
  if constexpr (kCx<T>) return C(v.re, v.im);
  else return C(v, 0.0);
}
template <class T>
T fromC(C v) {
  if constexpr (kCx<T>) return Complex{v.real(), v.imag()};
  else return v.real();
}
template <class T>
T nan_value() {
  if constexpr (kCx<T>) return Complex{kNaN, kNaN};
  else return kNaN;
}
template <class T>
C rand_scalar() {
  return kCx<T> ? C(uniform(), uniform()) : C(uniform(), 0.0);
}

// A logical r by c matrix.
struct Dense {
  int r, c;
  std::vector<C> v;
  Dense(int r_, int c_) : r(r_), c(c_), v(std::size_t(r_) * c_) {}
  C& operator()(int i, int j) { return v[std::size_t(i) * c + j]; }
  C operator()(int i, int j) const { return v[std::size_t(i) * c + j]; }
};

template <class T>
Dense random_dense(int r, int c) {
  Dense a(r, c);
  for (auto& x : a.v) x = rand_scalar<T>();
  return a;
}

// op(A) as a logical matrix: 'N', 'T' or 'C'.
inline Dense op(const Dense& a, char t) {
  if (t == 'N') return a;
  Dense b(a.c, a.r);
  for (int i = 0; i < a.r; ++i)
    for (int j = 0; j < a.c; ++j) b(j, i) = t == 'C' ? std::conj(a(i, j)) : a(i, j);
  return b;
}
inline Dense mul(const Dense& a, const Dense& b) {
  Dense p(a.r, b.c);
  for (int i = 0; i < a.r; ++i)
    for (int j = 0; j < b.c; ++j) {
      C s = 0;
      for (int k = 0; k < a.c; ++k) s += a(i, k) * b(k, j);
      p(i, j) = s;
    }
  return p;
}

inline char trans_letter(Integer t) { return t == Zil_NoTrans ? 'N' : t == Zil_Trans ? 'T' : 'C'; }

// A real matrix reads ConjTrans as Trans.
template <class T>
char letter_for(Integer trans) {
  char t = trans_letter(trans);
  return !kCx<T> && t == 'C' ? 'T' : t;
}

// Where element (i, j) of a general r by c matrix lives, by order.
inline std::size_t gen_index(Integer order, int pd, int i, int j) {
  return order == Zil_ColMajor ? std::size_t(i) + std::size_t(j) * pd : std::size_t(i) * pd + j;
}

// Stores a general matrix; padding holds NaN.
template <class T>
std::vector<T> store_general(const Dense& a, Integer order, int pd) {
  int outer = order == Zil_ColMajor ? a.c : a.r;
  std::vector<T> s(std::size_t(pd) * std::max(outer, 1), nan_value<T>());
  for (int i = 0; i < a.r; ++i)
    for (int j = 0; j < a.c; ++j) s[gen_index(order, pd, i, j)] = fromC<T>(a(i, j));
  return s;
}
template <class T>
Dense load_general(const std::vector<T>& s, Integer order, int pd, int r, int c) {
  Dense a(r, c);
  for (int i = 0; i < r; ++i)
    for (int j = 0; j < c; ++j) a(i, j) = toC(s[gen_index(order, pd, i, j)]);
  return a;
}

// A triangle (i <= j for upper) of a square matrix in a general store.
inline bool in_triangle(Integer uplo, int i, int j) { return uplo == Zil_Upper ? i <= j : i >= j; }

// Symmetric (real) or Hermitian (complex) matrix from random data: the
// Hermitian diagonal is real.
template <class T>
Dense random_hermitian(int n) {
  Dense a = random_dense<T>(n, n);
  for (int i = 0; i < n; ++i) {
    a(i, i) = C(a(i, i).real(), 0.0);
    for (int j = 0; j < i; ++j) a(i, j) = kCx<T> ? std::conj(a(j, i)) : a(j, i);
  }
  return a;
}
inline Dense symmetric_from(Dense a) {
  for (int i = 0; i < a.r; ++i)
    for (int j = 0; j < i; ++j) a(i, j) = a(j, i);
  return a;
}

// Only the named triangle of a square matrix is stored; the rest is NaN.
template <class T>
std::vector<T> store_triangle(const Dense& a, Integer order, Integer uplo, int pd, bool unit = false) {
  std::vector<T> s(std::size_t(pd) * std::max(a.r, 1), nan_value<T>());
  for (int i = 0; i < a.r; ++i)
    for (int j = 0; j < a.c; ++j)
      if (in_triangle(uplo, i, j) && !(unit && i == j)) s[gen_index(order, pd, i, j)] = fromC<T>(a(i, j));
  return s;
}

// Packed triangle: column-major packs column by column, row-major row by
// row.
inline std::size_t packed_index(Integer order, Integer uplo, int n, int i, int j) {
  bool col = order == Zil_ColMajor;
  // Row-major upper is column-major lower of the transpose, and so on.
  if (!col) {
    std::swap(i, j);
    uplo = uplo == Zil_Upper ? Zil_Lower : Zil_Upper;
  }
  if (uplo == Zil_Upper) return std::size_t(i) + std::size_t(j) * (j + 1) / 2;
  return std::size_t(i) + std::size_t(j) * (2 * n - j - 1) / 2;
}
template <class T>
std::vector<T> store_packed(const Dense& a, Integer order, Integer uplo, bool unit = false) {
  int n = a.r;
  std::vector<T> s(std::size_t(n) * (n + 1) / 2 + 1, nan_value<T>());
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j)
      if (in_triangle(uplo, i, j) && !(unit && i == j)) s[packed_index(order, uplo, n, i, j)] = fromC<T>(a(i, j));
  return s;
}

// General band storage with kl sub- and ku super-diagonals.
inline std::size_t band_index(Integer order, int pd, int kl, int ku, int i, int j) {
  return order == Zil_ColMajor ? std::size_t(ku + i - j) + std::size_t(j) * pd
                               : std::size_t(kl + j - i) + std::size_t(i) * pd;
}
inline bool in_band(int kl, int ku, int i, int j) { return i - j <= kl && j - i <= ku; }
template <class T>
std::vector<T> store_band(const Dense& a, Integer order, int pd, int kl, int ku) {
  int outer = order == Zil_ColMajor ? a.c : a.r;
  std::vector<T> s(std::size_t(pd) * std::max(outer, 1), nan_value<T>());
  for (int i = 0; i < a.r; ++i)
    for (int j = 0; j < a.c; ++j)
      if (in_band(kl, ku, i, j)) s[band_index(order, pd, kl, ku, i, j)] = fromC<T>(a(i, j));
  return s;
}
// Zero outside the band.
inline Dense band_only(Dense a, int kl, int ku) {
  for (int i = 0; i < a.r; ++i)
    for (int j = 0; j < a.c; ++j)
      if (!in_band(kl, ku, i, j)) a(i, j) = 0;
  return a;
}
// A triangle (with unit diagonal if asked), zero elsewhere.
inline Dense triangle_only(Dense a, Integer uplo, bool unit) {
  for (int i = 0; i < a.r; ++i)
    for (int j = 0; j < a.c; ++j) {
      if (!in_triangle(uplo, i, j)) a(i, j) = 0;
      if (unit && i == j) a(i, j) = 1;
    }
  return a;
}
// A well-conditioned triangle for the solves: a dominant diagonal.
inline Dense dominant(Dense a) {
  for (int i = 0; i < a.r && i < a.c; ++i) a(i, i) += C(a.r + 2.0, 0.0);
  return a;
}

// Vectors of the published stride rule.
template <class T>
std::vector<T> store_vec(const std::vector<C>& v, int inc) {
  int n = int(v.size());
  std::vector<T> s(span(n, inc), nan_value<T>());
  for (int i = 0; i < n; ++i) s[far(n, inc, i)] = fromC<T>(v[i]);
  return s;
}
template <class T>
std::vector<C> load_vec(const std::vector<T>& s, int n, int inc) {
  std::vector<C> v(n);
  for (int i = 0; i < n; ++i) v[i] = toC(s[far(n, inc, i)]);
  return v;
}
template <class T>
std::vector<C> random_cv(int n) {
  std::vector<C> v(n);
  for (auto& x : v) x = rand_scalar<T>();
  return v;
}
inline std::vector<C> matvec(const Dense& a, const std::vector<C>& x) {
  std::vector<C> y(a.r);
  for (int i = 0; i < a.r; ++i)
    for (int j = 0; j < a.c; ++j) y[i] += a(i, j) * x[j];
  return y;
}

inline void expect_close(const std::vector<C>& got, const std::vector<C>& want, double tol, const std::string& what) {
  ASSERT_EQ(got.size(), want.size());
  for (std::size_t i = 0; i < got.size(); ++i)
    ASSERT_LE(std::abs(got[i] - want[i]), tol) << what << " at " << i << ": " << got[i] << " vs " << want[i];
}
inline void expect_close(const Dense& got, const Dense& want, double tol, const std::string& what) {
  expect_close(got.v, want.v, tol, what);
}

constexpr Integer kOrders[] = {Zil_RowMajor, Zil_ColMajor};
constexpr Integer kTrans[] = {Zil_NoTrans, Zil_Trans, Zil_ConjTrans};
constexpr Integer kUplos[] = {Zil_Upper, Zil_Lower};
constexpr Integer kDiags[] = {Zil_NonUnitDiag, Zil_UnitDiag};
constexpr Integer kSides[] = {Zil_LeftSide, Zil_RightSide};
constexpr int kIncs[] = {1, -2};

inline std::string tag(Integer order, Integer a = 0, Integer b = 0, Integer c = 0) {
  return std::to_string(order) + "/" + std::to_string(a) + "/" + std::to_string(b) + "/" + std::to_string(c);
}

}  // namespace kt
