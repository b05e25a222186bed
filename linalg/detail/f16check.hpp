// The argument checks of the f16 fronts.
//
// Every f16 routine tests its arguments by kind, in a fixed order:
// enumerations, dimensions, null arrays, increments, leading dimensions.
// The first failure records the argument's position (negated, counted from
// 1 with order first) and its value in argnum and argval, then reports.
// A front reads as one chain:
//
//   F16Check c(fail, "zil_dgemv (f16pac)");
//   if (c.order(1, order) || c.trans(2, trans) || c.dim(3, "m", m) || ...) return;
#pragma once

#include "frame/report.hpp"
#include "zil_linalg.h"

namespace zil::linalg {

inline bool valid_order(Integer v) { return v == Zil_RowMajor || v == Zil_ColMajor; }
inline bool valid_trans(Integer v) { return v == Zil_NoTrans || v == Zil_Trans || v == Zil_ConjTrans; }
inline bool valid_uplo(Integer v) { return v == Zil_Upper || v == Zil_Lower; }
inline bool valid_diag(Integer v) { return v == Zil_NonUnitDiag || v == Zil_UnitDiag; }
inline bool valid_side(Integer v) { return v == Zil_LeftSide || v == Zil_RightSide; }
inline bool valid_conj(Integer v) { return v == Zil_Conj || v == Zil_NoConj; }
// Every norm word but the two-norm, which no routine here computes.
inline bool valid_norm(Integer v) { return v >= Zil_OneNorm && v <= Zil_RealMaxNorm && v != Zil_TwoNorm; }

class F16Check {
 public:
  F16Check(ZilError* fail, const char* routine)
      : rep_(fail, routine, Reporter::Clear::All) {}

  Reporter& rep() { return rep_; }

  bool enumeration(int pos, const char* name, Integer v, bool ok) {
    if (ok) return false;
    mark(pos, v);
    rep_.bad_param(name);
    return true;
  }
  bool order(int pos, Integer v) { return enumeration(pos, "order", v, valid_order(v)); }
  bool trans(int pos, Integer v, const char* name = "trans") { return enumeration(pos, name, v, valid_trans(v)); }
  bool uplo(int pos, Integer v) { return enumeration(pos, "uplo", v, valid_uplo(v)); }
  bool diag(int pos, Integer v) { return enumeration(pos, "diag", v, valid_diag(v)); }
  bool side(int pos, Integer v) { return enumeration(pos, "side", v, valid_side(v)); }
  bool conj(int pos, Integer v) { return enumeration(pos, "conj", v, valid_conj(v)); }
  bool norm(int pos, Integer v) { return enumeration(pos, "norm", v, valid_norm(v)); }

  // A dimension must not be negative: "m >= 0".
  bool dim(int pos, const char* name, Integer v) {
    if (v >= 0) return false;
    char text[32];
    format_into(text, "%s >= 0", name);
    return report_int(pos, name, v, text);
  }

  bool array(int pos, const char* name, const void* p) {
    if (p) return false;
    mark(pos, 0);
    rep_.bad_param(name);
    return true;
  }

  // An increment must not be 0: "incx != 0".
  bool inc(int pos, const char* name, Integer v) {
    if (v != 0) return false;
    char text[32];
    format_into(text, "%s != 0", name);
    return report_int(pos, name, v, text);
  }

  // A leading dimension below its least value, with the constraint's text.
  bool ld(int pos, const char* name, Integer v, Integer least, const char* text) {
    if (v >= least) return false;
    return report_int(pos, name, v, text);
  }

  // "pda >= MAX(1,m)": at least the named dimension, and at least 1.
  bool ld_max1(int pos, const char* name, Integer v, const char* dim, Integer dimval) {
    if (v >= (dimval > 1 ? dimval : 1)) return false;
    char text[48];
    format_into(text, "%s >= MAX(1,%s)", name, dim);
    return report_int(pos, name, v, text);
  }

  void alloc_fail() { rep_.alloc_fail(); }
  void success() { rep_.success(); }

 private:
  void mark(int pos, Integer v) {
    if (ZilError* f = rep_.record()) {
      f->argnum = -pos;
      f->argval = v;
    }
  }
  bool report_int(int pos, const char* name, Integer v, const char* text) {
    mark(pos, v);
    rep_.raise(ZE_INT, name, v, text);
    return true;
  }

  Reporter rep_;
};

inline Integer max1(Integer v) { return v > 1 ? v : 1; }

}  // namespace zil::linalg
