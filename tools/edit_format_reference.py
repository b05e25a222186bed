#!/usr/bin/env python3
"""Reference output of Fortran formatted WRITE for the edit-descriptor
formatter's tests.

Builds a Fortran program that writes every case below with gfortran's
runtime, runs it, and stores the records as they came out (cut at 80
characters, trailing blanks removed, at least one character kept, the
formatter's line rule) in tests/frame/data/edit_format_gfortran.tsv:

    format <TAB> values <TAB> line 1 <TAB> line 2 ...

Values, separated by blanks, are I:<integer>, R:<hex float> (exact) or
A:<text> (with %20 for a blank and %25 for a percent sign).  A fields are
given texts at least as wide as their field, since the library justifies a
short text to the left where Fortran justifies it to the right.

Usage: python3 tools/edit_format_reference.py   (needs gfortran)
"""
import os
import random
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(HERE, "..", "tests", "frame", "data", "edit_format_gfortran.tsv")

# Formats of the library's messages and records, with typical values.
MESSAGE_CASES = [
    ("(A,3(1X,I5),1X,1P,E13.5)", ["S14ACF", 1, 99999, 1, -1.0]),
    ("(A,3(1X,I5),1X,1P,E13.5)", ["S14ACF", 2, 99998, 1, 171.5]),
    ("(A,3(1X,I5),1X,I16)", ["C06EAF", 3, 99997, 1, -7]),
    ("(A,3(1X,I5))", ["M01CAF", 1, 99999, 0]),
    ("(A,3(1X,I5),A,I16)", ["X04ACF", 2, 99998, 1, " ", 10]),
    ("(' ** ABNORMAL EXIT from ZIL Library routine ',A,': IFAIL',' =',I6)", ["S14ACF", 1]),
    ("(' ** ABNORMAL EXIT from ZIL Library routine ',A,': IFAIL',' =',I6)", ["C05AZF", -123456]),
    ("(' *****  Parameter  ',A,'  is invalid in routine  ',A,'  ***** ',/,8X,'Value supplied is',/,8X,A)",
     ["TRANS", "F01BRF", "X"]),
    ("(' *****  Parameter  ',A,'  is invalid in routine  ',A,'  ***** ',/,8X,'Value supplied is ',I6)",
     ["N", "F03AAF", -5]),
    ("(' ** Unable to open \"',A,'\" for reading on channel ',I16,'.')", ["/tmp/x.dat", 12]),
    ("(' ** On entry, MODE is out of range: MODE = ',I16,'.')", [3]),
    ("(' ** Unit ',I16,' does not exist.')", [100]),
    ("(' ** Unable to close file associated with channel ',I16,'.')", [11]),
    ("(' ** On entry, M2 .lt. 1: M2 =',I16,'.')", [0]),
    ("(' ** On entry, M1 .gt. M2:',/,4X,'M1 =',I16,', M2 =',I16,'.')", [5, 3]),
    ("(' ** Algorithm fails to terminate in ',I4,' iterations.')", [600]),
    ("(' ** On entry, TOLX .le. 0.0: TOLX =',E12.4,'.')", [-1.0e-3]),
    ("(' ** On entry, IND .ne. -1, 1, 2, 3, or 4: IND =',I16,'.')", [7]),
    ("(' ** At least one of the prime factors of N is greate','r than 19.')", []),
    ("(' ** At least one prime factor of N is greater than 19.',/,4X,'N =',I16,'.')", [23]),
    ("(' ** N has more than 20 prime factors.',/,4X,'N =',I16,'.')", [2097152]),
    ("(' ** On entry, N .le. 1: N = ',I16,'.')", [1]),
    ("(' ** On entry, ISIZEA .lt. (N-1)*ISTEPA+1:',/,4X,'ISIZEA =',I10,', N =',I10,', ISTEPA =',I10,'.')",
     [4, 3, 2]),
    ("(' ** On entry, TOUT .le. TS:',/,4X,'TOUT =',1P,E12.4,', T','S =',1P,E12.4,'.')", [0.5, 1.25]),
    ("(' ** On entry, THETA is outside allowed range, THETA =',' 0.55 assumed')", []),
    ("(' REMESHING PROCESS COMMENCED AT TIME T = ',E12.4)", [0.0625]),
    ("(' ',I3,' NEW MESH POINTS ')", [42]),
    ("(' ** SCALING OF COORDINATES FROM 0 TO ',I12)", [2147483646]),
    ("(' %% NUMBER OF INITIAL MISSING EDGES    : ',I8)", [17]),
    ("(' INSERTION OF THE ',I6,' GIVEN POINTS')", [250]),
    ("(' MINIMUM SMOOTHNESS MEASURE: ',F15.7)", [0.7071067811865476]),
    ("(F15.7,' - ',F15.7,I10)", [0.25, 0.5, 12]),
    ("(' ** The matrix A is too ill-conditioned.')", []),
    ("(' It''s a quote: ''',A,'''')", ["ABC"]),
]

