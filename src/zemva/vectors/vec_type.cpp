#include "zemva/vectors/vec_type.h"

#include <algorithm>
#include <string_view>

#include "zemva/vectors/name_list.h"
#include "zemva/vectors/vec_catalogue.h"

namespace zemva {

const char* CEVecType::GetString(EVT type) {
  const VecRow* const row = FindVecRow(type);
  return row == nullptr ? kUndefinedName : row->name;
}

CEVecType::EVT CEVecType::GetEVT(const char* name) {
  if (name == nullptr) return Undefined;
  const auto has_name = [&](const VecRow& row) { return std::string_view(row.name) == name; };
  const auto found = std::ranges::find_if(VecCatalogue(), has_name);
  return found == VecCatalogue().end() ? Undefined : found->type;
}

CEDatType::EDT CEVecType::GetEDT(EVT type) {
  const VecRow* const row = FindVecRow(type);
  if (row == nullptr) return CEDatType::Undefined;
  for (const auto object :
       {CEDatType::Dataset, CEDatType::Model, CEDatType::Predset, CEDatType::Workset}) {
    if (row->objects.Has(object)) return object;
  }
  return CEDatType::Undefined;
}

}  // namespace zemva
