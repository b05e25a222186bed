// Permutations held in Integer arrays: checking, inverting in place and
// applying to a vector, without storage beyond one element.
//
// An array p[0..n) holds the values first .. first+n-1, each once.  While
// the cycles of p are walked, a mark on each entry tells the positions not
// yet visited.  The public routines count from 0, so a mark cannot be a
// sign; it is bit 30, which no legal entry uses because n < 2^28.  The inner
// routines count from 1 and mark by negation, which leaves the whole Integer
// range to their values.
#pragma once

#include <cstdint>

#include "zil_types.h"

namespace zil::sort {

struct Bit30Mark {
  static constexpr Integer kBit = 0x40000000;
  static Integer value(Integer v) { return v & ~kBit; }
  static bool marked(Integer v) { return (v & kBit) != 0; }
  static Integer mark(Integer v) { return v | kBit; }
};

struct SignMark {
  static Integer value(Integer v) { return v < 0 ? -v : v; }
  static bool marked(Integer v) { return v < 0; }
  static Integer mark(Integer v) { return -v; }
};

struct PermFault {
  enum Kind { None, OutOfRange, Repeated } kind = None;
  Integer pos = 0;    // position of the offending entry
  Integer value = 0;  // its value
  explicit operator bool() const { return kind != None; }
};

// Checks that p holds a permutation and marks every entry.  Duplicates are
// found before anything is walked, so that a failure leaves p (and whatever
// vector the permutation was meant for) as it was.
template <class Mark>
PermFault mark_permutation(Integer* p, Integer n, Integer first) {
  for (Integer i = 0; i < n; ++i) {
    const std::int64_t t = std::int64_t{p[i]} - first;
    if (t < 0 || t >= n) return {PermFault::OutOfRange, i, p[i]};
  }
  for (Integer i = 0; i < n; ++i) {
    const Integer v = Mark::value(p[i]);
    Integer& target = p[v - first];
    if (Mark::marked(target)) {
      for (Integer k = 0; k < n; ++k) p[k] = Mark::value(p[k]);
      return {PermFault::Repeated, i, v};
    }
    target = Mark::mark(target);
  }
  return {};
}

// Replaces a marked permutation by its inverse.
template <class Mark>
void invert_marked(Integer* p, Integer n, Integer first) {
  for (Integer s = 0; s < n; ++s) {
    if (!Mark::marked(p[s])) continue;
    Integer from = s, to = Mark::value(p[s]) - first;
    for (;;) {
      const Integer next = Mark::value(p[to]) - first;
      p[to] = from + first;
      if (to == s) break;
      from = to;
      to = next;
    }
  }
}

// Gathers a vector by a marked permutation, element k taking the element
// that stood at p[k]: slots.save(i) keeps element i aside, slots.move(d, s)
// copies element s to d and slots.restore(i) puts the kept one at i.
template <class Mark, class Slots>
void gather_marked(Integer* p, Integer n, Integer first, Slots& slots) {
  for (Integer s = 0; s < n; ++s) {
    if (!Mark::marked(p[s])) continue;
    slots.save(s);
    for (Integer j = s;;) {
      const Integer src = Mark::value(p[j]) - first;
      p[j] = src + first;
      if (src == s) {
        slots.restore(j);
        break;
      }
      slots.move(j, src);
      j = src;
    }
  }
}

// Scatters a vector by a marked permutation, element i going to position
// p[i], by exchanges alone: the element due next waits at the cycle's start.
template <class Mark, class Exchange>
void scatter_marked(Integer* p, Integer n, Integer first, Exchange&& exchange) {
  for (Integer s = 0; s < n; ++s) {
    if (!Mark::marked(p[s])) continue;
    Integer j = Mark::value(p[s]) - first;
    p[s] = Mark::value(p[s]);
    while (j != s) {
      exchange(s, j);
      const Integer next = Mark::value(p[j]) - first;
      p[j] = Mark::value(p[j]);
      j = next;
    }
  }
}

}  // namespace zil::sort
