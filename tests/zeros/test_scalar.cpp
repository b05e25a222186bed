// A zero of a function of one variable: classic bracketed problems (simple,
// multiple and flat zeros, a pole, ftol variants), the reverse-communication
// protocol of c05azc and C05AZF, and every stated failure with its message.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>

#include "zeros/detail/scalar.hpp"
#include "zil.h"

namespace {

constexpr double kEps = 0x1p-53;

// c05sdc with a std::function behind comm.p, counting evaluations.
struct Counted {
  std::function<double(double)> f;
  int evals = 0;
};
double call_counted(double x, Zil_Comm* comm) {
  auto* c = static_cast<Counted*>(comm->p);
  ++c->evals;
  return c->f(x);
}

struct Outcome {
  double x;
  int evals;
  Integer code;
  std::string message;
};
Outcome solve(std::function<double(double)> f, double a, double b, double xtol, double ftol) {
  Counted c{std::move(f)};
  Zil_Comm comm{};
  comm.p = &c;
  ZilError fail{};
  double x = NAN;
  c05sdc(a, b, &x, call_counted, xtol, ftol, &comm, &fail);
  return {x, c.evals, fail.code, fail.message};
}

// Drives c05azc by hand and returns the final bracket [x, y].
struct Bracket {
  double x, y;
  int evals;
  Integer code;
};
Bracket drive(const std::function<double(double)>& f, double a, double b, double xtol, Integer ir) {
  double c[17] = {};
  double x = a, y = b, fx = 0.0;
  Integer ind = 1;
  ZilError fail{};
  int evals = 0;
  for (int guard = 0; guard < 10000; ++guard) {
    c05azc(&x, &y, fx, xtol, ir, c, &ind, &fail);
    if (ind == 0) break;
    fx = f(x);
    ++evals;
  }
  EXPECT_EQ(ind, 0);
  return {x, y, evals, fail.code};
}

struct Problem {
  const char* name;
  std::function<double(double)> f;
  double a, b, root;
};

const Problem kProblems[] = {
    {"x^2 - 2", [](double x) { return x * x - 2.0; }, 0.0, 2.0, std::sqrt(2.0)},
    {"cos x - x", [](double x) { return std::cos(x) - x; }, 0.0, 1.0, 0.7390851332151607},
    {"exp(-x) - x", [](double x) { return std::exp(-x) - x; }, -1.0, 1.0, 0.5671432904097838},
    {"(x-1)^3", [](double x) { return (x - 1.0) * (x - 1.0) * (x - 1.0); }, 0.0, 3.0, 1.0},
    {"(x-1)^5", [](double x) { return std::pow(x - 1.0, 5); }, -2.0, 1.5, 1.0},
    {"x^9 (flat)", [](double x) { return std::pow(x, 9); }, -1.0, 4.0, 0.0},
    {"x exp(-1/x^2) (flat)", [](double x) { return x == 0.0 ? 0.0 : x * std::exp(-1.0 / (x * x)); }, -1.0, 3.0, 0.0},
    {"x^3 - 2x - 5", [](double x) { return (x * x - 2.0) * x - 5.0; }, 2.0, 3.0, 2.0945514815423265},
    {"sin x, reversed", [](double x) { return std::sin(x); }, 4.0, 2.0, M_PI},
    {"(x - 1e5)^3", [](double x) { return std::pow(x - 1e5, 3); }, 0.0, 3e5, 1e5},
};

// Every problem at three tolerances: the final bracket holds the root and is
// within the tolerance; its count of evaluations stays within that of plain
// bisection plus the few extra steps that the method allows.
TEST(Bracketed, ClassicProblems) {
  std::printf("%-22s %8s %6s %12s %12s\n", "problem", "xtol", "evals", "|x-root|", "bracket");
  for (const auto& p : kProblems) {
    for (double xtol : {1e-5, 1e-10, 1e-14}) {
      const Bracket r = drive(p.f, p.a, p.b, xtol, 1);
      const double width = std::fabs(r.x - r.y);
      std::printf("%-22s %8.0e %6d %12.3e %12.3e\n", p.name, xtol, r.evals, std::fabs(r.x - p.root), width);
      if (xtol < 4 * kEps * std::fabs(p.root)) {
        // Below the spacing of doubles at the root: the limit of accuracy.
        EXPECT_EQ(r.code, ZE_XTOL_TOO_SMALL) << p.name;
        EXPECT_NEAR(r.x, p.root, 1e-4) << p.name;
        continue;
      }
      ASSERT_EQ(r.code, ZE_NOERROR) << p.name << " xtol " << xtol;
      // A function that underflows to 0 near its zero is done at any such point.
      if (p.f(r.x) == 0.0) continue;
      // The bracket [x, y] contains the zero (or x is it) and is no wider
      // than xtol, or than the spacing of doubles at it.
      EXPECT_LE(std::fmin(r.x, r.y), p.root + 1e-300) << p.name;
      EXPECT_GE(std::fmax(r.x, r.y), p.root - 1e-300) << p.name;
      const double tol = std::fmax(xtol, 4 * kEps * std::fabs(p.root));
      if (r.x != r.y) EXPECT_LE(width, tol) << p.name;
      const int bisections = static_cast<int>(std::ceil(std::log2(std::fabs(p.b - p.a) / xtol)));
      EXPECT_LE(r.evals, 4 * bisections + 8) << p.name;
    }
  }
}

TEST(Bracketed, RelativeAndMixedErrorMeasures) {
  // Root at 1e5: a relative xtol of 1e-12 asks for a bracket of 1e-7.
  const auto f = [](double x) { return x - 1e5 - 0.25; };
  for (Integer ir : {0, 2}) {
    const Bracket r = drive(f, 0.0, 3e5, 1e-12, ir);
    EXPECT_EQ(r.code, ZE_NOERROR);
    EXPECT_NEAR(r.x, 100000.25, 1e-7) << ir;
  }
}

TEST(Driver, SimpleZeroAndFtol) {
  const auto f = [](double x) { return x * x - 2.0; };
  Outcome r = solve(f, 0.0, 2.0, 1e-12, 0.0);
  EXPECT_EQ(r.code, ZE_NOERROR);
  EXPECT_NEAR(r.x, std::sqrt(2.0), 1e-12);
  std::string ok = r.message;
  EXPECT_EQ(ok, "ZE_NOERROR:\n  No error.");
  // ftol stops at the first point with |f| < ftol: fewer evaluations.
  Outcome loose = solve(f, 0.0, 2.0, 1e-12, 1e-3);
  EXPECT_EQ(loose.code, ZE_NOERROR);
  EXPECT_LT(std::fabs(f(loose.x)), 1e-3);
  EXPECT_LT(loose.evals, r.evals);
  std::printf("x^2-2: ftol 0: %d evals, ftol 1e-3: %d evals\n", r.evals, loose.evals);
}

TEST(Driver, EndsAndZeroValues) {
  // f(a) = 0 with ftol 0: success at a after one evaluation.
  Outcome r = solve([](double x) { return x - 1.0; }, 1.0, 3.0, 1e-8, 0.0);
  EXPECT_EQ(r.code, ZE_NOERROR);
  EXPECT_EQ(r.x, 1.0);
  EXPECT_EQ(r.evals, 1);
  // f(b) = 0: two evaluations, x = b.
  r = solve([](double x) { return x - 3.0; }, 1.0, 3.0, 1e-8, 0.0);
  EXPECT_EQ(r.x, 3.0);
  EXPECT_EQ(r.evals, 2);
  // |f(a)| exactly at ftol goes on (the test is strict).
  r = solve([](double x) { return x - 1.5; }, 1.0, 3.0, 1e-8, 0.5);
  EXPECT_EQ(r.code, ZE_NOERROR);
  EXPECT_NE(r.x, 1.0);
  EXPECT_GT(r.evals, 1);
  // a > b is allowed.
  r = solve([](double x) { return std::atan(x - 0.3); }, 5.0, -5.0, 1e-12, 0.0);
  EXPECT_EQ(r.code, ZE_NOERROR);
  EXPECT_NEAR(r.x, 0.3, 1e-12);
}

TEST(Driver, Pole) {
  const Outcome r = solve([](double x) { return 1.0 / (x - 0.3); }, 0.0, 1.0, 1e-12, 0.0);
  EXPECT_EQ(r.code, ZE_PROBABLE_POLE);
  EXPECT_NEAR(r.x, 0.3, 1e-11);
  EXPECT_EQ(r.message,
            "ZE_PROBABLE_POLE:\n  Indicates that the function values in the interval [a,b] might\n"
            "  contain a pole rather than a zero. Reducing xtol may help\n"
            "  in distinguishing between a pole and a zero.");
}

TEST(Driver, XtolBelowPrecision) {
  // The bracket cannot shrink below the spacing of doubles at 1e5.
  const Outcome r = solve([](double x) { return x - 1e5 - 1e-3; }, 0.0, 3e5, 1e-20, 0.0);
  EXPECT_EQ(r.code, ZE_XTOL_TOO_SMALL);
  EXPECT_NEAR(r.x, 100000.001, 1e-10);
  EXPECT_EQ(r.message,
            "ZE_XTOL_TOO_SMALL:\n  No further improvement in the solution is possible.\n"
            "  xtol is too small: xtol = 1.00000e-20.");
}

TEST(Driver, BadInput) {
  const auto f = [](double x) { return x; };
  Outcome r = solve(f, -1.0, 1.0, 0.0, 0.0);
  EXPECT_EQ(r.code, ZE_REAL_ARG_LE);
  EXPECT_EQ(r.message, "ZE_REAL_ARG_LE:\n  On entry, xtol must not be less than or equal to 0.0: xtol = 0.");
  EXPECT_EQ(r.evals, 0);
  r = solve(f, -1.0, 1.0, NAN, 0.0);
  EXPECT_EQ(r.code, ZE_REAL_ARG_LE);
  r = solve(f, 2.0, 2.0, 1e-8, 0.0);
  EXPECT_EQ(r.code, ZE_2_REAL_ARG_EQ);
  EXPECT_EQ(r.message, "ZE_2_REAL_ARG_EQ:\n  On entry, a = 2 while b = 2.\n  These parameters must satisfy a != b.");
  r = solve([](double x) { return x * x + 1.0; }, -1.0, 2.0, 1e-8, 0.0);
  EXPECT_EQ(r.code, ZE_FUNC_END_VAL);
  EXPECT_EQ(r.message, "ZE_FUNC_END_VAL:\n  On entry, f(a) and f(b) have the same sign, with f(a) != 0.0.");
  EXPECT_EQ(r.evals, 2);
}

TEST(Driver, NanAndInfiniteValuesEndCleanly) {
  // NaN over part of the interval, infinite at the far end.
  Outcome r = solve([](double x) { return x > 0.4 && x < 0.9 ? NAN : x - 0.75; }, 0.0, 1.0, 1e-10, 0.0);
  EXPECT_LT(r.evals, 500);
  r = solve([](double x) { return x > 0.5 ? NAN : x - 0.75; }, 0.0, 1.0, 1e-10, 0.0);
  EXPECT_EQ(r.code, ZE_FUNC_END_VAL);
  r = solve([](double x) { return x >= 1.0 ? INFINITY : x - 0.25; }, 0.0, 1.0, 1e-10, 0.0);
  EXPECT_EQ(r.code, ZE_NOERROR);
  EXPECT_NEAR(r.x, 0.25, 1e-10);
}

TEST(Driver, NullRecordAndLongName) {
  double x = 0.0;
  zil_zero_cont_func_bd(0.0, 2.0, &x, [](double t) { return t - 1.25; }, 1e-10, 0.0, nullptr);
  EXPECT_NEAR(x, 1.25, 1e-10);
}

TEST(Core, ProtocolWithStartMinusOne) {
  const auto f = [](double x) { return std::cos(x) - x; };
  double c[17] = {};
  c[0] = f(0.0);
  double x = 1.0, y = 0.0, fx = f(1.0);
  Integer ind = -1;
  ZilError fail{};
  int steps = 0;
  while (true) {
    c05azc(&x, &y, fx, 1e-13, 0, c, &ind, &fail);
    if (ind == 0) break;
    ASSERT_EQ(ind, 4);
    fx = f(x);
    ASSERT_LT(++steps, 100);
  }
  EXPECT_EQ(fail.code, ZE_NOERROR);
  EXPECT_NEAR(x, 0.7390851332151607, 1e-13);
  EXPECT_LE(std::fabs(x - y), 1e-13);
  EXPECT_GE(c[15], -1.0);
  EXPECT_EQ(c[12], std::sqrt(kEps * 2.0 / 2.0));
}

TEST(Core, RequestsInOrder) {
  double c[17] = {};
  double x = 0.0, y = 2.0;
  Integer ind = 1;
  ZilError fail{};
  c05azc(&x, &y, 0.0, 1e-8, 1, c, &ind, &fail);
  EXPECT_EQ(ind, 2);
  EXPECT_EQ(x, 0.0);
  c05azc(&x, &y, -2.0, 1e-8, 1, c, &ind, &fail);  // f(0)
  EXPECT_EQ(ind, 3);
  EXPECT_EQ(x, 2.0);
  c05azc(&x, &y, 2.0, 1e-8, 1, c, &ind, &fail);  // f(2)
  EXPECT_EQ(ind, 4);
  EXPECT_EQ(c[14], 2.0);
  EXPECT_EQ(c[15], 0.0);
  EXPECT_EQ(c[13], DBL_MIN);
  // The first step is the secant through the ends.
  EXPECT_DOUBLE_EQ(x, 1.0);
}

TEST(Core, BadArguments) {
  double c[17] = {};
  double x = 0.0, y = 1.0;
  ZilError fail{};
  Integer ind = 5;
  c05azc(&x, &y, 0.0, 1e-8, 0, c, &ind, &fail);
  EXPECT_EQ(ind, 0);
  EXPECT_EQ(fail.code, ZE_ARG_INVALID);
  EXPECT_STREQ(fail.message, "ZE_ARG_INVALID:\n  On entry, ind = 5.\n Constraint: ind must be one of -1, 1, 2, 3, 4.");
  ind = 1;
  c05azc(&x, &y, 0.0, -1.0, 0, c, &ind, &fail);
  EXPECT_EQ(ind, 0);
  EXPECT_EQ(fail.code, ZE_REAL_ARG_LE);
  ind = 1;
  c05azc(&x, &y, 0.0, 1e-8, 3, c, &ind, &fail);
  EXPECT_EQ(ind, 0);
  EXPECT_STREQ(fail.message, "ZE_ARG_INVALID:\n  On entry, ir = 3.\n Constraint: ir must be one of 0, 1, 2.");
  // Same signs at the ends.
  ind = 1;
  c05azc(&x, &y, 0.0, 1e-8, 0, c, &ind, &fail);
  c05azc(&x, &y, 1.0, 1e-8, 0, c, &ind, &fail);
  c05azc(&x, &y, 2.0, 1e-8, 0, c, &ind, &fail);
  EXPECT_EQ(ind, 0);
  EXPECT_EQ(fail.code, ZE_FUNC_END_VAL);
}

TEST(Inner, IfailNumbers) {
  double c[17] = {};
  double x = 0.0, y = 1.0;
  Integer ind = 7, ifail = 1;
  zil::C05AZF(x, y, 0.0, 1e-8, 0, c, ind, ifail);
  EXPECT_EQ(ifail, 2);
  EXPECT_EQ(ind, 0);
  ind = 1;
  ifail = 1;
  zil::C05AZF(x, y, 0.0, 0.0, 0, c, ind, ifail);
  EXPECT_EQ(ifail, 3);
  ind = 1;
  ifail = 1;
  zil::C05AZF(x, y, 0.0, 1e-8, -1, c, ind, ifail);
  EXPECT_EQ(ifail, 3);
  // Same signs: 1.
  ind = 1;
  for (double fx : {0.0, 3.0, 4.0}) {
    ifail = 1;
    zil::C05AZF(x, y, fx, 1e-8, 0, c, ind, ifail);
  }
  EXPECT_EQ(ifail, 1);
  // A pole: 4; a tolerance below precision: 5; a zero: 0.
  const auto run = [](double (*f)(double), double a, double b, double tol) {
    double w[17] = {};
    double u = a, v = b, fu = 0.0;
    Integer k = 1, fl = 1;
    for (int i = 0; i < 2000; ++i) {
      fl = 1;
      zil::C05AZF(u, v, fu, tol, 1, w, k, fl);
      if (k == 0) break;
      fu = f(u);
    }
    return fl;
  };
  EXPECT_EQ(run([](double t) { return 1.0 / (t - 0.3); }, 0.0, 1.0, 1e-12), 4);
  EXPECT_EQ(run([](double t) { return t - 1e5 - 1e-3; }, 0.0, 3e5, 1e-20), 5);
  EXPECT_EQ(run([](double t) { return t - 0.5; }, 0.0, 3.0, 1e-12), 0);
}

TEST(Inner, NoisyIfailPrintsAndReturns) {
  double c[17] = {};
  double x = 0.0, y = 1.0;
  Integer ind = 9, ifail = 0;  // hard and noisy: prints, yet returns
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  zil::C05AZF(x, y, 0.0, 1e-8, 0, c, ind, ifail);
  const std::string out = testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
  EXPECT_EQ(ifail, 2);
  EXPECT_NE(out.find("IND .ne. -1, 1, 2, 3, or 4: IND =               9."), std::string::npos) << out;
}

}  // namespace
