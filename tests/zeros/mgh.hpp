// The fourteen systems of nonlinear equations of Moré, Garbow and Hillstrom
// (ACM TOMS 7, 1981, and the MINPACK-1 test set), with their standard
// starting points.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

namespace mgh {

enum Problem {
  Rosenbrock = 1, PowellSingular, PowellBadlyScaled, Wood, HelicalValley, Watson, Chebyquad,
  BrownAlmostLinear, DiscreteBoundary, DiscreteIntegral, Trigonometric, VariablyDimensioned,
  BroydenTridiagonal, BroydenBanded
};

inline const char* name(int p) {
  static const char* const names[] = {"",           "Rosenbrock", "Powell singular", "Powell badly scaled",
                                      "Wood",       "helical valley", "Watson", "Chebyquad",
                                      "Brown almost-linear", "discrete boundary", "discrete integral",
                                      "trigonometric", "variably dimensioned", "Broyden tridiagonal",
                                      "Broyden banded"};
  return names[p];
}

inline void values(int p, int n, const double* x, double* f) {
  switch (p) {
    case Rosenbrock:
      f[0] = 1.0 - x[0];
      f[1] = 10.0 * (x[1] - x[0] * x[0]);
      break;
    case PowellSingular:
      f[0] = x[0] + 10.0 * x[1];
      f[1] = std::sqrt(5.0) * (x[2] - x[3]);
      f[2] = (x[1] - 2.0 * x[2]) * (x[1] - 2.0 * x[2]);
      f[3] = std::sqrt(10.0) * (x[0] - x[3]) * (x[0] - x[3]);
      break;
    case PowellBadlyScaled:
      f[0] = 1e4 * x[0] * x[1] - 1.0;
      f[1] = std::exp(-x[0]) + std::exp(-x[1]) - 1.0001;
      break;
    case Wood: {
      const double t1 = x[1] - x[0] * x[0], t2 = x[3] - x[2] * x[2];
      f[0] = -200.0 * x[0] * t1 - (1.0 - x[0]);
      f[1] = 200.0 * t1 + 20.2 * (x[1] - 1.0) + 19.8 * (x[3] - 1.0);
      f[2] = -180.0 * x[2] * t2 - (1.0 - x[2]);
      f[3] = 180.0 * t2 + 20.2 * (x[3] - 1.0) + 19.8 * (x[1] - 1.0);
      break;
    }
    case HelicalValley: {
      const double tpi = 8.0 * std::atan(1.0);
      double t1 = std::copysign(0.25, x[1]);
      if (x[0] > 0.0) t1 = std::atan(x[1] / x[0]) / tpi;
      if (x[0] < 0.0) t1 = std::atan(x[1] / x[0]) / tpi + 0.5;
      f[0] = 10.0 * (x[2] - 10.0 * t1);
      f[1] = 10.0 * (std::sqrt(x[0] * x[0] + x[1] * x[1]) - 1.0);
      f[2] = x[2];
      break;
    }
    case Watson: {
      std::fill(f, f + n, 0.0);
      for (int i = 1; i <= 29; ++i) {
        const double ti = i / 29.0;
        double s1 = 0.0, s2 = 0.0, t = 1.0;
        for (int j = 1; j < n; ++j, t *= ti) s1 += j * t * x[j];
        t = 1.0;
        for (int j = 0; j < n; ++j, t *= ti) s2 += t * x[j];
        const double r = s1 - s2 * s2 - 1.0, u = 2.0 * ti * s2;
        t = 1.0 / ti;
        for (int k = 0; k < n; ++k, t *= ti) f[k] += t * (k - u) * r;
      }
      const double t = x[1] - x[0] * x[0] - 1.0;
      f[0] += x[0] * (1.0 - 2.0 * t);
      f[1] += t;
      break;
    }
    case Chebyquad: {
      std::fill(f, f + n, 0.0);
      for (int j = 0; j < n; ++j) {
        double t1 = 1.0, t2 = 2.0 * x[j] - 1.0;
        const double t = 2.0 * t2;
        for (int i = 0; i < n; ++i) {
          f[i] += t2;
          const double ti = t * t2 - t1;
          t1 = t2;
          t2 = ti;
        }
      }
      for (int k = 0; k < n; ++k) {
        f[k] /= n;
        if (k % 2 == 1) f[k] += 1.0 / ((k + 1.0) * (k + 1.0) - 1.0);
      }
      break;
    }
    case BrownAlmostLinear: {
      double sum = -(n + 1.0), prod = 1.0;
      for (int j = 0; j < n; ++j) {
        sum += x[j];
        prod *= x[j];
      }
      for (int k = 0; k < n; ++k) f[k] = x[k] + sum;
      f[n - 1] = prod - 1.0;
      break;
    }
    case DiscreteBoundary: {
      const double h = 1.0 / (n + 1);
      for (int k = 0; k < n; ++k) {
        const double t = x[k] + (k + 1) * h + 1.0;
        f[k] = 2.0 * x[k] - (k > 0 ? x[k - 1] : 0.0) - (k < n - 1 ? x[k + 1] : 0.0) + t * t * t * h * h / 2.0;
      }
      break;
    }
    case DiscreteIntegral: {
      const double h = 1.0 / (n + 1);
      for (int k = 0; k < n; ++k) {
        const double tk = (k + 1) * h;
        double s1 = 0.0, s2 = 0.0;
        for (int j = 0; j <= k; ++j) {
          const double tj = (j + 1) * h, t = x[j] + tj + 1.0;
          s1 += tj * t * t * t;
        }
        for (int j = k + 1; j < n; ++j) {
          const double tj = (j + 1) * h, t = x[j] + tj + 1.0;
          s2 += (1.0 - tj) * t * t * t;
        }
        f[k] = x[k] + h * ((1.0 - tk) * s1 + tk * s2) / 2.0;
      }
      break;
    }
    case Trigonometric: {
      double sum = 0.0;
      for (int j = 0; j < n; ++j) sum += (f[j] = std::cos(x[j]));
      for (int k = 0; k < n; ++k) f[k] = (n + k + 1.0) - std::sin(x[k]) - sum - (k + 1.0) * f[k];
      break;
    }
    case VariablyDimensioned: {
      double sum = 0.0;
      for (int j = 0; j < n; ++j) sum += (j + 1.0) * (x[j] - 1.0);
      const double t = sum * (1.0 + 2.0 * sum * sum);
      for (int k = 0; k < n; ++k) f[k] = x[k] - 1.0 + (k + 1.0) * t;
      break;
    }
    case BroydenTridiagonal:
      for (int k = 0; k < n; ++k)
        f[k] = (3.0 - 2.0 * x[k]) * x[k] - (k > 0 ? x[k - 1] : 0.0) - 2.0 * (k < n - 1 ? x[k + 1] : 0.0) + 1.0;
      break;
    case BroydenBanded:
      for (int k = 0; k < n; ++k) {
        double t = 0.0;
        for (int j = std::max(0, k - 5); j <= std::min(n - 1, k + 1); ++j)
          if (j != k) t += x[j] * (1.0 + x[j]);
        f[k] = x[k] * (2.0 + 5.0 * x[k] * x[k]) + 1.0 - t;
      }
      break;
  }
}

// The standard start times factor (Watson's start is 0: then every
// element is factor).
inline std::vector<double> start(int p, int n, double factor) {
  static constexpr double kPowell[] = {3.0, -1.0, 0.0, 1.0};
  std::vector<double> x(n);
  const double h = 1.0 / (n + 1);
  for (int j = 0; j < n; ++j) {
    switch (p) {
      case Rosenbrock: x[j] = j == 0 ? -1.2 : 1.0; break;
      case PowellSingular: x[j] = kPowell[j]; break;
      case PowellBadlyScaled: x[j] = j == 0 ? 0.0 : 1.0; break;
      case Wood: x[j] = j % 2 == 0 ? -3.0 : -1.0; break;
      case HelicalValley: x[j] = j == 0 ? -1.0 : 0.0; break;
      case Watson: x[j] = 0.0; break;
      case Chebyquad: x[j] = (j + 1) * h; break;
      case BrownAlmostLinear: x[j] = 0.5; break;
      case DiscreteBoundary:
      case DiscreteIntegral: x[j] = (j + 1) * h * ((j + 1) * h - 1.0); break;
      case Trigonometric: x[j] = 1.0 / n; break;
      case VariablyDimensioned: x[j] = 1.0 - (j + 1.0) / n; break;
      default: x[j] = -1.0; break;
    }
  }
  if (factor != 1.0)
    for (double& v : x) v = p == Watson ? factor : factor * v;
  return x;
}

// The cases of the MINPACK-1 test of its hybrid solver: problem, n, and
// how many of the factors 1, 10, 100 are tried.
struct Case {
  int problem, n, tries;
};
inline const Case kCases[] = {{1, 2, 3},  {2, 4, 3},  {3, 2, 2},  {4, 4, 3},  {5, 3, 3},  {6, 6, 2},
                              {6, 9, 2},  {7, 5, 3},  {7, 6, 3},  {7, 7, 3},  {7, 8, 1},  {7, 9, 1},
                              {8, 10, 3}, {8, 30, 1}, {8, 40, 1}, {9, 10, 3}, {10, 1, 3}, {10, 10, 3},
                              {11, 10, 3}, {12, 10, 3}, {13, 10, 3}, {14, 10, 3}};

}  // namespace mgh
