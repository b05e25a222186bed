// Mixed-radix passes in the manner of Singleton's in-place transform: the
// real and Hermitian passes keep every intermediate block of length m in the
// Hermitian layout of that length, so a butterfly at index k reads and
// writes the same 2f slots (k and m-k of each block) and needs no complex
// temporaries beyond its own f values.
#include "transforms/detail/passes.hpp"

#include <cmath>
#include <utility>

#include "transforms/detail/kernels.hpp"

namespace zil::fft {
namespace {

// The twiddle of index k in a pass of radix f and span m has the angle
// k*2*pi/(f*m); its powers exp(-i*l*angle), l < f, come from one sine and
// cosine by the recurrence w(l) = w(l-1)*w(1).
template <int F>
void powers(Integer k, Integer fm, double* wr, double* wi) {
  const double angle = static_cast<double>(k) * kTwoPi / static_cast<double>(fm);
  wr[1] = std::cos(angle);
  wi[1] = -std::sin(angle);
  for (int l = 2; l < F; ++l) {
    wr[l] = wr[l - 1] * wr[1] - wi[l - 1] * wi[1];
    wi[l] = wr[l - 1] * wi[1] + wi[l - 1] * wr[1];
  }
}

// ---- Complex passes: decimation in frequency, twiddles after --------------

template <class D>
void complex_pass(const D& dft, Integer n, Integer m, double* x, double* y) {
  constexpr int F = D::f;
  const Integer fm = F * m;
  double rc[F], rs[F], wr[F], wi[F], pr[F], pi[F];
  roots(F, rc, rs);

  auto butterflies = [&](Integer k, const double* tr, const double* ti) {
    for (Integer g = k; g < n; g += fm) {
      double re[F], im[F];
      for (int l = 0; l < F; ++l) {
        re[l] = x[g + l * m];
        im[l] = y[g + l * m];
      }
      dft(re, im);
      x[g] = re[0];
      y[g] = im[0];
      for (int q = 1; q < F; ++q) {
        const Integer o = g + D::place(q) * m;
        if (tr) {
          x[o] = re[q] * tr[q] - im[q] * ti[q];
          y[o] = re[q] * ti[q] + im[q] * tr[q];
        } else {
          x[o] = re[q];
          y[o] = im[q];
        }
      }
    }
  };

  butterflies(0, nullptr, nullptr);
  for (Integer k = 1; 2 * k <= m; ++k) {
    powers<F>(k, fm, wr, wi);
    butterflies(k, wr, wi);
    if (2 * k == m) continue;
    // The twiddles of m-k: exp(-i*2*pi*q/f) times the conjugate of those of k.
    for (int q = 1; q < F; ++q) {
      pr[q] = rc[q] * wr[q] - rs[q] * wi[q];
      pi[q] = -rc[q] * wi[q] - rs[q] * wr[q];
    }
    butterflies(m - k, pr, pi);
  }
}

// ---- Real passes: decimation in time, twiddles before ---------------------
// The f blocks of length m of a group hold transforms Z(l) in the Hermitian
// layout (block l at place(l)); they become one block of length f*m,
// Y(k + q*m) = sum_l exp(-i*2*pi*l*k/(f*m)) Z(l)(k) exp(-i*2*pi*l*q/f).

template <class D>
void real_pass(const D& dft, Integer n, Integer m, double* x) {
  constexpr int F = D::f;
  const Integer fm = F * m;
  double re[F], im[F], wr[F], wi[F];

  // k = 0: the blocks' first elements are real; Y(q*m) is Hermitian in q.
  for (Integer g = 0; g < n; g += fm) {
    for (int l = 0; l < F; ++l) {
      re[l] = x[g + D::place(l) * m];
      im[l] = 0.0;
    }
    dft(re, im);
    x[g] = re[0];
    for (int q = 1; 2 * q < F; ++q) {
      x[g + q * m] = re[q];
      x[g + (F - q) * m] = im[q];
    }
    if (F % 2 == 0) x[g + (F / 2) * m] = re[F / 2];
  }

  // 0 < k < m/2: Y(k + q*m) lies in the stored half when 2q < f, else its
  // conjugate is stored at f*m - (k + q*m).
  for (Integer k = 1; 2 * k < m; ++k) {
    powers<F>(k, fm, wr, wi);
    for (Integer g = 0; g < n; g += fm) {
      re[0] = x[g + k];
      im[0] = x[g + m - k];
      for (int l = 1; l < F; ++l) {
        const Integer b = g + D::place(l) * m;
        const double a = x[b + k], c = x[b + m - k];
        re[l] = a * wr[l] - c * wi[l];
        im[l] = a * wi[l] + c * wr[l];
      }
      dft(re, im);
      for (int q = 0; q < F; ++q) {
        const Integer kk = k + q * m;
        if (2 * q < F) {
          x[g + kk] = re[q];
          x[g + fm - kk] = im[q];
        } else {
          x[g + fm - kk] = re[q];
          x[g + kk] = -im[q];
        }
      }
    }
  }

  // k = m/2: real inputs; outputs q and f-1-q are conjugates.
  if (m % 2 == 0) {
    const Integer k = m / 2;
    powers<F>(k, fm, wr, wi);
    for (Integer g = 0; g < n; g += fm) {
      re[0] = x[g + k];
      im[0] = 0.0;
      for (int l = 1; l < F; ++l) {
        const double a = x[g + D::place(l) * m + k];
        re[l] = a * wr[l];
        im[l] = a * wi[l];
      }
      dft(re, im);
      for (int q = 0; 2 * q + 1 < F; ++q) {
        const Integer kk = k + q * m;
        x[g + kk] = re[q];
        x[g + fm - kk] = im[q];
      }
      if (F % 2 == 1) x[g + fm / 2] = re[F / 2];
    }
  }
}

// ---- Hermitian passes: decimation in frequency, twiddles after ------------
// A group of length f*m in the Hermitian layout becomes f blocks of length m
// (block q at place(q)), y(q)(r) = exp(-i*2*pi*r*q/(f*m)) sum_l Z(r + l*m)
// exp(-i*2*pi*l*q/f), each again Hermitian in r.

template <class D>
void hermitian_pass(const D& dft, Integer n, Integer m, double* x) {
  constexpr int F = D::f;
  const Integer fm = F * m;
  double re[F], im[F], wr[F], wi[F];

  // Reads Z(r + l*m) from the group's Hermitian layout.
  auto load = [&](Integer g, Integer r) {
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

  // r = 0: each block's first element, real.
  for (Integer g = 0; g < n; g += fm) {
    load(g, 0);
    dft(re, im);
    for (int q = 0; q < F; ++q) x[g + D::place(q) * m] = re[q];
  }

  for (Integer r = 1; 2 * r < m; ++r) {
    powers<F>(r, fm, wr, wi);
    for (Integer g = 0; g < n; g += fm) {
      load(g, r);
      dft(re, im);
      x[g + r] = re[0];
      x[g + m - r] = im[0];
      for (int q = 1; q < F; ++q) {
        const Integer b = g + D::place(q) * m;
        x[b + r] = re[q] * wr[q] - im[q] * wi[q];
        x[b + m - r] = re[q] * wi[q] + im[q] * wr[q];
      }
    }
  }

  // r = m/2: the middle element of each block, real.
  if (m % 2 == 0) {
    const Integer r = m / 2;
    powers<F>(r, fm, wr, wi);
    for (Integer g = 0; g < n; g += fm) {
      load(g, r);
      dft(re, im);
      x[g + r] = re[0];
      for (int q = 1; q < F; ++q) x[g + D::place(q) * m + r] = re[q] * wr[q] - im[q] * wi[q];
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

// ---- Reordering -----------------------------------------------------------
// The passes leave element k of the result at the index whose digits (with
// respect to the stage list, first pass most significant) are those of k
// read backwards.  Both stages move element p to rev(p).

template <class Swap>
void reorder_squares(long n, const Integer* digit, Swap&& swap) {
  int len = 0;
  while (digit[len] != 0) ++len;
  if (len == 0) return;
  // The list is symmetric, so rev is an involution: swap each pair once.
  long weight[kListSize];  // weight of digit i in rev(p): product of the digits before it
  long count[kListSize] = {};
  weight[0] = 1;
  for (int i = 1; i < len; ++i) weight[i] = weight[i - 1] * digit[i - 1];
  const long last = digit[len - 1], step = weight[len - 1];
  long r = 0;
  for (long p = 0; p < n;) {
    for (long a = 0; a < last; ++a, ++p, r += step)
      if (p < r) swap(p, r);
    r -= last * step;
    for (int i = len - 2; i >= 0; --i) {
      r += weight[i];
      if (++count[i] < digit[i]) break;
      r -= digit[i] * weight[i];
      count[i] = 0;
    }
  }
}

// The square-free stage is no involution.  Block t of each segment must
// receive block map(t), map being the inverse reversal; the cycle-leader
// method follows map from t until it reaches an index not below t, which is
// where the wanted block now lies.
template <class Swap>
void reorder_square_free(long n, const Integer* sf, long kt, Swap&& swap) {
  int len = 0;
  while (sf[len] != 0) ++len;
  if (len == 0) return;
  const long blocks = n / (kt * kt), stride = blocks * kt;
  auto map = [&](long t) {
    long b = 0;
    for (int i = 0; i < len; ++i) {
      b = b * sf[i] + t % sf[i];
      t /= sf[i];
    }
    return b;
  };
  for (long t = 1; t < blocks; ++t) {
    long u = map(t);
    while (u < t) u = map(u);
    if (u == t) continue;
    for (long seg = 0; seg < n; seg += stride)
      for (long e = 0; e < kt; ++e) swap(seg + t * kt + e, seg + u * kt + e);
  }
}

void reorder(Integer n, const Factors& fac, double* x, double* y) {
  if (y) {
    auto swap2 = [x, y](long a, long b) {
      std::swap(x[a], x[b]);
      std::swap(y[a], y[b]);
    };
    reorder_squares(n, fac.digit, swap2);
    reorder_square_free(n, fac.square_free, fac.kt, swap2);
  } else {
    auto swap1 = [x](long a, long b) { std::swap(x[a], x[b]); };
    reorder_squares(n, fac.digit, swap1);
    reorder_square_free(n, fac.square_free, fac.kt, swap1);
  }
}

}  // namespace

void real_transform(Integer n, const Factors& fac, double* x) {
  reorder(n, fac, x, nullptr);
  Integer m = 1;
  for (const Integer* f = fac.stage; *f != 0; ++f) {
    with_radix(*f, [&](const auto& dft) { real_pass(dft, n, m, x); });
    m *= *f;
  }
}

void hermitian_transform(Integer n, const Factors& fac, double* x) {
  Integer m = n;
  for (const Integer* f = fac.stage; *f != 0; ++f) {
    m /= *f;
    with_radix(*f, [&](const auto& dft) { hermitian_pass(dft, n, m, x); });
  }
  reorder(n, fac, x, nullptr);
}

void complex_transform(Integer n, const Factors& fac, double* x, double* y) {
  Integer m = n;
  for (const Integer* f = fac.stage; *f != 0; ++f) {
    m /= *f;
    with_radix(*f, [&](const auto& dft) { complex_pass(dft, n, m, x, y); });
  }
  reorder(n, fac, x, y);
}

void divide(Integer n, double* x, double d) {
  for (Integer i = 0; i < n; ++i) x[i] /= d;
}

}  // namespace zil::fft
