// How the parts of a work set are changed.
#ifndef ZEMVA_MODEL_WORKSET_WORKSET_EDIT_H
#define ZEMVA_MODEL_WORKSET_WORKSET_EDIT_H

#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/workset/workset.h"

namespace zemva {

template <typename Change>
int Workset::Edit(Change change) {
  return status_ = is_frozen_ ? status::mva::kDeleteModelsFirst : MemoryGuarded(change);
}

}  // namespace zemva

#endif  // ZEMVA_MODEL_WORKSET_WORKSET_EDIT_H
