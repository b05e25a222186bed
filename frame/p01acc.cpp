// The public reporter and the kernels' re-reporters.
#include <cstdio>
#include <cstring>

#include "frame/export.hpp"
#include "frame/platform.hpp"
#include "frame/report.hpp"
#include "zil_errors.h"
#include "zil_frame.h"

namespace {

// Error or warning is read from the text, not the code: the letter after the
// first Z among the first five characters, or else the sixth character.
bool is_error_text(const char* message) {
  std::size_t len = std::strlen(message);
  for (std::size_t i = 0; i < 5 && i < len; ++i)
    if (message[i] == 'Z') return message[i + 1] == 'E';
  return len > 5 && message[5] == 'E';
}

}  // namespace

extern "C" void p01acc(const char* message, Integer code, const char* routine, ZilError* fail) {
  // A code outside the table has no text of its own; reading past the
  // table for it would be worse than reporting an empty one.
  if (!message) message = (code >= 0 && code < ZIL_ERRLIST_SIZE) ? zil_errlist[code] : "";
  if (!routine) routine = "";

  if (code != 0 && (!fail || fail->print)) {
    char box[564];
    if (is_error_text(message)) {
      zil::format_into(box, "Error Detected by ZIL Routine %s: %s", routine, message);
      zil::message_box(box, "ZIL_RUNTIME_ERROR", zil::kBoxStop);
    } else {
      zil::format_into(box, "Warning From ZIL Routine %s: %s", routine, message);
      zil::message_box(box, "ZIL_RUNTIME_WARNING", zil::kBoxExclamation);
    }
  }

  if (fail) {
    fail->code = code;
    // The handler sees the new code but the record's previous text.
    if (fail->handler) fail->handler(message, code, routine);
    std::size_t n = std::strlen(message);
    if (n >= zil::kMessageSize) n = zil::kMessageSize - 1;
    std::memmove(fail->message, message, n);
    fail->message[n] = '\0';
    return;
  }
  // Without a record the caller is told that the routine gave up, even for
  // a warning; the process goes on all the same.
  if (code != 0)
    zil::message_box("...ZIL Function Terminated\n", "ZIL Function Terminated", zil::kBoxStop);
}

extern "C" void f06aaz(const char* routine, Integer number) {
  ZilError own{};
  own.print = TRUE;
  char text[zil::kMessageSize];
  zil::format_into(text, zil_errlist[ZE_F06_BAD_PARAM], number);
  p01acc(text, ZE_F06_BAD_PARAM, routine, &own);
}

extern "C" void f06aaz_d(const char* routine, ZilError* fail) {
  if (!fail) return;
  fail->print = TRUE;
  if (fail->code == ZE_ALLOC_FAIL) {
    p01acc(nullptr, ZE_ALLOC_FAIL, routine, fail);
    return;
  }
  // The complement of the f16 position (-k) is k-1: the same argument's
  // position in the f06 form, which has no storage-order argument.
  char text[zil::kMessageSize];
  zil::format_into(text, zil_errlist[ZE_F06_BAD_PARAM], ~fail->argnum);
  p01acc(text, ZE_F06_BAD_PARAM, routine, fail);
}
