// psi, its derivatives and ln Gamma for real and complex arguments, as one
// set of templates over double and std::complex<double>.
//
// Each function is shifted by the recurrence (z -> z + N) until |z + N| is
// large enough for its Euler-Maclaurin (Stirling) series to reach the working
// precision with the Bernoulli terms below; left of the imaginary axis the
// reflection formulas take over.
#pragma once

#include <array>
#include <cmath>
#include <complex>
#include <type_traits>

#include "specfun/detail/series.hpp"

namespace zil::sf {

using Cx = std::complex<double>;

// The shifted sums and the series are formed in the x87 extended format: the
// steps of the recurrence cancel against the series (psi(1) is ln 13 - 2.99
// - ...), and its 11 extra bits keep that cancellation out of the result.
template <class T>
struct Wider {
  using type = long double;
};
template <>
struct Wider<Cx> {
  using type = std::complex<long double>;
};
template <class T>
using wider_t = typename Wider<T>::type;

template <class T, class W>
T narrow(W v) {
  if constexpr (std::is_same_v<T, Cx>)
    return {static_cast<double>(v.real()), static_cast<double>(v.imag())};
  else
    return static_cast<T>(v);
}

// B(2i), i = 1..14: exact rationals rounded once.
inline constexpr std::array<double, 14> kBernoulli = {
    1.0 / 6.0,       -1.0 / 30.0,         1.0 / 42.0,   -1.0 / 30.0,           5.0 / 66.0,
    -691.0 / 2730.0, 7.0 / 6.0,           -3617.0 / 510.0, 43867.0 / 798.0,    -174611.0 / 330.0,
    854513.0 / 138.0, -236364091.0 / 2730.0, 8553103.0 / 6.0, -23749461029.0 / 870.0};

// The radius beyond which the series of order s (0: psi, ln Gamma) needs no
// more than the terms above: the ratio of its terms is about
// ((s + 2i)/(2 pi |z|))^2, which this keeps below 1/20 for every s.
inline double series_radius(double s) { return 10.0 + 0.7 * s; }

// The number of unit steps that carries z (Re z > 0) out to that radius (0
// for a NaN).
template <class T>
long shift_count(T z, double s) {
  const double r = series_radius(s);
  const double x = std::real(z), y = std::imag(z);
  if (!(x * x + y * y < r * r)) return 0;
  return static_cast<long>(std::ceil(std::sqrt(r * r - y * y) - x));
}

// psi(a) - ln a = -1/(2a) - sum B(2i)/(2i a^(2i)), for |a| >= series_radius(0).
template <class W>
W psi_minus_log_asymptotic(W a) {
  using R = decltype(std::abs(a));
  const W w = R(1) / (a * a);
  W s = 0.0;
  for (int i = static_cast<int>(kBernoulli.size()); i >= 1; --i) s = s * w + R(kBernoulli[i - 1]) / R(2 * i);
  return R(-0.5) / a - s * w;
}

// psi(z) - ln z for Re z > 0.  The shifted part ln((z+N)/z) - sum 1/(z+j)
// is summed smallest term first.
template <class T>
T psi_minus_log(T z) {
  using W = wider_t<T>;
  const W zw = z;
  const long n = shift_count(z, 0);
  if (n == 0) return narrow<T>(psi_minus_log_asymptotic(zw));
  const W a = zw + static_cast<long double>(n);
  W sum = 0.0;
  for (long j = n - 1; j >= 0; --j) sum += 1.0L / (zw + static_cast<long double>(j));
  return narrow<T>((std::log(a) - std::log(zw)) + psi_minus_log_asymptotic(a) - sum);
}

template <class T>
T psi_right(T z) {
  using W = wider_t<T>;
  const W zw = z;
  const long n = shift_count(z, 0);
  const W a = zw + static_cast<long double>(n);
  W sum = 0.0;
  for (long j = n - 1; j >= 0; --j) sum += 1.0L / (zw + static_cast<long double>(j));
  return narrow<T>(std::log(a) + psi_minus_log_asymptotic(a) - sum);
}

// The Hurwitz zeta function zeta(s, z) = sum over j >= 0 of (z + j)^-s, for
// an integer s >= 2 and Re z > 0.  The leading terms are summed directly;
// when they fall below the working precision (large s) the tail is dropped,
// otherwise it is the Euler-Maclaurin sum at a = z + N.
template <class T>
T hurwitz_zeta(double s, T z) {
  using W = wider_t<T>;
  using R = long double;
  const W zw = z;
  const long n = shift_count(z, s);
  const R ds = s;
  W sum = 0.0;
  for (long j = 0; j < n; ++j) {
    const W t = std::pow(zw + static_cast<R>(j), -ds);
    sum += t;
    // The rest is below t (1 + |z + j|/(s - 1)).
    if (std::abs(t) * (1 + std::abs(zw + static_cast<R>(j)) / (ds - 1)) < R(0.25 * kEps) * std::abs(sum))
      return narrow<T>(sum);
  }
  const W a = zw + static_cast<R>(n);
  const W as = std::pow(a, -ds);
  W tail = as * a / (ds - 1) + R(0.5) * as;
  // Term i: B(2i)/(2i)! s(s+1)...(s+2i-2) a^(-s-2i+1).
  const W w = R(1) / (a * a);
  W f = as * ds / a;  // s a^(-s-1), then times (s+2i-1)(s+2i) w / ((2i+1)(2i+2))
  for (int i = 1; i <= static_cast<int>(kBernoulli.size()); ++i) {
    const W term = f * R(kBernoulli[i - 1] / 2.0);
    tail += term;
    if (std::abs(term) <= R(0.25 * kEps) * std::abs(tail)) break;
    f *= w * ((ds + 2 * i - 1) * (ds + 2 * i) / ((2 * i + 1) * R(2 * i + 2)));
  }
  return narrow<T>(sum + tail);
}

// psi^(k)(z) for Re z > 0: (-1)^(k+1) k! zeta(k+1, z), and psi for k = 0.
template <class T>
T polygamma_right(int k, T z) {
  if (k == 0) return psi_right(z);
  double factorial = 1.0;
  for (int i = 2; i <= k; ++i) factorial *= i;
  return (k % 2 ? factorial : -factorial) * hurwitz_zeta(k + 1, z);
}

// cot(pi z), with z reduced by its nearest integer first so that the argument
// of the circular functions is exact.
inline double cot_pi(double x) {
  const double r = x - std::nearbyint(x);
  // Near r = 1/2, where cot vanishes, the rounding of pi r would cost all
  // its relative accuracy: there cot(pi r) = tan(pi (1/2 - |r|)), exact
  // argument.
  if (std::fabs(r) <= 0.25) return std::cos(kPi * r) / std::sin(kPi * r);
  return std::copysign(std::tan(kPi * (0.5 - std::fabs(r))), r);
}
// exp(2 pi i z) - 1 for Im z >= 0, from the reduced real part r, with
// expm1 so that it keeps its digits near the integers, where it vanishes.
inline Cx exp_2pi_i_minus_1(double r, double y) {
  const double u = 2.0 * kPi * r, v = 2.0 * kPi * y;
  const double s = std::sin(0.5 * u);
  return {std::expm1(-v) * std::cos(u) - 2.0 * s * s, std::exp(-v) * std::sin(u)};
}

inline Cx cot_pi(Cx z) {
  // cot w = i (q + 1)/(q - 1), q = exp(2iw), for Im w >= 0 (|q| <= 1); the
  // lower half-plane by conjugation.  With u = 2 pi r and v = 2 pi |Im z|,
  // q -/+ 1 = expm1(-v) cos u -/+ 2 (sin, cos)^2(u/2) + i exp(-v) sin u: each
  // real part a sum of terms of one sign, so that neither loses digits where
  // it vanishes, q + 1 near the half-integers as q - 1 near the integers.
  // The half-angle functions come from exact reduced arguments, the rest in
  // the extended format.
  using R = long double;
  using W = std::complex<R>;
  constexpr R pi = 3.14159265358979323846264338327950288L;
  const double r = z.real() - std::nearbyint(z.real());
  const R s = std::sin(pi * r);
  const R c = std::fabs(r) <= 0.25 ? std::cos(pi * r) : std::sin(pi * (0.5 - std::fabs(r)));
  const R v = 2.0L * pi * std::fabs(z.imag());
  const R em1 = std::expm1(-v), cos_u = (c - s) * (c + s), sin_u = 2.0L * s * c * std::exp(-v);
  const W qm1(em1 * cos_u - 2.0L * s * s, sin_u), qp1(em1 * cos_u + 2.0L * c * c, sin_u);
  const Cx w = narrow<Cx>(W(0.0L, 1.0L) * qp1 / qm1);
  return z.imag() < 0.0 ? std::conj(w) : w;
}

// d^k/dx^k cot(pi x) = pi^k P_k(cot(pi x)) with P_0(c) = c and
// P_(k+1)(c) = -(1 + c^2) P_k'(c).
inline double cot_pi_derivative(int k, double x) {
  std::array<double, 16> p{};  // coefficients, lowest power first
  p[1] = 1.0;
  for (int d = 0; d < k; ++d) {
    std::array<double, 16> q{};
    for (int j = 1; j <= d + 1; ++j) {
      q[j - 1] -= j * p[j];
      q[j + 1] -= j * p[j];
    }
    p = q;
  }
  const double c = cot_pi(x);
  double v = 0.0;
  for (int j = k + 1; j >= 0; --j) v = v * c + p[j];
  return std::pow(kPi, k) * v;
}

// Off the real axis 1 + c^2 cancels as cot tends to -i, so the derivatives
// come from cot(pi z) = -i - 2i sum q^n, q = exp(2 pi i z) (Im z > 0):
// d^k/dz^k cot(pi z) = -2i (2 pi i)^k q A_k(q)/(1 - q)^(k+1), with the
// Eulerian polynomial A_k, whose coefficients are all positive.  The power
// (1 - q)^(k+1) multiplies the relative error of 1 - q by k + 1: q, 1 - q and
// the products are formed in the extended format, and the powers by repeated
// multiplication (a complex pow goes through exp and log).
inline Cx cot_pi_derivative(int k, Cx z) {
  if (z.imag() == 0.0) return cot_pi_derivative(k, z.real());
  if (k == 0) return cot_pi(z);
  if (z.imag() < 0.0) return std::conj(cot_pi_derivative(k, std::conj(z)));
  using R = long double;
  using W = std::complex<R>;
  std::array<R, 16> e{};  // A_k, lowest power first: A(n,m) = (n-m) A(n-1,m-1) + (m+1) A(n-1,m)
  e[0] = 1.0L;
  for (int n = 2; n <= k; ++n)
    for (int m = n - 1; m >= 0; --m) e[m] = (m > 0 ? (n - m) * e[m - 1] : 0.0L) + (m + 1) * e[m];
  // q - 1 by expm1, which keeps its digits near the integers, where it
  // vanishes; q itself straight from its polar form, which keeps them where
  // q is far smaller than 1.
  constexpr R two_pi = 6.28318530717958647692528676655900577L;
  const R u = two_pi * (z.real() - std::nearbyint(z.real())), v = two_pi * z.imag();
  const R half = std::sin(0.5L * u);
  const W one_minus_q(2.0L * half * half - std::expm1(-v) * std::cos(u), -std::exp(-v) * std::sin(u));
  const W q = std::polar(std::exp(-v), u);
  W a = 0.0L;
  for (int j = k - 1; j >= 0; --j) a = a * q + e[j];
  W num = W(0.0L, -2.0L) * q * a, den = one_minus_q;
  for (int j = 0; j < k; ++j) {
    num *= W(0.0L, two_pi);
    den *= one_minus_q;
  }
  return narrow<Cx>(num / den);
}

// psi^(k)(z) anywhere but at the poles: left of the imaginary axis by the
// reflection
// psi^(k)(z) = (-1)^k psi^(k)(1 - z) - pi d^k/dz^k cot(pi z).
template <class T>
T polygamma(int k, T z) {
  if (std::real(z) >= 0.0) return polygamma_right(k, z);
  const T right = polygamma_right(k, 1.0 - z);
  return (k % 2 ? -right : right) - kPi * cot_pi_derivative(k, z);
}

// ln Gamma(z) for Re z >= 1/2: Stirling's series at z + N, less the logs of
// the steps, each on its principal branch (all lie right of the imaginary
// axis), which gives the branch continuous from the positive real axis.
inline Cx log_gamma_right(Cx z) {
  using W = std::complex<long double>;
  using R = long double;
  const W zw = z;
  const long n = shift_count(z, 0);
  const W a = zw + static_cast<R>(n);
  const W w = R(1) / (a * a);
  W s = 0.0;
  for (int i = static_cast<int>(kBernoulli.size()); i >= 1; --i)
    s = s * w + R(kBernoulli[i - 1]) / R(2 * i * (2 * i - 1));
  W steps = 0.0;
  for (long j = n - 1; j >= 0; --j) steps += std::log(zw + static_cast<R>(j));
  constexpr R ln_sqrt_2pi = 0.918938533204672741780329736405617639L;
  return narrow<Cx>(((a - R(0.5)) * std::log(a) - a + ln_sqrt_2pi) + s / a - steps);
}

// ln Gamma(z), branch cut along the negative real axis, whose points take
// the value from above.  Left of 1/2 by the reflection
// ln Gamma(z) = ln pi - L(z) - ln Gamma(1 - z), with L the branch of
// ln sin(pi z) that is analytic in the upper half-plane:
// L(z) = -ln 2 + i pi/2 - i pi z + ln(1 - exp(2 pi i z)).
inline Cx log_gamma(Cx z) {
  if (z.real() >= 0.5) return log_gamma_right(z);
  if (z.imag() < 0.0) return std::conj(log_gamma(std::conj(z)));
  const double r = z.real() - std::nearbyint(z.real());
  const Cx l = Cx(-kLn2, 0.5 * kPi) - Cx(0.0, kPi) * z + std::log(-exp_2pi_i_minus_1(r, z.imag()));
  return (std::log(kPi) - l) - log_gamma_right(1.0 - z);
}

}  // namespace zil::sf
