// The public layer's side of failure reporting.
//
// Every public routine reads the same way:
//
//   zil::Reporter rep(fail, "c05adc");          // clears code and errnum
//   if (rep.real_lt("xtol", xtol, 0.0)) return; // first failed check wins
//   zil::Workspace<double> w(n);
//   if (!w) return rep.alloc_fail();
//   ... inner layer ...
//   rep.success();
//
// A Reporter formats texts into a bounded buffer on the stack (a message
// never overruns ZilError::message) and hands them to p01acc, which alone
// decides about boxes, the handler and the record.
#pragma once

#include <cstddef>
#include <cstdio>
#include <new>
#include <type_traits>

#include "zil_errors.h"
#include "zil_frame.h"
#include "zil_types.h"

namespace zil {

inline constexpr std::size_t kMessageSize = sizeof(ZilError::message);

// Arguments of a message format.  The table's integer conversions are %ld,
// so every integer is widened to long; every real travels as a double.
struct Num;
const char* num_text(const Num& n);

template <class T>
constexpr auto c_arg(const T& v) {
  if constexpr (std::is_same_v<T, Num>)
    return num_text(v);
  else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>)
    return static_cast<long>(v);
  else if constexpr (std::is_floating_point_v<T>)
    return static_cast<double>(v);
  else
    return v;
}

// printf into a fixed buffer; the result is always terminated and truncated
// rather than overrun.
template <std::size_t N, class... A>
void format_into(char (&buf)[N], const char* fmt, const A&... args) {
  if constexpr (sizeof...(A) == 0) {
    std::snprintf(buf, N, "%s", fmt);
  } else {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    std::snprintf(buf, N, fmt, c_arg(args)...);
#pragma GCC diagnostic pop
  }
}

// A small text for a bound that a format prints through %s, e.g. the limit
// 170.0 that a routine prints with "%6.1g".
struct Num {
  char text[32];
  explicit Num(long v) { format_into(text, "%ld", v); }
  explicit Num(int v) : Num(static_cast<long>(v)) {}
  explicit Num(double v, const char* fmt = "%g") { format_into(text, fmt, v); }
  operator const char*() const { return text; }
};
inline const char* num_text(const Num& n) { return n.text; }

class Reporter {
 public:
  enum class Clear { CodeAndErrnum, CodeOnly, All };

  Reporter(ZilError* fail, const char* routine, Clear clear = Clear::CodeAndErrnum)
      : fail_(fail), routine_(routine) {
    if (!fail_) return;
    fail_->code = 0;
    if (clear != Clear::CodeOnly) fail_->errnum = 0;
    if (clear == Clear::All) {
      fail_->argnum = 0;
      fail_->argval = 0;
    }
  }
  Reporter(const Reporter&) = delete;
  Reporter& operator=(const Reporter&) = delete;

  ZilError* record() const { return fail_; }
  const char* routine() const { return routine_; }
  bool failed() const { return failed_; }

  void set_errnum(Integer v) const {
    if (fail_) fail_->errnum = v;
  }

  // The table's format for code, filled with args.
  template <class... A>
  void raise(Integer code, const A&... args) {
    raise_text(code, zil_errlist[code], args...);
  }

  // A routine's own literal, which must begin with the code's name.
  template <class... A>
  void raise_text(Integer code, const char* fmt, const A&... args) {
    char text[kMessageSize];
    format_into(text, fmt, args...);
    deliver(text, code);
  }

  // The table's text as it stands, with no values (p01acc's null message).
  void raise_plain(Integer code) { deliver(nullptr, code); }

  void alloc_fail() { raise_plain(ZE_ALLOC_FAIL); }
  void internal_error() { raise_plain(ZE_INTERNAL_ERROR); }
  void bad_param(const char* name) { raise(ZE_BAD_PARAM, name); }

  // Success goes through the reporter too, so that the handler sees it.
  void success() {
    if (fail_) p01acc(nullptr, ZE_NOERROR, routine_, fail_);
  }

  // ---- Argument checks --------------------------------------------------
  // Each returns true when the check failed and has been reported.  A check
  // fails unless its constraint holds, so a NaN fails every real check.

  bool null_param(const void* p, const char* name) {
    if (p) return false;
    bad_param(name);
    return true;
  }

