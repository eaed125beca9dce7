// The problem that the benchmarks of fitting components share.
#ifndef ZEMVA_BENCH_NIPALS_PROBLEM_H
#define ZEMVA_BENCH_NIPALS_PROBLEM_H

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "model/kernels/nipals.h"
#include "numeric/missing.h"

namespace zemva {

inline constexpr int kComponents = 5;

// Rank 8, with directions that fall off evenly, plus noise; a share of the cells is missing.
inline XFMatrix NipalsTable(int rows, int columns, double missing_share) {
  constexpr std::size_t kRank = 8;
  std::mt19937 random(1);
  std::normal_distribution<float> normal;
  const auto draw = [&](int count) {
    std::vector<float> values(static_cast<std::size_t>(count) * kRank);
    for (float& value : values) value = normal(random);
    return values;
  };
  const std::vector<float> scores = draw(rows);
  const std::vector<float> loadings = draw(columns);
  XFMatrix table("X", rows, columns, 0.0f);
  for (std::size_t i = 0; i < static_cast<std::size_t>(rows); ++i) {
    const std::span<float> row = table.Row(static_cast<int>(i) + 1);
    for (std::size_t k = 0; k < row.size(); ++k) {
      row[k] = 0.5f * normal(random);
      for (std::size_t a = 0; a < kRank; ++a) {
        row[k] +=
            0.3f * static_cast<float>(kRank - a) * scores[i * kRank + a] * loadings[k * kRank + a];
      }
      if (static_cast<double>(random()) < missing_share * 4294967296.0) row[k] = kMissing;
    }
  }
  table.SetActValInfo();
  return table;
}

struct FiveComponents {
  int iterations = 0;
  double unexplained = 0;  // share of the sum of squares that is left
};

// Fits the components as a model does; with `groups` above 0 each is cross-validated.
inline FiveComponents FitFiveComponents(const XFMatrix& table, int groups) {
  const auto total = [](const std::vector<double>& squares) {
    return std::accumulate(squares.begin(), squares.end(), 0.0);
  };
  ResidualMatrix residuals(table);
  std::vector<float> t(residuals.RowCount()), round_t(residuals.RowCount());
  std::vector<float> p(residuals.ColumnCount()), round_p(residuals.ColumnCount());
  std::vector<double> errors(residuals.ColumnCount());
  std::vector<double> squares = residuals.ColumnSquares();
  const double all = total(squares);
  FiveComponents result;
  for (int a = 0; a < kComponents; ++a) {
    const auto start = std::ranges::max_element(squares) - squares.begin();
    residuals.CopyStart(static_cast<std::size_t>(start), t);
    const NipalsSettings settings{10000, {3.0, {}}, {3.0, {}}};
    result.iterations += Nipals(residuals, LeftOut(), settings, t, p).iterations;
    for (int round = 0; round < groups; ++round) {
      std::vector<short> labels(p.size());
      for (std::size_t k = 0; k < labels.size(); ++k) {
        labels[k] = static_cast<short>((static_cast<int>(k) + round) % groups);
      }
      const LeftOut left_out = LeftOut::Elements(groups, labels);
      round_t = t;
      result.iterations += Nipals(residuals, left_out, settings, round_t, round_p).iterations;
      AddPredictionErrors(residuals, left_out, round_t, round_p, errors);
    }
    residuals.Subtract(t, p);
    squares = residuals.ColumnSquares();
  }
  result.unexplained = total(squares) / all;
  return result;
}

}  // namespace zemva

#endif  // ZEMVA_BENCH_NIPALS_PROBLEM_H
