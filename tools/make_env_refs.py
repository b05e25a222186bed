#!/usr/bin/env python3
"""Reference data for the complex arithmetic and the extended inner product.

Writes, under tests/frame/data/:

  complex_refs.txt  one case per line: name x y p q ref_re ref_im scale
      The inputs are doubles (printed with repr, which strtod reads back
      exactly); p q is the second operand (divisor, factor, power) or 0 0;
      ref is the exact result rounded to the nearest double, from mpmath at
      60 decimal digits; scale is what the error of a power grows with, else
      0: |n| for z^n (one rounding per product, n-1 products), and
      |c| + |w| for z^c = exp(w), w = c log z, whose rounding errors the
      result inherits (log z is accurate to a few u in absolute terms, and
      that error is multiplied by c).

  dot_refs.txt  ill-conditioned dot products, each as a header line
      "case n c1 c2 cond hi lo abs_sum" and then n lines "a b".  The exact
      value of c1 + c2 + sum a*b is a rational number; hi is it rounded to the
      nearest double and lo the rest rounded likewise, abs_sum is
      |c1| + |c2| + sum |a*b| rounded up, cond = abs_sum / |exact|.

The vectors follow Ogita, Rump and Oishi, "Accurate sum and dot product",
SIAM J. Sci. Comput. 26 (2005), algorithm 6.1 (GenDot): the first half has
spread exponents, the second half is chosen term by term to cancel what went
before, so that the exact result is tiny against the size of the terms.

Usage: python3 tools/make_env_refs.py  (from the repository's root)
"""
import math
import os
import random
from fractions import Fraction

import mpmath
from mpmath import mp, mpc, mpf

mp.dps = 60
OUT = os.path.join(os.path.dirname(__file__), "..", "tests", "frame", "data")
rng = random.Random(19710503)


def d(v):
    """An mpmath real rounded to the nearest double."""
    return float(mpf(v))


def uniform(lo, hi):
    return rng.uniform(lo, hi)


def wide():
    """A double of either sign with its exponent anywhere in +-1000."""
    return rng.choice((-1, 1)) * rng.uniform(1, 2) * 2.0 ** rng.randint(-1000, 1000)


def row(name, z, w, ref, scale=0.0):
    ref = mpc(ref)
    return "%s %r %r %r %r %r %r %r" % (name, z[0], z[1], w[0], w[1], d(ref.real), d(ref.imag), scale)


def complex_cases():
    rows = []
    zc = lambda z: mpc(z[0], z[1])
    for _ in range(60):
        z = (wide(), wide())
        rows.append(row("abs", z, (0.0, 0.0), mpmath.hypot(*map(mpf, z))))
        rows.append(row("sqrt", z, (0.0, 0.0), mpmath.sqrt(zc(z))))
        w = (wide(), wide())
        q = zc(z) / zc(w)
        if 1e-300 < abs(q) < 1e300:
            rows.append(row("div", z, w, q))
    # Moderate numbers, all four quadrants, and the parts of very different
    # sizes that the scaled branches of sqrt and division must handle.
    for _ in range(60):
        z = (uniform(-8, 8), uniform(-8, 8))
        w = (uniform(-8, 8), uniform(-8, 8))
        rows.append(row("abs", z, (0.0, 0.0), mpmath.hypot(*map(mpf, z))))
        rows.append(row("arg", z, (0.0, 0.0), mpmath.atan2(mpf(z[1]), mpf(z[0]))))
        rows.append(row("sqrt", z, (0.0, 0.0), mpmath.sqrt(zc(z))))
        rows.append(row("div", z, w, zc(z) / zc(w)))
        rows.append(row("mul", z, w, zc(z) * zc(w)))
        # ln|z| near 0 loses relative accuracy by construction (no log1p),
        # so the logarithm is tested away from the unit circle.
        if abs(abs(zc(z)) - 1) > 0.1:
            rows.append(row("log", z, (0.0, 0.0), mpmath.log(zc(z))))
        rows.append(row("sin", z, (0.0, 0.0), mpmath.sin(zc(z))))
        rows.append(row("cos", z, (0.0, 0.0), mpmath.cos(zc(z))))
        # tan's denominator cosh 2y + cos 2x cancels near the poles; keep the
        # cancellation below a factor of 4.
        x2, y2 = 2 * mpf(z[0]), 2 * mpf(z[1])
        if mpmath.cosh(y2) + mpmath.cos(x2) >= 0.25 * (mpmath.cosh(y2) + 1):
            rows.append(row("tan", z, (0.0, 0.0), mpmath.tan(zc(z))))
        e = (uniform(-700, 700), uniform(-30, 30))
        rows.append(row("exp", e, (0.0, 0.0), mpmath.exp(zc(e))))
        s = (rng.choice((1e-200, 1e-20, 1.0, 1e20, 1e200)) * uniform(0.5, 2),
             rng.choice((1e-200, 1e-20, 1.0, 1e20, 1e200)) * uniform(-2, 2))
        rows.append(row("sqrt", s, (0.0, 0.0), mpmath.sqrt(zc(s))))
        rows.append(row("sqrt", (-s[0], s[1]), (0.0, 0.0), mpmath.sqrt(zc((-s[0], s[1])))))
        rows.append(row("div", z, s, zc(z) / zc(s)))
    for _ in range(80):
        r = rng.uniform(0.6, 1.4)
        t = rng.uniform(-math.pi, math.pi)
        z = (r * math.cos(t), r * math.sin(t))
        n = rng.randint(-40, 40)
        rows.append(row("ipow", z, (float(n), 0.0), mpmath.power(zc(z), n), float(abs(n))))
        p = uniform(-6, 6)
        wl = mpmath.log(zc(z)) * p
        rows.append(row("rpow", z, (p, 0.0), mpmath.exp(wl), abs(p) + float(abs(wl))))
        c = (uniform(-4, 4), uniform(-4, 4))
        wl = mpmath.log(zc(z)) * zc(c)
        if abs(wl.real) < 700:
            rows.append(row("cpow", z, c, mpmath.exp(wl), float(abs(zc(c)) + abs(wl))))
    return rows


