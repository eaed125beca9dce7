// The results of a model as files of comma-separated values.
#ifndef ZEMVA_TOOLS_MODEL_MODEL_CSV_H
#define ZEMVA_TOOLS_MODEL_MODEL_CSV_H

#include "model/result_folder.h"
#include "zemva/data/dataset.h"
#include "zemva/model/driver/model.h"

namespace zemva::tools {

// The model outlives the tables.
ResultTable TabulateComponents(const Model& model);
ResultTable TabulateObservations(const Model& model);
ResultTable TabulateVariables(const Model& model);
// Of a model that has responses.
ResultTable TabulateResponses(const Model& model);
ResultTable TabulateLimits(const Model& model);
// A row for each observation of the data set that the model was executed on, those that were left
// out included. It outlives the table too.
ResultTable TabulatePredictions(const Model& model, Dataset& test);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_MODEL_CSV_H
