// The safeguarded scalars, rotations, reflections and small helpers.
#include <cfloat>
#include <cmath>
#include <limits>
#include <utility>

#include "linalg/detail/kernels.hpp"
#include "linalg/support.hpp"

using namespace kt;
namespace la = zil::linalg;

namespace {

const double kFlMax = 1.0 / DBL_MIN;

TEST(SafeDivide, EveryBranch) {
  struct Row {
    double a, b, q;
    Integer fail;
  } rows[] = {
      {0.0, 0.0, 0.0, 1},       {0.0, 3.0, 0.0, 0},          {-2.0, 0.0, -kFlMax, 1},
      {2.0, 0.0, kFlMax, 1},    {1e-300, 1e10, 0.0, 0},      {6.0, 3.0, 2.0, 0},
      {1e300, -1e-300, -kFlMax, 1}, {-1e300, -1e-300, kFlMax, 1}, {1.0, 0.5, 2.0, 0},
  };
  for (const auto& r : rows) {
    Integer fail = -7;
    EXPECT_EQ(la::safe_divide(r.a, r.b, fail), r.q) << r.a << "/" << r.b;
    EXPECT_EQ(fail, r.fail);
    Integer fail2 = -7;
    double q2 = la::safe_divide_ieee(r.a, r.b, fail2);
    EXPECT_EQ(fail2, r.fail);
    // The written-in constants carry 15 digits.
    EXPECT_NEAR(q2, r.q, 1e-13 * std::fabs(r.q));
  }
}

TEST(Scalars, TangentToRotation) {
  for (double t : {0.0, 1e-9, -0.3, 2.0, 1e10, -1e300}) {
    double c, s;
    f06bcc(t, &c, &s);
    EXPECT_NEAR(c * c + s * s, 1.0, 4 * kEps) << t;
    EXPECT_GT(c, 0.0);
    if (std::fabs(t) < 1e7) EXPECT_NEAR(s / c, t, 4 * kEps * std::fabs(t)) << t;
    double c2, s2;
    la::rotation_from_tangent_ieee(t, c2, s2);
    EXPECT_NEAR(c2, c, 4 * kEps);
    EXPECT_NEAR(s2, s, 4 * kEps);
  }
  double c, s;
  f06bcc(1e-9, &c, &s);  // below sqrt(eps): c is exactly 1
  EXPECT_EQ(c, 1.0);
  EXPECT_EQ(s, 1e-9);
  f06bcc(-1e10, &c, &s);  // beyond 1/sqrt(eps)
  EXPECT_EQ(s, -1.0);
  EXPECT_EQ(c, 1e-10);
}

TEST(Scalars, HypotAndScaledRoot) {
  EXPECT_EQ(f06bnc(0.0, -3.0), 3.0);
  EXPECT_EQ(f06bnc(-4.0, 0.0), 4.0);
  EXPECT_NEAR(f06bnc(3e300, -4e300), 5e300, 2 * kEps * 5e300);
  EXPECT_NEAR(f06bnc(3e-310, 4e-310), 5e-310, 1e-322);
  EXPECT_NEAR(f06bmc(2.0, 9.0), 6.0, 2 * kEps * 6.0);
  EXPECT_EQ(f06bmc(1e308, 4.0), kFlMax);
}

TEST(Rotations, GenerateRebuildsFromTheTangent) {
  for (auto [a0, b0] : {std::pair{3.0, 4.0}, {-1.0, 1e-12}, {0.0, 2.0}, {1e-300, 1e300}, {5.0, 0.0}}) {
    double a = a0, b = b0, c, s;
    la::rotation_generate(a, b, c, s);
    if (b0 == 0.0) {
      EXPECT_EQ(c, 1.0);
      EXPECT_EQ(s, 0.0);
      EXPECT_EQ(a, a0);
      continue;
    }
    EXPECT_NEAR(c * b0 - s * a0, 0.0, 4 * kEps * std::fabs(b0) + 4 * kEps * std::fabs(a0));
    EXPECT_NEAR(std::fabs(a), f06bnc(a0, b0), 4 * kEps * f06bnc(a0, b0));
    double c2, s2;
    f06bcc(b, &c2, &s2);  // b holds the tangent
    EXPECT_EQ(c2, c);
    EXPECT_EQ(s2, s);
    double a2 = a0, b2 = b0, c3, s3;
    la::rotation_generate_ieee(a2, b2, c3, s3);
    EXPECT_NEAR(c3, c, 4 * kEps);
  }
}

// Applies H = I - u u^T, u = (zeta, v), to (alpha, x).
std::vector<double> reflect(double zeta, const std::vector<double>& v, double alpha, const std::vector<double>& x) {
  double d = zeta * alpha;
  for (std::size_t i = 0; i < x.size(); ++i) d += v[i] * x[i];
  std::vector<double> r(x.size() + 1);
  r[0] = alpha - zeta * d;
  for (std::size_t i = 0; i < x.size(); ++i) r[i + 1] = x[i] - v[i] * d;
  return r;
}

TEST(Householder, ReflectsOntoTheFirstAxis) {
  using Gen = void (*)(Integer, double&, double[], Integer, double, double&);
  Gen gens[] = {[](Integer n, double& a, double x[], Integer inc, double tol, double& z) { f06frc(n, &a, x, inc, tol, &z); },
                la::householder_kalman, la::householder_qr};
  for (Gen gen : gens) {
    for (int n : {1, 2, 7}) {
      for (double alpha0 : {0.0, 0.8, -2.5}) {
        auto x0 = random_vec(n);
        double alpha = alpha0, zeta = -1.0;
        auto x = x0;
        gen(n, alpha, x.data(), 1, 0.0, zeta);
        double nrm = std::sqrt(alpha0 * alpha0 + std::pow(f06ejc(n, x0.data(), 1), 2));
        ASSERT_GE(zeta, 1.0 - 4 * kEps);
        ASSERT_LE(zeta, std::sqrt(2.0) + 4 * kEps);
        EXPECT_NEAR(std::fabs(alpha), nrm, 8 * kEps * nrm);
        if (alpha0 != 0.0) EXPECT_LT(alpha * alpha0, 0.0);  // beta opposite to alpha
        auto r = reflect(zeta, x, alpha0, x0);
        EXPECT_NEAR(r[0], alpha, 16 * kEps * nrm);
        for (int i = 1; i <= n; ++i) EXPECT_NEAR(r[i], 0.0, 16 * kEps * nrm);
      }
    }
  }
}

TEST(Householder, NoReflectionNeeded) {
  double alpha = 2.0, zeta = 5.0;
  double x[3] = {1e-17, 0.0, -1e-17};
  f06frc(3, &alpha, x, 1, 0.0, &zeta);  // below |alpha| eps
  EXPECT_EQ(zeta, 0.0);
  EXPECT_EQ(alpha, 2.0);
  double y[2] = {0.1, 0.1};
  f06frc(2, &alpha, y, 1, 0.5, &zeta);  // below tol
  EXPECT_EQ(zeta, 0.0);
  double z[1] = {0.0};
  f06frc(1, &alpha, z, 1, 0.0, &zeta);
  EXPECT_EQ(zeta, 0.0);
  f06frc(0, &alpha, z, 1, 0.0, &zeta);
  EXPECT_EQ(zeta, 0.0);
  double a0 = 0.0, w[1] = {3.0};
  f06frc(1, &a0, w, 1, 0.0, &zeta);
  EXPECT_EQ(zeta, 1.0);
  EXPECT_EQ(a0, 3.0);
  EXPECT_EQ(w[0], -1.0);
}

TEST(Helpers, FirstSmallElementFixesTheRank) {
  double d[5] = {4.0, -3.0, 2.0, 1e-15, 1.0};
  EXPECT_EQ(la::first_small_element(5, d, 1, -1.0), 5);  // eps: 1e-15 > 4 eps
  EXPECT_EQ(la::first_small_element(5, d, 1, 1e-10), 3);
  EXPECT_EQ(la::first_small_element(5, d, 1, 0.6), 2);
  EXPECT_EQ(la::first_small_element(0, d, 1, 0.1), 0);
  double z[2] = {0.0, 1.0};
  EXPECT_EQ(la::first_small_element(2, z, 1, 0.1), 0);
}

TEST(Helpers, ElementwiseAndExtremes) {
  double x[3] = {2.0, -4.0, 0.5}, y[3] = {1.0, 1.0, 8.0};
  la::element_product(3, x, 1, y, 1);
  EXPECT_EQ(y[1], -4.0);
  EXPECT_EQ(y[2], 4.0);
  la::element_quotient(3, x, 1, y, 1);
  EXPECT_EQ(y[1], 1.0);
  la::element_product(3, x, 0, y, 1);  // stride 0: scale by x[0]
  EXPECT_EQ(y[2], 16.0);
  la::element_quotient(3, x, 0, y, 1);
  EXPECT_EQ(y[2], 8.0);
  double mx, mn;
  la::min_max_abs(3, x, 1, mx, mn);
  EXPECT_EQ(mx, 4.0);
  EXPECT_EQ(mn, 0.5);
  la::min_max_abs(0, x, 1, mx, mn);
  EXPECT_EQ(mx, 0.0);
  EXPECT_EQ(mn, 0.0);
}

TEST(Helpers, ComplexScaledSumOfSquares) {
  Complex z[3] = {{3e200, 0.0}, {0.0, -4e200}, {1.0, 2.0}};
  double scale = 0.0, sumsq = 1.0;
  la::complex_scaled_ssq(2, z, 1, scale, sumsq);
  EXPECT_NEAR(scale * std::sqrt(sumsq), 5e200, 4 * kEps * 5e200);
  scale = 0.0;
  sumsq = 1.0;
  la::complex_scaled_ssq(2, z, 2, scale, sumsq);
  EXPECT_NEAR(scale * std::sqrt(sumsq), 3e200, 4 * kEps * 3e200);  // z[0] and z[2]
}

TEST(RotationSequences, ReduceAVectorAndReplayOnAMatrix) {
  const int n = 6;
  for (auto [pivot, direct, applied] : {std::tuple{VariablePivot, BackwardSequence, VariablePivot},
                                        std::tuple{FixedPivot, ForwardSequence, TopPivot}}) {
    auto x0 = random_vec(n);
    double alpha0 = 0.3;
    double alpha = alpha0;
    auto x = x0;
    std::vector<double> c(n), s(n);
    la::rotation_generate_sequence(pivot, direct, n, alpha, x.data(), 1, c.data(), s.data());
    double nrm = std::sqrt(alpha0 * alpha0 + std::pow(f06ejc(n, x0.data(), 1), 2));
    EXPECT_NEAR(std::fabs(alpha), nrm, 8 * kEps);
    // The same rotations applied from the left to the column (alpha, x)
    // (twice, as two columns of a 7 by 2 matrix with pda 9) reduce it.
    const int m = n + 1, pda = 9;
    std::vector<double> a(pda * 2, 99.0);
    for (int j = 0; j < 2; ++j) {
      a[j * pda] = alpha0;
      for (int i = 0; i < n; ++i) a[j * pda + 1 + i] = x0[i];
    }
    la::rotation_sequence_apply(LeftSide, applied, direct, m, 2, 1, m, c.data(), s.data(), a.data(), pda);
    for (int j = 0; j < 2; ++j) {
      EXPECT_NEAR(a[j * pda], alpha, 16 * kEps);
      for (int i = 1; i < m; ++i) EXPECT_NEAR(a[j * pda + i], 0.0, 16 * kEps) << i;
      EXPECT_EQ(a[j * pda + 7], 99.0);  // beyond m
    }
    // From the right the same sequence acts on the columns of the transpose.
    std::vector<double> b(2 * m);
    for (int j = 0; j < m; ++j) b[j * 2] = b[j * 2 + 1] = j == 0 ? alpha0 : x0[j - 1];
    la::rotation_sequence_apply(RightSide, applied, direct, 2, m, 1, m, c.data(), s.data(), b.data(), 2);
    EXPECT_NEAR(b[1], alpha, 16 * kEps);
    for (int j = 1; j < m; ++j) EXPECT_NEAR(b[j * 2], 0.0, 16 * kEps);
  }
}

TEST(RotationSequences, ApplyReturnsOnEmptyRanges) {
  double a[4] = {1, 2, 3, 4}, c[2] = {0.0, 0.0}, s[2] = {1.0, 1.0};
  la::rotation_sequence_apply(LeftSide, VariablePivot, ForwardSequence, 2, 2, 0, 2, c, s, a, 2);
  la::rotation_sequence_apply(LeftSide, VariablePivot, ForwardSequence, 2, 2, 2, 2, c, s, a, 2);
  la::rotation_sequence_apply(LeftSide, VariablePivot, ForwardSequence, 2, 2, 1, 3, c, s, a, 2);
  EXPECT_EQ(a[0], 1.0);
  EXPECT_EQ(a[3], 4.0);
  // c = 1, s = 0 is skipped; c = 0, s = 1 on rows 1 and 2 of column 1:
  double c1[1] = {0.0}, s1[1] = {1.0};
  la::rotation_sequence_apply(LeftSide, VariablePivot, ForwardSequence, 2, 2, 1, 2, c1, s1, a, 2);
  EXPECT_EQ(a[0], 2.0);
  EXPECT_EQ(a[1], -1.0);
}

}  // namespace

