#include "transforms/inner.hpp"

#include <cmath>

#include "frame/inner.hpp"
#include "transforms/detail/factor.hpp"
#include "transforms/detail/passes.hpp"

namespace {

// The failure texts of one inner form, by ifail - 1, and whether each
// prints N.
struct InnerMessages {
  const char* srname;
  const char* text[4];
  bool shows_n[4];
};

constexpr InnerMessages kC06EAF = {
    "C06EAF",
    {"(' ** At least one of the prime factors of N is greate','r than 19.')",
     "(' ** N has more than 20 prime factors.')", "(' ** On entry, N .le. 1: N = ',I16,'.')",
     "(' ** Unexpected error in an internal call.')"},
    {false, false, true, false}};

constexpr InnerMessages kC06EBF = {
    "C06EBF",
    {"(' ** At least one prime factor of N is greater than 19.',/,4X,'N =',I16,'.')",
     "(' ** N has more than 20 prime factors.',/,4X,'N =',I16,'.')",
     "(' ** On entry, N .le. 1: N =',I16,'.')", "(' ** Unexpected failure in an internal call.')"},
    {true, true, true, false}};

Integer fail_with(const InnerMessages& form, Integer ifail, Integer ierror, Integer n) {
  const int i = ierror - 1;
  const auto lines = form.shows_n[i] ? zil::edit_format(form.text[i], static_cast<long>(n))
                                     : zil::edit_format(form.text[i]);
  return zil::inner_exit_r(ifail, ierror, form.srname, lines);
}

template <class Transform>
void run(const InnerMessages& form, double* x, Integer n, Integer* ifail, Transform transform) {
  if (n <= 1) {
    *ifail = fail_with(form, *ifail, 3, n);
    return;
  }
  // The inner factoriser refuses a length whose count of prime factors has
  // already reached 20 before it takes the next one.
  zil::fft::Factors fac;
  switch (zil::fft::factorise(n, fac, zil::fft::CountTest::before_taking)) {
    case zil::fft::FactorStatus::ok: break;
    case zil::fft::FactorStatus::prime_above_limit: *ifail = fail_with(form, *ifail, 1, n); return;
    case zil::fft::FactorStatus::too_many_factors: *ifail = fail_with(form, *ifail, 2, n); return;
  }
  transform(n, fac, x, std::sqrt(static_cast<double>(n)));
  *ifail = 0;
}

}  // namespace

namespace zil {

void C06EAF(double x[], const Integer* n, Integer* ifail) {
  run(kC06EAF, x, *n, ifail, [](Integer len, const fft::Factors& fac, double* v, double d) {
    fft::real_transform(len, fac, v, d);
  });
}

void C06EBF(double x[], const Integer* n, Integer* ifail) {
  run(kC06EBF, x, *n, ifail, [](Integer len, const fft::Factors& fac, double* v, double d) {
    fft::hermitian_transform(len, fac, v);
    fft::divide(len, v, d);
  });
}

}  // namespace zil
