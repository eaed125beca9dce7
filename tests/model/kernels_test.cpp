#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

#include "model/kernels/nipals.h"
#include "numeric/missing.h"

namespace zemva {
namespace {

using Table = std::vector<std::vector<float>>;
using Clips = std::vector<std::pair<int, double>>;

XFMatrix MatrixOf(const Table& table) {
  XFMatrix matrix("E", static_cast<int>(table.size()), static_cast<int>(table[0].size()), 0.0f);
  for (int i = 1; i <= matrix.NRow(); ++i) {
    std::ranges::copy(table[static_cast<std::size_t>(i) - 1], matrix.Row(i).begin());
  }
  matrix.SetActValInfo();
  return matrix;
}

// Three strong directions and noise; a share of the cells is missing.
Table RandomTable(std::size_t rows, std::size_t columns, double missing_share, unsigned seed = 1) {
  std::mt19937 random(seed);
  const auto uniform = [&] { return static_cast<double>(random()) / 4294967296.0 - 0.5; };
  Table table(rows, std::vector<float>(columns));
  for (const double strength : {10.0, 4.0, 2.0, 0.1}) {
    std::vector<double> loadings(columns);
    for (double& loading : loadings) loading = uniform();
    for (auto& row : table) {
      const double score = strength * uniform();
      for (std::size_t k = 0; k < columns; ++k) row[k] += static_cast<float>(score * loadings[k]);
    }
  }
  for (auto& row : table) {
    for (float& element : row) {
      if (uniform() + 0.5 < missing_share) element = kMissing;
    }
  }
  return table;
}

std::vector<short> CyclicLabels(std::size_t columns, int groups) {
  std::vector<short> labels(columns);
  for (std::size_t k = 0; k < columns; ++k)
    labels[k] = static_cast<short>(3 * k % unsigned(groups));
  return labels;
}

struct Fit {
  NipalsResult result;
  std::vector<float> t, p;
  bool operator==(const Fit& other) const { return t == other.t && p == other.p; }
};

Fit FitOf(const ResidualMatrix& residuals, const LeftOut& left_out, NipalsSettings settings = {200},
          const Lanes& lanes = BestLanes()) {
  Fit fit{
      {}, std::vector<float>(residuals.RowCount()), std::vector<float>(residuals.ColumnCount())};
  residuals.CopyStart(0, fit.t);
  fit.result = Nipals(residuals, left_out, settings, fit.t, fit.p, lanes);
  return fit;
}

// The iteration as it is defined, element by element, in double; `usable` says of which.
template <typename Usable>
Fit PlainFit(const Table& table, std::vector<float> start, double loading_limit, double score_limit,
             Usable usable) {
  const std::size_t columns = table[0].size();
  std::vector<double> t(start.begin(), start.end()), p(columns);
  Fit fit{{}, std::move(start), std::vector<float>(columns)};
  for (double d = 1; d > 1e-10; ++fit.result.iterations) {
    double length = 0;
    for (std::size_t k = 0; k < columns; ++k) {
      double num = 0, total = 0, den = 0;
      for (std::size_t i = 0; i < table.size(); ++i) {
        total += t[i] * t[i];
        if (usable(i, k)) num += t[i] * table[i][k], den += t[i] * t[i];
      }
      p[k] = num * std::min(total / den, loading_limit);
      length += p[k] * p[k];
    }
    for (double& loading : p) loading /= std::sqrt(length);
    double total = 0, change = 0;
    for (std::size_t i = 0; i < table.size(); ++i) {
      double num = 0, den = 0;
      for (std::size_t k = 0; k < columns; ++k) {
        if (usable(i, k)) num += p[k] * table[i][k], den += p[k] * p[k];
      }
      const double score = num * std::min(1 / den, score_limit);
      change += (score - t[i]) * (score - t[i]);
      total += score * score;
      t[i] = score;
    }
    d = change / total;
  }
  fit.t.assign(t.begin(), t.end());
  fit.p.assign(p.begin(), p.end());
  return fit;
}

void ExpectNear(const std::vector<float>& values, const std::vector<float>& expected) {
  double largest = 0;
  for (const float value : expected) largest = std::max(largest, std::fabs(double{value}));
  for (std::size_t i = 0; i < values.size(); ++i) {
    ASSERT_NEAR(values[i], expected[i], 2e-5 * largest) << "at " << i;
  }
}

struct Case {
  std::size_t rows, columns;
  double missing_share;
  int groups;
  double limit;
};

constexpr Case kCases[] = {
    {30, 9, 0, 0, 3},    {30, 9, 0.1, 0, 3},   {30, 9, 0, 4, 3},      {30, 9, 0.1, 4, 3},
    {7, 33, 0.05, 5, 3}, {50, 8, 0.3, 0, 1.5}, {41, 17, 0.2, 7, 1.2},
};

TEST(Nipals, FollowsTheDefinition) {
  for (const auto& [rows, columns, missing_share, groups, limit] : kCases) {
    SCOPED_TRACE(testing::Message() << rows << " x " << columns << ", " << groups << " groups");
    const Table table = RandomTable(rows, columns, missing_share);
    const ResidualMatrix residuals(MatrixOf(table));
    const std::vector<short> labels = CyclicLabels(columns, std::max(groups, 1));
    const LeftOut left_out = groups ? LeftOut::Elements(groups, labels) : LeftOut();
    const auto is_left_out = [&](std::size_t i, std::size_t k) {
      return groups && static_cast<int>(i + 1) % groups == labels[k];
    };
    const auto is_usable = [&](std::size_t i, std::size_t k) {
      return !IsMissing(table[i][k]) && !is_left_out(i, k);
    };
    std::vector<float> start(rows);
    residuals.CopyStart(0, start);
    const Fit expected = PlainFit(table, start, limit, limit, is_usable);
    const Fit fit = FitOf(residuals, left_out, {200, {limit, {}}, {limit, {}}});
    EXPECT_EQ(fit.result.status, 0);
    EXPECT_EQ(fit.result.iterations, expected.result.iterations);
    ExpectNear(fit.t, expected.t);
    ExpectNear(fit.p, expected.p);

    std::vector<double> errors(columns), expected_errors(columns);
    AddPredictionErrors(residuals, left_out, fit.t, fit.p, errors);
    for (std::size_t i = 0; i < rows; ++i) {
      for (std::size_t k = 0; k < columns; ++k) {
        if (IsMissing(table[i][k]) || !is_left_out(i, k)) continue;
        expected_errors[k] += std::pow(double{table[i][k]} - double{fit.t[i]} * fit.p[k], 2);
      }
    }
    for (std::size_t k = 0; k < columns; ++k) EXPECT_NEAR(errors[k], expected_errors[k], 1e-12);
  }
}

TEST(Nipals, GivesTheSameBitsOnEveryInstructionSet) {
  for (const Case& c : kCases) {
    const ResidualMatrix residuals(MatrixOf(RandomTable(c.rows, c.columns, c.missing_share)));
    const LeftOut left_out =
        c.groups ? LeftOut::Elements(c.groups, CyclicLabels(c.columns, c.groups)) : LeftOut();
    const Fit expected = FitOf(residuals, left_out, {200}, Sse2Lanes());
    for (const Lanes* lanes : UsableLanes()) {
      EXPECT_EQ(FitOf(residuals, left_out, {200}, *lanes), expected);
    }
  }
}

TEST(Nipals, TakesCompleteDataTheSameWayBesideAnEmptyRowAndAnExcludedColumn) {
  Table table = RandomTable(21, 13, 0);
  const Fit complete = FitOf(ResidualMatrix(MatrixOf(table)), LeftOut());
  table.emplace_back(13, kMissing);
  for (auto& row : table) row.push_back(kMissing);
  std::vector<char> takes_part(14, 1);
  takes_part[13] = 0;
  Fit beside = FitOf(ResidualMatrix(MatrixOf(table), takes_part), LeftOut());
  EXPECT_EQ(beside.result.status, 0);
  EXPECT_EQ(beside.result.iterations, complete.result.iterations);
  EXPECT_EQ(beside.t.back(), kMissing);
  EXPECT_EQ(beside.p.back(), 0.0f);
  beside.t.pop_back();
  beside.p.pop_back();
  EXPECT_EQ(beside, complete);
}

TEST(Nipals, RecoversATableOfRankOneFromWhatIsLeftOfIt) {
  Table table(12, std::vector<float>(6));
  for (std::size_t i = 0; i < 12; ++i) {
    for (std::size_t k = 0; k < 6; ++k) {
      table[i][k] = (i + 2 * k) % 4 == 0 ? kMissing : float(int(i) - 5) * float(k + 1);
    }
  }
  const Fit fit = FitOf(ResidualMatrix(MatrixOf(table)), LeftOut());
  for (std::size_t i = 0; i < 12; ++i) {
    for (std::size_t k = 0; k < 6; ++k) {
      EXPECT_NEAR(fit.t[i] * fit.p[k], double(int(i) - 5) * double(k + 1), 1e-5 * 36);
    }
  }
}

TEST(Nipals, ComponentsAreOrthogonalAndAddUpToTheTable) {
  const Table table = RandomTable(40, 10, 0);
  ResidualMatrix residuals(MatrixOf(table));
  Table sum(40, std::vector<float>(10));
  std::vector<Fit> fits;
  for (int a = 0; a < 3; ++a) {
    const auto total = [&](const std::vector<double>& squares) {
      return std::accumulate(squares.begin(), squares.end(), 0.0);
    };
    const double before = total(residuals.ColumnSquares());
    fits.push_back(FitOf(residuals, LeftOut()));
    const Fit& fit = fits.back();
    residuals.Subtract(fit.t, fit.p);
    const auto dot = [](const std::vector<float>& x, const std::vector<float>& y) {
      return std::inner_product(x.begin(), x.end(), y.begin(), 0.0);
    };
    EXPECT_NEAR(dot(fit.p, fit.p), 1, 1e-6);
    EXPECT_NEAR(before - total(residuals.RowSquares()), dot(fit.t, fit.t), 1e-5 * before);
    EXPECT_NEAR(dot(fit.t, fits[0].t), a ? 0 : dot(fit.t, fit.t), 1e-4 * before);
  }
  for (const Fit& fit : fits) residuals.Add(fit.t, fit.p);
  XFMatrix restored("X", 40, 10, 0.0f);
  residuals.CopyTo(restored);
  for (int i = 0; i < 40; ++i) {
    ExpectNear({restored.Row(i + 1).begin(), restored.Row(i + 1).end()}, table[std::size_t(i)]);
  }
}

TEST(Nipals, StopsOneIterationPastTheLimit) {
  const ResidualMatrix residuals(MatrixOf(RandomTable(20, 6, 0.1)));
  EXPECT_EQ(FitOf(residuals, LeftOut(), {0}).result.iterations, 1);
  EXPECT_EQ(FitOf(residuals, LeftOut(), {3}).result.iterations, 4);
}
}  // namespace
}  // namespace zemva
