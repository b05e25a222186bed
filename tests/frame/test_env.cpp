// Identification, complex arithmetic, constants of the arithmetic, the
// extended inner product and the clocks.
//
// Tolerances are in units of u = x02ajc(), the unit roundoff.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <limits>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "frame/env.hpp"
#include "zil.h"

namespace {

const double u = x02ajc();
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }

// Lines of a data file made by tools/make_env_refs.py, without comments.
std::vector<std::string> data_lines(const char* name) {
  std::ifstream in(std::string(ZIL_TEST_DATA_DIR) + "/" + name);
  EXPECT_TRUE(in.good()) << name;
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);)
    if (!line.empty() && line[0] != '#') lines.push_back(line);
  return lines;
}

// The check messages come from the code table; tests of them wait for it.
bool have_message(Integer code) { return zil_errlist[code] != nullptr; }
#define REQUIRE_MESSAGE(code) \
  if (!have_message(code)) GTEST_SKIP() << "message table has no text for code " << (code)

// ---- Complex arithmetic ----------------------------------------------------

TEST(ComplexArith, RecordAndSimpleOperations) {
  Complex z = a02bac(3.0, -4.0);
  EXPECT_EQ(a02bbc(z), 3.0);
  EXPECT_EQ(a02bcc(z), -4.0);
  Complex w{0.5, 2.0};
  Complex s = a02cac(z, w), d = a02cbc(z, w), p = a02ccc(z, w);
  EXPECT_EQ(s.re, 3.5);
  EXPECT_EQ(s.im, -2.0);
  EXPECT_EQ(d.re, 2.5);
  EXPECT_EQ(d.im, -6.0);
  EXPECT_EQ(p.re, 9.5);  // 1.5 + 8
  EXPECT_EQ(p.im, 4.0);  // 6 - 2
  Complex n = a02cec(z), c = a02cfc(z);
  EXPECT_EQ(n.re, -3.0);
  EXPECT_EQ(n.im, 4.0);
  EXPECT_EQ(c.re, 3.0);
  EXPECT_EQ(c.im, 4.0);
  EXPECT_EQ(a02dac(z), std::atan2(-4.0, 3.0));
  EXPECT_EQ(a02dbc(z), 5.0);
}

TEST(ComplexArith, ComparisonsFollowTheDoubles) {
  EXPECT_TRUE(a02cgc({1.0, 0.0}, {1.0, -0.0}));  // -0.0 equals 0.0
  EXPECT_FALSE(a02chc({1.0, 0.0}, {1.0, -0.0}));
  EXPECT_FALSE(a02cgc({1.0, 2.0}, {1.0, 2.5}));
  EXPECT_TRUE(a02chc({1.0, 2.0}, {1.5, 2.0}));
  // A NaN part is unequal to everything, itself included.
  EXPECT_FALSE(a02cgc({kNaN, 0.0}, {kNaN, 0.0}));
  EXPECT_TRUE(a02chc({kNaN, 0.0}, {kNaN, 0.0}));
}

TEST(ComplexArith, ScalingByARealPart) {
  // a02eic never reads the imaginary part of its second argument.
  Complex r = a02eic({1.5, -2.0}, {4.0, kNaN});
  EXPECT_EQ(r.re, 6.0);
  EXPECT_EQ(r.im, -8.0);
  r = a02ejc({1.5, -2.0}, -0.5);
  EXPECT_EQ(r.re, -0.75);
  EXPECT_EQ(r.im, 1.0);
}

TEST(ComplexArith, ModulusScalesAndOverflowsOnlyWithTheResult) {
  EXPECT_EQ(a02dbc({0.0, 0.0}), 0.0);
  EXPECT_EQ(a02dbc({0.0, -7.0}), 7.0);
  EXPECT_EQ(a02dbc({-7.0, 0.0}), 7.0);
  EXPECT_NEAR(a02dbc({3e307, 4e307}), 5e307, 2 * u * 5e307);
  EXPECT_NEAR(a02dbc({-4e307, 3e307}), 5e307, 2 * u * 5e307);
  EXPECT_NEAR(a02dbc({1e308, 1e308}), 1.4142135623730951e308, 2 * u * 1.5e308);
  EXPECT_EQ(a02dbc({1.5e308, 1.5e308}), kInf);  // the modulus, 2.1e308, is not a double
  // Tiny parts are not squared either: no underflow to 0.
  EXPECT_NEAR(a02dbc({3e-310, 4e-310}), 5e-310, 1e-323);
}

