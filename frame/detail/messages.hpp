// The message tables of the chapters that print through the output record:
// for each, an array of texts indexed by message number.  A row is a head
// running to its first colon, then the body ("ZM_OPT_RES: \nResults from
// %s:\n"); the writer prints what follows the colon and the one character
// after it.  Row 0 of every table is a dummy.
#pragma once

#include <span>

namespace zil::messages {

extern const std::span<const char* const> e04;
extern const std::span<const char* const> g13;
extern const std::span<const char* const> g02;
extern const std::span<const char* const> g03;
extern const std::span<const char* const> h02;

}  // namespace zil::messages
