// The published LAPACK matrix-norm functions that the norm fronts call.
// Each character argument has its hidden length word at the end.
#pragma once

#include <cstddef>

#include "zil_types.h"

extern "C" {
using L = std::size_t;
using I = const int;
double dlange_(const char*, I*, I*, const double*, I*, double*, L);
double dlangb_(const char*, I*, I*, I*, const double*, I*, double*, L);
double dlansy_(const char*, const char*, I*, const double*, I*, double*, L, L);
double dlansp_(const char*, const char*, I*, const double*, double*, L, L);
double dlansb_(const char*, const char*, I*, I*, const double*, I*, double*, L, L);
double zlange_(const char*, I*, I*, const Complex*, I*, double*, L);
double zlangb_(const char*, I*, I*, I*, const Complex*, I*, double*, L);
double zlanhe_(const char*, const char*, I*, const Complex*, I*, double*, L, L);
double zlanhp_(const char*, const char*, I*, const Complex*, double*, L, L);
double zlanhb_(const char*, const char*, I*, I*, const Complex*, I*, double*, L, L);
double zlansy_(const char*, const char*, I*, const Complex*, I*, double*, L, L);
double zlansp_(const char*, const char*, I*, const Complex*, double*, L, L);
}

namespace zil::linalg::lapack {

// By element type; Herm chooses the Hermitian complex forms (a real
// symmetric matrix is its own Hermitian).
inline double lange(char nm, int m, int n, const double* a, int ld, double* w) { return dlange_(&nm, &m, &n, a, &ld, w, 1); }
inline double lange(char nm, int m, int n, const Complex* a, int ld, double* w) { return zlange_(&nm, &m, &n, a, &ld, w, 1); }
inline double langb(char nm, int n, int kl, int ku, const double* a, int ld, double* w) { return dlangb_(&nm, &n, &kl, &ku, a, &ld, w, 1); }
inline double langb(char nm, int n, int kl, int ku, const Complex* a, int ld, double* w) { return zlangb_(&nm, &n, &kl, &ku, a, &ld, w, 1); }
template <bool Herm>
double lansy(char nm, char u, int n, const double* a, int ld, double* w) { return dlansy_(&nm, &u, &n, a, &ld, w, 1, 1); }
template <bool Herm>
double lansy(char nm, char u, int n, const Complex* a, int ld, double* w) {
  return Herm ? zlanhe_(&nm, &u, &n, a, &ld, w, 1, 1) : zlansy_(&nm, &u, &n, a, &ld, w, 1, 1);
}
template <bool Herm>
double lansp(char nm, char u, int n, const double* a, double* w) { return dlansp_(&nm, &u, &n, a, w, 1, 1); }
template <bool Herm>
double lansp(char nm, char u, int n, const Complex* a, double* w) {
  return Herm ? zlanhp_(&nm, &u, &n, a, w, 1, 1) : zlansp_(&nm, &u, &n, a, w, 1, 1);
}
template <bool Herm>
double lansb(char nm, char u, int n, int k, const double* a, int ld, double* w) { return dlansb_(&nm, &u, &n, &k, a, &ld, w, 1, 1); }
template <bool Herm>
double lansb(char nm, char u, int n, int k, const Complex* a, int ld, double* w) { return zlanhb_(&nm, &u, &n, &k, a, &ld, w, 1, 1); }

}  // namespace zil::linalg::lapack
