/* Zil: basic types shared by every chapter's header. */
#ifndef ZIL_TYPES_H
#define ZIL_TYPES_H

#include <stddef.h>

#if defined(__GNUC__)
#define ZIL_API __attribute__((visibility("default")))
#else
#define ZIL_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Integer and Boolean are 32-bit signed on every platform; messages print
   them through %ld after widening to long. */
typedef int Integer;
typedef int Boolean;
typedef void *Pointer;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

typedef struct {
  double re;
  double im;
} Complex;

/* The failure record every public routine takes as its last argument.  The
   library never initialises it: set print and handler before the first call. */
typedef struct ZilError {
  Integer code;
  Boolean print;
  char message[512];
  void (*handler)(const char *message, Integer code, const char *routine);
  Integer errnum;
  Integer argnum;
  Integer argval;
} ZilError;

/* The record handed to the callbacks of the comm forms.  The solvers touch
   only the words up to and including gradient_print; p is the caller's. */
typedef struct Zil_Comm {
  Integer flag;
  Boolean first;
  Integer reserved;
  Integer nf;
  Boolean iter_print;
  Boolean major_print;
  Boolean subproblem_print;
  Boolean solution_print;
  Boolean gradient_print;
  Pointer p;
  /* Chapter messages (x04print_msg): printed while msg_print is true, and
     handed with their number and p to msg_fun when it is set. */
  Boolean msg_print;
  void (*msg_fun)(const char *text, Integer number, Pointer p);
} Zil_Comm;

#ifdef __cplusplus
}
#endif

#endif /* ZIL_TYPES_H */
