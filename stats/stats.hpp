// The distribution functions as other chapters call them: the numerical
// kernels (no argument checks, no reporting) and the inner twins with a
// character tail and ifail.  The public routines of include/zil_stats.h are
// frames over the same kernels.
#pragma once

#include "zil_types.h"

namespace zil::stats {

enum class Tail { Lower, Upper, Signif, Confid, Invalid };

// What a kernel met besides its answer.  The public frames and the inner
// twins each turn it into their own code or message.
enum class Fault {
  None,
  ResNotAcc,    // the beta series could not reach tol
  CloseToTail,  // the answer underflows or is indistinguishable from 0 or 1
  AlgNotConv,   // the incomplete gamma series did not converge
  SolCloseToZero,
  SolNotConv,   // a quantile search stopped short of tol
};

struct Value {
  double value;
  Fault fault = Fault::None;
  int iterations = 0;  // for AlgNotConv
};

struct Beta {
  double p, q, pdf;
  Fault fault = Fault::None;
};

struct Discrete {
  double plek, pgtk, peqk;
  Fault fault = Fault::None;
  int iterations = 0;
};

// The tol rule: below 10 eps, or not below 1, means 10 eps.
double fix_tol(double tol);

// Kernels.  Arguments are taken as valid.
double normal_prob(Tail tail, double x);
Value t_prob(Tail tail, double t, double df);
Value chi_sq_prob(Tail tail, double x, double df);  // lower or upper
Value f_prob(Tail tail, double f, double df1, double df2);
Beta beta_prob(double x, double a, double b, double tol);
Value gamma_prob(Tail tail, double g, double a, double b);
double normal_quantile(double p);  // 0 < p < 1
double normal_quantile(Tail tail, double p);
Value t_quantile(Tail tail, double p, double df);
Value chi_sq_quantile(double p, double df);
Value f_quantile(double p, double df1, double df2);
Value beta_quantile(double p, double a, double b, double tol);
Value gamma_quantile(double p, double a, double b, double tol);
Discrete binomial(Integer n, double p, Integer k);
Discrete poisson(double lambda, Integer k);
Discrete hypergeometric(Integer n, Integer l, Integer m, Integer k);

}  // namespace zil::stats

namespace zil {

// Inner twins: tail is 'L', 'U', 'S' or 'C' in either case; ifail on entry
// as in the inner layer's convention (by-value reports), on exit 0 or the
// failure number.  Argument checks are numbered in argument order from 1;
// the numerical failures follow them.
double G01EAF(char tail, double x, Integer& ifail);
double G01EBF(char tail, double t, double df, Integer& ifail);
double G01ECF(char tail, double x, double df, Integer& ifail);
double G01EDF(char tail, double f, double df1, double df2, Integer& ifail);
void G01EEF(double x, double a, double b, double tol, double& p, double& q, double& pdf,
            Integer& ifail);
double G01EFF(char tail, double g, double a, double b, Integer& ifail);
double G01CEF(double p, Integer& ifail);
double G01FAF(char tail, double p, Integer& ifail);
double G01FBF(char tail, double p, double df, Integer& ifail);
double G01FCF(double p, double df, Integer& ifail);
double G01FDF(double p, double df1, double df2, Integer& ifail);
double G01FEF(double p, double a, double b, double tol, Integer& ifail);
double G01FFF(double p, double a, double b, double tol, Integer& ifail);
void G01BJF(Integer n, double p, Integer k, double& plek, double& pgtk, double& peqk, Integer& ifail);
void G01BKF(double rlamda, Integer k, double& plek, double& pgtk, double& peqk, Integer& ifail);
void G01BLF(Integer n, Integer l, Integer m, Integer k, double& plek, double& pgtk, double& peqk,
            Integer& ifail);

}  // namespace zil
