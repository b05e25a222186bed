// The streams of the exact model (model.py), read from data/streams.txt.
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "zil_types.h"

namespace zil_test {

struct ModelStream {
  std::string kind;  // "seeded", "default" or "wh"
  long id = 0;       // the seed, or the Wichmann-Hill row
  std::array<Integer, 4> start{};
  std::vector<std::uint64_t> x;                // base generator states
  std::vector<std::array<Integer, 4>> seeds;   // Wichmann-Hill states
  std::vector<double> u;
};

struct ModelEdge {
  std::uint64_t before;  // the state before the extreme one
  double u;
};

struct ModelClock {
  Integer fields[6];
  double cpu;
  Integer key, seed;
};

struct ModelData {
  std::vector<ModelStream> streams;
  std::vector<ModelEdge> edges;
  std::vector<ModelClock> clocks;

  const ModelStream& find(const std::string& kind, long id) const {
    for (const auto& s : streams)
      if (s.kind == kind && s.id == id) return s;
    std::abort();
  }
};

inline double hex_real(const std::string& t) { return std::strtod(t.c_str(), nullptr); }

inline const ModelData& model() {
  static const ModelData data = [] {
    ModelData d;
    std::ifstream in(ZIL_TEST_DATA_DIR "/streams.txt");
    std::string line;
    while (std::getline(in, line)) {
      std::istringstream head(line);
      std::string kind;
      head >> kind;
      if (kind == "seeded" || kind == "default" || kind == "wh") {
        ModelStream s;
        s.kind = kind;
        int n = 0;
        head >> s.id >> n;
        if (kind == "wh") head >> s.start[0] >> s.start[1] >> s.start[2] >> s.start[3];
        for (int i = 0; i < n && std::getline(in, line); ++i) {
          std::istringstream row(line);
          std::string u;
          if (kind == "wh") {
            std::array<Integer, 4> v{};
            row >> v[0] >> v[1] >> v[2] >> v[3] >> u;
            s.seeds.push_back(v);
          } else {
            std::uint64_t x = 0;
            row >> x >> u;
            s.x.push_back(x);
          }
          s.u.push_back(hex_real(u));
        }
        d.streams.push_back(std::move(s));
      } else if (kind == "edge") {
        ModelEdge e{};
        std::string u;
        head >> e.before >> u;
        e.u = hex_real(u);
        d.edges.push_back(e);
      } else if (kind == "clock") {
        ModelClock c{};
        for (Integer& f : c.fields) head >> f;
        head >> c.cpu >> c.key >> c.seed;
        d.clocks.push_back(c);
      }
    }
    return d;
  }();
  return data;
}

// The limbs of a 60-bit state, least significant first.
inline std::array<Integer, 4> limbs(std::uint64_t x) {
  return {static_cast<Integer>(x & 0x7FFF), static_cast<Integer>(x >> 15 & 0x7FFF),
          static_cast<Integer>(x >> 30 & 0x7FFF), static_cast<Integer>(x >> 45 & 0x7FFF)};
}

}  // namespace zil_test
