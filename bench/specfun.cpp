// Calls per second of the heavily used special functions against the C
// library's erfc, erf, lgamma and tgamma and GSL's E1, on the same arguments.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "zil.h"
#ifdef ZIL_HAVE_GSL
#include <gsl/gsl_errno.h>
#include <gsl/gsl_sf_expint.h>
#endif

namespace {

std::vector<double> points(double lo, double hi) {
  std::mt19937_64 gen(42);
  std::uniform_real_distribution<double> d(lo, hi);
  std::vector<double> v(4096);
  for (double& x : v) x = d(gen);
  return v;
}

template <class F>
void run(benchmark::State& state, const std::vector<double>& xs, F f) {
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(f(xs[i]));
    i = (i + 1) & 4095;
  }
  state.SetItemsProcessed(state.iterations());
}

const auto kErf = points(-6.0, 6.0);
const auto kGamma = points(0.1, 30.0);
const auto kExpint = points(0.05, 50.0);

void BM_s15adc(benchmark::State& s) { run(s, kErf, [](double x) { return s15adc(x); }); }
void BM_erfc(benchmark::State& s) { run(s, kErf, [](double x) { return std::erfc(x); }); }
void BM_s15aec(benchmark::State& s) { run(s, kErf, [](double x) { return s15aec(x); }); }
void BM_erf(benchmark::State& s) { run(s, kErf, [](double x) { return std::erf(x); }); }
void BM_s14abc(benchmark::State& s) { run(s, kGamma, [](double x) { return s14abc(x, nullptr); }); }
void BM_lgamma(benchmark::State& s) { run(s, kGamma, [](double x) { return std::lgamma(x); }); }
void BM_s14aac(benchmark::State& s) { run(s, kGamma, [](double x) { return s14aac(x, nullptr); }); }
void BM_tgamma(benchmark::State& s) { run(s, kGamma, [](double x) { return std::tgamma(x); }); }
void BM_s13aac(benchmark::State& s) { run(s, kExpint, [](double x) { return s13aac(x, nullptr); }); }
#ifdef ZIL_HAVE_GSL
void BM_gsl_expint_E1(benchmark::State& s) {
  gsl_set_error_handler_off();
  run(s, kExpint, [](double x) { return gsl_sf_expint_E1(x); });
}
#endif

}  // namespace

BENCHMARK(BM_s15adc);
BENCHMARK(BM_erfc);
BENCHMARK(BM_s15aec);
BENCHMARK(BM_erf);
BENCHMARK(BM_s14abc);
BENCHMARK(BM_lgamma);
BENCHMARK(BM_s14aac);
BENCHMARK(BM_tgamma);
BENCHMARK(BM_s13aac);
#ifdef ZIL_HAVE_GSL
BENCHMARK(BM_gsl_expint_E1);
#endif

BENCHMARK_MAIN();
