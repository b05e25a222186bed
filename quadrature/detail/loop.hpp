// The bisection loop of the adaptive integrators (included by core.hpp).
//
// One loop serves every routine.  The rule family supplies the local rule
// and the bisection point; the variant says how extrapolation is driven:
//   Plain    no extrapolation (the 61-point, algebraic-log and Cauchy forms)
//   General  extrapolation once the smallest interval has the largest error,
//            with `small` halving (general and infinite-range forms)
//   Levels   the same, measured in bisection levels (break-point form)
//   Trig     the oscillatory form, which starts extrapolating only once the
//            intervals are short enough for the Kronrod rule
#pragma once

#include <algorithm>
#include <cmath>

namespace zil::quad {

enum class Variant { Plain, General, Levels, Trig };

template <Variant V, class Fam>
Outcome adapt(Fam& fam, const LoopConstants& K, const Lists& L, const Start& s, double epsabs,
              double epsrel, const Machine& m) {
  constexpr bool extrapolating = V != Variant::Plain;
  Outcome o;
  o.result = s.result;
  int ier = 0, ierro = 0;
  int iroff1 = 0, iroff2 = 0, iroff3 = 0;
  int nrmax = 1, ktmin = 0, numrl2 = 0;
  int maxerr = L.ord(1);
  double errmax = L.e(maxerr);
  double area = s.result;
  double errsum = 0.0;
  for (int k = 1; k <= s.last; ++k) errsum += L.e(k);
  double abserr = extrapolating ? m.oflow : s.abserr;
  double result = s.result;
  double errbnd = std::max(epsabs, epsrel * std::fabs(s.result));
  double small = K.small0 * std::fabs(s.b - s.a);
  double erlarg = errsum, ertest = errbnd, correc = 0.0;
  bool extrap = false, noext = false, extall = false;
  int levmax = 1;
  Epsilon eps(m);
  const int ksgn = std::fabs(s.result) >= (1.0 - 50.0 * m.epmach) * s.defabs ? 1 : -1;
  if constexpr (V == Variant::General) {
    numrl2 = 2;
    eps.at(1) = s.result;
  } else if constexpr (V == Variant::Levels) {
    numrl2 = 1;
    eps.at(1) = s.result;
  } else if constexpr (V == Variant::Trig) {
    // Long intervals against the period go to the Clenshaw-Curtis rule, whose
    // results do not form a sequence worth extrapolating.
    if (0.5 * std::fabs(s.b - s.a) * s.omega_h <= 2.0) {
      numrl2 = 1;
      extall = true;
      eps.at(1) = s.result;
    }
    if (0.25 * std::fabs(s.b - s.a) * s.omega_h <= 2.0) extall = true;
  }

  int last = s.last;
  if (L.link) L.link_in_order(last);
  o.linked = L.link != nullptr;
  bool plain_sum = !extrapolating;
  bool leave = false;
  for (int pass = s.last + 1; pass <= L.limit && !leave; ++pass) {
    last = pass;
    const int lev = L.level ? L.level[maxerr - 1] + 1 : 0;
    const double a1 = L.a(maxerr), b2 = L.b(maxerr);
    const double b1 = fam.split(a1, b2), a2 = b1;
    const double erlast = errmax;
    const Est r1 = fam.rule(a1, b1, lev, false);
    const Est r2 = fam.rule(a2, b2, lev, true);
    const double area12 = r1.result + r2.result;
    const double erro12 = r1.abserr + r2.abserr;
    errsum += erro12 - errmax;
    area += area12 - L.r(maxerr);
    if (fam.watch_roundoff(a1, b2, r1, r2)) {
      const bool stalled = std::fabs(L.r(maxerr) - area12) <= 1.0e-5 * std::fabs(area12) &&
                           erro12 >= 0.99 * errmax;
      const bool growing = last > 10 && erro12 > errmax;
      if constexpr (extrapolating) {
        if (stalled) ++(extrap ? iroff2 : iroff1);
        if (growing) ++iroff3;
      } else {
        if (stalled) ++iroff1;
        if (growing) ++iroff2;
      }
    }
    if (L.level) L.level[maxerr - 1] = L.level[last - 1] = lev;
    L.r(maxerr) = r1.result;
    L.r(last) = r2.result;
    errbnd = std::max(epsabs, epsrel * std::fabs(area));
    if (r2.abserr > r1.abserr) {
      L.a(maxerr) = a2;
      L.a(last) = a1;
      L.b(last) = b1;
      L.r(maxerr) = r2.result;
      L.r(last) = r1.result;
      L.e(maxerr) = r2.abserr;
      L.e(last) = r1.abserr;
      if (L.link) L.link_beside(maxerr, last, true);
    } else {
      L.a(last) = a2;
      L.b(maxerr) = b1;
      L.b(last) = b2;
      L.e(maxerr) = r1.abserr;
      L.e(last) = r2.abserr;
      if (L.link) L.link_beside(maxerr, last, false);
    }
    sort_errors(L, last, maxerr, errmax, nrmax);
    // Convergence is tested before any failure, so that a run which meets
    // the tolerance on its last allowed interval succeeds.
    if (errsum <= errbnd) {
      plain_sum = true;
      break;
    }
    if (last == L.limit) ier = 1;
    if constexpr (extrapolating) {
      if (iroff1 + iroff2 >= 10 || iroff3 >= 20) ier = 2;
      if (iroff2 >= 5) ierro = 3;
    } else {
      if (iroff1 >= K.roff1_max || iroff2 >= 20) ier = 2;
    }
    // The interval can no longer be split in this arithmetic.
    if (std::max(std::fabs(a1), std::fabs(b2)) <=
        (1.0 + K.bad_rel * m.epmach) * (std::fabs(a2) + K.bad_abs * m.uflow)) {
      ier = 4;
      o.bad_a = a1;
      o.bad_b = b2;
    }
    if constexpr (!extrapolating) {
      if (ier != 0) break;
      continue;
    } else {
      // ier = 1 stays in the loop: the last interval may still take part in
      // one extrapolation.
      if (ier > 1) break;

      bool want_eps = true;  // false: next pass of the loop
      if constexpr (V == Variant::General) {
        if (last == s.last + 1) {
          small = K.small0 * std::fabs(s.b - s.a);
          erlarg = errsum;
          ertest = errbnd;
          eps.at(2) = area;
          continue;
        }
        if (noext) continue;
        erlarg -= erlast;
        if (std::fabs(b1 - a1) > small) erlarg += erro12;
        if (!extrap) {
          if (std::fabs(L.b(maxerr) - L.a(maxerr)) > small) continue;
          extrap = true;
          nrmax = 2;
        }
      } else if constexpr (V == Variant::Levels) {
        if (noext) continue;
        erlarg -= erlast;
        if (lev + 1 <= levmax) erlarg += erro12;
        if (!extrap) {
          if (L.level[maxerr - 1] + 1 <= levmax) continue;
          extrap = true;
          nrmax = 2;
        }
      } else {  // Trig
        if (last == 2 && extall) {
          small *= 0.5;
          eps.at(++numrl2) = area;
          ertest = errbnd;
          erlarg = errsum;
          continue;
        }
        if (noext) continue;
        bool to_check = true;
        if (extall) {
          erlarg -= erlast;
          if (std::fabs(b1 - a1) > small) erlarg += erro12;
          if (extrap) to_check = false;
        }
        if (to_check) {
          const double width = std::fabs(L.b(maxerr) - L.a(maxerr));
          if (width > small) continue;
          if (!extall) {
            // Extrapolation starts once the next interval is integrated by
            // the Kronrod rule.
            small *= 0.5;
            if (0.25 * width * s.omega_h > 2.0) continue;
            extall = true;
            ertest = errbnd;
            erlarg = errsum;
            continue;
          }
          extrap = true;
          nrmax = 2;
        }
      }
      auto large = [&](int i) {
        if constexpr (V == Variant::Levels)
          return L.level[i - 1] + 1 <= levmax;
        else
          return std::fabs(L.b(i) - L.a(i)) > small;
      };
      if (ierro != 3 && erlarg > ertest) {
        // The smallest interval has the largest error: before bisecting it,
        // work down the larger intervals (erlarg) first.
        const int jupbnd = last > 2 + L.limit / 2 ? L.limit + 3 - last : last;
        const int id = nrmax;
        for (int k = id; k <= jupbnd; ++k) {
          maxerr = L.ord(nrmax);
          errmax = L.e(maxerr);
          if (large(maxerr)) {
            want_eps = false;
            break;
          }
          ++nrmax;
        }
        if (!want_eps) continue;
      }
      eps.at(++numrl2) = area;
      const bool enough = V == Variant::General || numrl2 > 2;
      if (enough) {
        double reseps = 0.0, abseps = 0.0;
        eps.run(numrl2, reseps, abseps);
        ++ktmin;
        if (ktmin > 5 && abserr < 1.0e-3 * errsum) ier = 5;
        if (abseps < abserr) {
          ktmin = 0;
          abserr = abseps;
          result = reseps;
          correc = erlarg;
          ertest = std::max(epsabs, epsrel * std::fabs(reseps));
          if (abserr <= ertest) {
            if (ier == 1) ier = 0;
            break;
          }
        }
        if (numrl2 == 1) noext = true;
        if (ier == 5 || ier == 1) break;
      }
      maxerr = L.ord(1);
      errmax = L.e(maxerr);
      nrmax = 1;
      extrap = false;
      if constexpr (V == Variant::Levels)
        ++levmax;
      else
        small *= 0.5;
      erlarg = errsum;
    }
  }

  if constexpr (extrapolating) {
    // Choose between the extrapolated value and the plain sum.
    if (!plain_sum && abserr != m.oflow) {
      bool divergence_test = true;
      if (ier + ierro != 0) {
        if (ierro == 3) abserr += correc;
        if (ier == 0) ier = 3;
        if (result != 0.0 && area != 0.0) {
          if (abserr / std::fabs(result) > errsum / std::fabs(area)) plain_sum = true;
        } else if (abserr > errsum) {
          plain_sum = true;
        } else if (area == 0.0) {
          divergence_test = false;
        }
      }
      if (!plain_sum && divergence_test &&
          !(ksgn == -1 && std::max(std::fabs(result), std::fabs(area)) <= 0.01 * s.defabs)) {
        if (0.01 > result / area || result / area > 100.0 || errsum > std::fabs(area)) ier = 6;
      }
    } else {
      plain_sum = true;
    }
  }
  if (plain_sum) {
    result = sum_results(L, last);
    abserr = errsum;
  }
  if (ier > 2) --ier;
  o.result = result;
  o.abserr = abserr;
  o.last = last;
  o.ier = ier;
  return o;
}

}  // namespace zil::quad
