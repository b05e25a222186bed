/* Zil support frame: failure reporting, storage, channels and output. */
#ifndef ZIL_FRAME_H
#define ZIL_FRAME_H

#include "zil_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Failure reporting ------------------------------------------------- */

/* Reports message (or zil_errlist[code] when message is null) for routine:
   a box when due, then the record and its handler. */
ZIL_API void p01acc(const char *message, Integer code, const char *routine, ZilError *fail);

/* Reporters of the vector and matrix kernels. */
ZIL_API void f06aaz(const char *routine, Integer number);
ZIL_API void f06aaz_d(const char *routine, ZilError *fail);

/* ---- Storage ----------------------------------------------------------- */

ZIL_API Pointer x04bbc(size_t size);
ZIL_API Pointer x04bcc(Pointer ptr, size_t size);
ZIL_API void x04bdc(Pointer *ptr_address);

#ifdef __cplusplus
}
#endif

#endif /* ZIL_FRAME_H */
