// Counting present values.
#ifndef ZEMVA_NUMERIC_PRESENT_H
#define ZEMVA_NUMERIC_PRESENT_H

#include <concepts>
#include <span>

#include "zemva/numeric/missing.h"

namespace zemva {

// A sum over present values and how many they are.
struct PresentSum {
  double sum;
  int count;
};

// The number of values that are not missing; all of them where the type knows no missing value.
template <typename T>
int CountPresent(std::span<const T> values) {
  int missing_count = 0;
  if constexpr (std::floating_point<T>) {
    for (const T value : values) missing_count += IsMissing(value) ? 1 : 0;
  }
  return static_cast<int>(values.size()) - missing_count;
}

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_PRESENT_H
