#!/usr/bin/env python3
"""Writes the entry points of the Level-2 and Level-3 operations from one
table: each f16 front (a C function over its family template in
linalg/detail/fronts.hpp) and its three older forms (short form, enumerated
column form, character column form), with their declarations.

    python3 tools/gen_blas_fronts.py   # from the repository root

Outputs: include/zil_blas_fronts.h and linalg/blas_entries.cpp.
"""

import pathlib

ROOT = pathlib.Path(__file__).resolve().parent.parent

# Families: parameters after `order`, as name:type[=value in the older
# forms].  Types: I Integer; T element; S the real or element scalar of the
# family; D double; opt:<kind> an option word; a trailing * marks an array
# and a leading c a const one.  A parameter with =value is absent from the
# older forms, which pass that value.
FAMILIES = {
    "gemv": "trans:opt:trans m:I n:I alpha:T a:cT* pda:I x:cT* incx:I beta:T y:T* incy:I",
    "gbmv": "trans:opt:trans m:I n:I kl:I ku:I alpha:T ab:cT* pdab:I x:cT* incx:I beta:T y:T* incy:I",
    "symv": "uplo:opt:uplo n:I alpha:T a:cT* pda:I x:cT* incx:I beta:T y:T* incy:I",
    "sbmv": "uplo:opt:uplo n:I k:I alpha:T ab:cT* pdab:I x:cT* incx:I beta:T y:T* incy:I",
    "spmv": "uplo:opt:uplo n:I alpha:T ap:cT* x:cT* incx:I beta:T y:T* incy:I",
    "trxv": "uplo:opt:uplo trans:opt:trans diag:opt:diag n:I alpha:T=1 t:cT* pdt:I x:T* incx:I",
    "tbxv": "uplo:opt:uplo trans:opt:trans diag:opt:diag n:I k:I alpha:T=1 ab:cT* pdab:I x:T* incx:I",
    "tpxv": "uplo:opt:uplo trans:opt:trans diag:opt:diag n:I alpha:T=1 ap:cT* x:T* incx:I",
    "ger": "conj:opt:conj=CONJ m:I n:I alpha:T x:cT* incx:I y:cT* incy:I beta:T=1 a:T* pda:I",
    "syr": "uplo:opt:uplo n:I alpha:D x:cT* incx:I beta:D=1 a:T* pda:I",
    "spr": "uplo:opt:uplo n:I alpha:D x:cT* incx:I beta:D=1 ap:T*",
    "syr2": "uplo:opt:uplo n:I alpha:T x:cT* incx:I y:cT* incy:I beta:D=1 a:T* pda:I",
    "spr2": "uplo:opt:uplo n:I alpha:T x:cT* incx:I y:cT* incy:I beta:D=1 ap:T*",
    "gemm": "transa:opt:trans transb:opt:trans m:I n:I k:I alpha:T a:cT* pda:I b:cT* pdb:I beta:T c:T* pdc:I",
    "symm": "side:opt:side uplo:opt:uplo m:I n:I alpha:T a:cT* pda:I b:cT* pdb:I beta:T c:T* pdc:I",
    "trxm": "side:opt:side uplo:opt:uplo transa:opt:trans diag:opt:diag m:I n:I alpha:T a:cT* pda:I b:T* pdb:I",
    "syrk": "uplo:opt:uplo trans:opt:trans n:I k:I alpha:S a:cT* pda:I beta:S c:T* pdc:I",
    "syr2k": "uplo:opt:uplo trans:opt:trans n:I k:I alpha:T a:cT* pda:I b:cT* pdb:I beta:S c:T* pdc:I",
}

