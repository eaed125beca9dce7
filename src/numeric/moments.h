// Moments and order statistics of samples.
#ifndef ZEMVA_NUMERIC_MOMENTS_H
#define ZEMVA_NUMERIC_MOMENTS_H

#include <span>

#include "base/export.h"

namespace zemva {

// The mean, standard deviation, skewness and excess kurtosis of the n values data[1..n], the last
// three with the corrections for small samples. All four are kMissing when n is 0; with one value
// the last three are, and with equal values the last two. Skewness is not finite for n = 2, nor
// kurtosis for n = 2 and 3.
ZEMVA_API void Moment(float* data, short n, float& ave, float& sdev, float& skew, float& kurt);

// Sorts data[1..n] in place by heap sort, ascending, and sets `med` to the median, for n >= 1. The
// last argument has no effect.
ZEMVA_API void Median(float* data, short n, float& med, bool is_unused);

struct SampleMoments {
  float mean;
  float standard_deviation;
  float skewness;
  float kurtosis;
};

// What Moment computes.
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

#endif  // ZEMVA_NUMERIC_MOMENTS_H
