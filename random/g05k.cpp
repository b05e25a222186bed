// The rngs suite: the generator's whole state is the caller's igen and
// iseed[4], so the routines are reentrant and a state may be copied freely.
//
// igen 0 is the base generator with its four limbs in iseed; igen 1 to 273
// selects a Wichmann-Hill generator, four multiplicative generators modulo
// primes near 2^24 whose uniforms are added modulo 1 (Wichmann and Hill,
// "Generating good pseudo-random numbers", CSDA 51, 2006).
#include <cmath>
#include <cstdint>

#include "frame/export.hpp"
#include "random/detail/generator.hpp"
#include "random/detail/wichmann_hill_table.hpp"
#include "zil_random.h"

namespace zil::rng {
namespace {

Limbs limbs_of(const Integer* iseed) {
  return {static_cast<std::uint32_t>(iseed[0]), static_cast<std::uint32_t>(iseed[1]),
          static_cast<std::uint32_t>(iseed[2]), static_cast<std::uint32_t>(iseed[3])};
}

void store(Integer* iseed, const Limbs& x) {
  for (int r = 0; r < 4; ++r) iseed[r] = static_cast<Integer>(x[r]);
}

// Seeds the base generator as g05cbc does, then steps once, so that its
// stream matches the older suite's after the same seed.
void seed_base(Integer* iseed, Integer seed) { store(iseed, multiply(kMultiplier, seed_state(seed))); }

// Each product is below 127 * 16909320 < 2^31 for seeds set by g05kbc or
// g05kcc; the unsigned form keeps any other input free of overflow.
double wichmann_hill_next(const WichmannHillRow& g, Integer* iseed) {
  std::uint32_t s[4];
  for (int j = 0; j < 4; ++j) {
    s[j] = g.a[j] * static_cast<std::uint32_t>(iseed[j]) % g.m[j];
    iseed[j] = static_cast<Integer>(s[j]);
  }
  // The published order of the sum, which fixes its rounding.
  const double sum = s[0] / static_cast<double>(g.m[0]) + s[2] / static_cast<double>(g.m[2]) +
                     s[1] / static_cast<double>(g.m[1]) + s[3] / static_cast<double>(g.m[3]);
  return sum - std::floor(sum);
}

const WichmannHillRow& row_of(Integer igen) {
  // A caller's igen of more than 273 is taken cyclically, as g05kbc would
  // have left it, rather than read past the table.
  return kWichmannHill[(igen <= kWichmannHillRows ? igen : wichmann_hill_row(igen)) - 1];
}

}  // namespace
}  // namespace zil::rng

using namespace zil::rng;

extern "C" double g05kac(Integer igen, Integer iseed[]) {
  if (igen > 0) return wichmann_hill_next(row_of(igen), iseed);
  const Limbs x = multiply(kMultiplier, limbs_of(iseed));
  store(iseed, x);
  return uniform(x, uniform_cap());
}
ZIL_ALIAS(g05kac, zil_rngs_basic);

extern "C" void g05kbc(Integer* igen, Integer iseed[]) {
  if (*igen > 0) {
    for (int j = 0; j < 4; ++j) iseed[j] = wichmann_hill_seed(iseed[j]);
    *igen = wichmann_hill_row(*igen);
    return;
  }
  *igen = 0;
  seed_base(iseed, iseed[0]);
}
ZIL_ALIAS(g05kbc, zil_rngs_init_repeatable);

extern "C" void g05kcc(Integer* igen, Integer iseed[]) {
  const ClockReading now = read_clock();
  if (*igen > 0) {
    *igen = wichmann_hill_row(*igen);
    for (int j = 0; j < 4; ++j) iseed[j] = clock_seed(now, *igen * 4 + j);
    wichmann_hill_next(row_of(*igen), iseed);
    return;
  }
  *igen = 0;
  seed_base(iseed, clock_seed(now, 0));
}
ZIL_ALIAS(g05kcc, zil_rngs_init_nonrepeatable);
