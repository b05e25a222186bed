// The inner forms C06EAF and C06EBF: the same transforms as c06eac and
// c06ebc, with ifail failure numbers and the inner factoriser's count test.
#include <gtest/gtest.h>

#include <vector>

#include "fft_test_util.hpp"
#include "transforms/inner.hpp"

namespace {

TEST(FftInner, SameResultsAsThePublicForms) {
  for (Integer n : {2, 19, 720, 2310}) {
    auto a = fftt::data(n, 3), b = a;
    Integer ifail = 1;
    zil::C06EAF(a.data(), &n, &ifail);
    EXPECT_EQ(ifail, 0);
    c06eac(n, b.data(), nullptr);
    EXPECT_EQ(a, b) << n;
    zil::C06EBF(a.data(), &n, &ifail);
    EXPECT_EQ(ifail, 0);
    c06ebc(n, b.data(), nullptr);
    EXPECT_EQ(a, b) << n;
  }
}

// Soft and silent: ifail leaves as the failure number.  A refused length is
// refused before the data is read, so a short array stands in for it and
// must come back untouched.
TEST(FftInner, FailureNumbers) {
  struct Case {
    Integer n, ifail;
  } cases[] = {{1, 3}, {0, 3}, {23, 1}, {46, 1}, {1 << 21, 2}, {23 << 20, 2}};
  for (const Case& c : cases) {
    std::vector<double> x(4, 1.5);
    for (auto form : {zil::C06EAF, zil::C06EBF}) {
      Integer ifail = 1, n = c.n;
      form(x.data(), &n, &ifail);
      EXPECT_EQ(ifail, c.ifail) << c.n;
    }
    EXPECT_EQ(x, std::vector<double>(4, 1.5));
  }
}

// 2^19 * 9 has 21 prime factors; the inner count test lets the last pair
// through, and the transform is still exact to rounding.
TEST(FftInner, TwentyOneFactorsPassTheInnerTest) {
  if (fftt::kSanitized) GTEST_SKIP() << "left to the optimised build";
  Integer n = (1 << 19) * 9, ifail = 1;
  const auto x0 = fftt::data(n, 4);
  auto x = x0;
  zil::C06EAF(x.data(), &n, &ifail);
  ASSERT_EQ(ifail, 0);
  c06gbc(n, x.data(), nullptr);
  zil::C06EBF(x.data(), &n, &ifail);
  ASSERT_EQ(ifail, 0);
  EXPECT_LE(fftt::rms_rel(x, x0), fftt::bound(n));
  ZilError fail{};
  c06eac(n, x.data(), &fail);
  EXPECT_EQ(fail.code, ZE_C06_TOO_MANY_FACTORS);
}

}  // namespace
