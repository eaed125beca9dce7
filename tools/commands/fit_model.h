// What commands that fit a model do.
#ifndef ZEMVA_TOOLS_COMMANDS_FIT_MODEL_H
#define ZEMVA_TOOLS_COMMANDS_FIT_MODEL_H

#include "arguments/model_options.h"
#include "zemva/model/workset/model_type.h"

namespace zemva::tools {

// Fits a model of the type, lists it and writes its tables where the options name a folder. The
// selector is the class of a kPC1Cl model, else 0. Returns the exit status; raises Failure and
// UsageError.
int FitModel(const ModelOptions& options, EModType type, char selector);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_COMMANDS_FIT_MODEL_H
