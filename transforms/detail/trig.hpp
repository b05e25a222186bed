// The check that every routine taking a trig table made by c06gzc runs
// before it reads the table.  The stamp (n as a double in trig[n-1] and
// trig[2n-1]) is the whole of the check: it proves neither who built the
// table nor what the other slots hold.
#pragma once

#include "frame/report.hpp"
#include "zil_errors.h"

namespace zil::fft {

inline bool trig_stamp_ok(Integer n, const double* trig) {
  const double stamp = static_cast<double>(n);
  return trig[n - 1] == stamp && trig[2 * static_cast<long>(n) - 1] == stamp;
}

// Reports ZE_C06_NOT_TRIG naming the length and the table (n and trig, or
// m and trigm) and returns true when the stamp is wrong.  n must be >= 1.
inline bool trig_refused(Reporter& rep, Integer n, const double* trig, const char* n_name,
                         const char* trig_name) {
  if (trig_stamp_ok(n, trig)) return false;
  rep.raise(ZE_C06_NOT_TRIG, n_name, trig_name, trig_name);
  return true;
}

}  // namespace zil::fft
