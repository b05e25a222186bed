// c06gzc and the factorisation it rests on, c06fpz: the table of cosines and
// negated sines read by the multiple-sequence transforms.
#include <cmath>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "transforms/detail/factor.hpp"
#include "transforms/detail/kernels.hpp"
#include "zil_errors.h"
#include "zil_fft.h"

extern "C" void c06fpz(Integer n, Integer* nfac, Integer fac[]) {
  *nfac = zil::fft::factorise_trig(n, fac);
}

extern "C" void c06gzc(Integer n, double trig[], ZilError* fail) {
  zil::Reporter rep(fail, "c06gzc");
  if (rep.int_lt("n", n, 1)) return;
  if (rep.null_param(trig, "trig")) return;

  Integer fac[zil::fft::kListSize], nfac;
  c06fpz(n, &nfac, fac);

  // First the angles, slot by slot, in the order the passes read them; the
  // sines and cosines follow in place, the cosine overwriting its angle.
  double d = zil::fft::kTwoPi / n;
  Integer m = n, p = 0;
  for (Integer i = 0; i < nfac; ++i) {
    const Integer f = fac[i];
    m /= f;
    const Integer first = p;
    for (Integer j = 1; j < f; ++j)
      for (Integer k = 0; k < m; ++k) trig[p++] = static_cast<double>(k * j) * d;
    // For the general radix the slots of the trivial angle carry the
    // radix's own roots of unity, which that pass reads as its constants.
    if (f >= 7)
      for (Integer j = 1; j < f; ++j) trig[first + (j - 1) * m] = static_cast<double>(j * m) * d;
    d *= f;
  }
  for (Integer k = 0; k + 1 < n; ++k) {
    const double a = trig[k];
    trig[k] = std::cos(a);
    trig[static_cast<long>(n) + k] = -std::sin(a);
  }
  trig[n - 1] = trig[2 * static_cast<long>(n) - 1] = static_cast<double>(n);
  rep.success();
}

ZIL_ALIAS(c06gzc, zil_fft_init_trig);
