// The results of a model as files of comma-separated values.
#ifndef ZEMVA_TOOLS_MODEL_MODEL_CSV_H
#define ZEMVA_TOOLS_MODEL_MODEL_CSV_H

#include "model/result_folder.h"
#include "zemva/data/dataset.h"
#include "zemva/model/pc/pc_model.h"

namespace zemva::tools {

// The model outlives the tables.
ResultTable TabulateComponents(const PCModel& model);
ResultTable TabulateObservations(const PCModel& model);
ResultTable TabulateVariables(const PCModel& model);
// A row for each observation of the data set that the model was executed on, those that were left
// out included. It outlives the table too.
ResultTable TabulatePredictions(const PCModel& model, Dataset& test);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_MODEL_CSV_H
