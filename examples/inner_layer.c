/* The inner layer's reporting and output from C: a soft, noisy failure in
   the by-value and by-reference forms, a parameter report, lines on
   channel 6 (the standard output) and a chapter message through an output
   record. */
#include <stdio.h>
#include <string.h>
#include <zil.h>

int main(void) {
  /* By value: the message, the closing line and the soft line; ifail = -1
     comes back as the failure number. */
  Integer ifail = p01abf_f(-1, 2, "m01caf_f", 1, "** On entry, n < 1: n = 0");
  printf("by value: ifail = %d\n", (int)ifail);

  /* By reference: two records of 30 characters on the error channel. */
  {
    const char rec[] = " ** First record of two.       ** Second record.             ";
    Integer soft = -1, ierror = 3, nrec = 2;
    ifail = p01abf_r(&soft, &ierror, "C06EAF", &nrec, rec, 6, 30);
    printf("by reference: ifail = %d\n", (int)ifail);
  }

  /* A parameter report counts every call but prints only when noisy. */
  {
    Integer nerrs = 0;
    p01par_i_f(-4, "N", 1, &nerrs, "F03AAF");
    p01par_i_f(-4, "N", 0, &nerrs, "F03AAF");
    printf("reports counted: %d\n", (int)nerrs);
  }

  /* Lines on the standard output's channel lose their trailing blanks. */
  {
    Integer channel = 6, length = 20;
    x04text_r(&channel, "channel six         ", &length);
  }

  /* The output record: a chapter message is printed from behind its head. */
  {
    ZilOutput out;
    char name[] = "SHOUT";
    memset(&out, 0, sizeof out);
    strcpy(out.outfile, "stdout");
    out.chapter = "E04";
    x04print_msg(&out, NULL, 0, NULL);
    x04print_msg(&out, "ZM_ITER: Iter =    3\n", 1, NULL);
    x04bcz(name);
    x04print_line(&out, name);
    printf("file_error = %d\n", (int)out.file_error);
  }
  return 0;
}
