// The argument checks of the chapter, written once for both layers.
//
// Each routine's checks are a function template over a checker: the public
// checker reports through the Reporter with the table's codes, the inner one
// numbers the checks in order and formats the inner layer's message (e.g.
// " ** On entry, DF.lt.1.0: DF = %13.5e").  A check returns true when it
// failed, and the first failure ends the routine.
#pragma once

#include <cctype>

#include "frame/inner.hpp"
#include "frame/report.hpp"
#include "stats/stats.hpp"
#include "zil_enums.h"
#include "zil_env.h"

namespace zil::stats {

inline Tail tail_of(Integer tail) {
  switch (tail) {
    case Zil_LowerTail: return Tail::Lower;
    case Zil_UpperTail: return Tail::Upper;
    case Zil_TwoTailSignif: return Tail::Signif;
    case Zil_TwoTailConfid: return Tail::Confid;
    default: return Tail::Invalid;
  }
}

inline Tail tail_of(char tail) {
  switch (std::toupper(static_cast<unsigned char>(tail))) {
    case 'L': return Tail::Lower;
    case 'U': return Tail::Upper;
    case 'S': return Tail::Signif;
    case 'C': return Tail::Confid;
    default: return Tail::Invalid;
  }
}

inline bool one_sided(Tail t) { return t == Tail::Lower || t == Tail::Upper; }

class PublicCheck {
 public:
  explicit PublicCheck(Reporter& rep) : rep_(rep) {}
  bool tail(Tail t, bool two_sided_ok) {
    return rep_.enum_in(t != Tail::Invalid && (two_sided_ok || one_sided(t)), "tail");
  }
  bool real_lt(const char* n, double v, double bound, const char* text) { return rep_.real_lt(n, v, bound, text); }
  bool real_le(const char* n, double v, double bound, const char* text) { return rep_.real_le(n, v, bound, text); }
  bool real_gt(const char* n, double v, double bound, const char* text) { return rep_.real_gt(n, v, bound, text); }
  bool real_ge(const char* n, double v, double bound, const char* text) { return rep_.real_ge(n, v, bound, text); }
  bool int_lt(const char* n, long v, long bound) { return rep_.int_lt(n, v, bound); }
  bool int2_gt(const char* n1, long v1, const char* n2, long v2) { return rep_.int2_gt(n1, v1, n2, v2); }
  bool int_cons(bool ok, const char* n, long v, const char* constraint) {
    return rep_.require(ok, ZE_INT_ARG_CONS, n, v, constraint);
  }
  bool too_large(bool ok) {
    if (ok) return false;
    rep_.raise_plain(ZE_ARG_TOO_LARGE);
    return true;
  }
  bool variance(double v, const char* expr) { return rep_.require(v <= 1e6, ZE_VARIANCE_TOO_LARGE, expr, v); }

 private:
  Reporter& rep_;
};

class InnerCheck {
 public:
  InnerCheck(char tail_char = ' ') : tail_char_(tail_char) {}
  Integer number() const { return number_; }
  const char* text() const { return text_; }

  bool tail(Tail t, bool two_sided_ok) {
    return fail(t == Tail::Invalid || (!two_sided_ok && !one_sided(t)),
                " ** On entry, TAIL is an invalid character : TAIL = %1.1s", &tail_char_);
  }
  bool real_lt(const char* n, double v, double b, const char* text) { return real(!(v >= b), n, "lt", text, v); }
  bool real_le(const char* n, double v, double b, const char* text) { return real(!(v > b), n, "le", text, v); }
  bool real_gt(const char* n, double v, double b, const char* text) { return real(!(v <= b), n, "gt", text, v); }
  bool real_ge(const char* n, double v, double b, const char* text) { return real(!(v < b), n, "ge", text, v); }
  bool int_lt(const char* n, long v, long bound) {
    Upper u(n);
    return fail(v < bound, " ** On entry, %s.lt.%ld: %s = %ld", u.s, bound, u.s, v);
  }
  bool int2_gt(const char* n1, long v1, const char* n2, long v2) {
    Upper u1(n1), u2(n2);
    return fail(v1 > v2, " ** On entry, %s.gt.%s: %s = %ld, %s = %ld", u1.s, u2.s, u1.s, v1, u2.s, v2);
  }
  bool int_cons(bool ok, const char* n, long v, const char* constraint) {
    Upper u(n);
    return fail(!ok, " ** On entry, %s = %ld, but the constraint is %s", u.s, v, constraint);
  }
  bool too_large(bool ok) { return fail(!ok, " ** On entry, N is too large for an accurate result"); }
  bool variance(double v, const char* expr) {
    return fail(!(v <= 1e6), " ** On entry, the variance %s = %13.5e exceeds 1.0e6", expr, v);
  }

  // A numerical failure after the checks: numbered from the last check on.
  template <class... A>
  void numerical(Integer offset, const char* fmt, const A&... args) {
    number_ += offset;
    format_into(text_, fmt, args...);
  }

  // The value to leave in ifail, after whatever report ifail asks for.
  Integer exit(Integer ifail, const char* srname) const {
    return inner_exit_f(ifail, failed_ ? number_ : 0, srname, text_);
  }
  bool failed() const { return failed_; }
  void mark_failed() { failed_ = true; }

