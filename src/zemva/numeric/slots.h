// Memory for elements that are counted from 1.
#ifndef ZEMVA_NUMERIC_SLOTS_H
#define ZEMVA_NUMERIC_SLOTS_H

#include <cstddef>
#include <limits>
#include <memory>
#include <new>

#include "zemva/errors/status.h"

namespace zemva {

// `count` + 1 elements with the contents as allocated; null when `count` is negative or memory has
// run out. All storage of vectors and matrices is made here.
template <typename T>
std::unique_ptr<T[]> AllocateSlots(int count) {
  constexpr std::size_t kMost = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(T) - 1;
  if (count < 0 || static_cast<std::size_t>(count) > kMost) return nullptr;
  return std::unique_ptr<T[]>(new (std::nothrow) T[static_cast<std::size_t>(count) + 1]);
}

// The code of a construction that got no memory: a negative size is a dimension error.
constexpr int AllocationStatus(int smallest_size) {
  return smallest_size < 0 ? status::mat::kDimension : status::mat::kMemory;
}

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_SLOTS_H
