#!/usr/bin/env python3
"""Reference values for the g01 tests, computed with mpmath at 50 digits.

Every input is written as the exact decimal of a double (repr), every
reference with 35 significant digits.  Run from the repository root:
    python3 tests/stats/make_reference.py
which rewrites tests/stats/data/*.txt.
"""
import os

import mpmath as mp

mp.mp.dps = 50
OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "data")


def s(v):
    return mp.nstr(mp.mpf(v), 35, min_fixed=1, max_fixed=0) if v != 0 else "0"


def write(name, header, rows):
    with open(os.path.join(OUT, name), "w") as f:
        f.write("# " + header + "\n")
        for r in rows:
            f.write(" ".join(x if isinstance(x, str) else s(x) for x in r) + "\n")


def d(x):
    """The double nearest x, as the exact text the tests read."""
    return repr(float(x))


# ---- normal: x, lower, upper ----------------------------------------------
rows = []
for x in [i / 8 for i in range(-320, 321)] + [-37.5, -37.0, -38.4, 38.4, 1e-10, -1e-300]:
    xm = mp.mpf(float(x))
    rows.append([d(x), mp.ncdf(xm), mp.ncdf(-xm)])
write("normal.txt", "x lower upper", rows)

# ---- beta: x a b p q pdf --------------------------------------------------
def beta_cf(a, b, x, lx, ly):
    """I_x(a, b) by its continued fraction (modified Lentz), for x below the
    mean, where it converges; lx and ly are ln x and ln(1 - x)."""
    tiny = mp.mpf(10) ** -300
    c, dd = mp.mpf(1), 1 - (a + b) * x / (a + 1)
    dd = 1 / (dd if abs(dd) > tiny else tiny)
    h = dd
    for m in range(1, 200000):
        for num in (m * (b - m) * x / ((a + 2 * m - 1) * (a + 2 * m)),
                    -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 2 * m + 1))):
            dd = 1 + num * dd
            dd = 1 / (dd if abs(dd) > tiny else tiny)
            c = 1 + num / c
            if abs(c) < tiny:
                c = tiny
            h *= dd * c
        if abs(dd * c - 1) < mp.mpf(10) ** -45:
            break
    return mp.exp(a * lx + b * ly - mp.log(a) - (mp.loggamma(a) + mp.loggamma(b) - mp.loggamma(a + b))) * h


def betainc2(a, b, x):
    """(I_x(a, b), 1 - I_x(a, b)), each computed directly when it is the small one."""
    a, b, x = mp.mpf(a), mp.mpf(b), mp.mpf(x)
    lx, ly = mp.log(x), mp.log1p(-x)
    if x * (a + b + 2) < a + 1:
        p = beta_cf(a, b, x, lx, ly)
        return p, 1 - p
    q = beta_cf(b, a, 1 - x, ly, lx)
    return 1 - q, q


def beta_row(x, a, b):
    xm, am, bm = mp.mpf(x), mp.mpf(a), mp.mpf(b)
    p, q = betainc2(am, bm, xm)
    pdf = xm ** (am - 1) * (1 - xm) ** (bm - 1) / mp.beta(am, bm)
    return [d(x), d(a), d(b), p, q, pdf]

rows = []
shapes = [0.5, 1.0, 2.5, 7.0, 15.0, 60.0, 400.0, 5000.0]
for a in shapes:
    for b in shapes:
        mean = a / (a + b)
        sd = (a * b / ((a + b) ** 2 * (a + b + 1))) ** 0.5
        xs = {mean, mean - sd, mean + sd, mean - 4 * sd, mean + 4 * sd, 0.01, 0.3, 0.7, 0.99}
        for x in sorted(xs):
            if 0 < x < 1:
                rows.append(beta_row(float(x), a, b))
# large shapes near the mean and out in the tails
for a, b in [(1e5, 2e5), (1e6, 1e6), (3e5, 20.0), (20.0, 3e5), (1e6, 0.5), (2.0, 1e6)]:
    mean = a / (a + b)
    sd = (a * b / ((a + b) ** 2 * (a + b + 1))) ** 0.5
    for z in [-30, -8, -2, 0, 1, 3, 8]:
        x = mean + z * sd
        if 0 < x < 1:
            rows.append(beta_row(float(x), a, b))
# deep tails, down to about 1e-300
for x, a, b in [(1e-150, 2.0, 3.0), (1e-30, 10.0, 5.0), (1e-6, 50.0, 2.0), (0.999999, 2.0, 50.0),
                (0.05, 300.0, 300.0), (0.95, 300.0, 300.0), (0.2, 2000.0, 2000.0)]:
    rows.append(beta_row(x, a, b))
write("beta.txt", "x a b p q pdf", rows)

