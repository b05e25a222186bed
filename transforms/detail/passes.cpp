// Mixed-radix passes in the manner of Singleton's in-place transform: the
// real and Hermitian passes keep every intermediate block of length m in the
// Hermitian layout of that length, so a butterfly at index k reads and
// writes the same 2f slots (k and m-k of each block) and needs no complex
// temporaries beyond its own f values.
#include "transforms/detail/passes.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <type_traits>
#include <utility>

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

// sin and cos of two angles in [0, pi/2] at once.  The libm call, one
// angle at a time, cost a quarter of a real transform whose last pass has a
// large span.  An angle above pi/4 is reflected, sin a = cos(pi/2 - a),
// where pi/2 - a is exact by Sterbenz's lemma before the tail of pi/2 is
// added; on [0, pi/4] the Taylor series through degree 17 (sine) and 16
// (cosine) leave a truncation below 1e-19, so the result is within about
// one unit in the last place.
inline void sin_cos(Pair a, Pair& s, Pair& c) {
  constexpr double pio2_hi = 1.5707963267948966, pio2_lo = 6.123233995736766e-17;
  const auto reflect = a > 0.7853981633974483;
  const Pair r = reflect ? (pio2_hi - a) + pio2_lo : a;
  const Pair z = r * r;
  Pair ps = z * inverse_factorial(17) - inverse_factorial(15);
  Pair pc = z * inverse_factorial(16) - inverse_factorial(14);
  for (int j = 6; j >= 1; --j) {
    const double sign = j % 2 ? -1.0 : 1.0;
    ps = z * ps + sign * inverse_factorial(2 * j + 1);
    pc = z * pc + sign * inverse_factorial(2 * j);
  }
  const Pair sr = r + r * z * ps, cr = 1.0 + z * pc;
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

// cos and sin of the angles of indices k and k+1, k*2*pi/fm.
[[gnu::always_inline]] inline void angle_sin_cos(Integer k, Integer fm, Pair& s, Pair& c) {
  const Pair angle = Pair{static_cast<double>(k), static_cast<double>(k + 1)} * kTwoPi / static_cast<double>(fm);
  sin_cos(angle, s, c);
}

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
    for (Integer j = 0; j < offsets && m > 1; j += 2) {
      Pair s, c;
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
bool exact_reciprocal(double d) {
  return (std::bit_cast<std::uint64_t>(d) & ((std::uint64_t{1} << 52) - 1)) == 0;
}

// Whether the passes run in their AVX2 copy.
bool four_lanes(Lanes lanes) {
  return lanes == Lanes::four || (lanes == Lanes::best && __builtin_cpu_supports("avx2"));
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

// What the last real pass does to each value before it stores it: nothing
// in the passes before, and the final division by sqrt(n) in the last one.
// Done there, the divisions overlap the butterflies' arithmetic instead of
// taking a sweep of their own, in which the divider alone set the pace (a
// ninth of a transform of 720).  A value divided before its store is the
// value divided after it, so the result is the same to the bit.
struct Unscaled {
  template <class T>
  [[gnu::always_inline]] T operator()(T v) const { return v; }
};
struct Divided {
  double d;
  template <class T>
  [[gnu::always_inline]] T operator()(T v) const { return v / d; }
};
// d a power of two: 1/d is exact, and the product is the quotient.
struct TimesReciprocal {
  double r;
  template <class T>
  [[gnu::always_inline]] T operator()(T v) const { return v * r; }
};

// The first pass (m = 1): every group is f consecutive real values whose
// DFT stays in place in the Hermitian layout.  Two groups at a time, with
// offsets fixed at compile time: the general pass, with the span and the
// lane gap known only at run time, spent more instructions on addresses
// than on the transform.
template <class D, class S>
void real_first_pass(const D& dft, Integer n, double* x, S sc) {
  constexpr int F = D::f;
  Integer g = 0;
  for (; g + 2 * F <= n; g += 2 * F) {
    double* p = x + g;
    Pair v[F];
    for (int l = 0; l < F; ++l) v[l] = Pair{p[D::place(l)], p[F + D::place(l)]};
    dft.real(v);
    for (int q = 0; q < F; ++q) {
      const Pair w = sc(v[q]);
      p[q] = w[0];
      p[F + q] = w[1];
    }
  }
  if (g < n) {
    double v[F];
    for (int l = 0; l < F; ++l) v[l] = x[g + D::place(l)];
    dft.real(v);
    for (int q = 0; q < F; ++q) x[g + q] = sc(v[q]);
  }
}

// The cosines and sines of the angles of the chunks' first indices first,
// first + kChunk, ..., count of them, at base[2j] and base[2j+1].  Made in
// one loop of independent evaluations ahead of the chunks, they overlap
// one another; made one per chunk, each series was a chain of dependent
// products that the butterflies after it waited on, which was two fifths
// of a last pass with a long span (radix 2 at 1024).  The angle is formed
// as in angle_sin_cos, so the values are the same.
inline constexpr Integer kBases = 32;

[[gnu::always_inline]] inline void chunk_bases(Integer first, Integer fm, Integer count, double* base) {
  for (Integer j = 0; j < count; j += 2) {
    const Integer k = first + j * kChunk;
    const Pair angle = Pair{static_cast<double>(k), static_cast<double>(k + kChunk)} * kTwoPi /
                       static_cast<double>(fm);
    Pair s, c;
    sin_cos(angle, s, c);
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

// W is the widest vector that the inner indices of one group run on: Pair,
// or Quad in the copy compiled for AVX2 (real_pass_avx2).  Four
// neighbouring indices per butterfly halve the instructions of the long
// spans, where those butterflies are most of the work; each lane still does
// the scalar arithmetic, so the results are the same either way.
template <class W, class D, class S>
[[gnu::always_inline]] inline void real_pass_body(const D& dft, Integer n, Integer m, double* x, S sc) {
  constexpr int F = D::f;
  if (m == 1) return real_first_pass(dft, n, x, sc);
  const Integer fm = F * m;
  Chunk<F> c(m);

  // k = 0: the blocks' first elements are real; Y(q*m) is Hermitian in q.
  // T = Pair does the groups g and g+f*m, which in the first pass, where
  // m = 1, is the whole pass.
  auto first_index = [&](auto lanes, Integer g) __attribute__((always_inline)) {
    using T = decltype(lanes);
    T v[F];
    for (int l = 0; l < F; ++l) v[l] = load<T>(x + g + D::place(l) * m, fm);
    dft.real(v);
    for (int q = 0; q < F; ++q) store(x + g + q * m, fm, sc(v[q]));
  };

  // 0 < k < m/2: Y(k + q*m) lies in the stored half when 2q < f, else its
  // conjugate is stored at f*m - (k + q*m).  T = Pair does k and k+1 of
  // one group (gap 1; a Quad k to k+3), or index k of the groups g and
  // g+f*m (gap f*m), which then share its twiddles; the partner elements
  // m-k fall as k rises only in the first case.
  auto inner_index = [&](auto lanes, Integer g, Integer k, Integer i, Integer gap = 1)
                         __attribute__((always_inline)) {
    using T = decltype(lanes);
    auto down = [gap](const double* p) __attribute__((always_inline)) {
      return gap == 1 ? load_down<T>(p) : load<T>(p, gap);
    };
    auto put_down = [gap](double* p, T v) __attribute__((always_inline)) {
      if (gap == 1)
        store_down(p, v);
      else
        store(p, gap, v);
    };
    auto twiddle = [&](const double* w) __attribute__((always_inline)) {
      return gap == 1 ? load<T>(w) : splat<T>(*w);
    };
    T zr[F], zi[F];
    zr[0] = load<T>(x + g + k, gap);
    zi[0] = down(x + g + m - k);
    for (int l = 1; l < F; ++l) {
      const Integer b = g + D::place(l) * m;
      const T a = load<T>(x + b + k, gap), d = down(x + b + m - k);
      const T cr = twiddle(&c.wr[l][i]), ci = twiddle(&c.wi[l][i]);
      zr[l] = a * cr - d * ci;
      zi[l] = a * ci + d * cr;
    }
    dft(zr, zi);
    for (int q = 0; q < F; ++q) {
      const Integer kk = k + q * m;
      if (2 * q < F) {
        store(x + g + kk, gap, sc(zr[q]));
        put_down(x + g + fm - kk, sc(zi[q]));
      } else {
        put_down(x + g + fm - kk, sc(zr[q]));
        store(x + g + kk, gap, sc(-zi[q]));
      }
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
    const bool middle = m % 2 == 0 && c.end == m / 2 + 1;  // k = m/2 falls in this chunk
    const Integer k0 = std::max<Integer>(first, 1);
    const Integer pairs_end = k0 + (c.pair_end - k0) / 2 * 2;  // k0 <= pair_end
    // The index pairs of group g; the odd index left over and the middle
    // one run once for two groups, side by side, as in the complex pass: at
    // small spans (m = 2 to 8) they are most of a group.
    auto pairs = [&](Integer g) __attribute__((always_inline)) {
      Integer k = k0;
      if constexpr (sizeof(W) > sizeof(Pair))
        for (; k + 4 <= pairs_end; k += 4) inner_index(W{}, g, k, k - first);
      for (; k < pairs_end; k += 2) inner_index(Pair{}, g, k, k - first);
    };
    Integer g = 0;
    for (; g + fm < n; g += 2 * fm) {
      if (first == 0) first_index(Pair{}, g);
      pairs(g);
      pairs(g + fm);
      if (pairs_end < c.pair_end) inner_index(Pair{}, g, pairs_end, pairs_end - first, fm);
      if (middle) middle_index(Pair{}, g, m / 2, m / 2 - first);
    }
    for (; g < n; g += fm) {
      if (first == 0) first_index(0.0, g);
      pairs(g);
      if (pairs_end < c.pair_end) inner_index(0.0, g, pairs_end, pairs_end - first);
      if (middle) middle_index(0.0, g, m / 2, m / 2 - first);
    }
  }
}

template <class D, class S>
void real_pass(const D& dft, Integer n, Integer m, double* x, S sc) {
  real_pass_body<Pair>(dft, n, m, x, sc);
}

// No "fma" here: the library rounds every product and sum apart
// (-ffp-contract=off), on every machine alike.
template <class D, class S>
__attribute__((target("avx2"))) void real_pass_avx2(const D& dft, Integer n, Integer m, double* x, S sc) {
  real_pass_body<Quad>(dft, n, m, x, sc);
}

// ---- Hermitian passes: decimation in frequency, twiddles after ------------
// A group of length f*m in the Hermitian layout becomes f blocks of length m
// (block q at place(q)), y(q)(r) = exp(-i*2*pi*r*q/(f*m)) sum_l Z(r + l*m)
// exp(-i*2*pi*l*q/f), each again Hermitian in r.  r = 0 and r = m/2 give
// the real first and middle elements of the blocks.

template <class D>
void hermitian_pass(const D& dft, Integer n, Integer m, double* x) {
  constexpr int F = D::f;
  const Integer fm = F * m;
  double re[F], im[F];
  Chunk<F> c(m);

  // Reads Z(r + l*m) from the group's Hermitian layout.
  auto read_group = [&](Integer g, Integer r) __attribute__((always_inline)) {
    for (int l = 0; l < F; ++l) {
      const Integer kk = r + l * m;
      if (2 * kk < fm) {
        re[l] = x[g + kk];
        im[l] = kk == 0 ? 0.0 : x[g + fm - kk];
      } else if (2 * kk == fm) {
        re[l] = x[g + kk];
        im[l] = 0.0;
      } else {
        re[l] = x[g + fm - kk];
        im[l] = -x[g + kk];
      }
    }
  };

  auto butterfly = [&](Integer g, Integer r) __attribute__((always_inline)) {
    const Integer i = r - c.first;
    read_group(g, r);
    dft(re, im);
    if (r == 0) {
      for (int q = 0; q < F; ++q) x[g + D::place(q) * m] = re[q];
      return;
    }
    const bool middle = 2 * r == m;
    x[g + r] = re[0];
    if (!middle) x[g + m - r] = im[0];
    for (int q = 1; q < F; ++q) {
      const Integer b = g + D::place(q) * m;
      x[b + r] = re[q] * c.wr[q][i] - im[q] * c.wi[q][i];
      if (!middle) x[b + m - r] = re[q] * c.wi[q][i] + im[q] * c.wr[q][i];
    }
  };

  for (Integer first = 0; 2 * first <= m; first += kChunk) {
    c.fill(first, m, nullptr, nullptr);
    for (Integer g = 0; g < n; g += fm)
      for (Integer r = c.first; r < c.end; ++r) butterfly(g, r);
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

// ---- Reordering -----------------------------------------------------------
// The passes leave element k of the result at the index whose digits (with
// respect to the stage list, first pass most significant) are those of k
// read backwards.  Both stages move element p to rev(p).

// The square stage, tiled in the manner of Carter and Gatlin's cache-optimal
// bit reversal (1998): an index is (a, mid, b), with a its leading t digits,
// b its trailing t digits (the same radices in mirror order, product T) and
// mid the rest.  rev takes it to (rb(b), rev(mid), ra(a)), so for one pair
// mid, rev(mid) the T*T elements of rows a, columns b are swapped with the
// T*T elements of rows rb, columns ra: two tiles that stay in the cache,
// where walking the indices in order would touch a new line on every swap
// once n is large.  The list is symmetric, so rev is an involution and each
// pair is swapped once.  At large powers of two the rows lie a multiple of
// 4 KiB apart and so share one set of the first-level cache: tiles of 8 by
// 8 (one line per row) keep the two tiles within its associativity, where
// 16 by 16 measured a fifth slower at 2^16.
inline constexpr long kTile = 8;

template <class Data>
void reorder_squares(const Integer* digit, Data data) {
  int len = 0;
  while (digit[len] != 0) ++len;
  if (len == 0) return;
  int t = 0;
  long tile = 1;
  while (2 * (t + 1) <= len && tile * digit[t] <= kTile) tile *= digit[t++];
  if (t == 0) {  // a leading radix above the tile: one row and column at a time
    t = 1;
    tile = digit[0];
  }
  // ra[a]: the leading digits of a (first most significant) read with the
  // first least significant; rb is its inverse, the map of the trailing part.
  long ra[std::max(kTile, long{kLargestPrime})], rb[std::max(kTile, long{kLargestPrime})];
  // ra is built from the most significant digit down, each digit
  // multiplying its length by its radix (the weight w of digit i in ra(a)
  // being the product of the digits before it): loops of fixed length, where
  // an odometer's carries were branches no predictor could follow.
  ra[0] = 0;
  for (long i = 0, length = 1, w = 1; i < t; w *= digit[i], length *= digit[i], ++i)
    for (long a = length; a-- > 0;) {
      const long high = ra[a];
      for (long d = 0; d < digit[i]; ++d) ra[a * digit[i] + d] = high + d * w;
    }
  for (long a = 0; a < tile; ++a) rb[ra[a]] = a;
  // The middle digits, t to len-t-1, counted by an odometer with rev(mid)
  // kept alongside; weight[i] is the weight of digit i in rev(mid).
  // mids and row = mids * tile as products, not as quotients of the length:
  // the two 64-bit divisions they replace were a tenth of a complex
  // transform of 64.
  long weight[kListSize], mids = 1;
  for (int i = t; i < len - t; ++i) {
    weight[i] = mids;
    mids *= digit[i];
  }
  const long row = mids * tile;
  // The tables above are made once for the arrays moved alike; the walk
  // runs over one array at a time, which spares the complex transform the
  // stalls of interleaved accesses to x and y.
  data.each([&](auto one) {
    long rmid = 0, count[kListSize];
    std::fill(count + t, count + len - t, 0);
    for (long mid = 0; mid < mids; ++mid) {
      if (mid < rmid) {
        const long p0 = mid * tile, q0 = rmid * tile;
        for (long b = 0; b < tile; ++b)
          for (long a = 0; a < tile; ++a) one.swap(a * row + p0 + b, rb[b] * row + q0 + ra[a]);
      } else if (mid == rmid) {
        // In a tile that is its own image, element (a, b) goes to (rb[b],
        // ra[a]), which lies after it exactly when a < rb[b] (a = rb[b] is
        // a fixed point).  Walked by c = rb[b] (b = ra[c]), the pairs to
        // swap are a < c: rows of 1, 2, 3, ... elements, a pattern the
        // branch predictor learns, where rows of rb[b] elements in the
        // order of b cost a mispredicted exit per column, half the
        // reordering of a transform of 64.
        const long p0 = mid * tile;
        for (long c = 1; c < tile; ++c)
          for (long a = 0; a < c; ++a) one.swap(a * row + p0 + ra[c], c * row + p0 + ra[a]);
      }
      for (int i = len - t - 1; i >= t; --i) {
        rmid += weight[i];
        if (++count[i] < digit[i]) break;
        rmid -= digit[i] * weight[i];
        count[i] = 0;
      }
    }
  });
}

// Division of a 32-bit index by a small fixed divisor through one 64-bit
// reciprocal (Lemire, Kaser and Kurz, "Faster remainder by direct
// computation", 2019): exact for every 32-bit numerator and every divisor
// above 1; the divisor 1, whose reciprocal would not fit, is handled apart.
// The cycle walk below evaluates its index map at least once per block, and
// a hardware division per digit would dominate the whole transform.
struct FastDivisor {
  std::uint32_t d = 1;
  std::uint64_t inverse = 0;
  void set(std::uint32_t divisor) {
    d = divisor;
    inverse = UINT64_MAX / divisor + 1;
  }
  std::uint32_t quotient(std::uint32_t a) const {
    if (d == 1) return a;
    return static_cast<std::uint32_t>((static_cast<unsigned __int128>(inverse) * a) >> 64);
  }
};

// Block indices covered by one window of the square-free stage's marks: a
// 4 KiB bitmap on the stack, which covers every block of the lengths up to
// 2^15 blocks in a single window.
inline constexpr std::uint32_t kWindow = 4096 * 8;

// The square-free stage is no involution.  Block t of each segment must
// receive block map(t), map being the inverse reversal, so each cycle
// t -> map(t) -> ... is rotated, once, from its least member,
// its leader.  A bitmap marks the blocks of the current window already
// placed, which are skipped at no cost.  An unmarked block of the first
// window is a leader (every cycle with a smaller leader has been rotated
// and marked); in a later window it may belong to a cycle rotated in an
// earlier one, so its cycle is followed first until it returns (a leader),
// falls below it or meets a mark (already placed).  That bounds the walk by
// the classic cycle-leader method's, and makes it one evaluation of map per
// block whenever the blocks fit one window.
template <class Data>
void reorder_square_free(long n, const Integer* sf, long kt, Data& data) {
  int len = 0;
  while (sf[len] != 0) ++len;
  if (len == 0) return;
  // map(t) sums digit i of t (the first factor least significant) times
  // above_i, the product of the factors after it.  The factors are cut into
  // at most three runs, each with a product of at most kRun, and the part of
  // map that each run's digits contribute is tabled for all its values:
  // map(t) is then at most two divisions and three look-ups, and a single
  // look-up up to kRun blocks.  That matters because the walk along a cycle
  // is one chain of dependent evaluations, so its latency sets the pace.
  // The singles are distinct primes up to 19, so greedy runs under 4096 need
  // at most three parts and 3990 entries in all (2*3*5*7*19).
  constexpr std::uint32_t kRun = 4096;
  std::uint32_t table[kRun];
  std::uint32_t* part[3] = {table, table, table};
  FastDivisor run[3];  // the runs' products; unused runs have product 1 and table entry 0
  std::uint32_t above[kListSize];  // above[q]: the product of the factors after q
  above[len - 1] = 1;
  for (int q = len - 1; q > 0; --q) above[q - 1] = above[q] * static_cast<std::uint32_t>(sf[q]);
  std::uint32_t used = 0;
  for (int i = 0, r = 0; i < len; ++r) {
    std::uint32_t size = 1;
    int j = i;
    while (j < len && size * static_cast<std::uint32_t>(sf[j]) <= kRun)
      size *= static_cast<std::uint32_t>(sf[j++]);
    // The run's table, built from its most significant digit down: each
    // digit multiplies the table's length by its radix.
    part[r] = table + used;
    run[r].set(size);
    std::uint32_t length = 1;
    part[r][0] = 0;
    for (int q = j - 1; q >= i; --q) {
      const std::uint32_t s_q = static_cast<std::uint32_t>(sf[q]);
      for (std::uint32_t a = length; a-- > 0;) {
        const std::uint32_t high = part[r][a];
        for (std::uint32_t d = 0; d < s_q; ++d) part[r][a * s_q + d] = high + d * above[q];
      }
      length *= s_q;
    }
    used += size;
    i = j;
  }
  const std::uint32_t blocks = static_cast<std::uint32_t>(n / (kt * kt));
  const long stride = blocks * kt;
  auto swap_blocks = [&](std::uint32_t a, std::uint32_t b) {
    for (long seg = 0; seg < n; seg += stride)
      for (long e = 0; e < kt; ++e) data.swap(seg + a * kt + e, seg + b * kt + e);
  };

  std::uint64_t mark[kWindow / 64];
  auto walk = [&](auto map) {
    for (std::uint32_t t0 = 0; t0 < blocks; t0 += kWindow) {
      const std::uint32_t t1 = std::min(blocks, t0 + kWindow);
      std::fill(std::begin(mark), std::end(mark), 0);
      auto marked = [&](std::uint32_t u) {
        return u >= t0 && u < t1 && (mark[(u - t0) / 64] >> ((u - t0) % 64) & 1);
      };
      auto set_mark = [&](std::uint32_t u) {
        if (u >= t0 && u < t1) mark[(u - t0) / 64] |= std::uint64_t{1} << ((u - t0) % 64);
      };
      for (std::uint32_t t = t0; t < t1; ++t) {
        if (marked(t)) continue;
        if (t0 > 0) {
          std::uint32_t u = map(t);
          while (u > t && !marked(u)) {
            set_mark(u);
            u = map(u);
          }
          if (u != t) continue;
        }
        // Rotate: block j receives block map(j), all along the cycle.
        // Single elements move once each through a held copy of the
        // leader; blocks of kt > 1 elements in kt segments are swapped along
        // the cycle instead, which needs no room for a whole block.
        if (kt == 1) {
          data.hold(t);
          std::uint32_t j = t;
          for (std::uint32_t u = map(t); u != t; j = u, u = map(u)) {
            data.move(j, u);
            set_mark(u);
          }
          data.release(j);
          continue;
        }
        for (std::uint32_t j = t, u = map(t); u != t; j = u, u = map(u)) {
          swap_blocks(j, u);
          set_mark(u);
        }
      }
    }
  };
  // One run is one look-up, walked apart from the general map: sharing a
  // loop with it, the look-up paid for the general map's product t*inverse,
  // which the compiler kept as a 128-bit running sum on the stack, added
  // to in memory on every t (two-fifths of the transform of 2310).
  if (run[0].d == blocks) {
    walk([&](std::uint32_t t) { return part[0][t]; });
  } else {
    walk([&](std::uint32_t t) {
      const std::uint32_t t1 = run[0].quotient(t), t2 = run[1].quotient(t1);
      return part[0][t - t1 * run[0].d] + part[1][t1 - t2 * run[1].d] + part[2][t2];
    });
  }
}

// The one or two arrays that a reordering moves alike, with room for one
// held element.
struct OneArray {
  double* x;
  double hx = 0.0;
  void swap(long a, long b) { std::swap(x[a], x[b]); }
  void hold(long a) { hx = x[a]; }
  void move(long to, long from) { x[to] = x[from]; }
  void release(long to) { x[to] = hx; }
  template <class Fn>
  void each(Fn&& fn) { fn(*this); }
};

struct TwoArrays {
  double *x, *y;
  double hx = 0.0, hy = 0.0;
  void swap(long a, long b) {
    std::swap(x[a], x[b]);
    std::swap(y[a], y[b]);
  }
  void hold(long a) {
    hx = x[a];
    hy = y[a];
  }
  void move(long to, long from) {
    x[to] = x[from];
    y[to] = y[from];
  }
  void release(long to) {
    x[to] = hx;
    y[to] = hy;
  }
  template <class Fn>
  void each(Fn&& fn) {
    fn(OneArray{x});
    fn(OneArray{y});
  }
};

template <class Data>
void reorder(Integer n, const Factors& fac, Data data) {
  reorder_squares(fac.digit, data);
  reorder_square_free(n, fac.square_free, fac.kt, data);
}

}  // namespace

void real_transform(Integer n, const Factors& fac, double* x, double d, Lanes lanes) {
  reorder(n, fac, OneArray{x});
  const bool avx2 = four_lanes(lanes);
  Integer m = 1;
  for (const Integer* f = fac.stage; *f != 0; ++f) {
    const bool last = m * *f == n;
    with_radix(*f, [&](const auto& dft) {
      auto pass = [&](auto sc) {
        if (avx2)
          real_pass_avx2(dft, n, m, x, sc);
        else
          real_pass(dft, n, m, x, sc);
      };
      if (!last)
        pass(Unscaled{});
      else if (exact_reciprocal(d))
        pass(TimesReciprocal{1.0 / d});
      else
        pass(Divided{d});
    });
    m *= *f;
  }
}

void hermitian_transform(Integer n, const Factors& fac, double* x) {
  Integer m = n;
  for (const Integer* f = fac.stage; *f != 0; ++f) {
    m /= *f;
    with_radix(*f, [&](const auto& dft) { hermitian_pass(dft, n, m, x); });
  }
  reorder(n, fac, OneArray{x});
}

namespace {

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

// The passes of each radix in two copies: for any x86-64 processor, and
// for one with AVX2, whose four-lane registers take the neighbouring
// indices four at a time.  No FMA is enabled: each lane does exactly the
// scalar arithmetic, so both copies give the same bits.
template <class D>
void complex_pass_sse2(const D& dft, Integer n, Integer m, double* x, double* y,
                       const Divisor* div) {
  complex_pass<Pair>(dft, n, m, x, y, div);
}

template <class D>
__attribute__((target("avx2"))) void complex_pass_avx2(const D& dft, Integer n, Integer m,
                                                        double* x, double* y, const Divisor* div) {
  complex_pass<Quad>(dft, n, m, x, y, div);
}

// The passes from stage f on, over n elements with the span m; the last
// pass divides by div.
void complex_passes(const Integer* f, Integer n, Integer m, double* x, double* y,
                    const Divisor& div, bool avx2, int level) {
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
        complex_passes(f, block, m, x + b, y + b, div, avx2, level + 1);
      return;
    }
    m /= *f;
    const Divisor* last = m == 1 ? &div : nullptr;
    with_radix(*f, [&](const auto& dft) {
      if (avx2)
        complex_pass_avx2(dft, n, m, x, y, last);
      else
        complex_pass_sse2(dft, n, m, x, y, last);
    });
  }
}

}  // namespace

void complex_transform(Integer n, const Factors& fac, double* x, double* y, double divisor,
                       Lanes lanes) {
  const bool avx2 = four_lanes(lanes);
  complex_passes(fac.stage, n, n, x, y, Divisor(divisor), avx2, 0);
  reorder(n, fac, TwoArrays{x, y});
}

// Two quotients per instruction: a packed division rounds each lane exactly
// as the scalar one does, at about half the cost per element.  When d is a
// power of two (sqrt(n) at n = 4^j, every power-of-two length of the speed
// note), 1/d is exact and x*(1/d) is the same real number as x/d, so the
// product rounds to the very quotient, subnormal ones included: the
// divider, whose throughput set the pace of this whole step, is then left
// out.
void divide(Integer n, double* x, double d) {
  auto each = [&](auto op) {
    Integer i = 0;
    for (; i + 2 <= n; i += 2) store(x + i, op(load<Pair>(x + i)));
    for (; i < n; ++i) x[i] = op(Pair{x[i], 0.0})[0];
  };
  const Divisor div(d);
  if (div.by_reciprocal)
    each([r = div.r](Pair v) { return v * r; });
  else
    each([d](Pair v) { return v / d; });
}

}  // namespace zil::fft
