// The passes of the single-sequence transforms, compiled twice: in
// passes.cpp for any x86-64 processor, two lanes to a register (SSE2), and
// in passes_four.cpp for processors with AVX2, four lanes.  All of it
// lies in an unnamed namespace, so each file keeps its own copy, built for
// its own instruction set, and the linker can never let one stand in for
// the other.  Each lane does exactly the scalar arithmetic (no product is
// fused into a sum: -ffp-contract=off, and no FMA in either instruction
// set), so both copies give the same bits.
//
// Mixed-radix passes in the manner of Singleton's in-place transform: the
// real and Hermitian passes keep every intermediate block of length m in the
// Hermitian layout of that length, so a butterfly at index k reads and
// writes the same 2f slots (k and m-k of each block) and needs no complex
// temporaries beyond its own f values.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <type_traits>
#include <utility>

#include "transforms/detail/passes.hpp"

// The helpers that take or return a Line are always inlined, so GCC's note
// that passing one by value would change the ABI on other targets does not
// apply here.
#pragma GCC diagnostic ignored "-Wpsabi"
#include "transforms/detail/kernels.hpp"

namespace zil::fft {
namespace {

// 1/j!, exact in its rounding: j! itself is exact in a double up to 18!.
constexpr double inverse_factorial(int j) {
  double f = 1.0;
  for (int i = 2; i <= j; ++i) f *= i;
  return 1.0 / f;
}

// sin and cos of two (or four) angles in [0, pi/2] at once.  The libm
// call, one angle at a time, cost a quarter of a real transform whose last
// pass has a large span.  An angle above pi/4 is reflected, sin a =
// cos(pi/2 - a), where pi/2 - a is exact by Sterbenz's lemma before the
// tail of pi/2 is added; on [0, pi/4] the Taylor series through degree 17
// (sine) and 16 (cosine) leave a truncation below 1e-19, so the result is
// within about one unit in the last place.  Each series is a polynomial of
// degree 7 in z = r*r, summed by Estrin's scheme: four pairs, then two,
// then one, a chain of three products and sums where Horner's rule had
// seven.  A short transform waits on that chain (a seventh of the real
// transform of 64); the sums are of terms falling by at least 19 times
// each, so their rounding stays far below the final r + r*z*p.
template <class V>
[[gnu::always_inline]] inline V estrin7(V z, V z2, V z4, const double (&a)[8]) {
  const V p01 = a[0] + a[1] * z, p23 = a[2] + a[3] * z;
  const V p45 = a[4] + a[5] * z, p67 = a[6] + a[7] * z;
  return (p01 + z2 * p23) + z4 * (p45 + z2 * p67);
}

template <class V>
[[gnu::always_inline]] inline void sin_cos(V a, V& s, V& c) {
  constexpr double pio2_hi = 1.5707963267948966, pio2_lo = 6.123233995736766e-17;
  // z^i: (-1)^(i+1) / (2i+3)! in the sine, / (2i+2)! in the cosine.
  constexpr double sine[8] = {
      -inverse_factorial(3),  inverse_factorial(5),  -inverse_factorial(7),  inverse_factorial(9),
      -inverse_factorial(11), inverse_factorial(13), -inverse_factorial(15), inverse_factorial(17)};
  constexpr double cosine[8] = {
      -inverse_factorial(2),  inverse_factorial(4),  -inverse_factorial(6),  inverse_factorial(8),
      -inverse_factorial(10), inverse_factorial(12), -inverse_factorial(14), inverse_factorial(16)};
  const auto reflect = a > 0.7853981633974483;
  const V r = reflect ? (pio2_hi - a) + pio2_lo : a;
  const V z = r * r, z2 = z * z, z4 = z2 * z2;
  const V sr = r + r * z * estrin7(z, z2, z4, sine), cr = 1.0 + z * estrin7(z, z2, z4, cosine);
  s = reflect ? cr : sr;
  c = reflect ? sr : cr;
}

// exp(-i*l*angle), l < f, for the angles of two indices, from their
// cosines c and sines s as products w(l) = w(l/2)*w(l - l/2): each power
// takes as many roundings as by the chain w(l-1)*w(1), but the chain of
// dependent products is log2(f) long instead of f-2, which is what a short
// transform, with few indices to overlap, waits on.
template <int F, class V>
[[gnu::always_inline]] inline void powers(V c, V s, V* wr, V* wi) {
  wr[1] = c;
  wi[1] = -s;
  for (int l = 2; l < F; ++l) {
    const int a = l / 2, b = l - a;
    wr[l] = wr[a] * wr[b] - wi[a] * wi[b];
    wi[l] = wr[a] * wi[b] + wi[a] * wr[b];
  }
}

// The powers of the twiddles of indices at offsets with cosines c and sines
// s from a chunk's first index, whose angle has cosine bc and sine bs
// (rotate: the chunk does not start at 0): the angle-sum formulas, then the
// powers.
template <int F, class V>
[[gnu::always_inline]] inline void offset_powers(V c, V s, double bc, double bs, bool rotate, V* wr,
                                                 V* wi) {
  if (rotate) {
    const V ct = c;
    c = bc * ct - bs * s;
    s = bs * ct + bc * s;
  }
  powers<F>(c, s, wr, wi);
}

// cos and sin of the angles of indices k, k+step (, k+2*step, k+3*step),
// k*2*pi/fm.
template <class V = Pair>
[[gnu::always_inline]] inline void angle_sin_cos(Integer k, Integer fm, V& s, V& c,
                                                 Integer step = 1) {
  V index;
  for (unsigned j = 0; j < sizeof(V) / sizeof(double); ++j)
    index[j] = static_cast<double>(k + static_cast<Integer>(j) * step);
  sin_cos(index * kTwoPi / static_cast<double>(fm), s, c);
}

// The widest vector of the file's instruction set, for the angles.
#ifdef __AVX2__
using Widest = Quad;
#else
using Widest = Pair;
#endif
inline constexpr Integer kAngleLanes = sizeof(Widest) / sizeof(double);

// Twiddles of up to kChunk consecutive indices k (with, in the complex
// pass, their partners m-k) are computed at the start of a sweep over the
// groups and held on the stack for it.  Sweeping once per chunk rather than
// once per index keeps the late passes, where m is small and the groups
// many, from streaming the whole array through the cache for every k.
// They are stored index-innermost, so that two neighbouring indices find
// theirs side by side.
inline constexpr Integer kChunk = 16;
// Columns of a chunk's tables: room for every index of a short span at once
// (below).
inline constexpr Integer kColumns = 2 * kChunk;

template <int F>
struct Chunk {
  Integer first = 0, end = 0;  // indices k in [first, end)
  Integer pair_end = 0;        // k in [max(first, 1), pair_end) has a partner m-k
  double wr[F][kColumns], wi[F][kColumns];  // exp(-i*q*angle(k)) at [q][k - first]
  // The same for m-k, at [q][pair_end - 1 - k]: ascending with m-k.
  double pr[F][kColumns], pi[F][kColumns];
  // A span short enough for one chunk (m/2 + 1 <= kChunk) has its partners
  // beside it instead, in wr and wi at [q][m - k]: that column follows the
  // last of the chunk's own, so the twiddles of every index 1..m-1 lie in
  // order and the butterflies run over them in whole vectors, where the
  // two runs took a part vector each (at m = 8, four butterflies of radix 8
  // in place of two).  Column 0 then holds the trivial twiddle, which the
  // butterfly of index 0 reads but does not apply.
  bool whole = false;
  // cos and sin of the angles of the offsets j < kChunk within a chunk,
  // made once per pass.  A chunk's own angle, once per chunk, turns them
  // into the angles of its indices by the angle-sum formulas: one complex
  // product per index where the series took most of the cost of a pass
  // over a long span with a small radix (the first complex pass of 720,
  // the last real pass of 1024).  The two factors are within about an ulp
  // each and are not iterated, so the error does not grow along the span.
  // One spare slot: the last index of the first chunk, k = kChunk - 1, is
  // read together with its unused neighbour.  Only the two slots that can
  // be read without being computed (that one, and the one after the last
  // offset of a single short chunk) are cleared, so that an unused lane
  // never holds a subnormal: clearing the whole table compiled to two
  // string stores, whose start-up was a tenth of a real transform of 64.
  double oc[kChunk + 1], os[kChunk + 1];

