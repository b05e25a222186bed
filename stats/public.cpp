// The public frames of chapter g01: clear fail, check, compute through the
// kernels of stats.hpp, map what the kernel met to the chapter's codes.
#include "frame/export.hpp"
#include "frame/report.hpp"
#include "stats/detail/checks.hpp"
#include "stats/stats.hpp"
#include "zil_stats.h"

namespace {

using namespace zil::stats;
using zil::Reporter;

// The code each routine gives to what its kernel met (0: not reported).
struct Codes {
  Integer res_not_acc = 0;
  Integer close_to_tail = 0;
  Integer alg_not_conv = 0;
  Integer sol_close_to_zero = 0;
  Integer sol_not_conv = 0;
};

// Reports the kernel's fault, or success; true when a failure was reported.
bool finish(Reporter& rep, Fault fault, int iterations, const Codes& codes) {
  Integer code = 0;
  switch (fault) {
    case Fault::None: break;
    case Fault::ResNotAcc: code = codes.res_not_acc; break;
    case Fault::CloseToTail: code = codes.close_to_tail; break;
    case Fault::AlgNotConv: code = codes.alg_not_conv; break;
    case Fault::SolCloseToZero: code = codes.sol_close_to_zero; break;
    case Fault::SolNotConv: code = codes.sol_not_conv; break;
  }
  if (code == 0) {
    rep.success();
    return false;
  }
  if (code == ZE_ALG_NOT_CONV)
    rep.raise(code, iterations);
  else
    rep.raise_plain(code);
  return true;
}

// A failed result is 0.0; `keep` lets a routine keep its approximate value.
double result(Reporter& rep, const Value& v, const Codes& codes, bool keep = false) {
  return finish(rep, v.fault, v.iterations, codes) && !keep ? 0.0 : v.value;
}

void store(double* to, double v) {
  if (to) *to = v;
}

void discrete_out(Reporter& rep, const Discrete& d, double* plek, double* pgtk, double* peqk) {
  store(plek, d.plek);
  store(pgtk, d.pgtk);
  store(peqk, d.peqk);
  finish(rep, d.fault, d.iterations, {.alg_not_conv = ZE_ALG_NOT_CONV});
}

}  // namespace

