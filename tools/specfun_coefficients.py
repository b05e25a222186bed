#!/usr/bin/env python3
"""Chebyshev expansions of the special-function chapter, from the definitions.

Each series is the Chebyshev expansion of the stated function of the mapped
variable t on [-1, 1], computed from values at 4N Chebyshev-Gauss nodes in
mpmath at WORKING_DPS decimal digits, truncated to the stated number of terms
and (except for the erf tables, which stay Chebyshev coefficients for the
Clenshaw loop) rewritten as an ordinary polynomial in t, highest power first.
Only the final rounding to double happens outside the working precision.

    python3 tools/specfun_coefficients.py > specfun/detail/coefficients.hpp

With --check the script prints, for each table, the largest error in units
of 2^-53 of the double-rounded polynomial evaluated in double (Horner) against
the function, over 2000 points of [-1, 1].
"""
import sys

import mpmath as mp

WORKING_DPS = 60
mp.mp.dps = WORKING_DPS


def cheb_coeffs(fn, n):
    m = 4 * n
    vals = [fn(mp.cos(mp.pi * (j + mp.mpf(0.5)) / m)) for j in range(m)]
    out = []
    for k in range(n):
        s = mp.fsum(vals[j] * mp.cos(mp.pi * k * (j + mp.mpf(0.5)) / m) for j in range(m))
        out.append(2 * s / m)
    return out


def cheb_to_monomial(c):
    """sum' c_k T_k(t) as ascending powers of t (c_0 halved)."""
    n = len(c)
    tk_prev, tk = [mp.mpf(1)], [mp.mpf(0), mp.mpf(1)]
    poly = [c[0] / 2] + [mp.mpf(0)] * (n - 1)
    if n > 1:
        poly[1] += c[1]
    for k in range(2, n):
        nxt = [mp.mpf(0)] * (k + 1)
        for i, a in enumerate(tk):
            nxt[i + 1] += 2 * a
        for i, a in enumerate(tk_prev):
            nxt[i] -= a
        tk_prev, tk = tk, nxt
        for i, a in enumerate(tk):
            poly[i] += c[k] * a
    return poly


def compose_affine(poly, a, b):
    """p(a*u + b) as ascending powers of u."""
    out = [mp.mpf(0)] * len(poly)
    power = [mp.mpf(1)]
    for coef in poly:
        for i, v in enumerate(power):
            out[i] += coef * v
        nxt = [mp.mpf(0)] * (len(power) + 1)
        for i, v in enumerate(power):
            nxt[i] += v * b
            nxt[i + 1] += v * a
        power = nxt
    return out


def limit_safe(fn, at, value):
    return lambda t: value if t == at else fn(t)


pi = mp.pi
euler = mp.euler
half_log_2pi = mp.log(2 * pi) / 2


def e1(x):
    return mp.e1(x)


def ci_f(x):  # auxiliary f of Ci/Si: Ci = f sin x - g cos x, Si = pi/2 - f cos x - g sin x
    si = mp.si(x) - pi / 2
    return mp.ci(x) * mp.sin(x) - si * mp.cos(x)


def ci_g(x):
    si = mp.si(x) - pi / 2
    return -mp.ci(x) * mp.cos(x) - si * mp.sin(x)


def fresnel_f(x):  # C = 1/2 + f sin(pi x^2/2) - g cos(..), S = 1/2 - f cos(..) - g sin(..)
    a = pi * x * x / 2
    return (mp.fresnelc(x) - 0.5) * mp.sin(a) + (0.5 - mp.fresnels(x)) * mp.cos(a)


def fresnel_g(x):
    a = pi * x * x / 2
    return (0.5 - mp.fresnels(x)) * mp.sin(a) - (mp.fresnelc(x) - 0.5) * mp.cos(a)


def dawson(x):
    return mp.sqrt(pi) / 2 * mp.exp(-x * x) * mp.erfi(x)