TEST(ComplexArith, SquareRootBranchesAndSignedZero) {
  Complex r = a02dcc({-4.0, 0.0});
  EXPECT_EQ(r.re, 0.0);
  EXPECT_FALSE(std::signbit(r.re));
  EXPECT_EQ(r.im, 2.0);
  // -0.0 compares equal to 0, so t keeps y and its sign.
  r = a02dcc({-4.0, -0.0});
  EXPECT_EQ(r.re, 0.0);
  EXPECT_TRUE(std::signbit(r.re));
  EXPECT_EQ(r.im, 2.0);
  r = a02dcc({4.0, 0.0});
  EXPECT_EQ(r.re, 2.0);
  EXPECT_EQ(r.im, 0.0);
  r = a02dcc({0.0, 0.0});
  EXPECT_EQ(r.re, 0.0);
  EXPECT_EQ(r.im, 0.0);
  // x < 0 and y < 0: the root is in the fourth quadrant.
  r = a02dcc({-3.0, -4.0});
  EXPECT_NEAR(r.re, 1.0, 2 * u);
  EXPECT_NEAR(r.im, -2.0, 4 * u);
  // Both sides of |x| = 1, where the halving starts.
  r = a02dcc({1.0, 0.0});
  EXPECT_NEAR(r.re, 1.0, 2 * u);  // sqrt(2) * sqrt(0.5)
  r = a02dcc({std::nextafter(1.0, 2.0), 0.0});
  EXPECT_NEAR(r.re, 1.0, 2 * u);
  // Near the largest double the modulus of half the number is taken.
  r = a02dcc({-1e308, 1e308});
  EXPECT_NEAR(r.re, 4.5508986056222733e153, 4 * u * 4.6e153);
  EXPECT_NEAR(r.im, 1.0986841134678100e154, 4 * u * 1.1e154);
}

TEST(ComplexArith, DivisionTieTakesTheFirstBranch) {
  // (1 + i) / (1 - i) = i.  With |c| = |d| the first branch gives the real
  // part as 0 * (-1/2) = -0.0; the second would give +0.0.
  Complex q = a02cdc({1.0, 1.0}, {1.0, -1.0});
  EXPECT_EQ(q.re, 0.0);
  EXPECT_TRUE(std::signbit(q.re));
  EXPECT_EQ(q.im, 1.0);
  // Just off the tie the second branch gives +0.0.
  q = a02cdc({1.0, 1.0}, {1.0, -std::nextafter(1.0, 0.0)});
  EXPECT_FALSE(std::signbit(q.re) && q.re == 0.0);
  // A zero divisor is not detected.
  q = a02cdc({1.0, 2.0}, {0.0, 0.0});
  EXPECT_TRUE(std::isnan(q.re) && std::isnan(q.im));
  // Parts near the top of the range: (1 + 3i) / (2 + i) = 1 + i.
  q = a02cdc({1e307, 3e307}, {2e307, 1e307});
  EXPECT_NEAR(q.re, 1.0, 4 * u);
  EXPECT_NEAR(q.im, 1.0, 4 * u);
}

TEST(ComplexArith, IntegerPowerEdges) {
  for (Complex z : {Complex{0.0, 0.0}, Complex{2.5, -1.0}, Complex{kNaN, 1.0}, Complex{kInf, 0.0}}) {
    Complex r = a02ddc(z, 0);
    EXPECT_EQ(r.re, 1.0);
    EXPECT_EQ(r.im, 0.0);
  }
  Complex r = a02ddc({0.0, 0.0}, -1);
  EXPECT_TRUE(std::isnan(r.re));
  EXPECT_TRUE(std::isnan(r.im));
  // |INT_MIN| does not exist in 32 bits: the loop never runs and the result
  // is 1/(1, 0).
  r = a02ddc({2.0, 0.0}, INT_MIN);
  EXPECT_EQ(r.re, 1.0);
  EXPECT_EQ(r.im, 0.0);
  r = a02ddc({0.0, 1.0}, 3);  // i^3 = -i, exact
  EXPECT_EQ(r.re, 0.0);
  EXPECT_EQ(r.im, -1.0);
  r = a02ddc({0.0, 2.0}, -2);  // (2i)^-2 = -1/4
  EXPECT_EQ(r.re, -0.25);
  EXPECT_EQ(r.im, 0.0);
}