# ---- binomial: n p k plek pgtk peqk ---------------------------------------
def binom_row(n, p, k):
    nm, pm = mp.mpf(n), mp.mpf(p)
    peqk = mp.binomial(nm, k) * pm ** k * (1 - pm) ** (nm - k)
    pgtk, plek = betainc2(k + 1, nm - k, pm)
    return [str(n), d(p), str(k), plek, pgtk, peqk]

rows = []
for n, p in [(10, 0.3), (50, 0.5), (200, 0.9), (1000, 0.01), (1000, 0.73), (100000, 0.4), (3000000, 0.2),
             (1000000000, 1e-6)]:
    mean, sd = n * p, (n * p * (1 - p)) ** 0.5
    ks = {0, 1, n - 1, int(mean), int(mean - 3 * sd), int(mean + 3 * sd), int(mean - 10 * sd), int(mean + 10 * sd),
          int(mean - 30 * sd), int(mean + 30 * sd)}
    for k in sorted(ks):
        if 0 <= k < n:
            rows.append(binom_row(n, p, k))
# deep tails, down to about 1e-300
for n, p, k in [(1000, 0.5, 3), (2000, 0.3, 1390), (1000000, 0.5, 482000), (1000000, 0.5, 518400)]:
    rows.append(binom_row(n, p, k))
write("binomial.txt", "n p k plek pgtk peqk", rows)

# ---- Poisson: lambda k plek pgtk peqk -------------------------------------
def pois_row(lam, k):
    lm = mp.mpf(lam)
    peqk = mp.exp(-lm + k * mp.log(lm) - mp.loggamma(k + 1))
    # The smaller tail by direct summation away from the mean.
    total, term, j = mp.mpf(0), peqk, k
    if k < lam:
        while j >= 0 and term > total * mp.mpf(10) ** -45:
            total += term
            term = term * j / lm
            j -= 1
        plek, pgtk = total, 1 - total
    else:
        while True:
            j += 1
            term = term * lm / j
            total += term
            if term < total * mp.mpf(10) ** -45:
                break
        plek, pgtk = 1 - total, total
    return [d(lam), str(k), plek, pgtk, peqk]

rows = []
for lam in [1e-3, 0.5, 3.0, 25.0, 400.0, 12345.5, 999999.0]:
    sd = lam ** 0.5
    ks = {0, 1, 2, int(lam), int(lam - 3 * sd), int(lam + 3 * sd), int(lam - 10 * sd), int(lam + 10 * sd),
          int(lam + 25 * sd), int(lam - 25 * sd)}
    for k in sorted(ks):
        if k >= 0:
            rows.append(pois_row(lam, k))
# deep tails, down to about 1e-300
for lam, k in [(400.0, 1300), (1000.0, 100), (30.0, 400), (500000.0, 474548), (500000.5, 525600)]:
    rows.append(pois_row(lam, k))
write("poisson.txt", "lambda k plek pgtk peqk", rows)

# ---- hypergeometric: n l m k plek pgtk peqk -------------------------------
def hyper_pmf(n, l, m, k):
    return mp.binomial(l, k) * mp.binomial(n - l, m - k) / mp.binomial(n, m)

def hyper_row(n, l, m, k):
    lo, hi = max(0, l + m - n), min(l, m)
    peqk = hyper_pmf(n, l, m, k)
    plek = mp.fsum(hyper_pmf(n, l, m, j) for j in range(lo, k + 1)) if k - lo < 20000 else None
    pgtk = mp.fsum(hyper_pmf(n, l, m, j) for j in range(k + 1, hi + 1)) if hi - k < 20000 else None
    if plek is None:
        plek = 1 - pgtk
    if pgtk is None:
        pgtk = 1 - plek
    return [str(n), str(l), str(m), str(k), plek, pgtk, peqk]

rows = []
for n, l, m in [(20, 7, 12), (100, 30, 50), (1000, 10, 900), (5000, 2500, 1000), (40000, 300, 20000)]:
    lo, hi = max(0, l + m - n), min(l, m)
    mean = l * m / n
    sd = (l * m * (n - l) * (n - m) / (n * n * (n - 1))) ** 0.5
    ks = {lo, hi, int(mean), int(mean - 3 * sd), int(mean + 3 * sd), int(mean - 12 * sd), int(mean + 12 * sd)}
    for k in sorted(ks):
        if lo <= k <= hi:
            rows.append(hyper_row(n, l, m, k))
# deep tails, down to about 1e-300
for n, l, m, k in [(10000, 5000, 5000, 3400), (10000, 5000, 5000, 1600), (200000, 100000, 4000, 920)]:
    rows.append(hyper_row(n, l, m, k))
write("hypergeometric.txt", "n l m k plek pgtk peqk", rows)

# ---- Student's t: t df lower ----------------------------------------------
def t_lower(t, df):
    t, df = mp.mpf(t), mp.mpf(df)
    x = df / (df + t * t)
    tail = betainc2(df / 2, mp.mpf(1) / 2, x)[0] / 2
    return 1 - tail if t > 0 else tail

