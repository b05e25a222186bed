// The output runtime from several threads at once: channels opened through
// the public-side open, lines on them, the by-value parameter reports with
// their per-thread line buffers, and the console's first use.
#include <gtest/gtest.h>

#include <algorithm>
#include <barrier>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "frame/inner.hpp"
#include "frame/io.hpp"
#include "zil.h"

namespace {

std::string read_file(const std::filesystem::path& path) {
  std::ifstream in(path);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

std::size_t count(const std::string& text, const std::string& piece) {
  std::size_t n = 0;
  for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) ++n;
  return n;
}

TEST(FrameConcurrency, ChannelsReportsAndConsoleFromManyThreads) {
  constexpr int kThreads = 8;
  constexpr int kLines = 40;
  std::string pattern = (std::filesystem::temp_directory_path() / "zil_conc_XXXXXX").string();
  const std::filesystem::path dir = mkdtemp(pattern.data());
  std::string resfile = (dir / "reports.txt").string();
  global_resfile = resfile.data();

  std::vector<int> channel(kThreads, -1), nerrs(kThreads, 0), console(kThreads, 0), errors(kThreads, -1);
  std::barrier all_open(kThreads);
  std::vector<std::thread> pool;
  for (int t = 0; t < kThreads; ++t) {
    pool.emplace_back([&, t] {
      zil::ensure_console();
      console[t] = zil::console_ready();

      const std::string path = (dir / ("thread" + std::to_string(t) + ".txt")).string();
      ZilError fail{};
      Integer ch = -1;
      x04acy(path.c_str(), static_cast<Integer>(path.size()), &ch, &fail);
      channel[t] = fail.code == 0 ? ch : -1;
      for (int i = 0; i < kLines && fail.code == 0; ++i) {
        const std::string text = "thread " + std::to_string(t) + " line " + std::to_string(i);
        const Integer n = static_cast<Integer>(text.size());
        x04text_r(&ch, text.c_str(), &n);

        Integer count = 0;
        p01par_i_f(t, "N", 0, &count, "F03AAF");
        p01par_s_f("Transpose", "TRANS", -1, &count, "F01BRF");
        nerrs[t] += count;
      }
      // Every channel stays open until all are: none may be handed out twice.
      all_open.arrive_and_wait();
      char errbuf[zil::kErrbufSize];
      Integer ifail = 1;
      x04adf_r(&ch, errbuf, &ifail);
      Integer get = 0;
      x04aaf_r(&get, &errors[t]);
    });
  }
  for (std::thread& th : pool) th.join();
  global_resfile = nullptr;

  std::vector<int> seen_channels;
  const std::string reports = read_file(resfile);
  for (int t = 0; t < kThreads; ++t) {
    EXPECT_EQ(console[t], 1);
    EXPECT_EQ(errors[t], 6);
    EXPECT_EQ(nerrs[t], 2 * kLines);
    ASSERT_GE(channel[t], zil::kFirstFileChannel) << "thread " << t;
    seen_channels.push_back(channel[t]);
    std::string expected;
    for (int i = 0; i < kLines; ++i) expected += "thread " + std::to_string(t) + " line " + std::to_string(i) + "\n";
    EXPECT_EQ(read_file(dir / ("thread" + std::to_string(t) + ".txt")), expected);
    // Each report is written whole: one line buffer per thread.
    char value[16];
    std::snprintf(value, sizeof value, "%6d", t);
    EXPECT_EQ(count(reports, " *****  Parameter  N  is invalid in routine  F  ***** \n        Value supplied is " +
                                 std::string(value) + "\n"),
              static_cast<std::size_t>(kLines));
  }
  EXPECT_EQ(count(reports, " *****  Parameter  T  is invalid in routine  F  ***** \n        Value supplied is\n        T\n"),
            static_cast<std::size_t>(kThreads * kLines));
  // The public-side open handed every thread a channel of its own.
  std::sort(seen_channels.begin(), seen_channels.end());
  EXPECT_EQ(std::adjacent_find(seen_channels.begin(), seen_channels.end()), seen_channels.end());
  std::filesystem::remove_all(dir);
}

}  // namespace
