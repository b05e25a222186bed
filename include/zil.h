/* Zil numerical library: the umbrella header. */
#ifndef ZIL_H
#define ZIL_H

#include "zil_types.h"
#include "zil_errors.h"
#include "zil_enums.h"
#include "zil_frame.h"
#include "zil_env.h"
#include "zil_sort.h"
#include "zil_specfun.h"
#include "zil_zeros.h"
#include "zil_fft.h"
#include "zil_quad.h"
#include "zil_stats.h"
#include "zil_random.h"
#include "zil_linalg.h"

#endif /* ZIL_H */
