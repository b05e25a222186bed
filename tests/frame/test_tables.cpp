// The failure-code table zil_errlist and the lookups x04mac, x04mbc, x04mcc.
//
// The names and values are checked against the documented lists kept in
// data/ (error_codes.txt, enum_constants.txt), and the quoted formats against
// texts copied from the documentation, never against the table itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "zil_enums.h"
#include "zil_errors.h"

namespace {

constexpr Integer kNotFound = -5438;

struct Row {
  std::string name;  // empty for an unassigned position
  Integer value;
};

// Reads a list of lines "first: name, name, ...", each name one higher than
// the one before it; '#' lines are comments and "(...)" marks a gap.
std::vector<Row> read_list(const char *file) {
  std::ifstream in(std::string(ZIL_TEST_DATA_DIR) + "/" + file);
  EXPECT_TRUE(in) << file;
  std::vector<Row> rows;
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    const auto colon = line.find(": ");
    Integer value = std::stoi(line.substr(0, colon));
    std::stringstream names(line.substr(colon + 2));
    std::string name;
    while (std::getline(names, name, ',')) {
      name.erase(0, name.find_first_not_of(' '));
      name.erase(name.find_last_not_of(' ') + 1);
      rows.push_back({name[0] == '(' ? std::string() : name, value++});
    }
  }
  return rows;
}

const std::vector<Row> &error_codes() {
  static const std::vector<Row> rows = read_list("error_codes.txt");
  return rows;
}

const std::vector<Row> &enum_constants() {
  static const std::vector<Row> rows = read_list("enum_constants.txt");
  return rows;
}

// The codes whose entries carry the option file's line in their head.
bool is_line_code(const std::string &name) {
  static const std::set<std::string> names = {"ZE_INVALID_OPTION", "ZE_FIELD_UNKNOWN",
                                              "ZE_INVALID_OPTION_NAME", "ZE_INVALID_VALUE",
                                              "ZE_NO_VALUE"};
  return names.count(name) != 0;
}

// ---- The table against the documented list of codes ----------------------

TEST(ErrorTable, ListHasEveryCodeOnceInOrder) {
  const auto &codes = error_codes();
  ASSERT_EQ(codes.size(), 726u);
  for (std::size_t i = 0; i < codes.size(); ++i) EXPECT_EQ(codes[i].value, static_cast<Integer>(i));
  EXPECT_TRUE(codes[716].name.empty());
}

TEST(ErrorTable, EveryEntryBeginsWithItsOwnHead) {
  int line_heads = 0;
  for (const auto &[name, code] : error_codes()) {
    const std::string entry = zil_errlist[code];
    if (name.empty()) {
      EXPECT_EQ(entry, "") << "unassigned code " << code;
      continue;
    }
    const std::string head = name + (is_line_code(name) ? " (line %1ld):\n  " : ":\n  ");
    line_heads += is_line_code(name);
    EXPECT_EQ(entry.compare(0, head.size(), head), 0) << code << ": " << entry;
    EXPECT_GT(entry.size(), head.size()) << code << " has no body";
  }
  EXPECT_EQ(line_heads, 5);
}

TEST(ErrorTable, WarningsAreTheDocumentedThirtyEight) {
  const std::set<Integer> expected = {129, 130, 131, 185, 242, 246, 251, 258, 260, 288,
                                      292, 293, 294, 295, 301, 314, 317, 318, 320, 321,
                                      322, 324, 333, 334, 336, 350, 352, 463, 464, 689,
                                      690, 691, 692, 693, 694, 695, 696, 711};
  ASSERT_EQ(expected.size(), 38u);
  std::set<Integer> found;
  for (Integer code = 0; code < ZIL_ERRLIST_SIZE; ++code) {
    if (std::strncmp(zil_errlist[code], "ZW_", 3) == 0) found.insert(code);
    else if (code != 716) EXPECT_EQ(std::strncmp(zil_errlist[code], "ZE_", 3), 0) << code;
  }
  EXPECT_EQ(found, expected);
}

TEST(ErrorTable, EnumeratorsStandAtTheirCodes) {
  EXPECT_EQ(ZE_NOERROR, 0);
  EXPECT_EQ(ZE_ALLOC_FAIL, 73);
  EXPECT_EQ(ZE_INTERNAL_ERROR, 74);
  EXPECT_EQ(ZE_INVALID_ENUM_RANGE, 298);
  EXPECT_EQ(ZE_SINGULAR, 366);
  EXPECT_EQ(ZE_POS_DEF, 577);
  EXPECT_EQ(ZE_S21_CONV, 715);
  EXPECT_EQ(ZE_INT_ARRAY, 717);
  EXPECT_EQ(ZE_TOO_CLOSE_INTEGER, 725);
}

