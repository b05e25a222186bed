#!/usr/bin/python3
"""Compares d01ajc / d01akc / d01amc with scipy.integrate.quad (QUADPACK's
qags, qag with key 6, qagi) on the same integrands: results and evaluation
counts.  Run with the system python that has python3-scipy:
    /usr/bin/python3 tools/quad_scipy_compare.py /work/build-quad/libzil.so
"""
import ctypes
import math
import sys

from scipy import integrate

lib = ctypes.CDLL(sys.argv[1])
FUN = ctypes.CFUNCTYPE(ctypes.c_double, ctypes.c_double)


class Report(ctypes.Structure):
    _fields_ = [("count", ctypes.c_int), ("evals", ctypes.c_int)] + [
        (n, ctypes.c_void_p) for n in ("lo", "up", "res", "err")]


class Error(ctypes.Structure):
    _fields_ = [("code", ctypes.c_int), ("print", ctypes.c_int), ("message", ctypes.c_char * 512),
                ("handler", ctypes.c_void_p), ("errnum", ctypes.c_int), ("argnum", ctypes.c_int),
                ("argval", ctypes.c_int)]


def zil(routine, f, *args):
    res, err, qp, fail = ctypes.c_double(), ctypes.c_double(), Report(), Error()
    getattr(lib, routine)(FUN(f), *args, ctypes.byref(res), ctypes.byref(err), ctypes.byref(qp),
                          ctypes.byref(fail))
    for n in ("lo", "up", "res", "err"):
        p = ctypes.c_void_p(getattr(qp, n))
        lib.x04bdc(ctypes.byref(p))
    return res.value, err.value, qp.evals, qp.count, fail.code


D = ctypes.c_double
cases = [
    ("sqrt(x)", math.sqrt, 0, 1), ("log(x)", math.log, 0, 1),
    ("1/sqrt(x)", lambda x: x ** -0.5, 0, 1), ("x cos 30x", lambda x: x * math.cos(30 * x), 0, 1),
    ("exp(-x)", lambda x: math.exp(-x), 0, 10), ("|x-1/3|", lambda x: abs(x - 1 / 3), 0, 1),
]
print(f"{'integrand':12} {'tol':6} | {'d01ajc evals/res':>28} | {'qags evals/res':>28} | {'d01akc':>8} {'qag6':>6}")
for name, f, a, b in cases:
    for tol in (1e-4, 1e-8, 1e-12):
        z = zil("d01ajc", f, D(a), D(b), D(tol), D(tol), ctypes.c_int(200))
        s = integrate.quad(f, a, b, epsabs=tol, epsrel=tol, limit=200, full_output=1)
        zk = zil("d01akc", f, D(a), D(b), D(tol), D(tol), ctypes.c_int(200))
        sk = integrate.quad(f, a, b, epsabs=tol, epsrel=tol, limit=200, full_output=1, weight=None)
        print(f"{name:12} {tol:6.0e} | {z[2]:5d} {z[0]:22.15e} | {s[2]['neval']:5d} {s[0]:22.15e} | "
              f"{zk[2]:8d} code {z[4]}")
for name, f, kind, bound in [("exp(-x)", lambda x: math.exp(-x), 1076, 0.0),
                             ("exp(-x^2)", lambda x: math.exp(-x * x), 1078, 0.0),
                             ("1/(1+x^2)", lambda x: 1 / (1 + x * x), 1077, 0.0)]:
    for tol in (1e-4, 1e-8, 1e-12):
        z = zil("d01amc", f, ctypes.c_int(kind), D(bound), D(tol), D(tol), ctypes.c_int(200))
        lo, hi = {1076: (bound, math.inf), 1077: (-math.inf, bound), 1078: (-math.inf, math.inf)}[kind]
        s = integrate.quad(f, lo, hi, epsabs=tol, epsrel=tol, limit=200, full_output=1)
        print(f"{name:12} {tol:6.0e} | {z[2]:5d} {z[0]:22.15e} | {s[2]['neval']:5d} {s[0]:22.15e} | d01amc")

