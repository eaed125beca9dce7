#include "zemva/model/execution/leverage.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "zemva/base/lane_sums.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

constexpr double kDependent = 1e-10;

double Dot(const std::vector<double>& a, const std::vector<double>& b) {
  return SumInLanes(a.size(), [&](std::size_t i) { return a[i] * b[i]; });
}

}  // namespace

Leverage::Leverage(std::span<const std::span<const float>> scores, int a0)
    : is_present_(scores.empty() ? 0 : scores.front().size(), true) {
  least_ = a0 / static_cast<double>(is_present_.size());
  for (const std::span<const float> component : scores) {
    Direction direction{Column(component.size()), Column(directions_.size())};
    for (std::size_t i = 0; i < component.size(); ++i) {
      if (IsMissing(component[i])) {
        is_present_[i] = false;
      } else {
        direction.q[i] = static_cast<double>(component[i]);
      }
    }
    const double length_before = std::sqrt(Dot(direction.q, direction.q));
    Orthogonalise(direction);
    // q = (t - Q Q't) / |t - Q Q't|
    direction.length = std::sqrt(Dot(direction.q, direction.q));
    if (direction.length > length_before * kDependent) {
      for (double& element : direction.q) element /= direction.length;
    } else {
      direction = {};
    }
    directions_.push_back(std::move(direction));
  }
}

// Twice, since once leaves what rounding made of a column that nearly depends on the others.
void Leverage::Orthogonalise(Direction& direction) const {
  for (int pass = 0; pass < 2; ++pass) {
    for (std::size_t d = 0; d < directions_.size(); ++d) {
      const Column& q = directions_[d].q;
      if (q.empty()) continue;
      const double share = Dot(q, direction.q);
      direction.shares[d] += share;
      for (std::size_t i = 0; i < q.size(); ++i) direction.q[i] -= share * q[i];
    }
  }
}

std::vector<float> Leverage::OfRows() const {
  // h = A0 / N + sum of q^2
  std::vector<double> sums(is_present_.size(), least_);
  for (const Direction& direction : directions_) {
    for (std::size_t i = 0; i < direction.q.size(); ++i) sums[i] += direction.q[i] * direction.q[i];
  }
  std::vector<float> leverages(sums.size());
  for (std::size_t i = 0; i < sums.size(); ++i) {
    leverages[i] = is_present_[i] ? static_cast<float>(sums[i]) : kMissing;
  }
  return leverages;
}

double Leverage::Of(std::span<const float> scores) const {
  double sum = least_;
  Column q(scores.size());
  for (std::size_t c = 0; c < scores.size(); ++c) {
    if (IsMissing(scores[c])) return static_cast<double>(kMissing);
    const Direction& direction = directions_[c];
    if (direction.q.empty()) continue;
    // t = q R, solved from the first column on
    double rest = static_cast<double>(scores[c]);
    for (std::size_t d = 0; d < c; ++d) rest -= q[d] * direction.shares[d];
    q[c] = rest / direction.length;
    sum += q[c] * q[c];
  }
  return sum;
}

}  // namespace zemva
