// The kernels against the BLAS they front or replace, in the same run.
//
//   f16pac, f16yac, f16yjc (row- and column-major) against dgemv, dgemm and
//   dtrsm called directly with the same operation: the fronts' checks and
//   the storage-order exchange should cost within 3%.
//   f06eac, f06ecc, f06ejc, f06edc on 10^6 elements against OpenBLAS's
//   ddot, daxpy, dnrm2 and dscal: within a factor 1.5.
//
// Run with OPENBLAS_NUM_THREADS=1 for steady figures on a shared machine.
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "linalg/detail/blas.hpp"
#include "zil.h"

extern "C" {
double ddot_(const int*, const double*, const int*, const double*, const int*);
void daxpy_(const int*, const double*, const double*, const int*, double*, const int*);
double dnrm2_(const int*, const double*, const int*);
void dscal_(const int*, const double*, double*, const int*);
}

namespace {

std::vector<double> random_vector(std::size_t n, unsigned seed) {
  std::mt19937_64 g(seed);
  std::uniform_real_distribution<double> u(-1.0, 1.0);
  std::vector<double> v(n);
  for (auto& x : v) x = u(g);
  return v;
}

namespace blas = zil::linalg::blas;

// ---- Level 2 and 3 fronts -----------------------------------------------------
// Arg 0: n; arg 1: 1 for row-major.

void BM_f16pac(benchmark::State& st) {
  int n = int(st.range(0));
  Integer order = st.range(1) ? Zil_RowMajor : Zil_ColMajor;
  auto a = random_vector(std::size_t(n) * n, 1), x = random_vector(n, 2), y = random_vector(n, 3);
  ZilError f{};
  for (auto _ : st) {
    f16pac(order, Zil_NoTrans, n, n, 1.0, a.data(), n, x.data(), 1, 0.5, y.data(), 1, &f);
    benchmark::DoNotOptimize(y.data());
  }
}
void BM_dgemv(benchmark::State& st) {
  int n = int(st.range(0));
  char t = st.range(1) ? 'T' : 'N';  // row-major A x is the column-major transpose
  auto a = random_vector(std::size_t(n) * n, 1), x = random_vector(n, 2), y = random_vector(n, 3);
  for (auto _ : st) {
    blas::gemv(t, n, n, 1.0, a.data(), n, x.data(), 1, 0.5, y.data(), 1);
    benchmark::DoNotOptimize(y.data());
  }
}

void BM_f16yac(benchmark::State& st) {
  int n = int(st.range(0));
  Integer order = st.range(1) ? Zil_RowMajor : Zil_ColMajor;
  auto a = random_vector(std::size_t(n) * n, 1), b = random_vector(std::size_t(n) * n, 2),
       c = random_vector(std::size_t(n) * n, 3);
  ZilError f{};
  for (auto _ : st) {
    f16yac(order, Zil_NoTrans, Zil_Trans, n, n, n, 1.0, a.data(), n, b.data(), n, 0.0, c.data(), n, &f);
    benchmark::DoNotOptimize(c.data());
  }
}
void BM_dgemm(benchmark::State& st) {
  int n = int(st.range(0));
  bool row = st.range(1) != 0;
  auto a = random_vector(std::size_t(n) * n, 1), b = random_vector(std::size_t(n) * n, 2),
       c = random_vector(std::size_t(n) * n, 3);
  for (auto _ : st) {
    if (row)
      blas::gemm('T', 'N', n, n, n, 1.0, b.data(), n, a.data(), n, 0.0, c.data(), n);
    else
      blas::gemm('N', 'T', n, n, n, 1.0, a.data(), n, b.data(), n, 0.0, c.data(), n);
    benchmark::DoNotOptimize(c.data());
  }
}

// A well-conditioned upper triangle: a dominant diagonal.
std::vector<double> triangle(int n) {
  auto t = random_vector(std::size_t(n) * n, 4);
  for (int i = 0; i < n; ++i) t[std::size_t(i) * n + i] += n;
  return t;
}
void BM_f16yjc(benchmark::State& st) {
  int n = int(st.range(0));
  Integer order = st.range(1) ? Zil_RowMajor : Zil_ColMajor;
  auto t = triangle(n), b = random_vector(std::size_t(n) * n, 5);
  ZilError f{};
  for (auto _ : st) {
    f16yjc(order, Zil_LeftSide, Zil_Upper, Zil_NoTrans, Zil_NonUnitDiag, n, n, 1.0, t.data(), n, b.data(), n, &f);
    benchmark::DoNotOptimize(b.data());
  }
}
void BM_dtrsm(benchmark::State& st) {
  int n = int(st.range(0));
  bool row = st.range(1) != 0;
  auto t = triangle(n), b = random_vector(std::size_t(n) * n, 5);
  for (auto _ : st) {
    blas::trsm(row ? 'R' : 'L', row ? 'L' : 'U', 'N', 'N', n, n, 1.0, t.data(), n, b.data(), n);
    benchmark::DoNotOptimize(b.data());
  }
}

void level23_args(benchmark::internal::Benchmark* b) {
  for (int n : {500, 2000})
    for (int row : {0, 1}) b->Args({n, row});
  b->Unit(benchmark::kMicrosecond);
}
BENCHMARK(BM_f16pac)->Apply(level23_args);
BENCHMARK(BM_dgemv)->Apply(level23_args);
BENCHMARK(BM_f16yac)->Apply(level23_args);
BENCHMARK(BM_dgemm)->Apply(level23_args);
BENCHMARK(BM_f16yjc)->Apply(level23_args);
BENCHMARK(BM_dtrsm)->Apply(level23_args);

// ---- Level 1 ---------------------------------------------------------------------

constexpr int kN = 1000000;
const int kOne = 1;

void BM_f06eac(benchmark::State& st) {
  auto x = random_vector(kN, 6), y = random_vector(kN, 7);
  for (auto _ : st) benchmark::DoNotOptimize(f06eac(kN, x.data(), 1, y.data(), 1));
}
void BM_ddot(benchmark::State& st) {
  auto x = random_vector(kN, 6), y = random_vector(kN, 7);
  for (auto _ : st) benchmark::DoNotOptimize(ddot_(&kN, x.data(), &kOne, y.data(), &kOne));
}
void BM_f06ecc(benchmark::State& st) {
  auto x = random_vector(kN, 6), y = random_vector(kN, 7);
  for (auto _ : st) {
    f06ecc(kN, 1e-9, x.data(), 1, y.data(), 1);
    benchmark::DoNotOptimize(y.data());
  }
}
void BM_daxpy(benchmark::State& st) {
  auto x = random_vector(kN, 6), y = random_vector(kN, 7);
  const double a = 1e-9;
  for (auto _ : st) {
    daxpy_(&kN, &a, x.data(), &kOne, y.data(), &kOne);
    benchmark::DoNotOptimize(y.data());
  }
}
void BM_f06ejc(benchmark::State& st) {
  auto x = random_vector(kN, 6);
  for (auto _ : st) benchmark::DoNotOptimize(f06ejc(kN, x.data(), 1));
}
void BM_dnrm2(benchmark::State& st) {
  auto x = random_vector(kN, 6);
  for (auto _ : st) benchmark::DoNotOptimize(dnrm2_(&kN, x.data(), &kOne));
}
// Scaling by a half and then by two keeps the data exact and the pair of
// calls counts as one iteration for both.
void BM_f06edc(benchmark::State& st) {
  auto x = random_vector(kN, 6);
  for (auto _ : st) {
    f06edc(kN, 0.5, x.data(), 1);
    f06edc(kN, 2.0, x.data(), 1);
    benchmark::DoNotOptimize(x.data());
  }
}
void BM_dscal(benchmark::State& st) {
  auto x = random_vector(kN, 6);
  const double h = 0.5, two = 2.0;
  for (auto _ : st) {
    dscal_(&kN, &h, x.data(), &kOne);
    dscal_(&kN, &two, x.data(), &kOne);
    benchmark::DoNotOptimize(x.data());
  }
}
BENCHMARK(BM_f06eac)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ddot)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_f06ecc)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_daxpy)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_f06ejc)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_dnrm2)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_f06edc)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_dscal)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