# The operations: code (f16 and f06 letters), family, element type, scalar
# type S, the template that implements it, its published name, and the
# older forms over it (code, published name of the tag, value of CONJ).
# A template call ending in "ap, 0" passes the packed array where the family
# template has a pda.
OPS = [
    # code family  T    S    template                   name     older forms
    ("pa", "gemv", "d", "d", "gemv<double>", "dgemv", None),
    ("pb", "gbmv", "d", "d", "gbmv<double>", "dgbmv", None),
    ("pc", "symv", "d", "d", "symv<double>", "dsymv", None),
    ("pd", "sbmv", "d", "d", "sbmv<double>", "dsbmv", None),
    ("pe", "spmv", "d", "d", "spmv<double>", "dspmv", None),
    ("pf", "trxv", "d", "d", "trxv<double, false>", "dtrmv", None),
    ("pg", "tbxv", "d", "d", "tbxv<double, false>", "dtbmv", None),
    ("ph", "tpxv", "d", "d", "tpxv<double, false>", "dtpmv", None),
    ("pj", "trxv", "d", "d", "trxv<double, true>", "dtrsv", None),
    ("pk", "tbxv", "d", "d", "tbxv<double, true>", "dtbsv", None),
    ("pl", "tpxv", "d", "d", "tpxv<double, true>", "dtpsv", None),
    ("pm", "ger", "d", "d", "ger<double>", "dger", [("pm", "dger", "Zil_NoConj")]),
    ("pp", "syr", "d", "d", "syr<double, false>", "dsyr", None),
    ("pq", "spr", "d", "d", "syr<double, true>", "dspr", None),
    ("pr", "syr2", "d", "d", "syr2<double, false>", "dsyr2", None),
    ("ps", "spr2", "d", "d", "syr2<double, true>", "dspr2", None),
    ("sa", "gemv", "z", "z", "gemv<Complex>", "zgemv", None),
    ("sb", "gbmv", "z", "z", "gbmv<Complex>", "zgbmv", None),
    ("sc", "symv", "z", "z", "symv<Complex>", "zhemv", None),
    ("sd", "sbmv", "z", "z", "sbmv<Complex>", "zhbmv", None),
    ("se", "spmv", "z", "z", "spmv<Complex>", "zhpmv", None),
    ("sf", "trxv", "z", "z", "trxv<Complex, false>", "ztrmv", None),
    ("sg", "tbxv", "z", "z", "tbxv<Complex, false>", "ztbmv", None),
    ("sh", "tpxv", "z", "z", "tpxv<Complex, false>", "ztpmv", None),
    ("sj", "trxv", "z", "z", "trxv<Complex, true>", "ztrsv", None),
    ("sk", "tbxv", "z", "z", "tbxv<Complex, true>", "ztbsv", None),
    ("sl", "tpxv", "z", "z", "tpxv<Complex, true>", "ztpsv", None),
    ("sm", "ger", "z", "z", "ger<Complex>", "zger", [("sm", "zgeru", "Zil_NoConj"), ("sn", "zgerc", "Zil_Conj")]),
    ("sp", "syr", "z", "d", "syr<Complex, false>", "zher", None),
    ("sq", "spr", "z", "d", "syr<Complex, true>", "zhpr", None),
    ("sr", "syr2", "z", "d", "syr2<Complex, false>", "zher2", None),
    ("ss", "spr2", "z", "d", "syr2<Complex, true>", "zhpr2", None),
    ("ya", "gemm", "d", "d", "gemm<double>", "dgemm", None),
    ("yc", "symm", "d", "d", "symm<double, false>", "dsymm", None),
    ("yf", "trxm", "d", "d", "trxm<double, false>", "dtrmm", None),
    ("yj", "trxm", "d", "d", "trxm<double, true>", "dtrsm", None),
    ("yp", "syrk", "d", "d", "syrk<double, 'T'>", "dsyrk", None),
    ("yr", "syr2k", "d", "d", "syr2k<double, 'T'>", "dsyr2k", None),
    ("za", "gemm", "z", "z", "gemm<Complex>", "zgemm", None),
    ("zc", "symm", "z", "z", "symm<Complex, true>", "zhemm", None),
    ("zf", "trxm", "z", "z", "trxm<Complex, false>", "ztrmm", None),
    ("zj", "trxm", "z", "z", "trxm<Complex, true>", "ztrsm", None),
    ("zp", "syrk", "z", "d", "syrk<Complex, 'C'>", "zherk", None),
    ("zr", "syr2k", "z", "d", "syr2k<Complex, 'C'>", "zher2k", [("zr", "dher2k", None)]),
    ("zt", "symm", "z", "z", "symm<Complex, false>", "zsymm", None),
    ("zu", "syrk", "z", "z", "syrk<Complex, 'T'>", "zsyrk", None),
    ("zw", "syr2k", "z", "z", "syr2k<Complex, 'T'>", "zsyr2k", None),
]