# The constant of the shifted logarithm's map, from the two literals it is
# written with, so that 4 t p(t^2) is exactly 2 artanh(c t).
S01_C = mp.mpf(0.1728544674517796) / mp.mpf(1.0074696667295095)


def s01_p(s):
    u = (s + 1) / 2
    r = mp.sqrt(u)
    return mp.atanh(S01_C * r) / (2 * r)


# name, terms, function of t, comment, kind ("poly" or "cheb"), affine map
# (a, b) of the polynomial's variable to t when it is not t itself.
TABLES = [
    ("s01ba", 8, s01_p, "artanh(c sqrt(u)) / (2 sqrt(u)), u = t^2 in [0, 1], c = 3 - 2 sqrt(2)", "poly", (2, -1)),
    ("s07aa", 15, lambda t: (lambda f: mp.tan(f) / f)(pi / 2 * mp.sqrt((t + 1) / 8)),
     "tan(f)/f, t = 8 (2f/pi)^2 - 1", "poly", None),
    ("s10aa", 15, lambda t: (lambda x: mp.tanh(x) / x)(mp.sqrt((t + 1) / 2)), "tanh(x)/x, t = 2x^2 - 1", "poly", None),
    ("s10ab", 7, lambda t: (lambda x: mp.sinh(x) / x)(mp.sqrt((t + 1) / 2)), "sinh(x)/x, t = 2x^2 - 1", "poly", None),
    ("s11aa", 20, lambda t: (lambda x: mp.atanh(x) / x)(mp.sqrt((t + 1) / 4)), "artanh(x)/x, t = 4x^2 - 1", "poly", None),
    ("s11ab", 19, lambda t: (lambda x: mp.asinh(x) / x)(mp.sqrt((t + 1) / 2)), "arsinh(x)/x, t = 2x^2 - 1", "poly", None),
    ("s13aa_0", 13, lambda t: (lambda x: e1(x) + mp.log(x))((t + 1) / 2), "E1(x) + ln x, t = 2x - 1", "poly", None),
    ("s13aa_1", 22, lambda t: e1((t + 3) / 2), "E1(x), t = 2x - 3", "poly", None),
    ("s13aa_2", 22, lambda t: e1(t + 3), "E1(x), t = x - 3", "poly", None),
    ("s13aa_3", 18, lambda t: (lambda x: x * mp.exp(x) * e1(x))(mp.mpf(14.5) / (t + 1) - mp.mpf(3.25)),
     "x exp(x) E1(x), t = 14.5/(x + 3.25) - 1", "poly", None),
    ("s13ac_0", 22, lambda t: (lambda x: mp.ci(x) - mp.log(x))(mp.sqrt(128 * (t + 1))),
     "Ci(x) - ln x, t = x^2/128 - 1", "poly", None),
    ("s13ad_0", 21, lambda t: (lambda x: mp.si(x) / x)(mp.sqrt(128 * (t + 1))), "Si(x)/x, t = x^2/128 - 1", "poly", None),
    ("s13_f", 14, lambda t: (lambda x: x * ci_f(x))(mp.sqrt(512 / (t + 1))),
     "x f(x), f the auxiliary function of Ci and Si, t = 512/x^2 - 1", "poly", None),
    ("s13_g", 16, lambda t: (lambda x: x * x * ci_g(x))(mp.sqrt(512 / (t + 1))),
     "x^2 g(x), g the auxiliary function of Ci and Si, t = 512/x^2 - 1", "poly", None),
    ("s14aa", 22, lambda t: mp.gamma(1 + (t + 1) / 2), "Gamma(1 + f), t = 2f - 1", "poly", None),
    ("s14ba", 22, lambda t: (lambda a: (mp.gamma(1 + a) - 1) / a)((t + 1) / 2),
     "(Gamma(1 + a) - 1)/a, t = 2a - 1", "poly", None),
    ("s14ab", 5, lambda t: (lambda x: x * (mp.loggamma(x) - ((x - 0.5) * mp.log(x) - x + half_log_2pi)))(
        mp.sqrt(450 / (t + 1))), "x (ln Gamma(x) - Stirling's leading terms), t = 450/x^2 - 1", "poly", None),
    ("s15ad", 23, lambda t: (lambda x: mp.exp(x * x) * mp.erfc(x))(mp.mpf(3.75) * (1 + t) / (1 - t)),
     "exp(x^2) erfc(x), t = 1 - 7.5/(x + 3.75)", "poly", None),
    ("s15ae_0", 17, lambda y: (lambda x: mp.erf(x) / x)(mp.sqrt(2 * (y + 1))),
     "erf(x)/x, Chebyshev coefficients in y = t/2, t = x^2 - 2", "cheb", None),
    ("s15ae_1", 17, lambda y: (lambda x: mp.sqrt(pi) * x * mp.exp(x * x) * mp.erfc(x))(10 / (1 - y) - 3),
     "sqrt(pi) x exp(x^2) erfc(x), Chebyshev coefficients in y = t/2, t = 2 - 20/(x + 3)", "cheb", None),
    ("s15af_0", 31, lambda t: (lambda x: dawson(x) / x)(mp.sqrt(8 * (t + 1))), "F(x)/x, t = x^2/8 - 1", "poly", None),
    ("s15af_1", 30, lambda t: (lambda x: x * dawson(x))(mp.sqrt(32 / (t + 1))), "x F(x), t = 32/x^2 - 1", "poly", None),
    ("s20ac", 20, lambda t: (lambda x: mp.fresnels(x) / x ** 3)(3 * mp.root((t + 1) / 2, 4)),
     "S(x)/x^3, t = 2 (x/3)^4 - 1", "poly", None),
    ("s20ad", 20, lambda t: (lambda x: mp.fresnelc(x) / x)(3 * mp.root((t + 1) / 2, 4)),
     "C(x)/x, t = 2 (x/3)^4 - 1", "poly", None),
    ("s20_f", 14, lambda t: (lambda x: x * fresnel_f(x))(3 * mp.root(2 / (t + 1), 4)),
     "x f(x), f the auxiliary function of the Fresnel integrals, t = 2 (3/x)^4 - 1", "poly", None),
    ("s20_g", 17, lambda t: (lambda x: x ** 3 * fresnel_g(x))(3 * mp.root(2 / (t + 1), 4)),
     "x^3 g(x), g the auxiliary function of the Fresnel integrals, t = 2 (3/x)^4 - 1", "poly", None),
]