  explicit Chunk(Integer m) : whole(m > 1 && m / 2 + 1 <= kChunk) {
    const Integer offsets = std::min<Integer>(kChunk, m / 2 + 1);
    // m = 1 has the index 0 alone, whose twiddle is never read.
    for (Integer j = 0; j < offsets && m > 1; j += kAngleLanes) {
      Widest s, c;
      angle_sin_cos(j, F * m, s, c);
      store(oc + j, c);
      store(os + j, s);
    }
    oc[offsets] = os[offsets] = oc[kChunk] = os[kChunk] = 0.0;
  }

  // Fills the chunk that starts at first, for the indices k <= m/2.  The
  // partner twiddles, exp(-i*2*pi*q/f) times the conjugate of those of k,
  // come from the roots rc, rs when asked for.
  void fill(Integer start, Integer m, const double* rc, const double* rs) {
    first = start;
    end = std::min<Integer>(start + kChunk, m / 2 + 1);
    pair_end = std::min<Integer>(end, (m + 1) / 2);
    Pair base_s = {}, base_c = {};
    if (first > 0) angle_sin_cos(first, F * m, base_s, base_c);
    if (whole)
      for (int q = 1; q < F; ++q) {
        wr[q][0] = 1.0;
        wi[q][0] = 0.0;
      }
    // Where the partners go: their own tables, or after this chunk's columns.
    double(*to_r)[kColumns] = whole ? wr : pr;
    double(*to_i)[kColumns] = whole ? wi : pi;
    const Integer to = whole ? end : 0;
    for (Integer k = std::max<Integer>(first, 1); k < end; k += 2) {
      const bool both = k + 1 < end;
      const Integer i = k - first;
      Pair w_r[F], w_i[F];
      offset_powers<F>(load<Pair>(oc + i), load<Pair>(os + i), base_c[0], base_s[0], first > 0, w_r, w_i);
      for (int q = 1; q < F; ++q) {
        put(&wr[q][i], w_r[q], both);
        put(&wi[q][i], w_i[q], both);
      }
      if (!rc || k >= pair_end) continue;
      // The partners fall as k rises: k+1 (if paired too) goes first.
      const bool both_paired = k + 1 < pair_end;
      const Integer j = pair_end - 1 - k - both_paired;
      for (int q = 1; q < F; ++q) {
        Pair tr = rc[q] * w_r[q] - rs[q] * w_i[q], ti = -rc[q] * w_i[q] - rs[q] * w_r[q];
        if (both_paired) {
          tr = flip(tr);
          ti = flip(ti);
        }
        put(&to_r[q][to + j], tr, both_paired);
        put(&to_i[q][to + j], ti, both_paired);
      }
    }
  }

