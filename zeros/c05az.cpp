// The reverse-communication core for a zero of a function of one variable,
// after Bus and Dekker (ACM TOMS 1, 1975): a bracket [a, b] with f(a) and
// f(b) of opposite sign is kept, b being the point of smaller |f|.  Steps are
// secant steps, then three-point (rational) steps once the secant has failed
// to move the far end, and bisection once interpolation has failed to shrink
// the bracket for three steps, which bounds the count of evaluations by a
// small multiple of that of bisection.
#include <cmath>

#include "frame/export.hpp"
#include "frame/inner.hpp"
#include "frame/report.hpp"
#include "zeros/detail/scalar.hpp"
#include "zil_env.h"
#include "zil_errors.h"
#include "zil_zeros.h"

namespace zil::zeros {
namespace {

// The work array's elements.
enum : int {
  kA = 0, kFA = 1,          // the other end of the bracket
  kB = 2, kFB = 3,          // the best point
  kP = 4, kFP = 5,          // the previous point
  kQ = 6, kFQ = 7,          // the point before that
  kD1 = 8, kD2 = 9,         // divided differences of the three-point step
  kStep = 10,               // the step last taken
  kHalf = 11,               // half the bracket, (a - b)/2
  kRootEps = 12,            // sqrt(machine precision)
  kTiny = 13,               // smallest normal number
  kPoleSize = 14,           // max |f| at the first two ends
  kPole = 15,               // pole indicator: 0, 1, -1
  kCount = 16,              // interpolations since the bracket last really shrank
};

// Both ends as the same sign: a zero value counts with neither, but the
// callers have finished on a zero before asking.
bool same_sign(double u, double v) { return (u > 0.0) == (v > 0.0); }

AzEnd finish_zero(double& x, double& y, Integer& ind) {
  y = x;
  ind = 0;
  return AzEnd::None;
}

// Steps 6 to 11: order the ends, test for convergence, take the next step.
AzEnd next_point(double& x, double& y, double xtol, Integer ir, double* c, Integer& ind) {
  if (std::fabs(c[kFA]) < std::fabs(c[kFB])) {
    // b must be the best point.  The previous point becomes the old b; keep
    // the old previous point for the three-point step unless it is the end
    // that is about to become b.
    if (c[kA] != c[kP]) {
      c[kQ] = c[kP];
      c[kFQ] = c[kFP];
    }
    c[kP] = c[kB];
    c[kFP] = c[kFB];
    c[kB] = c[kA];
    c[kFB] = c[kFA];
    c[kA] = c[kP];
    c[kFA] = c[kFP];
  }

  const double r = ir == 1 ? 0.0 : 1.0;
  const double s = ir == 2 ? 0.0 : 1.0;
  const double w = std::fmax(std::fabs(c[kB]) * r, s);
  const double tol = w * xtol * 0.5;
  const double noise = 2.0 * x02ajc() * w;
  const double m = (c[kA] - c[kB]) * 0.5;
  c[kHalf] = m;

  x = c[kB];
  y = c[kA];
  ind = 0;
  if (m == 0.0 || std::fabs(m) <= tol) return c[kPole] < 0.0 ? AzEnd::Pole : AzEnd::None;
  // Written negated so that a NaN bracket ends here rather than looping.
  if (!(std::fabs(m) > noise)) return AzEnd::Accuracy;

  double step;
  if (c[kCount] >= 2.5) {
    step = m;
  } else {
    const double st = std::copysign(tol, m);
    double p = (c[kB] - c[kP]) * c[kFB];
    double q;
    if (c[kCount] <= 1.5) {
      q = c[kFP] - c[kFB];
    } else {
      if (c[kQ] == c[kB] || c[kQ] == c[kP]) return AzEnd::Accuracy;
      const double d1 = (c[kFQ] - c[kFB]) / (c[kQ] - c[kB]);
      const double d2 = (c[kFQ] - c[kFP]) / (c[kQ] - c[kP]);
      c[kD1] = d1;
      c[kD2] = d2;
      p *= d2;
      q = d1 * c[kFP] - d2 * c[kFB];
    }
    if (p < 0.0) {
      p = -p;
      q = -q;
    }
    // The comparisons are written so that a NaN or infinite quotient (an
    // infinite f value) falls to a safe step instead of a NaN point.
    if (!(p > c[kTiny]) || !(p > q * st))
      step = st;  // the least step that the tolerance lets count
    else if (!(p < m * q))
      step = m;
    else
      step = p / q;
  }

  // A step lost in rounding would leave b where it is for ever (a point
  // whose spacing exceeds the tolerance): that is the limit of accuracy too.
  if (c[kB] + step == c[kB]) return AzEnd::Accuracy;

  c[kQ] = c[kP];
  c[kFQ] = c[kFP];
  c[kP] = c[kB];
  c[kFP] = c[kFB];
  c[kStep] = step;
  c[kB] += step;
  x = c[kB];
  y = c[kA];
  ind = 4;
  return AzEnd::None;
}

// Both ends known, b the later one: check the signs and set up the constants.
AzEnd start_bracket(double& x, double& y, double xtol, Integer ir, double* c, Integer& ind) {
  if (same_sign(c[kFA], c[kFB])) {
    ind = 0;
    return AzEnd::SameSign;
  }
  c[kRootEps] = std::sqrt(x02ajc());
  c[kPoleSize] = std::fmax(std::fabs(c[kFA]), std::fabs(c[kFB]));
  c[kTiny] = x02akc();
  c[kPole] = 0.0;
  c[kCount] = 0.0;
  c[kStep] = 0.0;
  c[kP] = c[kQ] = c[kA];
  c[kFP] = c[kFQ] = c[kFA];
  return next_point(x, y, xtol, ir, c, ind);
}

}  // namespace

AzEnd bracket_step(double& x, double& y, double fx, double xtol, Integer ir, double* c, Integer& ind) {
  if (ind != -1 && (ind < 1 || ind > 4)) {
    ind = 0;
    return AzEnd::BadInd;
  }
  if (!(xtol > 0.0)) {
    ind = 0;
    return AzEnd::BadXtol;
  }
  if (ir < 0 || ir > 2) {
    ind = 0;
    return AzEnd::BadIr;
  }

  switch (ind) {
    case 1:
      c[kA] = x;
      c[kB] = y;
      ind = 2;
      return AzEnd::None;
    case -1:
      // f(y) came in c[0]: y is the first end, x the second.
      c[kFA] = c[0];
      c[kA] = y;
      c[kB] = x;
      c[kFB] = fx;
      if (fx == 0.0) return finish_zero(x, y, ind);
      return start_bracket(x, y, xtol, ir, c, ind);
    case 2:
      if (fx == 0.0) return finish_zero(x, y, ind);
      c[kFA] = fx;
      x = c[kB];
      y = c[kA];
      ind = 3;
      return AzEnd::None;
    case 3:
      c[kFB] = fx;
      if (fx == 0.0) return finish_zero(x, y, ind);
      return start_bracket(x, y, xtol, ir, c, ind);
    default:  // 4
      break;
  }

  c[kFB] = fx;
  if (fx == 0.0) return finish_zero(x, y, ind);
  // A value that stays huge against the first ends for two steps running
  // points to a pole rather than a zero.
  if (std::fabs(fx) * c[kRootEps] <= c[kPoleSize])
    c[kPole] = 0.0;
  else if (c[kPole] == 1.0)
    c[kPole] = -1.0;
  else if (c[kPole] == 0.0)
    c[kPole] = 1.0;

  if (same_sign(fx, c[kFP])) {
    // The far end a stays: the bracket shrank from b's side only.
    c[kCount] = std::trunc(c[kCount] + 0.1) + 1.0;
    if (c[kStep] == c[kHalf]) c[kCount] = 0.0;
  } else {
    c[kA] = c[kP];
    c[kFA] = c[kFP];
    c[kCount] = 0.0;
  }
  return next_point(x, y, xtol, ir, c, ind);
}

}  // namespace zil::zeros

