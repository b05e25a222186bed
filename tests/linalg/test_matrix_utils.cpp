// Matrix copy, load and norm against reference loops, both orders.
#include <cfloat>

#include "linalg/fronts_support.hpp"

using namespace kt;

namespace {

template <class T>
class MatrixUtils : public ::testing::Test {};
using Elements = ::testing::Types<double, Complex>;
TYPED_TEST_SUITE(MatrixUtils, Elements);

// Reference norms of a logical matrix.
struct Norms {
  double one = 0, inf = 0, fro = 0, max = 0;
};
Norms norms_of(const Dense& a) {
  Norms r;
  long double s = 0;
  for (int j = 0; j < a.c; ++j) {
    double col = 0;
    for (int i = 0; i < a.r; ++i) col += std::abs(a(i, j));
    r.one = std::max(r.one, col);
  }
  for (int i = 0; i < a.r; ++i) {
    double row = 0;
    for (int j = 0; j < a.c; ++j) {
      row += std::abs(a(i, j));
      r.max = std::max(r.max, std::abs(a(i, j)));
      s += (long double)std::norm(a(i, j));
    }
    r.inf = std::max(r.inf, row);
  }
  r.fro = std::sqrt((double)s);
  return r;
}
double pick(const Norms& n, Integer norm) {
  switch (norm) {
    case Zil_OneNorm: case Zil_RealOneNorm: return n.one;
    case Zil_InfNorm: case Zil_RealInfNorm: return n.inf;
    case Zil_FrobeniusNorm: return n.fro;
    default: return n.max;
  }
}
constexpr Integer kNorms[] = {Zil_OneNorm, Zil_RealOneNorm, Zil_FrobeniusNorm, Zil_InfNorm, Zil_RealInfNorm, Zil_MaxNorm, Zil_RealMaxNorm};
constexpr double kTol = 64 * kEps;

TYPED_TEST(MatrixUtils, GeneralAndBandNorms) {
  using T = TypeParam;
  const int m = 5, n = 3;
  for (Integer order : kOrders)
    for (Integer norm : kNorms) {
      Dense a = random_dense<T>(m, n);
      int pd = (order == Zil_ColMajor ? m : n) + 2;
      auto as = store_general<T>(a, order, pd);
      double v = -1;
      ZilError f = quiet();
      if constexpr (kCx<T>) f16uac(order, norm, m, n, as.data(), pd, &v, &f);
      else f16rac(order, norm, m, n, as.data(), pd, &v, &f);
      ASSERT_EQ(f.code, 0);
      EXPECT_NEAR(v, pick(norms_of(a), norm), kTol * 8) << tag(order, norm);
      // A square band matrix.
      const int nb = 5, kl = 2, ku = 1;
      Dense b = band_only(random_dense<T>(nb, nb), kl, ku);
      int pdab = kl + ku + 2;
      auto bs = store_band<T>(b, order, pdab, kl, ku);
      if constexpr (kCx<T>) f16ubc(order, norm, nb, kl, ku, bs.data(), pdab, &v, &f);
      else f16rbc(order, norm, nb, kl, ku, bs.data(), pdab, &v, &f);
      ASSERT_EQ(f.code, 0);
      EXPECT_NEAR(v, pick(norms_of(b), norm), kTol * 8) << "band " << tag(order, norm);
    }
}

TYPED_TEST(MatrixUtils, SymmetricAndHermitianNorms) {
  using T = TypeParam;
  const int n = 4, k = 1;
  for (bool herm : {false, true})
    for (Integer order : kOrders)
      for (Integer uplo : kUplos)
        for (Integer norm : kNorms) {
          Dense a = herm ? random_hermitian<T>(n) : symmetric_from(random_dense<T>(n, n));
          double want = pick(norms_of(a), norm), v = -1;
          ZilError f = quiet();
          auto as = store_triangle<T>(a, order, uplo, n + 1);
          auto ap = store_packed<T>(a, order, uplo);
          Dense b = band_only(a, k, k);
          int kl = uplo == Zil_Upper ? 0 : k, ku = uplo == Zil_Upper ? k : 0;
          auto bs = store_band<T>(band_only(b, kl, ku), order, k + 2, kl, ku);
          double vp = -1, vb = -1;
          if constexpr (kCx<T>) {
            (herm ? f16ucc : f16ufc)(order, norm, uplo, n, as.data(), n + 1, &v, &f);
            (herm ? f16udc : f16ugc)(order, norm, uplo, n, ap.data(), &vp, &f);
            if (herm) f16uec(order, norm, uplo, n, k, bs.data(), k + 2, &vb, &f);
          } else {
            f16rcc(order, norm, uplo, n, as.data(), n + 1, &v, &f);
            f16rdc(order, norm, uplo, n, ap.data(), &vp, &f);
            f16rec(order, norm, uplo, n, k, bs.data(), k + 2, &vb, &f);
          }
          ASSERT_EQ(f.code, 0);
          std::string what = std::string(herm ? "herm " : "sym ") + tag(order, uplo, norm);
          EXPECT_NEAR(v, want, kTol * 8) << what;
          EXPECT_NEAR(vp, want, kTol * 8) << what;
          if (herm || !kCx<T>) EXPECT_NEAR(vb, pick(norms_of(b), norm), kTol * 8) << what;
        }
}

TEST(MatrixNorms, FrobeniusNearTheLimits) {
  for (double big : {1e300, 1.5e-300, 1e-310}) {
    double a[6] = {3 * big, 0.0, -4 * big, 0.0, 12 * big, 0.0};  // 3 by 2, pda 3
    double v;
    ZilError f = quiet();
    f16rac(Zil_ColMajor, Zil_FrobeniusNorm, 3, 2, a, 3, &v, &f);
    EXPECT_EQ(f.code, 0);
    EXPECT_NEAR(v, 13 * big, 8 * kEps * 13 * big + 1e-322) << big;
  }
}

TEST(MatrixNorms, FailuresAndEmptyShapes) {
  double a[4] = {1, 2, 3, 4}, v = 7.0;
  ZilError f = quiet();
  f16rac(Zil_ColMajor, Zil_TwoNorm, 2, 2, a, 2, &v, &f);
  EXPECT_EQ(f.code, ZE_BAD_PARAM);
  EXPECT_EQ(f.argnum, -2);
  EXPECT_EQ(f.argval, Zil_TwoNorm);
  EXPECT_STREQ(f.message, "ZE_BAD_PARAM:\n  On entry, parameter norm had an illegal value.");
  f16rac(Zil_RowMajor, Zil_OneNorm, 2, 3, a, 2, &v, &f);
  EXPECT_EQ(f.argnum, -6);
  EXPECT_STREQ(f.message, "ZE_INT:\n  On entry, pda = 2.\n  Constraint: pda >= MAX(1,n).");
  f16rac(Zil_RowMajor, Zil_OneNorm, 0, 3, a, 3, &v, &f);
  EXPECT_EQ(f.code, 0);
  EXPECT_EQ(v, 0.0);
  f16rcc(Zil_ColMajor, Zil_InfNorm, 5, 2, a, 2, &v, &f);
  EXPECT_EQ(f.argnum, -3);
  // The older forms return 0.0 after their report.
  testing::internal::CaptureStderr();
  EXPECT_EQ(f06rac(9999, 2, 2, a, 2), 0.0);
  EXPECT_EQ(f06qgc(OneNorm, General, 2, 2, a, 1), 0.0);
  EXPECT_EQ(f06qgc(OneNorm, UpperTriangular, 2, 2, a, 1), 0.0);
  std::string out = testing::internal::GetCapturedStderr();
  EXPECT_NE(out.find("f06rac: ZE_F06_BAD_PARAM:\n  On entry, parameter number 1 had"), std::string::npos) << out;
  EXPECT_NE(out.find("f06qgc: ZE_F06_BAD_PARAM:\n  On entry, parameter number 6 had"), std::string::npos) << out;
  EXPECT_EQ(f06vgc(OneNorm, General, 0, 3, nullptr, 1), 0.0);
}

TEST(MatrixNorms, OlderForms) {
  // Column-major 2 by 2: [1 3; -2 4].
  double a[4] = {1, -2, 3, 4};
  EXPECT_EQ(f06rac(OneNorm, 2, 2, a, 2), 7.0);
  EXPECT_EQ(f06rac(InfinityNorm, 2, 2, a, 2), 6.0);
  EXPECT_EQ(f06rac(MaxAbsValue, 2, 2, a, 2), 4.0);
  EXPECT_NEAR(f06rac(FrobeniusNorm, 2, 2, a, 2), std::sqrt(30.0), 4 * kEps);
  // Upper triangle read as symmetric: [1 3; 3 4].
  EXPECT_EQ(f06qgc(OneNorm, UpperTriangular, 2, 2, a, 2), 7.0);
  EXPECT_EQ(f06qgc(OneNorm, SymmetricLower, 2, 2, a, 2), 6.0);
  EXPECT_EQ(f06qgc(OneNorm, UpperTriangular, 2, 1, a, 2), 3.0);  // not square: general
  Complex z[4] = {{0, 1}, {0, 0}, {3, 4}, {1, 0}};
  EXPECT_NEAR(f06uaf(OneNorm, 2, 2, z, 2), 6.0, 4 * kEps);
  EXPECT_NEAR(f06vgc(MaxAbsValue, HermitianUpper, 2, 2, z, 2), 5.0, 4 * kEps);
}

TYPED_TEST(MatrixUtils, CopiesAndLoads) {
  using T = TypeParam;
  const int m = 4, n = 3;
  for (Integer order : kOrders)
    for (Integer trans : kTrans) {
      char t = trans_letter(trans);
      if (!kCx<T> && t == 'C') t = 'T';
      Dense a = random_dense<T>(m, n);
      Dense want = op(a, t);
      int pda = (order == Zil_ColMajor ? m : n) + 1;
      int pdb = (order == Zil_ColMajor ? want.r : want.c) + 2;
      auto as = store_general<T>(a, order, pda);
      auto bs = store_general<T>(Dense(want.r, want.c), order, pdb);
      ZilError f = quiet();
      if constexpr (kCx<T>) f16tfc(order, trans, m, n, as.data(), pda, bs.data(), pdb, &f);
      else f16qfc(order, trans, m, n, as.data(), pda, bs.data(), pdb, &f);
      ASSERT_EQ(f.code, 0);
      expect_close(load_general(bs, order, pdb, want.r, want.c), want, 0.0, "ge_copy " + tag(order, trans));
      for (Integer uplo : kUplos)
        for (Integer diag : kDiags) {
          Dense s = random_dense<T>(n, n);
          bool unit = diag == Zil_UnitDiag;
          auto ss = store_general<T>(s, order, n + 1);
          Dense base = random_dense<T>(n, n);
          auto ds = store_general<T>(base, order, n);
          if constexpr (kCx<T>) f16tec(order, uplo, trans, diag, n, ss.data(), n + 1, ds.data(), n, &f);
          else f16qec(order, uplo, trans, diag, n, ss.data(), n + 1, ds.data(), n, &f);
          ASSERT_EQ(f.code, 0);
          Dense got = load_general(ds, order, n, n, n), ot = op(s, t);
          for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
              // op(A)'s triangle is the transposed one when transposing.
              bool in = in_triangle(t == 'N' ? uplo : (uplo == Zil_Upper ? Zil_Lower : Zil_Upper), i, j);
              C w = (in && !(unit && i == j)) ? ot(i, j) : base(i, j);
              ASSERT_EQ(got(i, j), w) << "tr_copy " << tag(order, uplo, trans, diag) << " " << i << j;
            }
        }
    }
  // Loads: alpha off the diagonal, beta on it.
  for (Integer order : kOrders) {
    T al = fromC<T>(C(2.0, 1.0)), be = fromC<T>(C(-1.0, 0.0));
    int pd = (order == Zil_ColMajor ? m : n) + 1;
    std::vector<T> a(pd * 5, nan_value<T>());
    ZilError f = quiet();
    if constexpr (kCx<T>) zil_zge_load(order, m, n, al, be, a.data(), pd, &f);
    else zil_dge_load(order, m, n, al, be, a.data(), pd, &f);
    ASSERT_EQ(f.code, 0);
    Dense got = load_general(a, order, pd, m, n);
    for (int i = 0; i < m; ++i)
      for (int j = 0; j < n; ++j) ASSERT_EQ(got(i, j), toC(i == j ? be : al));
    for (Integer uplo : kUplos) {
      std::vector<T> t(9, nan_value<T>());
      if constexpr (kCx<T>) zyl_ztr_load(order, uplo, 3, al, be, t.data(), 3, &f);
      else zil_dtr_load(order, uplo, 3, al, be, t.data(), 3, &f);
      for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) {
          C v = toC(t[gen_index(order, 3, i, j)]);
          if (in_triangle(uplo, i, j)) ASSERT_EQ(v, toC(i == j ? be : al));
          else ASSERT_TRUE(std::isnan(v.real()));
        }
    }
  }
}

