/* Sorting, ranking and searching: a table of runners sorted by time with
   ties kept in entry order, ranked without moving, and searched. */
#include <stdio.h>
#include <string.h>
#include <zil.h>

typedef struct {
  char name[12];
  double time;
} Runner;

static Integer by_time(const void *a, const void *b) {
  const Runner *x = (const Runner *)a, *y = (const Runner *)b;
  return (x->time > y->time) - (x->time < y->time);
}

static Integer by_value(const void *a, const void *b) {
  double x = *(const double *)a, y = *(const double *)b;
  return (x > y) - (x < y);
}

int main(void) {
  Runner field[] = {{"Ada", 12.5}, {"Brendan", 11.9}, {"Chen", 12.5}, {"Dana", 13.1},
                    {"Eero", 11.9}, {"Fiona", 12.2}, {"Gus", 12.5}};
  const size_t n = sizeof field / sizeof field[0];
  double times[] = {3.5, -1.25, 8.0, 0.0, 2.75, -4.5, 6.125};
  const size_t nt = sizeof times / sizeof times[0];
  Integer rank[7], index;
  double key = 2.75;
  Boolean found;
  ZilError fail;
  size_t i;

  memset(&fail, 0, sizeof fail);

  m01cac(times, nt, Zil_Descending, &fail);
  printf("m01cac, descending (code %d):\n ", (int)fail.code);
  for (i = 0; i < nt; ++i) printf(" %g", times[i]);
  printf("\n");

  m01dsc(field, n, (ptrdiff_t)sizeof(Runner), by_time, Zil_Ascending, rank, &fail);
  printf("m01dsc, ranks by time (code %d):\n ", (int)fail.code);
  for (i = 0; i < n; ++i) printf(" %s=%d", field[i].name, (int)rank[i]);
  printf("\n");

  m01ctc(field, n, sizeof(Runner), (ptrdiff_t)sizeof(Runner), by_time, Zil_Ascending, &fail);
  printf("m01ctc, stable sort by time (code %d):\n", (int)fail.code);
  for (i = 0; i < n; ++i) printf("  %-8s %5.1f\n", field[i].name, field[i].time);

  m01cac(times, nt, Zil_Ascending, &fail);
  found = m01fsc(&key, times, nt, (ptrdiff_t)sizeof(double), by_value, Zil_Ascending, Zil_First,
                 &index, &fail);
  printf("m01fsc, key %g: found %d at index %d (code %d)\n", key, (int)found, (int)index,
         (int)fail.code);
  key = 1.0;
  found = m01fsc(&key, times, nt, (ptrdiff_t)sizeof(double), by_value, Zil_Ascending, Zil_Last,
                 &index, &fail);
  printf("m01fsc, key %g: found %d, last index not beyond it %d\n", key, (int)found, (int)index);

  rank[0] = 2;
  rank[1] = 0;
  rank[2] = 2;
  m01zac(rank, 3, &fail);
  printf("m01zac with a repeated rank: code %d\n", (int)fail.code);
  return 0;
}
