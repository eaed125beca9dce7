#include "zemva/vectors/elm_type.h"

#include "zemva/vectors/name_list.h"

namespace zemva {
namespace {

constexpr const char* kNames[] = {"", "Tr", "St", "Sc"};

}  // namespace

const char* CEElmType::GetString(EET type) {
  return NameOf(kNames, type);
}

CEElmType::EET CEElmType::GetEET(const char* name) {
  return static_cast<EET>(ValueOfName(kNames, name));
}

}  // namespace zemva
