// Time per integrand evaluation of d01ajc (qags) and d01akc (qag, 61 points)
// against GSL's gsl_integration_qags / gsl_integration_qag (GSL_INTEG_GAUSS61)
// on a cheap integrand, so that the integrators' own work per evaluation is
// what differs.
//
// The problem is chosen so that both libraries make the same evaluations:
// exp(-x^2) over (-700, 700) with epsabs = 0, epsrel = 1e-12.  Both bisect the
// same intervals and stop on the same test, with bit-identical results:
//   qags  19 subintervals, 777 evaluations
//   qag61 14 subintervals, 1647 evaluations
// at max_num_subint 200 and 1000 alike (the limit changes only the storage a
// run sets up).  The evals/run counters show the counts of each run.
//
// Where the code of either library and of the integrand falls moves each
// run by up to 3-4% either way, more than the two libraries differ; run with
//   --benchmark_repetitions=10 --benchmark_enable_random_interleaving=true
// and compare medians.  Zil's time includes the caller's release of the
// record, and the record's four allocations and zero tail (GSL's workspace is
// made once, outside the timing).
#include <benchmark/benchmark.h>

#include <cmath>

#include "zil.h"
#ifdef ZIL_HAVE_GSL
#include <gsl/gsl_errno.h>
#include <gsl/gsl_integration.h>
#endif

namespace {

double cheap(double x) { return std::exp(-x * x); }
constexpr double kA = -700.0, kB = 700.0, kEpsrel = 1e-12;

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
    (Osc ? d01akc : d01ajc)(cheap, kA, kB, 0.0, kEpsrel, limit, &res, &err, &qp, &fail);
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
      gsl_integration_qag(&F, kA, kB, 0.0, kEpsrel, limit, GSL_INTEG_GAUSS61, w, &res, &err);
    else
      gsl_integration_qags(&F, kA, kB, 0.0, kEpsrel, limit, w, &res, &err);
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