# Tables used on part of their interval only: erfc stops at x = 26.6.
USED = {"s15ad": (-1.0, 1 - 7.5 / (26.6 + 3.75))}

# Tables held to an exact value at one end: erfc(0) = 1 at t = -1.  The
# truncated, rounded expansion misses it by a unit or two in the last place,
# which would show in erfc(0), erf's complement and the normal probabilities
# at 0.
PIN = {"s15ad": (-1, 1)}

# Tables whose coefficients are rounded one by one from the highest, each
# rounding's error but its T_k part taken off the lower coefficients (see
# round_compensated): those evaluated by the compensated nested
# multiplication, whose accuracy the plain rounding of the coefficients
# would otherwise set.
COMPENSATED = {"s20ac", "s20ad", "s13ac_0"}

# Tables whose function crosses zero: their error is measured against this
# magnitude (the size of the terms the routine adds them to) near the zero.
FLOOR = {"s13aa_0": 0.5, "s13ac_0": 2.0, "s14ba": 0.5}


def mul(a, b, n):
    out = [mp.mpf(0)] * n
    for i, x in enumerate(a[:n]):
        if x == 0: continue
        for j, y in enumerate(b[:n - i]):
            out[i + j] += x * y
    return out

def recip(a, n):
    out = [mp.mpf(0)] * n
    out[0] = 1 / a[0]
    for k in range(1, n):
        s = mp.fsum(a[j] * out[k - j] for j in range(1, min(k, len(a) - 1) + 1))
        out[k] = -s / a[0]
    return out

