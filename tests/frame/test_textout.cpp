// Text output by name: the by-value writers, which end the process when a
// file fails them, the stream helpers, case conversion, storage release and
// the debug file.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "frame/io.hpp"
#include "frame_test.hpp"

namespace {

using zil_test::read_file;
using zil_test::ScratchDir;
using zil_test::stderr_of;
using zil_test::stdout_of;

// Points the by-value layer's lines at a file for the life of the object.
class ResultFile {
 public:
  explicit ResultFile(std::string path) : path_(std::move(path)) { global_resfile = path_.data(); }
  ~ResultFile() { global_resfile = nullptr; }

 private:
  std::string path_;
};

testing::Matcher<const std::string&> box(const std::string& text) {
  // A box with an empty title: an empty line, then the text.
  return testing::Matcher<const std::string&>("\n" + text);
}

TEST(TextOut, ExportedTextPointersStartNull) {
  EXPECT_EQ(global_resfile, nullptr);
  EXPECT_EQ(global_datafile, nullptr);
}

TEST(TextOut, AppendToFileOrConsole) {
  ScratchDir dir;
  const std::string path = dir.file("results.txt");
  x04bay(path.c_str(), "one\n");
  x04bay(path.c_str(), "two");
  x04bay(path.c_str(), "\n");
  EXPECT_EQ(read_file(path), "one\ntwo\n");
  EXPECT_EQ(stdout_of([] { x04bay(nullptr, "to the console\n"); }), "to the console\n");
  EXPECT_TRUE(zil::console_ready());
}

using TextOutDeathTest = testing::Test;

TEST_F(TextOutDeathTest, ByValueWriterEndsTheProcessWhenTheFileFails) {
  ScratchDir dir;
  const std::string path = dir.file("nodir/out.txt");
  EXPECT_EXIT(x04bay(path.c_str(), "x"), testing::ExitedWithCode(1), box("Unable To Open Output File: " + path + "\n"));
  // The full device takes the text into the buffer and refuses it at the close.
  EXPECT_EXIT(x04bay("/dev/full", "x"), testing::ExitedWithCode(1),
              box("Unable To Close the Output File: /dev/full\n"));
}

TEST_F(TextOutDeathTest, OpenForReading) {
  EXPECT_EXIT(x04bax(nullptr), testing::ExitedWithCode(1),
              box("Attempting to read from stdin in MS Windows environment\n"));
  EXPECT_EXIT(x04bax("/nonexistent/in.txt"), testing::ExitedWithCode(1),
              box("Unable To Open Input File: /nonexistent/in.txt\n"));
}

TEST(TextOut, OpenAndCloseStreams) {
  ScratchDir dir;
  const std::string path = dir.file("in.txt");
  x04bay(path.c_str(), "data 42\n");
  FILE* f = x04bax(path.c_str());
  ASSERT_NE(f, nullptr);
  int v = 0;
  EXPECT_EQ(std::fscanf(f, "data %d", &v), 1);
  EXPECT_EQ(v, 42);
  EXPECT_EQ(x04bau(f), 0);
  Integer result = -1;
  EXPECT_EQ(stderr_of([&] { result = x04bau(stdin); }), "\nstdin in MS Windows environment\n");
  EXPECT_EQ(result, 1);
}

TEST(TextOut, WriteTrimmedLineToStream) {
  ScratchDir dir;
  const std::string path = dir.file("lines.txt");
  FILE* f = std::fopen(path.c_str(), "w");
  Integer error = 7;
  x04bah(f, "alpha   beta    and more", 16, &error);
  EXPECT_EQ(error, 0);
  x04bah(f, "        ", 8, &error);
  std::fclose(f);
  EXPECT_EQ(read_file(path), "alpha   beta\n\n");

  f = std::fopen(path.c_str(), "r");  // a stream that cannot be written
  x04bah(f, "text", 4, &error);
  EXPECT_EQ(error, 1);
  std::fclose(f);
  EXPECT_EQ(stdout_of([&] { x04bah(stdout, "out  ", 5, &error); }), "out\n");
}

TEST(TextOut, ByValueLineWriter) {
  ScratchDir dir;
  const std::string path = dir.file("resfile.txt");
  EXPECT_EQ(stdout_of([] {
              x04text_f(-1, "never written", 13);
              x04text_f(6, "on stdout   ", 12);
              x04text_f(0, "      ", 6);
            }),
            "on stdout\n\n");
  {
    ResultFile to(path);
    x04text_f(-1, "never written", 13);
    x04text_f(123, "the channel number decides nothing else", 39);
    x04text_f(6, "cut at the length", 7);
  }
  EXPECT_EQ(read_file(path), "the channel number decides nothing else\ncut at\n");
}

TEST(TextOut, ByValueLineWriterKeeps510Characters) {
  const std::string wide(600, 'w');
  std::string out = stdout_of([&] { x04text_f(6, wide.c_str(), 600); });
  EXPECT_EQ(out, std::string(510, 'w') + "\n");
}

TEST(TextOut, CaseConversionInPlace) {
  char text[] = "MiXeD Case 123_x!";
  x04bcz(text);
  EXPECT_STREQ(text, "mixed case 123_x!");
  x04bupper(text);
  EXPECT_STREQ(text, "MIXED CASE 123_X!");
  char empty[] = "";
  x04bcz(empty);
  x04bupper(empty);
  EXPECT_STREQ(empty, "");
  x04bcz(nullptr);
}

TEST(TextOut, FreeStoresNullAndTakesNull) {
  Pointer p = x04bbc(64);
  ASSERT_NE(p, nullptr);
  x04bdc(&p);
  EXPECT_EQ(p, nullptr);
  x04bdc(&p);
  EXPECT_EQ(p, nullptr);
  x04bdc(nullptr);
}

TEST(TextOut, DebugFileInTheCurrentFolder) {
  ScratchDir dir;
  char* here = getcwd(nullptr, 0);
  ASSERT_EQ(chdir(dir.path().c_str()), 0);
  x04debug("step 1: 100%% done\n");
  x04debug("step 2\n");
  ASSERT_EQ(chdir(here), 0);
  std::free(here);
  EXPECT_EQ(read_file(dir.file("ZilDebug_file")), "step 1: 100% done\nstep 2\n");
}

}  // namespace
