// Where a failed allocation becomes a status code, or whatever an operation returns when it fails.
#ifndef ZEMVA_ERRORS_MEMORY_GUARD_H
#define ZEMVA_ERRORS_MEMORY_GUARD_H

#include <new>

#include "zemva/errors/status.h"

namespace zemva {

// What the operation returns; `out_of_memory`, by default 8002, when memory runs out in it.
template <typename Operation, typename Result = int>
Result MemoryGuarded(Operation operation, Result out_of_memory = status::mva::kMemory) {
  try {
    return operation();
  } catch (const std::bad_alloc&) {
    return out_of_memory;
  }
}

// The object, where there was memory for all of it. Classes that keep a status are made and copied
// without throwing, and fall short then.
template <typename Object>
Object& Whole(Object& object) {
  if (object.GetStatus() != status::kOk) throw std::bad_alloc();
  return object;
}

}  // namespace zemva

#endif  // ZEMVA_ERRORS_MEMORY_GUARD_H
