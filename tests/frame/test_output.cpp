// The output record's rule: standard streams, files appended at each write,
// and file_error for what cannot be written; and the chapter messages.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "frame/io.hpp"
#include "frame_test.hpp"

namespace {

using zil_test::read_file;
using zil_test::ScratchDir;
using zil_test::stderr_of;
using zil_test::stdout_of;

ZilOutput output_to(const std::string& name, const char* chapter = "E04") {
  ZilOutput out{};
  std::snprintf(out.outfile, sizeof out.outfile, "%s", name.c_str());
  out.chapter = chapter;
  return out;
}

TEST(OutputRecord, StandardStreams) {
  ZilOutput out = output_to("stdout");
  EXPECT_EQ(stdout_of([&] {
              x04print_line(&out, "line");
              x04print(&out, "text");
              x04print(&out, "\n");
            }),
            "line\ntext\n");
  EXPECT_TRUE(out.resolved);
  EXPECT_TRUE(out.to_stdout);
  EXPECT_FALSE(out.to_stderr);
  EXPECT_TRUE(zil::console_ready());

  ZilOutput err = output_to("stderr");
  EXPECT_EQ(stderr_of([&] { x04print_line(&err, "on stderr"); }), "on stderr\n");
  EXPECT_TRUE(err.to_stderr);
  EXPECT_EQ(err.file_error, 0);
  EXPECT_EQ(out.flag, 0);
}

TEST(OutputRecord, StandardInputCannotBeAppendedTo) {
  ZilOutput out = output_to("stdin");
  std::string written = stdout_of([&] { x04print_line(&out, "lost"); });
  EXPECT_EQ(out.file_error, ZE_NOT_APPEND_FILE);
  EXPECT_EQ(out.file_error, 78);
  EXPECT_TRUE(out.resolved);
  EXPECT_EQ(written, "");
}

TEST(OutputRecord, FileIsAppendedAtEachWrite) {
  ScratchDir dir;
  const std::string path = dir.file("out.txt");
  x04bay(path.c_str(), "already there\n");
  ZilOutput out = output_to(path);
  x04print_line(&out, "first");
  EXPECT_TRUE(out.resolved);
  EXPECT_FALSE(out.to_stdout || out.to_stderr);
  // Each write opens the file anew: one removed in between comes back.
  x04print_line(&out, "second");
  EXPECT_EQ(read_file(path), "already there\nfirst\nsecond\n");
  std::filesystem::remove(path);
  x04print(&out, "third");
  EXPECT_EQ(read_file(path), "third");
  EXPECT_EQ(out.file_error, 0);
}

TEST(OutputRecord, FailuresSetFileErrorAndStopTheOutput) {
  ScratchDir dir;
  ZilOutput out = output_to(dir.file("nodir/out.txt"));
  x04print_line(&out, "x");
  EXPECT_EQ(out.file_error, ZE_NOT_APPEND_FILE);

  // A short text waits in the buffer and fails at the close ...
  ZilOutput full = output_to("/dev/full");
  x04print_line(&full, "x");
  EXPECT_EQ(full.file_error, ZE_NOT_CLOSE_FILE);
  // ... a long one fails in the write itself.
  ZilOutput full2 = output_to("/dev/full");
  const std::string wide(3 * BUFSIZ, 'w');
  x04print(&full2, wide.c_str());
  EXPECT_EQ(full2.file_error, ZE_WRITE_ERROR);

  // Once file_error is set nothing more is written.
  const std::string path = dir.file("later.txt");
  ZilOutput stopped = output_to(path);
  stopped.file_error = ZE_WRITE_ERROR;
  x04print_line(&stopped, "x");
  x04print_msg(&stopped, "ZM_X: body", 1, nullptr);
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_FALSE(stopped.resolved);
}

struct Seen {
  std::string text;
  Integer number = -1;
  Pointer user = nullptr;
  int calls = 0;
};

void remember(const char* text, Integer number, Pointer user) {
  Seen* s = static_cast<Seen*>(user);
  s->text = text;
  s->number = number;
  s->user = user;
  ++s->calls;
}

TEST(ChapterMessages, BodyFollowsTheHead) {
  ZilOutput out = output_to("stdout");
  EXPECT_EQ(stdout_of([&] {
              x04print_msg(&out, "ZM_OPT_RES: \nResults from e04dgc:\n", 1, nullptr);
              x04print_msg(&out, "ZM_ITC_S_D: Iter =   3\n", 2, nullptr);
              x04print_msg(&out, "no head at all\n", 3, nullptr);
              x04print_msg(&out, nullptr, 0, nullptr);  // row 0 of the e04 table
              x04print_msg(&out, "ZM_END:", 4, nullptr);
            }),
            "\nResults from e04dgc:\nIter =   3\nno head at all\nDummy message for Chapter e04\n");
}

TEST(ChapterMessages, CommunicationRecordPrintFlagAndFunction) {
  ZilOutput out = output_to("stdout", "G13");
  Seen seen;
  Zil_Comm comm{};
  comm.p = &seen;
  comm.msg_fun = remember;
  comm.msg_print = FALSE;
  EXPECT_EQ(stdout_of([&] { x04print_msg(&out, "ZM_A: quiet\n", 5, &comm); }), "");
  EXPECT_EQ(seen.calls, 1);
  EXPECT_EQ(seen.text, "ZM_A: quiet\n");  // the function sees the head too
  EXPECT_EQ(seen.number, 5);
  EXPECT_EQ(seen.user, &seen);

  comm.msg_print = TRUE;
  EXPECT_EQ(stdout_of([&] { x04print_msg(&out, nullptr, 0, &comm); }), "Dummy message for Chapter g13\n");
  EXPECT_EQ(seen.calls, 2);
  EXPECT_EQ(seen.text, ": Dummy message for Chapter g13\n");

  // No function is called once the output has failed.
  ZilOutput failed = output_to("stdin");
  x04print_msg(&failed, "ZM_B: x\n", 6, &comm);
  EXPECT_EQ(failed.file_error, ZE_NOT_APPEND_FILE);
  EXPECT_EQ(seen.calls, 2);
}

TEST(ChapterMessages, TablesOfTheFiveChapters) {
  for (const char* chapter : {"E04", "G13", "G02", "G03", "H02"}) {
    std::span<const char* const> table = zil::message_table(chapter);
    ASSERT_FALSE(table.empty()) << chapter;
    std::string lower = chapter;
    lower[0] = 'e' + (chapter[0] - 'E');
    EXPECT_EQ(std::string(table[0]), ": Dummy message for Chapter " + lower + "\n");
  }
  EXPECT_TRUE(zil::message_table("e04").empty());
  EXPECT_TRUE(zil::message_table("F01").empty());
  EXPECT_TRUE(zil::message_table(nullptr).empty());

  // An unknown chapter or a row beyond the table prints nothing.
  ZilOutput out = output_to("stdout", "X99");
  EXPECT_EQ(stdout_of([&] {
              x04print_msg(&out, nullptr, 0, nullptr);
              out.chapter = "E04";
              x04print_msg(&out, nullptr, 100000, nullptr);
              x04print_msg(&out, nullptr, -1, nullptr);
            }),
            "");
}

}  // namespace