TEST(ComplexArith, LogarithmOnTheCut) {
  Complex r = a02dgc({-2.0, 0.0});
  EXPECT_NEAR(r.re, std::log(2.0), 2 * u);
  EXPECT_EQ(r.im, std::atan2(0.0, -2.0));
  r = a02dgc({-2.0, -0.0});
  EXPECT_EQ(r.im, -std::atan2(0.0, -2.0));
  r = a02dgc({0.0, 0.0});
  EXPECT_EQ(r.re, -kInf);
}

// Normwise relative error of w against the reference, in units of u.
double err_u(Complex w, double rr, double ri) {
  double ref = std::hypot(rr, ri);
  double e = std::hypot(w.re - rr, w.im - ri);
  return ref == 0.0 ? e / u : e / ref / u;
}

// The reference table: every row's error against mpmath at 60 digits.
// Each bound is a small multiple of the rounding errors the algorithm makes:
//   abs: t, t*t, +1, sqrt, a* -- at most 2.5 u; allowed 3.
//   sqrt: the modulus, one addition, a root, a division -- allowed 6.
//   div: Smith's formulas, a few roundings per part -- allowed 8.
//   mul: the plain formula is normwise within sqrt(8) u -- allowed 4.
//   log, arg, exp: libm and the extended-format change of base -- allowed 4.
//   sin, cos: a product of two libm results per part -- allowed 4.
//   tan: the denominator cancels by at most a factor 4 on the rows chosen,
//        and each part has about 5 roundings -- allowed 16.
//   ipow: a product is normwise within sqrt(5) u (Brent, Percival and
//        Zimmermann, 2007), and z^n carries the errors of n - 1 of them, plus
//        a reciprocal for n < 0 -- allowed 2.5 (1 + |n|).
//   rpow, cpow: exp(w) inherits the absolute error of w = c log z, which is
//        a few u times |c| (from log z) plus |w| u (from the product) --
//        allowed 4 (1 + |c| + |w|).
// Where a row's error grows with a power, its last column holds that scale.
TEST(ComplexArith, AgreesWithHighPrecisionReferences) {
  const std::map<std::string, double> tol = {
      {"abs", 3},  {"arg", 4}, {"sqrt", 6}, {"div", 8},  {"mul", 4},  {"log", 4}, {"exp", 4},
      {"sin", 4},  {"cos", 4}, {"tan", 16}, {"ipow", 2.5}, {"rpow", 4}, {"cpow", 4}};
  std::map<std::string, double> worst;
  std::map<std::string, int> count;
  for (const std::string& line : data_lines("complex_refs.txt")) {
    std::istringstream in(line);
    std::string name, f[7];
    in >> name >> f[0] >> f[1] >> f[2] >> f[3] >> f[4] >> f[5] >> f[6];
    double v[7];
    for (int i = 0; i < 7; ++i) v[i] = std::strtod(f[i].c_str(), nullptr);
    Complex z{v[0], v[1]}, w{v[2], v[3]};
    Complex got{};
    if (name == "abs") got = {a02dbc(z), 0.0};
    else if (name == "arg") got = {a02dac(z), 0.0};
    else if (name == "sqrt") got = a02dcc(z);
    else if (name == "div") got = a02cdc(z, w);
    else if (name == "mul") got = a02ccc(z, w);
    else if (name == "log") got = a02dgc(z);
    else if (name == "exp") got = a02dhc(z);
    else if (name == "sin") got = a02djc(z);
    else if (name == "cos") got = a02dkc(z);
    else if (name == "tan") got = a02dlc(z);
    else if (name == "ipow") got = a02ddc(z, static_cast<Integer>(w.re));
    else if (name == "rpow") got = a02dec(z, w.re);
    else if (name == "cpow") got = a02dfc(z, w);
    else ADD_FAILURE() << "unknown row " << name;
    ASSERT_TRUE(tol.count(name)) << name;
    double bound = tol.at(name) * (1.0 + v[6]);
    double e = err_u(got, v[4], v[5]);
    EXPECT_LE(e, bound) << line << "\n got (" << got.re << ", " << got.im << ")";
    worst[name] = std::max(worst[name], e / (1.0 + v[6]));
    ++count[name];
  }
  EXPECT_GE(count.size(), tol.size());
  for (const auto& [name, e] : worst)
    std::printf("  %-5s %4d rows, worst %.2f u\n", name.c_str(), count[name], e);
}

