#include "support/failing_allocator.h"

#include <cstdlib>
#include <new>

long zemva::test::allocations_left = -1;
bool zemva::test::is_one_to_fail = false;
bool zemva::test::has_failed = false;

namespace {

using zemva::test::allocations_left;
using zemva::test::has_failed;
using zemva::test::is_one_to_fail;

void* Allocate(std::size_t size) {
  if (allocations_left == 0) {
    has_failed = true;
    if (is_one_to_fail) allocations_left = -1;
    return nullptr;
  }
  if (allocations_left > 0) --allocations_left;
  return std::malloc(size == 0 ? 1 : size);
}

void* AllocateOrThrow(std::size_t size) {
  void* const memory = Allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new[](std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}
