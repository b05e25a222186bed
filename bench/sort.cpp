// Sorting speed against the C and C++ standard sorts, on the same data in
// the same run: m01cac against std::sort (10^6 random doubles, and sorted
// and reversed input against the random figure), m01csc with a double
// comparison against qsort.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

#include "zil.h"

namespace {

constexpr std::size_t kN = 1000000;

enum Input { Random, Sorted, Reversed };

const std::vector<double>& input(Input kind) {
  static const std::array<std::vector<double>, 3> data = [] {
    std::vector<double> r(kN);
    std::mt19937_64 gen(2024);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    for (double& x : r) x = u(gen);
    std::vector<double> s = r;
    std::sort(s.begin(), s.end());
    std::vector<double> d(s.rbegin(), s.rend());
    return std::array<std::vector<double>, 3>{r, s, d};
  }();
  return data[kind];
}

Integer cmp_double(const void* a, const void* b) {
  const double x = *static_cast<const double*>(a), y = *static_cast<const double*>(b);
  return (x > y) - (x < y);
}

int qsort_cmp(const void* a, const void* b) {
  const double x = *static_cast<const double*>(a), y = *static_cast<const double*>(b);
  return (x > y) - (x < y);
}

// Times sort(v) on a fresh copy of the input in each iteration; the copying
// is left out of the figure.
template <class Sort>
void run(benchmark::State& state, Input kind, Sort sort) {
  const auto& src = input(kind);
  std::vector<double> v(src.size());
  for (auto _ : state) {
    state.PauseTiming();
    std::memcpy(v.data(), src.data(), src.size() * sizeof(double));
    state.ResumeTiming();
    sort(v);
    benchmark::DoNotOptimize(v.data());
  }
  if (!std::is_sorted(v.begin(), v.end())) state.SkipWithError("not sorted");
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(src.size()));
}

void m01cac_sort(std::vector<double>& v) { m01cac(v.data(), v.size(), Zil_Ascending, nullptr); }
void std_sort(std::vector<double>& v) { std::sort(v.begin(), v.end()); }
void m01csc_sort(std::vector<double>& v) {
  m01csc(v.data(), v.size(), sizeof(double), sizeof(double), cmp_double, Zil_Ascending, nullptr);
}
void qsort_sort(std::vector<double>& v) { std::qsort(v.data(), v.size(), sizeof(double), qsort_cmp); }

void BM_m01cac_random(benchmark::State& s) { run(s, Random, m01cac_sort); }
void BM_std_sort_random(benchmark::State& s) { run(s, Random, std_sort); }
void BM_m01cac_sorted(benchmark::State& s) { run(s, Sorted, m01cac_sort); }
void BM_m01cac_reversed(benchmark::State& s) { run(s, Reversed, m01cac_sort); }
void BM_m01csc_random(benchmark::State& s) { run(s, Random, m01csc_sort); }
void BM_qsort_random(benchmark::State& s) { run(s, Random, qsort_sort); }

BENCHMARK(BM_m01cac_random)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_std_sort_random)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_m01cac_sorted)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_m01cac_reversed)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_m01csc_random)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_qsort_random)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