# The notation itself: repetition, reversion, groups, termination.
NOTATION_CASES = [
    ("(1X,3I5)", [1, 2, 3, 4, 5, 6, 7]),
    ("(2(1X,E12.4))", [1.0, -2.0, 3.0, 4.0, 5.0]),
    ("('head',2(1X,I3),' tail')", [1, 2, 3, 4, 5]),
    ("(' a=',I3,' b=',I3,' c=',I3)", [1, 2]),
    ("(2X,'x',3X,'y',I4)", [9]),
    ("(I3,/,/,I3)", [1, 2]),
    ("(1P,E12.4,E12.4,F10.3,G12.4)", [1.5, -2.5e-7, 3.25, 4.0e10]),
    ("(1PE12.4)", [123.456]),
    ("(-1P,E12.4,2P,E14.4)", [0.001234, 98765.4321]),
    ("(E10.3E3,E12.4E1)", [1.5e-150, 2.5e5]),
    ("(E12.4E2)", [1.0e120]),
    ("(I3,I3,I3)", [999, 1000, -99]),
    ("(I6.4,I8.6)", [-12, 345]),
    ("(F8.3,F8.0,F5.3,F4.3)", [-0.0005, 2.5, 0.5, 0.5]),
    ("(F5.2,F5.2)", [-0.001, 99.999]),
    ("(E9.3,E8.3,E7.3)", [1.0, 1.0, 1.0]),
    ("(E12.4)", [0.0]),
    ("(1P,E12.4)", [0.0]),
    ("(G12.4,G12.4)", [0.0, 0.1]),
    ("(3(I2,:),' never')", [1, 2, 3]),
]

DESCRIPTORS = ["E12.4", "E13.5", "1P,E13.5", "1PE12.4", "E16.8", "1P,E22.14", "E10.1", "2P,E14.6",
               "-2P,E14.6", "E12.4E3", "F10.3", "F8.0", "F20.10", "1P,F12.4", "-1P,F12.4", "G12.4",
               "G14.6", "G10.2", "G20.12", "1P,G13.5", "G12.4E3", "F12.4,G12.4"]


def special_values(rng):
    # gfortran chooses between the two forms of a G field by comparing with
    # thresholds computed in binary, so a value whose double equals a
    # threshold's (9.9995 under G12.4) can land on the other side of the
    # exact rule that the library follows; the list keeps clear of them.
    vals = [1.0, -1.0, 0.5, 0.125, 0.375, 2.5, 9.9996, 9.99949, 0.099995, 0.0999949, 999.95, 99999.5,
            1e-5, 1e5, 1e10, 1e-10, 123456789.0, 1e100, 1e-100, 1e300, 1e-300, 1.7976931348623157e308,
            2.2250738585072014e-308, 5e-324, 1e-310, 0.1, 0.2, 0.3, 1.0 / 3.0, 2.0 / 3.0]
    for _ in range(60):
        vals.append(rng.choice([-1, 1]) * 10 ** rng.uniform(-12, 12))
    for _ in range(20):
        vals.append(rng.choice([-1, 1]) * 10 ** rng.uniform(-320, 308))
    return vals


def fortran_real(x):
    r = repr(float(x))
    if "e" in r:
        m, e = r.split("e")
        return f"{m}d{e}"
    return r + "d0"


def fortran_value(v):
    if isinstance(v, str):
        return "'" + v.replace("'", "''") + "'"
    if isinstance(v, float):
        return fortran_real(v)
    return str(v)


def encode(v):
    if isinstance(v, str):
        return "A:" + v.replace("%", "%25").replace(" ", "%20")
    if isinstance(v, float):
        return "R:" + v.hex()
    return f"I:{v}"


def fortran_string(s):
    # Split long literals with // so that no source line grows too long.
    parts = ["'" + s[i:i + 60].replace("'", "''") + "'" for i in range(0, max(len(s), 1), 60)]
    return " // &\n      ".join(parts)


def main():
    rng = random.Random(20261121)
    cases = list(MESSAGE_CASES) + list(NOTATION_CASES)
    vals = special_values(rng)
    for d in DESCRIPTORS:
        per = 2 if "," in d and not d.startswith(("1P", "2P", "-")) else 1
        for i in range(0, len(vals), per):
            chunk = vals[i:i + per]
            if len(chunk) == per:
                cases.append((f"({d})", [float(x) for x in chunk]))
    lines = ["program edit_format_reference", "  implicit none", "  character(len=400) :: fmt"]
    for i, (fmt, values) in enumerate(cases):
        lines.append(f"  write(*,'(A)') '@@{i}'")
        lines.append(f"  fmt = {fortran_string(fmt)}")
        args = ", ".join(fortran_value(v) for v in values)
        lines.append(f"  write(*,fmt) {args}" if values else "  write(*,fmt)")
    lines.append("end program edit_format_reference")
    with tempfile.TemporaryDirectory() as tmp:
        src = os.path.join(tmp, "ref.f90")
        exe = os.path.join(tmp, "ref")
        with open(src, "w") as f:
            f.write("\n".join(lines) + "\n")
        subprocess.run(["gfortran", "-ffree-line-length-none", "-o", exe, src], check=True)
        out = subprocess.run([exe], check=True, capture_output=True, text=True).stdout
    records = {}
    current = None
    for line in out.split("\n")[:-1]:
        if line.startswith("@@"):
            current = int(line[2:])
            records[current] = []
        else:
            line = line[:80].rstrip(" ")
            records[current].append(line if line else " ")
    with open(OUT, "w") as f:
        f.write("# Generated by tools/edit_format_reference.py from gfortran's formatted output; do not edit.\n")
        for i, (fmt, values) in enumerate(cases):
            f.write("\t".join([fmt, " ".join(encode(v) for v in values)] + records[i]) + "\n")
    print(f"{len(cases)} cases written to {os.path.relpath(OUT)}", file=sys.stderr)


if __name__ == "__main__":
    main()
