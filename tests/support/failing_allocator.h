// Memory that runs out, in every program that links failing_allocator.cpp.
#ifndef ZEMVA_TESTS_SUPPORT_FAILING_ALLOCATOR_H
#define ZEMVA_TESTS_SUPPORT_FAILING_ALLOCATOR_H

namespace zemva::test {

// How many allocations succeed before they fail, or before just one does; negative: all succeed.
extern long allocations_left;
extern bool is_one_to_fail;
extern bool has_failed;  // whether one has, the last time

// What `operation` returns when only so many allocations succeed in it.
template <typename Operation>
auto WithAllocations(long count, Operation operation) {
  allocations_left = count;
  has_failed = false;
  const auto result = operation();
  allocations_left = -1;
  return result;
}

// The same when one allocation fails after so many, and those after it succeed: what goes on
// without what it asked for is found so.
template <typename Operation>
auto WithOneFailure(long count, Operation operation) {
  is_one_to_fail = true;
  const auto result = WithAllocations(count, operation);
  is_one_to_fail = false;
  return result;
}

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_SUPPORT_FAILING_ALLOCATOR_H
