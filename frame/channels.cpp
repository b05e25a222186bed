// The numbered channels of the by-reference inner layer: a table from
// channel number to stream, with the error and advisory channel numbers.
//
// One mutex guards the table, and a line is written while it is held, so
// that no thread can close a stream under another one's write.  Failures
// are handed up through errbuf and the ifail exits, which may end the
// process; the table's lock is never held across them, because that end
// closes every channel.
#include <array>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <string>

#include "frame/inner.hpp"
#include "frame/io.hpp"
#include "frame/report.hpp"
#include "zil_frame.h"

namespace zil {
namespace {

struct Channel {
  std::FILE* stream = nullptr;
  bool file = false;  // opened here, so closed here; the standard output is neither
};

struct ChannelTable {
  std::mutex mutex;
  std::array<Channel, kChannelCount> slot;
  ChannelTable() { slot[kStdoutChannel].stream = stdout; }
};

ChannelTable& channels() {
  static ChannelTable table;
  return table;
}

bool exists(Integer channel) { return channel >= 0 && channel < kChannelCount; }

std::atomic<Integer> g_error_channel{kStdoutChannel};
std::atomic<Integer> g_advisory_channel{kStdoutChannel};

// flag 0 reads the channel number, 1 sets it; any other flag does nothing.
void read_or_set(std::atomic<Integer>& number, const Integer* flag, Integer* channel) {
  if (!flag || !channel) return;
  if (*flag == 0) *channel = number.load();
  else if (*flag == 1) number.store(*channel);
}

// Every failure of this file takes the record form "(A,3(1X,I5),A,I16)":
// the A is the blank that keeps the one integer value a field of its own,
// so the record counts one value.
constexpr const char* kRecordForm = "(A,3(1X,I5),A,I16)";

void fail_with(char* errbuf, Integer* ifail, const char* srname, Integer failnum, Integer msgid,
               const char* message, const std::vector<EditArg>& message_args, Integer value) {
  if (errbuf) {
    const EditArg values[] = {EditArg(" "), EditArg(value)};
    errbuf_write(errbuf, srname, failnum, msgid, kRecordForm, values, 1);
  }
  *ifail = inner_exit_r(*ifail, failnum, srname, edit_format(message, message_args));
}

}  // namespace

std::size_t trimmed_length(const char* text, std::size_t n) {
  if (!text) return 0;
  n = strnlen(text, n);
  while (n > 0 && text[n - 1] == ' ') --n;
  return n;
}

void channel_line(Integer channel, const char* text, std::size_t n) {
  if (!exists(channel)) return;
  n = trimmed_length(text, n);
  if (n == 0) {
    text = " ";
    n = 1;
  }
  ChannelTable& t = channels();
  std::lock_guard lock(t.mutex);
  std::FILE* f = t.slot[channel].stream;
  if (!f) return;
  std::fprintf(f, "%.*s\n", static_cast<int>(n), text);
  // Standard output is shared with the by-value writers, which flush each
  // line; flushing here too keeps the two in the order they were written.
  if (!t.slot[channel].file) std::fflush(f);
}

Integer error_channel() { return g_error_channel.load(); }
Integer advisory_channel() { return g_advisory_channel.load(); }

void close_channels() {
  std::fflush(stdout);
  ChannelTable& t = channels();
  std::lock_guard lock(t.mutex);
  for (Channel& c : t.slot) {
    if (!c.file) continue;
    std::fclose(c.stream);
    c = Channel{};
  }
}

}  // namespace zil

using zil::channels;
using zil::EditArg;

extern "C" void x04aaf_f(Integer flag, Integer* channel) {
  if (flag == 0 && channel) *channel = zil::kStdoutChannel;
}

extern "C" void x04aaf_r(const Integer* flag, Integer* channel) {
  zil::read_or_set(zil::g_error_channel, flag, channel);
}

extern "C" void x04abf_r(const Integer* flag, Integer* channel) {
  zil::read_or_set(zil::g_advisory_channel, flag, channel);
}

