// The numbered channels: opening, writing and closing real files, refusals,
// the free-channel search up to the last channel that exists, and the
// public-side open.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "frame/inner.hpp"
#include "frame/io.hpp"
#include "frame_test.hpp"

namespace {

using zil_test::read_file;
using zil_test::ScratchDir;
using zil_test::stdout_of;

struct Opened {
  Integer ifail;
  std::string errbuf;
};

Opened open_channel(Integer channel, const std::string& path, Integer mode, Integer ifail = 1) {
  char errbuf[zil::kErrbufSize];
  x04acf_r(&channel, path.c_str(), &mode, errbuf, &ifail, static_cast<Integer>(path.size()));
  return {ifail, errbuf};
}

Integer close_channel(Integer channel, Integer ifail = 1) {
  char errbuf[zil::kErrbufSize];
  x04adf_r(&channel, errbuf, &ifail);
  return ifail;
}

void line(Integer channel, const std::string& text) {
  const Integer n = static_cast<Integer>(text.size());
  x04text_r(&channel, text.c_str(), &n);
}

Integer free_channel(Integer ifail = 1) {
  Integer channel = 0;
  char errbuf[zil::kErrbufSize];
  x04acz_r(&channel, errbuf, &ifail);
  return channel;
}

TEST(Channels, WriteAppendAndReadFiles) {
  ScratchDir dir;
  const std::string path = dir.file("out.txt");
  ASSERT_EQ(open_channel(10, path, 1).ifail, 0);
  line(10, "first line   ");
  line(10, "    ");
  const char block[] = "row one   row two   ";  // two records of ten characters
  const Integer ch = 10, count = 2, len = 10;
  x04lines_r(&ch, &count, block, &len);
  EXPECT_EQ(close_channel(10), 0);
  EXPECT_EQ(read_file(path), "first line\n \nrow one\nrow two\n");

  // Writing again truncates; appending keeps what is there.
  ASSERT_EQ(open_channel(10, path, 2).ifail, 0);
  line(10, "appended");
  EXPECT_EQ(close_channel(10), 0);
  EXPECT_EQ(read_file(path), "first line\n \nrow one\nrow two\nappended\n");
  ASSERT_EQ(open_channel(10, path, 0).ifail, 0);  // an existing file opens for reading
  EXPECT_EQ(close_channel(10), 0);
  ASSERT_EQ(open_channel(10, path, 1).ifail, 0);
  EXPECT_EQ(close_channel(10), 0);
  EXPECT_EQ(read_file(path), "");
}

TEST(Channels, LinesToNegativeOrUnopenedChannelsGoNowhere) {
  ScratchDir dir;
  EXPECT_EQ(stdout_of([] {
              line(-1, "nothing");
              line(42, "nothing");
              line(1000, "nothing");
            }),
            "");
  // Channel 6 is the standard output; an all-blank text is one blank.
  EXPECT_EQ(stdout_of([] {
              line(6, "on stdout  ");
              line(6, "   ");
              line(6, "");
            }),
            "on stdout\n \n \n");
}

TEST(Channels, RefusalsReportThroughErrbufAndIfail) {
  ScratchDir dir;
  const std::string path = dir.file("a.txt");
  const std::string missing = dir.file("missing.txt");
  ASSERT_EQ(open_channel(12, path, 1).ifail, 0);
  line(12, "kept");

  // A channel that is open is refused, and keeps its file.
  Opened r = open_channel(12, dir.file("b.txt"), 1);
  EXPECT_EQ(r.ifail, 2);
  EXPECT_EQ(r.errbuf, "X04ACF     2 99997     1               12" + std::string(158, ' '));
  // The public side reads the one value back.
  const zil::ErrbufMessage refused[] = {{99997, ZE_NOT_WRITE_FILE, 1, "ZE_NOT_WRITE_FILE:\n  Channel %s is busy."}};
  ZilError fail{};
  zil::Reporter rep(&fail, "x04acy");
  zil::report_errbuf(rep, r.errbuf.c_str(), r.ifail, refused);
  EXPECT_STREQ(fail.message, "ZE_NOT_WRITE_FILE:\n  Channel 12 is busy.");
  EXPECT_EQ(fail.errnum, 2);
  // So is the standard output's channel, and numbers that do not exist.
  EXPECT_EQ(open_channel(6, dir.file("c.txt"), 2).ifail, 2);
  EXPECT_EQ(open_channel(100, dir.file("c.txt"), 2).ifail, 2);
  EXPECT_EQ(open_channel(-3, dir.file("c.txt"), 2).ifail, 2);
  EXPECT_EQ(close_channel(12), 0);
  EXPECT_EQ(read_file(path), "kept\n");

  // A file to read must exist; the message names file, purpose and channel.
  std::string out = stdout_of([&] { r = open_channel(13, missing, 0, -1); });
  EXPECT_EQ(r.ifail, 2);
  EXPECT_EQ(r.errbuf.substr(0, 24), "X04ACF     2 99998     1");
  // A message line holds 80 characters, which a long name can use up.
  const std::string message = " ** Unable to open \"" + missing + "\" for reading on channel               13.";
  const std::string cut = message.substr(0, 80);
  EXPECT_EQ(out, cut.substr(0, cut.find_last_not_of(' ') + 1) +
                     "\n ** ABNORMAL EXIT from ZIL Library routine X04ACF: IFAIL =     2\n"
                     " ** ZIL soft failure - control returned\n");
  EXPECT_NE(open_channel(13, dir.file("nodir/x.txt"), 2).errbuf.find(" 99996 "), std::string::npos);

  // A mode outside 0 to 2.
  out = stdout_of([&] { r = open_channel(13, path, 3, -13); });
  EXPECT_EQ(r.ifail, 1);
  EXPECT_EQ(r.errbuf.substr(0, 41), "X04ACF     1 99999     1                3");
  EXPECT_EQ(out, " ** On entry, MODE is out of range: MODE =                3.\n");
  EXPECT_EQ(free_channel(), 10);  // nothing was left open
}

TEST(Channels, FreeChannelSearchAndAllChannelsBusy) {
  ScratchDir dir;
  EXPECT_EQ(free_channel(), 10);
  ASSERT_EQ(open_channel(10, dir.file("10"), 1).ifail, 0);
  ASSERT_EQ(open_channel(11, dir.file("11"), 1).ifail, 0);
  ASSERT_EQ(open_channel(13, dir.file("13"), 1).ifail, 0);
  EXPECT_EQ(free_channel(), 12);
  EXPECT_EQ(close_channel(10), 0);
  EXPECT_EQ(free_channel(), 10);

  for (Integer ch = zil::kFirstFileChannel; ch < zil::kChannelCount; ++ch) {
    if (ch != 11 && ch != 13) ASSERT_EQ(open_channel(ch, dir.file(std::to_string(ch)), 1).ifail, 0);
  }
  Integer channel = 0, ifail = -1;
  char errbuf[zil::kErrbufSize];
  std::string out = stdout_of([&] { x04acz_r(&channel, errbuf, &ifail); });
  EXPECT_EQ(channel, -1);
  EXPECT_EQ(ifail, 1);
  EXPECT_EQ(std::string(errbuf, 41), "X04ACZ     1 99998     1              100");
  EXPECT_EQ(out,
            " ** Unit              100 does not exist.\n"
            " ** ABNORMAL EXIT from ZIL Library routine X04ACZ: IFAIL =     1\n"
            " ** ZIL soft failure - control returned\n");

  // The public-side open reports that no file could be opened.
  if (zil_test::table_has(ZE_NOT_WRITE_FILE)) {
    ZilError fail{};
    x04acy(dir.file("one_more").c_str(), 100, &channel, &fail);
    EXPECT_EQ(fail.code, ZE_NOT_WRITE_FILE);
  }
  for (Integer ch = zil::kFirstFileChannel; ch < zil::kChannelCount; ++ch) EXPECT_EQ(close_channel(ch), 0);
  EXPECT_EQ(free_channel(), 10);
}

TEST(Channels, FailedCloseIsReported) {
  // The full device takes the buffered line only when the channel closes.
  ASSERT_EQ(open_channel(14, "/dev/full", 1).ifail, 0);
  line(14, "lost");
  Integer ch = 14, ifail = 1;
  char errbuf[zil::kErrbufSize];
  x04adf_r(&ch, errbuf, &ifail);
  EXPECT_EQ(ifail, 1);
  EXPECT_EQ(std::string(errbuf, 41), "X04ADF     1 99999     1               14");
  // The channel is free again all the same, and closing it twice is harmless.
  EXPECT_EQ(close_channel(14), 0);
  EXPECT_EQ(free_channel(), 10);
  ch = 200;
  std::string out = stdout_of([&] { ifail = -13, x04adf_r(&ch, errbuf, &ifail); });
  EXPECT_EQ(out, " ** Unable to close file associated with channel              200.\n");
}

TEST(Channels, ErrorAndAdvisoryChannelNumbers) {
  Integer get = 0, set = 1, other = 7, channel = -5;
  x04aaf_f(0, &channel);
  EXPECT_EQ(channel, 6);
  channel = -5;
  x04aaf_f(1, &channel);
  EXPECT_EQ(channel, -5);

  x04aaf_r(&get, &channel);
  EXPECT_EQ(channel, 6);
  x04abf_r(&get, &channel);
  EXPECT_EQ(channel, 6);
  x04abf_r(&set, &other);
  x04abf_r(&get, &channel);
  EXPECT_EQ(channel, 7);
  x04aaf_r(&get, &channel);
  EXPECT_EQ(channel, 6);  // the two are separate
  Integer six = 6;
  x04abf_r(&set, &six);
}

TEST(Channels, PublicSideOpen) {
  ScratchDir dir;
  const std::string path = dir.file("public.txt");
  ZilError fail{};
  fail.code = 99;
  Integer channel = -1;
  x04acy(path.c_str(), static_cast<Integer>(path.size()), &channel, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(channel, 10);
  line(channel, "through x04acy");
  EXPECT_EQ(close_channel(channel), 0);
  EXPECT_EQ(read_file(path), "through x04acy\n");

  // The length bounds the name.
  x04acy((path + "-ignored").c_str(), static_cast<Integer>(path.size()), &channel, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(close_channel(channel), 0);
  EXPECT_FALSE(std::filesystem::exists(path + "-ignored"));
}

TEST(Channels, PublicSideOpenFailures) {
  ZIL_NEEDS_TABLE(ZE_NOT_WRITE_FILE);
  ScratchDir dir;
  Integer channel = 0;
  for (const char* path : {static_cast<const char*>(nullptr), "", "/nonexistent/dir/x.txt"}) {
    ZilError fail{};
    x04acy(path, path ? static_cast<Integer>(std::strlen(path)) : 0, &channel, &fail);
    EXPECT_EQ(fail.code, ZE_NOT_WRITE_FILE);
    char expected[512];
    std::snprintf(expected, sizeof expected, zil_errlist[ZE_NOT_WRITE_FILE], path ? path : "");
    EXPECT_STREQ(fail.message, expected);
  }
  // Without a record: the error box and the terminated box, on the error stream.
  std::string err = zil_test::stderr_of([&] { x04acy("", 0, &channel, nullptr); });
  EXPECT_NE(err.find("Error Detected by ZIL Routine x04acy: ZE_NOT_WRITE_FILE"), std::string::npos);
  EXPECT_NE(err.find("ZIL Function Terminated"), std::string::npos);
}

}  // namespace
