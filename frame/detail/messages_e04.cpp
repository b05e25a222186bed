// Chapter e04 (optimisation): its printed messages, addressed by number.  The
// chapter adds its rows behind the dummy row 0.
#include "frame/detail/messages.hpp"

namespace zil::messages {
namespace {
constexpr const char* kRows[] = {
    ": Dummy message for Chapter e04\n",
};
}  // namespace

constinit const std::span<const char* const> e04{kRows};

}  // namespace zil::messages
