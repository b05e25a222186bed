/* Zil support frame: failure reporting, storage, channels and output. */
#ifndef ZIL_FRAME_H
#define ZIL_FRAME_H

#include <stdio.h>

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

/* ---- Inner reporters ---------------------------------------------------
   ifail = 10*a + b: b = 1 soft, other b hard; a = 0 silent; -1 soft and
   noisy, 0 hard and noisy, -13 the message alone.  Each returns ierror, the
   value the caller leaves in its ifail (0 on success).

   By-reference forms take their scalars through pointers and each text with
   an explicit length, the lengths last; by-value forms take values and
   zero-terminated texts. */

/* nrec lines of rec, each rec_len long, to the error channel, then the
   closing lines; a hard failure ends the process (exit status 0). */
ZIL_API Integer p01abf_r(const Integer *ifail, const Integer *ierror, const char *srname,
                         const Integer *nrec, const char *rec, Integer srname_len, Integer rec_len);
/* rec as one text through the by-value writer; never ends the process. */
ZIL_API Integer p01abf_f(Integer ifail, Integer ierror, const char *srname, Integer nrec,
                         const char *rec);
/* nrec lines of rec, each rec_len long, to the standard error stream; never
   ends the process. */
ZIL_API Integer p01abf_e(Integer ifail, Integer ierror, const char *srname, const char *varbnm,
                         Integer nrec, const char *rec, Integer srname_len, Integer varbnm_len,
                         Integer rec_len);

/* Reports of an invalid argument value: nerrs counts every call. */
ZIL_API void p01par_s_r(const char *value, const char *param, const Integer *ifail, Integer *nerrs,
                        const char *srname, Integer value_len, Integer param_len,
                        Integer srname_len);
ZIL_API void p01par_s_f(const char *value, const char *param, Integer ifail, Integer *nerrs,
                        const char *srname);
ZIL_API void p01par_i_r(const Integer *value, const char *param, const Integer *ifail,
                        Integer *nerrs, const char *srname, Integer param_len, Integer srname_len);
ZIL_API void p01par_i_f(Integer value, const char *param, Integer ifail, Integer *nerrs,
                        const char *srname);

/* Illegal parameter number *info of a by-reference kernel: always noisy. */
ZIL_API void f06aaf_r(const char *srname, const Integer *info, Integer srname_len);

/* ---- Storage ----------------------------------------------------------- */

ZIL_API Pointer x04bbc(size_t size);
ZIL_API Pointer x04bcc(Pointer ptr, size_t size);
ZIL_API void x04bdc(Pointer *ptr_address);

/* ---- Text output by name -------------------------------------------------
   A null file name means the console, which is the standard output.  These
   writers end the process (exit status 1) when a file cannot be opened,
   written or closed. */

/* The file name to which the by-value inner layer's lines go (null: the
   console), and a second name kept for the caller. */
extern ZIL_API char *global_resfile;
extern ZIL_API char *global_datafile;

/* Lower and upper case in place. */
ZIL_API void x04bcz(char *text);
ZIL_API void x04bupper(char *text);
/* Appends text to the file path (opened and closed for this write). */
ZIL_API void x04bay(const char *path, const char *text);
/* Opens path for reading. */
ZIL_API FILE *x04bax(const char *path);
/* Closes stream: 0, or 1 for the standard input or a failed close. */
ZIL_API Integer x04bau(FILE *stream);
/* The first length characters of text, less trailing blanks, and a line
   feed; *error is 1 when the write fails. */
ZIL_API void x04bah(FILE *stream, const char *text, Integer length, Integer *error);
/* Appends text, read as a format without arguments, to "ZilDebug_file". */
ZIL_API void x04debug(const char *text);

/* ---- Numbered channels ----------------------------------------------------
   Channels 0 to 99 exist; channel 6 is the standard output, and files are
   opened from channel 10 up.  errbuf has 200 positions. */

/* flag 0: *channel = 6; any other flag leaves it. */
ZIL_API void x04aaf_f(Integer flag, Integer *channel);
/* Error channel (x04aaf_r) and advisory channel (x04abf_r): *flag 0 reads
   the number into *channel, 1 sets it from *channel. */
ZIL_API void x04aaf_r(const Integer *flag, Integer *channel);
ZIL_API void x04abf_r(const Integer *flag, Integer *channel);
/* Opens file on *channel: *mode 0 reading (the file must exist), 1 writing,
   2 appending.  An open channel is refused. */
ZIL_API void x04acf_r(const Integer *channel, const char *file, const Integer *mode, char *errbuf,
                      Integer *ifail, Integer file_len);
/* The first channel from 10 up that is not open; -1 when none is left. */
ZIL_API void x04acz_r(Integer *channel, char *errbuf, Integer *ifail);
ZIL_API void x04adf_r(const Integer *channel, char *errbuf, Integer *ifail);
/* Public-side open of path (length characters) for writing on a free
   channel; a failure reports ZE_NOT_WRITE_FILE. */
ZIL_API void x04acy(const char *path, Integer length, Integer *channel, ZilError *fail);
/* One line: x04text_f through x04bay to global_resfile (a negative channel
   writes nothing), x04text_r to the channel, at least one character. */
ZIL_API void x04text_f(Integer channel, const char *text, Integer length);
ZIL_API void x04text_r(const Integer *channel, const char *text, const Integer *length);
/* *count lines of *length characters each, one by one. */
ZIL_API void x04lines_r(const Integer *channel, const Integer *count, const char *text,
                        const Integer *length);

/* ---- Output record -------------------------------------------------------
   The output of the chapters whose solvers print.  A failed write sets
   file_error (ZE_NOT_APPEND_FILE, ZE_NOT_CLOSE_FILE or ZE_WRITE_ERROR),
   after which nothing more is written; the caller reports that code. */
typedef struct ZilOutput {
  Boolean resolved;     /* outfile has been examined */
  Boolean to_stdout;    /* outfile was "stdout" */
  Boolean to_stderr;    /* outfile was "stderr" */
  Integer flag;         /* kept zero */
  char outfile[512];    /* "stdout", "stderr" or a file name */
  const char *chapter;  /* "E04", "G13", "G02", "G03" or "H02": the message table */
  Integer file_error;   /* 0, or the code of the first failed write */
} ZilOutput;

/* text and a line feed; text alone. */
ZIL_API void x04print_line(ZilOutput *output, const char *text);
ZIL_API void x04print(ZilOutput *output, const char *text);
/* One chapter message: text, or the chapter table's row number when text is
   null, printed from behind its head; and handed to comm's msg_fun. */
ZIL_API void x04print_msg(ZilOutput *output, const char *text, Integer number, Zil_Comm *comm);

#ifdef __cplusplus
}
#endif

#endif /* ZIL_FRAME_H */
