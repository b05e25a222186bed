// The older g05 suite: one generator state per thread, produced 63 numbers
// at a time.
//
// A thread's block holds 64 lanes of the base generator.  Lane 0 is the
// state the block was seeded from and lanes 1 to 63 the next 63 states; a
// refill multiplies lanes 1 to 63 by a^63, which moves each one a whole
// block on.  The 63 multiplications of a refill are independent of one
// another, so they pipeline (and vectorise), where a plain step-by-step
// generator waits on each product in turn.
#include <atomic>
#include <cmath>
#include <cstdint>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "random/detail/generator.hpp"
#include "zil_env.h"
#include "zil_errors.h"
#include "zil_random.h"

namespace zil::rng {
namespace {

constexpr int kLanes = 64;
constexpr Integer kBlockSize = 63;

// Field order as the older variate routines see it through g05caz: the
// index follows the output block directly.
struct Block {
  Integer flag;  // 1 until the block holds a state
  Integer limbs[4][kLanes];
  Integer spare[3];
  double bg05ca[2];
  double out[kBlockSize];
  Integer index;  // next element of out to deliver
  double dg05ca;
};

// Constant-initialised, so a thread's block exists from its start with no
// construction and no guard, and nothing is shared between threads.  The
// default TLS model is kept on purpose: the initial-exec model would put the
// library's whole TLS segment into the static reserve, which a program that
// opens libzil.so with dlopen does not have room for.
constinit thread_local Block tls_block{1, {}, {}, {}, {}, kBlockSize, 0.0};

Limbs lane(const Block& b, int j) {
  return {static_cast<std::uint32_t>(b.limbs[0][j]), static_cast<std::uint32_t>(b.limbs[1][j]),
          static_cast<std::uint32_t>(b.limbs[2][j]), static_cast<std::uint32_t>(b.limbs[3][j])};
}

void set_lane(Block& b, int j, const Limbs& x) {
  for (int r = 0; r < 4; ++r) b.limbs[r][j] = static_cast<Integer>(x[r]);
}

void reset_memory(Block& b) {
  b.bg05ca[0] = 1.0;
  b.bg05ca[1] = -1.0;
  b.dg05ca = 256.0;
}

// Lanes 1 to 63 from lane 0, one step each, and their uniforms.
void reseed(Block& b) {
  const double cap = uniform_cap();
  Limbs x = lane(b, 0);
  for (int j = 1; j < kLanes; ++j) {
    x = multiply(kMultiplier, x);
    set_lane(b, j, x);
    b.out[j - 1] = uniform(x, cap);
  }
  b.index = 0;
}

// The lanes are independent, so this loop runs as vectors across them.
void refill(Block& b) {
  const double cap = uniform_cap();
  for (int j = 1; j < kLanes; ++j) {
    const Limbs x = multiply(kMultiplier63, lane(b, j));
    set_lane(b, j, x);
    b.out[j - 1] = uniform(x, cap);
  }
  b.index = 0;
}

// Lane 0 from a state, the remembered values reset, and a fresh block.
void start_from(Block& b, const Limbs& x) {
  set_lane(b, 0, x);
  reset_memory(b);
  b.flag = 0;
  reseed(b);
}

void start_default(Block& b) {
  b.spare[0] = b.spare[1] = b.spare[2] = 0;
  start_from(b, kDefaultState);
}

// The thread's block, holding a state.
Block& block() {
  Block& b = tls_block;
  if (b.flag) [[unlikely]]
    start_default(b);
  return b;
}

// The unsigned comparison also sends an index damaged through g05caz to a
// refill.
bool exhausted(const Block& b) { return static_cast<std::uint32_t>(b.index) >= static_cast<std::uint32_t>(kBlockSize); }

[[gnu::noinline]] Block& next_block() {
  Block& b = block();
  if (exhausted(b)) refill(b);
  return b;
}

// ---- Save format -----------------------------------------------------------
// istate[1..5]: the 60-bit state in 12-bit digits, most significant first;
// istate[6..8]: the first spare word likewise; istate[0]: the digits' sum.
// xstate[1] = dg05ca, xstate[2..3] = bg05ca, xstate[0] a check sum of all.

constexpr int kDigitBits = 12;
constexpr std::int64_t kDigitMask = 0xFFF;

std::uint64_t value_of(const Limbs& x) {
  return std::uint64_t{x[0]} | std::uint64_t{x[1]} << 15 | std::uint64_t{x[2]} << 30 | std::uint64_t{x[3]} << 45;
}

Limbs limbs_of(std::uint64_t v) {
  return {static_cast<std::uint32_t>(v & kLimbMask), static_cast<std::uint32_t>(v >> 15 & kLimbMask),
          static_cast<std::uint32_t>(v >> 30 & kLimbMask), static_cast<std::uint32_t>(v >> 45 & kLimbMask)};
}

// Digits first..last of istate hold v, least significant in last.
void put_digits(Integer* istate, int first, int last, std::uint64_t v) {
  for (int k = last; k >= first; --k, v >>= kDigitBits) istate[k] = static_cast<Integer>(v & kDigitMask);
}

std::uint64_t get_digits(const Integer* istate, int first, int last) {
  std::uint64_t v = 0;
  for (int k = first; k <= last; ++k) v = v << kDigitBits | static_cast<std::uint64_t>(istate[k]);
  return v;
}

double real_check(Integer digit_sum, const double* xstate) {
  return digit_sum * 0.000244140625 + xstate[1] + xstate[2] + xstate[3];
}

// The checks of a saved state.  Beyond the two sums, every digit must be a
// 12-bit digit, so that no damaged digit can be hidden by another one that
// keeps the sum.
bool intact(const Integer* istate, const double* xstate) {
  std::int64_t sum = 0;
  for (int k = 1; k <= 8; ++k) {
    if (istate[k] < 0 || istate[k] > kDigitMask) return false;
    sum += istate[k];
  }
  if (sum != istate[0]) return false;
  const double tol = 4 * x02ajc() * std::fabs(xstate[0]);
  // Written so that a NaN anywhere fails.
  return std::fabs(real_check(istate[0], xstate) - xstate[0]) < tol;
}

// The last seed of g05ccc, process-wide: two clock seeds never coincide,
// even when threads ask for them within one second.
std::atomic<Integer> last_clock_seed{0};

}  // namespace
}  // namespace zil::rng