// Formats quoted in the documentation, with the heads they are given there.
TEST(ErrorTable, QuotedFormatsAreExact) {
  const struct {
    Integer code;
    const char *format;
  } quoted[] = {
      {0, "ZE_NOERROR:\n  No error."},
      {3, "ZE_TOO_MANY:\n  Too many iterations (%ld)."},
      {5, "ZE_REAL_ARG_LT:\n  On entry, %s must not be less than %s: %s = %g."},
      {9, "ZE_REAL_ARG_CONS:\n  On entry, %s = %g. \n  This parameter must satisfy %s."},
      {12, "ZE_INT_ARG_LE:\n  On entry, %s must not be less than or equal to %s: %s = %ld."},
      {17, "ZE_2_INT_ARG_LT:\n  On entry, %s = %2ld while %s = %2ld.\n  These parameters must satisfy %s >= %s."},
      {21, "ZE_2_INT_ARG_ZERO:\n  On entry, %s = 0 and  %s = 0.\n  These parameters must not be identically zero."},
      {27, "ZE_2_REAL_ARG_TOO_CLOSE:\n  On entry, %s = %g while %s = %g.\n  These parameters must satisfy abs(%s-%s) %s %g."},
      {29, "ZE_3_INT_ARG_CONS:\n  On entry, %s = %ld, %s = %ld and %s = %ld.\n  These parameters must satisfy %s."},
      {40, "ZE_INVALID_INT_RANGE_2:\n  Value %1ld given to %s is not valid.\n  Correct range is %1ld %s %1ld."},
      {47, "ZE_INVALID_REAL_RANGE_CONS:\n  Value %g given to %s is not valid.\n  The parameter %s must satisfy %s."},
      {54, "ZE_INT_ARRAY_2:\n  Value %1ld given to %s[%1ld] not valid.\n  Correct range for elements of %s is %1ld %s %1ld."},
      {55, "ZE_REAL_ARRAY_INPUT:\n  On entry, %s[%ld] = %g.\n  Constraint: %s[%ld] %s %g."},
      {63, "ZE_NOT_STRICTLY_INCREASING:\n  The sequence %s is not strictly increasing:\n  %s[%1ld] = %g, %s[%1ld] = %g."},
      {68, "ZE_USER_STOP:\n  User requested termination, user flag value = %1ld."},
      {72, "ZE_ARG_INVALID:\n  On entry, %s = %1ld.\n Constraint: %s must be one of %s."},
      {74, "ZE_INTERNAL_ERROR:\n  An internal error has occurred in this function.\n  Check the function call and any array sizes. If the call is correct\n  then please consult ZIL for assistance."},
      {81, "ZE_STRUCT_CORRUPT:\n  The structure %s has been corrupted since the previous call to %s."},
      {110, "ZE_CONSTRAINT:\n   General constraint: %s"},
      {111, "ZE_COMPLEX:\n  On entry, %s = ( %g, %g ).\n  Constraint: %s."},
      {126, "ZE_REAL_MACH_PREC:\n  On entry, %s = %g, machine precision(X02AJC) = %g.\n  Constraint: %s."},
      {129, "ZW_INT:\n  On exit, %s = %ld.\n  Trivial solution returned."},
      {139, "ZE_FUNC_END_VAL:\n  On entry, f(%s) and f(%s) have the same sign, with f(%s) != 0.0."},
      {298, "ZE_INVALID_ENUM_RANGE:\n  Enum value %s given to %s is\n  not valid for this function."},
      {391, "ZE_INVALID_FORMAT:\n  The string \"%s\",\n  has not been recognised as a valid format."},
      {392, "ZE_COL_WIDTH:\n  %s is not wide enough \n  to hold at least one matrix column:\n  %s = %16ld, %s =%16ld."},
      // Bodies quoted by the chapters that raise them.
      {141, "ZE_XTOL_TOO_SMALL:\n  No further improvement in the solution is possible.\n  xtol is too small: xtol = %11.5e."},
      {148, "ZE_C06_NOT_TRIG:\n  Value of %s and %s array are incompatible\n  or %s array not initialized."},
      {161, "ZE_QUAD_MAX_SUBDIV_SPEC_INT:\n  The maximum number of subdivisions has been reached,\n  %s = %1ld on the %1ld %s interval\n  interval_flag[%1ld] = %1ld over sub-interval (%14.7e, %14.7e)."},
      {233, "ZE_RK_PDC_GLOBAL_ERROR_T:\n  The global error assessment may not be reliable for t past %s.\n  %s = %12.5e\n."},
      {242, "ZW_RK_TOO_MANY:\n   %ld function evaluations have been used to compute the \n  solution since the integration started or since this message was last \n  printed."},
      {282, "ZE_INVALID_OPTION (line %1ld):\n  %s cannot be assigned to using an options file."},
      {294, "ZW_TOO_MANY_ITER:\n  The maximum number of iterations, %1ld, have been performed."},
      {326, "ZE_STR_UNKNOWN:\n  string supplied, %s, does not match name of any\n  pointer in the options structure.\n"},
      {338, "ZE_OBJ_BOUND:\n  Invalid %s bound for objective row. Bound should be %s %1g."},
      {565, "ZE_STATE_CORRUPT:\n  istate or xstate has been corrupted since the previous call to \n  zil_save_random_state (g05cfc)."},
  };
  for (const auto &q : quoted) EXPECT_STREQ(zil_errlist[q.code], q.format) << "code " << q.code;
}

