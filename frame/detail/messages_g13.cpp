// Chapter g13 (time series): its printed messages, addressed by number.  The
// chapter adds its rows behind the dummy row 0.
#include "frame/detail/messages.hpp"

namespace zil::messages {
namespace {
constexpr const char* kRows[] = {
    ": Dummy message for Chapter g13\n",
};
}  // namespace

constinit const std::span<const char* const> g13{kRows};

}  // namespace zil::messages