namespace {

// Column-major n by n helpers for the triangular updaters.
using Mat = std::vector<double>;
double& el(Mat& a, int n, int i, int j) { return a[std::size_t(j) * n + i]; }  // from 0
// a^T a, which rotations from the left keep, or with rows set a a^T,
// which rotations from the right keep.
Mat gram(Mat a, int n, bool rows = false) {
  Mat g(std::size_t(n) * n, 0.0);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j)
      for (int k = 0; k < n; ++k)
        el(g, n, i, j) += rows ? el(a, n, i, k) * el(a, n, j, k) : el(a, n, k, i) * el(a, n, k, j);
  return g;
}
Mat upper_random(int n) {
  Mat a(std::size_t(n) * n, 0.0);
  for (int j = 0; j < n; ++j)
    for (int i = 0; i <= j; ++i) el(a, n, i, j) = uniform() + (i == j ? 2.0 : 0.0);
  return a;
}

TEST(TriangularUpdaters, RowSpikeKeepsTheGramMatrix) {
  const int n = 6, k1 = 2, k2 = 5;  // from 1
  Mat a = upper_random(n);
  std::vector<double> c(n, 9.0), s(n, 9.0);
  Mat full = a;
  for (int j = k1; j < k2; ++j) {
    s[j - 1] = uniform();
    el(full, n, k2 - 1, j - 1) = s[j - 1];  // the spike in row k2
  }
  Mat g0 = gram(full, n);
  la::reduce_row_spike(n, k1, k2, c.data(), s.data(), a.data(), n);
  Mat g1 = gram(a, n);
  for (std::size_t i = 0; i < g0.size(); ++i) EXPECT_NEAR(g1[i], g0[i], 64 * kEps);
  for (int j = 0; j < n; ++j)
    for (int i = j + 1; i < n; ++i) EXPECT_EQ(el(a, n, i, j), 0.0);  // never touched
  for (int j = k1; j < k2; ++j) EXPECT_NEAR(c[j - 1] * c[j - 1] + s[j - 1] * s[j - 1], 1.0, 4 * kEps);
  // The rotations replay on the spiked matrix: the row-k2 pivot form.
  la::rotation_sequence_apply(LeftSide, BottomPivot, ForwardSequence, n, n, k1, k2, c.data(), s.data(), full.data(), n);
  for (int j = 0; j < n; ++j)
    for (int i = 0; i <= j; ++i) EXPECT_NEAR(el(full, n, i, j), el(a, n, i, j), 64 * kEps);
  for (int j = 0; j < k2 - 1; ++j) EXPECT_NEAR(el(full, n, k2 - 1, j), 0.0, 64 * kEps);
}

