// Identification: which library this is and how it was built.  Every text
// here is fixed when the library is built.
#include "frame/export.hpp"
#include "frame/platform.hpp"
#include "frame/report.hpp"
#include "zil_build_info.h"
#include "zil_env.h"
#include "zil_frame.h"

namespace {

constexpr const char* kMark = "7";
constexpr const char* kMarkLetter = "7a";
constexpr const char* kPlatform = "Linux x86-64";
constexpr const char* kImplementation = "QXDLL074Z";

#if defined(__clang__)
constexpr const char* kCxxBanner = "Clang C++ " __clang_version__;
#elif defined(__GNUC__)
constexpr const char* kCxxBanner = "GNU C++ " __VERSION__;
#else
constexpr const char* kCxxBanner = "C++";
#endif

}  // namespace

extern "C" int a00aac(void) {
  char text[zil::kMessageSize];
  zil::format_into(text,
                   "ZIL C Library Mark %s\r\n%s\r\nImplementation code %s\r\nBuilt with %s\r\n"
                   "  and with %s\r\nAt %s\r\n",
                   kMarkLetter, kPlatform, kImplementation, kCxxBanner, ZIL_C_BANNER,
                   ZIL_BUILD_STAMP);
  return zil::message_box(text, "About ZIL C Library", zil::kBoxPlain);
}

extern "C" void a00abc(const char* outfile) {
  struct Line {
    const char* format;
    const char* value;
  };
  const Line lines[] = {
      {"*** ZIL C Library Implementation ***\n", ""},
      {"    %s\n", kPlatform},
      {"    Implementation code (%s)\n", kImplementation},
      {"    Built with %s\n", kCxxBanner},
      {"      and with %s\n", ZIL_C_BANNER},
      {"    At %s\n", ZIL_BUILD_STAMP},
      {"    Mark %s\n", kMark},
  };
  char text[zil::kMessageSize];
  for (const Line& l : lines) {
    zil::format_into(text, l.format, l.value);
    x04bay(outfile, text);
  }
}

ZIL_ALIAS(a00aac, zil_implementation_details);