def sqrt_series(a, n):
    out = [mp.mpf(0)] * n
    out[0] = mp.sqrt(a[0])
    for k in range(1, n):
        s = mp.fsum(out[j] * out[k - j] for j in range(1, k))
        out[k] = (a[k] - s) / (2 * out[0])
    return out

def compose(h, m, n):
    # h(m(eta)), m has m[0] = 0
    out = [mp.mpf(0)] * n
    power = [mp.mpf(1)] + [mp.mpf(0)] * (n - 1)
    for coef in h[:n]:
        for i in range(n):
            out[i] += coef * power[i]
        power = mul(power, m, n)
    return out

def temme_coefficients(K, N):
    """Taylor coefficients in eta of Temme's c_k(eta), k < K, from
    c_0 = 1/mu - 1/eta and c_k = (c_{k-1}'(eta) - c_{k-1}'(0) eta/mu)/eta,
    where eta^2/2 = mu - ln(1 + mu) (the constant c_{k-1}'(0) is the Stirling
    coefficient that makes c_k regular at eta = 0)."""
    n0 = N + 2 * K + 2
    # h(mu) = sqrt(2 (mu - ln(1+mu)) / mu^2) = sqrt(sum 2 (-1)^k mu^k/(k+2))
    h = sqrt_series([2 * mp.mpf(-1) ** k / (k + 2) for k in range(n0)], n0)
    # mu(eta) = eta / h(mu(eta)), by iteration
    mu = [mp.mpf(0), mp.mpf(1)] + [mp.mpf(0)] * (n0 - 2)
    for _ in range(n0 + 2):
        inv = recip(compose(h, mu, n0), n0)
        mu = [mp.mpf(0)] + inv[:n0 - 1]
    r = recip(mu[1:], n0 - 1)  # eta/mu
    c = [r[k + 1] for k in range(n0 - 2)]  # c_0 = (r - 1)/eta
    out = [c]
    for k in range(1, K):
        d1 = c[1]
        deriv = [c[j + 1] * (j + 1) for j in range(len(c) - 1)]
        num = [deriv[j] - d1 * r[j] for j in range(len(deriv))]
        assert abs(num[0]) < mp.mpf(10) ** -40
        c = num[1:]
        out.append(c)
    return [cc[:N] for cc in out]


TEMME_TERMS, TEMME_DEGREE = 10, 20


def chebyshev_t(k):
    """T_k(t) as ascending powers of t."""
    prev, cur = [mp.mpf(1)], [mp.mpf(0), mp.mpf(1)]
    if k == 0:
        return prev
    for _ in range(k - 1):
        nxt = [mp.mpf(0)] + [2 * a for a in cur]
        for i, a in enumerate(prev):
            nxt[i] -= a
        prev, cur = cur, nxt
    return cur


def round_compensated(poly, a, b):
    """Rounds the ascending powers of v (t = a v + b) to double from the
    highest down.  The rounding error d v^k of each coefficient is, but for
    its T_k component d a^-k 2^(1-k) T_k(t), a polynomial of lower degree, and
    is taken off the coefficients still to be rounded; what remains of it is
    2^(1-k) times smaller than the rounding itself.  The plain rounding of
    every coefficient would instead leave errors of the size of the
    cancelling terms of the polynomial."""
    poly = list(poly)
    for k in range(len(poly) - 1, 0, -1):
        rounded = mp.mpf(float(poly[k]))
        d = rounded - poly[k]
        poly[k] = rounded
        kept = compose_affine(chebyshev_t(k), a, b)  # T_k(a v + b), leading a^k 2^(k-1)
        scale = d / kept[k]
        for i in range(k):
            poly[i] += scale * kept[i]
    poly[0] = mp.mpf(float(poly[0]))
    return poly


def build(name, n, fn, kind, affine, centre=0):
    c = cheb_coeffs(fn, n)
    if kind == "cheb":
        return c
    poly = cheb_to_monomial(c)
    if affine:
        poly = compose_affine(poly, *affine)
    elif centre:
        poly = compose_affine(poly, 1, centre)  # powers of s = t - centre
    if name in COMPENSATED:
        a, b = affine if affine else (1, centre)  # t = a v + b
        poly = round_compensated(poly, a, b)
    return list(reversed(poly))  # highest power first


