// The inner layer's forms of the constants of the arithmetic, of the complex
// kernels the by-reference routines call, and of the clocks.
#pragma once

#include <bit>
#include <cstdint>
#include <ctime>

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

// The sum of two reals behind a call, so that the eigenvalue kernels' tests
// of the form x02add(&a, &b) == a cannot be rearranged by the optimiser.
double x02add(const double* a, const double* b);

// The constants the linear algebra layer reads in one piece.
struct x02consts {
  double base;
  double digits;
  double eps;
  double sqrt_eps;
  double small;
  double sqrt_small;
  double big;
  double sqrt_big;
  double zero;
};

void x02consts_fill(x02consts* c);

// ---- Complex kernels of the by-reference routines ---------------------------
// The public a02 routines are thin wrappers over these, so each algorithm
// exists once.

// Modulus of (re, im), by value and by reference.
double a02abf_f(double re, double im);
double a02abf(const double* re, const double* im);
// Principal square root of (xr, xi) into (yr, yi).
void a02aaf(double xr, double xi, double* yr, double* yi);
// (ar, ai) / (br, bi) into (cr, ci).
void a02acf(double ar, double ai, double br, double bi, double* cr, double* ci);

// ---- Clocks -------------------------------------------------------------

// x05aac's work on a reading of the clock: (time_t)-1 is a failed clock,
// which is reported and gives 0.
Integer x05aac_from(std::time_t t);

// year, month, day, hour, minute, second, millisecond, local time.
void x05date(Integer values[7]);

// CPU time of the process (user plus system) in seconds.
float x05cpu();

}  // namespace zil
