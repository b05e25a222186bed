// The by-value inner forms that the statistics chapters call: the same
// kernels as the public routines, reporting through ifail.
#include "frame/inner.hpp"
#include "frame/report.hpp"
#include "specfun/specfun.hpp"

namespace zil {

namespace {
// The end of an inner form: 0 on success, else the failure number after the
// report that ifail asks for.  Every message carries the argument.
Integer inner_end(Integer ifail, int exit, const char* srname, const char* fmt, double x) {
  if (exit == 0) return 0;
  char text[kMessageSize];
  format_into(text, fmt, x);
  return inner_exit_f(ifail, exit, srname, text);
}
}  // namespace

double s01baf_f(double x, Integer& ifail) {
  const sf::Result r = sf::shifted_log(x);
  ifail = inner_end(ifail, r.exit, "S01BAF", " ** On entry, X .le. -1.0: X = %13.5e", x);
  return r.value;
}

double s07aaf_f(double x, Integer& ifail) {
  const sf::Result r = sf::tan(x);
  ifail = inner_end(ifail, r.exit, "S07AAF",
                    r.exit == 1 ? " ** On entry, abs(X) is too large: X = %13.5e"
                                : " ** X is too close to an odd multiple of pi/2: X = %13.5e",
                    x);
  return r.value;
}

double s14abf_f(double x, Integer& ifail) {
  const sf::Result r = sf::log_gamma(x);
  ifail = inner_end(ifail, r.exit, "S14ABF",
                    r.exit == 1 ? " ** On entry, X .le. 0.0: X = %13.5e" : " ** On entry, X is too large: X = %13.5e",
                    x);
  return r.value;
}

void s14baf_f(double a, double x, double tol, double& p, double& q, Integer& ifail) {
  const sf::GammaRatios r = sf::incomplete_gamma(a, x, tol);
  p = r.p;
  q = r.q;
  if (r.exit == 3) {
    const auto lines = edit_format("(' ** Algorithm fails to terminate in ',I4,' iterations.')", r.iterations);
    ifail = inner_exit_f(ifail, 3, "S14BAF", lines.front().c_str());
    return;
  }
  ifail = inner_end(ifail, r.exit, "S14BAF",
                    r.exit == 1 ? " ** On entry, A .le. 0.0: A = %13.5e" : " ** On entry, X .lt. 0.0: X = %13.5e",
                    r.exit == 1 ? a : x);
}

}  // namespace zil
