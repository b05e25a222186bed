// Reading the reference tables made by make_reference.py and measuring
// errors in units of the last place of the reference value.
#pragma once

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace specfun_test {

struct Row {
  std::vector<double> args;
  std::vector<long double> values;
};

inline std::vector<Row> load(const std::string& name, std::size_t nargs) {
  std::vector<Row> rows;
  std::ifstream in(std::string(ZIL_TEST_DATA_DIR) + "/" + name + ".txt");
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream ls(line);
    Row r;
    std::string tok;
    while (ls >> tok) {
      if (r.args.size() < nargs)
        r.args.push_back(std::strtod(tok.c_str(), nullptr));
      else
        r.values.push_back(std::strtold(tok.c_str(), nullptr));
    }
    rows.push_back(r);
  }
  return rows;
}

// The spacing of doubles at |v| (normal range; subnormals share 2^-1074).
inline long double ulp_of(long double v) {
  v = std::fabs(v);
  if (v < DBL_MIN) return std::ldexp(1.0L, -1074);
  int e;
  std::frexp(v, &e);
  return std::ldexp(1.0L, e - 53);
}

// The error of got against ref in units of the last place of scale, where
// scale is |ref| unless the caller names a larger magnitude (the size of the
// terms that cancel near a zero of the function).
inline double ulps(double got, long double ref, long double scale = 0.0L) {
  if (std::isnan(got)) return INFINITY;
  const long double s = std::fmax(std::fabs(ref), std::fabs(scale));
  return static_cast<double>(std::fabs(static_cast<long double>(got) - ref) / ulp_of(s));
}

struct Worst {
  double ulps = 0.0;
  double at = 0.0;
  void see(double e, double x) {
    if (e > ulps) {
      ulps = e;
      at = x;
    }
  }
};

}  // namespace specfun_test
