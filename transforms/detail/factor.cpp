#include "transforms/detail/factor.hpp"

#include <initializer_list>

namespace zil::fft {

Integer factorise_trig(Integer n, Integer fac[kListSize]) {
  if (n < 1) return 0;
  if (n == 1) {
    fac[0] = 1;
    return 1;
  }
  Integer count = 0, r = n;
  auto take = [&](Integer d) {
    while (r % d == 0) {
      fac[count++] = d;
      r /= d;
    }
  };
  for (Integer d : {6, 4, 2, 3, 5}) take(d);
  // 7, 11, 13, 17, 19, 23, 25, ...: every number prime to 6.  Composite ones
  // never divide, their primes having gone before them.
  for (Integer d = 7, step = 4; r > 1; d += step, step = 6 - step) {
    if (static_cast<long long>(d) * d > r) {
      fac[count++] = r;
      break;
    }
    take(d);
  }
  return count;
}

}  // namespace zil::fft
