// Butterflies of the single-sequence transforms: in-place DFTs of length f
// with the kernel exp(-i*2*pi*l*q/f) on f complex values held as separate
// real and imaginary arrays.
//
// Radices 4 and 8 stand for runs of two and three radix-2 passes, so their
// outputs (decimation in frequency) or inputs (decimation in time) sit at
// bit-reversed block positions: place(q).  That keeps the reordering after
// the passes a reversal of the unmerged digits.
//
// The butterflies are templates on the value type: double, or a pair of
// doubles (Pair) when two neighbouring butterflies of a pass, which read
// neighbouring elements, run side by side in one SSE2 register.  Each lane
// does exactly the scalar arithmetic, so results do not depend on which
// way an index went.
//
// Each radix also has real(v): the DFT of f real values, left in place in
// the Hermitian layout of length f (v[q] the real and v[f-q] the imaginary
// part of output q).  A complex butterfly fed zero imaginary parts spends
// half its additions on those zeros, which IEEE arithmetic does not let
// the compiler drop; every first index of a real pass, and the whole of its
// first pass, has real inputs.
//
// Every butterfly is forced inline: called out of line, its f values go
// through memory on each call, which cost the radix-8 passes a third of
// their time.
#pragma once

#include <cmath>
#include <cstring>
#include <type_traits>

