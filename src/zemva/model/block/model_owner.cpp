#include "zemva/model/block/model_owner.h"

namespace zemva {

ModelOwner::~ModelOwner() = default;

char ModelOwner::Ask(const char* /*question*/) {
  return 'y';
}

bool ModelOwner::GoesOn(const FitProgress& /*progress*/) {
  return true;
}

}  // namespace zemva
