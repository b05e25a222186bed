// The inner layer's reporters: the ifail exits of the by-reference,
// by-value and kernel forms, the parameter reports, and the illegal
// parameter report of the kernels.
//
// ifail = 10*a + b: b = 1 is soft, any other units digit hard; a = 0 is
// silent; -1 is soft and noisy, 0 hard and noisy, -13 prints the message
// alone.  A hard failure ends the process only in the by-reference form.
#include <algorithm>
#include <cfenv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "frame/inner.hpp"
#include "frame/io.hpp"
#include "zil_frame.h"

namespace zil {
namespace {

constexpr const char* kSoftLine = " ** ZIL soft failure - control returned";
constexpr const char* kHardLine = " ** ZIL hard failure - execution terminated";

enum class Exit { Silent, MessageOnly, Soft, Hard };

Exit exit_kind(Integer ifail) {
  if (ifail != -1 && ifail != 0 && ifail != -13) {
    // Every other negative value, and every value whose tens digit is 0
    // (1 to 9, 100, ...), is silent whatever its units digit.
    if (ifail < 0 || (ifail / 10) % 10 == 0) return Exit::Silent;
  }
  if (ifail == -13) return Exit::MessageOnly;
  return std::abs(ifail % 10) == 1 ? Exit::Soft : Exit::Hard;
}

// The steps shared by the three forms.  `line` writes one fixed line to the
// form's stream, `message` the routine's lines and `closing` the
// ABNORMAL EXIT line; `hard` is what the form does after the hard line.
template <class Message, class Closing, class Line, class Hard>
Integer ifail_exit(Integer ifail, Integer ierror, Message message, Closing closing, Line line, Hard hard) {
  if (ierror == 0) return 0;
  const Exit kind = exit_kind(ifail);
  if (kind == Exit::Silent) return ierror;
  message();
  if (kind == Exit::MessageOnly) return ierror;
  closing();
  if (kind == Exit::Soft) {
    line(kSoftLine);
  } else {
    line(kHardLine);
    hard();
  }
  return ierror;
}

// The end of a process stopped by a hard failure of the by-reference layer.
[[noreturn]] void stop_process() {
  std::fflush(stdout);
  static constexpr struct {
    int flag;
    const char* text;
  } kFlags[] = {
      {FE_INVALID, "Warning: Floating invalid operand occurred\n"},
      {FE_DIVBYZERO, "Warning: Floating divide by zero occurred\n"},
      {FE_OVERFLOW, "Warning: Floating overflow occurred\n"},
      {FE_UNDERFLOW, "Warning: Floating underflow occurred\n"},
  };
  for (const auto& f : kFlags)
    if (std::fetestexcept(f.flag)) std::fputs(f.text, stderr);
  close_channels();
  std::exit(0);
}

// A text of the by-reference layer: `len` characters, or fewer before a zero.
std::string fortran_text(const char* text, Integer len) {
  if (!text || len <= 0) return {};
  return std::string(text, strnlen(text, static_cast<std::size_t>(len)));
}

void error_lines(const std::vector<std::string>& lines) {
  const Integer channel = error_channel();
  for (const std::string& l : lines) channel_line(channel, l.c_str(), l.size());
}

// The by-value forms write to the channel that x04aaf_f gives, through the
// by-value line writer.
void value_line(const char* text) {
  Integer channel = 0;
  x04aaf_f(0, &channel);
  x04text_f(channel, text, static_cast<Integer>(std::strlen(text)));
}

// The parameter reports print unless the units digit is 1 and the tens
// digit 0 (ifail = 1, the public layer's soft and silent setting).
bool parameter_report_due(Integer* nerrs, Integer ifail) {
  if (nerrs) ++*nerrs;
  return !(ifail % 10 == 1 && (ifail / 10) % 10 == 0);
}

// The by-reference parameter reports write lines of 65 characters.
constexpr std::size_t kParameterLine = 65;

void parameter_report_r(const char* format, const std::string& param, const std::string& srname,
                        EditArg value) {
  const EditArg args[] = {EditArg(param.c_str()), EditArg(srname.c_str()), value};
  channel_line(error_channel(), " ", 1);
  error_lines(edit_format(format, args, kParameterLine));
}

template <std::size_t N, class V>
void parameter_report_f(char (&buffer)[N], const char* format, const char* param, const char* srname, V value) {
  format_into(buffer, format, param ? param : "", srname ? srname : "", value);
  value_line(" ");
  value_line(buffer);
}

}  // namespace

Integer inner_exit_f(Integer ifail, Integer ierror, const char* srname, const char* text) {
  return p01abf_f(ifail, ierror, srname, text ? 1 : 0, text ? text : "");
}

Integer inner_exit_r(Integer ifail, Integer ierror, const char* srname, const std::vector<std::string>& lines) {
  // The record of a by-reference routine: lines of 80 characters, blank-filled.
  constexpr std::size_t kLine = 80;
  std::string rec(lines.size() * kLine, ' ');
  for (std::size_t i = 0; i < lines.size(); ++i) rec.replace(i * kLine, std::min(lines[i].size(), kLine), lines[i], 0, kLine);
  const Integer nrec = static_cast<Integer>(lines.size());
  const std::string name = srname ? srname : "";
  return p01abf_r(&ifail, &ierror, name.c_str(), &nrec, rec.c_str(), static_cast<Integer>(name.size()),
                  static_cast<Integer>(kLine));
}

}  // namespace zil

using zil::EditArg;

