// Constants of the arithmetic.  Each public value is a fixed bit pattern, not
// a computation, so that every threshold written against it is the same on
// every build.
#include <bit>
#include <cmath>
#include <cstdint>

#include "frame/env.hpp"
#include "zil_env.h"

namespace {

constexpr double from_bits(std::uint64_t bits) { return std::bit_cast<double>(bits); }

}  // namespace

extern "C" {

// 2^64, the largest argument the circular functions are asked to reduce.
double x02ahc(void) { return from_bits(0x43F0000000000000); }
// 2^-53 with its last bit set: just above half an ulp of 1, so that 1 + eps
// rounds up and differs from 1.
double x02ajc(void) { return from_bits(0x3CA0000000000001); }
// The smallest normal double, 2^-1022.
double x02akc(void) { return from_bits(0x0010000000000000); }
double x02amc(void) { return x02akc(); }
double x02anc(void) { return x02akc(); }
// The largest finite double.
double x02alc(void) { return from_bits(0x7FEFFFFFFFFFFFFF); }

// The inner layer's words, from the same constants its C++ callers read.
double x02ahf(double x) { return zil::x02ahf(x); }
double x02ajf(void) { return zil::x02ajf(); }
double x02akf(void) { return zil::x02akf(); }
double x02amf(void) { return zil::x02amf(); }
double x02anf(void) { return zil::x02anf(); }
double x02alf(void) { return zil::x02alf(); }
Integer x02int_max(double x) { return zil::x02int_max(x); }
Integer x02base(void) { return zil::x02base(); }
Integer x02digits(void) { return zil::x02digits(); }
Integer x02emin(void) { return zil::x02emin(); }
Integer x02emax(void) { return zil::x02emax(); }
Boolean x02flag(double x) { return zil::x02flag(x); }

// Out of line on purpose: the callers rely on the sum being rounded to a
// double at the call, whatever the optimiser would like to keep in a register.
[[gnu::noinline]] double x02add(const double* a, const double* b) { return *a + *b; }

void x02consts_fill(x02consts* c) {
  c->base = 2.0;
  c->digits = 53.0;
  c->eps = x02ajc();
  c->sqrt_eps = std::sqrt(c->eps);
  c->small = x02akc();
  c->sqrt_small = std::sqrt(c->small);
  c->big = 1.0 / c->small;
  c->sqrt_big = std::sqrt(c->big);
  c->zero = 0.0;
}

}  // extern "C"