namespace zil {

void C05AZF(double& x, double& y, double fx, double tolx, Integer ir, double* c, Integer& ind,
            Integer& ifail) {
  using zeros::AzEnd;
  const Integer ind_in = ind;
  const AzEnd end = zeros::bracket_step(x, y, fx, tolx, ir, c, ind);
  std::vector<std::string> lines;
  Integer ierror = 0;
  switch (end) {
    case AzEnd::None:
      break;
    case AzEnd::SameSign:
      ierror = 1;
      lines = edit_format("(' ** On entry, F(X) and F(Y) have the same sign.')");
      break;
    case AzEnd::BadInd:
      ierror = 2;
      lines = edit_format("(' ** On entry, IND .ne. -1, 1, 2, 3, or 4: IND =',I16,'.')", long{ind_in});
      break;
    case AzEnd::BadXtol:
      ierror = 3;
      lines = edit_format("(' ** On entry, TOLX .le. 0.0: TOLX =',E12.4,'.')", tolx);
      break;
    case AzEnd::BadIr:
      ierror = 3;
      lines = edit_format("(' ** On entry, IR .ne. 0, 1 or 2: IR =',I16,'.')", long{ir});
      break;
    case AzEnd::Pole:
      ierror = 4;
      lines = edit_format("(' ** X may be near a pole of F rather than a zero.')");
      break;
    case AzEnd::Accuracy:
      ierror = 5;
      lines = edit_format("(' ** TOLX is too small: no further improvement is possible.')");
      break;
  }
  // The by-value reporter: a hard ifail prints and returns rather than
  // ending the process.
  std::string text;
  for (const auto& l : lines) text += (text.empty() ? "" : "\n") + l;
  ifail = inner_exit_f(ifail, ierror, "C05AZF", ierror ? text.c_str() : nullptr);
}

}  // namespace zil

extern "C" void c05azc(double* x, double* y, double fx, double xtol, Integer ir, double c[], Integer* ind,
                       ZilError* fail) {
  using zil::zeros::AzEnd;
  zil::Reporter rep(fail, "c05azc");
  const Integer ind_in = *ind;
  switch (zil::zeros::bracket_step(*x, *y, fx, xtol, ir, c, *ind)) {
    case AzEnd::None:
      // A request for a value is no end: report only when the run is over.
      if (*ind == 0) rep.success();
      break;
    case AzEnd::SameSign:
      rep.raise(ZE_FUNC_END_VAL, "x", "y", "x");
      break;
    case AzEnd::BadInd:
      rep.raise(ZE_ARG_INVALID, "ind", ind_in, "ind", "-1, 1, 2, 3, 4");
      break;
    case AzEnd::BadXtol:
      rep.real_le("xtol", xtol, 0.0, "0.0");
      break;
    case AzEnd::BadIr:
      rep.raise(ZE_ARG_INVALID, "ir", ir, "ir", "0, 1, 2");
      break;
    case AzEnd::Pole:
      rep.raise(ZE_PROBABLE_POLE, "[x,y]");
      break;
    case AzEnd::Accuracy:
      rep.raise(ZE_XTOL_TOO_SMALL, xtol);
      break;
  }
}