TEST(TriangularUpdaters, ColumnShiftIsAPermutedFactor) {
  const int n = 6, k1 = 2, k2 = 5;
  Mat a = upper_random(n);
  // R P: column k1 moved to k2.
  Mat perm = a;
  for (int j = k1; j < k2; ++j)
    for (int i = 0; i < n; ++i) el(perm, n, i, j - 1) = el(a, n, i, j);
  for (int i = 0; i < n; ++i) el(perm, n, i, k2 - 1) = el(a, n, i, k1 - 1);
  Mat g0 = gram(perm, n);
  std::vector<double> c(n), s(n);
  la::shift_column(n, k1, k2, c.data(), s.data(), a.data(), n);
  Mat g1 = gram(a, n);
  for (std::size_t i = 0; i < g0.size(); ++i) EXPECT_NEAR(g1[i], g0[i], 64 * kEps);
  for (int j = 0; j < n; ++j)
    for (int i = j + 1; i < n; ++i) EXPECT_EQ(el(a, n, i, j), 0.0);
  // Replaying the rotations on R P gives the new factor.
  la::rotation_sequence_apply(LeftSide, VariablePivot, ForwardSequence, n, n, k1, k2, c.data(), s.data(), perm.data(), n);
  for (int j = 0; j < n; ++j)
    for (int i = 0; i < n; ++i) EXPECT_NEAR(el(perm, n, i, j), el(a, n, i, j), 64 * kEps);
}

