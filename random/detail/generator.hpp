// The base generator of chapter g05: x <- a x mod 2^60 with a = 13^13, the
// state held as four 15-bit limbs, least significant first.  Every product of
// two limbs is below 2^30, so the multiplication runs in 32-bit integers.
//
// Seeds set the two low bits of x to binary 10, so x/2 is odd and the period
// is that of an odd-state generator modulo 2^59; x is never 0, which keeps
// the uniform x / 2^60 away from 0.
#pragma once

#include <array>
#include <cstdint>

#include "zil_env.h"
#include "zil_types.h"

namespace zil::rng {

using Limbs = std::array<std::uint32_t, 4>;

inline constexpr std::uint32_t kLimbMask = 0x7FFF;

// 13^13 = 302875106592253.
inline constexpr Limbs kMultiplier{17917, 13895, 19930, 8};
// (13^13)^63 mod 2^60 = 240034304124223573: steps a lane past a whole block.
inline constexpr Limbs kMultiplier63{85, 3703, 6070, 6822};
// 0x0EB79A2A0EB79A2A, the state of a thread that has not been seeded.
inline constexpr Limbs kDefaultState{6698, 7535, 26792, 30140};

// The largest uniform delivered: 1 - x02ajc, which rounds to 1 - 2^-53.
// Needed because hi * 2^-30 + lo * 2^-60 rounds to 1.0 for x close to 2^60.
// A loop over many numbers reads it once.
inline double uniform_cap() { return 1.0 - x02ajc(); }

// a * x mod 2^60.  The partial sums are carried upwards one limb at a time;
// in unsigned 32-bit arithmetic the sum for limb 2 (three products and a
// carry) stays below 2^32, and the top sum needs only its low 15 bits, so a
// wrap there is harmless whatever the operands.
constexpr Limbs multiply(const Limbs& a, const Limbs& x) {
  Limbs r{};
  std::uint32_t p = a[0] * x[0];
  r[0] = p & kLimbMask;
  p = (p >> 15) + a[0] * x[1] + a[1] * x[0];
  r[1] = p & kLimbMask;
  p = (p >> 15) + a[0] * x[2] + a[1] * x[1] + a[2] * x[0];
  r[2] = p & kLimbMask;
  p = (p >> 15) + a[0] * x[3] + a[1] * x[2] + a[2] * x[1] + a[3] * x[0];
  r[3] = p & kLimbMask;
  return r;
}

// x / 2^60 as (x3 * 2^15 + x2) 2^-30 + (x1 * 2^15 + x0) 2^-60: both terms are
// exact, so the sum is x / 2^60 correctly rounded, then capped below 1.
inline double uniform(const Limbs& x, double cap) {
  const double hi = static_cast<double>(static_cast<std::int32_t>(x[3] * 32768 + x[2]));
  const double lo = static_cast<double>(static_cast<std::int32_t>(x[1] * 32768 + x[0]));
  const double u = hi * 0x1p-30 + lo * 0x1p-60;
  return u > cap ? cap : u;
}

// The state of a seed: x = 4 |seed| + 2, spread over the limbs.
constexpr Limbs seed_state(Integer seed) {
  const std::int64_t s = seed < 0 ? -std::int64_t{seed} : std::int64_t{seed};
  const std::int64_t t = s / 8192;
  return {static_cast<std::uint32_t>((s % 8192) * 4 + 2), static_cast<std::uint32_t>(t & kLimbMask),
          static_cast<std::uint32_t>((t >> 15) & kLimbMask), static_cast<std::uint32_t>(t >> 30)};
}

// ---- Wichmann-Hill generators of the rngs suite --------------------------

struct WichmannHillRow {
  std::array<std::uint32_t, 4> a;  // multipliers, 112 to 127
  std::array<std::uint32_t, 4> m;  // prime moduli, 16718909 to 16776971
};

inline constexpr Integer kWichmannHillRows = 273;
// Seeds of a Wichmann-Hill generator lie in 1 to this bound; 127 times it
// is still below 2^31.
inline constexpr Integer kWichmannHillSeedMax = 16909320;

// igen taken cyclically into 1 to 273, so that 274 means 1.
constexpr Integer wichmann_hill_row(Integer igen) {
  return static_cast<Integer>((std::int64_t{igen} + 272) % kWichmannHillRows + 1);
}

// A seed outside 1 to 16909320 replaced by (|v| + 1) mod 16909320 + 1.
constexpr Integer wichmann_hill_seed(Integer v) {
  if (v >= 1 && v <= kWichmannHillSeedMax) return v;
  const std::int64_t a = v < 0 ? -std::int64_t{v} : std::int64_t{v};
  return static_cast<Integer>((a + 1) % kWichmannHillSeedMax + 1);
}

// ---- Clock seeds ---------------------------------------------------------

struct ClockReading {
  Integer year, month, day, hour, minute, second;
  double cpu_seconds;
};

// The current local date and time and the process's processor time.
ClockReading read_clock();

// A seed in 0 to 16909320 from a clock reading; key separates the seeds
// drawn from one reading.
Integer clock_seed(const ClockReading& r, Integer key);

}  // namespace zil::rng