# f16 routines that also carry a public long name.
LONG_NAMES = {"pj", "sj", "yj", "zj"}

CTYPE = {"d": "double", "z": "Complex"}
ONE = {"d": "1.0", "z": "Complex{1.0, 0.0}"}
# Older option words by kind: the conversion of an enumerated and of a
# one-letter option.
OLD_ENUM = "older_option"
CHAR_OPTION = {"trans": "letter_trans", "uplo": "letter_uplo", "diag": "letter_diag", "side": "letter_side"}


class Param:
    def __init__(self, entry, t, s):
        name, rest = entry.split(":", 1)
        self.default = None
        if "=" in rest:
            rest, self.default = rest.split("=")
        self.name = name
        self.kind = rest[4:] if rest.startswith("opt:") else None
        if self.kind:
            self.ctype = "Integer"
        else:
            base = rest.rstrip("*").lstrip("c")
            base = {"I": "Integer", "T": CTYPE[t], "S": CTYPE[s], "D": "double"}[base]
            if rest.endswith("*"):
                self.ctype = ("const " if rest.startswith("c") else "") + base + " "
                self.array = True
            else:
                self.ctype = base + " "
                self.array = False
        if self.kind:
            self.array = False
            self.ctype = "Integer "

    def decl(self, opt_type=None):
        if self.kind and opt_type:
            return f"{opt_type}{self.name}"
        if self.array:
            return f"{self.ctype}{self.name}[]"
        return f"{self.ctype}{self.name}"


def params_of(family, t, s):
    return [Param("order:opt:order", t, s)] + [Param(p, t, s) for p in FAMILIES[family].split()]


def f16_signature(code, family, t, s, name=None):
    ps = params_of(family, t, s)
    args = ", ".join(p.decl() for p in ps)
    return f"void {name or 'f16' + code + 'c'}({args}, ZilError *fail)"


def older_forms(op):
    code, family, t, s, tmpl, blas, forms = op
    for fcode, fblas, conj in forms or [(code, blas, None)]:
        yield fcode, fblas, conj


def older_params(op):
    code, family, t, s = op[:4]
    return [p for p in params_of(family, t, s)[1:] if p.default is None]


def older_signature(op, fcode, kind, definition=False):
    ps = older_params(op)
    if kind == "short":
        name, opt = f"f06{fcode}c", None
    elif kind == "column":
        name, opt = f"f06{fcode}f", None
    else:
        name, opt = f"f06{fcode}f_f", "const char *"
    args = [p.decl(opt) for p in ps]
    if kind == "letter":
        # The length words are there for the caller's convention; one letter
        # is all that is read.
        args += ["Integer" if definition else f"Integer {p.name}_len" for p in ps if p.kind]
    return f"void {name}({', '.join(args)})"


def position_map(op):
    """f16 position -> older position, or None when it is k -> k-1."""
    code, family, t, s = op[:4]
    full = params_of(family, t, s)
    older = [p.name for p in older_params(op)]
    mapping = [0] * (len(full) + 1)
    uniform = True
    for k, p in enumerate(full, start=1):
        if p.name in older:
            mapping[k] = older.index(p.name) + 1
            uniform &= mapping[k] == k - 1
        else:
            mapping[k] = 0
    return None if uniform else mapping


