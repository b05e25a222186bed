// Chapter g03 (multivariate analysis): its printed messages, addressed by number.  The
// chapter adds its rows behind the dummy row 0.
#include "frame/detail/messages.hpp"

namespace zil::messages {
namespace {
constexpr const char* kRows[] = {
    ": Dummy message for Chapter g03\n",
};
}  // namespace

constinit const std::span<const char* const> g03{kRows};

}  // namespace zil::messages
