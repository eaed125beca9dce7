#include "zemva/vectors/info_type.h"

#include "zemva/vectors/name_list.h"

namespace zemva {
namespace {

constexpr const char* kNames[] = {"BlockInfo", "ExpInfo", "LagInfo", "ObsInfo", "OStat",
                                  "ClaInfo",   "ScaInfo", "TraInfo", "VarInfo", "VStat"};

}  // namespace

const char* CEInfoType::GetString(EIT type) {
  return NameOf(kNames, type);
}

CEInfoType::EIT CEInfoType::GetEIT(const char* name) {
  return static_cast<EIT>(ValueOfName(kNames, name));
}

}  // namespace zemva
