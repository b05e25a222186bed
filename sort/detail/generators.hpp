// Pivot randomisers of the quicksorts.  Only the quality of a split depends
// on them, never the result, so small classical generators suffice.
#pragma once

#include <atomic>
#include <cstdint>

namespace zil::sort {

// Wichmann and Hill's generator (Applied Statistics AS 183): three
// multiplicative congruential streams whose fractions are summed modulo 1.
// Schrage's decomposition of each modulus keeps every product within 32 bits.
class WichmannHill {
 public:
  double next() {
    s1_ = step(s1_, 171, 30269);
    s2_ = step(s2_, 172, 30307);
    s3_ = step(s3_, 170, 30323);
    double u = s1_ / 30269.0 + s2_ / 30307.0 + s3_ / 30323.0;
    return u - static_cast<int>(u);
  }

 private:
  static std::int32_t step(std::int32_t s, std::int32_t a, std::int32_t m) {
    const std::int32_t q = m / a, r = m % a;
    s = a * (s % q) - r * (s / q);
    return s < 0 ? s + m : s;
  }
  std::int32_t s1_ = 15223, s2_ = 17795, s3_ = 28707;
};

// A 32-bit linear congruential generator whose state lives in a word shared
// by every call of one routine, so that successive sorts draw different
// pivots.  Threads may interleave their loads and stores; a lost update only
// changes which pivot is drawn, so relaxed atomics are enough to make the
// sharing well defined.
class SharedLcg {
 public:
  explicit SharedLcg(std::atomic<std::uint32_t>& word) : word_(word) {}

  // A uniform number in [0, 1) from the top 31 bits of the new state.
  double next() {
    std::uint32_t s = word_.load(std::memory_order_relaxed) * 2147001325u + 715136305u;
    word_.store(s, std::memory_order_relaxed);
    return static_cast<double>(s / 2) * 4.656612873077393e-10;
  }

  static constexpr std::uint32_t kStart = 123456789;  // 0x75BCD15

 private:
  std::atomic<std::uint32_t>& word_;
};

}  // namespace zil::sort