using namespace zil::rng;

extern "C" double g05cac(void) {
  // The fast path: one test and one load.
  Block* b = &tls_block;
  if (exhausted(*b)) [[unlikely]]
    b = &next_block();
  return b->out[b->index++];
}
ZIL_ALIAS(g05cac, zil_random_continuous_uniform);

extern "C" void g05caz(Integer** flag, Integer** limbs, double** bg05ca, double** out, double** dg05ca) {
  Block& b = block();
  if (flag) *flag = &b.flag;
  if (limbs) *limbs = &b.limbs[0][0];
  if (bg05ca) *bg05ca = b.bg05ca;
  if (out) *out = b.out;
  if (dg05ca) *dg05ca = &b.dg05ca;
}

extern "C" void g05cbc(Integer seed) {
  Block& b = block();
  start_from(b, seed_state(seed));
  // The first number after seeding is the second of the block.
  b.index = 1;
}
ZIL_ALIAS(g05cbc, zil_random_init_repeatable);

extern "C" void g05ccc(void) {
  const Integer seconds = x05aac();
  Integer last = last_clock_seed.load(std::memory_order_relaxed);
  Integer seed;
  do {
    seed = seconds > last ? seconds : last + 1;
  } while (!last_clock_seed.compare_exchange_weak(last, seed, std::memory_order_relaxed));
  g05cbc(seed);
}
ZIL_ALIAS(g05ccc, zil_random_init_nonrepeatable);

extern "C" void g05cxc(void) {
  // The index stays 0: the default stream starts one element earlier than a
  // seeded one.
  start_default(block());
}

extern "C" void g05cfc(Integer istate[], double xstate[]) {
  Block& b = block();
  put_digits(istate, 1, 5, value_of(lane(b, b.index)));
  put_digits(istate, 6, 8, static_cast<std::uint32_t>(b.spare[0]));
  Integer sum = 0;
  for (int k = 1; k <= 8; ++k) sum += istate[k];
  istate[0] = sum;
  xstate[1] = b.dg05ca;
  xstate[2] = b.bg05ca[0];
  xstate[3] = b.bg05ca[1];
  xstate[0] = real_check(sum, xstate);
}
ZIL_ALIAS(g05cfc, zil_save_random_state);

extern "C" void g05cgc(const Integer istate[], const double xstate[], ZilError* fail) {
  zil::Reporter rep(fail, "g05cgc");
  if (!intact(istate, xstate)) return rep.raise_plain(ZE_STATE_CORRUPT);

  Block& b = block();
  b.spare[0] = static_cast<Integer>(get_digits(istate, 6, 8));
  start_from(b, limbs_of(get_digits(istate, 1, 5)));
  b.dg05ca = xstate[1];
  b.bg05ca[0] = xstate[2];
  b.bg05ca[1] = xstate[3];
  rep.success();
}
ZIL_ALIAS(g05cgc, zil_restore_random_state);

extern "C" Zil_RandomPair get_bg05ca(void) {
  const Block& b = block();
  return {{b.bg05ca[0], b.bg05ca[1]}};
}

extern "C" double get_dg05ca(void) { return block().dg05ca; }