TEST(ComplexArith, InnerFormsComputeExactlyTheSame) {
  for (const std::string& line : data_lines("complex_refs.txt")) {
    std::istringstream in(line);
    std::string name;
    double x, y, p, q;
    in >> name >> x >> y >> p >> q;
    EXPECT_EQ(bits(a02abf_f(x, y)), bits(a02dbc({x, y})));
    EXPECT_EQ(bits(a02abf(&x, &y)), bits(a02dbc({x, y})));
    Complex s = a02dcc({x, y}), r;
    a02aaf(x, y, &r.re, &r.im);
    EXPECT_EQ(bits(r.re), bits(s.re));
    EXPECT_EQ(bits(r.im), bits(s.im));
    Complex d = a02cdc({x, y}, {p, q});
    a02acf(x, y, p, q, &r.re, &r.im);
    EXPECT_EQ(bits(r.re), bits(d.re));
    EXPECT_EQ(bits(r.im), bits(d.im));
  }
}

// ---- Constants of the arithmetic ------------------------------------------

TEST(MachineConstants, PublicBitsAndValues) {
  EXPECT_EQ(bits(x02ahc()), 0x43F0000000000000u);
  EXPECT_EQ(bits(x02ajc()), 0x3CA0000000000001u);
  EXPECT_EQ(bits(x02akc()), 0x0010000000000000u);
  EXPECT_EQ(bits(x02amc()), 0x0010000000000000u);
  EXPECT_EQ(bits(x02anc()), 0x0010000000000000u);
  EXPECT_EQ(bits(x02alc()), 0x7FEFFFFFFFFFFFFFu);
  char text[64];
  const std::pair<double, const char*> printed[] = {
      {x02ahc(), "1.8446744073709552e+19"}, {x02ajc(), "1.1102230246251568e-16"},
      {x02akc(), "2.2250738585072014e-308"}, {x02alc(), "1.7976931348623157e+308"}};
  for (const auto& [v, want] : printed) {
    std::snprintf(text, sizeof text, "%.17g", v);
    EXPECT_STREQ(text, want);
  }
  // eps lies just above half an ulp of 1, so adding it to 1 rounds up.
  volatile double one = 1.0;
  EXPECT_EQ(one + x02ajc(), 1.0 + 0x1p-52);
  EXPECT_EQ(one + 0x1p-53, 1.0);
}

TEST(MachineConstants, InnerWordsDifferFromThePublicOnes) {
  EXPECT_EQ(bits(zil::x02ahf(123.0)), 0x43EFFFFFFFFFFFE7u);
  EXPECT_EQ(bits(zil::x02ajf()), 0x3CA000000000000Eu);
  EXPECT_EQ(bits(zil::x02akf()), 0x0010000000000011u);
  EXPECT_EQ(bits(zil::x02amf()), 0x0010000000000011u);
  EXPECT_EQ(bits(zil::x02anf()), 0x0010000000000011u);
  EXPECT_EQ(bits(zil::x02alf()), 0x7FEFFFFFFFFFFFE2u);
  char text[64];
  const std::pair<double, const char*> printed[] = {
      {zil::x02ahf(0.0), "1.84467440737095e+19"}, {zil::x02ajf(), "1.11022302462516e-16"},
      {zil::x02akf(), "2.22507385850721e-308"}, {zil::x02alf(), "1.79769313486231e+308"}};
  for (const auto& [v, want] : printed) {
    std::snprintf(text, sizeof text, "%.15g", v);
    EXPECT_STREQ(text, want);
  }
  EXPECT_NE(zil::x02ajf(), x02ajc());
  EXPECT_NE(zil::x02alf(), x02alc());
  EXPECT_EQ(zil::x02int_max(0.0), 2147483647);
  EXPECT_EQ(zil::x02base(), 2);
  EXPECT_EQ(zil::x02digits(), 53);
  EXPECT_EQ(zil::x02emin(), -1021);
  EXPECT_EQ(zil::x02emax(), 1024);
  EXPECT_EQ(zil::x02flag(0.0), 0);
  double a = 1.0, b = 0x1p-53;
  EXPECT_EQ(x02add(&a, &b), 1.0);
  b = 0.25;
  EXPECT_EQ(x02add(&a, &b), 1.25);
}

