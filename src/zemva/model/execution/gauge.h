// What the residuals of a block are measured by.
#ifndef ZEMVA_MODEL_EXECUTION_GAUGE_H
#define ZEMVA_MODEL_EXECUTION_GAUGE_H

#include "zemva/model/execution/distance_results.h"
#include "zemva/model/execution/distances.h"

namespace zemva {

struct Gauge {
  BlockSize size;
  // Of all residuals of the block: their degrees of freedom and their variance.
  double df;
  double pooled_variance;
  // Whether residuals are weighted by modelling power, and whether distances are divided by the
  // standard deviation of all residuals.
  bool is_weighted;
  bool is_normalised;

  // The distance of an observation with this residual variance, and the probability that it belongs
  // to the model; missing where the variance is, where there is nothing to divide it by, and where
  // a float does not hold the distance.
  float Distance(double variance) const;
  float Probability(double variance, bool is_member) const;
  // Sets the largest distances at a level of significance; false, and nothing set, where F has no
  // critical value.
  bool FindLimits(float level, DistanceLimits& limits) const;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_EXECUTION_GAUGE_H
