// c05nbc on the discrete boundary value problem of More, Garbow and
// Hillstrom: the time the solver spends outside the callback, per
// evaluation of f.  GSL's hybrids solver (the same method, with its own
// difference Jacobian) runs in the same program as a peer.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <vector>

#include "zil.h"

#ifdef ZIL_HAVE_GSL
#include <gsl/gsl_multiroots.h>
#include <gsl/gsl_vector.h>
#endif

namespace {

using Clock = std::chrono::steady_clock;

double callback_seconds = 0.0;
long evaluations = 0;

void bvp(int n, const double* x, double* f) {
  const double h = 1.0 / (n + 1);
  for (int k = 0; k < n; ++k) {
    const double t = x[k] + (k + 1) * h + 1.0;
    f[k] = 2.0 * x[k] - (k > 0 ? x[k - 1] : 0.0) - (k < n - 1 ? x[k + 1] : 0.0) + t * t * t * h * h / 2.0;
  }
}

void timed_bvp(Integer n, const double x[], double f[], Integer*) {
  const auto t0 = Clock::now();
  bvp(n, x, f);
  callback_seconds += std::chrono::duration<double>(Clock::now() - t0).count();
  ++evaluations;
}

std::vector<double> start(int n) {
  std::vector<double> x(n);
  for (int j = 0; j < n; ++j) {
    const double t = (j + 1.0) / (n + 1);
    x[j] = t * (t - 1.0);
  }
  return x;
}

// Reports the time outside the callback per evaluation as the counter
// "outside_per_eval" (seconds), and the evaluations per solve.
template <class Solve>
void run(benchmark::State& state, Solve solve) {
  const int n = static_cast<int>(state.range(0));
  double outside = 0.0;
  long evals = 0;
  for (auto _ : state) {
    callback_seconds = 0.0;
    evaluations = 0;
    const auto t0 = Clock::now();
    solve(n);
    const double total = std::chrono::duration<double>(Clock::now() - t0).count();
    outside += total - callback_seconds;
    evals += evaluations;
  }
  state.counters["evals_per_solve"] = static_cast<double>(evals) / static_cast<double>(state.iterations());
  state.counters["outside_per_eval"] = outside / static_cast<double>(evals);
}

void BM_c05nbc(benchmark::State& state) {
  run(state, [](int n) {
    std::vector<double> x = start(n), f(n);
    ZilError fail{};
    c05nbc(n, x.data(), f.data(), timed_bvp, 1.4901161193847656e-08, &fail);
    if (fail.code != 0) std::abort();
  });
}
BENCHMARK(BM_c05nbc)->Arg(100)->Arg(500)->Unit(benchmark::kMillisecond);

#ifdef ZIL_HAVE_GSL
int gsl_bvp(const gsl_vector* x, void* params, gsl_vector* f) {
  const int n = *static_cast<int*>(params);
  timed_bvp(n, x->data, f->data, nullptr);
  return GSL_SUCCESS;
}

void BM_gsl_hybrids(benchmark::State& state) {
  run(state, [](int n) {
    std::vector<double> x0 = start(n);
    gsl_vector_view xv = gsl_vector_view_array(x0.data(), n);
    gsl_multiroot_function fn{gsl_bvp, static_cast<size_t>(n), &n};
    gsl_multiroot_fsolver* s = gsl_multiroot_fsolver_alloc(gsl_multiroot_fsolver_hybrids, n);
    gsl_multiroot_fsolver_set(s, &fn, &xv.vector);
    for (int it = 0; it < 1000; ++it) {
      if (gsl_multiroot_fsolver_iterate(s)) break;
      if (gsl_multiroot_test_residual(s->f, 1e-12) == GSL_SUCCESS) break;
    }
    gsl_multiroot_fsolver_free(s);
  });
}
BENCHMARK(BM_gsl_hybrids)->Arg(100)->Arg(500)->Unit(benchmark::kMillisecond);
#endif

}  // namespace

BENCHMARK_MAIN();