// The families whose formats are built on stated rules.
TEST(ErrorTable, ValueListFamiliesFollowTheirRule) {
  const auto family = [](const std::string &lead, const char *value, int pairs) {
    std::string body = "On entry, " + lead;
    for (int i = 0; i < pairs; ++i) body += (i || !lead.empty() ? ", " : "") + std::string("%s = ") + value;
    return body + ".\n  Constraint: %s.";
  };
  const Integer int_codes[] = {ZE_INT, ZE_INT_2, ZE_INT_3, ZE_INT_4, ZE_INT_5, ZE_INT_6};
  const Integer real_codes[] = {ZE_REAL, ZE_REAL_2, ZE_REAL_3, ZE_REAL_4, ZE_REAL_5, ZE_REAL_6};
  const Integer enum_int_codes[] = {ZE_ENUM_INT, ZE_ENUM_INT_2, ZE_ENUM_INT_3, ZE_ENUM_INT_4};
  const Integer enum_real_codes[] = {ZE_ENUM_REAL_1, ZE_ENUM_REAL_2, ZE_ENUM_REAL_3, ZE_ENUM_REAL_4};
  const auto body = [](Integer code) { return std::string(std::strstr(zil_errlist[code], ":\n  ") + 4); };
  for (int k = 1; k <= 6; ++k) {
    EXPECT_EQ(body(int_codes[k - 1]), family("", "%ld", k)) << "ZE_INT, " << k;
    EXPECT_EQ(body(real_codes[k - 1]), family("", "%g", k)) << "ZE_REAL, " << k;
  }
  for (int k = 1; k <= 4; ++k) {
    EXPECT_EQ(body(enum_int_codes[k - 1]), family("%s = %s", "%ld", k)) << "ZE_ENUM_INT, " << k;
    EXPECT_EQ(body(enum_real_codes[k - 1]), family("%s = %s", "%g", k)) << "ZE_ENUM_REAL, " << k;
  }
}

TEST(ErrorTable, TwoArgumentChecksPrintTheNegatedRelation) {
  const struct {
    Integer int_code, real_code;
    const char *relation;
  } rows[] = {{ZE_2_INT_ARG_EQ, ZE_2_REAL_ARG_EQ, "!="}, {ZE_2_INT_ARG_LT, ZE_2_REAL_ARG_LT, ">="},
              {ZE_2_INT_ARG_LE, ZE_2_REAL_ARG_LE, ">"},  {ZE_2_INT_ARG_GT, ZE_2_REAL_ARG_GT, "<="},
              {ZE_2_INT_ARG_GE, ZE_2_REAL_ARG_GE, "<"}};
  for (const auto &r : rows) {
    const std::string tail = std::string(".\n  These parameters must satisfy %s ") + r.relation + " %s.";
    EXPECT_STREQ(std::strstr(zil_errlist[r.int_code], "On entry"),
                 ("On entry, %s = %2ld while %s = %2ld" + tail).c_str());
    EXPECT_STREQ(std::strstr(zil_errlist[r.real_code], "On entry"),
                 ("On entry, %s = %g while %s = %g" + tail).c_str());
  }
}

TEST(ErrorTable, RangeLettersShareTheirFormats) {
  const auto body = [](Integer code) { return std::string(std::strchr(zil_errlist[code], '\n')); };
  EXPECT_EQ(body(ZE_INVALID_REAL_RANGE_E), body(ZE_INVALID_REAL_RANGE_F));
  for (Integer code : {ZE_INVALID_REAL_RANGE_EF, ZE_INVALID_REAL_RANGE_FE, ZE_INVALID_REAL_RANGE_FF})
    EXPECT_EQ(body(code), body(ZE_INVALID_REAL_RANGE_EE)) << code;
}