namespace zil::fft {

typedef double Pair __attribute__((vector_size(16)));
// Four neighbouring indices at once, in the passes compiled for AVX2
// alone (see the complex and the real pass).
typedef double Quad __attribute__((vector_size(32)));
// Eight doubles, a cache line: see the complex pass for when it serves.
// The compiler splits its arithmetic into SSE2 pairs.
typedef double Line __attribute__((vector_size(64)));

// Eight doubles as two AVX2 registers.  GCC lowers a 64-byte vector under
// AVX2 through the stack in 16-byte pieces, and a 32-byte load of two
// 16-byte stores still in flight waits for both to reach the cache; two
// named halves stay whole registers (or whole 32-byte spills).
struct Octet {
  Quad lo, hi;
};
[[gnu::always_inline]] inline Octet operator+(Octet a, Octet b) {
  return {a.lo + b.lo, a.hi + b.hi};
}
[[gnu::always_inline]] inline Octet operator-(Octet a, Octet b) {
  return {a.lo - b.lo, a.hi - b.hi};
}
[[gnu::always_inline]] inline Octet operator*(Octet a, Octet b) {
  return {a.lo * b.lo, a.hi * b.hi};
}
[[gnu::always_inline]] inline Octet operator*(double a, Octet b) { return {a * b.lo, a * b.hi}; }
[[gnu::always_inline]] inline Octet operator*(Octet a, double b) { return {a.lo * b, a.hi * b}; }
[[gnu::always_inline]] inline Octet operator/(Octet a, double b) { return {a.lo / b, a.hi / b}; }
[[gnu::always_inline]] inline Octet operator-(Octet a) { return {-a.lo, -a.hi}; }
[[gnu::always_inline]] inline Octet& operator+=(Octet& a, Octet b) { return a = a + b; }

// Unaligned access to two, four or eight neighbouring doubles, or to one.
template <class T>
[[gnu::always_inline]] inline T load(const double* p) {
  if constexpr (std::is_same_v<T, Octet>) {
    return T{load<Quad>(p), load<Quad>(p + 4)};
  } else {
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
  }
}
[[gnu::always_inline]] inline void store(double* p, double v) { *p = v; }
[[gnu::always_inline]] inline void store(double* p, Pair v) { std::memcpy(p, &v, sizeof v); }
[[gnu::always_inline]] inline void store(double* p, Quad v) { std::memcpy(p, &v, sizeof v); }
[[gnu::always_inline]] inline void store(double* p, Line v) { std::memcpy(p, &v, sizeof v); }
[[gnu::always_inline]] inline void store(double* p, Octet v) {
  store(p, v.lo);
  store(p + 4, v.hi);
}

// One value in every lane (a twiddle shared by two groups).
template <class T>
[[gnu::always_inline]] inline T splat(double v) {
  if constexpr (sizeof(T) == sizeof(double)) {
    return v;
  } else if constexpr (std::is_same_v<T, Octet>) {
    return T{splat<Quad>(v), splat<Quad>(v)};
  } else {
    T r;
    for (unsigned j = 0; j < sizeof(T) / sizeof(double); ++j) r[j] = v;
    return r;
  }
}

// The same for elements p and p+gap: the trivial butterflies of two
// neighbouring groups.  Wider types take neighbouring elements only.
template <class T>
[[gnu::always_inline]] inline T load(const double* p, long gap) {
  if constexpr (sizeof(T) == sizeof(Pair))
    if (gap != 1) return Pair{p[0], p[gap]};
  return load<T>(p);
}
template <class T>
[[gnu::always_inline]] inline void store(double* p, long gap, T v) {
  if constexpr (sizeof(T) == sizeof(Pair))
    if (gap != 1) {
      p[0] = v[0];
      p[gap] = v[1];
      return;
    }
  store(p, v);
}

// The same for elements p and p-1, in that order: the partner indices m-k
// of a Hermitian block fall as k rises.
// (A template, so that a file built without AVX never compiles the Quad
// form, whose ABI would differ.)
template <class T>
[[gnu::always_inline]] inline T flip(T v) {
  if constexpr (sizeof(T) == sizeof(double))
    return v;
  else if constexpr (sizeof(T) == sizeof(Pair))
    return T{v[1], v[0]};
  else
    return T{v[3], v[2], v[1], v[0]};
}
template <class T>
[[gnu::always_inline]] inline T load_down(const double* p) {
  return flip(load<T>(p + 1 - sizeof(T) / sizeof(double)));
}
template <class T>
[[gnu::always_inline]] inline void store_down(double* p, T v) {
  store(p + 1 - sizeof(T) / sizeof(double), flip(v));
}

inline constexpr double kTwoPi = 6.283185307179586;

// cos and sin of 2*pi*j/f, j = 0..f-1, evaluated in long double so that
// each is the double nearest the true root (exact ones such as -1/2 come
// out exact).  A root's error would recur in every butterfly of a pass.
inline void roots(int f, double* rc, double* rs) {
  constexpr long double two_pi = 6.283185307179586476925286766559005768L;
  for (int j = 0; j < f; ++j) {
    const long double a = two_pi * j / f;
    rc[j] = static_cast<double>(std::cos(a));
    rs[j] = static_cast<double>(std::sin(a));
  }
}

// Outputs a and b = f-a of an odd-radix butterfly: p -/+ i*q.
template <class T>
[[gnu::always_inline]] inline void set_pair(T* re, T* im, int a, int b, T pr, T pi, T qr, T qi) {
  re[a] = pr + qi;
  im[a] = pi - qr;
  re[b] = pr - qi;
  im[b] = pi + qr;
}

struct Dft2 {
  static constexpr int f = 2;
  static constexpr int place(int q) { return q; }
  template <class T>
  [[gnu::always_inline]] void operator()(T* re, T* im) const {
    const T r0 = re[0], i0 = im[0];
    re[0] = r0 + re[1];
    im[0] = i0 + im[1];
    re[1] = r0 - re[1];
    im[1] = i0 - im[1];
  }
  template <class T>
  [[gnu::always_inline]] void real(T* v) const {
    const T v0 = v[0];
    v[0] = v0 + v[1];
    v[1] = v0 - v[1];
  }
};

struct Dft3 {
  static constexpr int f = 3;
  static constexpr int place(int q) { return q; }
  double h = std::sqrt(0.75);
  template <class T>
  [[gnu::always_inline]] void operator()(T* re, T* im) const {
    const T tr = re[1] + re[2], ti = im[1] + im[2];
    const T ur = re[0] - 0.5 * tr, ui = im[0] - 0.5 * ti;
    const T vr = h * (re[1] - re[2]), vi = h * (im[1] - im[2]);
    re[0] += tr;
    im[0] += ti;
    set_pair(re, im, 1, 2, ur, ui, vr, vi);
  }
  template <class T>
  [[gnu::always_inline]] void real(T* v) const {
    const T t = v[1] + v[2], d = v[1] - v[2];
    v[1] = v[0] - 0.5 * t;
    v[2] = -(h * d);
    v[0] += t;
  }
};

// The four-point DFT of (a0, a1, a2, a3), results in natural order.
template <class T>
[[gnu::always_inline]] inline void dft4(T& r0, T& i0, T& r1, T& i1, T& r2, T& i2, T& r3, T& i3) {
  const T ar = r0 + r2, ai = i0 + i2, br = r0 - r2, bi = i0 - i2;
  const T cr = r1 + r3, ci = i1 + i3, dr = r1 - r3, di = i1 - i3;
  r0 = ar + cr;
  i0 = ai + ci;
  r2 = ar - cr;
  i2 = ai - ci;
  r1 = br + di;
  i1 = bi - dr;
  r3 = br - di;
  i3 = bi + dr;
}

struct Dft4 {
  static constexpr int f = 4;
  static constexpr int place(int q) { return (q & 1) * 2 + (q >> 1); }
  template <class T>
  [[gnu::always_inline]] void operator()(T* re, T* im) const {
    dft4(re[0], im[0], re[1], im[1], re[2], im[2], re[3], im[3]);
  }
  template <class T>
  [[gnu::always_inline]] void real(T* v) const {
    const T a = v[0] + v[2], b = v[0] - v[2], c = v[1] + v[3], d = v[1] - v[3];
    v[0] = a + c;
    v[1] = b;
    v[2] = a - c;
    v[3] = -d;
  }
};

struct Dft5 {
  static constexpr int f = 5;
  static constexpr int place(int q) { return q; }
  // (cos 2pi/5 - cos 4pi/5) = sqrt(5)/2 and their sum -1/2 give the cosine
  // sums with one product each.
  double r5 = 0.25 * std::sqrt(5.0);
  double s1 = std::sin(1.2566370614359172), s2 = std::sin(2.5132741228718345);
  template <class T>
  [[gnu::always_inline]] void operator()(T* re, T* im) const {
    const T a1r = re[1] + re[4], a1i = im[1] + im[4], b1r = re[1] - re[4], b1i = im[1] - im[4];
    const T a2r = re[2] + re[3], a2i = im[2] + im[3], b2r = re[2] - re[3], b2i = im[2] - im[3];
    const T tr = a1r + a2r, ti = a1i + a2i;
    const T mr = re[0] - 0.25 * tr, mi = im[0] - 0.25 * ti;
    const T dr = r5 * (a1r - a2r), di = r5 * (a1i - a2i);
    const T c1r = mr + dr, c1i = mi + di, c2r = mr - dr, c2i = mi - di;
    const T e1r = s1 * b1r + s2 * b2r, e1i = s1 * b1i + s2 * b2i;
    const T e2r = s2 * b1r - s1 * b2r, e2i = s2 * b1i - s1 * b2i;
    re[0] += tr;
    im[0] += ti;
    set_pair(re, im, 1, 4, c1r, c1i, e1r, e1i);
    set_pair(re, im, 2, 3, c2r, c2i, e2r, e2i);
  }
  template <class T>
  [[gnu::always_inline]] void real(T* v) const {
    const T a1 = v[1] + v[4], b1 = v[1] - v[4], a2 = v[2] + v[3], b2 = v[2] - v[3];
    const T t = a1 + a2, mid = v[0] - 0.25 * t, d = r5 * (a1 - a2);
    v[0] += t;
    v[1] = mid + d;
    v[2] = mid - d;
    v[3] = -(s2 * b1 - s1 * b2);
    v[4] = -(s1 * b1 + s2 * b2);
  }
};

struct Dft8 {
  static constexpr int f = 8;
  static constexpr int place(int q) { return (q & 1) * 4 + (q & 2) + (q >> 2); }
  double r = std::sqrt(0.5);
  template <class T>
  [[gnu::always_inline]] void operator()(T* re, T* im) const {
    T ar[4], ai[4], br[4], bi[4];
    for (int j = 0; j < 4; ++j) {
      ar[j] = re[j] + re[j + 4];
      ai[j] = im[j] + im[j + 4];
      br[j] = re[j] - re[j + 4];
      bi[j] = im[j] - im[j + 4];
    }
    // Odd outputs: b(j) times exp(-i*pi*j/4) before the four-point DFT.
    T t = r * (br[1] + bi[1]);
    bi[1] = r * (bi[1] - br[1]);
    br[1] = t;
    t = bi[2];
    bi[2] = -br[2];
    br[2] = t;
    t = r * (bi[3] - br[3]);
    bi[3] = -r * (br[3] + bi[3]);
    br[3] = t;
    dft4(ar[0], ai[0], ar[1], ai[1], ar[2], ai[2], ar[3], ai[3]);
    dft4(br[0], bi[0], br[1], bi[1], br[2], bi[2], br[3], bi[3]);
    for (int q = 0; q < 4; ++q) {
      re[2 * q] = ar[q];
      im[2 * q] = ai[q];
      re[2 * q + 1] = br[q];
      im[2 * q + 1] = bi[q];
    }
  }
  // Even outputs: the four-point DFT of a(j) = v(j) + v(j+4); odd ones: of
  // b(j) = v(j) - v(j+4) times exp(-i*pi*j/4), whose outputs 1 and 3
  // combine b(1) and b(3) only through their sum and difference.
  template <class T>
  [[gnu::always_inline]] void real(T* v) const {
    const T a0 = v[0] + v[4], a1 = v[1] + v[5], a2 = v[2] + v[6], a3 = v[3] + v[7];
    const T b0 = v[0] - v[4], b1 = v[1] - v[5], b2 = v[2] - v[6], b3 = v[3] - v[7];
    const T s0 = a0 + a2, s1 = a1 + a3;
    const T t1 = r * (b1 - b3), t2 = r * (b1 + b3);
    v[0] = s0 + s1;
    v[4] = s0 - s1;
    v[2] = a0 - a2;
    v[6] = a3 - a1;
    v[1] = b0 + t1;
    v[7] = -(b2 + t2);
    v[3] = b0 - t1;
    v[5] = b2 - t2;
  }
};

// Any odd prime radix up to 19: the outputs l and f-l share the cosine sums
// of x(j)+x(f-j) and the sine sums of x(j)-x(f-j), j = 1..f/2.
template <int F>
struct DftOdd {
  static_assert(F % 2 == 1 && F <= 19);
  static constexpr int f = F;
  static constexpr int h = F / 2;
  static constexpr int place(int q) { return q; }
  double cs[h][h], sn[h][h];  // cos and sin of 2*pi*(j*l mod f)/f, j, l = 1..h

