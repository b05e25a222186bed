/* Zil chapter m01: sorting, ranking, reordering and searching.

   A vector here is a base address, n elements of size bytes each, and a
   stride in bytes between consecutive elements; a negative stride walks
   backwards from the base address.  A comparison function receives the
   addresses of two elements and returns a negative, zero or positive
   Integer.  Ranks and indices count from 0.

   Limits shared by the generic routines: n <= 268435455,
   1 <= size <= 2147483647 / max(n, 1), and |stride| >= size.  order is
   Zil_Ascending or Zil_Descending. */
#ifndef ZIL_SORT_H
#define ZIL_SORT_H

#include <stddef.h>

#include "zil_enums.h"
#include "zil_types.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Sorts n reals into the given order (quicksort; not stable). */
ZIL_API void m01cac(double vec[], size_t n, Integer order, ZilError *fail);
ZIL_API void zil_double_sort(double vec[], size_t n, Integer order, ZilError *fail);

/* Sorts a vector of arbitrary elements (quicksort; not stable). */
ZIL_API void m01csc(Pointer vec, size_t n, size_t size, ptrdiff_t stride,
                    Integer (*compare)(const void *a, const void *b), Integer order,
                    ZilError *fail);
ZIL_API void zil_quicksort(Pointer vec, size_t n, size_t size, ptrdiff_t stride,
                           Integer (*compare)(const void *a, const void *b),
                           Integer order, ZilError *fail);

/* Sorts a vector of arbitrary elements; equal elements keep their order. */
ZIL_API void m01ctc(Pointer vec, size_t n, size_t size, ptrdiff_t stride,
                    Integer (*compare)(const void *a, const void *b), Integer order,
                    ZilError *fail);
ZIL_API void zil_stable_sort(Pointer vec, size_t n, size_t size, ptrdiff_t stride,
                             Integer (*compare)(const void *a, const void *b),
                             Integer order, ZilError *fail);

/* Sorts a null-terminated linked list by relinking its nodes; stable.
   *head is the first node; each node holds the address of the next one as
   a Pointer at byte offset `offset` within the node.  On return *head is
   the first node of the sorted list.  A list that runs into a loop is
   reported and left as it was. */
ZIL_API void m01cuc(Pointer *head, ptrdiff_t offset,
                    Integer (*compare)(const void *a, const void *b), Integer order,
                    ZilError *fail);
ZIL_API void zil_chain_sort(Pointer *head, ptrdiff_t offset,
                            Integer (*compare)(const void *a, const void *b),
                            Integer order, ZilError *fail);

/* Ranks the elements without moving them: rank[i] is the position element i
   takes in the sorted order; equal elements are ranked in their order.
   |stride| may not exceed 2147483647 / max(n, 1). */
ZIL_API void m01dsc(const void *vec, size_t n, ptrdiff_t stride,
                    Integer (*compare)(const void *a, const void *b), Integer order,
                    Integer rank[], ZilError *fail);
ZIL_API void zil_rank_sort(const void *vec, size_t n, ptrdiff_t stride,
                           Integer (*compare)(const void *a, const void *b),
                           Integer order, Integer rank[], ZilError *fail);

/* Reorders the vector in place so that its element k becomes the element
   that stood at indices[k].  indices must hold each of 0 to n-1 once; it is
   the same on return. */
ZIL_API void m01esc(Pointer vec, size_t n, size_t size, ptrdiff_t stride, Integer indices[],
                    ZilError *fail);
ZIL_API void zil_reorder_vector(Pointer vec, size_t n, size_t size, ptrdiff_t stride,
                                Integer indices[], ZilError *fail);

/* Binary search of a sorted vector.  Returns TRUE when an element compares
   equal to *key.  *index is the last position whose element does not lie
   beyond the key in the given order (-1 if there is none); when several
   elements equal the key, final = Zil_First gives the first of them and
   Zil_Last the last. */
ZIL_API Boolean m01fsc(const void *key, const void *vec, size_t n, ptrdiff_t stride,
                       Integer (*compare)(const void *a, const void *b), Integer order,
                       Integer final, Integer *index, ZilError *fail);
ZIL_API Boolean zil_search_vector(const void *key, const void *vec, size_t n, ptrdiff_t stride,
                                  Integer (*compare)(const void *a, const void *b),
                                  Integer order, Integer final, Integer *index,
                                  ZilError *fail);

/* Turns ranks into indices in place: on return rank[k] is the position that
   held rank k.  The ranks must hold each of 0 to n-1 once. */
ZIL_API void m01zac(Integer rank[], size_t n, ZilError *fail);
ZIL_API void zil_make_indices(Integer rank[], size_t n, ZilError *fail);

#ifdef __cplusplus
}
#endif

#endif /* ZIL_SORT_H */