rows = []
for df in [1.0, 2.0, 3.0, 4.5, 10.0, 19.5, 20.0, 30.0, 100.0, 1e4]:
    for t in [-40.0, -6.0, -2.5, -1.0, -0.1, 0.0, 0.3, 1.5, 3.0, 8.0]:
        rows.append([d(t), d(df), t_lower(t, df)])
write("t.txt", "t df lower", rows)

# ---- chi-squared and gamma: x df lower upper ------------------------------
rows = []
for df in [0.5, 1.0, 3.0, 10.0, 75.5, 1000.0]:
    for x in [1e-3, 0.3, 1.0, 2.5, 9.0, 40.0, 300.0, 1500.0]:
        a, xm = mp.mpf(df) / 2, mp.mpf(x) / 2
        rows.append([d(x), d(df), mp.gammainc(a, 0, xm, regularized=True), mp.gammainc(a, xm, mp.inf, regularized=True)])
write("chi_sq.txt", "x df lower upper", rows)

# ---- F: f df1 df2 lower upper ---------------------------------------------
def f_probs(f, d1, d2):
    f, d1, d2 = mp.mpf(f), mp.mpf(d1), mp.mpf(d2)
    x = f * d1 / (f * d1 + d2)
    return betainc2(d1 / 2, d2 / 2, x)

rows = []
for d1, d2 in [(1.0, 1.0), (3.0, 7.0), (12.0, 40.5), (100.0, 5.0), (500.0, 900.0), (10.0, 2e5), (3e5, 20.0),
               (2e5, 4e5), (1.5e6, 1.2e6)]:
    for f in [0.01, 0.3, 0.9, 1.0, 1.01, 1.5, 4.0, 30.0]:
        lo, up = f_probs(f, d1, d2)
        rows.append([d(f), d(d1), d(d2), lo, up])
write("f.txt", "f df1 df2 lower upper", rows)

# ---- quantiles ------------------------------------------------------------
def invert(cdf, p, lo, hi):
    """The root of cdf(x) = p on [lo, hi] in ln x, by the Illinois method."""
    p = mp.mpf(p)
    return mp.exp(mp.findroot(lambda u: cdf(mp.exp(u)) - p, (mp.log(lo), mp.log(hi)), solver="illinois",
                              tol=mp.mpf(10) ** -45, maxsteps=500))

rows = []
for p in [1e-300, 1e-100, 1e-20, 1e-8, 1e-3, 0.02, 0.1, 0.2, 0.3, 0.45, 0.5, 0.55, 0.75, 0.8, 0.9, 0.97, 0.999,
          1 - 1e-10]:
    rows.append([d(p), mp.sqrt(2) * mp.erfinv(2 * mp.mpf(p) - 1) if p > 1e-20 else -mp.sqrt(2) * mp.erfinv(1 - 2 * mp.mpf(p))])
write("normal_quantile.txt", "p x", rows)

rows = []
for df in [1.0, 1.5, 2.0, 2.7, 3.0, 4.0, 7.0, 19.0, 25.0, 60.0, 1000.0]:
    for p in [1e-6, 0.001, 0.025, 0.1, 0.3, 0.5, 0.6, 0.9, 0.975, 0.999]:
        if p == 0.5:
            x = mp.mpf(0)
        else:
            h = min(p, 1 - p)
            a = invert(lambda t: 1 - t_lower(t, df), h, mp.mpf(10) ** -8, mp.mpf(10) ** 8)
            x = a if p > 0.5 else -a
        rows.append([d(p), d(df), x])
write("t_quantile.txt", "p df x", rows)

rows = []
for a, b in [(0.5, 0.5), (1.0, 3.0), (2.5, 7.0), (20.0, 15.0), (300.0, 50.0), (0.1, 4.0), (4000.0, 0.8)]:
    for p in [1e-12, 1e-4, 0.05, 0.3, 0.5, 0.8, 0.99, 0.999999]:
        x = invert(lambda x: betainc2(a, b, x)[0], p, mp.mpf(10) ** -200, mp.mpf(1) - mp.mpf(10) ** -40)
        rows.append([d(p), d(a), d(b), x])
write("beta_quantile.txt", "p a b x", rows)

rows = []
for a in [0.05, 0.5, 1.0, 3.5, 40.0, 1e4]:
    for p in [1e-12, 1e-4, 0.05, 0.3, 0.5, 0.8, 0.99, 0.999999]:
        x = invert(lambda y: mp.gammainc(a, 0, y, regularized=True), p, mp.mpf(10) ** -300, mp.mpf(10) ** 6)
        rows.append([d(p), d(a), x])
write("gamma_quantile.txt", "p a x   (scale 1)", rows)
