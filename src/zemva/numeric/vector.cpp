#include "zemva/numeric/vector.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

#include "zemva/errors/listing.h"
#include "zemva/numeric/vector_listing.h"

namespace zemva {
namespace {

// Sorts by exchanges.
template <typename T>
void ExchangeSort(std::span<T> values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    for (std::size_t k = i + 1; k < values.size(); ++k) {
      if (values[k] < values[i]) std::swap(values[i], values[k]);
    }
  }
}

}  // namespace

I1Vector::~I1Vector() = default;

void I1Vector::Show(StreamWindow& window) const {
  Listing(window).Text("I1Vector has ").Number(NVal()).Text(" int8 values:").EndLine();
  ListValues(window, Values());
}

void I1Vector::SortAsc() {
  ExchangeSort(Values());
}

int I1Vector::GetNEqual(char value) const {
  return static_cast<int>(std::ranges::count(Values(), value));
}

int I1Vector::GetNNotEqual(char value) const {
  return NVal() - GetNEqual(value);
}

I2Vector::~I2Vector() = default;

void I2Vector::Show(StreamWindow& window) const {
  Listing(window).Text("I2Vector has ").Number(NVal()).Text(" int16 values:").EndLine();
  ListValues(window, Values());
}

void I2Vector::SortAsc() {
  ExchangeSort(Values());
}

FVector::FVector(int length, float fill, bool is_filled) : VectorStorage(length) {
  if (is_filled) std::ranges::fill(Values(), fill);
}

FVector::~FVector() = default;

void FVector::Show(StreamWindow& window) const {
  Listing(window).Text("FVector has ").Number(NVal()).Text(" float values: ").EndLine();
  ListValues(window, Values());
}

DVector::~DVector() = default;

void DVector::Show(StreamWindow& window) const {
  Listing(window).Text("DVector has ").Number(NVal()).Text(" double values: ").EndLine();
  ListValues(window, Values());
}

}  // namespace zemva
