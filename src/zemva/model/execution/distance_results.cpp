#include "zemva/model/execution/distance_results.h"

#include "zemva/model/block/stage.h"

namespace zemva {

DistanceResults::DistanceResults(const char* distance_name, const char* probability_name,
                                 int components, int row_count)
    : component_count(components),
      distances(MakeVector(distance_name, components, row_count)),
      probabilities(MakeVector(probability_name, components, row_count)) {}

}  // namespace zemva