// ---- Conversions and sizes -------------------------------------------------

struct Conversion {
  std::string written;  // as written, from '%' to the conversion letter
  std::size_t offset = 0;
  int width = 0;
  int precision = -1;
  bool is_long = false;
  char letter = 0;
};

// Splits a format into its conversions; false if one is malformed.
bool parse_conversions(const char *format, std::vector<Conversion> &out) {
  for (const char *p = format; *p; ++p) {
    if (*p != '%') continue;
    Conversion c;
    const char *start = p++;
    while (*p && std::strchr("-+ #0", *p)) ++p;
    while (std::isdigit(static_cast<unsigned char>(*p))) c.width = c.width * 10 + (*p++ - '0');
    if (*p == '.') {
      c.precision = 0;
      ++p;
      while (std::isdigit(static_cast<unsigned char>(*p))) c.precision = c.precision * 10 + (*p++ - '0');
    }
    if (*p == 'l') {
      c.is_long = true;
      ++p;
    }
    if (!*p) return false;
    c.letter = *p;
    c.written.assign(start, p + 1);
    c.offset = static_cast<std::size_t>(start - format);
    out.push_back(c);
  }
  return true;
}

// The rule of this table: integers are passed as long and printed with the
// l modifier (%ld, %1ld, %2ld, %16ld); strings with %s; reals with %g, %e or
// %f.  A bare %d would read an int where a long was passed.
TEST(ErrorTable, ConversionsAreOfTheLibrarysKinds) {
  for (Integer code = 0; code < ZIL_ERRLIST_SIZE; ++code) {
    std::vector<Conversion> convs;
    ASSERT_TRUE(parse_conversions(zil_errlist[code], convs)) << code;
    for (const auto &c : convs) {
      const bool integer = c.is_long && c.letter == 'd' && c.precision < 0;
      const bool text = !c.is_long && c.letter == 's';
      const bool real = !c.is_long && std::strchr("gef", c.letter) != nullptr;
      EXPECT_TRUE(integer || text || real) << "code " << code << ": " << c.written;
    }
  }
}

// A bound on what a conversion prints for a sensible argument: a name or a
// limit of up to 24 characters, any long, a real of at most ten digits before
// the point for %f.  A constraint written out as text, the last conversion in
// "Constraint: %s." and its kin, may take 128 characters.
int printed_bound(const Conversion &c, bool constraint_text) {
  int n = 0;
  switch (c.letter) {
    case 's': n = constraint_text ? 128 : 24; break;
    case 'd': n = 11; break;  // -2147483648, or any long of that size
    case 'g': n = 7 + std::max(c.precision, 6); break;
    case 'e': n = 8 + (c.precision < 0 ? 6 : c.precision); break;
    case 'f': n = 12 + (c.precision < 0 ? 6 : c.precision); break;
  }
  return std::max(n, c.width);
}

bool ends_with_constraint_text(const std::string &format, const Conversion &last) {
  const std::string tail = format.substr(last.offset);
  if (tail != "%s" && tail != "%s.") return false;
  const std::string before = format.substr(0, last.offset);
  for (const char *lead : {"Constraint: ", "constraint: ", "satisfy ", "one of "}) {
    const std::size_t n = std::strlen(lead);
    if (before.size() >= n && before.compare(before.size() - n, n, lead) == 0) return true;
  }
  return false;
}

TEST(ErrorTable, MessagesFitTheFailureRecord) {
  for (Integer code = 0; code < ZIL_ERRLIST_SIZE; ++code) {
    const std::string format = zil_errlist[code];
    std::vector<Conversion> convs;
    ASSERT_TRUE(parse_conversions(format.c_str(), convs));
    int printed = static_cast<int>(format.size());
    for (const auto &c : convs) {
      const bool text = &c == &convs.back() && ends_with_constraint_text(format, c);
      printed += printed_bound(c, text) - static_cast<int>(c.written.size());
    }
    // The longest format documented has 424 characters.
    EXPECT_LE(format.size(), 424u) << code;
    EXPECT_LT(printed, static_cast<int>(sizeof(ZilError{}.message))) << code << ": " << format;
  }
}

// ---- x04mbc ----------------------------------------------------------------

TEST(CodeNames, EveryNameGivesItsCode) {
  int named = 0;
  for (const auto &[name, code] : error_codes()) {
    if (name.empty()) continue;
    EXPECT_EQ(x04mbc(name.c_str()), code) << name;
    ++named;
  }
  EXPECT_EQ(named, 725);
  EXPECT_EQ(x04mbc("ZE_NOERROR"), 0);
}

