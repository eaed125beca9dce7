// What the execution of a model gives.
#ifndef ZEMVA_MODEL_EXECUTION_PREDICTIONS_H
#define ZEMVA_MODEL_EXECUTION_PREDICTIONS_H

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "zemva/data/obs_info.h"
#include "zemva/model/execution/distance_results.h"
#include "zemva/numeric/whole_vector.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva {

// The errors of the predicted responses, observed less predicted: of the observations that the
// model was fitted to, and of others. A vector has an element for each response.
struct PredictionErrors {
  // All missing. Throws std::bad_alloc.
  explicit PredictionErrors(int response_count);

  // Sums up a response: the error of each observation, and whether the model was fitted to it. An
  // error that is missing does not count. `lost` degrees of freedom went to the average and the
  // components.
  void Set(int response, std::span<const float> of_rows, std::span<const char> is_member, int lost);

  WholeVector rss;        // "RSS", the sum of squares of members
  WholeVector press;      // "PRESS", of others
  WholeVector sd_adj_ls;  // "SDadjLS", sqrt(RSS / (n - lost)); missing where n <= lost
  WholeVector sd_ts;      // "SDTS", sqrt(PRESS / n)
  WholeVector np_ws;      // "NPWS", how many members
  WholeVector np_ts;      // "NPTS", how many others
};

// What is executed. The results of a work set are "LSResiduals", with "DModX"; those of a
// prediction set are "PSResiduals", with "DModXPS".
enum class EExecuted : char { kWorkset, kPredset };

// What an execution gives of each observation. AddLSResults and AddPSResults of a model make those
// of its kind, and DeleteLSResults and DeletePSResults drop them. Once made they stay as they are,
// and copies of a model share them.
struct Results {
  Results(const Results&) = delete;
  Results& operator=(const Results&) = delete;

  const char* name;
  DistanceResults x;
  // With responses: the distances of those that are present, centred and scaled, and the errors.
  std::optional<DistanceResults> y;
  std::optional<PredictionErrors> errors;

 protected:
  Results(EExecuted executed, int component_count, int row_count);
};

// As they begin for the two kinds of model: all missing. Throw std::bad_alloc.
struct PCResults : Results {
  PCResults(EExecuted executed, int component_count, int row_count);
};
struct PLSResults : Results {
  PLSResults(EExecuted executed, int component_count, int row_count, int response_count);
};

// Those of a model with so many responses.
std::shared_ptr<Results> MakeResults(EExecuted executed, int component_count, int row_count,
                                     int response_count);

// The responses of a prediction set, in their own units unless they stay transformed.
struct ResponsePredictions {
  ResponsePredictions(int row_count, int response_count);

  XFMatrix values;     // "Y", as executed, transformed
  XFMatrix observed;   // "YPS"
  XFMatrix predicted;  // "YPredPS"
  // The limits of an observed value.
  XFMatrix lower;  // "SerrLPS"
  XFMatrix upper;  // "SerrUPS"
};

// Of a prediction set, with a components. Copies of a model share it.
struct Predictions {
  // Without observations. Throws std::bad_alloc.
  Predictions(int component_count, int column_count, int response_count);
  // Makes room for these observations, everything missing. Throws std::bad_alloc.
  void SetRows(std::unique_ptr<ObsInfo> rows, std::vector<short> row_positions,
               std::vector<char> membership);

  std::unique_ptr<ObsInfo> observations;
  std::vector<short> positions;     // in the data that were executed
  std::vector<char> is_member;      // whether the model was fitted to the observation
  std::vector<WholeVector> scores;  // "tPS[c]" for components 1..a
  XFMatrix values;                  // "X", as executed, transformed
  XFMatrix residuals;               // "PSResiduals", of X centred and scaled
  std::shared_ptr<Results> results;
  std::optional<ResponsePredictions> y;  // none without responses
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_EXECUTION_PREDICTIONS_H
