#include "zemva/model/execution/gauge.h"

#include <cmath>

#include "zemva/numeric/missing.h"

namespace zemva {

// s, or s / s of all residuals
float Gauge::Distance(double variance) const {
  if (IsMissing(variance)) return kMissing;
  if (is_normalised && !(pooled_variance > 0.0)) return kMissing;
  // An observation can be so far off that a float does not hold it.
  const auto distance =
      static_cast<float>(std::sqrt(is_normalised ? variance / pooled_variance : variance));
  return std::isfinite(distance) ? distance : kMissing;
}

float Gauge::Probability(double variance, bool is_member) const {
  if (IsMissing(variance) || !(pooled_variance > 0.0)) return kMissing;
  return DistanceTest(size, df).GetProbability(is_member, variance / pooled_variance);
}

bool Gauge::FindLimits(float level, DistanceLimits& limits) const {
  const DistanceTest test(size, df);
  const double others = test.GetLimit(false, level);
  const double members = test.GetLimit(true, level);
  if (others < 0.0 || members < 0.0) return false;
  const double scale = is_normalised ? 1.0 : pooled_variance;
  // DCrit = sqrt(s^2 F), which the probability of s^2 / s^2 of all residuals inverts
  limits.of_others = static_cast<float>(std::sqrt(scale * others));
  limits.of_members = static_cast<float>(std::sqrt(scale * members));
  return true;
}

}  // namespace zemva
