// The limits that observations of a model are held against.
#ifndef ZEMVA_TOOLS_MODEL_MODEL_LIMITS_H
#define ZEMVA_TOOLS_MODEL_MODEL_LIMITS_H

#include <string>
#include <vector>

#include "zemva/model/driver/model.h"
#include "zemva/vectors/vec_type.h"

namespace zemva::tools {

// The share of observations like those of the model that lie beyond a limit of T2.
inline constexpr float kT2Tails[] = {0.05f, 0.01f};

// A limit of a vector: by name, with the share within it.
struct ModelLimit {
  const char* name;
  std::string of;  // "DModX"
  float level;
  float value;  // missing where there is none
};

// All limits of a model: the critical distances, those of T2 over all components, and the half-axes
// of the ellipse in a plot of two scores.
std::vector<ModelLimit> LimitsOf(const Model& model);

// A limit that says of an observation of the model whether it is unusual.
struct ObservationLimit {
  const char* question;  // "DModX>DCrit"
  CEVecType::EVT of;
  float level;
  float value;

  // What is held against it, missing where there is none.
  float ValueOf(const Model& model, short i) const;
  // 1 or 0; missing where one of them is.
  float IsBeyond(const Model& model, short i) const;
};
std::vector<ObservationLimit> ObservationLimitsOf(const Model& model);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_MODEL_LIMITS_H
