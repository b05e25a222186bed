// The Level-3 fronts against reference products, both storage orders and
// every option.
#include "linalg/fronts_support.hpp"

using namespace kt;

namespace {

template <class T>
class Level3 : public ::testing::Test {};
using Elements = ::testing::Types<double, Complex>;
TYPED_TEST_SUITE(Level3, Elements);

constexpr double kTol = 512 * kEps;

Dense axpby(C alpha, const Dense& p, C beta, Dense c) {
  for (std::size_t i = 0; i < c.v.size(); ++i) c.v[i] = alpha * p.v[i] + beta * c.v[i];
  return c;
}
int ld(Integer order, int rows, int cols) { return (order == Zil_ColMajor ? rows : cols) + 2; }

TYPED_TEST(Level3, GeneralProduct) {
  using T = TypeParam;
  const int m = 4, n = 3, k = 5;
  for (Integer order : kOrders)
    for (Integer ta : kTrans)
      for (Integer tb : kTrans) {
        char la = letter_for<T>(ta), lb = letter_for<T>(tb);
        Dense a = la == 'N' ? random_dense<T>(m, k) : random_dense<T>(k, m);
        Dense b = lb == 'N' ? random_dense<T>(k, n) : random_dense<T>(n, k);
        Dense c = random_dense<T>(m, n);
        C alpha = rand_scalar<T>(), beta = rand_scalar<T>();
        int pda = ld(order, a.r, a.c), pdb = ld(order, b.r, b.c), pdc = ld(order, m, n);
        auto as = store_general<T>(a, order, pda), bs = store_general<T>(b, order, pdb), cs = store_general<T>(c, order, pdc);
        ZilError f = quiet();
        if constexpr (kCx<T>)
          f16zac(order, ta, tb, m, n, k, fromC<T>(alpha), as.data(), pda, bs.data(), pdb, fromC<T>(beta), cs.data(), pdc, &f);
        else
          f16yac(order, ta, tb, m, n, k, fromC<T>(alpha), as.data(), pda, bs.data(), pdb, fromC<T>(beta), cs.data(), pdc, &f);
        ASSERT_EQ(f.code, 0);
        expect_close(load_general(cs, order, pdc, m, n), axpby(alpha, mul(op(a, la), op(b, lb)), beta, c), kTol,
                     "gemm " + tag(order, ta, tb));
      }
}

TYPED_TEST(Level3, SymmetricAndHermitianProducts) {
  using T = TypeParam;
  const int m = 4, n = 3;
  for (bool herm : {false, true}) {
    if (herm && !kCx<T>) continue;
    for (Integer order : kOrders)
      for (Integer side : kSides)
        for (Integer uplo : kUplos) {
          int na = side == Zil_LeftSide ? m : n;
          Dense a = herm ? random_hermitian<T>(na) : symmetric_from(random_dense<T>(na, na));
          Dense b = random_dense<T>(m, n), c = random_dense<T>(m, n);
          C alpha = rand_scalar<T>(), beta = rand_scalar<T>();
          int pda = na + 1, pdb = ld(order, m, n), pdc = pdb;
          auto as = store_triangle<T>(a, order, uplo, pda);
          auto bs = store_general<T>(b, order, pdb), cs = store_general<T>(c, order, pdc);
          ZilError f = quiet();
          if constexpr (kCx<T>)
            (herm ? f16zcc : f16ztc)(order, side, uplo, m, n, fromC<T>(alpha), as.data(), pda, bs.data(), pdb, fromC<T>(beta), cs.data(), pdc, &f);
          else
            f16ycc(order, side, uplo, m, n, fromC<T>(alpha), as.data(), pda, bs.data(), pdb, fromC<T>(beta), cs.data(), pdc, &f);
          ASSERT_EQ(f.code, 0);
          Dense p = side == Zil_LeftSide ? mul(a, b) : mul(b, a);
          expect_close(load_general(cs, order, pdc, m, n), axpby(alpha, p, beta, c), kTol,
                       std::string(herm ? "hemm " : "symm ") + tag(order, side, uplo));
        }
  }
}

TYPED_TEST(Level3, TriangularProductsAndSolves) {
  using T = TypeParam;
  const int m = 4, n = 3;
  for (bool solve : {false, true})
    for (Integer order : kOrders)
      for (Integer side : kSides)
        for (Integer uplo : kUplos)
          for (Integer trans : kTrans)
            for (Integer diag : kDiags) {
              bool unit = diag == Zil_UnitDiag;
              int na = side == Zil_LeftSide ? m : n;
              Dense t = triangle_only(dominant(random_dense<T>(na, na)), uplo, unit);
              Dense b = random_dense<T>(m, n);
              C alpha = rand_scalar<T>();
              int pda = na + 2, pdb = ld(order, m, n);
              auto as = store_triangle<T>(t, order, uplo, pda, unit);
              auto bs = store_general<T>(b, order, pdb);
              ZilError f = quiet();
              if constexpr (kCx<T>)
                (solve ? f16zjc : f16zfc)(order, side, uplo, trans, diag, m, n, fromC<T>(alpha), as.data(), pda, bs.data(), pdb, &f);
              else
                (solve ? f16yjc : f16yfc)(order, side, uplo, trans, diag, m, n, fromC<T>(alpha), as.data(), pda, bs.data(), pdb, &f);
              ASSERT_EQ(f.code, 0);
              Dense got = load_general(bs, order, pdb, m, n);
              Dense opt = op(t, letter_for<T>(trans));
              std::string what = std::string(solve ? "trsm " : "trmm ") + tag(order, side, uplo, trans) + " " + std::to_string(diag);
              if (!solve) {
                Dense p = side == Zil_LeftSide ? mul(opt, b) : mul(b, opt);
                expect_close(got, axpby(alpha, p, 0.0, p), kTol, what);
              } else {
                // op(T) X = alpha B, or X op(T) = alpha B.
                Dense p = side == Zil_LeftSide ? mul(opt, got) : mul(got, opt);
                expect_close(p, axpby(alpha, b, 0.0, b), kTol * 4, what);
              }
            }
}

// Rank-k and rank-2k updates: symmetric ('T') for both element types,
// Hermitian ('C') for complex.
TYPED_TEST(Level3, RankKUpdates) {
  using T = TypeParam;
  const int n = 4, k = 3;
  for (char kind : {'T', 'C'}) {
    if (kind == 'C' && !kCx<T>) continue;
    for (bool two : {false, true})
      for (Integer order : kOrders)
        for (Integer uplo : kUplos)
          for (Integer trans : {Zil_NoTrans, kind == 'C' ? Zil_ConjTrans : Zil_Trans}) {
            bool plain = trans == Zil_NoTrans;
            Dense a = plain ? random_dense<T>(n, k) : random_dense<T>(k, n);
            Dense b = plain ? random_dense<T>(n, k) : random_dense<T>(k, n);
            Dense c = kind == 'C' ? random_hermitian<T>(n) : symmetric_from(random_dense<T>(n, n));
            C alpha = kind == 'C' && !two ? C(uniform(), 0.0) : rand_scalar<T>();
            C beta = kind == 'C' ? C(uniform(), 0.0) : rand_scalar<T>();
            int pda = ld(order, a.r, a.c), pdc = n + 1;
            auto as = store_general<T>(a, order, pda), bs = store_general<T>(b, order, pda);
            auto cs = store_triangle<T>(c, order, uplo, pdc);
            ZilError f = quiet();
            if constexpr (kCx<T>) {
              if (kind == 'C' && !two) f16zpc(order, uplo, trans, n, k, alpha.real(), as.data(), pda, beta.real(), cs.data(), pdc, &f);
              if (kind == 'C' && two) f16zrc(order, uplo, trans, n, k, fromC<T>(alpha), as.data(), pda, bs.data(), pda, beta.real(), cs.data(), pdc, &f);
              if (kind == 'T' && !two) f16zuc(order, uplo, trans, n, k, fromC<T>(alpha), as.data(), pda, fromC<T>(beta), cs.data(), pdc, &f);
              if (kind == 'T' && two) f16zwc(order, uplo, trans, n, k, fromC<T>(alpha), as.data(), pda, bs.data(), pda, fromC<T>(beta), cs.data(), pdc, &f);
            } else {
              if (!two) f16ypc(order, uplo, trans, n, k, alpha.real(), as.data(), pda, beta.real(), cs.data(), pdc, &f);
              else f16yrc(order, uplo, trans, n, k, alpha.real(), as.data(), pda, bs.data(), pda, beta.real(), cs.data(), pdc, &f);
            }
            ASSERT_EQ(f.code, 0);
            // op(A) is n by k: A itself, or its (conjugate) transpose.
            Dense oa = plain ? a : op(a, kind), ob = plain ? b : op(b, kind);
            Dense p = mul(oa, op(two ? ob : oa, kind));
            if (two) {
              Dense q = mul(ob, op(oa, kind));
              C alpha2 = kind == 'C' ? std::conj(alpha) : alpha;
              for (std::size_t i = 0; i < p.v.size(); ++i) p.v[i] = alpha * p.v[i] + alpha2 * q.v[i];
            } else {
              for (auto& v : p.v) v *= alpha;
            }
            std::string what = std::string(two ? "syr2k " : "syrk ") + kind + " " + tag(order, uplo, trans);
            for (int i = 0; i < n; ++i)
              for (int j = 0; j < n; ++j) {
                if (!in_triangle(uplo, i, j)) continue;
                C want = p(i, j) + beta * c(i, j);
                if (kind == 'C' && i == j) want = C(want.real(), 0.0);
                ASSERT_LE(std::abs(toC(cs[gen_index(order, pdc, i, j)]) - want), kTol) << what << " (" << i << "," << j << ")";
              }
          }
  }
}

}  // namespace
