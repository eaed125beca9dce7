// Values in listings.
#ifndef ZEMVA_MODEL_DRIVER_VALUE_LISTING_H
#define ZEMVA_MODEL_DRIVER_VALUE_LISTING_H

#include "zemva/errors/listing.h"
#include "zemva/numeric/missing.h"

namespace zemva {

// A value with its decimals, or with six digits that count, and "-" where it is missing.
inline Listing& AddValue(Listing& list, int width, int decimals, float value) {
  if (IsMissing(value)) return list.Right(width, "-");
  return list.Fixed(width, decimals, static_cast<double>(value));
}
inline Listing& AddValue(Listing& list, int width, float value) {
  if (IsMissing(value)) return list.Right(width, "-");
  return list.General(width, static_cast<double>(value));
}

}  // namespace zemva

#endif  // ZEMVA_MODEL_DRIVER_VALUE_LISTING_H
