// What a model is called by, for a reader.
#ifndef ZEMVA_TOOLS_MODEL_MODEL_NAMES_H
#define ZEMVA_TOOLS_MODEL_MODEL_NAMES_H

#include <string>

#include "zemva/model/driver/model.h"

namespace zemva::tools {

// Of the observation, variable and response at a position, in UTF-8 and without what could steer a
// screen; its number where it has no name.
std::string ObservationName(const Model& model, short i);
std::string VariableName(const Model& model, short k);
std::string ResponseName(const Model& model, short m);

// A number with so many digits that count; "-" for a missing one.
std::string Rounded(float value, int digits);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_MODEL_NAMES_H
