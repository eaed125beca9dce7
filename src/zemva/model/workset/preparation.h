// What a model keeps of its work set, to take other observations in the same way.
#ifndef ZEMVA_MODEL_WORKSET_PREPARATION_H
#define ZEMVA_MODEL_WORKSET_PREPARATION_H

#include <memory>

#include "zemva/data/var_info.h"
#include "zemva/model/workset/column_plan.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

class Workset;

// How a block was made of a data set when it was taken out of the work set: what is set there later
// changes nothing here.
struct Preparation {
  // Whose it is, to be compared alone; null where the model was read from a file.
  const Workset* workset;
  EBlock block;
  // A byte for each observation of the work set's data set, 1 for those that were taken.
  XI1Vector members;
  // All variables of that data set, and a row for each column.
  std::shared_ptr<VarInfo> dataset_variables;
  std::shared_ptr<VarInfo> variables;
  // How the columns are made; null where they stand for classes.
  std::unique_ptr<const ColumnPlan> plan;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_WORKSET_PREPARATION_H
