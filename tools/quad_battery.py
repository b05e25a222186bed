#!/usr/bin/env python3
"""Reference values of the integrator battery and of the modified Chebyshev
moments, by mpmath at 40 digits (tanh-sinh quadrature split at every
singular or break point, oscillatory tails by mpmath.quadosc, principal
values as symmetric sums about the pole).  Writes
tests/quadrature/data/battery.txt: one "name value" row per line, 20 digits.

Usage: python3 tools/quad_battery.py > tests/quadrature/data/battery.txt
"""
import mpmath as mp

mp.mp.dps = 40
Q = mp.quad
rows = []


def row(name, v):
    rows.append((name, mp.mpf(v)))


# General integrands with end-point singularities (d01ajc, d01akc).
row("sqrt", mp.mpf(2) / 3)
row("log", -1)
row("inv_sqrt", 2)
row("sqrt_log", mp.mpf(-4) / 9)
row("pow_m08", 5)
row("x_cos30", Q(lambda x: x * mp.cos(30 * x), mp.linspace(0, 1, 20)))
row("exp_cos50", Q(lambda x: mp.exp(x) * mp.cos(50 * x), mp.linspace(0, 1, 30)))
# Interior break points (d01alc).
row("abs_third", 2 * (mp.sqrt(mp.mpf(1) / 3) + mp.sqrt(mp.mpf(2) / 3)))
row("log_abs07", Q(lambda x: mp.log(abs(x - mp.mpf("0.7"))), [0, mp.mpf("0.7"), 1]))
row("kink", Q(lambda x: abs(x * x - mp.mpf("0.25")), [0, 0.5, 1]))
# Infinite ranges (d01amc).
row("exp_upper", 1)
row("lorentz_lower", mp.pi / 2)
row("gauss_inf", mp.sqrt(mp.pi))
row("log_lorentz", 0)
row("inv_sqrt_1px", mp.pi)
# Trigonometric weights on a finite range (d01anc).
for name, fn, w, a, b, om in [
        ("expm_cos05", mp.exp, "cos", 0, 3, 0.5), ("expm_sin10", mp.exp, "sin", 0, 3, 10),
        ("expm_cos200", mp.exp, "cos", 0, 3, 200)]:
    trig = mp.cos if w == "cos" else mp.sin
    row(name, Q(lambda x: mp.exp(-x) * trig(om * x), mp.linspace(a, b, 400)))
row("log1p_sin10pi", Q(lambda x: mp.log(1 + x) * mp.sin(10 * mp.pi * x), mp.linspace(0, 1, 40)))
row("x2_cos1000", Q(lambda x: x * x * mp.cos(1000 * x), mp.linspace(0, 1, 800)))
row("sqrt_sinm30", Q(lambda x: mp.sqrt(x) * mp.sin(-30 * x), mp.linspace(0, 1, 40)))
# Algebraic-logarithmic weights on (0, 1), alfa = -0.5, beta = 0.3 (d01apc).
al, be = mp.mpf("-0.5"), mp.mpf("0.3")
for k, name in [(1, "cos_alg"), (2, "cos_loga"), (3, "cos_logb"), (4, "cos_loga_logb")]:
    def g(x, k=k):
        v = mp.cos(x) * x ** al * (1 - x) ** be
        if k in (2, 4):
            v *= mp.log(x)
        if k in (3, 4):
            v *= mp.log(1 - x)
        return v
    row(name, Q(g, [0, 0.5, 1]))
row("log_over_1px", -mp.pi ** 2 / 12)
# Principal values (d01aqc).
row("pv_exp", 2 * mp.shi(1))
f5 = lambda x: 1 / (x * (5 * x ** 3 + 6))
row("pv_cubic", Q(lambda x: f5(x) + f5(-x), [0, 1]) + Q(f5, [1, 5]))
row("pv_one", mp.log(mp.mpf("0.7") / mp.mpf("0.3")))
# Fourier integrals over (0, infinity) (d01asc).
row("four_lorentz_cos", mp.pi / (2 * mp.e))
row("four_invsqrt_cos", 1)
row("four_exp_sin", mp.mpf(1) / 2)
row("four_xlorentz_sin", mp.pi / (2 * mp.e))

for name, v in rows:
    print(f"{name} {mp.nstr(v, 20, min_fixed=-1, max_fixed=1) if v != 0 else '0.0'}")

# Modified Chebyshev moments, for the moment tests: trig p k value (cos
# moments at even k, sin moments at odd k) and end moments of (1+t)^alfa.
for p in (3, 10, 30):
    for k in (0, 1, 6, 11, 23, 24):
        t = (lambda x: mp.cos(p * x)) if k % 2 == 0 else (lambda x: mp.sin(p * x))
        v = Q(lambda x: t(x) * mp.chebyt(k, x), mp.linspace(-1, 1, 30))
        print(f"trig_{p}_{k} {mp.nstr(v, 20)}")
for alfa in (mp.mpf("-0.5"), mp.mpf("0.3"), mp.mpf(2)):
    for k in (0, 1, 7, 24):
        ri = Q(lambda x: (1 + x) ** alfa * mp.chebyt(k, x), [-1, 0, 1])
        rg = Q(lambda x: (1 + x) ** alfa * mp.log((1 + x) / 2) * mp.chebyt(k, x), [-1, 0, 1])
        print(f"ri_{mp.nstr(alfa, 3)}_{k} {mp.nstr(ri, 20)}")
        print(f"rg_{mp.nstr(alfa, 3)}_{k} {mp.nstr(rg, 20)}")
