// The inner twins of chapter g01: the same checks and kernels as the public
// frames, with a character tail, ifail and the inner layer's messages.
#include "frame/inner.hpp"
#include "stats/detail/checks.hpp"
#include "stats/stats.hpp"

namespace zil {

namespace {

using namespace stats;

const char* fault_text(Fault f) {
  switch (f) {
    case Fault::ResNotAcc: return " ** The requested accuracy has not been achieved";
    case Fault::CloseToTail: return " ** The probability is too close to 0.0 or 1.0 for an accurate result";
    case Fault::AlgNotConv: return " ** The incomplete gamma series has not converged in %ld iterations";
    case Fault::SolCloseToZero: return " ** The solution is too close to zero to be determined accurately";
    case Fault::SolNotConv: return " ** The solution has not converged; the result may be inaccurate";
    default: return "";
  }
}

// Ends an inner twin: a fault the routine reports becomes the failure
// number after its checks (numbered in the order of `reported`), and ifail
// takes the exit.  Returns true when a failure was left in ifail.
bool finish(InnerCheck& c, Integer& ifail, const char* srname, Fault fault, int iterations,
            std::initializer_list<Fault> reported, const char* own_text = nullptr) {
  Integer offset = 0;
  for (Fault f : reported) {
    ++offset;
    if (f != fault) continue;
    c.numerical(offset, own_text && f == Fault::CloseToTail ? own_text : fault_text(f), static_cast<long>(iterations));
    c.mark_failed();
    break;
  }
  ifail = c.exit(ifail, srname);
  return c.failed();
}

bool checked(InnerCheck& c, Integer& ifail, const char* srname, bool bad) {
  if (bad) ifail = c.exit(ifail, srname);
  return bad;
}

double value_of(const Value& v, bool failed, bool keep = false) { return failed && !keep ? 0.0 : v.value; }

void discrete_out(InnerCheck& c, Integer& ifail, const char* srname, const Discrete& d, double& plek, double& pgtk,
                  double& peqk) {
  plek = d.plek;
  pgtk = d.pgtk;
  peqk = d.peqk;
  finish(c, ifail, srname, d.fault, d.iterations, {Fault::AlgNotConv});
}

}  // namespace

double G01EAF(char tail, double x, Integer& ifail) {
  InnerCheck c(tail);
  const Tail t = tail_of(tail);
  if (checked(c, ifail, "G01EAF", c.tail(t, true))) return 0.0;
  ifail = c.exit(ifail, "G01EAF");
  return normal_prob(t, x);
}

double G01EBF(char tail, double t, double df, Integer& ifail) {
  InnerCheck c(tail);
  const Tail tl = tail_of(tail);
  if (checked(c, ifail, "G01EBF", check_prob_t(c, tl, df))) return 0.0;
  ifail = c.exit(ifail, "G01EBF");
  return t_prob(tl, t, df).value;
}

double G01ECF(char tail, double x, double df, Integer& ifail) {
  InnerCheck c(tail);
  const Tail t = tail_of(tail);
  if (checked(c, ifail, "G01ECF", check_prob_chi_sq(c, t, x, df))) return 0.0;
  const Value v = chi_sq_prob(t, x, df);
  return value_of(v, finish(c, ifail, "G01ECF", v.fault, v.iterations, {Fault::AlgNotConv}));
}

double G01EDF(char tail, double f, double df1, double df2, Integer& ifail) {
  InnerCheck c(tail);
  const Tail t = tail_of(tail);
  if (checked(c, ifail, "G01EDF", check_prob_f(c, t, f, df1, df2))) return 0.0;
  const Value v = f_prob(t, f, df1, df2);
  return value_of(v,
                  finish(c, ifail, "G01EDF", v.fault, v.iterations, {Fault::CloseToTail, Fault::AlgNotConv},
                         " ** F is too far out into the tails for accurate calculation"),
                  v.fault == Fault::CloseToTail);
}

void G01EEF(double x, double a, double b, double tol, double& p, double& q, double& pdf, Integer& ifail) {
  InnerCheck c;
  if (checked(c, ifail, "G01EEF", check_prob_beta(c, x, a, b))) return;
  const Beta r = beta_prob(x, a, b, tol);
  p = r.p;
  q = r.q;
  pdf = r.pdf;
  finish(c, ifail, "G01EEF", r.fault, 0, {Fault::ResNotAcc, Fault::CloseToTail});
}

double G01EFF(char tail, double g, double a, double b, Integer& ifail) {
  InnerCheck c(tail);
  const Tail t = tail_of(tail);
  if (checked(c, ifail, "G01EFF", check_prob_gamma(c, t, g, a, b))) return 0.0;
  const Value v = gamma_prob(t, g, a, b);
  return value_of(v, finish(c, ifail, "G01EFF", v.fault, v.iterations, {Fault::AlgNotConv}));
}

double G01CEF(double p, Integer& ifail) {
  InnerCheck c;
  if (checked(c, ifail, "G01CEF", check_open_p(c, p))) return 0.0;
  ifail = c.exit(ifail, "G01CEF");
  return normal_quantile(p);
}

double G01FAF(char tail, double p, Integer& ifail) {
  InnerCheck c(tail);
  const Tail t = tail_of(tail);
  if (checked(c, ifail, "G01FAF", c.tail(t, true) || check_open_p(c, p))) return 0.0;
  ifail = c.exit(ifail, "G01FAF");
  return normal_quantile(t, p);
}

double G01FBF(char tail, double p, double df, Integer& ifail) {
  InnerCheck c(tail);
  const Tail t = tail_of(tail);
  if (checked(c, ifail, "G01FBF", check_deviates_t(c, t, p, df))) return 0.0;
  const Value v = t_quantile(t, p, df);
  return value_of(v, finish(c, ifail, "G01FBF", v.fault, 0, {Fault::SolCloseToZero, Fault::SolNotConv}), true);
}

double G01FCF(double p, double df, Integer& ifail) {
  InnerCheck c;
  if (checked(c, ifail, "G01FCF", check_deviates_chi_sq(c, p, df))) return 0.0;
  const Value v = chi_sq_quantile(p, df);
  const bool failed =
      finish(c, ifail, "G01FCF", v.fault, v.iterations, {Fault::AlgNotConv, Fault::CloseToTail, Fault::SolNotConv});
  return value_of(v, failed, v.fault == Fault::SolNotConv);
}

double G01FDF(double p, double df1, double df2, Integer& ifail) {
  InnerCheck c;
  if (checked(c, ifail, "G01FDF", check_deviates_f(c, p, df1, df2))) return 0.0;
  const Value v = f_quantile(p, df1, df2);
  const bool failed =
      finish(c, ifail, "G01FDF", v.fault, v.iterations, {Fault::AlgNotConv, Fault::CloseToTail, Fault::SolNotConv});
  return value_of(v, failed, v.fault == Fault::SolNotConv);
}

double G01FEF(double p, double a, double b, double tol, Integer& ifail) {
  InnerCheck c;
  if (checked(c, ifail, "G01FEF", check_deviates_beta(c, p, a, b))) return 0.0;
  const Value v = beta_quantile(p, a, b, tol);
  finish(c, ifail, "G01FEF", v.fault, 0, {Fault::ResNotAcc, Fault::CloseToTail, Fault::SolNotConv});
  return v.value;
}

double G01FFF(double p, double a, double b, double tol, Integer& ifail) {
  InnerCheck c;
  if (checked(c, ifail, "G01FFF", check_deviates_gamma(c, p, a, b))) return 0.0;
  const Value v = gamma_quantile(p, a, b, tol);
  const bool failed =
      finish(c, ifail, "G01FFF", v.fault, v.iterations, {Fault::AlgNotConv, Fault::CloseToTail, Fault::SolNotConv});
  return value_of(v, failed, v.fault == Fault::SolNotConv);
}

void G01BJF(Integer n, double p, Integer k, double& plek, double& pgtk, double& peqk, Integer& ifail) {
  InnerCheck c;
  if (checked(c, ifail, "G01BJF", check_binomial(c, n, p, k))) return;
  discrete_out(c, ifail, "G01BJF", binomial(n, p, k), plek, pgtk, peqk);
}

void G01BKF(double rlamda, Integer k, double& plek, double& pgtk, double& peqk, Integer& ifail) {
  InnerCheck c;
  if (checked(c, ifail, "G01BKF", check_poisson(c, rlamda, k))) return;
  discrete_out(c, ifail, "G01BKF", poisson(rlamda, k), plek, pgtk, peqk);
}

void G01BLF(Integer n, Integer l, Integer m, Integer k, double& plek, double& pgtk, double& peqk, Integer& ifail) {
  InnerCheck c;
  if (checked(c, ifail, "G01BLF", check_hypergeom(c, n, l, m, k))) return;
  discrete_out(c, ifail, "G01BLF", hypergeometric(n, l, m, k), plek, pgtk, peqk);
}

}  // namespace zil
