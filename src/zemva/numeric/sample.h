// Statistics of a sample that knows no missing value.
#ifndef ZEMVA_NUMERIC_SAMPLE_H
#define ZEMVA_NUMERIC_SAMPLE_H

#include <span>

namespace zemva {

// What Moment gives, for a sample of any size.
struct SampleMoments {
  float mean;
  float standard_deviation;
  float skewness;
  float kurtosis;
};

SampleMoments MomentsOf(std::span<const float> values);

// Sorts the values, ascending, and gives the median; kMissing when there is none.
float SortForMedian(std::span<float> values);

// The median of values in ascending order; kMissing when there is none.
float MedianOfSorted(std::span<const float> sorted);

struct Quartiles {
  float lower;
  float upper;
};

// The medians of the lower and the upper part of values in ascending order with that median; a
// quartile whose part is empty is kMissing. The values that equal the median go to the lower part
// and the upper one by turns, the first of them to the lower.
Quartiles QuartilesOfSorted(std::span<const float> sorted, float median);

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_SAMPLE_H