TEST(MachineConstants, RecordForTheLinearAlgebra) {
  x02consts c{};
  c.zero = 99.0;
  x02consts_fill(&c);
  EXPECT_EQ(c.base, 2.0);
  EXPECT_EQ(c.digits, 53.0);
  EXPECT_EQ(bits(c.eps), bits(x02ajc()));
  EXPECT_EQ(bits(c.small), bits(x02akc()));
  EXPECT_EQ(c.big, 0x1p1022);
  EXPECT_EQ(c.sqrt_small, 0x1p-511);
  EXPECT_EQ(c.sqrt_big, 0x1p511);
  EXPECT_NEAR(c.sqrt_eps, 1.0536712127723509e-08, 1e-8 * u);
  EXPECT_EQ(c.zero, 0.0);
}

// ---- Extended inner product -------------------------------------------------

struct DotCase {
  int n;
  double c1, c2, cond, hi, lo, abs_sum;
  std::vector<double> a, b;
};

std::vector<DotCase> dot_cases() {
  std::vector<DotCase> cases;
  std::vector<std::string> lines = data_lines("dot_refs.txt");
  for (std::size_t i = 0; i < lines.size();) {
    std::istringstream head(lines[i++]);
    std::string tag;
    DotCase c{};
    head >> tag >> c.n >> c.c1 >> c.c2 >> c.cond >> c.hi >> c.lo >> c.abs_sum;
    EXPECT_EQ(tag, "case");
    for (int k = 0; k < c.n && i < lines.size(); ++k) {
      std::istringstream row(lines[i++]);
      double x, y;
      row >> x >> y;
      c.a.push_back(x);
      c.b.push_back(y);
    }
    cases.push_back(c);
  }
  return cases;
}

// With sw true the pair (d1, d2) carries the sum to about twice the working
// precision: Ogita, Rump and Oishi (2005, Prop. 5.5) bound the error of their
// Dot2 by u|s| + gamma(n)^2 sum|a b|, where gamma(n) = n u / (1 - n u).  The
// pair, before its final rounding to d1, is within gamma(n)^2 sum|a b|; the
// test allows that with a factor 2 and asks in addition that d1 be the
// correctly rounded sum whenever that bound is below a quarter ulp of it.
TEST(InnerProduct, DoubleLengthSumMatchesExactRationals) {
  std::vector<DotCase> cases = dot_cases();
  ASSERT_EQ(cases.size(), 20u);
  for (const DotCase& c : cases) {
    for (int stride : {1, 3}) {
      // Strided copies with NaN between the elements used.
      std::vector<double> a(c.a.size() * stride, kNaN), b(c.b.size() * 2 * stride, kNaN);
      for (int k = 0; k < c.n; ++k) {
        a[k * stride] = c.a[k];
        b[k * 2 * stride] = c.b[k];
      }
      double d1 = kNaN, d2 = kNaN;
      ZilError fail{};
      x03aac(a.data(), static_cast<Integer>(a.size()), b.data(), static_cast<Integer>(b.size()), c.n,
             stride, 2 * stride, c.c1, c.c2, &d1, &d2, TRUE, &fail);
      EXPECT_EQ(fail.code, 0);
      double gamma = c.n * u / (1 - c.n * u);
      double bound = 2 * gamma * gamma * c.abs_sum;
      long double err = (static_cast<long double>(d1) - c.hi) + (static_cast<long double>(d2) - c.lo);
      EXPECT_LE(std::fabs(static_cast<double>(err)), bound)
          << "n = " << c.n << ", cond = " << c.cond << ", stride " << stride;
      // The pair is normalised: d2 is below half an ulp of d1.
      EXPECT_EQ(d1 + d2, d1);
      if (bound < 0.25 * u * std::fabs(c.hi)) EXPECT_EQ(d1, c.hi) << "cond = " << c.cond;
    }
  }
}

