#include "zemva/model/kernels/nipals.h"

#include <cmath>
#include <vector>

#include "zemva/base/lane_sums.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

constexpr double kTinyLoading = 1e-6;
constexpr double kConverged = 1e-10;
constexpr double kNoChange = 1e-30;

// values * scale, with 0 for what is tiny beside a vector of length 1.
void Round(std::span<const double> values, double scale, std::span<float> loadings) {
  const double size = std::sqrt(static_cast<double>(values.size()));
  const auto tiny = static_cast<float>(kTinyLoading / size);
  for (std::size_t k = 0; k < values.size(); ++k) {
    const auto loading = static_cast<float>(values[k] * scale);
    loadings[k] = std::fabs(loading) < tiny ? 0.0f : loading;
  }
}

}  // namespace

// |t - t before|^2 < 1e-30, or |t - t before|^2 / |t|^2 <= 1e-10
bool IsConverged(const ScoreSums& sums) {
  // So written that what is not a number, from values near the end of the range, ends it too.
  if (sums.change_squares < kNoChange) return true;
  return !(sums.change_squares / sums.squares > kConverged);
}

NipalsResult Nipals(const ResidualMatrix& residuals, const LeftOut& left_out,
                    const NipalsSettings& settings, std::span<float> scores,
                    std::span<float> loadings, const ProjectionLoops& loops) {
  NipalsResult result{status::kOk, 0};
  result.status = MemoryGuarded([&] {
    Projection projection(residuals, left_out, loops);
    std::vector<double> sums(loadings.size());
    projection.SumColumns(scores);
    while (true) {
      if (IsStopped(settings.goes_on, result.iterations)) return status::mva::kCancelled;
      ++result.iterations;
      // p = E't, by the factors of what is missing
      const int failure = projection.LoadingsFor(scores, settings.loading_cap, sums);
      if (failure != status::kOk) return failure;
      // p = p / |p|
      Normalise(sums, loadings);
      // t = E p / p'p, and at once the E't of the next iteration
      const ScoreSums score_sums =
          projection.OntoRowsAndColumns(loadings, 1.0, settings.score_cap, scores);
      result.is_converged = IsConverged(score_sums);
      if (result.is_converged || result.iterations > settings.max_iterations) return status::kOk;
    }
  });
  return result;
}

void Normalise(std::span<const double> sums, std::span<float> loadings) {
  const double length =
      std::sqrt(SumInLanes(sums.size(), [&](std::size_t k) { return sums[k] * sums[k]; }));
  Round(sums, length == 0 ? 0 : 1 / length, loadings);
}

void RoundLoadings(std::span<const double> values, std::span<float> loadings) {
  Round(values, 1.0, loadings);
}

void AddPredictionErrors(const ResidualMatrix& residuals, const LeftOut& left_out,
                         std::span<const float> scores, std::span<const float> loadings,
                         std::span<double> column_errors) {
  for (std::size_t i = 0; i < scores.size(); ++i) {
    if (IsMissing(scores[i])) continue;
    const auto score = static_cast<double>(scores[i]);
    const std::span<const float> row = residuals.Row(i);
    std::span<const int> holes = residuals.Holes(i);
    for (const int column : left_out.Columns(left_out.ClassOf(i))) {
      while (!holes.empty() && holes.front() < column) holes = holes.subspan(1);
      if (!holes.empty() && holes.front() == column) continue;
      const auto k = static_cast<std::size_t>(column);
      // (e - t p)^2
      const double error = static_cast<double>(row[k]) - score * static_cast<double>(loadings[k]);
      column_errors[k] += error * error;
    }
  }
}

}  // namespace zemva