def best_centre(name, n, fn, kind, affine):
    """The expansion point (-1, 0 or 1) whose nested multiplication in double
    loses least: a function that falls steeply is best expanded about the
    end where it is small."""
    if kind == "cheb" or affine:
        return 0, build(name, n, fn, kind, affine)
    best = None
    for centre in (0, -1, 1, -0.5, 0.5):
        coefs = build(name, n, fn, kind, affine, centre)
        err = check(name, n, fn, kind, affine, coefs, centre, points=400)
        if best is None or err < best[0] * 0.8:
            best = (err, centre, coefs)
    return best[1], best[2]


def pin(coefs, centre, at, value):
    """Rounds the coefficients to double and moves the leading one (the
    highest power, which weighs most at the end of the interval far from the
    centre and least near the centre) so that the second-order nested
    multiplication in double (even and odd powers apart, as the routine
    evaluates the table) gives `value` exactly at t = `at`: first by the exact defect of
    the rounded polynomial, then by steps worth a quarter of a unit in the
    last place of `value` until the double evaluation agrees."""
    import math
    from fractions import Fraction
    c = [float(a) for a in coefs]
    s = float(at - centre)
    weight = s ** (len(c) - 1)
    exact = Fraction(0)
    for a in c:
        exact = exact * Fraction(s) + Fraction(a)
    c[0] = float(Fraction(c[0]) + (Fraction(value) - exact) / Fraction(weight))
    for _ in range(64):
        got = horner2(c, s)
        if got == value:
            return c
        c[0] += math.ulp(value) / 4 / weight * (-1 if got > value else 1)
    raise RuntimeError("pin did not settle")


def horner2(coefs, t):
    """Second-order Horner in double, as poly2 in specfun/detail/series.hpp."""
    t2 = t * t
    a, b = coefs[0], coefs[1]
    k = 2
    while k + 1 < len(coefs):
        a = a * t2 + coefs[k]
        b = b * t2 + coefs[k + 1]
        k += 2
    if k < len(coefs):
        return (a * t2 + coefs[k]) + b * t
    return a * t + b


def horner(coefs, t):
    p = coefs[0]
    for a in coefs[1:]:
        p = p * t + a
    return p


def check(name, n, fn, kind, affine, coefs, centre=0, points=2000):
    dbl = [float(a) for a in coefs]
    worst = 0.0
    lo, hi = USED.get(name, (-1.0, 1.0))
    for i in range(1, points):
        t = lo + (hi - lo) * i / float(points)
        if kind == "cheb":
            b_next = b_next2 = 0.0
            for a in reversed(dbl):
                b_next, b_next2 = 2 * t * b_next - b_next2 + a, b_next
            # b_next = b(0), b_next2 = b(1); b(2) = 2t b(1) - b(0) + c0
            b2 = 2 * t * b_next2 - b_next + dbl[0]
            got = (b_next - b2) * 0.5
            exact = fn(mp.mpf(t))
        else:
            if affine:
                u = (t + 1) / 2
                got, exact = horner(dbl, u), fn(mp.mpf(t))
            else:
                got, exact = horner(dbl, t - centre), fn(mp.mpf(t))
        size = max(abs(exact), FLOOR.get(name, 0))
        if size == 0:
            continue
        err = abs((mp.mpf(got) - exact) / size) * 2 ** 53
        worst = max(worst, float(err))
    return worst


FADDEEVA_NODES = 17


