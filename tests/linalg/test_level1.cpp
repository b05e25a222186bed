// Level-1 vector routines against plain reference loops.
#include <algorithm>
#include <cfloat>
#include <limits>

#include "linalg/support.hpp"

using namespace kt;

namespace {

struct Strides {
  int incx, incy;
};
const Strides kStrides[] = {{1, 1}, {2, 3}, {-1, 1}, {3, -2}, {-2, -3}};

TEST(Level1, DotFollowsThePublishedStrideRule) {
  for (int n : {0, 1, 7, 33}) {
    for (auto st : kStrides) {
      auto x = random_vec(span(n, st.incx)), y = random_vec(span(n, st.incy));
      double ref = 0.0, mag = 0.0;
      for (int i = 0; i < n; ++i) {
        ref += x[far(n, st.incx, i)] * y[far(n, st.incy, i)];
        mag += std::fabs(x[far(n, st.incx, i)] * y[far(n, st.incy, i)]);
      }
      EXPECT_NEAR(f06eac(n, x.data(), st.incx, y.data(), st.incy), ref, 2 * n * kEps * mag)
          << n << " " << st.incx << " " << st.incy;
      EXPECT_EQ(f06eaf_f(n, x.data(), st.incx, y.data(), st.incy), f06eac(n, x.data(), st.incx, y.data(), st.incy));
    }
  }
}

TEST(Level1, AxpyCopySwapRotate) {
  const int n = 11;
  for (auto st : kStrides) {
    auto x = random_vec(span(n, st.incx)), y = random_vec(span(n, st.incy));
    auto y1 = y;
    f06ecc(n, 0.75, x.data(), st.incx, y1.data(), st.incy);
    auto y2 = y;
    f06fdc(n, -2.0, x.data(), st.incx, y2.data(), st.incy);
    auto x3 = x, y3 = y;
    f06egc(n, x3.data(), st.incx, y3.data(), st.incy);
    auto y4 = y;
    f06efc(n, x.data(), st.incx, y4.data(), st.incy);
    auto x5 = x, y5 = y;
    const double c = 0.6, s = 0.8;
    f06epc(n, x5.data(), st.incx, y5.data(), st.incy, c, s);
    for (int i = 0; i < n; ++i) {
      std::size_t ix = far(n, st.incx, i), iy = far(n, st.incy, i);
      EXPECT_DOUBLE_EQ(y1[iy], y[iy] + 0.75 * x[ix]);
      EXPECT_EQ(y2[iy], -2.0 * x[ix]);
      EXPECT_EQ(x3[ix], y[iy]);
      EXPECT_EQ(y3[iy], x[ix]);
      EXPECT_EQ(y4[iy], x[ix]);
      EXPECT_DOUBLE_EQ(x5[ix], c * x[ix] + s * y[iy]);
      EXPECT_DOUBLE_EQ(y5[iy], c * y[iy] - s * x[ix]);
    }
  }
}

TEST(Level1, RotationSpecialCases) {
  double x[3] = {1, 2, 3}, y[3] = {4, 5, 6};
  f06epc(3, x, 1, y, 1, 1.0, 0.0);
  EXPECT_EQ(x[2], 3.0);
  EXPECT_EQ(y[2], 6.0);
  f06epc(3, x, 1, y, 1, 0.0, 1.0);  // swap, negate the new y
  EXPECT_EQ(x[0], 4.0);
  EXPECT_EQ(y[0], -1.0);
  f06epc(3, x, 1, y, 1, 0.0, -1.0);  // swap, negate the new x
  EXPECT_EQ(x[0], 1.0);
  EXPECT_EQ(y[0], 4.0);
}

TEST(Level1, OneVectorRoutinesWalkFromTheBase) {
  // A negative stride walks below the base pointer.
  std::vector<double> buf = {1.0, -2.0, 3.0, -4.0, 5.0, -6.0, 7.0};
  double* base = buf.data() + 6;
  EXPECT_EQ(f06ekc(3, base, -3), 7.0 + 4.0 + 1.0);
  EXPECT_EQ(f06jlc(4, base, -2), 1);  // |7| at the base
  f06fgc(2, base, -3);
  EXPECT_EQ(buf[6], -7.0);
  EXPECT_EQ(buf[3], 4.0);
  EXPECT_EQ(buf[0], 1.0);
  f06fbc(2, 9.0, base, -6);
  EXPECT_EQ(buf[0], 9.0);
  f06edc(3, 2.0, base, -2);
  EXPECT_EQ(buf[6], 18.0);
  EXPECT_EQ(buf[2], 6.0);
  EXPECT_EQ(buf[1], -2.0);
  Integer iv[5] = {0, 0, 0, 0, 0};
  f06dbc(3, 7, iv + 4, -2);
  EXPECT_EQ(iv[0], 7);
  EXPECT_EQ(iv[1], 0);
  Integer iw[3];
  f06dfc(3, iv, 2, iw, 1);
  EXPECT_EQ(iw[1], 7);
}

TEST(Level1, ScaleSpecialValues) {
  // alpha 1 touches nothing (a null pointer is never read); 0 clears NaNs.
  f06edc(5, 1.0, nullptr, 1);
  f06edf_f(5, 1.0, nullptr, 1);
  double v[3] = {std::numeric_limits<double>::quiet_NaN(), 1.0, -INFINITY};
  f06edc(3, 0.0, v, 1);
  EXPECT_EQ(v[0], 0.0);
  EXPECT_EQ(v[2], 0.0);
  double w[2] = {2.0, -3.0};
  f06edc(2, -1.0, w, 1);
  EXPECT_EQ(w[0], -2.0);
  EXPECT_EQ(w[1], 3.0);
}

TEST(Level1, EmptyVectors) {
  EXPECT_EQ(f06eac(0, nullptr, 1, nullptr, 1), 0.0);
  EXPECT_EQ(f06ejc(0, nullptr, 1), 0.0);
  EXPECT_EQ(f06ekc(-1, nullptr, 1), 0.0);
  EXPECT_EQ(f06jlc(0, nullptr, 1), 0);
  EXPECT_EQ(f06jjc(0, nullptr, 1), 0.0);
  EXPECT_EQ(f06jmc(0, nullptr, 1), 0);
  Complex z = f06gbc(0, nullptr, 1, nullptr, 1);
  EXPECT_EQ(z.re, 0.0);
  EXPECT_EQ(z.im, 0.0);
}

TEST(Level1, IndexOfLargestKeepsTheFirstTie) {
  double x[5] = {1.0, -3.0, 2.0, 3.0, -3.0};
  EXPECT_EQ(f06jlc(5, x, 1), 2);
  EXPECT_EQ(f06jlc(1, x, 1), 1);
  Complex z[3] = {{1, 1}, {-2, 0}, {0, 2}};
  EXPECT_EQ(f06jmc(3, z, 1), 1);  // all three have |re| + |im| = 2
}

TEST(Level1, NormAgainstLongDoubleAndAtTheLimits) {
  for (int inc : {1, 3}) {
    auto x = random_vec(span(101, inc));
    long double s = 0;
    for (int i = 0; i < 101; ++i) s += (long double)x[std::size_t(i) * inc] * x[std::size_t(i) * inc];
    EXPECT_NEAR(f06ejc(101, x.data(), inc), (double)std::sqrt(s), 4 * kEps * std::sqrt((double)s));
  }
  // Squares of these overflow or underflow; the norm must not.
  double big[4] = {3e306, 4e306, 0.0, -1e-300};
  EXPECT_NEAR(f06ejc(4, big, 1), 5e306, 4 * kEps * 5e306);
  double tiny[3] = {3e-310, -4e-310, 0.0};  // subnormal
  EXPECT_NEAR(f06ejc(3, tiny, 1), 5e-310, 1e-322);
  double small[2] = {3e-200, 4e-200};
  EXPECT_NEAR(f06ejc(2, small, 1), 5e-200, 4 * kEps * 5e-200);
  // Beyond the reciprocal of the safe range the result is limited to it.
  double huge[2] = {DBL_MAX, DBL_MAX};
  EXPECT_EQ(f06ejc(2, huge, 1), 1.0 / DBL_MIN);
  double one[1] = {-2.5};
  EXPECT_EQ(f06ejc(1, one, 1), 2.5);
  double nan[3] = {1.0, std::numeric_limits<double>::quiet_NaN(), 2.0};
  EXPECT_TRUE(std::isnan(f06ejc(3, nan, 1)));
  // A NaN among zeros only, where the largest modulus alone would be 0.
  for (int inc : {1, 2}) {
    const double q = std::numeric_limits<double>::quiet_NaN();
    double nz[6] = {0.0, 0.0, q, q, 0.0, 0.0};
    EXPECT_TRUE(std::isnan(f06ejc(6 / inc, nz, inc))) << inc;
  }
  double all_nan[9];
  std::fill(all_nan, all_nan + 9, std::numeric_limits<double>::quiet_NaN());
  EXPECT_TRUE(std::isnan(f06ejc(9, all_nan, 1)));
}

TEST(Level1, ScaledSumOfSquaresUpdatesItsPair) {
  double x[3] = {1.0, 4.0, -2.0};
  double scale = 2.0, sumsq = 3.0;  // carries 12
  f06fjc(3, x, 1, &scale, &sumsq);
  EXPECT_EQ(scale, 4.0);
  EXPECT_NEAR(scale * scale * sumsq, 12.0 + 21.0, 8 * kEps * 33.0);
  double scale2 = 5.0, sumsq2 = 1.0;  // the largest element below scale
  f06fjc(3, x, 1, &scale2, &sumsq2);
  EXPECT_EQ(scale2, 5.0);
  EXPECT_NEAR(sumsq2, 1.0 + 21.0 / 25.0, 4 * kEps);
}

TEST(Level1, ComplexRoutines) {
  const int n = 9;
  for (auto st : kStrides) {
    auto x = random_cvec(span(n, st.incx)), y = random_cvec(span(n, st.incy));
    Complex ref{0, 0};
    for (int i = 0; i < n; ++i) ref = cadd(ref, cmul(cconj(x[far(n, st.incx, i)]), y[far(n, st.incy, i)]));
    Complex d = f06gbc(n, x.data(), st.incx, y.data(), st.incy);
    EXPECT_NEAR(d.re, ref.re, 16 * n * kEps);
    EXPECT_NEAR(d.im, ref.im, 16 * n * kEps);
    auto y1 = y;
    Complex a{0.5, -1.5};
    f06gcc(n, a, x.data(), st.incx, y1.data(), st.incy);
    auto x2 = x, y2 = y;
    f06ggc(n, x2.data(), st.incx, y2.data(), st.incy);
    auto y3 = y;
    f06gfc(n, x.data(), st.incx, y3.data(), st.incy);
    for (int i = 0; i < n; ++i) {
      std::size_t ix = far(n, st.incx, i), iy = far(n, st.incy, i);
      Complex r = cadd(y[iy], cmul(a, x[ix]));
      EXPECT_DOUBLE_EQ(y1[iy].re, r.re);
      EXPECT_DOUBLE_EQ(y1[iy].im, r.im);
      EXPECT_EQ(x2[ix].re, y[iy].re);
      EXPECT_EQ(y2[iy].im, x[ix].im);
      EXPECT_EQ(y3[iy].re, x[ix].re);
    }
  }
  auto z = random_cvec(7);
  auto z1 = z, z2 = z;
  f06gdc(7, Complex{0.0, 2.0}, z1.data(), 1);
  f06jdc(4, -3.0, z2.data(), 2);
  for (int i = 0; i < 7; ++i) {
    EXPECT_DOUBLE_EQ(z1[i].re, -2.0 * z[i].im);
    EXPECT_DOUBLE_EQ(z1[i].im, 2.0 * z[i].re);
    if (i % 2 == 0) EXPECT_EQ(z2[i].re, -3.0 * z[i].re);
    else EXPECT_EQ(z2[i].re, z[i].re);
  }
  f06gdc(7, Complex{0.0, 0.0}, z1.data(), 1);
  EXPECT_EQ(z1[3].im, 0.0);
  f06hbc(3, Complex{1.0, 2.0}, z1.data(), 2);
  EXPECT_EQ(z1[4].im, 2.0);
  long double s = 0, s1 = 0;
  for (auto v : z) {
    s += (long double)v.re * v.re + (long double)v.im * v.im;
    s1 += std::fabs(v.re) + std::fabs(v.im);
  }
  EXPECT_NEAR(f06jjc(7, z.data(), 1), (double)std::sqrt(s), 4 * kEps);
  EXPECT_NEAR(f06jkc(7, z.data(), 1), (double)s1, 8 * kEps);
}

TEST(Daxpby, AllBranches) {
  const int n = 6;
  for (auto st : kStrides) {
    auto x = random_vec(span(n, st.incx)), y = random_vec(span(n, st.incy));
    for (double alpha : {0.0, 1.5}) {
      for (double beta : {0.0, 1.0, -0.5}) {
        auto y1 = y;
        ZilError f = quiet();
        f16ecc(n, alpha, x.data(), st.incx, beta, y1.data(), st.incy, &f);
        EXPECT_EQ(f.code, 0);
        for (int i = 0; i < n; ++i) {
          std::size_t ix = far(n, st.incx, i), iy = far(n, st.incy, i);
          EXPECT_NEAR(y1[iy], alpha * x[ix] + beta * y[iy], 4 * kEps);
        }
      }
    }
  }
}

TEST(Daxpby, NaNInYDoesNotSurviveBetaZero) {
  double x[3] = {1.0, 2.0, 3.0};
  double y[3] = {NAN, NAN, NAN};
  ZilError f = quiet();
  zil_daxpby(3, 2.0, x, 1, 0.0, y, 1, &f);
  EXPECT_EQ(y[0], 2.0);
  EXPECT_EQ(y[2], 6.0);
  // alpha 0 with beta 0 clears as well.
  double z[2] = {NAN, INFINITY};
  f16ecc(2, 0.0, x, 1, 0.0, z, 1, &f);
  EXPECT_EQ(z[0], 0.0);
  EXPECT_EQ(z[1], 0.0);
}

TEST(Daxpby, FailureRecords) {
  double x[2] = {1, 2}, y[2] = {3, 4};
  struct Case {
    int n, incx, incy;
    const double *xp;
    double* yp;
    int code, argnum, argval;
    const char* message;
  } cases[] = {
      {-1, 1, 1, x, y, ZE_INT, -1, -1, "ZE_INT:\n  On entry, n = -1.\n  Constraint: n >= 0."},
      {2, 1, 1, nullptr, y, ZE_BAD_PARAM, -3, 0, "ZE_BAD_PARAM:\n  On entry, parameter x had an illegal value."},
      {2, 0, 1, x, nullptr, ZE_BAD_PARAM, -6, 0, "ZE_BAD_PARAM:\n  On entry, parameter y had an illegal value."},
      {2, 0, 1, x, y, ZE_INT, -4, 0, "ZE_INT:\n  On entry, incx = 0.\n  Constraint: incx != 0."},
      {2, 1, 0, x, y, ZE_INT, -7, 0, "ZE_INT:\n  On entry, incy = 0.\n  Constraint: incy != 0."},
  };
  for (const auto& c : cases) {
    ZilError f = quiet();
    f.argnum = 99;
    f16ecc(c.n, 1.0, c.xp, c.incx, 2.0, c.yp, c.incy, &f);
    EXPECT_EQ(f.code, c.code);
    EXPECT_EQ(f.argnum, c.argnum);
    EXPECT_EQ(f.argval, c.argval);
    EXPECT_STREQ(f.message, c.message);
  }
  ZilError ok = quiet();
  ok.argnum = 5;
  f16ecc(0, 1.0, x, 1, 1.0, y, 1, &ok);
  EXPECT_EQ(ok.code, 0);
  EXPECT_EQ(ok.argnum, 0);
  f16ecc(-1, 1.0, x, 1, 1.0, y, 1, nullptr);  // null record: a box, no crash
}

TEST(Daxpby, OlderFormsReportTheirOwnPositions) {
  double x[2] = {1, 2}, y[2] = {3, 4};
  testing::internal::CaptureStderr();
  f06ecc(2, 1.0, x, 0, y, 1);
  std::string out = testing::internal::GetCapturedStderr();
  EXPECT_NE(out.find("parameter number 4 had an illegal value"), std::string::npos) << out;
  EXPECT_EQ(y[0], 3.0);
  testing::internal::CaptureStderr();
  f06fdc(2, 1.0, x, 1, y, 0);
  out = testing::internal::GetCapturedStderr();
  EXPECT_NE(out.find("parameter number 6 had an illegal value"), std::string::npos) << out;
}

TEST(Loads, FillAndCheck) {
  Integer iv[4] = {};
  double dv[4] = {};
  Complex zv[4] = {};
  ZilError f = quiet();
  zil_iload(2, 5, iv, 2, &f);
  EXPECT_EQ(iv[2], 5);
  EXPECT_EQ(iv[1], 0);
  zil_dload(4, 1.5, dv, 1, &f);
  EXPECT_EQ(dv[3], 1.5);
  zil_zload(2, Complex{1, -1}, zv + 3, -3, &f);
  EXPECT_EQ(zv[0].im, -1.0);
  f16fbc(3, 1.0, dv, 0, &f);
  EXPECT_EQ(f.code, ZE_INT);
  EXPECT_EQ(f.argnum, -4);
  f16dbc(3, 1, nullptr, 1, &f);
  EXPECT_EQ(f.code, ZE_BAD_PARAM);
  EXPECT_EQ(f.argnum, -3);
  EXPECT_STREQ(f.message, "ZE_BAD_PARAM:\n  On entry, parameter x had an illegal value.");
}

}  // namespace
