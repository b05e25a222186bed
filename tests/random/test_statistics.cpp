// Statistical sanity of each kind of generator: mean, variance, chi-squared
// on 1000 equal bins and lag-1 serial correlation, each within five
// standard deviations of its expected value.  The seeds are fixed, so every
// run sees the same numbers.
//
// The suite draws 10^6 numbers per generator; ZIL_RANDOM_DRAWS=100000000
// runs the long check by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "zil.h"

namespace {

long draws() {
  const char* s = std::getenv("ZIL_RANDOM_DRAWS");
  const long n = s ? std::atol(s) : 0;
  return n > 0 ? n : 1000000;
}

struct Summary {
  double mean, variance, chi2, serial, min, max;
};

Summary summarise(const std::function<double()>& next, long n) {
  constexpr int kBins = 1000;
  std::vector<long> bins(kBins, 0);
  // Shifted sums keep the variance free of cancellation.
  double s1 = 0, s2 = 0, lag = 0, lo = 1, hi = 0, prev = 0;
  for (long i = 0; i < n; ++i) {
    const double u = next();
    const double c = u - 0.5;
    s1 += c;
    s2 += c * c;
    if (i > 0) lag += prev * c;
    prev = c;
    lo = std::min(lo, u);
    hi = std::max(hi, u);
    ++bins[static_cast<int>(u * kBins)];
  }
  Summary r{};
  const double m = s1 / n;
  r.mean = 0.5 + m;
  r.variance = s2 / n - m * m;
  const double expected = static_cast<double>(n) / kBins;
  for (long b : bins) r.chi2 += (b - expected) * (b - expected) / expected;
  r.serial = (lag / (n - 1) - m * m) / r.variance;
  r.min = lo;
  r.max = hi;
  return r;
}

// positive: the base generator promises the open interval (0, 1).
void check(const std::string& name, const std::function<double()>& next, bool positive) {
  const long n = draws();
  const Summary s = summarise(next, n);
  std::printf("%-22s n=%ld mean-1/2=%+.3e var-1/12=%+.3e chi2(999)=%.1f r1=%+.3e min=%.3e 1-max=%.3e\n",
              name.c_str(), n, s.mean - 0.5, s.variance - 1.0 / 12, s.chi2, s.serial, s.min, 1 - s.max);
  // Standard deviations: of the mean sqrt(1/(12n)); of the sample variance
  // sqrt((1/80 - 1/144)/n); of chi-squared with 999 degrees sqrt(2*999);
  // of the serial correlation 1/sqrt(n).
  EXPECT_LT(std::fabs(s.mean - 0.5), 5 * std::sqrt(1.0 / (12.0 * n))) << name;
  EXPECT_LT(std::fabs(s.variance - 1.0 / 12), 5 * std::sqrt((1.0 / 80 - 1.0 / 144) / n)) << name;
  EXPECT_LT(std::fabs(s.chi2 - 999), 5 * std::sqrt(2.0 * 999)) << name;
  EXPECT_LT(std::fabs(s.serial), 5 / std::sqrt(static_cast<double>(n))) << name;
  if (positive)
    EXPECT_GT(s.min, 0.0) << name;
  else
    EXPECT_GE(s.min, 0.0) << name;
  EXPECT_LT(s.max, 1.0) << name;
}

TEST(G05Statistics, OlderSuite) {
  g05cbc(20240229);
  check("g05cac", g05cac, true);
}

TEST(G05Statistics, BaseGeneratorOfRngs) {
  Integer igen = 0;
  Integer iseed[4] = {1762, 0, 0, 0};
  g05kbc(&igen, iseed);
  check("g05kac igen 0", [&] { return g05kac(igen, iseed); }, true);
}

TEST(G05Statistics, WichmannHill) {
  for (Integer row : {1, 137, 273}) {
    Integer igen = row;
    Integer iseed[4] = {1, 2, 3, 4};
    g05kbc(&igen, iseed);
    check("g05kac igen " + std::to_string(row), [&] { return g05kac(igen, iseed); }, false);
  }
}

}  // namespace
