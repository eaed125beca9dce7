#include "zemva/numeric/sample.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "zemva/numeric/missing.h"

namespace zemva {

SampleMoments MomentsOf(std::span<const float> values) {
  if (values.empty()) return {kMissing, kMissing, kMissing, kMissing};
  if (values.size() == 1) return {values[0], kMissing, kMissing, kMissing};
  const double n = static_cast<double>(values.size());
  float sum = 0.0f;
  for (const float value : values) sum += value;
  const float mean = static_cast<float>(static_cast<double>(sum) / n);
  double squares = 0.0;
  double cubes = 0.0;
  double fourth_powers = 0.0;
  for (const float value : values) {
    const double deviation = static_cast<double>(value) - static_cast<double>(mean);
    const double square = deviation * deviation;
    squares += square;
    cubes += square * deviation;
    fourth_powers += square * square;
  }
  const double variance = squares / (n - 1.0);
  const double sd = std::sqrt(variance);
  if (variance == 0.0) return {mean, 0.0f, kMissing, kMissing};
  const double skewness = n / ((n - 1.0) * (n - 2.0)) * cubes / variance / sd;
  const double kurtosis =
      n * (n + 1.0) * fourth_powers / ((n - 1.0) * (n - 2.0) * (n - 3.0)) / (variance * variance) -
      3.0 * (n - 1.0) * (n - 1.0) / ((n - 2.0) * (n - 3.0));
  return {mean, static_cast<float>(sd), static_cast<float>(skewness), static_cast<float>(kurtosis)};
}

float SortForMedian(std::span<float> values) {
  std::ranges::make_heap(values);
  std::ranges::sort_heap(values);
  return MedianOfSorted(values);
}

float MedianOfSorted(std::span<const float> sorted) {
  if (sorted.empty()) return kMissing;
  const std::size_t middle = sorted.size() / 2;
  if (sorted.size() % 2 == 1) return sorted[middle];
  return (sorted[middle - 1] + sorted[middle]) * 0.5f;
}

Quartiles QuartilesOfSorted(std::span<const float> sorted, float median) {
  const auto first_equal = std::ranges::lower_bound(sorted, median);
  const auto first_above = std::ranges::upper_bound(sorted, median);
  const auto below_count = static_cast<std::size_t>(first_equal - sorted.begin());
  const auto equal_count = static_cast<std::size_t>(first_above - first_equal);
  const std::size_t lower_count = below_count + (equal_count + 1) / 2;
  return {MedianOfSorted(sorted.first(lower_count)), MedianOfSorted(sorted.subspan(lower_count))};
}

}  // namespace zemva
