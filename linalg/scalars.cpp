// The safeguarded scalars, rotation generation, the Householder generator
// with a tolerance and the small vector helpers.
#include <algorithm>
#include <cmath>

#include "linalg/detail/consts.hpp"
#include "linalg/detail/kernels.hpp"
#include "linalg/detail/strided.hpp"
#include "zil_linalg.h"

namespace zil::linalg {
namespace {

// The two constant sets of the safeguards: the machine's own values, and
// the decimal constants of IEEE double precision that the second forms
// carry written into them.
struct MachineConsts {
  static double rteps() { return std::sqrt(machine_eps()); }
  static double rrteps() { return 1.0 / std::sqrt(machine_eps()); }
  static double small() { return safe_min(); }
  static double flmax() { return fl_max(); }
};
struct IeeeConsts {
  static double rteps() { return 1.05367121277235e-8; }
  static double rrteps() { return 94906265.6242515; }
  static double small() { return 2.22507385850722e-308; }
  static double flmax() { return 4.49423283715585e307; }
};

template <class K>
double divide(double a, double b, Integer& fail) {
  if (a == 0.0) {
    fail = b == 0.0 ? 1 : 0;
    return 0.0;
  }
  if (b == 0.0) {
    fail = 1;
    return std::copysign(K::flmax(), a);
  }
  double absb = std::fabs(b), absa = std::fabs(a);
  if (absb >= 1.0) {
    // Only underflow is possible: a quotient below the safe range is 0.
    fail = 0;
    return absb * K::small() > absa ? 0.0 : a / b;
  }
  // |b| < 1 can overflow the quotient; the test is made without dividing.
  if (absb * K::flmax() < absa) {
    fail = 1;
    return (a < 0.0) != (b < 0.0) ? -K::flmax() : K::flmax();
  }
  fail = 0;
  return a / b;
}

template <class K>
void from_tangent(double t, double& c, double& s) {
  double at = std::fabs(t);
  if (at < K::rteps()) {
    // 1 + t^2 rounds to 1.
    c = 1.0;
    s = t;
  } else if (at <= K::rrteps()) {
    c = 1.0 / std::sqrt(1.0 + t * t);
    s = c * t;
  } else {
    // t^2 would dominate 1 entirely (or overflow).
    c = 1.0 / at;
    s = t >= 0.0 ? 1.0 : -1.0;
  }
}

template <class K>
void generate(double& a, double& b, double& c, double& s) {
  if (b == 0.0) {
    c = 1.0;
    s = 0.0;
    return;
  }
  Integer fail;
  double t = divide<K>(b, a, fail);
  from_tangent<K>(t, c, s);
  a = c * a + s * b;
  b = t;
}

// The three ways of forming beta and applying the scaling to x.
enum class Reflector { Plain, Kalman, Qr };

template <Reflector V>
void householder(Integer n, double& alpha, double x[], Integer incx, double tol, double& zeta) {
  zeta = 0.0;
  if (n < 1 || (n == 1 && x[0] == 0.0)) return;
  double thresh = std::max(std::fabs(alpha) * machine_eps(), tol);
  if (n == 1) {
    if (alpha == 0.0) {
      zeta = 1.0;
      alpha = std::fabs(x[0]);
      x[0] = x[0] > 0.0 ? -1.0 : 1.0;
      return;
    }
    if (std::fabs(x[0]) <= thresh) return;
    double beta = f06bnc(alpha, x[0]);
    zeta = std::sqrt((std::fabs(alpha) + beta) / beta);
    if (alpha >= 0.0) beta = -beta;
    x[0] = -x[0] / (beta * zeta);
    alpha = beta;
    return;
  }
  double scale = 0.0, sumsq = 1.0;
  f06fjc(n, x, incx, &scale, &sumsq);
  if (scale == 0.0 || scale <= thresh) return;
  double beta;
  if (alpha == 0.0) {
    zeta = 1.0;
    beta = V == Reflector::Kalman ? f06bmc(scale, sumsq) : scale * std::sqrt(sumsq);
  } else {
    if (V == Reflector::Kalman) {
      f06fjc(1, &alpha, 1, &scale, &sumsq);
      beta = f06bmc(scale, sumsq);
    } else if (std::fabs(alpha) > scale) {
      double q = scale / alpha;
      beta = std::fabs(alpha) * std::sqrt(q * q * sumsq + 1.0);
    } else {
      double q = alpha / scale;
      beta = scale * std::sqrt(q * q + sumsq);
    }
    zeta = std::sqrt((std::fabs(alpha) + beta) / beta);
    if (alpha > 0.0) beta = -beta;
  }
  double d = alpha == 0.0 ? beta : zeta * beta;
  if (V == Reflector::Qr && std::fabs(beta) < safe_min()) {
    // The reciprocal of a tiny divisor would overflow: divide instead.
    walk1(n, x, incx, [d](double& v) { v = -v / d; });
  } else {
    f06edc(n, -1.0 / d, x, incx);
  }
  alpha = beta;
}

}  // namespace

double safe_divide(double a, double b, Integer& fail) { return divide<MachineConsts>(a, b, fail); }
double safe_divide_ieee(double a, double b, Integer& fail) { return divide<IeeeConsts>(a, b, fail); }
void rotation_from_tangent_ieee(double t, double& c, double& s) { from_tangent<IeeeConsts>(t, c, s); }
void rotation_generate(double& a, double& b, double& c, double& s) { generate<MachineConsts>(a, b, c, s); }
void rotation_generate_ieee(double& a, double& b, double& c, double& s) { generate<IeeeConsts>(a, b, c, s); }

void householder_kalman(Integer n, double& alpha, double x[], Integer incx, double tol, double& zeta) {
  householder<Reflector::Kalman>(n, alpha, x, incx, tol, zeta);
}
void householder_qr(Integer n, double& alpha, double x[], Integer incx, double tol, double& zeta) {
  householder<Reflector::Qr>(n, alpha, x, incx, tol, zeta);
}

Integer first_small_element(Integer n, const double x[], Integer incx, double tol) {
  if (n < 1) return 0;
  if (tol < 0.0) tol = machine_eps();
  double xmax = std::fabs(x[0]);
  Index ix = 0;
  for (Integer k = 0; k < n; ++k, ix += incx) {
    double a = std::fabs(x[ix]);
    if (a <= xmax * tol) return k;
    xmax = std::max(xmax, a);
  }
  return n;
}

void element_product(Integer n, const double x[], Integer incx, double y[], Integer incy) {
  if (n < 1) return;
  if (incx == 0) return f06edc(n, x[0], y, incy);
  walk2(n, x, incx, y, incy, [](double a, double& b) { b *= a; });
}

void element_quotient(Integer n, const double x[], Integer incx, double y[], Integer incy) {
  if (n < 1) return;
  if (incx == 0) return f06edc(n, 1.0 / x[0], y, incy);
  walk2(n, x, incx, y, incy, [](double a, double& b) { b /= a; });
}

void min_max_abs(Integer n, const double x[], Integer incx, double& xmax, double& xmin) {
  xmax = 0.0;
  xmin = 0.0;
  if (n < 1) return;
  xmax = xmin = std::fabs(x[0]);
  walk1(n, x, incx, [&](double v) {
    double a = std::fabs(v);
    xmax = std::max(xmax, a);
    xmin = std::min(xmin, a);
  });
}

}  // namespace zil::linalg

using namespace zil::linalg;

extern "C" void f06bcc(double t, double* c, double* s) { from_tangent<MachineConsts>(t, *c, *s); }

extern "C" double f06bnc(double a, double b) {
  if (a == 0.0) return std::fabs(b);
  if (b == 0.0) return std::fabs(a);
  double aa = std::fabs(a), ab = std::fabs(b);
  if (aa >= ab) {
    double q = b / a;
    return aa * std::sqrt(q * q + 1.0);
  }
  double q = a / b;
  return ab * std::sqrt(q * q + 1.0);
}

extern "C" void f06frc(Integer n, double* alpha, double x[], Integer incx, double tol, double* zeta) {
  householder<Reflector::Plain>(n, *alpha, x, incx, tol, *zeta);
}