def faddeeva_table():
    """Nodes and weights of the trapezoidal rule of step h = pi/7 for
    w(z) = (i/pi) int exp(-t^2)/(z - t) dt: the nodes k h and the midpoints
    (k + 1/2) h, k = 0..16, rounded to double, and the weights
    (h/pi) exp(-t^2) = exp(-t^2)/7 at the rounded nodes, so that the rule is
    the exact trapezoidal sum over the nodes it uses."""
    lines = []
    lines.append("// The trapezoidal rule of step pi/7 for w(z) = (i/pi) int exp(-t^2)/(z - t) dt:")
    lines.append(f"// nodes k pi/7 and midpoints (k + 1/2) pi/7, k = 0..{FADDEEVA_NODES - 1}, rounded to double, with")
    lines.append(f"// the weights exp(-t^2)/7 at the rounded nodes, from mpmath at {WORKING_DPS} digits.")
    for name, shift in (("faddeeva_nodes", 0), ("faddeeva_midpoints", mp.mpf(1) / 2)):
        lines.append(f"inline constexpr std::array<std::array<double, 2>, {FADDEEVA_NODES}> {name} = {{{{")
        for k in range(FADDEEVA_NODES):
            t = float((k + shift) * mp.pi / 7)
            c = mp.exp(-mp.mpf(t) ** 2) / 7
            lines.append(f"    {{{t!r}, {float(c)!r}}},")
        lines.append("}};")
    return lines


def main():
    if "--check" in sys.argv:
        for name, n, fn, comment, kind, affine in TABLES:
            if len(sys.argv) > 2 and name not in sys.argv[2:]:
                continue
            centre, coefs = best_centre(name, n, fn, kind, affine)
            err = check(name, n, fn, kind, affine, coefs, centre)
            print(f"{name:10s} {n:3d} terms  centre {centre:4g}  max error {err:8.3f} units of 2^-53", flush=True)
        return
    print("// Generated by tools/specfun_coefficients.py; do not edit.")
    print(f"// Chebyshev expansions computed in mpmath at {WORKING_DPS} digits from each")
    print("// function's definition, truncated to the stated length, then rounded once")
    print("// to double.  Polynomial tables hold powers of the mapped variable, highest")
    print("// first, for a nested multiplication; the erf tables hold Chebyshev")
    print("// coefficients for the Clenshaw recurrence.")
    print("#pragma once")
    print()
    print("#include <array>")
    print()
    print("namespace zil::sf::coef {")
    for name, n, fn, comment, kind, affine in TABLES:
        centre, coefs = best_centre(name, n, fn, kind, affine)
        if name in PIN:
            coefs = pin(coefs, centre, *PIN[name])
        if kind == "cheb":
            what = "Chebyshev coefficients"
        elif centre:
            what = f"powers of (t - {centre}), highest first"
        else:
            what = "powers of the variable, highest first"
        print()
        pinned = ""
        if name in PIN:
            pinned = f" The leading coefficient is moved so that t = {PIN[name][0]} gives {PIN[name][1]} exactly."
        if name in COMPENSATED:
            pinned += " Rounded from the highest power down, each rounding compensated in the lower powers."
        print(f"// {comment}: {n}-term Chebyshev expansion on [-1, 1], {what}.{pinned}")
        if kind != "cheb" and not affine:
            print(f"inline constexpr double {name}_centre = {float(centre)!r};")
        print(f"inline constexpr std::array<double, {n}> {name} = {{")
        for a in coefs:
            print(f"    {float(a)!r},")
        print("};")
    print()
    print(f"// Temme's uniform expansion of Q(a, x): c_k(eta), k = 0..{TEMME_TERMS - 1}, as polynomials")
    print(f"// of degree {TEMME_DEGREE - 1} in eta, highest power first, from exact series algebra in")
    print(f"// mpmath at {WORKING_DPS} digits (see temme_coefficients).")
    print(f"inline constexpr std::array<std::array<double, {TEMME_DEGREE}>, {TEMME_TERMS}> temme = {{{{")
    for cs in temme_coefficients(TEMME_TERMS, TEMME_DEGREE):
        print("    {" + ", ".join(repr(float(v)) for v in reversed(cs)) + "},")
    print("}};")
    print()
    for line in faddeeva_table():
        print(line)
    print()
    print("}  // namespace zil::sf::coef")


if __name__ == "__main__":
    main()
