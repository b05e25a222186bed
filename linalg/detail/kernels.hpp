// The kernels that other chapters call from C++ and that no BLAS has: the
// safeguarded quotient, rotation generation and sequences, the Householder
// variants, the scaled sum of squares of a complex vector and the small
// vector helpers.
#pragma once

#include "zil_types.h"

namespace zil::linalg {

// a/b with overflow and division by zero caught.  fail is set to 1 when the
// quotient had to be limited to +-flmax (or 0/0), else 0.
double safe_divide(double a, double b, Integer& fail);
// The same with the IEEE double constants written into the routine.
double safe_divide_ieee(double a, double b, Integer& fail);
// f06bcc with the IEEE constants written in.
void rotation_from_tangent_ieee(double t, double& c, double& s);

// Generates the plane rotation that annihilates b against a: a becomes
// c a + s b and b is overwritten by the tangent, from which c and s can be
// rebuilt.  b = 0 gives c = 1, s = 0 and leaves a and b.
void rotation_generate(double& a, double& b, double& c, double& s);
void rotation_generate_ieee(double& a, double& b, double& c, double& s);

// Older option words of the rotation sequences: pivot VariablePivot,
// TopPivot, BottomPivot, FixedPivot; direct ForwardSequence,
// BackwardSequence; side LeftSide, RightSide.

// Rotations that reduce (alpha, x) to (beta, 0), returned in c[0..n-1] and
// s[0..n-1]; x keeps the tangents.  BackwardSequence takes the pairs from
// the end: VariablePivot chains (x[k-1], x[k]) for k = n-1 .. 1 and then
// (alpha, x[0]); FixedPivot pairs alpha with each x[k].  ForwardSequence
// takes them from the start (FixedPivot: alpha with x[0], x[1], ...;
// VariablePivot: x[k] carried into x[k+1], then x[n-1] into alpha) and
// negates the sines, so the product of the rotations runs the other way.
void rotation_generate_sequence(Integer pivot, Integer direct, Integer n, double& alpha,
                                double x[], Integer incx, double c[], double s[]);

// Applies rotations k1 .. k2-1 (counted from 1; rotation k is c[k-1],
// s[k-1]) to the m by n column-major matrix a from the left (to rows) or
// the right (to columns).  VariablePivot rotates the planes (k, k+1),
// TopPivot (k+1, k1) and BottomPivot (k, k2).  ForwardSequence applies them
// in increasing k, BackwardSequence in decreasing k.
void rotation_sequence_apply(Integer side, Integer pivot, Integer direct, Integer m, Integer n,
                             Integer k1, Integer k2, const double c[], const double s[],
                             double a[], Integer pda);

// Triangular updaters over the rotation family, for an n by n upper
// triangular column-major a, with k1 < k2 counted from 1 and rotation j
// returned in c[j-1], s[j-1]:
//
// reduce_row_spike: row k2 of the triangle has a spike in columns k1 ..
// k2-1, held in s[k1-1 .. k2-2] (the strict lower triangle of a is never
// touched).  Rotations in the planes (j, k2), j = k1 .. k2-1, take it out
// and leave a upper triangular.
void reduce_row_spike(Integer n, Integer k1, Integer k2, double c[], double s[], double a[], Integer pda);
// shift_column: moves column k1 to position k2, shifting columns k1+1 ..
// k2 one place left; the sub-diagonal this leaves is removed by rotations
// in the planes (j, j+1), j = k1 .. k2-1, and the sub-diagonal positions
// are left zero.
void shift_column(Integer n, Integer k1, Integer k2, double c[], double s[], double a[], Integer pda);
// reduce_column_spike: column k1 has a spike below the diagonal in rows
// k1+1 .. k2, the element of row i held in s[i-2] (the strict lower
// triangle of a is never touched).  Rotations from the right in the planes
// (k1, j+1), j = k2-1 down to k1, take it out (rotation j removes row j+1's
// element) and leave a upper triangular: the TopPivot, BackwardSequence
// form of rotation_sequence_apply with RightSide.
void reduce_column_spike(Integer n, Integer k1, Integer k2, double c[], double s[], double a[], Integer pda);
// shift_row: moves row k2 to position k1, shifting rows k1 .. k2-1 one
// place down; the sub-diagonal this leaves in columns k1 .. k2-1 is removed
// by rotations from the right in the planes (j, j+1), j = k2-1 down to k1
// (the VariablePivot, BackwardSequence form with RightSide), and the
// sub-diagonal positions are left zero.
void shift_row(Integer n, Integer k1, Integer k2, double c[], double s[], double a[], Integer pda);

// f06frc's contract with beta formed through f06bmc (the Kalman routines).
void householder_kalman(Integer n, double& alpha, double x[], Integer incx, double tol,
                        double& zeta);
// f06frc's contract for the real QR routines: x is scaled by the reciprocal
// of -zeta beta only when beta is in the safe range, otherwise divided.
void householder_qr(Integer n, double& alpha, double x[], Integer incx, double tol,
                    double& zeta);

// Scaled sum of squares of a complex vector, real then imaginary part of
// each element.
void complex_scaled_ssq(Integer n, const Complex x[], Integer incx, double& scale,
                        double& sumsq);

// Index (from 0) of the first element whose modulus is at most tol times the
// largest modulus before it; n if there is none.  tol < 0 means eps.
Integer first_small_element(Integer n, const double x[], Integer incx, double tol);

// y[i] *= x[i] and y[i] /= x[i]; a stride of 0 for x scales y by x[0].
void element_product(Integer n, const double x[], Integer incx, double y[], Integer incy);
void element_quotient(Integer n, const double x[], Integer incx, double y[], Integer incy);

// Largest and smallest absolute value; both 0 for an empty vector.
void min_max_abs(Integer n, const double x[], Integer incx, double& xmax, double& xmin);

}  // namespace zil::linalg
