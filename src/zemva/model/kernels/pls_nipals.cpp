#include "zemva/model/kernels/pls_nipals.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "zemva/base/lane_sums.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/kernels/left_out.h"
#include "zemva/model/kernels/residual_matrix.h"
#include "zemva/model/kernels/response_products.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

constexpr double kNegligible = 1e-6;
constexpr double kTinyWeight = 1e-30;
constexpr double kConverged = 2e-10;
// Two passes over E that take M products an element, in place of two an iteration.
constexpr std::size_t kFewResponses = 8;

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
      : x_matrix_(x),
        y_matrix_(y),
        left_out_(left_out),
        loops_(loops),
        x_(x, left_out, loops),
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
    const bool is_complete = x_matrix_.IsComplete() && y_matrix_.IsComplete();
    const std::size_t response_count = y_sums_.size();
    return is_complete && response_count > 1 && response_count <= kFewResponses
               ? FitByProducts(iterations)
               : FitByPasses(iterations);
  }

 private:
  int FitByPasses(int& iterations) {
    const bool has_one_response = y_sums_.size() == 1;
    while (true) {
      if (IsStopped(settings_.goes_on, iterations)) return status::mva::kCancelled;
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

  bool IsNegligible(double weight_squares) const {
    const double least = kNegligible / std::sqrt(static_cast<double>(x_sums_.size()));
    return !(weight_squares / std::sqrt(u_squares_ * x_squares_) >= least);
  }

  // c = F't / t't, without what is tiny; its sum of squares.
  double SetResponseWeights(std::span<const double> sums, double divisor) {
    for (std::size_t m = 0; m < sums.size(); ++m) {
      const double weight = sums[m] / divisor;
      vectors_.c[m] = std::fabs(weight) < kTinyWeight ? 0.0f : static_cast<float>(weight);
    }
    return SumOfSquares(vectors_.c, [](std::size_t) { return true; });
  }

  int FitByProducts(int& iterations) {
    const ResponseProducts products(x_matrix_, y_matrix_, left_out_, loops_);
    const auto minus = [](std::vector<double> a, const std::vector<double>& b) {
      for (std::size_t m = 0; m < b.size(); ++m) a[m] -= b[m];
      return a;
    };
    const auto scaled = [](std::vector<double> a, double factor) {
      for (double& element : a) element *= factor;
      return a;
    };
    // u = F g
    std::vector<double> g(vectors_.c.begin(), vectors_.c.end());
    g = scaled(g, 1.0 / SumOfSquares(g));
    std::vector<double> t_before(g.size());
    std::vector<double> weights_of;
    double change = 0.0;
    do {
      if (IsStopped(settings_.goes_on, iterations)) return status::mva::kCancelled;
      ++iterations;
      const double weight_squares = products.OfS().Of(g, g);
      if (IsNegligible(weight_squares)) return status::mva::kNegligibleCorrelation;
      const double length = std::sqrt(weight_squares);
      weights_of = g;
      // t = E S g / |E'u| = Z h
      const std::vector<double> h = scaled(g, 1.0 / length);
      const double t_squares = products.OfZ().Of(h, h);
      const std::vector<double> t_change = minus(h, t_before);
      t_before = h;
      const double c_squares = SetResponseWeights(products.OfS().Times(h), t_squares);
      if (!(c_squares > 0.0)) return status::mva::kNegligibleCorrelation;
      // u = F c / c'c
      const std::vector<double> next =
          scaled({vectors_.c.begin(), vectors_.c.end()}, 1.0 / c_squares);
      const std::vector<double> u_change = minus(next, g);
      g = next;
      u_squares_ = products.OfF().Of(g, g);
      change = products.OfF().Of(u_change, u_change) / u_squares_ +
               products.OfZ().Of(t_change, t_change) / t_squares;
    } while (change > kConverged && iterations <= settings_.max_iterations);
    Normalise(products.WeightsOf(weights_of), vectors_.w);
    const bool has_loadings = !vectors_.p.empty();
    t_squares_ = (has_loadings ? x_.OntoRowsAndColumns(vectors_.w, 1.0, settings_.t, vectors_.t)
                               : x_.OntoRows(vectors_.w, 1.0, settings_.t, vectors_.t))
                     .squares;
    const double c_squares = SumOfSquares(vectors_.c, [](std::size_t) { return true; });
    y_.OntoRows(vectors_.c, c_squares, settings_.u, vectors_.u);
    std::ranges::replace(vectors_.u, kMissing, 0.0f);
    return has_loadings ? FitLoadings(false) : status::kOk;
  }

  // Sets `change` to du / u'u + dt / t't. Where `also_sums_columns`, E't is summed on the way.
  int Iterate(bool also_sums_columns, double& change) {
    // w = E'u
    int status = x_.OntoColumns(vectors_.u, settings_.w, x_sums_);
    if (status != status::kOk) return status;
    if (IsNegligible(SumOfSquares(x_sums_))) return status::mva::kNegligibleCorrelation;
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
    const double c_squares = SetResponseWeights(y_sums_, t_squares_);
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

  const ResidualMatrix& x_matrix_;
  const ResidualMatrix& y_matrix_;
  const LeftOut& left_out_;
  const ProjectionLoops& loops_;
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
                       const PlsSettings& settings, const PlsVectors& vectors,
                       const ProjectionLoops& loops) {
  NipalsResult result{status::kOk, 0};
  result.status = MemoryGuarded([&] {
    return PlsComponent(x, y, left_out, settings, vectors, loops).Fit(result.iterations);
  });
  return result;
}

}  // namespace zemva