// An upper triangle whose strict lower part is NaN, so that any read of it
// shows in the result.
Mat upper_random_nan_below(int n) {
  Mat a = upper_random(n);
  for (int j = 0; j < n; ++j)
    for (int i = j + 1; i < n; ++i) el(a, n, i, j) = std::numeric_limits<double>::quiet_NaN();
  return a;
}
void expect_same_upper(Mat x, Mat a, int n, double tol) {
  for (int j = 0; j < n; ++j)
    for (int i = 0; i < n; ++i)
      EXPECT_NEAR(el(x, n, i, j), i <= j ? el(a, n, i, j) : 0.0, tol) << i << "," << j;
}
Mat upper_part(Mat a, int n) {
  for (int j = 0; j < n; ++j)
    for (int i = j + 1; i < n; ++i) el(a, n, i, j) = 0.0;
  return a;
}

TEST(TriangularUpdaters, ColumnSpikeKeepsTheRowGramMatrix) {
  const int n = 7;
  for (auto [k1, k2] : {std::pair{2, 6}, std::pair{1, 7}, std::pair{3, 4}}) {
    Mat a = upper_random_nan_below(n);
    std::vector<double> c(n, 9.0), s(n, 9.0);
    Mat full = upper_part(a, n);
    for (int i = k1 + 1; i <= k2; ++i) {
      s[i - 2] = uniform() - 0.5;
      el(full, n, i - 1, k1 - 1) = s[i - 2];  // the spike in column k1
    }
    Mat g0 = gram(full, n, true);
    la::reduce_column_spike(n, k1, k2, c.data(), s.data(), a.data(), n);
    for (int j = 0; j < n; ++j)
      for (int i = j + 1; i < n; ++i) EXPECT_TRUE(std::isnan(el(a, n, i, j)));  // never touched
    Mat r = upper_part(a, n);
    Mat g1 = gram(r, n, true);
    for (std::size_t i = 0; i < g0.size(); ++i) EXPECT_NEAR(g1[i], g0[i], 64 * kEps);
    for (int j = k1; j < k2; ++j) EXPECT_NEAR(c[j - 1] * c[j - 1] + s[j - 1] * s[j - 1], 1.0, 4 * kEps);
    EXPECT_EQ(s[k2 - 1], 9.0);  // beyond the sequence
    // The rotations replay on the spiked matrix: the column-k1 pivot form,
    // from the bottom.
    la::rotation_sequence_apply(RightSide, TopPivot, BackwardSequence, n, n, k1, k2, c.data(), s.data(),
                                full.data(), n);
    expect_same_upper(full, r, n, 64 * kEps);
  }
}