 private:
  struct Upper {
    char s[16];
    explicit Upper(const char* n) {
      unsigned i = 0;
      for (; n[i] && i + 1 < sizeof s; ++i) s[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(n[i])));
      s[i] = '\0';
    }
  };
  bool real(bool bad, const char* n, const char* rel, const char* bound, double v) {
    Upper u(n);
    return fail(bad, " ** On entry, %s.%s.%s: %s = %13.5e", u.s, rel, bound, u.s, v);
  }
  template <class... A>
  bool fail(bool bad, const char* fmt, const A&... args) {
    ++number_;
    if (!bad) return false;
    failed_ = true;
    format_into(text_, fmt, args...);
    return true;
  }

  char tail_char_;
  Integer number_ = 0;
  bool failed_ = false;
  char text_[kMessageSize] = {};
};

// ---- The checks of each routine, in argument order ------------------------

template <class C>
bool check_prob_t(C& c, Tail tail, double df) {
  return c.tail(tail, true) || c.real_lt("df", df, 1.0, "1.0");
}
template <class C>
bool check_prob_chi_sq(C& c, Tail tail, double x, double df) {
  return c.real_lt("x", x, 0.0, "0.0") || c.real_le("df", df, 0.0, "0.0") || c.tail(tail, false);
}
template <class C>
bool check_prob_f(C& c, Tail tail, double f, double df1, double df2) {
  return c.tail(tail, false) || c.real_lt("f", f, 0.0, "0.0") || c.real_le("df1", df1, 0.0, "0.0") ||
         c.real_le("df2", df2, 0.0, "0.0");
}
template <class C>
bool check_shape(C& c, const char* name, double v) {
  return c.real_le(name, v, 0.0, "0.0") || c.real_gt(name, v, 1e6, "1.0e6");
}
template <class C>
bool check_prob_beta(C& c, double x, double a, double b) {
  return c.real_lt("x", x, 0.0, "0.0") || c.real_gt("x", x, 1.0, "1.0") || check_shape(c, "a", a) ||
         check_shape(c, "b", b);
}
template <class C>
bool check_prob_gamma(C& c, Tail tail, double g, double a, double b) {
  return c.tail(tail, false) || c.real_lt("g", g, 0.0, "0.0") || c.real_le("a", a, 0.0, "0.0") ||
         c.real_le("b", b, 0.0, "0.0");
}
template <class C>
bool check_open_p(C& c, double p) {
  return c.real_le("p", p, 0.0, "0.0") || c.real_ge("p", p, 1.0, "1.0");
}
template <class C>
bool check_half_open_p(C& c, double p) {
  return c.real_lt("p", p, 0.0, "0.0") || c.real_ge("p", p, 1.0, "1.0");
}
template <class C>
bool check_deviates_t(C& c, Tail tail, double p, double df) {
  return c.tail(tail, true) || check_open_p(c, p) || c.real_lt("df", df, 1.0, "1.0");
}
template <class C>
bool check_deviates_chi_sq(C& c, double p, double df) {
  return check_half_open_p(c, p) || c.real_le("df", df, 0.0, "0.0");
}
template <class C>
bool check_deviates_f(C& c, double p, double df1, double df2) {
  return check_half_open_p(c, p) || c.real_le("df1", df1, 0.0, "0.0") || c.real_le("df2", df2, 0.0, "0.0");
}
template <class C>
bool check_deviates_beta(C& c, double p, double a, double b) {
  return c.real_lt("p", p, 0.0, "0.0") || c.real_gt("p", p, 1.0, "1.0") || check_shape(c, "a", a) ||
         check_shape(c, "b", b);
}
template <class C>
bool check_deviates_gamma(C& c, double p, double a, double b) {
  return check_half_open_p(c, p) || c.real_le("a", a, 0.0, "0.0") || c.real_le("b", b, 0.0, "0.0");
}
template <class C>
bool check_binomial(C& c, Integer n, double p, Integer k) {
  const double dn = n;
  return c.int_lt("n", n, 0) || check_open_p(c, p) || c.int_lt("k", k, 0) || c.int2_gt("k", k, "n", n) ||
         c.too_large(dn * x02ajc() <= 1.0) || c.variance(dn * p * (1.0 - p), "n*p*(1.0-p)");
}
template <class C>
bool check_poisson(C& c, double rlamda, Integer k) {
  return c.real_le("rlamda", rlamda, 0.0, "0.0") || c.int_lt("k", k, 0) || c.real_gt("rlamda", rlamda, 1e6, "1.0e6");
}
template <class C>
bool check_hypergeom(C& c, Integer n, Integer l, Integer m, Integer k) {
  if (c.int_lt("n", n, 0) || c.int_lt("l", l, 0) || c.int2_gt("l", l, "n", n) || c.int_lt("m", m, 0) ||
      c.int2_gt("m", m, "n", n) || c.int_lt("k", k, 0) || c.int2_gt("k", k, "l", l) || c.int2_gt("k", k, "m", m) ||
      c.int_cons(static_cast<long>(k) >= static_cast<long>(l) + m - n, "k", k, "k >= l + m - n"))
    return true;
  const double dn = n, dl = l, dm = m;
  const double var = n > 1 ? dl * dm * (dn - dl) * (dn - dm) / (dn * dn * (dn - 1.0)) : 0.0;
  return c.variance(var, "(l*m)(n-l)*(n-m)/n*n*(n-1)");
}

}  // namespace zil::stats
