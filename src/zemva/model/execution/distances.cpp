#include "zemva/model/execution/distances.h"

#include <algorithm>
#include <cmath>

#include "zemva/base/lane_sums.h"
#include "zemva/numeric/distributions.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

constexpr double kLeastWeight = 0.01;
constexpr double kNoWeight = 1e-30;
constexpr double kMostIndependent = 100.0;

}  // namespace

double BlockSize::FreeObservations() const {
  return std::max(static_cast<double>(observation_count - a0 - of_column), 1.0);
}

double BlockSize::MembershipCorrection() const {
  return observation_count / FreeObservations();
}

double T2Limit(int observation_count, int component_count, float p) {
  const double a = component_count;
  const double n = observation_count;
  if (n <= a) return kMissing;
  const double f = static_cast<double>(FFTest(static_cast<float>(a), static_cast<float>(n - a), p));
  // a (N - 1) / (N - a) F
  return f < 0.0 ? static_cast<double>(kMissing) : a * (n - 1.0) / (n - a) * f;
}

double ObservationVariance(double squares, int present_count, int of_row) {
  const int df = present_count - of_row;
  return df < 1 ? static_cast<double>(kMissing) : squares / df;
}

ResidualWeights::ResidualWeights(const XFVector& modelling_power) {
  // w = max(MPow^2, 0.01)
  for (const float power : modelling_power.Values()) {
    const double square = static_cast<double>(power) * static_cast<double>(power);
    weights_.push_back(std::max(square, kLeastWeight));
  }
  total_ = SumInLanes(weights_.size(), [&](std::size_t k) { return weights_[k]; });
}

WeightedSums ResidualWeights::Sum(std::span<const float> residuals, std::span<const float> values,
                                  int present_count) const {
  const double squares = SumInLanes(residuals.size(), [&](std::size_t k) {
    const double residual = static_cast<double>(residuals[k]);
    return weights_[k] * residual * residual;
  });
  const auto weight_if_present = [&](std::size_t k) {
    const double weight = weights_[k];  // read in any case, so that there is no branch
    return IsMissing(values[k]) ? 0.0 : weight;
  };
  const bool is_complete = present_count == static_cast<int>(values.size());
  const double weights = is_complete ? total_ : SumInLanes(values.size(), weight_if_present);
  return {present_count, weights, squares};
}

double WeightedVariance(const WeightedSums& sums, int of_row) {
  if (!(sums.weights > kNoWeight)) return 0.0;
  const int df = sums.present_count - of_row;
  // s^2 = (sum w e^2 / sum w) m / (m - r)
  const double variance = sums.squares / sums.weights;
  return df > 1 ? variance * sums.present_count / df : variance;
}

double WeightedObservationVariance(const WeightedSums& sums, int of_row) {
  return sums.present_count <= of_row ? static_cast<double>(kMissing)
                                      : WeightedVariance(sums, of_row);
}

DistanceTest::DistanceTest(const BlockSize& size, double df) : r_(size.MembershipCorrection()) {
  const double k = size.variable_count;
  const double r = size.of_row;
  // v2 = max(DF / (K - r), 1), v1 = max(min(K, 100, v2) + sqrt(max(K - v2, 0)) - r, 1)
  v2_ = std::max(df / std::max(k - r, 1.0), 1.0);
  const double dependent = v2_ < k ? std::sqrt(k - v2_) : 0.0;
  v1_ = std::max(std::min({k, kMostIndependent, v2_}) + dependent - r, 1.0);
}

float DistanceTest::Numerator(bool is_member) const {
  return static_cast<float>(is_member ? v1_ / r_ : v1_);
}

double DistanceTest::GetLimit(bool is_member, float level) const {
  return static_cast<double>(FFTest(Numerator(is_member), static_cast<float>(v2_), level));
}

float DistanceTest::GetProbability(bool is_member, double ratio) const {
  return PFTest(static_cast<float>(ratio), Numerator(is_member), 1.0f, static_cast<float>(v2_));
}

}  // namespace zemva