TEST(InnerProduct, PlainSumStartsFromC1Alone) {
  // Well conditioned rows (cond ~ 1e3 to 1e5): the plain sum is within
  // n u sum|a b| of the exact value; c2 is never read.
  for (const DotCase& c : dot_cases()) {
    if (c.cond > 1e6) continue;
    double d1 = 0.0, d2 = kNaN;
    x03aac(c.a.data(), c.n, c.b.data(), c.n, c.n, 1, 1, c.c1, kNaN, &d1, &d2, FALSE, nullptr);
    EXPECT_EQ(d2, 0.0);
    double exact_without_c2 = c.hi - c.c2;
    EXPECT_LE(std::fabs(d1 - exact_without_c2), 2 * c.n * u * c.abs_sum);
  }
}

TEST(InnerProduct, EmptySumGivesTheStartingPair) {
  double d1 = kNaN, d2 = kNaN;
  // sw true: c1 + c2 normalised.
  x03aac(nullptr, 0, nullptr, 0, 0, 1, 1, 1.0, 0x1p-60, &d1, &d2, TRUE, nullptr);
  EXPECT_EQ(d1, 1.0);
  EXPECT_EQ(d2, 0x1p-60);
  // c1 is taken as the high part (the pair is formed by Dekker's fast sum,
  // which is exact only for |c1| >= |c2|), so a small c1 is rounded away.
  x03aac(nullptr, 0, nullptr, 0, -3, 1, 1, 0x1p-60, 1.0, &d1, &d2, TRUE, nullptr);
  EXPECT_EQ(d1, 1.0);
  EXPECT_EQ(d2, 0.0);
  x03aac(nullptr, 0, nullptr, 0, 0, 1, 1, 1.0, 1.0, &d1, &d2, TRUE, nullptr);
  EXPECT_EQ(d1, 2.0);
  EXPECT_EQ(d2, 0.0);
  // sw false: c1 alone, and 0.
  x03aac(nullptr, 0, nullptr, 0, 0, 1, 1, 1.0, 5.0, &d1, &d2, FALSE, nullptr);
  EXPECT_EQ(d1, 1.0);
  EXPECT_EQ(d2, 0.0);
}

TEST(InnerProduct, DirectedRoundingIsSetAsideAndRestored) {
  const DotCase c = dot_cases()[8];  // n = 20, cond ~ 1e25
  double want1, want2, d1, d2;
  x03aac(c.a.data(), c.n, c.b.data(), c.n, c.n, 1, 1, c.c1, c.c2, &want1, &want2, TRUE, nullptr);
  for (int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    ASSERT_EQ(std::fesetround(mode), 0);
    x03aac(c.a.data(), c.n, c.b.data(), c.n, c.n, 1, 1, c.c1, c.c2, &d1, &d2, TRUE, nullptr);
    EXPECT_EQ(std::fegetround(), mode);
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(bits(d1), bits(want1));
    EXPECT_EQ(bits(d2), bits(want2));
  }
}

