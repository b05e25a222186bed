// psi and its derivatives (real and complex) and the complex log gamma: the
// inner forms by reference, which hand failures up through errbuf, and the
// public routines that read it back.
#include <cmath>
#include <complex>
#include <cstring>
#include <span>
#include <type_traits>

#include "frame/export.hpp"
#include "frame/inner.hpp"
#include "frame/report.hpp"
#include "specfun/detail/polygamma.hpp"
#include "specfun/specfun.hpp"
#include "zil_specfun.h"

namespace zil {

namespace {

using sf::Cx;

// Record layouts: one real, one integer, or the two parts of a complex.
constexpr const char* kRealRecord = "(A,3(1X,I5),1X,1P,E13.5)";
constexpr const char* kIntRecord = "(A,3(1X,I5),1X,I16)";
constexpr const char* kComplexRecord = "(A,3(1X,I5),2(1X,1P,E13.5))";

struct Exit {
  Integer number;
  Integer msgid;
  const char* record;
  const char* message;  // edit-descriptor format of the printed report
};

// A failure of a by-reference form: the record for the public layer, then
// the report that ifail asks for.  Returns the value to leave in ifail.
Integer fail_with(Integer ifail, char* errbuf, const char* srname, const Exit& e,
                  std::span<const EditArg> values) {
  errbuf_write(errbuf, srname, e.number, e.msgid, e.record, values);
  return inner_exit_r(ifail, e.number, srname, edit_format(e.message, values));
}
Integer fail_with(Integer ifail, char* errbuf, const char* srname, const Exit& e, EditArg value) {
  return fail_with(ifail, errbuf, srname, e, std::span<const EditArg>(&value, 1));
}
Integer fail_with_complex(Integer ifail, char* errbuf, const char* srname, const Exit& e, Cx z) {
  const EditArg parts[] = {EditArg(z.real()), EditArg(z.imag())};
  return fail_with(ifail, errbuf, srname, e, parts);
}

// ln of the largest and the smallest normal double: a result beyond them
// overflows, or underflows into the subnormal range.
const double kLogHuge = std::log(sf::kHuge);
const double kLogTiny = std::log(sf::kTiny);

// Distance of z from the nearest pole of psi (0, -1, -2, ...).
template <class T>
double pole_distance(T z) {
  const double x = std::real(z);
  const double p = x >= 0.5 ? 0.0 : std::nearbyint(x);
  return std::abs(z - p);
}

template <class T>
bool is_pole(T z) {
  const double x = std::real(z);
  return std::imag(z) == 0.0 && x <= 0.0 && x == std::nearbyint(x);
}

// psi^(k) near a pole is about k!/d^(k+1); far out, for k >= 1, about
// (k-1)!/|z|^k.  0: fits, 2: underflows, 3: overflows.
int polygamma_range(int k, double d, double r) {
  const double log_fact = std::lgamma(k + 1.0);
  if (log_fact - (k + 1.0) * std::log(d) > kLogHuge) return 3;
  if (k >= 1 && std::lgamma(static_cast<double>(k)) - k * std::log(r) < kLogTiny) return 2;
  return 0;
}

}  // namespace

double S14ACF(double x, Integer& ifail, char* errbuf) {
  static constexpr Exit kBadX = {1, 99999, kRealRecord, "(' ** On entry, X.le.0.0: X =',1P,E13.5)"};
  static constexpr Exit kUnder = {2, 99998, kRealRecord, "(' ** X is too large, the result underflows: X =',1P,E13.5)"};
  static constexpr Exit kOver = {3, 99997, kRealRecord, "(' ** X is too small, the result overflows: X =',1P,E13.5)"};
  errbuf_reset(errbuf);
  // psi(x) - ln x is -1/(2x) for large x and -1/x for small x.
  const Exit* e = x <= 0.0 ? &kBadX : x > 0.5 / sf::kTiny ? &kUnder : x < 1.0 / sf::kHuge ? &kOver : nullptr;
  if (e) {
    ifail = fail_with(ifail, errbuf, "S14ACF", *e, x);
    return 0.0;
  }
  ifail = 0;
  return sf::psi_minus_log(x);
}

void S14ADF(double x, Integer n, Integer m, double* ans, Integer& ifail, char* errbuf) {
  static constexpr Exit kBadX = {1, 99999, kRealRecord, "(' ** On entry, X.le.0.0: X =',1P,E13.5)"};
  static constexpr Exit kBadN = {1, 99998, kIntRecord, "(' ** On entry, N.lt.0: N =',I16)"};
  static constexpr Exit kBadM = {1, 99997, kIntRecord, "(' ** On entry, M.lt.1: M =',I16)"};
  static constexpr Exit kUnder = {2, 99996, kRealRecord, "(' ** X or N+M-1 is too large, the results underflow: X =',1P,E13.5)"};
  static constexpr Exit kOver = {3, 99995, kRealRecord, "(' ** X is too small or N+M-1 too large, the results overflow: X =',1P,E13.5)"};
  errbuf_reset(errbuf);
  if (x <= 0.0) {
    ifail = fail_with(ifail, errbuf, "S14ADF", kBadX, x);
    return;
  }
  if (n < 0 || m < 1) {
    ifail = n < 0 ? fail_with(ifail, errbuf, "S14ADF", kBadN, static_cast<long>(n))
                  : fail_with(ifail, errbuf, "S14ADF", kBadM, static_cast<long>(m));
    return;
  }
  // zeta(s, x) for s = n+m is about x^-s (1 + x/(s - 1)): the highest order
  // decides both ends.
  const double s = static_cast<double>(n) + static_cast<double>(m);
  if (s >= 2.0) {
    const double log_top = -s * std::log(x) + std::log1p(x / (s - 1.0));
    if (log_top > kLogHuge || log_top < kLogTiny) {
      ifail = fail_with(ifail, errbuf, "S14ADF", log_top > 0.0 ? kOver : kUnder, x);
      return;
    }
  }
  for (Integer j = 0; j < m; ++j) {
    const double order = static_cast<double>(n) + static_cast<double>(j) + 1.0;
    ans[j] = order == 1.0 ? -sf::polygamma_right(0, x) : sf::hurwitz_zeta(order, x);
  }
  ifail = 0;
}

namespace {
// S14AEF and S14AFF: a pole, k outside 0..kmax, then the range of the result.
// exits holds the pole, k, underflow and overflow exits in that order.
template <class T>
T polygamma_checked(T z, Integer k, int kmax, Integer& ifail, char* errbuf, const char* srname,
                    const Exit (&exits)[4]) {
  const auto fail = [&](const Exit& e) {
    if constexpr (std::is_same_v<T, Cx>)
      return fail_with_complex(ifail, errbuf, srname, e, z);
    else
      return fail_with(ifail, errbuf, srname, e, z);
  };
  errbuf_reset(errbuf);
  if (is_pole(z)) {
    ifail = fail(exits[0]);
    return 0.0;
  }
  if (k < 0 || k > kmax) {
    ifail = fail_with(ifail, errbuf, srname, exits[1], static_cast<long>(k));
    return 0.0;
  }
  const int kk = static_cast<int>(k);
  if (const int range = polygamma_range(kk, pole_distance(z), std::abs(z))) {
    ifail = fail(range == 2 ? exits[2] : exits[3]);
    return 0.0;
  }
  ifail = 0;
  return sf::polygamma(kk, z);
}
}  // namespace

double S14AEF(double x, Integer k, Integer& ifail, char* errbuf) {
  static constexpr Exit kExits[] = {
      {1, 99999, kRealRecord, "(' ** On entry, X is 0 or a negative integer: X =',1P,E13.5)"},
      {1, 99998, kIntRecord, "(' ** On entry, K.lt.0 or K.gt.6: K =',I16)"},
      {2, 99997, kRealRecord, "(' ** X is too large, the result underflows: X =',1P,E13.5)"},
      {3, 99996, kRealRecord, "(' ** X is too close to a pole, the result overflows: X =',1P,E13.5)"},
  };
  return polygamma_checked(x, k, 6, ifail, errbuf, "S14AEF", kExits);
}

Cx S14AFF(Cx z, Integer k, Integer& ifail, char* errbuf) {
  static constexpr Exit kExits[] = {
      {1, 99999, kComplexRecord, "(' ** On entry, Z is 0 or a negative integer: Z = (',1P,E13.5,',',E13.5,')')"},
      {1, 99998, kIntRecord, "(' ** On entry, K.lt.0 or K.gt.4: K =',I16)"},
      {2, 99997, kComplexRecord, "(' ** abs(Z) is too large, the result underflows: Z = (',1P,E13.5,',',E13.5,')')"},
      {3, 99996, kComplexRecord, "(' ** Z is too close to a pole, the result overflows: Z = (',1P,E13.5,',',E13.5,')')"},
  };
  return polygamma_checked(z, k, 4, ifail, errbuf, "S14AFF", kExits);
}

Cx S14AGF(Cx z, Integer& ifail, char* errbuf) {
  static constexpr Exit kPole = {1, 99999, kComplexRecord, "(' ** On entry, Z is 0 or a negative integer: Z = (',1P,E13.5,',',E13.5,')')"};
  static constexpr Exit kOver = {2, 99998, kComplexRecord, "(' ** abs(Z) is too large, the result overflows: Z = (',1P,E13.5,',',E13.5,')')"};
  errbuf_reset(errbuf);
  // z ln z reaches the overflow limit just above |z| = 2.55e305.
  const Exit* e = is_pole(z) ? &kPole : std::abs(z) > 2.55e305 ? &kOver : nullptr;
  if (e) {
    ifail = fail_with_complex(ifail, errbuf, "S14AGF", *e, z);
    return 0.0;
  }
  ifail = 0;
  return sf::log_gamma(z);
}

}  // namespace zil

