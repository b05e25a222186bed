// Single-sequence transforms against GSL's mixed-radix transforms
// (wavetable and workspace made outside the timing) and FFTW (plan made
// with FFTW_ESTIMATE outside the timing), at the lengths of the chapter's
// speed note.  Each row reports, besides the time, the time per
// n*log2(n) ("per_nlogn"), which should stay flat as n grows.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "zil.h"

#ifdef ZIL_HAVE_GSL
#include <gsl/gsl_errno.h>
#include <gsl/gsl_fft_complex.h>
#include <gsl/gsl_fft_real.h>
#endif
#ifdef ZIL_HAVE_FFTW
#include <fftw3.h>
#endif

namespace {

const long kLengths[] = {64, 1024, 4096, 65536, 1 << 20, 720, 1000, 2310, 30030};

std::vector<double> signal(long n, unsigned seed) {
  std::vector<double> v(n);
  unsigned s = seed;
  for (auto& e : v) {
    s = s * 1664525u + 1013904223u;
    e = static_cast<double>(s >> 8) / 16777216.0 - 0.5;
  }
  return v;
}

void per_nlogn(benchmark::State& state, long n) {
  state.counters["per_nlogn"] = benchmark::Counter(
      n * std::log2(static_cast<double>(n)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Every timed call starts from the same data, copied in inside the timing
// (the "Copy" rows time that copy alone): the peers' unscaled transforms
// would overflow if repeated, and a real transform repeated on its own
// Hermitian output loses half its energy each time and soon runs on
// subnormal numbers.

void CopyComplex(benchmark::State& state) {
  const long n = state.range(0);
  const auto x0 = signal(n, 1), y0 = signal(n, 2);
  auto x = x0, y = y0;
  for (auto _ : state) {
    std::memcpy(x.data(), x0.data(), n * sizeof(double));
    std::memcpy(y.data(), y0.data(), n * sizeof(double));
    benchmark::DoNotOptimize(x.data());
    benchmark::DoNotOptimize(y.data());
  }
  per_nlogn(state, n);
}

void CopyReal(benchmark::State& state) {
  const long n = state.range(0);
  const auto x0 = signal(n, 1);
  auto x = x0;
  for (auto _ : state) {
    std::memcpy(x.data(), x0.data(), n * sizeof(double));
    benchmark::DoNotOptimize(x.data());
  }
  per_nlogn(state, n);
}

void ZilComplex(benchmark::State& state) {
  const long n = state.range(0);
  const auto x0 = signal(n, 1), y0 = signal(n, 2);
  auto x = x0, y = y0;
  ZilError fail{};
  for (auto _ : state) {
    std::memcpy(x.data(), x0.data(), n * sizeof(double));
    std::memcpy(y.data(), y0.data(), n * sizeof(double));
    c06ecc(static_cast<Integer>(n), x.data(), y.data(), &fail);
    benchmark::DoNotOptimize(x.data());
  }
  per_nlogn(state, n);
}

void ZilReal(benchmark::State& state) {
  const long n = state.range(0);
  const auto x0 = signal(n, 1);
  auto x = x0;
  ZilError fail{};
  for (auto _ : state) {
    std::memcpy(x.data(), x0.data(), n * sizeof(double));
    c06eac(static_cast<Integer>(n), x.data(), &fail);
    benchmark::DoNotOptimize(x.data());
  }
  per_nlogn(state, n);
}

#ifdef ZIL_HAVE_GSL
void GslComplex(benchmark::State& state) {
  const long n = state.range(0);
  gsl_set_error_handler_off();
  const auto z0 = signal(2 * n, 1);
  auto z = z0;
  gsl_fft_complex_wavetable* wt = gsl_fft_complex_wavetable_alloc(n);
  gsl_fft_complex_workspace* ws = gsl_fft_complex_workspace_alloc(n);
  for (auto _ : state) {
    std::memcpy(z.data(), z0.data(), 2 * n * sizeof(double));
    gsl_fft_complex_forward(z.data(), 1, n, wt, ws);
    benchmark::DoNotOptimize(z.data());
  }
  gsl_fft_complex_workspace_free(ws);
  gsl_fft_complex_wavetable_free(wt);
  per_nlogn(state, n);
}

void GslReal(benchmark::State& state) {
  const long n = state.range(0);
  gsl_set_error_handler_off();
  const auto x0 = signal(n, 1);
  auto x = x0;
  gsl_fft_real_wavetable* wt = gsl_fft_real_wavetable_alloc(n);
  gsl_fft_real_workspace* ws = gsl_fft_real_workspace_alloc(n);
  for (auto _ : state) {
    std::memcpy(x.data(), x0.data(), n * sizeof(double));
    gsl_fft_real_transform(x.data(), 1, n, wt, ws);
    benchmark::DoNotOptimize(x.data());
  }
  gsl_fft_real_workspace_free(ws);
  gsl_fft_real_wavetable_free(wt);
  per_nlogn(state, n);
}
#endif

#ifdef ZIL_HAVE_FFTW
void FftwComplex(benchmark::State& state) {
  const long n = state.range(0);
  fftw_complex* z = fftw_alloc_complex(n);
  const auto z0 = signal(2 * n, 1);
  fftw_plan plan = fftw_plan_dft_1d(static_cast<int>(n), z, z, FFTW_FORWARD, FFTW_ESTIMATE);
  for (auto _ : state) {
    std::memcpy(z, z0.data(), 2 * n * sizeof(double));
    fftw_execute(plan);
    benchmark::DoNotOptimize(z);
  }
  fftw_destroy_plan(plan);
  fftw_free(z);
  per_nlogn(state, n);
}

void FftwReal(benchmark::State& state) {
  const long n = state.range(0);
  double* x = fftw_alloc_real(n);
  fftw_complex* z = fftw_alloc_complex(n / 2 + 1);
  const auto x0 = signal(n, 1);
  fftw_plan plan = fftw_plan_dft_r2c_1d(static_cast<int>(n), x, z, FFTW_ESTIMATE);
  for (auto _ : state) {
    std::memcpy(x, x0.data(), n * sizeof(double));
    fftw_execute(plan);
    benchmark::DoNotOptimize(z);
  }
  fftw_destroy_plan(plan);
  fftw_free(z);
  fftw_free(x);
  per_nlogn(state, n);
}
#endif

void lengths(benchmark::internal::Benchmark* b) {
  for (long n : kLengths) b->Arg(n);
}

BENCHMARK(CopyComplex)->Apply(lengths);
BENCHMARK(CopyReal)->Apply(lengths);
BENCHMARK(ZilComplex)->Apply(lengths);
BENCHMARK(ZilReal)->Apply(lengths);
#ifdef ZIL_HAVE_GSL
BENCHMARK(GslComplex)->Apply(lengths);
BENCHMARK(GslReal)->Apply(lengths);
#endif
#ifdef ZIL_HAVE_FFTW
BENCHMARK(FftwComplex)->Apply(lengths);
BENCHMARK(FftwReal)->Apply(lengths);
#endif

}  // namespace

BENCHMARK_MAIN();
