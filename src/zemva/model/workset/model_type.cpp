#include "zemva/model/workset/model_type.h"

namespace zemva {

using enum EModType;

bool IsPCFamily(EModType type) {
  return type == kPC1 || type == kPC2 || type == kPCAll || type == kPC1Cl;
}

bool IsPLSFamily(EModType type) {
  return type == kPLS12 || type == kPLS21 || IsDiscriminant(type);
}

bool IsDiscriminant(EModType type) {
  return type == kPLS1DA || type == kPLS1DAOld;
}

bool IsClassBlock(EModType type, EBlock block) {
  return IsDiscriminant(type) && block == EBlock::kY;
}

const char* GetModTypeTag(EModType type) {
  switch (type) {
    case kPC1:
      return "PC-1  ";
    case kPC2:
      return "PC-2  ";
    case kPC1Cl:
      return "PC-1Cl";
    case kPLS12:
      return "PLS-12 ";
    case kPLS21:
      return "PLS-21 ";
    case kPLS1DA:
    case kPLS1DAOld:
      return "PLS-1DA ";
    default:
      return "PC-All";
  }
}

}  // namespace zemva
