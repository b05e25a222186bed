// Stand-ins for the windowing system's services on a plain Linux process.
#pragma once

#include "zil_types.h"

namespace zil {

// Box styles, as the window system numbers them.
inline constexpr int kBoxPlain = 0;
inline constexpr int kBoxStop = 16;
inline constexpr int kBoxExclamation = 48;

// A message box: one block on the standard error stream, the title on its
// own line and then the text; the call returns at once with "OK" (1).
int message_box(const char* text, const char* title, int style);

}  // namespace zil
