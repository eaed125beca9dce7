// From the options of a command to a work set and the options of its model.
#ifndef ZEMVA_TOOLS_MODEL_MODEL_SETUP_H
#define ZEMVA_TOOLS_MODEL_MODEL_SETUP_H

#include "arguments/model_options.h"
#include "zemva/model/workset/workset.h"
#include "zemva/settings/options/mod_opt.h"

namespace zemva::tools {

// What the options say of variables and observations. Returns the status of the work set; raises
// UsageError for names and numbers that it has not.
int SetUpWorkset(const ModelOptions& options, Workset& workset);

// What they say of a model; what they do not mention stays as it is.
void SetUpModel(const ModelOptions& options, ModOpt& model_options);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_MODEL_SETUP_H