TEST(TriangularUpdaters, RowShiftIsAPermutedFactor) {
  const int n = 7;
  for (auto [k1, k2] : {std::pair{2, 5}, std::pair{1, 7}, std::pair{6, 7}}) {
    Mat a = upper_random_nan_below(n);
    // P R: row k2 moved to k1, rows k1 .. k2-1 one place down.
    Mat r0 = upper_part(a, n), perm = r0;
    for (int j = 0; j < n; ++j) {
      el(perm, n, k1 - 1, j) = el(r0, n, k2 - 1, j);
      for (int i = k1 + 1; i <= k2; ++i) el(perm, n, i - 1, j) = el(r0, n, i - 2, j);
    }
    Mat g0 = gram(perm, n, true);
    std::vector<double> c(n, 9.0), s(n, 9.0);
    la::shift_row(n, k1, k2, c.data(), s.data(), a.data(), n);
    // The sub-diagonal positions used on the way are left zero, the rest of
    // the strict lower triangle untouched.
    for (int j = 0; j < n; ++j)
      for (int i = j + 1; i < n; ++i) {
        if (i == j + 1 && j + 1 >= k1 && j + 1 < k2)
          EXPECT_EQ(el(a, n, i, j), 0.0) << i << "," << j;
        else
          EXPECT_TRUE(std::isnan(el(a, n, i, j))) << i << "," << j;
      }
    Mat r = upper_part(a, n);
    Mat g1 = gram(r, n, true);
    for (std::size_t i = 0; i < g0.size(); ++i) EXPECT_NEAR(g1[i], g0[i], 64 * kEps);
    for (int j = k1; j < k2; ++j) EXPECT_NEAR(c[j - 1] * c[j - 1] + s[j - 1] * s[j - 1], 1.0, 4 * kEps);
    // Replaying the rotations on P R gives the new factor.
    la::rotation_sequence_apply(RightSide, VariablePivot, BackwardSequence, n, n, k1, k2, c.data(), s.data(),
                                perm.data(), n);
    expect_same_upper(perm, r, n, 64 * kEps);
  }
}

TEST(TriangularUpdaters, EmptyRangesDoNothing) {
  Mat a = upper_random(3), b = a;
  std::vector<double> c(3, 9.0), s(3, 9.0);
  for (auto [k1, k2] : {std::pair{0, 2}, std::pair{2, 2}, std::pair{2, 4}}) {
    la::reduce_column_spike(3, k1, k2, c.data(), s.data(), a.data(), 3);
    la::shift_row(3, k1, k2, c.data(), s.data(), a.data(), 3);
  }
  EXPECT_EQ(a, b);
  EXPECT_EQ(c, std::vector<double>(3, 9.0));
}

}  // namespace