# The weighted integrators against QAWO, QAWS, QAWC and QAWF (scipy's
# weight= forms), epsabs = 0.
I = ctypes.c_int
print(f"\n{'weighted':22} {'tol':6} | {'zil evals/res/abserr':>40} | {'scipy evals/res/abserr':>40}")


def row(label, tol, z, s):
    print(f"{label:22} {tol:6.0e} | {z[2]:5d} {z[0]:22.15e} {z[1]:9.2e} | "
          f"{s[2]['neval']:5d} {s[0]:22.15e} {s[1]:9.2e}  code {z[4]}")


trig = [("exp(-x) cos 0.5x", lambda x: math.exp(-x), 0, 3, 0.5, 1079),
        ("exp(-x) sin 10x", lambda x: math.exp(-x), 0, 3, 10.0, 1080),
        ("exp(-x) cos 200x", lambda x: math.exp(-x), 0, 3, 200.0, 1079),
        ("sqrt(x) sin -30x", math.sqrt, 0, 1, -30.0, 1080),
        ("x^2 cos 1000x", lambda x: x * x, 0, 1, 1000.0, 1079)]
for name, f, a, b, om, k in trig:
    for tol in (1e-4, 1e-8, 1e-12):
        z = zil("d01anc", f, D(a), D(b), D(om), I(k), D(0), D(tol), I(200))
        s = integrate.quad(f, a, b, weight="cos" if k == 1079 else "sin", wvar=om, epsabs=0,
                           epsrel=tol, limit=200, full_output=1)
        row(name, tol, z, s)
for k, w in [(1072, "alg"), (1073, "alg-loga"), (1074, "alg-logb"), (1075, "alg-log")]:
    for tol in (1e-4, 1e-8, 1e-12):
        z = zil("d01apc", math.cos, D(0), D(1), D(-0.5), D(0.3), I(k), D(0), D(tol), I(200))
        s = integrate.quad(math.cos, 0, 1, weight=w, wvar=(-0.5, 0.3), epsabs=0, epsrel=tol,
                           limit=200, full_output=1)
        row("cos " + w, tol, z, s)
for name, f, a, b, c in [("exp(x)/x", math.exp, -1, 1, 0.0),
                         ("1/((5x^3+6)x)", lambda x: 1 / (5 * x ** 3 + 6), -1, 5, 0.0)]:
    for tol in (1e-4, 1e-8, 1e-12):
        z = zil("d01aqc", f, D(a), D(b), D(c), D(0), D(tol), I(200))
        s = integrate.quad(f, a, b, weight="cauchy", wvar=c, epsabs=0, epsrel=tol, limit=200,
                           full_output=1)
        row(name, tol, z, s)


class Cycles(ctypes.Structure):
    _fields_ = [("count", ctypes.c_int), ("evals", ctypes.c_int), ("maxsub", ctypes.c_int)] + [
        (n, ctypes.c_void_p) for n in ("err", "res", "flag")]


for name, f, om, k, exact in [("cos x/(1+x^2)", lambda x: 1 / (1 + x * x), 1.0, 1079, math.pi / (2 * math.e)),
                              ("sin x exp(-x)", lambda x: math.exp(-x), 1.0, 1080, 0.5)]:
    for tol in (1e-4, 1e-8, 1e-12):
        res, err, qp, fail = D(), D(), Cycles(), Error()
        lib.d01asc(FUN(f), D(0), D(om), I(k), I(50), I(200), D(tol * exact), ctypes.byref(res),
                   ctypes.byref(err), ctypes.byref(qp), ctypes.byref(fail))
        for n in ("err", "res", "flag"):
            p = ctypes.c_void_p(getattr(qp, n))
            lib.x04bdc(ctypes.byref(p))
        s = integrate.quad(f, 0, math.inf, weight="cos" if k == 1079 else "sin", wvar=om,
                           epsabs=tol * exact, limlst=50, limit=200, full_output=1)
        row(name, tol, (res.value, err.value, qp.evals, qp.count, fail.code), s)