extern "C" {

double g01eac(Integer tail, double x, ZilError* fail) {
  Reporter rep(fail, "g01eac");
  PublicCheck c(rep);
  const Tail t = tail_of(tail);
  if (c.tail(t, true)) return 0.0;
  return result(rep, {normal_prob(t, x)}, {});
}

double g01ebc(Integer tail, double t, double df, ZilError* fail) {
  Reporter rep(fail, "g01ebc");
  PublicCheck c(rep);
  const Tail tl = tail_of(tail);
  if (check_prob_t(c, tl, df)) return 0.0;
  return result(rep, t_prob(tl, t, df), {});
}

double g01ecc(Integer tail, double x, double df, ZilError* fail) {
  Reporter rep(fail, "g01ecc");
  PublicCheck c(rep);
  const Tail t = tail_of(tail);
  if (check_prob_chi_sq(c, t, x, df)) return 0.0;
  return result(rep, chi_sq_prob(t, x, df), {.alg_not_conv = ZE_ALG_NOT_CONV});
}

double g01edc(Integer tail, double f, double df1, double df2, ZilError* fail) {
  Reporter rep(fail, "g01edc");
  PublicCheck c(rep);
  const Tail t = tail_of(tail);
  if (check_prob_f(c, t, f, df1, df2)) return 0.0;
  // Out in the tails the limit 0 or 1 the beta stage gives is kept.
  const Value v = f_prob(t, f, df1, df2);
  return result(rep, v, {.close_to_tail = ZE_PROBAB_CLOSE_TO_TAIL, .alg_not_conv = ZE_ALG_NOT_CONV},
                v.fault == Fault::CloseToTail);
}

void g01eec(double x, double a, double b, double tol, double* p, double* q, double* pdf, ZilError* fail) {
  Reporter rep(fail, "g01eec");
  PublicCheck c(rep);
  if (check_prob_beta(c, x, a, b)) return;
  const Beta r = beta_prob(x, a, b, tol);
  store(p, r.p);
  store(q, r.q);
  store(pdf, r.pdf);
  finish(rep, r.fault, 0, {.res_not_acc = ZE_RES_NOT_ACC, .close_to_tail = ZE_PROBAB_CLOSE_TO_TAIL});
}

double g01efc(Integer tail, double g, double a, double b, ZilError* fail) {
  Reporter rep(fail, "g01efc");
  PublicCheck c(rep);
  const Tail t = tail_of(tail);
  if (check_prob_gamma(c, t, g, a, b)) return 0.0;
  return result(rep, gamma_prob(t, g, a, b), {.alg_not_conv = ZE_ALG_NOT_CONV});
}

double g01cec(double p, ZilError* fail) {
  Reporter rep(fail, "g01cec");
  PublicCheck c(rep);
  if (check_open_p(c, p)) return 0.0;
  return result(rep, {normal_quantile(p)}, {});
}

double g01fac(Integer tail, double p, ZilError* fail) {
  Reporter rep(fail, "g01fac");
  PublicCheck c(rep);
  const Tail t = tail_of(tail);
  if (c.tail(t, true) || check_open_p(c, p)) return 0.0;
  return result(rep, {normal_quantile(t, p)}, {});
}

double g01fbc(Integer tail, double p, double df, ZilError* fail) {
  Reporter rep(fail, "g01fbc");
  PublicCheck c(rep);
  const Tail t = tail_of(tail);
  if (check_deviates_t(c, t, p, df)) return 0.0;
  return result(rep, t_quantile(t, p, df),
                {.sol_close_to_zero = ZE_SOL_CLOSE_TO_ZERO, .sol_not_conv = ZE_SOL_NOT_CONV}, true);
}

double g01fcc(double p, double df, ZilError* fail) {
  Reporter rep(fail, "g01fcc");
  PublicCheck c(rep);
  if (check_deviates_chi_sq(c, p, df)) return 0.0;
  const Value v = chi_sq_quantile(p, df);
  return result(rep, v,
                {.close_to_tail = ZE_PROBAB_CLOSE_TO_TAIL, .alg_not_conv = ZE_GAM_NOT_CONV,
                 .sol_not_conv = ZE_ALG_NOT_CONV},
                v.fault == Fault::SolNotConv);
}

double g01fdc(double p, double df1, double df2, ZilError* fail) {
  Reporter rep(fail, "g01fdc");
  PublicCheck c(rep);
  if (check_deviates_f(c, p, df1, df2)) return 0.0;
  const Value v = f_quantile(p, df1, df2);
  return result(rep, v,
                {.close_to_tail = ZE_PROBAB_CLOSE_TO_TAIL, .alg_not_conv = ZE_GAM_NOT_CONV,
                 .sol_not_conv = ZE_SOL_NOT_CONV},
                v.fault == Fault::SolNotConv);
}

double g01fec(double p, double a, double b, double tol, ZilError* fail) {
  Reporter rep(fail, "g01fec");
  PublicCheck c(rep);
  if (check_deviates_beta(c, p, a, b)) return 0.0;
  return result(rep, beta_quantile(p, a, b, tol),
                {.res_not_acc = ZE_RES_NOT_ACC, .close_to_tail = ZE_PROBAB_CLOSE_TO_TAIL,
                 .sol_not_conv = ZE_SOL_NOT_CONV},
                true);
}

double g01ffc(double p, double a, double b, double tol, ZilError* fail) {
  Reporter rep(fail, "g01ffc");
  PublicCheck c(rep);
  if (check_deviates_gamma(c, p, a, b)) return 0.0;
  const Value v = gamma_quantile(p, a, b, tol);
  return result(rep, v,
                {.close_to_tail = ZE_PROBAB_CLOSE_TO_TAIL, .alg_not_conv = ZE_GAM_NOT_CONV,
                 .sol_not_conv = ZE_ALG_NOT_CONV},
                v.fault == Fault::SolNotConv);
}

void g01bjc(Integer n, double p, Integer k, double* plek, double* pgtk, double* peqk, ZilError* fail) {
  Reporter rep(fail, "g01bjc");
  PublicCheck c(rep);
  if (check_binomial(c, n, p, k)) return;
  discrete_out(rep, binomial(n, p, k), plek, pgtk, peqk);
}

void g01bkc(double rlamda, Integer k, double* plek, double* pgtk, double* peqk, ZilError* fail) {
  Reporter rep(fail, "g01bkc");
  PublicCheck c(rep);
  if (check_poisson(c, rlamda, k)) return;
  discrete_out(rep, poisson(rlamda, k), plek, pgtk, peqk);
}

void g01blc(Integer n, Integer l, Integer m, Integer k, double* plek, double* pgtk, double* peqk,
            ZilError* fail) {
  Reporter rep(fail, "g01blc");
  PublicCheck c(rep);
  if (check_hypergeom(c, n, l, m, k)) return;
  discrete_out(rep, hypergeometric(n, l, m, k), plek, pgtk, peqk);
}

}  // extern "C"

ZIL_ALIAS(g01eac, zil_prob_normal);
ZIL_ALIAS(g01ebc, zil_prob_students_t);
ZIL_ALIAS(g01ecc, zil_prob_chi_sq);
ZIL_ALIAS(g01edc, zil_prob_f_dist);
ZIL_ALIAS(g01eec, zil_prob_beta_dist);
ZIL_ALIAS(g01efc, zil_gamma_dist);
ZIL_ALIAS(g01cec, zil_deviates_normal_dist);
ZIL_ALIAS(g01fac, zil_deviates_normal);
ZIL_ALIAS(g01fbc, zil_deviates_students_t);
ZIL_ALIAS(g01fcc, zil_deviates_chi_sq);
ZIL_ALIAS(g01fdc, zil_deviates_f_dist);
ZIL_ALIAS(g01fec, zil_deviates_beta);
ZIL_ALIAS(g01ffc, zil_deviates_gamma_dist);
ZIL_ALIAS(g01bjc, zil_binomial_dist);
ZIL_ALIAS(g01bkc, zil_poisson_dist);
ZIL_ALIAS(g01blc, zil_hypergeom_dist);
