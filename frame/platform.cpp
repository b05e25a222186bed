#include "frame/platform.hpp"

#include <cstdio>
#include <cstring>

namespace zil {

int message_box(const char* text, const char* title, int /*style*/) {
  // One stdio call, which holds the stream's lock, so that boxes from two
  // threads never interleave.
  std::size_t n = std::strlen(text);
  const char* end = (n == 0 || text[n - 1] != '\n') ? "\n" : "";
  std::fprintf(stderr, "%s\n%s%s", title, text, end);
  std::fflush(stderr);
  return 1;
}

}  // namespace zil
