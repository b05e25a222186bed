// No transform touches the heap.  Every allocation of the process is
// counted while a transform runs: in the plain build by interposing malloc,
// calloc and realloc over glibc's own entry points (x04bbc and operator new
// both end there); in the sanitizer build, whose allocator replaces
// glibc's, through the sanitizer's allocation hook.  A first test proves
// the counter sees an allocation made inside the library.
#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <vector>

#include "fft_test_util.hpp"

namespace {
std::atomic<bool> g_counting{false};
std::atomic<long> g_allocations{0};
void note_allocation() {
  if (g_counting.load(std::memory_order_relaxed)) g_allocations.fetch_add(1);
}
}  // namespace

#if defined(__SANITIZE_ADDRESS__)
// Declared here as the sanitizer runtime exports it; its header is not
// installed with every compiler.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, std::size_t),
                                                         void (*)(const volatile void*));
namespace {
void on_malloc(const volatile void*, std::size_t) { note_allocation(); }
void on_free(const volatile void*) {}
const int g_hooked = __sanitizer_install_malloc_and_free_hooks(on_malloc, on_free);
}  // namespace
#else
extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* malloc(std::size_t size) {
  note_allocation();
  return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
  note_allocation();
  return __libc_calloc(count, size);
}
void* realloc(void* p, std::size_t size) {
  note_allocation();
  return __libc_realloc(p, size);
}
}
#endif

namespace {

template <class F>
long allocations_during(F&& f) {
  g_allocations = 0;
  g_counting = true;
  f();
  g_counting = false;
  return g_allocations.load();
}

TEST(FftNoHeap, CounterSeesTheLibrarysAllocations) {
  Pointer p = nullptr;
  EXPECT_GE(allocations_during([&] { p = x04bbc(64); }), 1);
  x04bdc(&p);
}

TEST(FftNoHeap, TransformsAllocateNothing) {
  for (Integer n : {2, 19, 64, 720, 2310, 4096, 30030, 11552}) {
    auto x = fftt::data(n, 1), y = fftt::data(n, 2);
    std::vector<double> trig(2 * n);
    ZilError fail{};
    const long count = allocations_during([&] {
      c06eac(n, x.data(), &fail);
      c06gbc(n, x.data(), &fail);
      c06ebc(n, x.data(), &fail);
      c06ecc(n, x.data(), y.data(), &fail);
      c06gcc(n, y.data(), &fail);
      c06ekc(Zil_Correlation, n, x.data(), y.data(), &fail);
      c06gzc(n, trig.data(), &fail);
      // A refused call reports through the record, still without the heap.
      c06eac(23 * n, x.data(), &fail);
    });
    EXPECT_EQ(count, 0) << n;
  }
}

}  // namespace