def gendot(n, cond):
    """Ogita-Rump-Oishi GenDot: n terms whose dot product has about the
    given condition number.  Returns the lists a, b."""
    b2 = math.log2(cond)
    n2 = n // 2
    e = [round(rng.random() * b2 / 2) for _ in range(n2)]
    e[0] = round(b2 / 2) + 1
    e[-1] = 0
    a = [(2 * rng.random() - 1) * 2.0 ** k for k in e]
    b = [(2 * rng.random() - 1) * 2.0 ** k for k in e]
    steps = [round(b2 / 2 - i * (b2 / 2) / (n - n2 - 1)) for i in range(n - n2)]
    for k in steps:
        x = (2 * rng.random() - 1) * 2.0 ** k
        partial = sum((Fraction(p) * Fraction(q) for p, q in zip(a, b)), Fraction(0))
        y = float(((Fraction((2 * rng.random() - 1) * 2.0 ** k)) - partial) / Fraction(x))
        a.append(x)
        b.append(y)
    order = list(range(n))
    rng.shuffle(order)
    return [a[i] for i in order], [b[i] for i in order]


def dot_cases():
    out = []
    k = 0
    for n in (6, 20, 50, 100):
        for cond in (1e3, 1e8, 1e16, 1e24, 1e32):
            a, b = gendot(n, cond)
            # Every other case starts from a pair (c1, c2) that is itself
            # beyond double precision.
            c1, c2 = (0.0, 0.0) if k % 2 == 0 else (uniform(-1, 1), uniform(-1, 1) * 2.0 ** -70)
            k += 1
            exact = Fraction(c1) + Fraction(c2) + sum(
                (Fraction(p) * Fraction(q) for p, q in zip(a, b)), Fraction(0))
            hi = float(exact)
            lo = float(exact - Fraction(hi))
            abs_sum = abs(Fraction(c1)) + abs(Fraction(c2)) + sum(
                (abs(Fraction(p) * Fraction(q)) for p, q in zip(a, b)), Fraction(0))
            abs_sum_up = math.nextafter(float(abs_sum), math.inf)
            cond_true = float(abs_sum / abs(exact)) if exact != 0 else math.inf
            out.append("case %d %r %r %.3e %r %r %r" % (n, c1, c2, cond_true, hi, lo, abs_sum_up))
            out.extend("%r %r" % (p, q) for p, q in zip(a, b))
    return out


def main():
    os.makedirs(OUT, exist_ok=True)
    head = "# Generated by tools/make_env_refs.py; do not edit.\n"
    with open(os.path.join(OUT, "complex_refs.txt"), "w") as f:
        f.write(head + "# name x y p q ref_re ref_im scale\n")
        f.write("\n".join(complex_cases()) + "\n")
    with open(os.path.join(OUT, "dot_refs.txt"), "w") as f:
        f.write(head + "# case n c1 c2 cond hi lo abs_sum, then n lines: a b\n")
        f.write("\n".join(dot_cases()) + "\n")


if __name__ == "__main__":
    main()
