// The older forms' side of a failure: they call an f16 routine with a
// record of their own and hand a failure to f06aaz_d.
#pragma once

#include <initializer_list>

#include "zil_errors.h"
#include "zil_frame.h"

namespace zil::linalg {

// A zeroed record: code, print, handler and errnum 0, as a library routine's
// own record must be.
inline ZilError own_record() { return ZilError{}; }

// Re-reports rec's failure, if any, under tag.  f06aaz_d prints the
// complement of argnum, which is right when the older form has every
// argument of the f16 routine except order.  Where it has more or fewer,
// positions[k] gives the older form's position of the f16 argument at
// position k (positions[0] unused), and argnum is moved to match.
inline bool report_f06(const char* tag, ZilError& rec,
                       std::initializer_list<Integer> positions = {}) {
  if (rec.code == ZE_NOERROR) return false;
  Integer k = -rec.argnum;
  if (positions.size() != 0 && k > 0 && static_cast<std::size_t>(k) < positions.size())
    rec.argnum = -(positions.begin()[k] + 1);
  f06aaz_d(tag, &rec);
  return true;
}

// An older form: calls the f16 routine f with args and its own record, then
// reports any failure under tag.
template <class F, class... A>
void older_form(F f, const char* tag, std::initializer_list<Integer> positions, A... args) {
  ZilError rec = own_record();
  f(args..., &rec);
  report_f06(tag, rec, positions);
}

}  // namespace zil::linalg
