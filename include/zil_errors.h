/* Placeholder until the full code table lands. */
#ifndef ZIL_ERRORS_H
#define ZIL_ERRORS_H
#include "zil_types.h"
#ifdef __cplusplus
extern "C" {
#endif
typedef enum {
  ZE_NOERROR = 0, ZE_REAL_ARG_LT = 5, ZE_REAL_ARG_LE = 6, ZE_REAL_ARG_GT = 7, ZE_REAL_ARG_GE = 8,
  ZE_INT_ARG_EQ = 10, ZE_INT_ARG_LT = 11, ZE_INT_ARG_LE = 12, ZE_INT_ARG_GT = 13, ZE_INT_ARG_GE = 14,
  ZE_2_INT_ARG_EQ = 16, ZE_2_INT_ARG_LT = 17, ZE_2_INT_ARG_LE = 18, ZE_2_INT_ARG_GT = 19, ZE_2_INT_ARG_GE = 20,
  ZE_BAD_PARAM = 70, ZE_F06_BAD_PARAM = 71, ZE_ALLOC_FAIL = 73, ZE_INTERNAL_ERROR = 74, ZE_INT = 90,
  ZE_C06_FACTOR_GT = 146, ZE_C06_TOO_MANY_FACTORS = 147, ZE_C06_NOT_TRIG = 148
} ZilErrorCode;
extern ZIL_API const char *const zil_errlist[726];
#ifdef __cplusplus
}
#endif
#endif
