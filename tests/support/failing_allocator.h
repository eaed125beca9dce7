// Memory that runs out, in every program that links failing_allocator.cpp.
#ifndef ZEMVA_TESTS_SUPPORT_FAILING_ALLOCATOR_H
#define ZEMVA_TESTS_SUPPORT_FAILING_ALLOCATOR_H

namespace zemva::test {

// How many allocations succeed before all fail; negative: all succeed.
extern long allocations_left;

// What `operation` returns when only so many allocations succeed in it.
template <typename Operation>
auto WithAllocations(long count, Operation operation) {
  allocations_left = count;
  const auto result = operation();
  allocations_left = -1;
  return result;
}

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_SUPPORT_FAILING_ALLOCATOR_H
