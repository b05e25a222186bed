// Seeds drawn from the clock, for g05ccc's state and g05kcc's.
#include <cmath>
#include <cstdint>
#include <ctime>

#include "random/detail/generator.hpp"

namespace zil::rng {

Integer clock_seconds() {
  const std::time_t now = std::time(nullptr);
  return now == static_cast<std::time_t>(-1) ? 0 : static_cast<Integer>(now);
}

ClockReading read_clock() {
  ClockReading r{};
  const std::time_t now = std::time(nullptr);
  std::tm t{};
  if (now != static_cast<std::time_t>(-1) && localtime_r(&now, &t)) {
    r.year = t.tm_year + 1900;
    r.month = t.tm_mon + 1;
    r.day = t.tm_mday;
    r.hour = t.tm_hour;
    r.minute = t.tm_min;
    r.second = t.tm_sec;
  }
  timespec cpu{};
  if (clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &cpu) == 0)
    // The processor time is a single-precision number of seconds.
    r.cpu_seconds = static_cast<float>(static_cast<double>(cpu.tv_sec) + 1e-9 * static_cast<double>(cpu.tv_nsec));
  return r;
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
