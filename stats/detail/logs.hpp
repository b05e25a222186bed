// Logarithms of the normalising factors of the beta, binomial, Poisson and
// hypergeometric laws, written so that the large terms cancel analytically
// instead of in floating point: the exponent of a probability near the body
// of a distribution with a million trials is a difference of terms of size
// 1e7, and a plain lgamma difference would lose seven digits to it.
//
// The exponents are returned in the extended format (sf::Wide): exp turns
// an absolute error in its argument into a relative one, and at a tail of
// 1e-300 the argument is near -690, whose rounding to a double alone can
// cost 5.7e-14.
#pragma once

#include "specfun/specfun.hpp"

namespace zil::stats {

using sf::Wide;

// Stirling's remainder ln Gamma(z) - (z - 1/2) ln z + z - ln sqrt(2 pi).
double stirling_tail(double z);

// x ln(x / m) + m - x, the deviance term of Loader's saddle-point method
// (C. Loader, "Fast and accurate computation of binomial probabilities", 2000).
Wide deviance(double x, Wide m);

// ln( x^a y^b / B(a, b) ) with y = 1 - x, given ln x and ln y.  `exact_x`
// tells which of x and y is the caller's own value; the other carries the
// rounding of 1 - value, which the large-parameter form avoids using.
Wide log_beta_front(double a, double b, double x, double y, double lx, double ly, bool exact_x);

// P(X = x) for the binomial law of n trials with success chance p, failure
// chance q = 1 - p; x and n whole numbers, 0 <= x <= n.
double binomial_pmf(double x, double n, double p, double q);

// P(X = k) for the Poisson law of mean lambda.
double poisson_pmf(double k, double lambda);

}  // namespace zil::stats
