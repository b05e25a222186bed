// The inner layer's side of failure reporting: the ifail exits, the
// edit-descriptor formatter of the by-reference routines' messages, and the
// inner error record errbuf with its public-side reader.
//
// A by-value inner routine (name ending in _f) ends a failure with
//
//   char text[zil::kMessageSize];
//   zil::format_into(text, "** On entry, n < 1: n = %ld", n);
//   ifail = zil::inner_exit_f(ifail, 1, "m01caf_f", text);
//
// and a by-reference one (name ending in F) with
//
//   *ifail = zil::inner_exit_r(*ifail, 2, "C06EAF",
//                              zil::edit_format("(' ** At least one of the prime factors of N is greater than 19')"));
//
// Both return the value to leave in ifail: 0 on success, else the failure
// number, after whatever printing (or ending of the process) ifail asks for.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "frame/report.hpp"
#include "zil_types.h"

namespace zil {

// One value for an edit-descriptor format: an integer, a real or a text.
class EditArg {
 public:
  enum class Kind { Int, Real, Text };
  EditArg(int v) : kind_(Kind::Int), i_(v) {}
  EditArg(long v) : kind_(Kind::Int), i_(v) {}
  EditArg(double v) : kind_(Kind::Real), r_(v) {}
  EditArg(const char* s) : kind_(Kind::Text), s_(s ? s : "") {}
  Kind kind() const { return kind_; }
  long integer() const { return i_; }
  double real() const { return r_; }
  const char* text() const { return s_; }

 private:
  Kind kind_;
  long i_ = 0;
  double r_ = 0.0;
  const char* s_ = "";
};

// Formats values with a format in edit-descriptor notation ('text', A, Aw,
// Iw, Ew.d, Fw.d, Gw.d, kP, nX, /, and repetition n(...), nIw; also Iw.m,
// Ew.dEe, nH and :), giving one line per record.  An A field wider than its
// text is filled on the right; NaN and infinities print as NaN and INF.
// Each line is cut to `width` characters and loses its trailing blanks, but
// keeps at least one character.
std::vector<std::string> edit_format(const char* format, std::span<const EditArg> values,
                                     std::size_t width = 80);
template <class... A>
  requires(std::is_constructible_v<EditArg, A> && ...)
std::vector<std::string> edit_format(const char* format, A... values) {
  const EditArg args[] = {EditArg(values)..., EditArg(0)};
  return edit_format(format, std::span<const EditArg>(args, sizeof...(A)));
}

// ifail exits.  inner_exit_f reports through p01abf_f (the by-value form,
// which never ends the process); inner_exit_r through p01abf_r (which ends
// the process on a hard failure).
Integer inner_exit_f(Integer ifail, Integer ierror, const char* srname, const char* text);
Integer inner_exit_r(Integer ifail, Integer ierror, const char* srname,
                     const std::vector<std::string>& lines);

// ---- errbuf ------------------------------------------------------------
// A 200-position text through which a by-reference routine hands a failure
// up: "NAME failnum msgid count values...", position 199 always zero.

inline constexpr std::size_t kErrbufSize = 200;

// On entry to a routine: "NONE" padded with blanks.
void errbuf_reset(char* errbuf);

// Writes the failure line: name, failnum, msgid and the count of values as
// five-wide integers, then the values by the given descriptor, e.g.
// errbuf_write(errbuf, "S14ACF", 1, 99999, "(A,3(1X,I5),1X,1P,E13.5)", {x}).
// count, when given, is the count written in place of values.size(), for a
// record whose descriptor takes a text that only separates two fields.
void errbuf_write(char* errbuf, const char* srname, Integer failnum, Integer msgid,
                  const char* descriptor, std::span<const EditArg> values = {}, int count = -1);

// One entry of a public routine's map from message id to its own literal,
// which has a %s for each value (the values stand as the inner descriptor
// printed them).
struct ErrbufMessage {
  Integer msgid;
  Integer code;
  int values;
  const char* literal;
};

// After an inner call that left ifail non-zero: errnum takes ifail, the
// record is scanned, and the matching message is reported; a record that
// does not scan, or an unknown id, is ZE_INTERNAL_ERROR.
void report_errbuf(Reporter& rep, const char* errbuf, Integer ifail,
                   std::span<const ErrbufMessage> messages);

}  // namespace zil