extern "C" void x04acf_r(const Integer* channel, const char* file, const Integer* mode, char* errbuf,
                         Integer* ifail, Integer file_len) {
  if (errbuf) zil::errbuf_reset(errbuf);
  const Integer ch = *channel;
  static constexpr const char* kOpen[] = {"r", "w", "a"};
  static constexpr const char* kPurpose[] = {"reading", "writing", "appending"};
  if (*mode < 0 || *mode > 2) {
    zil::fail_with(errbuf, ifail, "X04ACF", 1, 99999,
                   "(' ** On entry, MODE is out of range: MODE = ',I16,'.')", {EditArg(*mode)}, *mode);
    return;
  }
  std::string name(file ? file : "", file ? strnlen(file, file_len > 0 ? file_len : 0) : 0);
  name.resize(zil::trimmed_length(name.c_str(), name.size()));
  bool opened = false;
  if (zil::exists(ch)) {
    zil::ChannelTable& t = channels();
    std::lock_guard lock(t.mutex);
    // A channel that is already connected is refused, as an open of a
    // connected unit to another file fails.
    if (!t.slot[ch].stream) {
      // Mode 0 reads a file that must exist, which is what "r" asks.
      std::FILE* f = std::fopen(name.c_str(), kOpen[*mode]);
      if (f) {
        t.slot[ch] = {f, true};
        opened = true;
      }
    }
  }
  if (opened) {
    *ifail = 0;
    return;
  }
  char message[96];
  zil::format_into(message, "(' ** Unable to open \"',A,'\" for %s on channel ',I16,'.')", kPurpose[*mode]);
  zil::fail_with(errbuf, ifail, "X04ACF", 2, 99998 - *mode, message, {EditArg(name.c_str()), EditArg(ch)}, ch);
}

extern "C" void x04acz_r(Integer* channel, char* errbuf, Integer* ifail) {
  if (errbuf) zil::errbuf_reset(errbuf);
  Integer ch = zil::kFirstFileChannel;
  {
    zil::ChannelTable& t = channels();
    std::lock_guard lock(t.mutex);
    while (zil::exists(ch) && t.slot[ch].stream) ++ch;
  }
  if (zil::exists(ch)) {
    *channel = ch;
    *ifail = 0;
    return;
  }
  *channel = -1;
  zil::fail_with(errbuf, ifail, "X04ACZ", 1, 99998, "(' ** Unit ',I16,' does not exist.')", {EditArg(ch)}, ch);
}

extern "C" void x04adf_r(const Integer* channel, char* errbuf, Integer* ifail) {
  if (errbuf) zil::errbuf_reset(errbuf);
  const Integer ch = *channel;
  bool closed = false;
  if (zil::exists(ch)) {
    zil::ChannelTable& t = channels();
    std::lock_guard lock(t.mutex);
    zil::Channel& c = t.slot[ch];
    // Closing a channel that is not connected does nothing; the standard
    // output stays connected.
    closed = !c.file || std::fclose(c.stream) == 0;
    if (c.file) c = zil::Channel{};
  }
  if (closed) {
    *ifail = 0;
    return;
  }
  zil::fail_with(errbuf, ifail, "X04ADF", 1, 99999,
                 "(' ** Unable to close file associated with channel ',I16,'.')", {EditArg(ch)}, ch);
}

extern "C" void x04text_r(const Integer* channel, const char* text, const Integer* length) {
  if (!channel || !length || *length < 0) return;
  zil::channel_line(*channel, text, static_cast<std::size_t>(*length));
}

extern "C" void x04lines_r(const Integer* channel, const Integer* count, const char* text,
                           const Integer* length) {
  if (!count || !length) return;
  for (Integer i = 0; i < *count; ++i)
    x04text_r(channel, text + static_cast<std::size_t>(i) * static_cast<std::size_t>(*length), length);
}

namespace {
std::mutex g_open_mutex;  // makes x04acy's search and open one step
}

extern "C" void x04acy(const char* path, Integer length, Integer* channel, ZilError* fail) {
  zil::Reporter rep(fail, "x04acy", zil::Reporter::Clear::CodeOnly);
  std::string name(path ? path : "", path ? strnlen(path, length > 0 ? length : 0) : 0);
  bool ok = false;
  if (!name.empty()) {
    std::lock_guard lock(g_open_mutex);
    char errbuf[zil::kErrbufSize];
    Integer ifail = 1;
    Integer ch = -1;
    x04acz_r(&ch, errbuf, &ifail);
    if (ifail == 0) {
      // The search left 0 in ifail; the open must be soft and silent too.
      const Integer mode = 1;
      ifail = 1;
      x04acf_r(&ch, name.c_str(), &mode, errbuf, &ifail, static_cast<Integer>(name.size()));
    }
    if (channel) *channel = ch;
    ok = ifail == 0;
  }
  if (!ok) rep.raise(ZE_NOT_WRITE_FILE, name.c_str());
}
