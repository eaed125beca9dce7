#include "zemva/vectors/dat_type.h"

#include "zemva/vectors/name_list.h"

namespace zemva {
namespace {

constexpr const char* kNames[] = {"Dataset", "Model", "Predset", "Workset"};
constexpr const char* kShortNames[] = {"DS", "M", "PS", "WS"};

}  // namespace

const char* CEDatType::GetString(EDT type) {
  return NameOf(kNames, type);
}

const char* CEDatType::GetShortString(EDT type) {
  return NameOf(kShortNames, type);
}

CEDatType::EDT CEDatType::GetEDT(const char* name) {
  const int value = ValueOfName(kNames, name);
  return static_cast<EDT>(value != 0 ? value : ValueOfName(kShortNames, name));
}

}  // namespace zemva
