// Chapter h02 (integer programming): its printed messages, addressed by number.  The
// chapter adds its rows behind the dummy row 0.
#include "frame/detail/messages.hpp"

namespace zil::messages {
namespace {
constexpr const char* kRows[] = {
    ": Dummy message for Chapter h02\n",
};
}  // namespace

constinit const std::span<const char* const> h02{kRows};

}  // namespace zil::messages