extern "C" Integer p01abf_r(const Integer* ifail, const Integer* ierror, const char* srname, const Integer* nrec,
                            const char* rec, Integer srname_len, Integer rec_len) {
  const std::string name = zil::fortran_text(srname, srname_len);
  return zil::ifail_exit(
      *ifail, *ierror,
      [&] {
        const Integer channel = zil::error_channel();
        for (Integer i = 0; nrec && rec && rec_len > 0 && i < *nrec; ++i)
          zil::channel_line(channel, rec + static_cast<std::size_t>(i) * static_cast<std::size_t>(rec_len),
                            static_cast<std::size_t>(rec_len));
      },
      [&] {
        const EditArg args[] = {EditArg(name.c_str()), EditArg(*ierror)};
        zil::error_lines(zil::edit_format("(' ** ABNORMAL EXIT from ZIL Library routine ',A,': IFAIL',' =',I6)", args));
      },
      [](const char* line) { zil::channel_line(zil::error_channel(), line, std::strlen(line)); },
      [] { zil::stop_process(); });
}

extern "C" Integer p01abf_f(Integer ifail, Integer ierror, const char* srname, Integer nrec, const char* rec) {
  return zil::ifail_exit(
      ifail, ierror,
      [&] {
        if (nrec != 0 && rec) zil::value_line(rec);
      },
      [&] {
        char line[zil::kMessageSize];
        zil::format_into(line, " ** ABNORMAL EXIT from ZIL Library routine %s: IFAIL =%6ld **", srname ? srname : "",
                         ierror);
        zil::value_line(line);
      },
      zil::value_line, [] {});
}

extern "C" Integer p01abf_e(Integer ifail, Integer ierror, const char* srname, const char* varbnm, Integer nrec,
                            const char* rec, Integer srname_len, Integer varbnm_len, Integer rec_len) {
  const std::string name = zil::fortran_text(srname, srname_len);
  const std::string var = zil::fortran_text(varbnm, varbnm_len);
  return zil::ifail_exit(
      ifail, ierror,
      [&] {
        for (Integer i = 0; rec && rec_len > 0 && i < nrec; ++i) {
          const char* line = rec + static_cast<std::size_t>(i) * static_cast<std::size_t>(rec_len);
          std::size_t n = zil::trimmed_length(line, static_cast<std::size_t>(rec_len));
          std::fprintf(stderr, "%.*s\n", static_cast<int>(n), line);
        }
      },
      [&] {
        if (var.find_first_not_of(' ') != std::string::npos)
          std::fprintf(stderr, " ** ABNORMAL EXIT from ZIL Library routine %6.6s: %s = %6ld\n", name.c_str(),
                       var.c_str(), static_cast<long>(ierror));
        else
          std::fprintf(stderr, " ** ABNORMAL EXIT from ZIL Library routine %6.6s\n", name.c_str());
      },
      [](const char* line) { std::fprintf(stderr, "%s\n", line); }, [] {});
}

extern "C" void f06aaf_r(const char* srname, const Integer* info, Integer srname_len) {
  const std::string name = zil::fortran_text(srname, srname_len);
  // The report keeps 80 characters of its line.
  char rec[81];
  zil::format_into(rec, " ** On entry to %13s parameter number %2ld had an illegal value", name.c_str(), *info);
  const bool f06 = name.compare(0, 3, "F06") == 0;
  const Integer ierror = f06 ? -1 : -*info;
  const char* varbnm = f06 ? "    " : "INFO";
  p01abf_e(0, ierror, name.c_str(), varbnm, 1, rec, static_cast<Integer>(name.size()), 4,
           static_cast<Integer>(std::strlen(rec)));
}

extern "C" void p01par_s_r(const char* value, const char* param, const Integer* ifail, Integer* nerrs,
                           const char* srname, Integer value_len, Integer param_len, Integer srname_len) {
  if (!zil::parameter_report_due(nerrs, *ifail)) return;
  const std::string v = zil::fortran_text(value, value_len);
  zil::parameter_report_r(
      "(' *****  Parameter  ',A,'  is invalid in routine  ',A,'  ***** ',/,8X,'Value supplied is',/,8X,A)",
      zil::fortran_text(param, param_len), zil::fortran_text(srname, srname_len), EditArg(v.c_str()));
}

extern "C" void p01par_i_r(const Integer* value, const char* param, const Integer* ifail, Integer* nerrs,
                           const char* srname, Integer param_len, Integer srname_len) {
  if (!zil::parameter_report_due(nerrs, *ifail)) return;
  zil::parameter_report_r(
      "(' *****  Parameter  ',A,'  is invalid in routine  ',A,'  ***** ',/,8X,'Value supplied is ',I6)",
      zil::fortran_text(param, param_len), zil::fortran_text(srname, srname_len), EditArg(*value));
}

// The by-value reports print one letter of each name and of a text value:
// the precision of 1 is part of their form.
extern "C" void p01par_s_f(const char* value, const char* param, Integer ifail, Integer* nerrs, const char* srname) {
  if (!zil::parameter_report_due(nerrs, ifail)) return;
  thread_local char line[196];
  zil::parameter_report_f(
      line, " *****  Parameter  %1.1s  is invalid in routine  %1.1s  ***** \n        Value supplied is\n        %1.1s",
      param, srname, value ? value : "");
}

extern "C" void p01par_i_f(Integer value, const char* param, Integer ifail, Integer* nerrs, const char* srname) {
  if (!zil::parameter_report_due(nerrs, ifail)) return;
  thread_local char line[132];
  zil::parameter_report_f(
      line, " *****  Parameter  %1.1s  is invalid in routine  %1.1s  ***** \n        Value supplied is %6ld", param,
      srname, value);
}
