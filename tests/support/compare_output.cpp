// Runs an example program and compares its standard output with the text
// expected for it.  Lines are compared token by token: tokens that read as
// numbers must agree within a relative tolerance (so that the last printed
// digit may differ between platforms' libm), every other token exactly.
//
// The expected file may begin with a line "#tolerance <rel>" that states
// the tolerance for that example; otherwise it is 1e-6.
//
// Usage: compare_output <program> <expected-file>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::vector<std::string> split_lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  while (!lines.empty() && lines.back().find_first_not_of(" \t\r") == std::string::npos)
    lines.pop_back();
  return lines;
}

std::vector<std::string> tokens(const std::string& line) {
  std::vector<std::string> out;
  std::istringstream in(line);
  for (std::string t; in >> t;) out.push_back(t);
  return out;
}

bool as_number(const std::string& t, double& v) {
  // Trailing punctuation such as a comma or a closing parenthesis is text.
  std::size_t end = t.size();
  while (end > 0 && (t[end - 1] == ',' || t[end - 1] == ')' || t[end - 1] == ';' || t[end - 1] == ':'))
    --end;
  std::size_t begin = 0;
  while (begin < end && t[begin] == '(') ++begin;
  if (begin == end) return false;
  std::string core = t.substr(begin, end - begin);
  char* stop = nullptr;
  errno = 0;
  v = std::strtod(core.c_str(), &stop);
  return stop && *stop == '\0' && stop != core.c_str();
}

bool same_token(const std::string& a, const std::string& b, double tol) {
  if (a == b) return true;
  double x, y;
  if (!as_number(a, x) || !as_number(b, y)) return false;
  if (std::isnan(x) || std::isnan(y)) return std::isnan(x) && std::isnan(y);
  return std::fabs(x - y) <= tol * std::fmax(std::fabs(x), std::fabs(y)) + 1e-300;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: compare_output <program> <expected-file>\n";
    return 2;
  }
  std::ifstream ef(argv[2]);
  if (!ef) {
    std::cerr << "cannot read " << argv[2] << "\n";
    return 2;
  }
  std::stringstream es;
  es << ef.rdbuf();
  std::vector<std::string> expected = split_lines(es.str());
  double tol = 1e-6;
  if (!expected.empty() && expected.front().rfind("#tolerance ", 0) == 0) {
    tol = std::strtod(expected.front().c_str() + 11, nullptr);
    expected.erase(expected.begin());
  }

  std::string cmd = std::string("\"") + argv[1] + "\"";
  FILE* pipe = popen(cmd.c_str(), "r");
  if (!pipe) {
    std::cerr << "cannot run " << argv[1] << "\n";
    return 2;
  }
  std::string output;
  char buf[4096];
  for (std::size_t n; (n = std::fread(buf, 1, sizeof buf, pipe)) > 0;) output.append(buf, n);
  int status = pclose(pipe);
  if (status != 0) {
    std::cerr << "example exited with status " << status << "\n" << output;
    return 1;
  }

  std::vector<std::string> actual = split_lines(output);
  bool ok = actual.size() == expected.size();
  for (std::size_t i = 0; ok && i < actual.size(); ++i) {
    auto a = tokens(actual[i]), e = tokens(expected[i]);
    ok = a.size() == e.size();
    for (std::size_t j = 0; ok && j < a.size(); ++j) ok = same_token(a[j], e[j], tol);
    if (!ok)
      std::cerr << "line " << i + 1 << " differs:\n  expected: " << expected[i]
                << "\n  actual:   " << actual[i] << "\n";
  }
  if (!ok && actual.size() != expected.size())
    std::cerr << "expected " << expected.size() << " lines, got " << actual.size() << "\n";
  if (!ok) std::cerr << "---- actual output ----\n" << output;
  return ok ? 0 : 1;
}
