#include "numeric/vector.h"

#include <algorithm>

#include "errors/listing.h"
#include "numeric/present.h"
#include "numeric/vector_listing.h"

namespace zemva {

I1Vector::~I1Vector() = default;

void I1Vector::Show(StreamWindow& window) const {
  Listing(window).Text("I1Vector has ").Number(NVal()).Text(" int8 values:").EndLine();
  ListValues(window, Values());
}

I2Vector::~I2Vector() = default;

void I2Vector::Show(StreamWindow& window) const {
  Listing(window).Text("I2Vector has ").Number(NVal()).Text(" int16 values:").EndLine();
  ListValues(window, Values());
}

FVector::FVector(int length, float fill, bool is_filled) : VectorStorage(length) {
  if (is_filled) std::ranges::fill(Values(), fill);
}

FVector::~FVector() = default;

void FVector::Show(StreamWindow& window) const {
  Listing(window).Text("FVector has ").Number(NVal()).Text(" float values: ").EndLine();
  ListValues(window, Values());
}

int FVector::NValA() const {
  return CountPresent(Values());
}

DVector::~DVector() = default;

void DVector::Show(StreamWindow& window) const {
  Listing(window).Text("DVector has ").Number(NVal()).Text(" double values: ").EndLine();
  ListValues(window, Values());
}

int DVector::NValA() const {
  return CountPresent(Values());
}

}  // namespace zemva
