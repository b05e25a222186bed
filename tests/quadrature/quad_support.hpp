// Helpers of the integrator tests: one run with its record, and the checks
// every returned record must pass.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "zil.h"

namespace zil_test {

inline constexpr double eps = 0x1p-53;

struct Case {
  const char* name;
  Zil_QuadFun f;
  double a, b, exact;
};

struct QuadRun {
  double result = 0.0, abserr = 0.0;
  Integer code = -1;
  char message[512] = {};
  Zil_QuadReport qp{};
};

using FiniteRoutine = void (*)(Zil_QuadFun, double, double, double, double, Integer, double*,
                               double*, Zil_QuadReport*, ZilError*);

inline QuadRun run_finite(FiniteRoutine routine, const Case& c, double tol, Integer limit) {
  QuadRun r;
  ZilError fail{};
  routine(c.f, c.a, c.b, tol, tol, limit, &r.result, &r.abserr, &r.qp, &fail);
  r.code = fail.code;
  std::memcpy(r.message, fail.message, sizeof r.message);
  return r;
}

// Sorted by left end, consistent sums, zero tail.
inline void check_record(const Zil_QuadReport& qp, Integer limit, bool finite_values = true) {
  ASSERT_NE(qp.subint_lower, nullptr);
  ASSERT_GE(qp.subint_count, 1);
  ASSERT_LE(qp.subint_count, limit);
  for (Integer i = 1; i < qp.subint_count; ++i) EXPECT_LE(qp.subint_lower[i - 1], qp.subint_lower[i]);
  // Bisection leaves a partition of the range: in order of the left end,
  // each interval starts where the one before ends (or, on a reversed
  // range, ends where it starts), so every end travelled with its interval.
  if (finite_values)
    for (Integer i = 1; i < qp.subint_count; ++i) {
      const bool forward = qp.subint_upper[i - 1] == qp.subint_lower[i];
      const bool reversed = qp.subint_lower[i - 1] == qp.subint_upper[i];
      EXPECT_TRUE(forward || reversed) << "interval " << i;
    }
  for (Integer i = qp.subint_count; i < limit; ++i) {
    EXPECT_EQ(qp.subint_lower[i], 0.0);
    EXPECT_EQ(qp.subint_upper[i], 0.0);
    EXPECT_EQ(qp.subint_result[i], 0.0);
    EXPECT_EQ(qp.subint_error[i], 0.0);
  }
  if (finite_values)
    for (Integer i = 0; i < qp.subint_count; ++i) EXPECT_TRUE(std::isfinite(qp.subint_result[i]));
}

inline void release(Zil_QuadReport& qp) {
  x04bdc(reinterpret_cast<Pointer*>(&qp.subint_lower));
  x04bdc(reinterpret_cast<Pointer*>(&qp.subint_upper));
  x04bdc(reinterpret_cast<Pointer*>(&qp.subint_result));
  x04bdc(reinterpret_cast<Pointer*>(&qp.subint_error));
}

}  // namespace zil_test
