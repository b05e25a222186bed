// The clocks: wall-clock seconds, the local date and time, and the CPU time
// of the process.
#include <sys/resource.h>

#include <ctime>

#include "frame/env.hpp"
#include "frame/report.hpp"
#include "zil_env.h"

namespace zil {

Integer x05aac_from(std::time_t t) {
  if (t == static_cast<std::time_t>(-1)) {
    // No record to report into: the failure goes to the boxes of a null
    // fail, and the caller gets 0.
    p01acc(nullptr, ZE_SYSTEM_TIME, "x05aac", nullptr);
    return 0;
  }
  return static_cast<Integer>(t);
}

}  // namespace zil

extern "C" {

void x05date(Integer values[7]) {
  std::timespec now{};
  std::timespec_get(&now, TIME_UTC);
  std::tm local{};
  localtime_r(&now.tv_sec, &local);
  values[0] = local.tm_year + 1900;
  values[1] = local.tm_mon + 1;
  values[2] = local.tm_mday;
  values[3] = local.tm_hour;
  values[4] = local.tm_min;
  values[5] = local.tm_sec;
  values[6] = static_cast<Integer>(now.tv_nsec / 1000000);
}

float x05cpu(void) {
  rusage use{};
  getrusage(RUSAGE_SELF, &use);
  double user = static_cast<double>(use.ru_utime.tv_sec) + 1e-6 * static_cast<double>(use.ru_utime.tv_usec);
  double system = static_cast<double>(use.ru_stime.tv_sec) + 1e-6 * static_cast<double>(use.ru_stime.tv_usec);
  return static_cast<float>(user + system);
}

}  // extern "C"

extern "C" Integer x05aac(void) { return zil::x05aac_from(std::time(nullptr)); }
