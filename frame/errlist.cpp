// zil_errlist: the message format of every failure code, indexed by code.
//
// The entries live in errlist.inc, each written once as the code's
// enumerator and its body; the head that every format must begin with is
// made here from the enumerator's spelling, so it cannot drift from the name.
#include "zil_errors.h"

#include <cstddef>
#include <iterator>

#define E(name, body) #name ":\n  " body,
#define L(name, body) #name " (line %1ld):\n  " body,
#define UNASSIGNED(code) "",

extern "C" const char *const zil_errlist[ZIL_ERRLIST_SIZE] = {
#include "errlist.inc"
};

#undef E
#undef L
#undef UNASSIGNED

namespace zil {
namespace {

// The same entries read for their enumerators alone.  A code is both an
// enumerator and a position in the table, so the two orders must agree.
#define E(name, body) name,
#define L(name, body) name,
#define UNASSIGNED(code) static_cast<ZilErrorCode>(code),

constexpr ZilErrorCode kTableOrder[] = {
#include "errlist.inc"
};

#undef E
#undef L
#undef UNASSIGNED

constexpr bool in_code_order() {
  for (std::size_t i = 0; i < std::size(kTableOrder); ++i) {
    if (static_cast<std::size_t>(kTableOrder[i]) != i) return false;
  }
  return true;
}

static_assert(std::size(kTableOrder) == ZIL_ERRLIST_SIZE,
              "zil_errlist must have one entry for every code");
static_assert(in_code_order(),
              "an entry of zil_errlist stands away from its enumerator's code");

}  // namespace
}  // namespace zil
