/* Zil chapter g05: pseudo-random number generators and their state.

   Two suites share one base generator, a multiplicative congruential
   generator modulo 2^60 (multiplier 13^13):

   - the older suite (g05cac and companions) keeps one state per thread inside
     the library; a new thread starts from the default state;
   - the rngs suite (g05kac, g05kbc, g05kcc) keeps its whole state in the
     caller's igen and iseed[4]: igen 0 is the base generator, igen 1 to 273
     one of 273 Wichmann-Hill generators. */
#ifndef ZIL_RANDOM_H
#define ZIL_RANDOM_H

#include "zil_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The pair of values remembered by the older variate routines. */
typedef struct {
  double value[2];
} Zil_RandomPair;

/* ---- Older suite: one state per thread ---------------------------------- */

/* The next uniform variate of the thread's stream, in (0, 1). */
ZIL_API double g05cac(void);
ZIL_API double zil_random_continuous_uniform(void);

/* Access to the thread's block, created on first use; any out pointer may be
   null.  limbs is 4 rows of 64 lanes, block the 63 generated numbers
   followed by the index of the next one. */
ZIL_API void g05caz(Integer **flag, Integer **limbs, double **bg05ca, double **block,
                    double **dg05ca);

/* Seeds the thread's stream from an integer (seed and -seed give the same
   stream). */
ZIL_API void g05cbc(Integer seed);
ZIL_API void zil_random_init_repeatable(Integer seed);

/* Seeds the thread's stream from the clock; two calls never give one seed. */
ZIL_API void g05ccc(void);
ZIL_API void zil_random_init_nonrepeatable(void);

/* Saves the thread's state, position included, in istate[9] and xstate[4]. */
ZIL_API void g05cfc(Integer istate[], double xstate[]);
ZIL_API void zil_save_random_state(Integer istate[], double xstate[]);

/* Restores a state saved by g05cfc; a damaged state is refused with
   ZE_STATE_CORRUPT and leaves the thread's state as it was. */
ZIL_API void g05cgc(const Integer istate[], const double xstate[], ZilError *fail);
ZIL_API void zil_restore_random_state(const Integer istate[], const double xstate[],
                                      ZilError *fail);

/* Resets the thread's stream to the default state. */
ZIL_API void g05cxc(void);

ZIL_API Zil_RandomPair get_bg05ca(void);
ZIL_API double get_dg05ca(void);

/* ---- rngs suite: the caller's igen and iseed[4] ------------------------- */

/* The next uniform variate of the generator igen, advancing iseed.  igen and
   iseed must have been set by g05kbc or g05kcc. */
ZIL_API double g05kac(Integer igen, Integer iseed[]);
ZIL_API double zil_rngs_basic(Integer igen, Integer iseed[]);

/* Seeds from iseed: igen <= 0 selects the base generator seeded from
   iseed[0]; igen > 0 a Wichmann-Hill generator (taken cyclically modulo 273)
   with the four seeds brought into 1 to 16909320. */
ZIL_API void g05kbc(Integer *igen, Integer iseed[]);
ZIL_API void zil_rngs_init_repeatable(Integer *igen, Integer iseed[]);

/* Seeds the generator igen (as for g05kbc) from the clock. */
ZIL_API void g05kcc(Integer *igen, Integer iseed[]);
ZIL_API void zil_rngs_init_nonrepeatable(Integer *igen, Integer iseed[]);

#ifdef __cplusplus
}
#endif

#endif /* ZIL_RANDOM_H */
