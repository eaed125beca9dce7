// What the handles of the C functions are.
#ifndef ZEMVA_PLUGIN_DATASET_HANDLE_H
#define ZEMVA_PLUGIN_DATASET_HANDLE_H

#include "zemva/data/dataset.h"

namespace zemva {

inline Dataset& DatasetOf(void* handle) {
  return *static_cast<Dataset*>(handle);
}

}  // namespace zemva

#endif  // ZEMVA_PLUGIN_DATASET_HANDLE_H
