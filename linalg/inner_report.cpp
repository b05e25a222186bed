// The inner layer's report of an illegal argument, by value.
#include <cstring>

#include "zil_frame.h"
#include "zil_linalg.h"

// The column-major kernels pass the argument's position; the by-reference
// reporter prints it and hands the inner reporter its negative (or -1 with
// a blank label for the F06 names).
extern "C" void f06aaf_f(const char* srname, Integer position) {
  f06aaf_r(srname, &position, srname ? static_cast<Integer>(std::strlen(srname)) : 0);
}
