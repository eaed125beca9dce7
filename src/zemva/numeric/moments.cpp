#include "zemva/numeric/moments.h"

#include <cstddef>
#include <span>

#include "zemva/numeric/sample.h"

namespace zemva {
namespace {

// The elements data[1..n].
std::span<float> CountedFromOne(float* data, int n) {
  return n > 0 ? std::span<float>(data + 1, static_cast<std::size_t>(n)) : std::span<float>();
}

}  // namespace

void Moment(float* data, short n, float& ave, float& sdev, float& skew, float& kurt) {
  const SampleMoments moments = MomentsOf(CountedFromOne(data, n));
  ave = moments.mean;
  sdev = moments.standard_deviation;
  skew = moments.skewness;
  kurt = moments.kurtosis;
}

void Median(float* data, short n, float& med, bool) {
  med = SortForMedian(CountedFromOne(data, n));
}

}  // namespace zemva
