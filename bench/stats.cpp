// Distribution functions per second against GSL's gsl_cdf_* in the same
// run: the normal, t and beta probabilities and the normal and t quantiles.
// Each benchmark cycles through a fixed set of arguments spread over the
// body and the tails, so that no single branch is measured alone.
#include <benchmark/benchmark.h>

#include <array>

#include "zil.h"

#ifdef ZIL_HAVE_GSL
#include <gsl/gsl_cdf.h>
#endif

namespace {

constexpr std::array<double, 8> kX = {-6.5, -2.1, -0.7, 0.05, 0.9, 1.6, 3.3, 9.0};
constexpr std::array<double, 8> kP = {1e-12, 1e-4, 0.02, 0.3, 0.55, 0.9, 0.995, 0.99999};
constexpr std::array<double, 8> kBetaX = {0.001, 0.05, 0.2, 0.35, 0.5, 0.7, 0.9, 0.999};
constexpr double kDfSmall = 7.0, kDfLarge = 45.0;
constexpr double kBetaA = 4.5, kBetaB = 11.0;

template <class F>
void cycle(benchmark::State& state, const std::array<double, 8>& args, F f) {
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(f(args[i]));
    i = (i + 1) & 7;
  }
  state.SetItemsProcessed(state.iterations());
}

void BM_g01eac(benchmark::State& s) { cycle(s, kX, [](double x) { return g01eac(Zil_LowerTail, x, nullptr); }); }
BENCHMARK(BM_g01eac);
void BM_g01ebc_df7(benchmark::State& s) {
  cycle(s, kX, [](double t) { return g01ebc(Zil_LowerTail, t, kDfSmall, nullptr); });
}
BENCHMARK(BM_g01ebc_df7);
void BM_g01ebc_df45(benchmark::State& s) {
  cycle(s, kX, [](double t) { return g01ebc(Zil_LowerTail, t, kDfLarge, nullptr); });
}
BENCHMARK(BM_g01ebc_df45);
void BM_g01eec(benchmark::State& s) {
  cycle(s, kBetaX, [](double x) {
    double p, q, pdf;
    g01eec(x, kBetaA, kBetaB, 0.0, &p, &q, &pdf, nullptr);
    return p;
  });
}
BENCHMARK(BM_g01eec);
void BM_g01fac(benchmark::State& s) { cycle(s, kP, [](double p) { return g01fac(Zil_LowerTail, p, nullptr); }); }
BENCHMARK(BM_g01fac);
void BM_g01fbc_df7(benchmark::State& s) {
  cycle(s, kP, [](double p) { return g01fbc(Zil_LowerTail, p, kDfSmall, nullptr); });
}
BENCHMARK(BM_g01fbc_df7);
void BM_g01fbc_df45(benchmark::State& s) {
  cycle(s, kP, [](double p) { return g01fbc(Zil_LowerTail, p, kDfLarge, nullptr); });
}
BENCHMARK(BM_g01fbc_df45);

#ifdef ZIL_HAVE_GSL
void BM_gsl_cdf_ugaussian_P(benchmark::State& s) { cycle(s, kX, [](double x) { return gsl_cdf_ugaussian_P(x); }); }
BENCHMARK(BM_gsl_cdf_ugaussian_P);
void BM_gsl_cdf_tdist_P_df7(benchmark::State& s) { cycle(s, kX, [](double t) { return gsl_cdf_tdist_P(t, kDfSmall); }); }
BENCHMARK(BM_gsl_cdf_tdist_P_df7);
void BM_gsl_cdf_tdist_P_df45(benchmark::State& s) { cycle(s, kX, [](double t) { return gsl_cdf_tdist_P(t, kDfLarge); }); }
BENCHMARK(BM_gsl_cdf_tdist_P_df45);
void BM_gsl_cdf_beta_P(benchmark::State& s) {
  cycle(s, kBetaX, [](double x) { return gsl_cdf_beta_P(x, kBetaA, kBetaB); });
}
BENCHMARK(BM_gsl_cdf_beta_P);
void BM_gsl_cdf_ugaussian_Pinv(benchmark::State& s) { cycle(s, kP, [](double p) { return gsl_cdf_ugaussian_Pinv(p); }); }
BENCHMARK(BM_gsl_cdf_ugaussian_Pinv);
void BM_gsl_cdf_tdist_Pinv_df7(benchmark::State& s) {
  cycle(s, kP, [](double p) { return gsl_cdf_tdist_Pinv(p, kDfSmall); });
}
BENCHMARK(BM_gsl_cdf_tdist_Pinv_df7);
void BM_gsl_cdf_tdist_Pinv_df45(benchmark::State& s) {
  cycle(s, kP, [](double p) { return gsl_cdf_tdist_Pinv(p, kDfLarge); });
}
BENCHMARK(BM_gsl_cdf_tdist_Pinv_df45);
#endif

}  // namespace

BENCHMARK_MAIN();
