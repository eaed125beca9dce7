// The arithmetic of vectors.
#include <algorithm>
#include <cmath>
#include <span>

#include "zemva/numeric/row_kernels.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {
namespace {

// Replaces every present value by operation(value).
template <typename Operation>
void ForPresent(std::span<float> values, Operation operation) {
  for (float& value : values) value = IsMissing(value) ? kMissing : operation(value);
}

}  // namespace

int FVector::Abs() {
  ForPresent(Values(), [](float value) { return std::fabs(value); });
  return status::kOk;
}

int FVector::Sqrt() {
  const auto is_negative = [](float value) { return value < 0.0f && !IsMissing(value); };
  if (std::ranges::any_of(Values(), is_negative)) return Report(status::mat::kNegativeSqrt);
  ForPresent(Values(), [](float value) { return std::sqrt(value); });
  return status::kOk;
}

int FVector::VAddS(float scalar) {
  const bool is_missing = IsMissing(scalar);
  ForPresent(Values(), [=](float value) { return is_missing ? kMissing : value + scalar; });
  return status::kOk;
}

int FVector::VMulS(float scalar) {
  const bool is_missing = IsMissing(scalar);
  ForPresent(Values(), [=](float value) { return is_missing ? kMissing : value * scalar; });
  return status::kOk;
}

int FVector::VDivS(float scalar) {
  if (scalar == 0.0f) return Report(status::mat::kDivideByZero);
  const bool is_missing = IsMissing(scalar);
  ForPresent(Values(), [=](float value) { return is_missing ? kMissing : value / scalar; });
  return status::kOk;
}

float FVector::VpMulV(const FVector* other) {
  return static_cast<float>(MultiplyAndMark(other).sum);
}

PresentSum FVector::MultiplyAndMark(const FVector* other) {
  const int check = CheckOperand(other);
  if (check != status::kOk) {
    Report(check);
    return {static_cast<double>(kMissing), 0};
  }
  const float* const others = other->Values().data();
  const PresentSum product = GetRowKernels().inner_product(Values().data(), others, NVal());
  if (product.count < NVal()) {
    for (int i = 1; i <= NVal(); ++i) {
      if (IsMissing((*other)[i])) (*this)[i] = kMissing;
    }
  }
  return product;
}

float XFVector::VpMulV(const FVector* other) {
  if (CheckOperand(other) != status::kOk) return FVector::VpMulV(other);
  const PresentSum product = MultiplyAndMark(other);
  SetNValA(product.count);
  return static_cast<float>(product.sum);
}

int XFVector::VDotAddV(const FVector* other) {
  return Combine(other, GetRowKernels().add);
}

int XFVector::VDotSubV(const FVector* other) {
  return Combine(other, GetRowKernels().subtract);
}

int XFVector::VDotMulV(const FVector* other) {
  return Combine(other, GetRowKernels().multiply);
}

int XFVector::Combine(const FVector* other, void (*operation)(float*, const float*, int)) {
  const int check = CheckOperand(other);
  if (check != status::kOk) return Report(check);
  operation(Values().data(), other->Values().data(), NVal());
  SetActValInfo();
  return status::kOk;
}

}  // namespace zemva
