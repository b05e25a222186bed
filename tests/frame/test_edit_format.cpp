// The edit-descriptor formatter against gfortran's formatted output (a
// table made by tools/edit_format_reference.py), and the choices that are
// the library's own: left-justified A fields, NaN and INF, the line rule.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "frame/inner.hpp"

namespace {

using zil::EditArg;
using zil::edit_format;
using Lines = std::vector<std::string>;

std::vector<std::string> split(const std::string& s, char sep) {
  std::vector<std::string> parts;
  std::string part;
  std::istringstream in(s);
  while (std::getline(in, part, sep)) parts.push_back(part);
  if (!s.empty() && s.back() == sep) parts.emplace_back();
  return parts;
}

std::string unescape(const std::string& s) {
  std::string out;
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] == '%' && i + 2 < s.size()) {
      out += static_cast<char>(std::strtol(s.substr(i + 1, 2).c_str(), nullptr, 16));
      i += 2;
    } else {
      out += s[i];
    }
  }
  return out;
}

TEST(EditFormat, MatchesGfortranFormattedOutput) {
  std::ifstream in(ZIL_TEST_DATA_DIR "/edit_format_gfortran.tsv");
  ASSERT_TRUE(in) << "missing reference table";
  int cases = 0;
  for (std::string row; std::getline(in, row);) {
    if (row.empty() || row[0] == '#') continue;
    std::vector<std::string> fields = split(row, '\t');
    ASSERT_GE(fields.size(), 3u) << row;
    const std::string& format = fields[0];
    std::vector<std::string> tokens = fields[1].empty() ? std::vector<std::string>{} : split(fields[1], ' ');
    std::vector<std::string> texts;
    texts.reserve(tokens.size());
    std::vector<EditArg> args;
    for (const std::string& t : tokens) {
      const std::string v = t.substr(2);
      if (t[0] == 'I') {
        args.emplace_back(std::strtol(v.c_str(), nullptr, 10));
      } else if (t[0] == 'R') {
        args.emplace_back(std::strtod(v.c_str(), nullptr));
      } else {
        texts.push_back(unescape(v));
        args.emplace_back(texts.back().c_str());
      }
    }
    Lines expected(fields.begin() + 2, fields.end());
    EXPECT_EQ(edit_format(format.c_str(), args), expected) << "format " << format << " values " << fields[1];
    ++cases;
  }
  EXPECT_GT(cases, 2000);
}

TEST(EditFormat, InnerRecordFormsOfTheFailureReports) {
  // The record of s14acf for x - 1 = -1: under 1P one digit stands before the point.
  EXPECT_EQ(edit_format("(A,3(1X,I5),1X,1P,E13.5)", "S14ACF", 1, 99999, 1, -1.0),
            Lines{"S14ACF     1 99999     1  -1.00000E+00"});
  EXPECT_EQ(edit_format("(A,3(1X,I5))", "M01CAF", 1, 99999, 0), Lines{"M01CAF     1 99999     0"});
  EXPECT_EQ(edit_format("(' ** On entry, M1 .gt. M2:',/,4X,'M1 =',I16,', M2 =',I16,'.')", 5, 3),
            (Lines{" ** On entry, M1 .gt. M2:", "    M1 =               5, M2 =               3."}));
}

TEST(EditFormat, ScaleFactorStaysToTheEnd) {
  // 1P set once governs every later E field, also after a record break.
  EXPECT_EQ(edit_format("(1P,E12.4,/,E12.4)", 0.5, 1.25), (Lines{"  5.0000E-01", "  1.2500E+00"}));
  // and it carries into the reverted part of the format.
  EXPECT_EQ(edit_format("(1P,(E12.4))", 0.5, 1.25), (Lines{"  5.0000E-01", "  1.2500E+00"}));
}

