// Seeds drawn from the date, the time and the processor time, for g05kcc.
#include <cmath>
#include <cstdint>

#include "frame/env.hpp"
#include "random/detail/generator.hpp"

namespace zil::rng {

ClockReading read_clock() {
  Integer v[7];
  x05date(v);
  return {v[0], v[1], v[2], v[3], v[4], v[5], x05cpu()};
}

Integer clock_seed(const ClockReading& r, Integer key) {
  // w: the wall-clock time in seconds, folded to four decimal digits.
  std::int64_t v = r.minute + 60 * (r.hour + 24 * ((r.month + (r.year % 10) * 12) * 31 + r.day));
  v = r.second + 60 * v;
  const std::int64_t w = v % 10000;

  // e: the processor time in microseconds folded to four digits, with its
  // low two digits exchanged and moved to the front, so that the fastest
  // changing digits weigh most.
  const auto c = static_cast<std::int64_t>(std::fmod(std::fabs(r.cpu_seconds * 1e6), 2147483647.0));
  const std::int64_t d = c % 10000 + (c / 10000) % 10000;
  const std::int64_t low = d % 100;
  const std::int64_t e = ((low % 10) * 10 + low / 10) * 100 + d / 100;

  // The seed is formed in 32-bit integers and may wrap; whatever falls
  // outside the seeds' range is folded back into it.
  const std::uint32_t s = static_cast<std::uint32_t>(e * 10000 + w) * (static_cast<std::uint32_t>(key) + 1u) * 2u + 1u;
  const auto seed = static_cast<Integer>(s);
  if (seed >= 1 && seed <= kWichmannHillSeedMax) return seed;
  const std::int64_t a = seed < 0 ? -std::int64_t{seed} : std::int64_t{seed};
  return static_cast<Integer>((a + 1) % kWichmannHillSeedMax);
}

}  // namespace zil::rng
