// From the double that a formula gives to the element of a matrix.
#ifndef ZEMVA_MODEL_PREPROCESS_ELEMENT_H
#define ZEMVA_MODEL_PREPROCESS_ELEMENT_H

#include <cmath>
#include <limits>

#include "zemva/numeric/missing.h"

namespace zemva {

// The missing value for what is not a number or beyond the range of an element, and for nothing
// else. What is too small for one becomes 0.
inline float ToElement(double value) {
  const bool is_in_range = std::abs(value) <= std::numeric_limits<float>::max();
  return is_in_range ? AsPresent(static_cast<float>(value)) : kMissing;
}

}  // namespace zemva

#endif  // ZEMVA_MODEL_PREPROCESS_ELEMENT_H