TEST(CodeNames, OtherTextsAreNotFound) {
  EXPECT_EQ(x04mbc(nullptr), kNotFound);
  EXPECT_EQ(x04mbc(""), kNotFound);  // the unassigned code has no name
  EXPECT_EQ(x04mbc("ze_noerror"), kNotFound);
  EXPECT_EQ(x04mbc("ZE_NOERRO"), kNotFound);
  EXPECT_EQ(x04mbc("ZE_NOERROR:"), kNotFound);
  EXPECT_EQ(x04mbc("ZE_INVALID_OPTION (line %1ld)"), kNotFound);
  EXPECT_EQ(x04mbc("ZE_INVALID_OPTION"), ZE_INVALID_OPTION);
  EXPECT_EQ(x04mbc("Zil_NoTrans"), kNotFound);
}

// ---- x04mac and x04mcc ------------------------------------------------------

TEST(EnumNames, ListHasTheDocumentedShape) {
  const auto &rows = enum_constants();
  ASSERT_EQ(rows.size(), 665u);
  std::set<Integer> values;
  for (const auto &r : rows) values.insert(r.value);
  EXPECT_EQ(values.size(), 665u);
  EXPECT_EQ(*values.begin(), 101);
  EXPECT_EQ(*values.rbegin(), 1626);
}

TEST(EnumNames, NamesAndValuesRoundTrip) {
  char buffer[64];
  for (const auto &[name, value] : enum_constants()) {
    EXPECT_EQ(x04mac(name.c_str()), value) << name;
    EXPECT_EQ(x04mcc(value, buffer), buffer);
    EXPECT_EQ(std::string(buffer), name) << value;
  }
}

TEST(EnumNames, HeaderConstantsHaveTheDocumentedValues) {
  EXPECT_EQ(NoTranspose, 1001);
  EXPECT_EQ(HermitianLower, 1026);
  EXPECT_EQ(Zil_RowMajor, 101);
  EXPECT_EQ(Zil_ColMajor, 102);
  EXPECT_EQ(Zil_NoTrans, 111);
  EXPECT_EQ(Zil_UnitDiag, 132);
  EXPECT_EQ(Zil_JrotSorted, 203);
  EXPECT_EQ(Zil_InitQ, 1027);
  EXPECT_EQ(Zil_NoPrint, 1125);
  EXPECT_EQ(Zil_LowerTail, 1329);
  EXPECT_EQ(Zil_Ascending, 1597);
  EXPECT_EQ(Zil_QuasiRandom_Nied, 1626);
}

TEST(EnumNames, ValuesOutsideTheTableAreUnknown) {
  std::set<Integer> known;
  for (const auto &r : enum_constants()) known.insert(r.value);
  char buffer[64];
  for (Integer value = -1; value <= 2000; ++value) {
    if (known.count(value)) continue;
    std::memset(buffer, 'x', sizeof buffer);
    ASSERT_EQ(x04mcc(value, buffer), buffer);
    EXPECT_STREQ(buffer, "unknown_enum_value") << value;
  }
  EXPECT_STREQ(x04mcc(kNotFound, buffer), "unknown_enum_value");
}

TEST(EnumNames, DocumentedEdgeCases) {
  char buffer[64];
  EXPECT_EQ(x04mac("Transpose"), 1002);
  EXPECT_EQ(x04mac("Zil_Trans"), 112);
  EXPECT_EQ(x04mac("zil_trans"), kNotFound);
  EXPECT_EQ(x04mac("ZIL_TRANS"), kNotFound);
  EXPECT_EQ(x04mac("Zil_Trans "), kNotFound);
  EXPECT_EQ(x04mac(""), kNotFound);
  EXPECT_EQ(x04mac(nullptr), kNotFound);
  EXPECT_EQ(x04mac("ZE_NOERROR"), kNotFound);
  EXPECT_STREQ(x04mcc(100, buffer), "unknown_enum_value");
  EXPECT_STREQ(x04mcc(1627, buffer), "unknown_enum_value");
  EXPECT_EQ(x04mcc(Zil_Trans, nullptr), nullptr);
}

// The longest name and its terminator fit the 28 characters that the header
// asks of a buffer.
TEST(EnumNames, LongestNameFitsTheStatedBuffer) {
  std::size_t longest = 0;
  for (const auto &r : enum_constants()) longest = std::max(longest, r.name.size());
  EXPECT_EQ(longest + 1, 28u);
}

}  // namespace
