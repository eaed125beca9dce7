// The statistics of vectors.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>

#include "zemva/numeric/row_kernels.h"
#include "zemva/numeric/variance.h"
#include "zemva/numeric/vector.h"

namespace zemva {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

float AsIs(float value) {
  return value;
}

float Magnitude(float value) {
  return std::fabs(value);
}

bool IsSmaller(double a, double b) {
  return a < b;
}

bool IsLarger(double a, double b) {
  return a > b;
}

// The position, from 1, of the first present value whose `map` is the extremum that `find` gives;
// `find` begins at `none`. One block after the other is searched for its extremum, and only the
// block that has it for the position, so that the values are read once.
int FirstPosition(std::span<const float> values, float (*find)(const float*, int),
                  bool (*precedes)(double, double), float none, float (*map)(float)) {
  constexpr std::size_t kBlock = 2048;
  float best = none;
  std::size_t start = 0;
  for (std::size_t i = 0; i < values.size(); i += kBlock) {
    const std::size_t count = std::min(kBlock, values.size() - i);
    const float found = find(&values[i], static_cast<int>(count));
    if (precedes(found, best)) {
      best = found;
      start = i;
    }
  }
  for (std::size_t i = start; i < values.size(); ++i) {
    if (!IsMissing(values[i]) && map(values[i]) == best) return static_cast<int>(i) + 1;
  }
  return 0;
}

// The position, from 1, of the first present value that precedes all others.
int FirstPosition(std::span<const double> values, bool (*precedes)(double, double),
                  double (*map)(double)) {
  std::size_t best = values.size();
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (IsMissing(values[i]) || std::isnan(values[i])) continue;
    if (best == values.size() || precedes(map(values[i]), map(values[best]))) best = i;
  }
  return best == values.size() ? 0 : static_cast<int>(best) + 1;
}

const double& ElementOrMissing(const DVector& vector, int i) {
  static constexpr double kNone = kUnusedSlot<double>;
  return i == 0 ? kNone : vector[i];
}

}  // namespace

int FVector::NValA() const {
  return NVal() - GetRowKernels().count_missing(Values().data(), NVal());
}

double FVector::Sum() const {
  const PresentSum present = GetRowKernels().sum_in_float(Values().data(), NVal());
  return present.count > 0 ? present.sum : static_cast<double>(kMissing);
}

double FVector::SS() const {
  return GetRowKernels().sum_of_squares(Values().data(), NVal()).sum;
}

float FVector::Avg() const {
  const PresentSum present = GetRowKernels().sum(Values().data(), NVal());
  return present.count > 0 ? static_cast<float>(present.sum / present.count) : kMissing;
}

float FVector::Min() const {
  return GetElement(IxMin());
}

float FVector::Max() const {
  return GetElement(IxMax());
}

double FVector::S2(float centre, int df_loss, float df_factor) const {
  const PresentSum present = GetRowKernels().sum_in_float(Values().data(), NVal());
  if (present.count == 0) return static_cast<double>(kMissing);
  return VarianceRule{centre, df_loss, df_factor}.Apply(present.count, present.sum, SS());
}

double FVector::SD(float centre, int df_loss, float df_factor) const {
  const double variance = S2(centre, df_loss, df_factor);
  return IsMissing(variance) ? variance : std::sqrt(std::max(variance, 0.0));
}

int FVector::IxMin() const {
  return FirstPosition(Values(), GetRowKernels().least, IsSmaller, kInfinity, AsIs);
}

int FVector::IxMax() const {
  return FirstPosition(Values(), GetRowKernels().greatest, IsLarger, -kInfinity, AsIs);
}

int FVector::IxAbsMax() const {
  return FirstPosition(Values(), GetRowKernels().greatest_magnitude, IsLarger, -kInfinity,
                       Magnitude);
}

int DVector::NValA() const {
  return CountPresent(Values());
}

double DVector::Avg() const {
  double sum = 0.0;
  for (const double value : Values()) sum += IsMissing(value) ? 0.0 : value;
  const int count = NValA();
  return count > 0 ? sum / count : static_cast<double>(kMissing);
}

const double& DVector::Min() const {
  return ElementOrMissing(*this, IxMin());
}

const double& DVector::Max() const {
  return ElementOrMissing(*this, IxMax());
}

int DVector::IxMin() const {
  return FirstPosition(Values(), IsSmaller, [](double value) { return value; });
}

int DVector::IxMax() const {
  return FirstPosition(Values(), IsLarger, [](double value) { return value; });
}

int DVector::IxAbsMax() const {
  return FirstPosition(Values(), IsLarger, [](double value) { return std::fabs(value); });
}

}  // namespace zemva