  DftOdd() {
    double c[F], s[F];
    roots(F, c, s);
    for (int j = 1; j <= h; ++j)
      for (int l = 1; l <= h; ++l) {
        cs[j - 1][l - 1] = c[(j * l) % F];
        sn[j - 1][l - 1] = s[(j * l) % F];
      }
  }

  template <class T>
  [[gnu::always_inline]] void operator()(T* re, T* im) const {
    T ar[h], ai[h], br[h], bi[h];
    T sr = re[0], si = im[0];
    for (int j = 0; j < h; ++j) {
      ar[j] = re[j + 1] + re[F - 1 - j];
      ai[j] = im[j + 1] + im[F - 1 - j];
      br[j] = re[j + 1] - re[F - 1 - j];
      bi[j] = im[j + 1] - im[F - 1 - j];
      sr += ar[j];
      si += ai[j];
    }
    for (int l = 0; l < h; ++l) {
      T pr = re[0], pi = im[0], qr = {}, qi = {};
      for (int j = 0; j < h; ++j) {
        pr += ar[j] * cs[j][l];
        pi += ai[j] * cs[j][l];
        qr += br[j] * sn[j][l];
        qi += bi[j] * sn[j][l];
      }
      set_pair(re, im, l + 1, F - 1 - l, pr, pi, qr, qi);
    }
    re[0] = sr;
    im[0] = si;
  }
  template <class T>
  [[gnu::always_inline]] void real(T* v) const {
    T a[h], b[h];
    T s = v[0];
    for (int j = 0; j < h; ++j) {
      a[j] = v[j + 1] + v[F - 1 - j];
      b[j] = v[j + 1] - v[F - 1 - j];
      s += a[j];
    }
    const T v0 = v[0];
    v[0] = s;
    for (int l = 0; l < h; ++l) {
      T p = v0, q = {};
      for (int j = 0; j < h; ++j) {
        p += a[j] * cs[j][l];
        q += b[j] * sn[j][l];
      }
      v[l + 1] = p;
      v[F - 1 - l] = -q;
    }
  }
};

}  // namespace zil::fft
