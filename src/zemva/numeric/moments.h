// Moments and order statistics of samples.
#ifndef ZEMVA_NUMERIC_MOMENTS_H
#define ZEMVA_NUMERIC_MOMENTS_H

#include "zemva/base/export.h"

namespace zemva {

// The mean, standard deviation, skewness and excess kurtosis of the n values data[1..n], the last
// three with the corrections for small samples. All four are kMissing when n is 0; with one value
// the last three are, and with equal values the last two. Skewness is not finite for n = 2, nor
// kurtosis for n = 2 and 3.
ZEMVA_API void Moment(float* data, short n, float& ave, float& sdev, float& skew, float& kurt);

// Sorts data[1..n] in place by heap sort, ascending, and sets `med` to the median, for n >= 1. The
// last argument has no effect.
ZEMVA_API void Median(float* data, short n, float& med, bool is_unused);

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_MOMENTS_H
