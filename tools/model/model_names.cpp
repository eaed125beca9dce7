#include "model/model_names.h"

#include <array>
#include <cstdio>

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

std::string Rounded(float value, int digits) {
  if (IsMissing(value)) return "-";
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%.*g", digits, static_cast<double>(value));
  return text.data();
}

}  // namespace zemva::tools
