// The option words of the older forms, turned into the f16 family.  An
// unknown word becomes -9999, which the f16 check rejects as illegal.
#pragma once

#include <cctype>

#include "zil_linalg.h"

namespace zil::linalg {

inline constexpr Integer kUnknownOption = -9999;

// The older enumeration: its ranges are disjoint, so one map serves every
// option argument.  Pivot and sequence words have no f16 counterpart.
inline Integer older_option(Integer v) {
  switch (v) {
    case NoTranspose: return Zil_NoTrans;
    case Transpose: return Zil_Trans;
    case ConjugateTranspose: return Zil_ConjTrans;
    case UpperTriangle: return Zil_Upper;
    case LowerTriangle: return Zil_Lower;
    case UnitTriangular: return Zil_UnitDiag;
    case NotUnitTriangular: return Zil_NonUnitDiag;
    case LeftSide: return Zil_LeftSide;
    case RightSide: return Zil_RightSide;
    case OneNorm: return Zil_OneNorm;
    case FrobeniusNorm: return Zil_FrobeniusNorm;
    case MaxAbsValue: return Zil_MaxNorm;
    case InfinityNorm: return Zil_InfNorm;
    default: return kUnknownOption;
  }
}

// One-letter options, upper or lower case.
inline char letter(const char* s) { return s ? static_cast<char>(std::toupper(static_cast<unsigned char>(s[0]))) : '\0'; }

inline Integer letter_trans(const char* s) {
  switch (letter(s)) {
    case 'N': return Zil_NoTrans;
    case 'T': return Zil_Trans;
    case 'C': return Zil_ConjTrans;
    default: return kUnknownOption;
  }
}
inline Integer letter_uplo(const char* s) {
  char c = letter(s);
  return c == 'U' ? Zil_Upper : c == 'L' ? Zil_Lower : kUnknownOption;
}
inline Integer letter_diag(const char* s) {
  char c = letter(s);
  return c == 'U' ? Zil_UnitDiag : c == 'N' ? Zil_NonUnitDiag : kUnknownOption;
}
inline Integer letter_side(const char* s) {
  char c = letter(s);
  return c == 'L' ? Zil_LeftSide : c == 'R' ? Zil_RightSide : kUnknownOption;
}
// Norms: "1" or "O", "I", "F" or "E", "M".
inline Integer letter_norm(const char* s) {
  switch (letter(s)) {
    case '1': case 'O': return Zil_OneNorm;
    case 'I': return Zil_InfNorm;
    case 'F': case 'E': return Zil_FrobeniusNorm;
    case 'M': return Zil_MaxNorm;
    default: return kUnknownOption;
  }
}

}  // namespace zil::linalg
