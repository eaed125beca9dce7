#include "zemva/model/kernels/pls_nipals.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "zemva/base/lane_sums.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/kernels/left_out.h"
#include "zemva/model/kernels/residual_matrix.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

constexpr double kNegligible = 1e-6;
constexpr double kTinyWeight = 1e-30;
constexpr double kConverged = 2e-10;

double SumOfSquares(std::span<const double> values) {
  return SumInLanes(values.size(), [&](std::size_t k) { return values[k] * values[k]; });
}

// Of a float for which `is_included` holds and that is not missing.
template <typename IsIncluded>
double SumOfSquares(std::span<const float> values, IsIncluded is_included) {
  return SumInLanes(values.size(), [&](std::size_t i) {
    const auto value = static_cast<double>(values[i]);
    return is_included(i) && !IsMissing(values[i]) ? value * value : 0.0;
  });
}

class PlsComponent {
 public:
  PlsComponent(const ResidualMatrix& x, const ResidualMatrix& y, const LeftOut& left_out,
               const PlsSettings& settings, const PlsVectors& vectors, const ProjectionLoops& loops)
      : x_(x, left_out, loops),
        y_(y, left_out, loops),
        settings_(settings),
        vectors_(vectors),
        x_sums_(x.ColumnCount()),
        y_sums_(y.ColumnCount()) {
    const auto is_included = [&](std::size_t i) {
      return !left_out.IsWholeRow(left_out.ClassOf(i));
    };
    u_squares_ = SumOfSquares(vectors.u, is_included);
    const std::vector<double> row_squares = x.RowSquares();
    x_squares_ = SumInLanes(row_squares.size(),
                            [&](std::size_t i) { return is_included(i) ? row_squares[i] : 0.0; });
    std::ranges::fill(vectors.t, 0.0f);
  }

  int Fit(int& iterations) {
    const bool has_one_response = y_sums_.size() == 1;
    while (true) {
      ++iterations;
      double change = 0.0;
      const int status = Iterate(has_one_response && !vectors_.p.empty(), change);
      if (status != status::kOk) return status;
      // So written that what is not a number, from values near the end of the range, ends it too.
      const bool goes_on = !has_one_response && change > kConverged;
      if (!goes_on || iterations > settings_.max_iterations) break;
    }
    return vectors_.p.empty() ? status::kOk : FitLoadings(!has_one_response);
  }

 private:
  // Sets `change` to du / u'u + dt / t't. Where `also_sums_columns`, E't is summed on the way.
  int Iterate(bool also_sums_columns, double& change) {
    // w = E'u
    int status = x_.OntoColumns(vectors_.u, settings_.w, x_sums_);
    if (status != status::kOk) return status;
    const double least = kNegligible / std::sqrt(static_cast<double>(x_sums_.size()));
    const double common = SumOfSquares(x_sums_) / std::sqrt(u_squares_ * x_squares_);
    if (!(common >= least)) return status::mva::kNegligibleCorrelation;
    // w = w / |w|
    Normalise(x_sums_, vectors_.w);
    // t = E w
    const ScoreSums t = also_sums_columns
                            ? x_.OntoRowsAndColumns(vectors_.w, 1.0, settings_.t, vectors_.t)
                            : x_.OntoRows(vectors_.w, 1.0, settings_.t, vectors_.t);
    t_squares_ = t.squares;
    // c = F't / t't
    status = y_.OntoColumns(vectors_.t, settings_.c, y_sums_);
    if (status != status::kOk) return status;
    for (std::size_t m = 0; m < y_sums_.size(); ++m) {
      const double weight = y_sums_[m] / t_squares_;
      vectors_.c[m] = std::fabs(weight) < kTinyWeight ? 0.0f : static_cast<float>(weight);
    }
    const double c_squares = SumOfSquares(vectors_.c, [](std::size_t) { return true; });
    if (!(c_squares > 0.0)) return status::mva::kNegligibleCorrelation;
    // u = F c / c'c
    const ScoreSums u = y_.OntoRows(vectors_.c, c_squares, settings_.u, vectors_.u);
    std::ranges::replace(vectors_.u, kMissing, 0.0f);
    u_squares_ = u.squares;
    change = u.change_squares / u.squares + t.change_squares / t.squares;
    return status::kOk;
  }

  // p = E't / t't
  int FitLoadings(bool must_sum_columns) {
    if (must_sum_columns) x_.SumColumns(vectors_.t);
    const int status = x_.LoadingsFor(vectors_.t, settings_.p, x_sums_);
    for (double& sum : x_sums_) sum /= t_squares_;
    RoundLoadings(x_sums_, vectors_.p);
    return status;
  }

  Projection x_;
  Projection y_;
  const PlsSettings& settings_;
  const PlsVectors& vectors_;
  std::vector<double> x_sums_;
  std::vector<double> y_sums_;
  double x_squares_;  // of E
  double u_squares_;
  double t_squares_ = 0.0;
};

}  // namespace

NipalsResult PlsNipals(const ResidualMatrix& x, const ResidualMatrix& y, const LeftOut& left_out,
                       const PlsSettings& settings, const PlsVectors& vectors, const ProjectionLoops& loops) {
  NipalsResult result{status::kOk, 0};
  result.status = MemoryGuarded([&] {
    return PlsComponent(x, y, left_out, settings, vectors, loops).Fit(result.iterations);
  });
  return result;
}

}  // namespace zemva