namespace {

using zil::ErrbufMessage;

constexpr const char* kRealX = "ZE_REAL:\n    On entry, x = %s.\nConstraint: x > 0.0.";
constexpr const char* kPoleX = "ZE_REAL:\n    On entry, x = %s.\nConstraint: x must not be 0.0 or a negative integer.";
constexpr const char* kPoleZ = "ZE_COMPLEX:\n    On entry, z = (%s, %s).\nConstraint: z must not be 0.0 or a negative integer.";

constexpr ErrbufMessage kS14ac[] = {
    {99999, ZE_REAL, 1, kRealX},
    {99998, ZE_UNDERFLOW_LIKELY, 1,
     "ZE_UNDERFLOW_LIKELY:\n    Computation halted due to likelihood of underflow.  x may be\n    too large. x = %s."},
    {99997, ZE_OVERFLOW_LIKELY, 1,
     "ZE_OVERFLOW_LIKELY:\n    Computation halted due to likelihood of overflow.  x may be\n    too small. x = %s."},
};
constexpr ErrbufMessage kS14ad[] = {
    {99999, ZE_REAL, 1, kRealX},
    {99998, ZE_INT, 1, "ZE_INT:\n    On entry, n = %s.\nConstraint: n >= 0."},
    {99997, ZE_INT, 1, "ZE_INT:\n    On entry, m = %s.\nConstraint: m >= 1."},
    {99996, ZE_UNDERFLOW_LIKELY, 1,
     "ZE_UNDERFLOW_LIKELY:\n    Computation halted due to likelihood of underflow.  x or n+m-1\n    may be too large. x = %s."},
    {99995, ZE_OVERFLOW_LIKELY, 1,
     "ZE_OVERFLOW_LIKELY:\n    Computation halted due to likelihood of overflow.  x may be too\n    small or n+m-1 too large. x = %s."},
    {99994, ZE_INTERNAL_WORKSPACE, 0, nullptr},
};
constexpr ErrbufMessage kS14ae[] = {
    {99999, ZE_REAL, 1, kPoleX},
    {99998, ZE_INT, 1, "ZE_INT:\n    On entry, k = %s.\nConstraint: 0 <= k <= 6."},
    {99997, ZE_UNDERFLOW_LIKELY, 1,
     "ZE_UNDERFLOW_LIKELY:\n    Computation halted due to likelihood of underflow.  x may be\n    too large. x = %s."},
    {99996, ZE_OVERFLOW_LIKELY, 1,
     "ZE_OVERFLOW_LIKELY:\n    Computation halted due to likelihood of overflow.  x is too\n    close to a pole. x = %s."},
};
constexpr ErrbufMessage kS14af[] = {
    {99999, ZE_COMPLEX, 2, kPoleZ},
    {99998, ZE_INT, 1, "ZE_INT:\n    On entry, k = %s.\nConstraint: 0 <= k <= 4."},
    {99997, ZE_UNDERFLOW_LIKELY, 2,
     "ZE_UNDERFLOW_LIKELY:\n    Computation halted due to likelihood of underflow.  |z| may be\n    too large. z = (%s, %s)."},
    {99996, ZE_OVERFLOW_LIKELY, 2,
     "ZE_OVERFLOW_LIKELY:\n    Computation halted due to likelihood of overflow.  z is too\n    close to a pole. z = (%s, %s)."},
};
constexpr ErrbufMessage kS14ag[] = {
    {99999, ZE_COMPLEX, 2, kPoleZ},
    {99998, ZE_OVERFLOW_LIKELY, 2,
     "ZE_OVERFLOW_LIKELY:\n    Computation halted due to likelihood of overflow.  |z| may be\n    too large. z = (%s, %s)."},
};

// The public frame over a by-reference inner form: clear code only, call
// with ifail = 1 and a zeroed record, then read the record back.
template <class Inner>
auto through_errbuf(ZilError* fail, const char* routine, std::span<const ErrbufMessage> messages, Inner inner) {
  zil::Reporter rep(fail, routine, zil::Reporter::Clear::CodeOnly);
  char errbuf[zil::kErrbufSize] = {};
  Integer ifail = 1;
  const auto value = inner(ifail, errbuf);
  if (ifail != 0)
    zil::report_errbuf(rep, errbuf, ifail, messages);
  else
    rep.success();
  return value;
}

Complex to_c(std::complex<double> z) { return {z.real(), z.imag()}; }
std::complex<double> from_c(Complex z) { return {z.re, z.im}; }

}  // namespace

