#include <array>
#include <cstdio>

#include "plot/model_figures.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {

std::string AxisOf(const Model& model, const char* vector, short component) {
  std::string axis = vector;
  axis += "[" + std::to_string(component) + "]";
  const float share = model.GetR2AX(static_cast<char>(component));
  if (IsMissing(share)) return axis;
  std::array<char, 16> percent;
  const bool is_small = share < 0.0995f;
  std::snprintf(percent.data(), percent.size(), is_small ? "%.1f" : "%.0f",
                100.0 * static_cast<double>(share));
  return axis + ", " + percent.data() + " %";
}

}  // namespace zemva::tools
