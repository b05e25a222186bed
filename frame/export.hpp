// Export helpers for the C boundary.
//
// Public routines are declared ZIL_API in the C headers, which is what makes
// them visible from libzil.so; everything else is built with hidden
// visibility.  A routine's long name is a second, real symbol bound to the same
// code, so a program may link or dlsym either.
#pragma once

#define ZIL_ALIAS(short_name, long_name) \
  extern "C" ZIL_API decltype(short_name) long_name __attribute__((alias(#short_name)))
