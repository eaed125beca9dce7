// The distances of observations to a model.
#ifndef ZEMVA_MODEL_EXECUTION_DISTANCE_RESULTS_H
#define ZEMVA_MODEL_EXECUTION_DISTANCE_RESULTS_H

#include "zemva/numeric/missing.h"
#include "zemva/numeric/whole_vector.h"

namespace zemva {

// The largest distances to the model: of other observations, and of those that it was fitted to.
struct DistanceLimits {
  float of_others = kMissing;
  float of_members = kMissing;
};

// The distance of each observation to the model, and the probability that it belongs to it.
struct DistanceResults {
  // All missing. Throws std::bad_alloc.
  DistanceResults(const char* distance_name, const char* probability_name, int component_count,
                  int row_count);

  int component_count;
  WholeVector distances;
  WholeVector probabilities;
  DistanceLimits limits;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_EXECUTION_DISTANCE_RESULTS_H
