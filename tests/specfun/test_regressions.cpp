// Faults found after the chapter was first written, each named after what
// went wrong.
#include <gtest/gtest.h>

#include <cmath>

#include "zil.h"

namespace {

// The truncated and rounded expansion of exp(x^2) erfc(x) gave
// erfc(0) = 1 + 2^-52, which reached the normal probabilities at 0 and the
// two-tailed significance of a zero deviate.
TEST(Regression, ErfcAtZeroWasOneUnitAboveOne) {
  EXPECT_EQ(s15adc(0.0), 1.0);
  EXPECT_EQ(s15adc(-0.0), 1.0);
  EXPECT_EQ(s15aec(0.0), 0.0);
  EXPECT_EQ(s15abc(0.0), 0.5);
  EXPECT_EQ(s15acc(0.0), 0.5);
  ZilError e = {};
  EXPECT_EQ(g01eac(Zil_TwoTailSignif, 0.0, &e), 1.0);
  EXPECT_EQ(e.code, 0);
  const Complex w = s15ddc({0.0, 0.0}, &e);
  EXPECT_EQ(w.re, 1.0);
  EXPECT_EQ(w.im, 0.0);
}

// The same kind of slip at the other points where a function takes an
// exact value at the end of one of its expansions.
TEST(Regression, ExactValuesAtTheEndsOfExpansions) {
  ZilError e = {};
  for (double n : {1.0, 2.0, 3.0, 4.0, 7.0, 11.0}) {
    EXPECT_EQ(s14aac(n, &e), std::tgamma(n)) << n;  // (n-1)! is exact in double here
  }
  EXPECT_EQ(s14abc(1.0, &e), 0.0);
  EXPECT_EQ(s14abc(2.0, &e), 0.0);
  EXPECT_EQ(s10acc(0.0, &e), 1.0);
  EXPECT_EQ(s11acc(1.0, &e), 0.0);
  EXPECT_EQ(e.code, 0);
}

}  // namespace