def header():
    out = [
        "/* Zil: the checking fronts of the Level-2 and Level-3 operations and",
        "   their older forms.  Generated by tools/gen_blas_fronts.py from its",
        "   table of operations; do not edit by hand. */",
        "#ifndef ZIL_BLAS_FRONTS_H",
        "#define ZIL_BLAS_FRONTS_H",
        "",
        '#include "zil_types.h"',
        "",
        "#ifdef __cplusplus",
        'extern "C" {',
        "#endif",
        "",
        "/* f16: order first, options, dimensions, scalars and arrays, fail. */",
    ]
    for op in OPS:
        code, family, t, s, tmpl, blas = op[:6]
        out.append(f"ZIL_API {f16_signature(code, family, t, s)};")
        if code in LONG_NAMES:
            out.append(f"ZIL_API {f16_signature(code, family, t, s, 'zil_' + blas)};")
    out += [
        "",
        "/* The older forms: the published argument lists.  Short forms take the",
        "   older option words on row-major arrays; the f forms take them on",
        "   column-major arrays; the f_f forms take one-letter strings, each with",
        "   its length word at the end. */",
    ]
    for op in OPS:
        for fcode, fblas, conj in older_forms(op):
            for kind in ("short", "column", "letter"):
                out.append(f"ZIL_API {older_signature(op, fcode, kind)};")
    out += ["", "#ifdef __cplusplus", "}", "#endif", "", "#endif /* ZIL_BLAS_FRONTS_H */", ""]
    return "\n".join(out)


def source():
    out = [
        "// The entry points of the Level-2 and Level-3 operations.  Generated by",
        "// tools/gen_blas_fronts.py from its table of operations; do not edit by",
        "// hand.  The checks and the arithmetic are in linalg/detail/fronts.hpp.",
        '#include "frame/export.hpp"',
        '#include "linalg/detail/f06report.hpp"',
        '#include "linalg/detail/fronts.hpp"',
        '#include "linalg/detail/options.hpp"',
        '#include "zil_blas_fronts.h"',
        "",
        "using namespace zil::linalg;",
        "",
    ]
    for op in OPS:
        code, family, t, s, tmpl, blas, forms = op
        full = params_of(family, t, s)
        names = [p.name for p in full]
        call_args = ", ".join(names)
        if family in ("spr", "spr2"):
            call_args += ", 0"
        out.append(f'extern "C" {f16_signature(code, family, t, s)} {{')
        out.append(f'  {tmpl}("zil_{blas} (f16{code}c)", {call_args}, fail);')
        out.append("}")
        if code in LONG_NAMES:
            out.append(f"ZIL_ALIAS(f16{code}c, zil_{blas});")
        out.append("")
        pmap = position_map(op)
        for fcode, fblas, conj in older_forms(op):
            for kind in ("short", "column", "letter"):
                tag = f"f06{fcode}c/{fblas}"
                if kind == "letter":
                    tag = f"f06{fcode}c/{fblas:<6}"
                args = []
                for p in full:
                    if p.kind == "order":
                        args.append("Zil_RowMajor" if kind == "short" else "Zil_ColMajor")
                    elif p.default == "CONJ":
                        args.append(conj)
                    elif p.default is not None:
                        args.append(ONE[t] if p.ctype.startswith("Complex") else "1.0")
                    elif p.kind:
                        conv = OLD_ENUM if kind != "letter" else CHAR_OPTION[p.kind]
                        args.append(f"{conv}({p.name})")
                    else:
                        args.append(p.name)
                positions = "{}" if pmap is None else "{" + ", ".join(map(str, pmap)) + "}"
                sig = older_signature(op, fcode, kind, definition=True)
                out.append(f'extern "C" {sig} {{')
                out.append(f'  older_form(f16{code}c, "{tag}", {positions}, {", ".join(args)});')
                out.append("}")
            out.append("")
    return "\n".join(out)


if __name__ == "__main__":
    (ROOT / "include" / "zil_blas_fronts.h").write_text(header())
    (ROOT / "linalg" / "blas_entries.cpp").write_text(source())