TEST(EditFormat, ExponentFieldLimits) {
  EXPECT_EQ(edit_format("(E10.3)", 1.0e-200), Lines{" 0.100-199"});  // three digits drop the E
  EXPECT_EQ(edit_format("(E10.3)", 1.0e200), Lines{" 0.100+201"});
  EXPECT_EQ(edit_format("(E8.3)", -1.0), Lines{"********"});         // -.100E+01 needs 9
  EXPECT_EQ(edit_format("(E9.3)", -1.0), Lines{"-.100E+01"});         // the optional zero goes first
  EXPECT_EQ(edit_format("(E12.4)", 1.2345678), Lines{"  0.1235E+01"});  // nearest, last digit rounded up
  EXPECT_EQ(edit_format("(E12.2)", 0.125), Lines{"    0.12E+00"});    // an exact tie goes to even
  EXPECT_EQ(edit_format("(E12.4)", -0.0), Lines{" -0.0000E+00"});
}

TEST(EditFormat, GeneralFieldChoosesItsFormByTheExactRule) {
  // The double nearest 9.9995 lies below 9.9995, so rounded to four digits
  // it is 9.999 and keeps the fixed form with three decimals.
  EXPECT_EQ(edit_format("(G12.4)", 9.9995), Lines{"   9.999"});
  EXPECT_EQ(edit_format("(G12.4)", 9.99951), Lines{"   10.00"});
  EXPECT_EQ(edit_format("(G12.4)", 9999.6), Lines{"  0.1000E+05"});
  EXPECT_EQ(edit_format("(G12.4)", 0.0999949), Lines{"  0.9999E-01"});
  EXPECT_EQ(edit_format("(1P,G12.4)", 0.0999949), Lines{"  9.9995E-02"});
}

TEST(EditFormat, NonFiniteRealsPrintAsNaNAndINF) {
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(edit_format("('x',E12.4,F8.2,G10.3,1P,E9.2)", nan, inf, -inf, nan),
            Lines{"x         NaN     INF      -INF      NaN"});
  EXPECT_EQ(edit_format("(F2.0,E3.1)", inf, -inf), Lines{"*****"});
}

TEST(EditFormat, CharacterFields) {
  // A field wider than its text is filled on the right.
  EXPECT_EQ(edit_format("(A8,'|',A3,'|',A,'|')", "abc", "abcdef", "whole text"),
            Lines{"abc     |abc|whole text|"});
  EXPECT_EQ(edit_format("('it''s',1X,\"say \"\"hi\"\"\",1X,5Hhello)"), Lines{"it's say \"hi\" hello"});
}

TEST(EditFormat, LineRule) {
  // Cut at the width, trailing blanks dropped, at least one character kept.
  const std::string long_text(100, 'x');
  EXPECT_EQ(edit_format("(A)", std::span<const EditArg>(std::vector<EditArg>{long_text.c_str()}), 80),
            Lines{std::string(80, 'x')});
  EXPECT_EQ(edit_format("(A,'   ',/,10X,/,'end')", "a   "), (Lines{"a", " ", "end"}));
  EXPECT_EQ(edit_format("(' ')"), Lines{" "});
  EXPECT_EQ(edit_format("(60X,'abcdef')", std::span<const EditArg>{}, 63), Lines{std::string(60, ' ') + "abc"});
}

TEST(EditFormat, OutputStopsAtTheFirstDescriptorWithoutValue) {
  EXPECT_EQ(edit_format("(' N =',I5,' and M =',I5,'.')", 3), Lines{" N =    3 and M ="});
  EXPECT_EQ(edit_format("(' ** No value needed.')"), Lines{" ** No value needed."});
}

TEST(EditFormat, ValuesOfTheWrongKindFillTheirField) {
  EXPECT_EQ(edit_format("(I4,1X,A3,1X,E8.2)", 1.5, 7, "x"), Lines{"**** *** ********"});
  // An integer in a real field is taken as its real value.
  EXPECT_EQ(edit_format("(F6.2,G8.1)", 3, 4), Lines{"  3.00       4"});
}

}  // namespace