TEST(InnerProduct, StepChecksInOrder) {
  REQUIRE_MESSAGE(ZE_INT_ARG_LE);
  const double a[2] = {1.0, 2.0};
  ZilError fail{};
  double d1 = 7.0, d2 = 8.0;
  x03aac(a, 2, a, 2, 2, 0, -1, 0.0, 0.0, &d1, &d2, TRUE, &fail);
  EXPECT_EQ(fail.code, ZE_INT_ARG_LE);
  EXPECT_STREQ(fail.message, "ZE_INT_ARG_LE:\n  On entry, stepa must not be less than or equal to 0: stepa = 0.");
  EXPECT_EQ(d1, 7.0);
  EXPECT_EQ(d2, 8.0);
  x03aac(a, 2, a, 2, 2, 1, -1, 0.0, 0.0, &d1, &d2, FALSE, &fail);
  EXPECT_EQ(fail.code, ZE_INT_ARG_LE);
  EXPECT_STREQ(fail.message, "ZE_INT_ARG_LE:\n  On entry, stepb must not be less than or equal to 0: stepb = -1.");
  // A good call clears the record and reports success.
  x03aac(a, 2, a, 2, 2, 1, 1, 0.0, 0.0, &d1, &d2, FALSE, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(d1, 5.0);
  // Without a record the failure shows its boxes and the call returns.
  testing::internal::CaptureStderr();
  x03aac(a, 2, a, 2, 2, 0, 1, 0.0, 0.0, &d1, &d2, TRUE, nullptr);
  std::string err = testing::internal::GetCapturedStderr();
  EXPECT_NE(err.find("ZIL_RUNTIME_ERROR"), std::string::npos) << err;
  EXPECT_NE(err.find("stepa"), std::string::npos) << err;
  EXPECT_NE(err.find("ZIL Function Terminated"), std::string::npos) << err;
}

// ---- Identification -----------------------------------------------------------

std::vector<std::string> split(const std::string& text, const std::string& sep) {
  std::vector<std::string> parts;
  std::size_t at = 0;
  for (std::size_t next; (next = text.find(sep, at)) != std::string::npos; at = next + sep.size())
    parts.push_back(text.substr(at, next - at));
  parts.push_back(text.substr(at));
  return parts;
}

// "Tue Oct 15 11:09:22  2002"
bool is_stamp(const std::string& s) {
  int day, h, m, sec, year;
  char wd[4], mon[4];
  return s.size() == 25 && std::sscanf(s.c_str(), "%3s %3s %d %d:%d:%d  %d", wd, mon, &day, &h, &m, &sec, &year) == 7 &&
         year >= 1970 && day >= 1 && day <= 31;
}

TEST(Identification, BoxText) {
  testing::internal::CaptureStderr();
  int result = a00aac();
  std::string out = testing::internal::GetCapturedStderr();
  EXPECT_EQ(result, 1);
  const std::string title = "About ZIL C Library\n";
  ASSERT_EQ(out.substr(0, title.size()), title);
  std::vector<std::string> lines = split(out.substr(title.size()), "\r\n");
  ASSERT_EQ(lines.size(), 7u) << out;
  EXPECT_EQ(lines[0], "ZIL C Library Mark 7a");
  EXPECT_EQ(lines[1], "Linux x86-64");
  EXPECT_EQ(lines[2], "Implementation code QXDLL074Z");
  EXPECT_EQ(lines[3].rfind("Built with GNU C++ ", 0), 0u) << lines[3];
  EXPECT_EQ(lines[4].rfind("  and with GNU C ", 0), 0u) << lines[4];
  EXPECT_EQ(lines[5].substr(0, 3), "At ");
  EXPECT_TRUE(is_stamp(lines[5].substr(3))) << lines[5];
  EXPECT_EQ(lines[6], "");  // the text ends with \r\n
}

TEST(Identification, LinesToAFileAndTheConsole) {
  std::string path = testing::TempDir() + "zil_a00abc.txt";
  std::remove(path.c_str());
  a00abc(path.c_str());
  a00abc(path.c_str());  // appended, not replaced
  std::ifstream in(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  ASSERT_EQ(lines.size(), 14u);
  EXPECT_EQ(lines[0], "*** ZIL C Library Implementation ***");
  EXPECT_EQ(lines[1], "    Linux x86-64");
  EXPECT_EQ(lines[2], "    Implementation code (QXDLL074Z)");
  EXPECT_EQ(lines[3].rfind("    Built with GNU C++ ", 0), 0u);
  EXPECT_EQ(lines[4].rfind("      and with GNU C ", 0), 0u);
  EXPECT_TRUE(is_stamp(lines[5].substr(7))) << lines[5];
  EXPECT_EQ(lines[6], "    Mark 7");
  EXPECT_EQ(lines[7], lines[0]);
  std::remove(path.c_str());

  testing::internal::CaptureStdout();
  a00abc(nullptr);
  std::string out = testing::internal::GetCapturedStdout();
  EXPECT_EQ(out.rfind("*** ZIL C Library Implementation ***\n    Linux x86-64\n", 0), 0u) << out;
  EXPECT_NE(out.find("    Mark 7\n"), std::string::npos);
}

// ---- Clocks ---------------------------------------------------------------------

TEST(Clocks, WallClockSeconds) {
  std::time_t before = std::time(nullptr);
  Integer t = x05aac();
  std::time_t after = std::time(nullptr);
  EXPECT_GE(t, before);
  EXPECT_LE(t, after);
}

TEST(Clocks, FailedClockReportsAndGivesZero) {
  REQUIRE_MESSAGE(ZE_SYSTEM_TIME);
  testing::internal::CaptureStderr();
  Integer t = zil::x05aac_from(static_cast<std::time_t>(-1));
  std::string err = testing::internal::GetCapturedStderr();
  EXPECT_EQ(t, 0);
  EXPECT_NE(err.find("x05aac: ZE_SYSTEM_TIME"), std::string::npos) << err;
  EXPECT_NE(err.find("ZIL Function Terminated"), std::string::npos) << err;
}

TEST(Clocks, LocalDateAndTime) {
  Integer v[7];
  std::time_t before = std::time(nullptr);
  x05date(v);
  std::tm tm{};
  tm.tm_year = v[0] - 1900;
  tm.tm_mon = v[1] - 1;
  tm.tm_mday = v[2];
  tm.tm_hour = v[3];
  tm.tm_min = v[4];
  tm.tm_sec = v[5];
  tm.tm_isdst = -1;
  std::time_t back = std::mktime(&tm);
  EXPECT_GE(back, before - 1);
  EXPECT_LE(back, std::time(nullptr));
  EXPECT_GE(v[1], 1);
  EXPECT_LE(v[1], 12);
  EXPECT_GE(v[6], 0);
  EXPECT_LE(v[6], 999);
}

TEST(Clocks, ProcessCpuTimeAdvances) {
  float start = x05cpu();
  EXPECT_GE(start, 0.0f);
  // Burn about 50 ms of CPU, measured by another clock of the process.
  std::clock_t until = std::clock() + CLOCKS_PER_SEC / 20;
  volatile double sink = 0.0;
  while (std::clock() < until) sink = sink + 1.0;
  float end = x05cpu();
  EXPECT_GE(end - start, 0.03f);
  EXPECT_LE(end - start, 5.0f);
}

// ---- The exported names ----------------------------------------------------------

TEST(Exports, ShortAndLongNamesResolveInTheSharedLibrary) {
  void* lib = dlopen(ZIL_SHARED_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(lib, nullptr) << dlerror();
  const std::pair<const char*, const char*> names[] = {
      {"a00aac", "zil_implementation_details"}, {"a00abc", nullptr},
      {"a02bac", "zil_complex"},           {"a02bbc", "zil_complex_real"},
      {"a02bcc", "zil_complex_imag"},      {"a02cac", "zil_complex_add"},
      {"a02cbc", "zil_complex_subtract"},  {"a02ccc", "zil_complex_multiply"},
      {"a02cdc", "zil_complex_divide"},    {"a02cec", "zil_complex_negate"},
      {"a02cfc", "zil_complex_conjg"},     {"a02cgc", "zil_complex_equal"},
      {"a02chc", "zil_complex_not_equal"}, {"a02dac", "zil_complex_arg"},
      {"a02dbc", "zil_complex_abs"},       {"a02dcc", "zil_complex_sqrt"},
      {"a02ddc", "zil_complex_i_power"},   {"a02dec", "zil_complex_r_power"},
      {"a02dfc", "zil_complex_c_power"},   {"a02dgc", "zil_complex_log"},
      {"a02dhc", "zil_complex_exp"},       {"a02djc", "zil_complex_sin"},
      {"a02dkc", "zil_complex_cos"},       {"a02dlc", "zil_complex_tan"},
      {"a02eic", nullptr},                 {"a02ejc", nullptr},
      {"x02ahc", nullptr},                 {"x02ajc", nullptr},
      {"x02akc", nullptr},                 {"x02amc", nullptr},
      {"x02anc", nullptr},                 {"x02alc", nullptr},
      {"x03aac", nullptr},                 {"x05aac", nullptr}};
  for (const auto& [short_name, long_name] : names) {
    void* s = dlsym(lib, short_name);
    EXPECT_NE(s, nullptr) << short_name;
    if (long_name) EXPECT_EQ(dlsym(lib, long_name), s) << long_name;
  }
  // Through the library, a call gives what the static twin gives.
  auto abs_fn = reinterpret_cast<double (*)(Complex)>(dlsym(lib, "zil_complex_abs"));
  ASSERT_NE(abs_fn, nullptr);
  EXPECT_EQ(abs_fn({3.0, 4.0}), 5.0);
  dlclose(lib);
}

}  // namespace
