// Workspace of a public routine, taken from x04bbc and given back through
// x04bdc on every path out of the routine.
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <type_traits>

#include "zil_frame.h"

namespace zil {

template <class T>
class Workspace {
  static_assert(std::is_trivially_copyable_v<T>, "workspace holds plain data only");

 public:
  // A size of 0 still allocates one element, so that a routine never has to
  // tell an empty problem's null block from a failed allocation.
  explicit Workspace(std::size_t n) {
    if (n == 0) n = 1;
    if (n <= std::numeric_limits<std::size_t>::max() / sizeof(T))
      p_ = static_cast<T*>(x04bbc(n * sizeof(T)));
  }
  ~Workspace() { x04bdc(reinterpret_cast<Pointer*>(&p_)); }
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  explicit operator bool() const { return p_ != nullptr; }
  T* get() const { return p_; }
  T& operator[](std::size_t i) const { return p_[i]; }

  // Hands the block to the caller, who releases it with x04bdc.
  T* release() {
    T* p = p_;
    p_ = nullptr;
    return p;
  }

 private:
  T* p_ = nullptr;
};

// Workspace that a routine keeps to itself and that is usually small: up to N
// elements live in the holder (on the routine's stack), so that a short run
// makes no call to the allocator; larger blocks come from a Workspace.
template <class T, std::size_t N>
class LocalWorkspace {
 public:
  explicit LocalWorkspace(std::size_t n) {
    if (n > N) heap_.emplace(n);
  }
  LocalWorkspace(const LocalWorkspace&) = delete;
  LocalWorkspace& operator=(const LocalWorkspace&) = delete;

  explicit operator bool() const { return !heap_ || static_cast<bool>(*heap_); }
  T* get() { return heap_ ? heap_->get() : local_; }

 private:
  T local_[N];
  std::optional<Workspace<T>> heap_;
};

}  // namespace zil
