// Text output by name: the console, the by-value writers and the helpers
// over plain streams.
//
// The by-value writers end the process when a write fails (a box, then
// exit status 1): their callers have no failure argument to report through.
// Each line opens and closes its file, so that a program that crashes later
// leaves its results on disk.
#include <algorithm>
#include <atomic>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>

#include "frame/io.hpp"
#include "frame/platform.hpp"
#include "frame/report.hpp"
#include "zil_frame.h"

extern "C" {
ZIL_API char* global_resfile = nullptr;
ZIL_API char* global_datafile = nullptr;
}

namespace zil {
namespace {

std::once_flag g_console_once;
std::atomic<bool> g_console{false};

// A box with an empty title and no icon, then the end of the process.
template <class... A>
[[noreturn]] void box_and_exit(const char* format, A... args) {
  char text[1024];
  format_into(text, format, args...);
  message_box(text, "", kBoxPlain);
  std::exit(1);
}

template <class F>
void convert_case(char* text, F convert) {
  if (!text) return;
  for (; *text; ++text) *text = static_cast<char>(convert(static_cast<unsigned char>(*text)));
}

}  // namespace

void ensure_console() {
  // The standard output already is the console, so the step only records
  // that it has been taken; call_once makes the first use race-free.
  std::call_once(g_console_once, [] { g_console.store(true); });
}

bool console_ready() { return g_console.load(); }

}  // namespace zil

extern "C" void x04bcz(char* text) {
  zil::convert_case(text, [](unsigned char c) { return std::tolower(c); });
}

extern "C" void x04bupper(char* text) {
  zil::convert_case(text, [](unsigned char c) { return std::toupper(c); });
}

extern "C" void x04bay(const char* path, const char* text) {
  if (!text) text = "";
  if (!path) {
    zil::ensure_console();
    if (std::fprintf(stdout, "%s", text) < 0) {
      std::fputs("Unable To Write to the stdout\n", stderr);
      std::exit(1);
    }
    std::fflush(stdout);
    return;
  }
  std::FILE* f = std::fopen(path, "a");
  if (!f) zil::box_and_exit("Unable To Open Output File: %s\n", path);
  if (std::fprintf(f, "%s", text) < 0) zil::box_and_exit("Unable To Write to the Output File: %s\n", path);
  if (std::fclose(f) != 0) zil::box_and_exit("Unable To Close the Output File: %s\n", path);
}

extern "C" FILE* x04bax(const char* path) {
  if (!path) zil::box_and_exit("Attempting to read from stdin in MS Windows environment");
  std::FILE* f = std::fopen(path, "r");
  if (!f) zil::box_and_exit("Unable To Open Input File: %s", path);
  return f;
}

extern "C" Integer x04bau(FILE* stream) {
  if (stream == stdin) {
    zil::message_box("stdin in MS Windows environment\n", "", zil::kBoxPlain);
    return 1;
  }
  if (!stream || std::fclose(stream) != 0) {
    zil::message_box("Unable to close file pointer\n", "", zil::kBoxPlain);
    return 1;
  }
  return 0;
}

extern "C" void x04bah(FILE* stream, const char* text, Integer length, Integer* error) {
  if (error) *error = 0;
  std::size_t n = zil::trimmed_length(text, length > 0 ? static_cast<std::size_t>(length) : 0);
  if (!stream || std::fprintf(stream, "%.*s\n", static_cast<int>(n), text ? text : "") < 0) {
    if (error) *error = 1;
    return;
  }
  if (stream == stdout || stream == stderr) std::fflush(stream);
}

extern "C" void x04text_f(Integer channel, const char* text, Integer length) {
  if (channel < 0) return;
  // The line buffer is per thread: the by-value writers may be called from
  // several threads at once.
  thread_local char line[512];
  std::size_t n = zil::trimmed_length(text, length > 0 ? static_cast<std::size_t>(length) : 0);
  // A longer text is cut so that its line feed and terminator still fit.
  n = std::min(n, sizeof line - 2);
  std::snprintf(line, sizeof line, "%.*s\n", static_cast<int>(n), text ? text : "");
  x04bay(global_resfile, line);
}

extern "C" void x04debug(const char* text) {
  std::FILE* f = std::fopen("ZilDebug_file", "a");
  if (!f) return;
  // The text is a format without arguments: "%%" stands for one percent
  // sign, and a conversion, having nothing to convert, stands as written.
  for (const char* p = text ? text : ""; *p; ++p) {
    if (p[0] == '%' && p[1] == '%') ++p;
    std::fputc(*p, f);
  }
  std::fclose(f);
}
