// Uniform variates per second: the older suite's g05cac and the rngs
// suite's g05kac (base generator and a Wichmann-Hill row) against
// std::mt19937_64 with std::uniform_real_distribution<double>, and GSL's
// mt19937 when it is installed.  Goals: g05cac at least the std pair,
// g05kac with igen 0 at least half of it.
#include <benchmark/benchmark.h>

#include <random>

#include "zil.h"

#ifdef ZIL_HAVE_GSL
#include <gsl/gsl_rng.h>
#endif

namespace {

void BM_g05cac(benchmark::State& state) {
  g05cbc(1762);
  for (auto _ : state) benchmark::DoNotOptimize(g05cac());
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_g05cac);

void BM_mt19937_64_uniform_real(benchmark::State& state) {
  std::mt19937_64 gen(1762);
  std::uniform_real_distribution<double> dist(0.0, 1.0);
  for (auto _ : state) benchmark::DoNotOptimize(dist(gen));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_mt19937_64_uniform_real);

void BM_g05kac(benchmark::State& state) {
  Integer igen = static_cast<Integer>(state.range(0));
  Integer iseed[4] = {1762, 2, 3, 4};
  g05kbc(&igen, iseed);
  for (auto _ : state) benchmark::DoNotOptimize(g05kac(igen, iseed));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_g05kac)->Arg(0)->Arg(1);

#ifdef ZIL_HAVE_GSL
void BM_gsl_mt19937_uniform(benchmark::State& state) {
  gsl_rng* r = gsl_rng_alloc(gsl_rng_mt19937);
  gsl_rng_set(r, 1762);
  for (auto _ : state) benchmark::DoNotOptimize(gsl_rng_uniform(r));
  gsl_rng_free(r);
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_gsl_mt19937_uniform);
#endif

}  // namespace

BENCHMARK_MAIN();
