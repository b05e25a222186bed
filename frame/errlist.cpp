// Placeholder until the full code table lands.
#include "zil_errors.h"
extern "C" ZIL_API const char* const zil_errlist[726] = {"ZE_NOERROR:\n  No error."};