  // Both lanes in one store, or the first alone.  The sweep reads the
  // twiddles back two at a time, right after: a pair load that spans two
  // scalar stores still in flight cannot be forwarded from them and waits
  // for both to reach the cache.
  [[gnu::always_inline]] static void put(double* p, Pair v, bool both) {
    if (both)
      store(p, v);
    else
      *p = v[0];
  }
};

using Column = const double (*)[kColumns];

// ---- Complex passes: decimation in frequency, twiddles after --------------

// Twiddles of neighbouring indices from a chunk.  The chunk is written a
// pair at a time, and at short lengths read back at once: a four-lane load
// spanning two pair stores still in flight cannot be forwarded from them
// and waits for both to reach the cache, so four lanes are read as two
// pairs.
template <class T>
[[gnu::always_inline]] inline T load_twiddle(const double* p) {
  if constexpr (std::is_same_v<T, Quad>) {
    const Pair lo = load<Pair>(p), hi = load<Pair>(p + 2);
    return __builtin_shufflevector(lo, hi, 0, 1, 2, 3);
  } else if constexpr (std::is_same_v<T, Octet>) {
    return Octet{load_twiddle<Quad>(p), load_twiddle<Quad>(p + 4)};
  } else {
    return load<T>(p);
  }
}

// The division of the results by d, as the public routines state it: by
// the reciprocal when d is a power of two, whose reciprocal is exact, so
// that x*(1/d) is the very quotient x/d; otherwise a true division.
// A power of two has no mantissa bits (d is a length or its square root,
// normal and positive), and then 1/d is exact.
inline bool exact_reciprocal(double d) {
  return (std::bit_cast<std::uint64_t>(d) & ((std::uint64_t{1} << 52) - 1)) == 0;
}

struct Divisor {
  double d, r;
  bool by_reciprocal;
  explicit Divisor(double divisor)
      : d(divisor), r(1.0 / divisor), by_reciprocal(exact_reciprocal(divisor)) {}
  template <class T>
  [[gnu::always_inline]] T operator()(T v) const {
    return by_reciprocal ? v * r : v / d;
  }
};

// v with its last lane replaced by -0 (see the real pass's middle index).
template <class T>
[[gnu::always_inline]] inline T zero_last(T v) {
  if constexpr (std::is_same_v<T, Quad>)
    return __builtin_shufflevector(v, splat<T>(-0.0), 0, 1, 2, 7);
  else
    return __builtin_shufflevector(v, splat<T>(-0.0), 0, 3);
}

// v with its lane 0 taken from first.
template <class T>
[[gnu::always_inline]] inline T keep_first(T v, T first) {
  if constexpr (std::is_same_v<T, Quad>)
    return __builtin_shufflevector(v, first, 4, 1, 2, 3);
  else if constexpr (std::is_same_v<T, Pair>)
    return __builtin_shufflevector(v, first, 2, 1);
  else
    return first;
}

// The butterfly at offset o (and o+gap when T is a Pair: o+1 for two
// neighbouring indices, the next group's offset for the same index of two
// groups), its twiddles in column i of wr, wi (the same column for both
// lanes when they are two groups); null tables for the trivial twiddle at
// k = 0, which costs no multiplication.  A trivial butterfly of the last
// pass (m = 1) may divide its results by div: every element passes through
// that pass once, and the divider then works beside the adders instead of
// in a sweep of its own, where its throughput set the pace (a fifth of the
// transform of 720).  With PlainFirst, lane 0 is the butterfly of index 0
// sharing a vector with its neighbours: its results are stored as they
// are, the product with its trivial twiddle computed alongside and
// discarded (an infinite or signed-zero value would not survive it).
template <class T, class D, bool PlainFirst = false>
[[gnu::always_inline]] inline void complex_butterfly(const D& dft, Integer m, double* x, double* y,
                                                     Integer o, Column wr, Column wi, Integer i,
                                                     Integer gap = 1,
                                                     const Divisor* div = nullptr) {
  constexpr int F = D::f;
  T re[F], im[F];
  for (int l = 0; l < F; ++l) {
    re[l] = load<T>(x + o + l * m, gap);
    im[l] = load<T>(y + o + l * m, gap);
  }
  dft(re, im);
  if (div)
    for (int q = 0; q < F; ++q) {
      re[q] = (*div)(re[q]);
      im[q] = (*div)(im[q]);
    }
  store(x + o, gap, re[0]);
  store(y + o, gap, im[0]);
  for (int q = 1; q < F; ++q) {
    const Integer t = o + D::place(q) * m;
    if (wr) {
      const T cr = gap == 1 ? load_twiddle<T>(&wr[q][i]) : splat<T>(wr[q][i]);
      const T ci = gap == 1 ? load_twiddle<T>(&wi[q][i]) : splat<T>(wi[q][i]);
      T tr = re[q] * cr - im[q] * ci, ti = re[q] * ci + im[q] * cr;
      if constexpr (PlainFirst) {
        tr = keep_first(tr, re[q]);
        ti = keep_first(ti, im[q]);
      }
      store(x + t, gap, tr);
      store(y + t, gap, ti);
    } else {
      store(x + t, gap, re[q]);
      store(y + t, gap, im[q]);
    }
  }
}

// The four-by-four transpose of the rows r[0..3]; its own inverse.
[[gnu::always_inline]] inline void transpose4(Quad* r) {
  const Quad t0 = __builtin_shufflevector(r[0], r[1], 0, 4, 2, 6);
  const Quad t1 = __builtin_shufflevector(r[0], r[1], 1, 5, 3, 7);
  const Quad t2 = __builtin_shufflevector(r[2], r[3], 0, 4, 2, 6);
  const Quad t3 = __builtin_shufflevector(r[2], r[3], 1, 5, 3, 7);
  r[0] = __builtin_shufflevector(t0, t2, 0, 1, 4, 5);
  r[1] = __builtin_shufflevector(t1, t3, 0, 1, 4, 5);
  r[2] = __builtin_shufflevector(t0, t2, 2, 3, 6, 7);
  r[3] = __builtin_shufflevector(t1, t3, 2, 3, 6, 7);
}

// Between four consecutive groups of f = 2, 4 or 8 elements from p (rows)
// and f four-lane values, value l holding element l of each group (columns).
template <int F>
[[gnu::always_inline]] inline void to_columns(const double* p, Quad* v) {
  if constexpr (F == 2) {
    const Quad a = load<Quad>(p), b = load<Quad>(p + 4);
    v[0] = __builtin_shufflevector(a, b, 0, 2, 4, 6);
    v[1] = __builtin_shufflevector(a, b, 1, 3, 5, 7);
  } else {
    for (int c = 0; c < F; c += 4) {
      for (int j = 0; j < 4; ++j) v[c + j] = load<Quad>(p + j * F + c);
      transpose4(v + c);
    }
  }
}
template <int F>
[[gnu::always_inline]] inline void to_rows(double* p, Quad* v) {
  if constexpr (F == 2) {
    store(p, __builtin_shufflevector(v[0], v[1], 0, 4, 1, 5));
    store(p + 4, __builtin_shufflevector(v[0], v[1], 2, 6, 3, 7));
  } else {
    for (int c = 0; c < F; c += 4) {
      transpose4(v + c);
      for (int j = 0; j < 4; ++j) store(p + j * F + c, v[c + j]);
    }
  }
}

// The trivial butterflies of four consecutive groups of the last pass
// (m = 1) from g, for radices 2, 4 and 8.  Each group is f contiguous
// elements, so taking one element of four groups per lane costs a scalar
// load and store per element; transposed in registers, they come and go in
// whole four-lane rows (a tenth off the whole transform at 4096 and 2^16).
template <class D>
[[gnu::always_inline]] inline void last_four_groups(const D& dft, double* x, double* y, Integer g,
                                                    const Divisor* div) {
  constexpr int F = D::f;
  Quad re[F], im[F], out_re[F], out_im[F];
  to_columns<F>(x + g, re);
  to_columns<F>(y + g, im);
  dft(re, im);
  for (int q = 0; q < F; ++q) {
    out_re[D::place(q)] = div ? (*div)(re[q]) : re[q];
    out_im[D::place(q)] = div ? (*div)(im[q]) : im[q];
  }
  to_rows<F>(x + g, out_re);
  to_rows<F>(y + g, out_im);
}

// Wide is the widest value type that the pass runs on neighbouring indices:
// Pair, or Quad in the copy compiled for AVX2.
template <class Wide, class D>
[[gnu::always_inline]] inline void complex_pass(const D& dft, Integer n, Integer m, double* x,
                                                double* y, const Divisor* div) {
  constexpr int F = D::f;
  constexpr Integer wide = sizeof(Wide) / sizeof(double);
  using Eight = std::conditional_t<wide == 2, Line, Octet>;
  const Integer fm = F * m;
  double rc[F], rs[F];
  roots(F, rc, rs);
  Chunk<F> c(m);

  // The butterflies of len consecutive indices from o, four (AVX2) or two
  // at a time, in one group or (groups = 2) in it and the next.  When the span is a
  // multiple of 512 the rows of a butterfly lie a multiple of
  // 4 KiB apart, so all 2f of its lines of x and y share one set of the
  // first-level cache, more than its ways: each pair of indices then
  // reloaded every line.  Eight indices at a time use each line whole once
  // it is in; the values that do not fit the registers go to the stack,
  // whose lines fall in other sets.  That took a fifth off 2^16 (and
  // again a tenth in the AVX2 copy, where the eight are an Octet).  Only the
  // radix 8 of the long powers of two needs it; compiled into the other
  // radices' passes too it cost them through worse inlining.  An odd index
  // left over in two groups runs as one pair across them: at small spans
  // (m = 2, the index 1 alone) that is every twiddled butterfly of the pass.
  // from_zero: the run starts at index 0, whose twiddle is not applied.
  auto run = [&](Integer o, Integer len, Column wr, Column wi, Integer i, int groups,
                 bool from_zero = false) __attribute__((always_inline)) {
    for (int h = 0; h < groups; ++h) {
      const Integer oh = o + h * fm;
      Integer a = 0;
      if (from_zero) {  // len = m >= 2
        if (wide > 2 && len >= wide) {
          complex_butterfly<Wide, D, true>(dft, m, x, y, oh, wr, wi, i);
          a = wide;
        } else {
          complex_butterfly<Pair, D, true>(dft, m, x, y, oh, wr, wi, i);
          a = 2;
        }
      }
      if constexpr (F == 8)
        if (m % 512 == 0)
          for (; a + 8 <= len; a += 8) complex_butterfly<Eight>(dft, m, x, y, oh + a, wr, wi, i + a);
      if constexpr (wide > 2)
        for (; a + wide <= len; a += wide)
          complex_butterfly<Wide>(dft, m, x, y, oh + a, wr, wi, i + a);
      for (; a + 2 <= len; a += 2) complex_butterfly<Pair>(dft, m, x, y, oh + a, wr, wi, i + a);
    }
    if (len % 2 == 0) return;
    if (groups == 2)
      complex_butterfly<Pair>(dft, m, x, y, o + len - 1, wr, wi, i + len - 1, fm);
    else
      complex_butterfly<double>(dft, m, x, y, o + len - 1, wr, wi, i + len - 1);
  };
  auto rest = [&](Integer g, Integer k0, int groups) __attribute__((always_inline)) {
    if (c.whole) return run(g, m, c.wr, c.wi, 0, groups, true);
    if (c.end <= k0) return;  // m = 1: the trivial butterfly alone
    run(g + k0, c.end - k0, c.wr, c.wi, k0 - c.first, groups);
    run(g + m + 1 - c.pair_end, c.pair_end - k0, c.pr, c.pi, 0, groups);
  };

  for (Integer first = 0; 2 * first <= m; first += kChunk) {
    c.fill(first, m, rc, rs);
    const Integer k0 = std::max<Integer>(first, 1);
    Integer g = 0;
    if constexpr (wide == 4 && (F == 2 || F % 4 == 0))
      if (m == 1)
        for (; g + 4 * F <= n; g += 4 * F) last_four_groups(dft, x, y, g, div);
    // The trivial butterflies of two groups side by side: in the last pass,
    // where m = 1, they are the whole pass.
    for (; g + fm < n; g += 2 * fm) {
      if (first == 0 && !c.whole)
        complex_butterfly<Pair>(dft, m, x, y, g, nullptr, nullptr, 0, fm, div);
      rest(g, k0, 2);
    }
    for (; g < n; g += fm) {
      if (first == 0 && !c.whole)
        complex_butterfly<double>(dft, m, x, y, g, nullptr, nullptr, 0, 1, div);
      rest(g, k0, 1);
    }
  }
}

// ---- Real passes: decimation in time, twiddles before ---------------------
// The per-index steps of the real and Hermitian passes are lambdas forced
// inline for the same reason as the butterflies: left to itself the
// compiler calls them out of line, and their f values go through memory.
// The f blocks of length m of a group hold transforms Z(l) in the Hermitian
// layout (block l at place(l)); they become one block of length f*m,
// Y(k + q*m) = sum_l exp(-i*2*pi*l*k/(f*m)) Z(l)(k) exp(-i*2*pi*l*q/f).

// What a real pass does to each value before it stores it: nothing in the
// passes before the last (Unscaled), and in the last the final division by
// sqrt(n), through the Divisor that the complex passes use too.
// Done there, the divisions overlap the butterflies' arithmetic instead of
// taking a sweep of their own, in which the divider alone set the pace (a
// ninth of a transform of 720).  A value divided before its store is the
// value divided after it, so the result is the same to the bit.
struct Unscaled {
  template <class T>
  [[gnu::always_inline]] T operator()(T v) const { return v; }
};

// The first pass (m = 1): every group is f consecutive real values whose
// DFT stays in place in the Hermitian layout.  Two groups at a time, with
// offsets fixed at compile time: the general pass, with the span and the
// lane gap known only at run time, spent more instructions on addresses
// than on the transform.
//
// With a gather, the groups' inputs come from the data in their original
// order (see Gather), and the reordering is never done in place.
template <class D, class S, class Group>
[[gnu::always_inline]] inline void real_first_groups(const D& dft, Integer n, double* x, S sc,
                                                     Group group) {
  constexpr int F = D::f;
  Integer g = 0;
  for (; g + 2 * F <= n; g += 2 * F) {
    const auto a = group(g), b = group(g + F);
    double* p = x + g;
    Pair v[F];
    for (int l = 0; l < F; ++l) v[l] = Pair{a(l), b(l)};
    dft.real(v);
    // Outputs q and q+1 of each group are neighbours: one shuffle per
    // store halves the stores, which set the pace of this pass.
    int q = 0;
    for (; q + 2 <= F; q += 2) {
      const Pair w0 = sc(v[q]), w1 = sc(v[q + 1]);
      store(p + q, __builtin_shufflevector(w0, w1, 0, 2));
      store(p + F + q, __builtin_shufflevector(w0, w1, 1, 3));
    }
    if (q < F) {
      const Pair w = sc(v[q]);
      p[q] = w[0];
      p[F + q] = w[1];
    }
  }
  if (g < n) {
    const auto a = group(g);
    double v[F];
    for (int l = 0; l < F; ++l) v[l] = a(l);
    dft.real(v);
    for (int q = 0; q < F; ++q) x[g + q] = sc(v[q]);
  }
}

template <class D, class S>
void real_first_pass(const D& dft, Integer n, double* x, S sc, const Gather* gather) {
  constexpr int F = D::f;
  if (!gather) {
    // In place: input l of the group at g is x[g + place(l)], an offset
    // fixed at compile time.
    return real_first_groups(dft, n, x, sc, [x](Integer g) __attribute__((always_inline)) {
      return [p = x + g](int l) __attribute__((always_inline)) { return p[D::place(l)]; };
    });
  }
  Integer off[F];
  for (int l = 0; l < F; ++l) off[l] = gather->off[D::place(l)];
  const Integer* base = gather->base;  // the groups come in order
  real_first_groups(dft, n, x, sc, [&](Integer) __attribute__((always_inline)) {
    return [p = gather->from + *base++, &off](int l) __attribute__((always_inline)) { return p[off[l]]; };
  });
}

// The cosines and sines of the angles of the chunks' first indices first,
// first + kChunk, ..., count of them, at base[2j] and base[2j+1].  Made in
// one loop of independent evaluations ahead of the chunks, they overlap
// one another; made one per chunk, each series was a chain of dependent
// products that the butterflies after it waited on, which was two fifths
// of a last pass with a long span (radix 2 at 1024).
inline constexpr Integer kBases = 32;

[[gnu::always_inline]] inline void chunk_bases(Integer first, Integer fm, Integer count, double* base) {
  for (Integer j = 0; j < count; j += 2) {
    Pair s, c;
    angle_sin_cos(first + j * kChunk, fm, s, c, kChunk);
    base[2 * j] = c[0];
    base[2 * j + 1] = s[0];
    base[2 * j + 2] = c[1];
    base[2 * j + 3] = s[1];
  }
}

// A chunk's twiddles for a real pass, which needs no partners: as
// Chunk::fill, from the base made ahead (see chunk_bases), W lanes at a
// time while four indices remain, so that the AVX2 copy of the pass makes
// its twiddles as wide as it uses them; the values are the same.
template <class W, int F>
[[gnu::always_inline]] inline void fill_real(Chunk<F>& c, Integer start, Integer m, const double* base) {
  c.first = start;
  c.end = std::min<Integer>(start + kChunk, m / 2 + 1);
  c.pair_end = std::min<Integer>(c.end, (m + 1) / 2);
  const double bc = start > 0 ? base[0] : 1.0, bs = start > 0 ? base[1] : 0.0;  // unmade at 0
  auto some = [&](auto lanes, Integer k, bool all) __attribute__((always_inline)) {
    using T = decltype(lanes);
    const Integer i = k - start;
    T w_r[F], w_i[F];
    offset_powers<F>(load<T>(c.oc + i), load<T>(c.os + i), bc, bs, start > 0, w_r, w_i);
    for (int q = 1; q < F; ++q) {
      if constexpr (sizeof(T) > sizeof(Pair)) {
        store(&c.wr[q][i], w_r[q]);
        store(&c.wi[q][i], w_i[q]);
      } else {
        Chunk<F>::put(&c.wr[q][i], w_r[q], all);
        Chunk<F>::put(&c.wi[q][i], w_i[q], all);
      }
    }
  };
  Integer k = std::max<Integer>(start, 1);
  if constexpr (sizeof(W) > sizeof(Pair))
    for (; k + 4 <= c.end; k += 4) some(W{}, k, true);
  for (; k < c.end; k += 2) some(Pair{}, k, k + 1 < c.end);
}

// Where a real pass finds the elements of its groups.  In place: element j
// at x[j], the lanes of a vector gap apart (gap 1: neighbouring indices,
// read downwards for the partners m-k).  Transposed: four groups at a time
// copied to the stack, element j of group h at b[4j + h], so that one
// four-lane load takes index j of all four; the lanes are groups, as with
// a gap other than 1.
struct InPlace {
  double* x;
  template <class T>
  [[gnu::always_inline]] T get(Integer j, Integer gap) const { return load<T>(x + j, gap); }
  template <class T>
  [[gnu::always_inline]] T get_down(Integer j, Integer gap) const {
    return gap == 1 ? load_down<T>(x + j) : load<T>(x + j, gap);
  }
  template <class T>
  [[gnu::always_inline]] void put(Integer j, Integer gap, T v) const { store(x + j, gap, v); }
  template <class T>
  [[gnu::always_inline]] void put_down(Integer j, Integer gap, T v) const {
    if (gap == 1)
      store_down(x + j, v);
    else
      store(x + j, gap, v);
  }
};

struct Transposed {
  double* b;
  template <class T>
  [[gnu::always_inline]] T get(Integer j, Integer) const { return load<T>(b + 4 * j); }
  template <class T>
  [[gnu::always_inline]] T get_down(Integer j, Integer gap) const { return get<T>(j, gap); }
  template <class T>
  [[gnu::always_inline]] void put(Integer j, Integer, T v) const { store(b + 4 * j, v); }
  template <class T>
  [[gnu::always_inline]] void put_down(Integer j, Integer gap, T v) const { put(j, gap, v); }
};

// The largest odd span whose radix-4 and radix-8 passes run four groups at
// a time transposed (see real_pass_body).
inline constexpr Integer kTransposedSpan = 7;

// W is the widest vector that the inner indices of one group run on: Pair,
// or Quad in the copy compiled for AVX2 (passes_four.cpp).  Four
// neighbouring indices per butterfly halve the instructions of the long
// spans, where those butterflies are most of the work; each lane still does
// the scalar arithmetic, so the results are the same either way.
template <class W, class D, class S>
[[gnu::always_inline]] inline void real_pass_body(const D& dft, Integer n, Integer m, double* x, S sc,
                                                  const Gather* gather) {
  constexpr int F = D::f;
  if (m == 1) return real_first_pass(dft, n, x, sc, gather);
  const Integer fm = F * m;
  Chunk<F> c(m);

  // k = 0: the blocks' first elements are real; Y(q*m) is Hermitian in q.
  // T = Pair does the groups g and g+f*m, which in the first pass, where
  // m = 1, is the whole pass.
  const InPlace in_place{x};
  auto first_index = [&](const auto& at, auto lanes, Integer g) __attribute__((always_inline)) {
    using T = decltype(lanes);
    T v[F];
    for (int l = 0; l < F; ++l) v[l] = at.template get<T>(g + D::place(l) * m, fm);
    dft.real(v);
    for (int q = 0; q < F; ++q) at.put(g + q * m, fm, sc(v[q]));
  };

  // 0 < k < m/2: Y(k + q*m) lies in the stored half when 2q < f, else its
  // conjugate is stored at f*m - (k + q*m).  T = Pair does k and k+1 of
  // one group (gap 1; a Quad k to k+3), or index k of the groups g and
  // g+f*m (gap f*m), which then share its twiddles; the partner elements
  // m-k fall as k rises only in the first case.
  //
  // With_middle: the last lane of a gap-1 vector is k = m/2, the middle
  // index, whose inputs are real.  Its imaginary parts, which would be read
  // from the element itself, are taken as -0 instead: a twiddle's sine part
  // is negative there, so a*c - (-0)*s is exactly a*c, the middle's own
  // product, and a*s + (-0)*c is a*s but for the sign of a zero.  Its
  // outputs q and f-1-q share slots; the stores below write
  // the upper half first, and in the one slot of q = (f-1)/2 (f odd) the
  // real part last, so the lower half's values, the middle's, stay.  Other
  // lanes' slots are all distinct, so the order costs them nothing.  The
  // indices below the middle then fill whole vectors where they left one
  // index and the middle to a butterfly each (at m = 8, two butterflies of
  // radix 8 in place of four).
  auto inner_index = [&]<class WithMiddle = std::false_type>(
                         const auto& at, auto lanes, Integer g, Integer k, Integer i,
                         Integer gap = 1, WithMiddle = {}) __attribute__((always_inline)) {
    using T = decltype(lanes);
    auto real_last = [](T v) __attribute__((always_inline)) {
      if constexpr (WithMiddle::value)
        return zero_last(v);
      else
        return v;
    };
    auto twiddle = [&](const double* w) __attribute__((always_inline)) {
      return gap == 1 ? load<T>(w) : splat<T>(*w);
    };
    T zr[F], zi[F];
    zr[0] = at.template get<T>(g + k, gap);
    zi[0] = real_last(at.template get_down<T>(g + m - k, gap));
    for (int l = 1; l < F; ++l) {
      const Integer b = g + D::place(l) * m;
      const T a = at.template get<T>(b + k, gap), d = real_last(at.template get_down<T>(b + m - k, gap));
      const T cr = twiddle(&c.wr[l][i]), ci = twiddle(&c.wi[l][i]);
      zr[l] = a * cr - d * ci;
      zi[l] = a * ci + d * cr;
    }
    dft(zr, zi);
    for (int q = (F + 1) / 2; q < F; ++q) {
      const Integer kk = k + q * m;
      at.put_down(g + fm - kk, gap, sc(zr[q]));
      at.put(g + kk, gap, sc(-zi[q]));
    }
    for (int q = 0; 2 * q < F; ++q) {
      const Integer kk = k + q * m;
      at.put_down(g + fm - kk, gap, sc(zi[q]));
      at.put(g + kk, gap, sc(zr[q]));
    }
  };

  // k = m/2: real inputs; outputs q and f-1-q are conjugates.  T = Pair
  // does the groups g and g+f*m.
  auto middle_index = [&](auto lanes, Integer g, Integer k, Integer i) __attribute__((always_inline)) {
    using T = decltype(lanes);
    T re[F], im[F];
    re[0] = load<T>(x + g + k, fm);
    im[0] = T{};
    for (int l = 1; l < F; ++l) {
      const T a = load<T>(x + g + D::place(l) * m + k, fm);
      re[l] = a * splat<T>(c.wr[l][i]);
      im[l] = a * splat<T>(c.wi[l][i]);
    }
    dft(re, im);
    for (int q = 0; 2 * q + 1 < F; ++q) {
      const Integer kk = k + q * m;
      store(x + g + kk, fm, sc(re[q]));
      store(x + g + fm - kk, fm, sc(im[q]));
    }
    if (F % 2 == 1) store(x + g + fm / 2, fm, sc(re[F / 2]));
  };

  double base[2 * kBases + 2];  // one spare pair: count may be odd
  for (Integer first = 0; 2 * first <= m; first += kChunk) {
    const Integer b = first / kChunk % kBases, chunks_left = (m / 2 - first) / kChunk + 1;
    // A single chunk (first = 0) needs no base.
    if (b == 0 && (first > 0 || chunks_left > 1)) chunk_bases(first, F * m, std::min(kBases, chunks_left), base);
    fill_real<W>(c, first, m, base + 2 * b);
    bool middle = m % 2 == 0 && c.end == m / 2 + 1;  // k = m/2 falls in this chunk
    const Integer k0 = std::max<Integer>(first, 1);
    // Three indices over a multiple of four below the middle: the middle
    // joins the last of them (see inner_index), which the four-lane copy
    // then does in one vector, and no index is left over.  With one over,
    // joining would turn the middle, whose inputs are real and which runs
    // two groups at once, into a full butterfly per group (720 and 1000,
    // whose passes with m = 12 and 20 have one over, were 5% slower so).
    // Both copies decide alike, so they give the same bits.
    const bool joined = middle && (m / 2 - k0) % 4 == 3;
    middle = middle && !joined;
    const Integer pairs_end = joined ? m / 2 : k0 + (c.pair_end - k0) / 2 * 2;  // k0 <= pair_end
    // The index pairs of group g; the odd index left over and the middle
    // one, unless joined, run once for two groups, side by side, as in the
    // complex pass: at small spans (m = 2 to 8) they are most of a group.
    auto pairs = [&](Integer g) __attribute__((always_inline)) {
      Integer k = k0;
      if constexpr (sizeof(W) > sizeof(Pair)) {
        for (; k + 4 <= pairs_end; k += 4) inner_index(in_place, W{}, g, k, k - first);
        if (joined && k + 3 == pairs_end)
          return inner_index(in_place, W{}, g, k, k - first, 1, std::true_type{});
      }
      for (; k + 2 <= pairs_end; k += 2) inner_index(in_place, Pair{}, g, k, k - first);
      if (joined) inner_index(in_place, Pair{}, g, k, k - first, 1, std::true_type{});
    };
    const bool left_over = !joined && pairs_end < c.pair_end;
    Integer g = 0;
    // The last pass, the one that divides, has a single group (f*m = n), so
    // its loop over two groups at once never runs.  Left in, that loop's
    // invariants were made ahead of every chunk all the same: three hundred
    // instructions, a tenth of the transform of 64.
    if constexpr (!std::is_same_v<S, Divisor>) {
      // An odd span of radix 4 or 8 (m = 3 in 720, 5 in 1000) has no
      // neighbouring indices to fill a vector: every butterfly would load
      // and store its lanes one by one across groups.  Four groups
      // transposed on the stack instead come and go in whole rows, and
      // every index of them, 0 included, is one four-lane butterfly.
      if constexpr (sizeof(W) > sizeof(Pair) && F % 4 == 0)
        if (m % 2 == 1 && m <= kTransposedSpan)
          for (; g + 4 * fm <= n; g += 4 * fm) {
            Quad b[F * kTransposedSpan];
            const Transposed t{reinterpret_cast<double*>(b)};
            for (Integer j = 0; j < fm; j += 4) {
              Quad r[4];
              for (int h = 0; h < 4; ++h) r[h] = load<Quad>(x + g + h * fm + j);
              transpose4(r);
              std::copy_n(r, 4, b + j);
            }
            first_index(t, Quad{}, 0);
            for (Integer k = 1; 2 * k < m; ++k) inner_index(t, Quad{}, 0, k, k, fm);
            for (Integer j = 0; j < fm; j += 4) {
              Quad r[4];
              std::copy_n(b + j, 4, r);
              transpose4(r);
              for (int h = 0; h < 4; ++h) store(x + g + h * fm + j, r[h]);
            }
          }
      for (; g + fm < n; g += 2 * fm) {
        if (first == 0) first_index(in_place, Pair{}, g);
        pairs(g);
        pairs(g + fm);
        if (left_over) inner_index(in_place, Pair{}, g, pairs_end, pairs_end - first, fm);
        if (middle) middle_index(Pair{}, g, m / 2, m / 2 - first);
      }
    }
    for (; g < n; g += fm) {
      if (first == 0) first_index(in_place, 0.0, g);
      pairs(g);
      if (left_over) inner_index(in_place, 0.0, g, pairs_end, pairs_end - first);
      if (middle) middle_index(0.0, g, m / 2, m / 2 - first);
    }
  }
}

// Calls fn with the butterfly of radix f.
template <class Fn>
void with_radix(Integer f, Fn&& fn) {
  switch (f) {
    case 2: fn(Dft2{}); break;
    case 3: fn(Dft3{}); break;
    case 4: fn(Dft4{}); break;
    case 5: fn(Dft5{}); break;
    case 8: fn(Dft8{}); break;
    case 7: fn(DftOdd<7>{}); break;
    case 11: fn(DftOdd<11>{}); break;
    case 13: fn(DftOdd<13>{}); break;
    case 17: fn(DftOdd<17>{}); break;
    case 19: fn(DftOdd<19>{}); break;
    default: break;  // 1: a hole left by merging the 2s
  }
}

// One real pass of one radix and one scaling, kept out of line (see
// complex_pass_of).
template <class W, class D, class S>
[[gnu::noinline]] void real_pass_of(const D& dft, Integer n, Integer m, double* x, S sc,
                                    const Gather* gather) {
  real_pass_body<W>(dft, n, m, x, sc, gather);
}

// The passes of a real transform whose input is in reversed digit order,
// or is read so by the first pass through gather, the last dividing by d.
template <class W>
void real_passes(Integer n, const Integer* stage, double* x, double d, const Gather* gather) {
  Integer m = 1;
  for (const Integer* f = stage; *f != 0; ++f) {
    const bool last = m * *f == n;
    with_radix(*f, [&](const auto& dft) {
      auto pass = [&](auto sc) { real_pass_of<W>(dft, n, m, x, sc, gather); };
      if (last)
        pass(Divisor(d));
      else
        pass(Unscaled{});
    });
    m *= *f;
  }
}

// Group lengths (elements of each array) below which the remaining complex
// passes run block by block: a block of x and y that fits the second-level
// cache (2 MiB here).  Each pass is a sweep over the whole array; once a
// group fits the cache, the passes that follow work inside it, so running
// them all on one block before the next spares a trip to the third-level
// cache per pass (at 2^20, five of the seven passes; a tenth off the
// time).  The twiddle chunks are then made once per block rather than once
// per pass, which a block of several groups keeps a small share of the
// work.  A second level for the first-level cache measured no gain.
inline constexpr Integer kBlock[] = {1 << 16};

// One pass of one radix, kept out of line: the stage loop below would
// otherwise inline every radix into one function too large to optimise.
template <class Wide, class D>
[[gnu::noinline]] void complex_pass_of(const D& dft, Integer n, Integer m, double* x, double* y,
                                     const Divisor* div) {
  complex_pass<Wide>(dft, n, m, x, y, div);
}

// The passes from stage f on, over n elements with the span m; the last
// pass divides by div.
template <class Wide>
void complex_passes(const Integer* f, Integer n, Integer m, double* x, double* y,
                    const Divisor& div, int level = 0) {
  constexpr int levels = static_cast<int>(std::size(kBlock));
  while (level < levels && n <= kBlock[level]) ++level;  // the whole array fits already
  for (; *f != 0; ++f) {
    if (*f == 1) continue;
    if (level < levels && m <= kBlock[level]) {
      // m is the group length of this pass: widen the block by whole groups
      // while it still divides n and fits.
      Integer block = m;
      while (block * 2 <= kBlock[level] && n % (block * 2) == 0) block *= 2;
      for (Integer b = 0; b < n; b += block)
        complex_passes<Wide>(f, block, m, x + b, y + b, div, level + 1);
      return;
    }
    m /= *f;
    const Divisor* last = m == 1 ? &div : nullptr;
    with_radix(*f, [&](const auto& dft) { complex_pass_of<Wide>(dft, n, m, x, y, last); });
  }
}

// ---- Short lengths ---------------------------------------------------------
// The powers of two up to kShortMost run copies of the passes compiled for
// their length: the stage list, the gather's tables, the reordering's
// swaps, every span and every loop bound are then constants, and each pass
// is laid out straight.  With all of them known only at run time, the
// general passes spent more on addresses, dispatch, factor lists and
// tables than on the transform at 64 (about half of the real transform's
// 3000 instructions, and the reordering alone was 1100 of the complex
// one's 3800).  The arithmetic is the general passes', so the results are
// the same to the bit.
inline constexpr Integer kShortMost = 64;
using ShortLengths = std::integer_sequence<Integer, 2, 4, 8, 16, 32, kShortMost>;

template <Integer N>
struct Short {
  static_assert(std::has_single_bit(static_cast<unsigned>(N)) && N <= kShortMost);
  static constexpr Factors fac = [] {
    Factors f{};
    factorise(N, f);
    return f;
  }();
  static constexpr std::size_t stages = std::find(fac.stage, fac.stage + kListSize, 0) - fac.stage;
  // span[i]: the product of the radices before stage i.
  static constexpr auto span = [] {
    std::array<Integer, kListSize> m{};
    for (std::size_t i = 0, p = 1; i < stages; p *= fac.stage[i], ++i) m[i] = static_cast<Integer>(p);
    return m;
  }();
  // The pairs p < rev(p) that the complex transform's reordering swaps,
  // rev being the digit reversal of the digit list (empty at n = 2, which
  // needs no reordering).
  static constexpr auto swaps = [] {
    struct {
      std::array<std::array<std::uint8_t, 2>, N / 2> pair{};
      std::size_t count = 0;
    } list;
    const int digits = static_cast<int>(std::find(fac.digit, fac.digit + kListSize, 0) - fac.digit);
    if (digits == 0) return list;
    Integer rev[N] = {}, weight[kListSize] = {};
    for (Integer w = 1, i = digits; i-- > 0; w *= fac.digit[i]) weight[i] = w;
    digit_table(rev, fac.digit, weight, digits);
    for (Integer p = 0; p < N; ++p)
      if (p < rev[p])
        list.pair[list.count++] = {static_cast<std::uint8_t>(p), static_cast<std::uint8_t>(rev[p])};
    return list;
  }();

