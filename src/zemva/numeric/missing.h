// The missing value.
#ifndef ZEMVA_NUMERIC_MISSING_H
#define ZEMVA_NUMERIC_MISSING_H

#include <cmath>
#include <type_traits>

namespace zemva {

// Stands in a float or double wherever there is no value. What equals it exactly is missing, with
// no tolerance; a NaN is a value like any other. Integers and texts know no missing value.
inline constexpr float kMissing = -99.0f;

constexpr bool IsMissing(float value) {
  return value == kMissing;
}
constexpr bool IsMissing(double value) {
  return value == static_cast<double>(kMissing);
}

// A computed value as it is kept: one that comes out at the missing value itself moves to its
// neighbour, so that it does not get lost.
inline float AsPresent(float value) {
  return IsMissing(value) ? std::nextafter(value, 0.0f) : value;
}

// What element 0 of a vector and of a matrix row holds, which is never data.
template <typename T>
inline constexpr T kUnusedSlot = static_cast<T>(std::is_floating_point_v<T> ? kMissing : 0.0f);

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_MISSING_H
