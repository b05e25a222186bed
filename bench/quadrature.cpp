// Time per integrand evaluation of d01ajc (qags) and d01akc (qag, 61 points)
// against GSL's gsl_integration_qags / gsl_integration_qag (GSL_INTEG_GAUSS61)
// on a cheap integrand, with the same tolerance (the smallest GSL accepts), so
// that the work per evaluation is compared at the same evaluation count.
#include <benchmark/benchmark.h>

#include <cmath>

#include "zil.h"
#ifdef ZIL_HAVE_GSL
#include <gsl/gsl_errno.h>
#include <gsl/gsl_integration.h>
#endif

namespace {

// Oscillating enough that no tolerance near round-off is met before the limit.
double cheap(double x) { return std::exp(x) * std::cos(40.0 * x) + std::sqrt(std::fabs(x - 0.3)); }

void release(Zil_QuadReport& qp) {
  x04bdc(reinterpret_cast<Pointer*>(&qp.subint_lower));
  x04bdc(reinterpret_cast<Pointer*>(&qp.subint_upper));
  x04bdc(reinterpret_cast<Pointer*>(&qp.subint_result));
  x04bdc(reinterpret_cast<Pointer*>(&qp.subint_error));
}

template <bool Osc>
void BM_zil(benchmark::State& st) {
  const Integer limit = static_cast<Integer>(st.range(0));
  long evals = 0;
  for (auto _ : st) {
    double res = 0, err = 0;
    Zil_QuadReport qp{};
    ZilError fail{};
    (Osc ? d01akc : d01ajc)(cheap, 0.0, 1.0, 0.0, 2e-14, limit, &res, &err, &qp, &fail);
    benchmark::DoNotOptimize(res);
    evals += qp.eval_count;
    release(qp);
  }
  st.counters["evals/run"] = static_cast<double>(evals) / static_cast<double>(st.iterations());
  st.counters["ns/eval"] = benchmark::Counter(static_cast<double>(evals), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

#ifdef ZIL_HAVE_GSL
double gsl_cheap(double x, void*) { return cheap(x); }

template <bool Osc>
void BM_gsl(benchmark::State& st) {
  const size_t limit = static_cast<size_t>(st.range(0));
  gsl_set_error_handler_off();
  gsl_integration_workspace* w = gsl_integration_workspace_alloc(limit);
  gsl_function F{gsl_cheap, nullptr};
  long evals = 0;
  for (auto _ : st) {
    double res = 0, err = 0;
    if (Osc)
      gsl_integration_qag(&F, 0.0, 1.0, 0.0, 2e-14, limit, GSL_INTEG_GAUSS61, w, &res, &err);
    else
      gsl_integration_qags(&F, 0.0, 1.0, 0.0, 2e-14, limit, w, &res, &err);
    benchmark::DoNotOptimize(res);
    evals += static_cast<long>(Osc ? 61 * (2 * w->size - 1) : 42 * w->size - 21);
  }
  gsl_integration_workspace_free(w);
  st.counters["evals/run"] = static_cast<double>(evals) / static_cast<double>(st.iterations());
  st.counters["ns/eval"] = benchmark::Counter(static_cast<double>(evals), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_gsl<false>)->Name("gsl_qags")->Arg(200)->Arg(1000);
BENCHMARK(BM_gsl<true>)->Name("gsl_qag61")->Arg(200)->Arg(1000);
#endif

BENCHMARK(BM_zil<false>)->Name("d01ajc")->Arg(200)->Arg(1000);
BENCHMARK(BM_zil<true>)->Name("d01akc")->Arg(200)->Arg(1000);

}  // namespace

BENCHMARK_MAIN();