  // ZE_INT_ARG_xx: "name must not be <rel> bound".
  bool int_lt(const char* name, long v, long bound) { return int_rel(ZE_INT_ARG_LT, !(v < bound), name, v, bound); }
  bool int_le(const char* name, long v, long bound) { return int_rel(ZE_INT_ARG_LE, !(v <= bound), name, v, bound); }
  bool int_gt(const char* name, long v, long bound) { return int_rel(ZE_INT_ARG_GT, !(v > bound), name, v, bound); }
  bool int_ge(const char* name, long v, long bound) { return int_rel(ZE_INT_ARG_GE, !(v >= bound), name, v, bound); }
  bool int_eq(const char* name, long v, long bound) { return int_rel(ZE_INT_ARG_EQ, !(v == bound), name, v, bound); }
  // Forms whose bound is an expression or another argument's name.
  bool int_lt(const char* name, long v, long bound, const char* bound_text) { return int_rel(ZE_INT_ARG_LT, !(v < bound), name, v, bound_text); }
  bool int_le(const char* name, long v, long bound, const char* bound_text) { return int_rel(ZE_INT_ARG_LE, !(v <= bound), name, v, bound_text); }
  bool int_gt(const char* name, long v, long bound, const char* bound_text) { return int_rel(ZE_INT_ARG_GT, !(v > bound), name, v, bound_text); }
  bool int_ge(const char* name, long v, long bound, const char* bound_text) { return int_rel(ZE_INT_ARG_GE, !(v >= bound), name, v, bound_text); }

  // ZE_REAL_ARG_xx: the real forms fail unless the opposite relation holds.
  bool real_lt(const char* name, double v, double bound, const char* bound_text = nullptr) { return real_rel(ZE_REAL_ARG_LT, v >= bound, name, v, bound, bound_text); }
  bool real_le(const char* name, double v, double bound, const char* bound_text = nullptr) { return real_rel(ZE_REAL_ARG_LE, v > bound, name, v, bound, bound_text); }
  bool real_gt(const char* name, double v, double bound, const char* bound_text = nullptr) { return real_rel(ZE_REAL_ARG_GT, v <= bound, name, v, bound, bound_text); }
  bool real_ge(const char* name, double v, double bound, const char* bound_text = nullptr) { return real_rel(ZE_REAL_ARG_GE, v < bound, name, v, bound, bound_text); }

  // ZE_2_INT_ARG_xx: v1 against v2, e.g. int2_lt("pda", pda, "n", n)
  // fails when pda < n with "These parameters must satisfy pda >= n."
  bool int2_lt(const char* n1, long v1, const char* n2, long v2) { return int2(ZE_2_INT_ARG_LT, !(v1 < v2), n1, v1, n2, v2); }
  bool int2_le(const char* n1, long v1, const char* n2, long v2) { return int2(ZE_2_INT_ARG_LE, !(v1 <= v2), n1, v1, n2, v2); }
  bool int2_gt(const char* n1, long v1, const char* n2, long v2) { return int2(ZE_2_INT_ARG_GT, !(v1 > v2), n1, v1, n2, v2); }
  bool int2_ge(const char* n1, long v1, const char* n2, long v2) { return int2(ZE_2_INT_ARG_GE, !(v1 >= v2), n1, v1, n2, v2); }
  bool int2_eq(const char* n1, long v1, const char* n2, long v2) { return int2(ZE_2_INT_ARG_EQ, !(v1 == v2), n1, v1, n2, v2); }

  // ZE_INT / ZE_REAL style: "On entry, name = value.\n  Constraint: text."
  // with the constraint written out, e.g.
  //   if (rep.require(n >= 1, ZE_INT, "n", n, "n >= 1")) return;
  template <class... A>
  bool require(bool ok, Integer code, const A&... args) {
    if (ok) return false;
    raise(code, args...);
    return true;
  }

  // An enumeration outside its set.
  bool enum_in(bool ok, const char* name) {
    if (ok) return false;
    bad_param(name);
    return true;
  }

 private:
  void deliver(const char* text, Integer code) {
    failed_ = true;
    p01acc(text, code, routine_, fail_);
  }
  // The bound is put into text only on failure: the checks sit on the path
  // of every call, and a short call (a small transform) felt the formatting.
  bool int_rel(Integer code, bool ok, const char* name, long v, long bound) {
    if (ok) return false;
    return int_rel(code, ok, name, v, Num(bound).text);
  }
  bool int_rel(Integer code, bool ok, const char* name, long v, const char* bound) {
    if (ok) return false;
    raise(code, name, bound, name, v);
    return true;
  }
  bool real_rel(Integer code, bool ok, const char* name, double v, double bound, const char* bound_text) {
    if (ok) return false;
    Num b(bound);
    raise(code, name, bound_text ? bound_text : b.text, name, v);
    return true;
  }
  bool int2(Integer code, bool ok, const char* n1, long v1, const char* n2, long v2) {
    if (ok) return false;
    raise(code, n1, v1, n2, v2, n1, n2);
    return true;
  }

  ZilError* fail_;
  const char* routine_;
  bool failed_ = false;
};

// Runs the computing part of a public routine so that no C++ exception can
// cross the C boundary: a failed allocation inside a container becomes
// ZE_ALLOC_FAIL and anything else ZE_INTERNAL_ERROR.  Returns false when it
// reported such a failure.
template <class F>
bool shielded(Reporter& rep, F&& body) noexcept {
  try {
    body();
    return true;
  } catch (const std::bad_alloc&) {
    rep.alloc_fail();
  } catch (...) {
    rep.internal_error();
  }
  return false;
}

}  // namespace zil
