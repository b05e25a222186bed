// Printing through the output record ZilOutput, used by the chapters whose
// solvers print: a failed write never ends the process here, it sets
// file_error, and the calling routine reports that code.
#include <cstdio>
#include <cstring>

#include "frame/detail/messages.hpp"
#include "frame/io.hpp"
#include "zil_errors.h"
#include "zil_frame.h"

namespace zil {
namespace {

// The stream for one write under the record's rule, or null (with
// file_error set, or already set) when nothing may be written.
std::FILE* open_output(ZilOutput* out) {
  if (out->file_error != 0) return nullptr;
  if (!out->resolved) {
    out->resolved = TRUE;
    if (std::strcmp(out->outfile, "stdout") == 0) {
      ensure_console();
      out->to_stdout = TRUE;
    } else if (std::strcmp(out->outfile, "stderr") == 0) {
      out->to_stderr = TRUE;
    } else if (std::strcmp(out->outfile, "stdin") == 0) {
      out->file_error = ZE_NOT_APPEND_FILE;
      return nullptr;
    }
  }
  if (out->to_stdout) return stdout;
  if (out->to_stderr) return stderr;
  // A file is opened for appending at every write, so that what has been
  // printed is on disk whatever the program does next.
  std::FILE* f = std::fopen(out->outfile, "a");
  if (!f) out->file_error = ZE_NOT_APPEND_FILE;
  return f;
}

void close_output(ZilOutput* out, std::FILE* f) {
  if (f == stdout || f == stderr) {
    std::fflush(f);
    return;
  }
  // A stream in error is left open: the write error is what gets reported.
  if (std::ferror(f)) {
    out->file_error = ZE_WRITE_ERROR;
    return;
  }
  if (std::fclose(f) != 0) out->file_error = ZE_NOT_CLOSE_FILE;
}

void print_under_rule(ZilOutput* out, const char* text, const char* end) {
  if (!out) return;
  std::FILE* f = open_output(out);
  if (!f) return;
  std::fprintf(f, "%s%s", text ? text : "", end);
  close_output(out, f);
}

}  // namespace

std::span<const char* const> message_table(const char* chapter) {
  if (!chapter) return {};
  static constexpr struct {
    const char* name;
    const std::span<const char* const>* table;
  } kChapters[] = {{"E04", &messages::e04}, {"G13", &messages::g13}, {"G02", &messages::g02},
                   {"G03", &messages::g03}, {"H02", &messages::h02}};
  for (const auto& c : kChapters)
    if (std::strcmp(chapter, c.name) == 0) return *c.table;
  return {};
}

}  // namespace zil

extern "C" void x04print_line(ZilOutput* output, const char* text) { zil::print_under_rule(output, text, "\n"); }

extern "C" void x04print(ZilOutput* output, const char* text) { zil::print_under_rule(output, text, ""); }

extern "C" void x04print_msg(ZilOutput* output, const char* text, Integer number, Zil_Comm* comm) {
  if (!output) return;
  if (!text) {
    // An unknown chapter, or a number beyond its table, is the caller's
    // error; it prints nothing rather than read outside the table.
    std::span<const char* const> table = zil::message_table(output->chapter);
    if (number < 0 || static_cast<std::size_t>(number) >= table.size()) return;
    text = table[static_cast<std::size_t>(number)];
  }
  if ((!comm || comm->msg_print) && output->file_error == 0) {
    // The head runs to the first colon; the colon and the one character
    // behind it are not printed.
    const char* body = std::strchr(text, ':');
    if (!body) body = text;
    else body += body[1] ? 2 : 1;
    zil::print_under_rule(output, body, "");
  }
  if (comm && comm->msg_fun && output->file_error == 0) comm->msg_fun(text, number, comm->p);
}
