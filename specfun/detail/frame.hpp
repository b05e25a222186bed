// The public frame of the real functions whose only failure is an argument
// at or below a bound: clear, compute, report the check or the success.
#pragma once

#include "frame/report.hpp"
#include "specfun/specfun.hpp"

namespace zil::sf {

inline double report_le(const char* routine, double x, Result r, double bound, const char* bound_text,
                        ZilError* fail) {
  Reporter rep(fail, routine);
  if (r.exit)
    rep.real_le("x", x, bound, bound_text);
  else
    rep.success();
  return r.value;
}

}  // namespace zil::sf
