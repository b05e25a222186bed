// The inner sorting routines: sections of real, integer and character
// vectors, with the ifail convention.
#include "sort/inner.hpp"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "frame/inner.hpp"
#include "sort/detail/generators.hpp"
#include "sort/detail/permute.hpp"
#include "sort/detail/quicksort.hpp"
#include "sort/detail/rank.hpp"

namespace zil {

namespace {

using Lines = std::vector<std::string>;

// The checks every routine makes on its section, in order; 0 when it is
// valid, else the failure number with its message in `lines`.
Integer check_section(Integer m1, Integer m2, Lines& lines) {
  if (m2 < 1) {
    lines = edit_format("(' ** On entry, M2 .lt. 1: M2 =',I16,'.')", m2);
  } else if (m1 < 1) {
    lines = edit_format("(' ** On entry, M1 .lt. 1: M1 =',I16,'.')", m1);
  } else if (m1 > m2) {
    lines = edit_format("(' ** On entry, M1 .gt. M2:',/,4X,'M1 =',I16,', M2 =',I16,'.')", m1, m2);
  } else {
    return 0;
  }
  return 1;
}

// The order letter: 'A' or 'D' in either case, anything else null.
char order_letter(const char* order) {
  const char c = order ? order[0] : '\0';
  if (c == 'A' || c == 'a') return 'A';
  if (c == 'D' || c == 'd') return 'D';
  return '\0';
}

// The checks of the routines that take an order letter, with the by-value
// forms' and the by-reference forms' wording of a bad letter.
enum class Form { ByValue, ByReference };
Integer check_sorting(Integer m1, Integer m2, const char* order, Form form, Lines& lines) {
  if (Integer ierr = check_section(m1, m2, lines)) return ierr;
  if (order_letter(order)) return 0;
  const char* shown = order ? order : "";
  if (form == Form::ByValue) {
    char text[kMessageSize];
    format_into(text, " ** On entry, ORDER has an illegal value: ORDER = %1.1s\n", shown);
    lines = {text};
  } else {
    lines = edit_format("(' ** On entry, ORDER has an illegal value: ORDER = ',A1)", shown);
  }
  return 2;
}

// A rank array that is no permutation of m1 to m2.
Integer permutation_failure(const sort::PermFault& fault, Integer m1, const char* name, Lines& lines) {
  if (fault.kind == sort::PermFault::OutOfRange) {
    lines = edit_format("(' ** On entry, ',A,' is not a permutation of M1 to M2:',/,4X,A,'(I) =',I11,' for I =',I11,'.')",
                        name, name, fault.value, m1 + fault.pos);
    return 2;
  }
  lines = edit_format("(' ** On entry, ',A,' is not a permutation of M1 to M2:',/,4X,'the value',I11,' occurs more than once.')",
                      name, fault.value);
  return 3;
}

// The two ways out: the by-value reporter takes one text, the by-reference
// one the lines.
void exit_by_value(Integer* ifail, Integer ierr, const char* srname, const Lines& lines) {
  std::string text;
  for (const auto& line : lines) {
    if (!text.empty() && text.back() != '\n') text += '\n';
    text += line;
  }
  *ifail = inner_exit_f(*ifail, ierr, srname, text.c_str());
}

void exit_by_reference(Integer* ifail, Integer ierr, const char* srname, const Lines& lines) {
  *ifail = inner_exit_r(*ifail, ierr, srname, lines);
}

// The sort of m01caf_f and m01cbf: the pivot generator restarts from its
// fixed seeds at every call, so these routines are free of shared state.
template <class T>
void sort_section(T* a, Integer m1, Integer m2, const char* order) {
  sort::WichmannHill rng;
  T* section = a + (m1 - 1);
  const Integer n = m2 - m1 + 1;
  sort::quicksort(section, n, rng);
  if (order_letter(order) == 'D') sort::reverse(section, n);
}

template <class T>
void rank_section(const T* a, Integer m1, Integer m2, const char* order, Integer* irank) {
  const T* section = a + (m1 - 1);
  const bool descending = order_letter(order) == 'D';
  sort::merge_rank(
      irank + (m1 - 1), m2 - m1 + 1,
      [&](Integer x, Integer y) { return descending ? section[y] < section[x] : section[x] < section[y]; },
      m1);
}

// Checks irank(m1:m2) and moves element i to irank(i); exchange(i, j) swaps
// elements m1 + i and m1 + j.
template <class Exchange>
Integer scatter_section(Integer m1, Integer m2, Integer* irank, const char* name, Lines& lines,
                        Exchange&& exchange) {
  if (Integer ierr = check_section(m1, m2, lines)) return ierr;
  Integer* p = irank + (m1 - 1);
  const Integer n = m2 - m1 + 1;
  if (auto fault = sort::mark_permutation<sort::SignMark>(p, n, m1))
    return permutation_failure(fault, m1, name, lines);
  sort::scatter_marked<sort::SignMark>(p, n, m1, exchange);
  return 0;
}

}  // namespace

void m01caf_f(double rv[], Integer m1, Integer m2, const char* order, Integer* ifail) {
  Lines lines;
  const Integer ierr = check_sorting(m1, m2, order, Form::ByValue, lines);
  if (ierr == 0) sort_section(rv, m1, m2, order);
  exit_by_value(ifail, ierr, "m01caf_f", lines);
}

void m01cbf(Integer iv[], const Integer* m1, const Integer* m2, const char* order, Integer* ifail) {
  Lines lines;
  const Integer ierr = check_sorting(*m1, *m2, order, Form::ByReference, lines);
  if (ierr == 0) sort_section(iv, *m1, *m2, order);
  exit_by_reference(ifail, ierr, "M01CBF", lines);
}

void m01daf_f(const double rv[], Integer m1, Integer m2, const char* order, Integer irank[],
              Integer* ifail) {
  Lines lines;
  const Integer ierr = check_sorting(m1, m2, order, Form::ByValue, lines);
  if (ierr == 0) rank_section(rv, m1, m2, order, irank);
  exit_by_value(ifail, ierr, "m01daf_f", lines);
}

void m01dbf(const Integer iv[], const Integer* m1, const Integer* m2, const char* order,
            Integer irank[], Integer* ifail) {
  Lines lines;
  const Integer ierr = check_sorting(*m1, *m2, order, Form::ByReference, lines);
  if (ierr == 0) rank_section(iv, *m1, *m2, order, irank);
  exit_by_reference(ifail, ierr, "M01DBF", lines);
}

void m01eaf_f(double rv[], Integer m1, Integer m2, Integer irank[], Integer* ifail) {
  Lines lines;
  const Integer ierr = scatter_section(m1, m2, irank, "IRANK", lines, [&](Integer i, Integer j) {
    std::swap(rv[m1 - 1 + i], rv[m1 - 1 + j]);
  });
  exit_by_value(ifail, ierr, "m01eaf_f", lines);
}

void m01ebf(Integer iv[], const Integer* m1, const Integer* m2, Integer irank[], Integer* ifail) {
  Lines lines;
  const Integer ierr = scatter_section(*m1, *m2, irank, "IRANK", lines, [&](Integer i, Integer j) {
    std::swap(iv[*m1 - 1 + i], iv[*m1 - 1 + j]);
  });
  exit_by_reference(ifail, ierr, "M01EBF", lines);
}

void m01ecf(char ch[], const Integer* m1, const Integer* m2, Integer irank[], Integer* ifail,
            std::size_t ch_len) {
  Lines lines;
  const auto len = static_cast<std::ptrdiff_t>(ch_len);
  const Integer ierr = scatter_section(*m1, *m2, irank, "IRANK", lines, [&](Integer i, Integer j) {
    char* a = ch + (*m1 - 1 + i) * len;
    std::swap_ranges(a, a + len, ch + (*m1 - 1 + j) * len);
  });
  exit_by_reference(ifail, ierr, "M01ECF", lines);
}

void m01zaf_f(Integer iperm[], Integer m1, Integer m2, Integer* ifail) {
  Lines lines;
  Integer ierr = check_section(m1, m2, lines);
  if (ierr == 0) {
    Integer* p = iperm + (m1 - 1);
    const Integer n = m2 - m1 + 1;
    if (auto fault = sort::mark_permutation<sort::SignMark>(p, n, m1))
      ierr = permutation_failure(fault, m1, "IPERM", lines);
    else
      sort::invert_marked<sort::SignMark>(p, n, m1);
  }
  exit_by_value(ifail, ierr, "m01zaf_f", lines);
}

}  // namespace zil
