// Where a failed allocation becomes a status code.
#ifndef ZEMVA_ERRORS_MEMORY_GUARD_H
#define ZEMVA_ERRORS_MEMORY_GUARD_H

#include <new>

#include "zemva/errors/status.h"

namespace zemva {

// The status of the operation; 8002 when memory runs out in it.
template <typename Operation>
int MemoryGuarded(Operation operation) {
  try {
    return operation();
  } catch (const std::bad_alloc&) {
    return status::mva::kMemory;
  }
}

}  // namespace zemva

#endif  // ZEMVA_ERRORS_MEMORY_GUARD_H
