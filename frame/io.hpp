// Internal side of the library's text output: the console, the numbered
// channels of the by-reference inner layer and the chapter message tables.
#pragma once

#include <cstddef>
#include <span>

#include "zil_types.h"

namespace zil {

// ---- Console -------------------------------------------------------------
// On this platform there is no window to create: the console is the
// process's standard output.  The flag still records, once and for all
// threads, that the console step has run.
void ensure_console();
bool console_ready();

// ---- Channels --------------------------------------------------------------
// Channel numbers 0 to kChannelCount-1 exist; any other number does not.
// Channel 6 is the standard output, connected from the start and never
// closed; files are opened on numbers from kFirstFileChannel up.
inline constexpr Integer kStdoutChannel = 6;
inline constexpr Integer kFirstFileChannel = 10;
inline constexpr Integer kChannelCount = 100;

// Length of text[0, n) less its trailing blanks (and less anything after a
// terminating zero).
std::size_t trimmed_length(const char* text, std::size_t n);

// One record on a channel with the format "(A)": the text less its trailing
// blanks, but at least one character.  A negative channel, or one that is
// not open, takes nothing.
void channel_line(Integer channel, const char* text, std::size_t n);

// The current error and advisory channels (both 6 at start).
Integer error_channel();
Integer advisory_channel();

// Flushes the standard output and closes every file channel: the end of a
// process stopped by a hard failure.
void close_channels();

// ---- Chapter message tables --------------------------------------------------
// The table of the chapter named "E04", "G13", "G02", "G03" or "H02"; empty
// for any other name.  Each chapter defines its own table in
// frame/detail/messages_<chapter>.cpp.
std::span<const char* const> message_table(const char* chapter);

}  // namespace zil
