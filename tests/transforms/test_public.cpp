// The public routines' contracts: refused lengths and arguments with their
// codes and texts, data untouched on failure, edge lengths, conjugations,
// convolution and correlation, NaN passing through.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "fft_test_util.hpp"

namespace {

using fftt::data;

// The text is checked only once the code table holds the code's format.
void expect_report(const ZilError& fail, Integer code, const char* text) {
  EXPECT_EQ(fail.code, code);
  if (zil_errlist[code] && zil_errlist[code][0] != '\0') EXPECT_STREQ(fail.message, text);
}

// Each call refuses n and leaves every array bit for bit as it was.
struct Case {
  Integer n;
  Integer code;
  const char* text;
};

const char* const kLe1 = "ZE_INT_ARG_LE:\n  On entry, n must not be less than or equal to 1: n = %d.";
const char* const kPrime = "ZE_C06_FACTOR_GT:\n  At least one of the prime factors of n is greater than 19.";
const char* const kTooMany = "ZE_C06_TOO_MANY_FACTORS:\n  n has more than 20 prime factors.";

std::vector<Case> refused_lengths() {
  return {{1, ZE_INT_ARG_LE, kLe1},       {0, ZE_INT_ARG_LE, kLe1},
          {-5, ZE_INT_ARG_LE, kLe1},      {23, ZE_C06_FACTOR_GT, kPrime},
          {46, ZE_C06_FACTOR_GT, kPrime}, {23 * 19 * 19, ZE_C06_FACTOR_GT, kPrime},
          {1 << 21, ZE_C06_TOO_MANY_FACTORS, kTooMany},
          {3 << 20, ZE_C06_TOO_MANY_FACTORS, kTooMany}};
}

std::string text_for(const Case& c) {
  char buf[200];
  std::snprintf(buf, sizeof buf, c.text, c.n);
  return buf;
}

TEST(FftRefused, LengthsLeaveDataUntouched) {
  for (const Case& c : refused_lengths()) {
    const long len = c.n > 0 ? c.n : 1;
    if (fftt::kSanitized && len > (1 << 16)) continue;
    const auto x0 = data(len, 1), y0 = data(len, 2);
    auto x = x0, y = y0;
    ZilError fail{};
    const std::string want = text_for(c);
    c06eac(c.n, x.data(), &fail);
    expect_report(fail, c.code, want.c_str());
    c06ebc(c.n, x.data(), &fail);
    expect_report(fail, c.code, want.c_str());
    c06ecc(c.n, x.data(), y.data(), &fail);
    expect_report(fail, c.code, want.c_str());
    c06ekc(Zil_Convolution, c.n, x.data(), y.data(), &fail);
    expect_report(fail, c.code, want.c_str());
    EXPECT_EQ(std::memcmp(x.data(), x0.data(), len * sizeof(double)), 0) << c.n;
    EXPECT_EQ(std::memcmp(y.data(), y0.data(), len * sizeof(double)), 0) << c.n;
  }
}

TEST(FftRefused, AcceptedNearTheLimits) {
  for (Integer n : {2, 19, 19 * 19 * 32, 1 << 20, 3 << 19}) {
    if (fftt::kSanitized && n > (1 << 16)) continue;
    auto x = data(n, 3);
    ZilError fail{};
    c06eac(n, x.data(), &fail);
    EXPECT_EQ(fail.code, 0) << n;
  }
}

TEST(FftRefused, ConjugationsAndTableAcceptOne) {
  ZilError fail{};
  double v[2] = {3.0, 4.0};
  c06gbc(1, v, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(v[0], 3.0);
  c06gcc(1, v, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(v[0], -3.0);
  double trig[2] = {0, 0};
  c06gzc(1, trig, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(trig[0], 1.0);
  EXPECT_EQ(trig[1], 1.0);
  const char* lt = "ZE_INT_ARG_LT:\n  On entry, n must not be less than 1: n = 0.";
  c06gbc(0, v, &fail);
  expect_report(fail, ZE_INT_ARG_LT, lt);
  c06gcc(0, v, &fail);
  expect_report(fail, ZE_INT_ARG_LT, lt);
  c06gzc(0, trig, &fail);
  expect_report(fail, ZE_INT_ARG_LT, lt);
  EXPECT_EQ(v[0], -3.0);
  EXPECT_EQ(trig[0], 1.0);
}

TEST(FftRefused, NullArraysAndJob) {
  ZilError fail{};
  double v[4] = {};
  c06eac(4, nullptr, &fail);
  EXPECT_EQ(fail.code, ZE_BAD_PARAM);
  c06ecc(4, v, nullptr, &fail);
  EXPECT_EQ(fail.code, ZE_BAD_PARAM);
  c06gzc(4, nullptr, &fail);
  EXPECT_EQ(fail.code, ZE_BAD_PARAM);
  // The job is the first argument, so it is tested before n.
  c06ekc(Zil_Convolution + 7, 1, v, v, &fail);
  EXPECT_EQ(fail.code, ZE_BAD_PARAM);
  if (zil_errlist[ZE_BAD_PARAM]) EXPECT_NE(std::strstr(fail.message, "Operation"), nullptr);
  // A null record: the failure is shown and the call returns.
  c06eac(1, v, nullptr);
  c06eac(4, v, nullptr);
}

// Success goes through the reporter: the handler sees code 0.
TEST(FftRefused, SuccessReachesTheHandler) {
  static int calls = 0;
  ZilError fail{};
  fail.handler = [](const char*, Integer code, const char* routine) {
    if (code == 0 && std::strcmp(routine, "c06ecc") == 0) ++calls;
  };
  double x[6] = {1, 2, 3, 4, 5, 6}, y[6] = {};
  c06ecc(6, x, y, &fail);
  EXPECT_EQ(calls, 1);
}

TEST(FftEdges, LengthTwo) {
  double x[2] = {3.0, 1.0};
  ZilError fail{};
  c06eac(2, x, &fail);
  EXPECT_DOUBLE_EQ(x[0], 4.0 / std::sqrt(2.0));
  EXPECT_DOUBLE_EQ(x[1], 2.0 / std::sqrt(2.0));
}

// A constant real sequence: all its weight in z(0) = sqrt(n) * c.
TEST(FftEdges, ConstantAndImpulse) {
  for (Integer n : {12, 19, 720}) {
    std::vector<double> x(n, 2.0);
    ZilError fail{};
    c06eac(n, x.data(), &fail);
    EXPECT_NEAR(x[0], 2.0 * std::sqrt(n), 8 * fftt::kEps * std::sqrt(n));
    for (Integer j = 1; j < n; ++j) EXPECT_NEAR(x[j], 0.0, 8 * fftt::kEps * std::sqrt(n));
    // An impulse at 1: z(k) = exp(-i*2*pi*k/n)/sqrt(n).
    std::vector<double> re(n, 0.0), im(n, 0.0);
    re[1] = 1.0;
    c06ecc(n, re.data(), im.data(), &fail);
    for (Integer k = 0; k < n; ++k) {
      const double a = 6.283185307179586 * k / n;
      EXPECT_NEAR(re[k], std::cos(a) / std::sqrt(n), 4 * fftt::kEps) << k;
      EXPECT_NEAR(im[k], -std::sin(a) / std::sqrt(n), 4 * fftt::kEps) << k;
    }
  }
}

// c06gbc leaves x[0] and, for even n, x[n/2]: both are real parts.
TEST(FftEdges, ConjugateHermitianLayout) {
  for (Integer n : {7, 8}) {
    auto x = data(n, 5);
    const auto x0 = x;
    ZilError fail{};
    c06gbc(n, x.data(), &fail);
    for (Integer j = 0; j < n; ++j) EXPECT_EQ(x[j], j > n / 2 ? -x0[j] : x0[j]) << j;
  }
}

// The inverse pairs stated for the Hermitian transform.
TEST(FftEdges, HermitianInverses) {
  const Integer n = 360;
  const auto x0 = data(n, 9);
  auto x = x0;
  ZilError fail{};
  c06ebc(n, x.data(), &fail);
  c06eac(n, x.data(), &fail);
  c06gbc(n, x.data(), &fail);
  EXPECT_LE(fftt::rms_rel(x, x0), fftt::bound(n));
}

TEST(FftEdges, NanAndInfinityPassThrough) {
  for (Integer n : {16, 30, 19}) {
    auto x = data(n, 4), y = data(n, 5);
    x[3] = std::nan("");
    y[1] = INFINITY;
    ZilError fail{};
    c06ecc(n, x.data(), y.data(), &fail);
    EXPECT_EQ(fail.code, 0);
    EXPECT_TRUE(std::isnan(x[0]) || std::isnan(y[0]));
    auto r = data(n, 6);
    r[2] = -INFINITY;
    c06eac(n, r.data(), &fail);
    EXPECT_EQ(fail.code, 0);
    EXPECT_FALSE(std::isfinite(r[0]));
  }
}

// Convolution and correlation against their defining sums in long double.
// x passes through two forward transforms and one inverse, so the bound is
// taken three times over.
TEST(FftConvolution, AgainstDefiningSums) {
  for (Integer n : {2, 3, 7, 12, 30, 64, 100, 209}) {
    const auto a = data(n, 10 + n), b = data(n, 20 + n);
    for (Integer job : {Zil_Convolution, Zil_Correlation}) {
      std::vector<long double> want(n);
      for (Integer k = 0; k < n; ++k) {
        long double s = 0;
        for (Integer j = 0; j < n; ++j) {
          const Integer i = job == Zil_Convolution ? ((k - j) % n + n) % n : (j + k) % n;
          s += static_cast<long double>(a[j]) * b[i];
        }
        want[k] = s / n;
      }
      auto x = a, y = b;
      ZilError fail{};
      c06ekc(job, n, x.data(), y.data(), &fail);
      ASSERT_EQ(fail.code, 0);
      EXPECT_LE(fftt::rms_rel(x, want), 3 * fftt::bound(n)) << n << " job " << job;
      // y holds the transform of the result.
      std::vector<double> z(want.begin(), want.end());
      c06eac(n, z.data(), &fail);
      EXPECT_LE(fftt::rms_rel(y, z), 3 * fftt::bound(n)) << n << " job " << job;
    }
  }
}

}  // namespace
