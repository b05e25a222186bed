// The single-sequence transforms over their passes: the choice of the
// copy of the passes, the Hermitian passes, the reordering in place and the
// final division.  The two-lane copy of the passes is compiled here.
#include "transforms/detail/passes.hpp"

#include "transforms/detail/pass_bodies.hpp"

namespace zil::fft {

constinit const PassCopy kTwoLanes = pass_copy<Pair>();

namespace {

// The copy of the passes to run: four lanes needs AVX2.
const PassCopy& passes_for(Lanes lanes) {
  const bool four = lanes == Lanes::four || (lanes == Lanes::best && __builtin_cpu_supports("avx2"));
  return four ? kFourLanes : kTwoLanes;
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
  // Listed from the least significant, digit j of a is digit[t-1-j], whose
  // weight in ra(a) is the product of the digits before it.
  long ra[std::max(kTile, long{kLargestPrime})], rb[std::max(kTile, long{kLargestPrime})];
  long ra_radix[kListSize], ra_weight[kListSize];
  for (long i = 0, w = 1; i < t; w *= digit[i], ++i) {
    ra_radix[t - 1 - i] = digit[i];
    ra_weight[t - 1 - i] = w;
  }
  digit_table(ra, ra_radix, ra_weight, t);
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
    part[r] = table + used;
    run[r].set(size);
    digit_table(part[r], sf + i, above + i, j - i);
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

bool real_transform_short(Integer n, double* x, double d, Lanes lanes) {
  return passes_for(lanes).real_short(n, x, d);
}

bool complex_transform_short(Integer n, double* x, double* y, double divisor, Lanes lanes) {
  return passes_for(lanes).complex_short(n, x, y, divisor);
}

// Up to kGatherMost, a real transform reads its data through a copy on
// the stack (16 KiB) in place of reordering them: the copy is a sweep of
// whole vectors, where the reordering was one scalar swap per element, a
// sixth of the transform of 64 or 1024 and a fifth of 1000.
void real_transform(Integer n, const Factors& fac, double* x, double d, Lanes lanes) {
  const auto passes = passes_for(lanes).real;
  if (n > kGatherMost) {
    reorder(n, fac, OneArray{x});
    return passes(n, fac.stage, x, d, nullptr);
  }
  double data[kGatherMost];
  std::copy_n(x, n, data);
  const GatherTables<kGatherMost / 2> tables(fac.stage);
  const Gather gather = tables.over(data);
  passes(n, fac.stage, x, d, &gather);
}

void hermitian_transform(Integer n, const Factors& fac, double* x) {
  Integer m = n;
  for (const Integer* f = fac.stage; *f != 0; ++f) {
    m /= *f;
    with_radix(*f, [&](const auto& dft) { hermitian_pass(dft, n, m, x); });
  }
  reorder(n, fac, OneArray{x});
}

void complex_transform(Integer n, const Factors& fac, double* x, double* y, double divisor,
                       Lanes lanes) {
  passes_for(lanes).complex(n, fac.stage, x, y, divisor);
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