extern "C" {

double s14acc(double x, ZilError* fail) {
  return through_errbuf(fail, "s14acc", kS14ac, [&](Integer& ifail, char* eb) { return zil::S14ACF(x, ifail, eb); });
}

void s14adc(double x, Integer n, Integer m, double ans[], ZilError* fail) {
  if (!ans) {
    zil::Reporter rep(fail, "s14adc", zil::Reporter::Clear::CodeOnly);
    rep.bad_param("ans");
    return;
  }
  through_errbuf(fail, "s14adc", kS14ad, [&](Integer& ifail, char* eb) {
    zil::S14ADF(x, n, m, ans, ifail, eb);
    return 0;
  });
}

double s14aec(double x, Integer k, ZilError* fail) {
  return through_errbuf(fail, "s14aec", kS14ae, [&](Integer& ifail, char* eb) { return zil::S14AEF(x, k, ifail, eb); });
}

Complex s14afc(Complex z, Integer k, ZilError* fail) {
  return to_c(through_errbuf(fail, "s14afc", kS14af,
                             [&](Integer& ifail, char* eb) { return zil::S14AFF(from_c(z), k, ifail, eb); }));
}

Complex s14agc(Complex z, ZilError* fail) {
  return to_c(
      through_errbuf(fail, "s14agc", kS14ag, [&](Integer& ifail, char* eb) { return zil::S14AGF(from_c(z), ifail, eb); }));
}

}  // extern "C"

ZIL_ALIAS(s14acc, zil_polygamma_fun);
ZIL_ALIAS(s14adc, zil_polygamma_deriv);
ZIL_ALIAS(s14aec, zil_real_polygamma);
ZIL_ALIAS(s14afc, zil_complex_polygamma);
ZIL_ALIAS(s14agc, zil_complex_log_gamma);
