// How far observations are from a model, within it and beside it.
#ifndef ZEMVA_MODEL_EXECUTION_DISTANCES_H
#define ZEMVA_MODEL_EXECUTION_DISTANCES_H

#include <span>
#include <vector>

#include "zemva/numeric/x_vector.h"

namespace zemva {

// A block of N observations and K variables in a model; A0 is 1 when it is centred, else 0. Its
// residuals have lost so many degrees of freedom: a variable c to the components, an observation r
// to its scores. stage.h tells how many in X and in Y.
struct BlockSize {
  int observation_count;
  int variable_count;
  int a0;
  int of_column;
  int of_row;

  // N - A0 - c, at least 1.
  double FreeObservations() const;
  // What the variance of an observation that the model was fitted to is multiplied with, since its
  // residuals are smaller than those of a new one: N / (N - A0 - c).
  double MembershipCorrection() const;
};

// sum e^2 / (m - r) over the m present residuals of an observation; missing where m <= r.
double ObservationVariance(double squares, int present_count, int of_row);

// Sums over the present residuals of an observation: their number m, w and w e^2.
struct WeightedSums {
  int present_count = 0;
  double weights = 0;
  double squares = 0;
};

// Weights for residuals, from the modelling powers of the columns: w = max(MPow^2, 0.01).
class ResidualWeights {
 public:
  explicit ResidualWeights(const XFVector& modelling_power);

  // A residual counts where its value, of which so many are present, is; elsewhere it is 0.
  WeightedSums Sum(std::span<const float> residuals, std::span<const float> values,
                   int present_count) const;

 private:
  std::vector<double> weights_;
  double total_;
};

// (sum w e^2 / sum w) m / (m - r), the last factor where m - r > 1; 0 where sum w is no more than
// 1e-30.
double WeightedVariance(const WeightedSums& sums, int of_row);
// The same for the distance of the observation; missing where m <= r, as without weights.
double WeightedObservationVariance(const WeightedSums& sums, int of_row);

// The F test of an observation's variance against that of the model. v2, the residual degrees of
// freedom per observation, is DF / (K - r), at least 1, which without missing values is N - A0 - c.
// v1 is min(K, 100, v2), plus sqrt(K - v2) when v2 < K, minus r, at least 1: where there are more
// variables than observations they cannot be independent. An observation that the model was fitted
// to has v1 / r, r the correction for its membership.
class DistanceTest {
 public:
  // `df` is that of the model's residuals.
  DistanceTest(const BlockSize& size, double df);

  // The largest ratio of variances at this level of significance, -1 where there is none.
  double GetLimit(bool is_member, float level) const;
  // The probability of a ratio as large as this or larger, for an observation of the model.
  float GetProbability(bool is_member, double ratio) const;

 private:
  float Numerator(bool is_member) const;

  double v1_;
  double v2_;
  double r_;
};

// The largest T2 over `component_count` scores, for the upper-tail probability `p`: a (N - 1) / (N
// - a) F with F of a and N - a degrees of freedom (J. E. Jackson, A User's Guide to Principal
// Components, 1991, section 1.7). Missing where N <= a, and where F has no critical value.
double T2Limit(int observation_count, int component_count, float p);

}  // namespace zemva

#endif  // ZEMVA_MODEL_EXECUTION_DISTANCES_H