TEST(OlderUtilities, ShapesCopyAndLoad) {
  double a[12], b[12];
  for (int i = 0; i < 12; ++i) a[i] = i + 1, b[i] = 0;
  f06qfc(UpperTriangular, 3, 4, a, 3, b, 3);  // upper trapezoid
  EXPECT_EQ(b[0], 1.0);
  EXPECT_EQ(b[1], 0.0);
  EXPECT_EQ(b[4], 5.0);
  EXPECT_EQ(b[11], 12.0);
  f06qhc(LowerTriangular, 3, 3, 7.0, 1.0, b, 3);
  EXPECT_EQ(b[1], 7.0);
  EXPECT_EQ(b[4], 1.0);
  EXPECT_EQ(b[3], 4.0);  // above the triangle: untouched
  f06qff_f("g", 2, 2, a, 3, b, 2, 1);
  EXPECT_EQ(b[2], 4.0);
  Complex z[4] = {}, w[4];
  f06thc(General, 2, 2, Complex{1, 1}, Complex{1, 1}, z, 2);
  f06tfc(General, 2, 2, z, 2, w, 2);
  EXPECT_EQ(w[3].im, 1.0);
  testing::internal::CaptureStderr();
  f06qff_f("x", 2, 2, a, 3, b, 2, 1);
  f06qff_f("U", 2, 2, a, 1, b, 2, 1);
  std::string out = testing::internal::GetCapturedStderr();
  EXPECT_NE(out.find("f06qff: ZE_F06_BAD_PARAM:\n  On entry, parameter number 1 had"), std::string::npos) << out;
  EXPECT_NE(out.find("f06qff: ZE_F06_BAD_PARAM:\n  On entry, parameter number 5 had"), std::string::npos) << out;
}

}  // namespace
