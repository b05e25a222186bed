// The inner layer's forms of the constants of the arithmetic, of the complex
// kernels the by-reference routines call, and of the clocks.
#pragma once

#include <bit>
#include <cstdint>
#include <ctime>

#include "zil_env.h"
#include "zil_types.h"

namespace zil {

// ---- Constants of the arithmetic ------------------------------------------
// The inner words carry other low bits than the public results (x02ahc and
// friends); the two sets are kept apart on purpose, since thresholds written
// against either one must keep giving the same branches.  The argument of
// the forms that take one is ignored.

constexpr double x02ahf(double) { return std::bit_cast<double>(std::uint64_t{0x43EFFFFFFFFFFFE7}); }
constexpr double x02ajf() { return std::bit_cast<double>(std::uint64_t{0x3CA000000000000E}); }
constexpr double x02akf() { return std::bit_cast<double>(std::uint64_t{0x0010000000000011}); }
constexpr double x02amf() { return x02akf(); }
constexpr double x02anf() { return x02akf(); }
constexpr double x02alf() { return std::bit_cast<double>(std::uint64_t{0x7FEFFFFFFFFFFFE2}); }

constexpr Integer x02int_max(double) { return 2147483647; }
constexpr Integer x02base() { return 2; }
constexpr Integer x02digits() { return 53; }
constexpr Integer x02emin() { return -1021; }
constexpr Integer x02emax() { return 1024; }
// Whether underflow flushes to zero: it never does here.
constexpr Boolean x02flag(double) { return 0; }

// The C forms of these (x02ajf() and kin in zil_env.h) return the same
// words; x02add, x02consts_fill, the complex kernels a02abf_f, a02abf,
// a02aaf, a02acf and the clocks x05date, x05cpu are declared there too.

// ---- Clocks -------------------------------------------------------------

// x05aac's work on a reading of the clock: (time_t)-1 is a failed clock,
// which is reported and gives 0.
Integer x05aac_from(std::time_t t);


}  // namespace zil
