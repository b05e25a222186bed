// Helpers shared by the support frame's tests: a scratch folder, file
// reading, and capture of the standard streams.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "zil.h"

namespace zil_test {

// A fresh folder under the system's temporary folder, removed afterwards.
class ScratchDir {
 public:
  ScratchDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zil_frame_XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~ScratchDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  std::string file(const std::string& name) const { return (path_ / name).string(); }
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

inline std::string read_file(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

// Everything written to the standard output (or error stream) while f runs.
template <class F>
std::string stdout_of(F&& f) {
  std::fflush(stdout);
  testing::internal::CaptureStdout();
  f();
  std::fflush(stdout);
  return testing::internal::GetCapturedStdout();
}

template <class F>
std::string stderr_of(F&& f) {
  std::fflush(stderr);
  testing::internal::CaptureStderr();
  f();
  std::fflush(stderr);
  return testing::internal::GetCapturedStderr();
}

// Whether the code table holds the entry a report with a null message reads.
// The tests of such reports are skipped until it does.
inline bool table_has(int code) { return zil_errlist[code] != nullptr; }

#define ZIL_NEEDS_TABLE(code) \
  if (!zil_test::table_has(code)) GTEST_SKIP() << "the code table lacks entry " << (code)

}  // namespace zil_test
