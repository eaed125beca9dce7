#include <array>
#include <cstdio>

#include "plot/model_figures.h"
#include "text/code_page.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

std::string NameOr(const char* name, int number) {
  return name == nullptr || *name == '\0' ? std::to_string(number) : PrintableFromCodePage(name);
}

}  // namespace

std::string Rounded(float value, int digits) {
  if (IsMissing(value)) return "-";
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%.*g", digits, static_cast<double>(value));
  return text.data();
}

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

std::string ObservationName(const Model& model, short i) {
  ObsInfo* const info = model.GetObsInfo();
  return info == nullptr ? std::to_string(i) : NameOr(info->GetONam(i), info->GetONum(i));
}

std::string VariableName(const Model& model, short k) {
  VarInfo* const info = model.GetVarInfoX();
  return info == nullptr ? std::to_string(k) : NameOr(info->GetVNam(k), info->GetVNum(k));
}

std::string ResponseName(const Model& model, short m) {
  VarInfo* const info = model.GetVarInfoY();
  return info == nullptr ? std::to_string(m) : NameOr(info->GetVNam(m), info->GetVNum(m));
}

}  // namespace zemva::tools
