// The single-sequence transforms c06eac, c06ebc, c06ecc, the convolution
// c06ekc and the two conjugations.  Every argument test and the
// factorisation come before the first change to the data, so a refused call
// leaves x and y as they were.
#include <cmath>
#include <initializer_list>
#include <utility>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "transforms/detail/factor.hpp"
#include "transforms/detail/passes.hpp"
#include "zil_errors.h"
#include "zil_fft.h"

namespace {

using zil::fft::Factors;

// The tests shared by the transforms, in argument order: the length and
// the arrays, then the length's factors.  True when the call is refused.
bool bad_arguments(zil::Reporter& rep, Integer n,
                   std::initializer_list<std::pair<const void*, const char*>> arrays) {
  if (rep.int_le("n", n, 1)) return true;
  for (auto [array, name] : arrays)
    if (rep.null_param(array, name)) return true;
  return false;
}

bool unfactorable(zil::Reporter& rep, Integer n, Factors& fac) {
  switch (zil::fft::factorise(n, fac)) {
    case zil::fft::FactorStatus::ok: return false;
    case zil::fft::FactorStatus::prime_above_limit: rep.raise(ZE_C06_FACTOR_GT); return true;
    case zil::fft::FactorStatus::too_many_factors:
      rep.raise(ZE_C06_TOO_MANY_FACTORS, zil::fft::kMaxFactors);
      return true;
  }
  return true;
}

bool refused(zil::Reporter& rep, Integer n, Factors& fac,
             std::initializer_list<std::pair<const void*, const char*>> arrays) {
  return bad_arguments(rep, n, arrays) || unfactorable(rep, n, fac);
}

double root_n(Integer n) { return std::sqrt(static_cast<double>(n)); }

}  // namespace

namespace {

// c06eac and c06ebc differ only in their transform; the real one divides
// by sqrt(n) in its last pass.
void one_real_array(const char* routine, Integer n, double* x, ZilError* fail, bool real) {
  zil::Reporter rep(fail, routine);
  if (bad_arguments(rep, n, {{x, "x"}})) return;
  // A short length with passes of its own needs no factor lists, and its
  // factorisation cannot fail: at 64 the lists were a sixth of the call.
  if (real && zil::fft::real_transform_short(n, x, root_n(n))) return rep.success();
  Factors fac;
  if (unfactorable(rep, n, fac)) return;
  if (real) {
    zil::fft::real_transform(n, fac, x, root_n(n));
  } else {
    zil::fft::hermitian_transform(n, fac, x);
    zil::fft::divide(n, x, root_n(n));
  }
  rep.success();
}

}  // namespace

extern "C" void c06eac(Integer n, double x[], ZilError* fail) {
  one_real_array("c06eac", n, x, fail, true);
}

extern "C" void c06ebc(Integer n, double x[], ZilError* fail) {
  one_real_array("c06ebc", n, x, fail, false);
}

extern "C" void c06ecc(Integer n, double x[], double y[], ZilError* fail) {
  zil::Reporter rep(fail, "c06ecc");
  if (bad_arguments(rep, n, {{x, "x"}, {y, "y"}})) return;
  if (zil::fft::complex_transform_short(n, x, y, root_n(n))) return rep.success();  // as c06eac
  Factors fac;
  if (unfactorable(rep, n, fac)) return;
  zil::fft::complex_transform(n, fac, x, y, root_n(n));
  rep.success();
}

extern "C" void c06ekc(Integer job, Integer n, double x[], double y[], ZilError* fail) {
  zil::Reporter rep(fail, "c06ekc");
  if (rep.enum_in(job == Zil_Convolution || job == Zil_Correlation, "Operation")) return;
  Factors fac;
  if (refused(rep, n, fac, {{x, "x"}, {y, "y"}})) return;

  const double rn = root_n(n);
  zil::fft::real_transform(n, fac, x, rn);
  zil::fft::real_transform(n, fac, y, rn);

  // With X and Y the unitary transforms, X*Y (conj(X)*Y for the
  // correlation) is the plain transform of the result.  y keeps it and x
  // takes its conjugate, which the unscaled Hermitian transform turns into
  // n times the result.
  const double sign = job == Zil_Correlation ? -1.0 : 1.0;
  x[0] *= y[0];
  y[0] = x[0];
  for (Integer j = 1; 2 * j < n; ++j) {
    const double ar = x[j], ai = sign * x[n - j], br = y[j], bi = y[n - j];
    const double pr = ar * br - ai * bi, pi = ar * bi + ai * br;
    y[j] = x[j] = pr;
    y[n - j] = pi;
    x[n - j] = -pi;
  }
  if (n % 2 == 0) {
    x[n / 2] *= y[n / 2];
    y[n / 2] = x[n / 2];
  }
  zil::fft::hermitian_transform(n, fac, x);
  zil::fft::divide(n, x, static_cast<double>(n));
  zil::fft::divide(n, y, rn);
  rep.success();
}

namespace {

// The conjugations accept n = 1 (nothing to negate in c06gbc).
void negate(Integer from, Integer to, double* v) {
  for (Integer i = from; i < to; ++i) v[i] = -v[i];
}

}  // namespace

extern "C" void c06gbc(Integer n, double x[], ZilError* fail) {
  zil::Reporter rep(fail, "c06gbc");
  if (rep.int_lt("n", n, 1) || rep.null_param(x, "x")) return;
  negate(n / 2 + 1, n, x);
  rep.success();
}

extern "C" void c06gcc(Integer n, double y[], ZilError* fail) {
  zil::Reporter rep(fail, "c06gcc");
  if (rep.int_lt("n", n, 1) || rep.null_param(y, "y")) return;
  negate(0, n, y);
  rep.success();
}

ZIL_ALIAS(c06eac, zil_fft_real);
ZIL_ALIAS(c06ebc, zil_fft_hermitian);
ZIL_ALIAS(c06ecc, zil_fft_complex);
ZIL_ALIAS(c06ekc, zil_convolution_real);
ZIL_ALIAS(c06gbc, zil_conjugate_hermitian);
ZIL_ALIAS(c06gcc, zil_conjugate_complex);
