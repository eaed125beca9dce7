// A model on the terminal.
#ifndef ZEMVA_TOOLS_MODEL_MODEL_LISTING_H
#define ZEMVA_TOOLS_MODEL_MODEL_LISTING_H

#include "zemva/model/driver/model.h"

namespace zemva::tools {

// Lists the model on standard output, its components in a table; then the variables that are
// largest in it, and the observations beyond the limits.
void ListModel(Model& model);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_MODEL_LISTING_H
