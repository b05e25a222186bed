// The Level-2 fronts against reference loops: both storage orders, every
// option, non-square shapes, padded leading dimensions, negative strides,
// and NaN wherever the routine must not read.
#include "linalg/fronts_support.hpp"

using namespace kt;

namespace {

template <class T>
class Level2 : public ::testing::Test {};
using Elements = ::testing::Types<double, Complex>;
TYPED_TEST_SUITE(Level2, Elements);

constexpr double kTol = 256 * kEps;

std::vector<C> axpby(C alpha, const std::vector<C>& ax, C beta, std::vector<C> y) {
  for (std::size_t i = 0; i < y.size(); ++i) y[i] = alpha * ax[i] + beta * y[i];
  return y;
}

TYPED_TEST(Level2, GeneralAndBandProducts) {
  using T = TypeParam;
  const int m = 5, n = 3, kl = 1, ku = 2;
  for (Integer order : kOrders)
    for (Integer trans : kTrans)
      for (int incx : kIncs)
        for (int incy : {1, -3}) {
          char t = letter_for<T>(trans);
          int nx = t == 'N' ? n : m, ny = t == 'N' ? m : n;
          Dense a = random_dense<T>(m, n);
          auto x = random_cv<T>(nx), y = random_cv<T>(ny);
          C alpha = rand_scalar<T>(), beta = rand_scalar<T>();
          auto xs = store_vec<T>(x, incx);
          const auto x_before = xs;
          int pd = (order == Zil_ColMajor ? m : n) + 2;
          auto as = store_general<T>(a, order, pd);
          auto ys = store_vec<T>(y, incy);
          ZilError f = quiet();
          if constexpr (kCx<T>)
            f16sac(order, trans, m, n, fromC<T>(alpha), as.data(), pd, xs.data(), incx, fromC<T>(beta), ys.data(), incy, &f);
          else
            f16pac(order, trans, m, n, fromC<T>(alpha), as.data(), pd, xs.data(), incx, fromC<T>(beta), ys.data(), incy, &f);
          ASSERT_EQ(f.code, 0);
          expect_close(load_vec(ys, ny, incy), axpby(alpha, matvec(op(a, t), x), beta, y), kTol, "gemv " + tag(order, trans, incx, incy));
          // x is read only, also on the conjugating path.
          for (std::size_t i = 0; i < xs.size(); ++i)
            if (!std::isnan(toC(x_before[i]).real())) ASSERT_EQ(toC(xs[i]), toC(x_before[i]));

          // The same with a band matrix.
          Dense b = band_only(a, kl, ku);
          int pdab = kl + ku + 1 + 1;
          auto bs = store_band<T>(b, order, pdab, kl, ku);
          ys = store_vec<T>(y, incy);
          if constexpr (kCx<T>)
            f16sbc(order, trans, m, n, kl, ku, fromC<T>(alpha), bs.data(), pdab, xs.data(), incx, fromC<T>(beta), ys.data(), incy, &f);
          else
            f16pbc(order, trans, m, n, kl, ku, fromC<T>(alpha), bs.data(), pdab, xs.data(), incx, fromC<T>(beta), ys.data(), incy, &f);
          ASSERT_EQ(f.code, 0);
          expect_close(load_vec(ys, ny, incy), axpby(alpha, matvec(op(b, t), x), beta, y), kTol, "gbmv " + tag(order, trans, incx, incy));
        }
}

TYPED_TEST(Level2, SymmetricOrHermitianProducts) {
  using T = TypeParam;
  const int n = 4, k = 1;
  for (Integer order : kOrders)
    for (Integer uplo : kUplos)
      for (int incx : kIncs) {
        int incy = -incx;
        Dense a = random_hermitian<T>(n);
        auto x = random_cv<T>(n), y = random_cv<T>(n);
        C alpha = rand_scalar<T>(), beta = rand_scalar<T>();
        auto xs = store_vec<T>(x, incx);
        ZilError f = quiet();
        // Full storage.
        int pd = n + 1;
        auto as = store_triangle<T>(a, order, uplo, pd);
        auto ys = store_vec<T>(y, incy);
        if constexpr (kCx<T>)
          f16scc(order, uplo, n, fromC<T>(alpha), as.data(), pd, xs.data(), incx, fromC<T>(beta), ys.data(), incy, &f);
        else
          f16pcc(order, uplo, n, fromC<T>(alpha), as.data(), pd, xs.data(), incx, fromC<T>(beta), ys.data(), incy, &f);
        ASSERT_EQ(f.code, 0);
        expect_close(load_vec(ys, n, incy), axpby(alpha, matvec(a, x), beta, y), kTol, "symv " + tag(order, uplo, incx));
        // Packed storage.
        auto ap = store_packed<T>(a, order, uplo);
        ys = store_vec<T>(y, incy);
        if constexpr (kCx<T>)
          f16sec(order, uplo, n, fromC<T>(alpha), ap.data(), xs.data(), incx, fromC<T>(beta), ys.data(), incy, &f);
        else
          f16pec(order, uplo, n, fromC<T>(alpha), ap.data(), xs.data(), incx, fromC<T>(beta), ys.data(), incy, &f);
        ASSERT_EQ(f.code, 0);
        expect_close(load_vec(ys, n, incy), axpby(alpha, matvec(a, x), beta, y), kTol, "spmv " + tag(order, uplo, incx));
        // Band storage: the stored triangle of a symmetric band is a
        // general band with k on one side and 0 on the other.
        Dense b = band_only(a, k, k);
        int kl = uplo == Zil_Upper ? 0 : k, ku = uplo == Zil_Upper ? k : 0;
        int pdab = k + 2;
        auto bs = store_band<T>(band_only(b, kl, ku), order, pdab, kl, ku);
        ys = store_vec<T>(y, incy);
        if constexpr (kCx<T>)
          f16sdc(order, uplo, n, k, fromC<T>(alpha), bs.data(), pdab, xs.data(), incx, fromC<T>(beta), ys.data(), incy, &f);
        else
          f16pdc(order, uplo, n, k, fromC<T>(alpha), bs.data(), pdab, xs.data(), incx, fromC<T>(beta), ys.data(), incy, &f);
        ASSERT_EQ(f.code, 0);
        expect_close(load_vec(ys, n, incy), axpby(alpha, matvec(b, x), beta, y), kTol, "sbmv " + tag(order, uplo, incx));
      }
}

// The triangular routines: full, band and packed, products and solves,
// each followed by its alpha.
template <class T>
void triangular_call(char storage, bool solve, Integer order, Integer uplo, Integer trans, Integer diag, int n, int k,
                     T alpha, const std::vector<T>& a, int pd, std::vector<T>& x, int incx, ZilError* f) {
  if constexpr (kCx<T>) {
    if (storage == 'F') (solve ? f16sjc : f16sfc)(order, uplo, trans, diag, n, alpha, a.data(), pd, x.data(), incx, f);
    if (storage == 'B') (solve ? f16skc : f16sgc)(order, uplo, trans, diag, n, k, alpha, a.data(), pd, x.data(), incx, f);
    if (storage == 'P') (solve ? f16slc : f16shc)(order, uplo, trans, diag, n, alpha, a.data(), x.data(), incx, f);
  } else {
    if (storage == 'F') (solve ? f16pjc : f16pfc)(order, uplo, trans, diag, n, alpha, a.data(), pd, x.data(), incx, f);
    if (storage == 'B') (solve ? f16pkc : f16pgc)(order, uplo, trans, diag, n, k, alpha, a.data(), pd, x.data(), incx, f);
    if (storage == 'P') (solve ? f16plc : f16phc)(order, uplo, trans, diag, n, alpha, a.data(), x.data(), incx, f);
  }
}

TYPED_TEST(Level2, TriangularProductsAndSolves) {
  using T = TypeParam;
  const int n = 5, k = 2;
  for (char storage : {'F', 'B', 'P'})
    for (bool solve : {false, true})
      for (Integer order : kOrders)
        for (Integer uplo : kUplos)
          for (Integer trans : kTrans)
            for (Integer diag : kDiags)
              for (int incx : kIncs) {
                bool unit = diag == Zil_UnitDiag;
                Dense a = dominant(random_dense<T>(n, n));
                if (storage == 'B') a = band_only(a, k, k);
                Dense t = triangle_only(a, uplo, unit);
                std::vector<T> as;
                int pd = n + 2;
                if (storage == 'F') as = store_triangle<T>(t, order, uplo, pd, unit);
                if (storage == 'P') as = store_packed<T>(t, order, uplo, unit);
                if (storage == 'B') {
                  pd = k + 2;
                  int kl = uplo == Zil_Upper ? 0 : k, ku = uplo == Zil_Upper ? k : 0;
                  as = store_band<T>(t, order, pd, kl, ku);
                  if (unit)  // the diagonal is never read
                    for (int i = 0; i < n; ++i) as[band_index(order, pd, kl, ku, i, i)] = nan_value<T>();
                }
                auto x = random_cv<T>(n);
                C alpha = rand_scalar<T>();
                auto xs = store_vec<T>(x, incx);
                ZilError f = quiet();
                triangular_call<T>(storage, solve, order, uplo, trans, diag, n, k, fromC<T>(alpha), as, pd, xs, incx, &f);
                ASSERT_EQ(f.code, 0);
                auto got = load_vec(xs, n, incx);
                Dense opt = op(t, letter_for<T>(trans));
                std::string what = std::string(1, storage) + (solve ? " solve " : " product ") + tag(order, uplo, trans, diag);
                if (!solve) {
                  auto want = matvec(opt, x);
                  for (auto& v : want) v *= alpha;
                  expect_close(got, want, kTol, what);
                } else {
                  // Solve, then scale: op(T) (x_new / alpha) = x.
                  for (auto& v : got) v /= alpha;
                  expect_close(matvec(opt, got), x, kTol * 4, what);
                }
              }
}

TYPED_TEST(Level2, GeneralRankUpdateWithBeta) {
  using T = TypeParam;
  const int m = 4, n = 3;
  for (Integer order : kOrders)
    for (Integer conj : {Zil_NoConj, Zil_Conj})
      for (int incx : kIncs) {
        int incy = incx == 1 ? -1 : 2;
        Dense a = random_dense<T>(m, n);
        auto x = random_cv<T>(m), y = random_cv<T>(n);
        C alpha = rand_scalar<T>(), beta = rand_scalar<T>();
        int pd = (order == Zil_ColMajor ? m : n) + 1;
        auto as = store_general<T>(a, order, pd);
        auto xs = store_vec<T>(x, incx), ys = store_vec<T>(y, incy);
        ZilError f = quiet();
        if constexpr (kCx<T>)
          f16smc(order, conj, m, n, fromC<T>(alpha), xs.data(), incx, ys.data(), incy, fromC<T>(beta), as.data(), pd, &f);
        else
          f16pmc(order, conj, m, n, fromC<T>(alpha), xs.data(), incx, ys.data(), incy, fromC<T>(beta), as.data(), pd, &f);
        ASSERT_EQ(f.code, 0);
        Dense want(m, n);
        bool cj = kCx<T> && conj == Zil_Conj;
        for (int i = 0; i < m; ++i)
          for (int j = 0; j < n; ++j) want(i, j) = beta * a(i, j) + alpha * x[i] * (cj ? std::conj(y[j]) : y[j]);
        expect_close(load_general(as, order, pd, m, n), want, kTol, "ger " + tag(order, conj, incx));
        EXPECT_EQ(load_vec(ys, n, incy), y);  // y unchanged by the conjugated copy
      }
}

// Symmetric/Hermitian rank-1 and rank-2 updates, full and packed, with the
// stored triangle scaled by beta first.
TYPED_TEST(Level2, SymmetricRankUpdates) {
  using T = TypeParam;
  const int n = 4;
  for (bool packed : {false, true})
    for (bool two : {false, true})
      for (Integer order : kOrders)
        for (Integer uplo : kUplos)
          for (int incx : kIncs) {
            int incy = -incx;
            Dense a = random_hermitian<T>(n);
            auto x = random_cv<T>(n), y = random_cv<T>(n);
            double alpha_r = uniform(), beta = uniform();
            C alpha = two ? rand_scalar<T>() : C(alpha_r, 0.0);
            int pd = n + 1;
            auto as = packed ? store_packed<T>(a, order, uplo) : store_triangle<T>(a, order, uplo, pd);
            auto xs = store_vec<T>(x, incx), ys = store_vec<T>(y, incy);
            ZilError f = quiet();
            if constexpr (kCx<T>) {
              if (!two && !packed) f16spc(order, uplo, n, alpha_r, xs.data(), incx, beta, as.data(), pd, &f);
              if (!two && packed) f16sqc(order, uplo, n, alpha_r, xs.data(), incx, beta, as.data(), &f);
              if (two && !packed) f16src(order, uplo, n, fromC<T>(alpha), xs.data(), incx, ys.data(), incy, beta, as.data(), pd, &f);
              if (two && packed) f16ssc(order, uplo, n, fromC<T>(alpha), xs.data(), incx, ys.data(), incy, beta, as.data(), &f);
            } else {
              if (!two && !packed) f16ppc(order, uplo, n, alpha_r, xs.data(), incx, beta, as.data(), pd, &f);
              if (!two && packed) f16pqc(order, uplo, n, alpha_r, xs.data(), incx, beta, as.data(), &f);
              if (two && !packed) f16prc(order, uplo, n, alpha.real(), xs.data(), incx, ys.data(), incy, beta, as.data(), pd, &f);
              if (two && packed) f16psc(order, uplo, n, alpha.real(), xs.data(), incx, ys.data(), incy, beta, as.data(), &f);
            }
            ASSERT_EQ(f.code, 0);
            std::string what = std::string(packed ? "packed " : "full ") + (two ? "rank-2 " : "rank-1 ") + tag(order, uplo, incx);
            for (int i = 0; i < n; ++i)
              for (int j = 0; j < n; ++j) {
                if (!in_triangle(uplo, i, j)) continue;
                C u = two ? alpha * x[i] * std::conj(y[j]) + std::conj(alpha) * y[i] * std::conj(x[j])
                          : alpha * x[i] * std::conj(x[j]);
                C want = beta * a(i, j) + u;
                C got = toC(as[packed ? packed_index(order, uplo, n, i, j) : gen_index(order, pd, i, j)]);
                if (i == j && kCx<T>) want = C(want.real(), 0.0);  // a Hermitian diagonal stays real
                ASSERT_LE(std::abs(got - want), kTol) << what << " (" << i << "," << j << ")";
              }
          }
}

}  // namespace
