// What the execution of a principal component model gives.
#ifndef ZEMVA_MODEL_PC_PC_RESULTS_H
#define ZEMVA_MODEL_PC_PC_RESULTS_H

#include <memory>
#include <vector>

#include "zemva/data/obs_info.h"
#include "zemva/model/driver/distance_results.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

// Of a prediction set, with a components. Copies of a model share it.
struct PCPredictions {
  // Without observations. Throws std::bad_alloc.
  PCPredictions(int component_count, int column_count);
  // Makes room for these observations, everything missing. Throws std::bad_alloc.
  void SetRows(std::unique_ptr<ObsInfo> rows, std::vector<short> row_positions,
               std::vector<char> membership);

  std::unique_ptr<ObsInfo> observations;
  std::vector<short> positions;  // in the data that were executed
  std::vector<char> is_member;   // whether the model was fitted to the observation
  std::vector<XFVector> scores;  // "tPS[c]" for components 1..a
  XFMatrix residuals;            // "PSResiduals", of the data centred and scaled
  DistanceResults distance;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PC_PC_RESULTS_H