  // Calls fn(span, dft) for each pass, in stage order, span being the
  // product of the radices before it as a constant: the span of the real
  // passes, which rise from 1.
  template <class Fn>
  [[gnu::always_inline]] static void each_pass(Fn&& fn) {
    [&]<std::size_t... I>(std::index_sequence<I...>) {
      (pass<I>(fn), ...);
    }(std::make_index_sequence<stages>{});
  }
  template <std::size_t I, class Fn>
  [[gnu::always_inline]] static void pass(Fn& fn) {
    constexpr Integer f = fac.stage[I];
    if constexpr (f == 2)
      fn(std::integral_constant<Integer, span[I]>{}, Dft2{});
    else if constexpr (f == 4)
      fn(std::integral_constant<Integer, span[I]>{}, Dft4{});
    else if constexpr (f == 8)
      fn(std::integral_constant<Integer, span[I]>{}, Dft8{});
  }
};

template <class W, Integer N>
void real_passes_fixed(double* x, double d) {
  using S = Short<N>;
  static constexpr GatherTables<N> tables(S::fac.stage);
  double copy[N];
  std::copy_n(x, N, copy);
  const Gather gather = tables.over(copy);
  S::each_pass([&](auto span, const auto& dft) __attribute__((always_inline)) {
    constexpr Integer m = span;
    if constexpr (m * std::decay_t<decltype(dft)>::f == N)
      real_pass_body<W>(dft, N, m, x, Divisor(d), &gather);
    else
      real_pass_body<W>(dft, N, m, x, Unscaled{}, &gather);
  });
}

// The complex passes run with the span falling from n: the span after the
// pass at stage i is n over the product up to and including it.
template <class W, Integer N>
void complex_passes_fixed(double* x, double* y, double divisor) {
  using S = Short<N>;
  const Divisor div(divisor);
  S::each_pass([&](auto span, const auto& dft) __attribute__((always_inline)) {
    constexpr Integer f = std::decay_t<decltype(dft)>::f, m = N / (span * f);
    complex_pass<W>(dft, N, m, x, y, m == 1 ? &div : nullptr);
  });
  for (std::size_t i = 0; i < S::swaps.count; ++i) {
    const auto [a, b] = S::swaps.pair[i];
    std::swap(x[a], x[b]);
    std::swap(y[a], y[b]);
  }
}

// Run the passes of n with their copy compiled for n, if it has one.
template <class W>
bool real_passes_short(Integer n, double* x, double d) {
  return [&]<Integer... N>(std::integer_sequence<Integer, N...>) {
    return ((n == N && (real_passes_fixed<W, N>(x, d), true)) || ...);
  }(ShortLengths{});
}

template <class W>
bool complex_passes_short(Integer n, double* x, double* y, double divisor) {
  return [&]<Integer... N>(std::integer_sequence<Integer, N...>) {
    return ((n == N && (complex_passes_fixed<W, N>(x, y, divisor), true)) || ...);
  }(ShortLengths{});
}

}  // namespace

// The entry points of one compiled copy of the passes.
struct PassCopy {
  void (*real)(Integer n, const Integer* stage, double* x, double d, const Gather* gather);
  void (*complex)(Integer n, const Integer* stage, double* x, double* y, double divisor);
  bool (*real_short)(Integer n, double* x, double d);
  bool (*complex_short)(Integer n, double* x, double* y, double divisor);
};

namespace {

template <class W>
constexpr PassCopy pass_copy() {
  return {&real_passes<W>,
          [](Integer n, const Integer* stage, double* x, double* y, double divisor) {
            complex_passes<W>(stage, n, n, x, y, Divisor(divisor));
          },
          &real_passes_short<W>, &complex_passes_short<W>};
}

}  // namespace

// The two copies (passes.cpp, passes_four.cpp).
extern const PassCopy kTwoLanes, kFourLanes;

}  // namespace zil::fft
