#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "zemva/model/kernels/nipals.h"
#include "zemva/numeric/missing.h"

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
Table RandomTable(std::size_t rows, std::size_t columns, double missing_share) {
  std::mt19937 random(1);
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
          const ProjectionLoops& loops = BestProjectionLoops()) {
  Fit fit{
      {}, std::vector<float>(residuals.RowCount()), std::vector<float>(residuals.ColumnCount())};
  residuals.CopyStart(0, fit.t);
  fit.result = Nipals(residuals, left_out, settings, fit.t, fit.p, loops);
  return fit;
}

// The iteration as it is defined, element by element, in double; `usable` says of which.
template <typename Usable>
Fit PlainFit(const Table& table, std::vector<float> start, double limit, Usable usable) {
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
      p[k] = num * std::min(total / den, limit);
      length += p[k] * p[k];
    }
    for (double& loading : p) loading /= std::sqrt(length);
    double total = 0, change = 0;
    for (std::size_t i = 0; i < table.size(); ++i) {
      double num = 0, den = 0;
      for (std::size_t k = 0; k < columns; ++k) {
        if (usable(i, k)) num += p[k] * table[i][k], den += p[k] * p[k];
      }
      const double score = num * std::min(1 / den, limit);
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

LeftOut LeftOutIn(const Case& c) {
  return c.groups ? LeftOut::Elements(c.groups, CyclicLabels(c.columns, c.groups)) : LeftOut();
}

TEST(Nipals, FollowsTheDefinition) {
  for (const Case& c : kCases) {
    SCOPED_TRACE(testing::Message()
                 << c.rows << " x " << c.columns << ", " << c.groups << " groups");
    const Table table = RandomTable(c.rows, c.columns, c.missing_share);
    const ResidualMatrix residuals(MatrixOf(table));
    const auto is_left_out = [&](std::size_t i, std::size_t k) {
      return c.groups && static_cast<int>(i + 1) % c.groups == CyclicLabels(k + 1, c.groups)[k];
    };
    std::vector<float> start(c.rows);
    residuals.CopyStart(0, start);
    const Fit expected = PlainFit(table, start, c.limit, [&](std::size_t i, std::size_t k) {
      return !IsMissing(table[i][k]) && !is_left_out(i, k);
    });
    const Fit fit = FitOf(residuals, LeftOutIn(c), {200, {c.limit, {}}, {c.limit, {}}});
    EXPECT_EQ(fit.result.status, 0);
    EXPECT_EQ(fit.result.iterations, expected.result.iterations);
    ExpectNear(fit.t, expected.t);
    ExpectNear(fit.p, expected.p);

    std::vector<double> errors(c.columns);
    AddPredictionErrors(residuals, LeftOutIn(c), fit.t, fit.p, errors);
    for (std::size_t k = 0; k < c.columns; ++k) {
      for (std::size_t i = 0; i < c.rows; ++i) {
        if (IsMissing(table[i][k]) || !is_left_out(i, k)) continue;
        errors[k] -= std::pow(double{table[i][k]} - double{fit.t[i]} * fit.p[k], 2);
      }
      EXPECT_NEAR(errors[k], 0, 1e-12);
    }
  }
}

TEST(Nipals, GivesTheSameBitsOnEveryInstructionSet) {
  for (const Case& c : kCases) {
    const ResidualMatrix residuals(MatrixOf(RandomTable(c.rows, c.columns, c.missing_share)));
    const LeftOut left_out = LeftOutIn(c);
    const Fit expected = FitOf(residuals, left_out, {200}, FloorProjectionLoops());
    for (const ProjectionLoops* loops : UsableProjectionLoops()) {
      EXPECT_EQ(FitOf(residuals, left_out, {200}, *loops), expected);
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

TEST(Nipals, StopsOneIterationPastTheLimit) {
  const ResidualMatrix residuals(MatrixOf(RandomTable(20, 6, 0.1)));
  EXPECT_EQ(FitOf(residuals, LeftOut(), {0}).result.iterations, 1);
  EXPECT_EQ(FitOf(residuals, LeftOut(), {3}).result.iterations, 4);
}

// What a projection needs, kept alive beside it.
struct Projected {
  explicit Projected(const Table& table, LeftOut left = {})
      : residuals(MatrixOf(table)), left_out(std::move(left)), projection(residuals, left_out) {}

  Cap CapAt(double limit) {
    return {limit, [this](int number, double factor) { clips.emplace_back(number, factor); }};
  }

  ResidualMatrix residuals;
  LeftOut left_out;
  Projection projection;
  Clips clips;
};

constexpr float kNone = kMissing;

TEST(Projection, MakesUpForWhatIsMissingUpToTheCap) {
  // t't = 14. Column 2 lacks the row with t = 2: factor 14 / 10, and 1 * 2 + 3 * 6 = 20.
  Projected e({{1, 2}, {2, kNone}, {3, 6}});
  std::vector<double> loadings(2);
  EXPECT_EQ(e.projection.OntoColumns(std::vector<float>{1, 2, 3}, e.CapAt(1.5), loadings), 0);
  EXPECT_EQ(loadings, (std::vector<double>{14, 28}));
  EXPECT_EQ(e.clips, Clips{});
  EXPECT_EQ(e.projection.OntoColumns(std::vector<float>{1, 2, 3}, e.CapAt(1.25), loadings), 0);
  EXPECT_EQ(loadings, (std::vector<double>{14, 25}));
  EXPECT_EQ(e.clips, (Clips{{2, 1.4}}));

  // p'p = 4 + 1 = 5. Row 2 has the first column alone: 2 * 2 / 5 times 5 / 4.
  e.clips.clear();
  std::vector<float> scores{1, 2, kNone};
  ScoreSums sums = e.projection.OntoRows(std::vector<float>{2, 1}, 5, e.CapAt(1.5), scores);
  EXPECT_EQ(scores, (std::vector<float>{0.8f, 1, 2.4f}));
  EXPECT_NEAR(sums.squares, 0.64 + 1 + 5.76, 1e-6);
  EXPECT_NEAR(sums.change_squares, 0.04 + 1, 1e-6) << "a score that was missing has no change";
  e.projection.OntoRows(std::vector<float>{2, 1}, 5, e.CapAt(1.125), scores);
  EXPECT_EQ(scores[1], 0.9f);
  EXPECT_EQ(e.clips, (Clips{{2, 1.25}}));
}

TEST(Projection, ReportsClipsInTheOrderOfRowsAndColumns) {
  Projected e({{kNone, 1, 1}, {kNone, 1, 1}, {1, 1, 1}, {1, kNone, 1}},
              LeftOut::Elements(2, std::vector<short>{1, 0, 0}));
  std::vector<float> scores{1, 1, 1, 1};
  std::vector<double> loadings(3);
  EXPECT_EQ(e.projection.OntoColumns(scores, e.CapAt(1), loadings), 0);
  EXPECT_EQ(e.clips, (Clips{{1, 4}, {2, 2}, {3, 2}}));
  e.clips.clear();
  e.projection.OntoRows(std::vector<float>{0.5f, 0.5f, 0.5f}, 0.75, e.CapAt(1), scores);
  EXPECT_EQ(e.clips, (Clips{{1, 1.5}, {3, 1.5}, {4, 3}}));
}

TEST(Projection, AScoreWithNothingUsableIsMissingAndTakesNoPart) {
  Projected e({{kNone, kNone, kNone}, {5, kNone, kNone}, {0, 0, 0}, {0.3f, 0.7f, 0.1f}});
  const std::vector<float> weights{0, 0.6f, 0.8f};  // their squares add up to a hair over 1
  std::vector<float> scores(4, 1);
  e.projection.OntoRows(weights, 1, {}, scores);
  EXPECT_EQ(scores, (std::vector<float>{kNone, kNone, 0, 0.5f}));
  std::vector<double> loadings(3);
  EXPECT_EQ(e.projection.OntoColumns(scores, {}, loadings), 0);
  EXPECT_FLOAT_EQ(static_cast<float>(loadings[1]), 0.35f);

  Projected at_the_missing_value({{-100, -98}});
  scores = {1};
  at_the_missing_value.projection.OntoRows(std::vector<float>{1, 1}, 2, {}, scores);
  EXPECT_FALSE(IsMissing(scores[0]));
  EXPECT_FLOAT_EQ(scores[0], kMissing);
}

TEST(Projection, RefusesAColumnThatNoScoreSupports) {
  const LeftOut odd_rows = LeftOut::Elements(2, std::vector<short>{1, 0});
  const struct {
    Table table;
    LeftOut left_out;
    std::vector<float> scores;
    int status;
  } cases[] = {
      {{{1, kNone}, {2, kNone}, {3, kNone}}, {}, {0.1f, 0.2f, 0.3f}, 8042},
      {{{1, kNone}, {2, 5}, {3, kNone}}, {}, {0.1f, 0, 0.3f}, 8042},
      {{{1, kNone}, {2, 5}, {3, kNone}}, {}, {0.1f, kNone, 0.3f}, 8042},
      {{{1, kNone}, {2, 5}, {3, kNone}}, {}, {1000.1f, 0, 999.7f}, 8042},
      {{{1, kNone}, {2, 5}, {3, kNone}}, {}, {0.1f, 1e-12f, 0.3f}, 0},
      {{{1, 2}, {kNone, 4}, {3, 6}, {kNone, 8}}, odd_rows, {0.1f, 0.2f, 0.3f, 0.7f}, 8043},
      {{{1, 2}, {kNone, 4}, {3, 6}, {7, 8}}, odd_rows, {0.1f, 0.2f, 0.3f, 0.7f}, 0},
  };
  for (const auto& c : cases) {
    Projected e(c.table, c.left_out);
    std::vector<double> loadings(2);
    EXPECT_EQ(e.projection.OntoColumns(c.scores, {3.0, {}}, loadings), c.status);
  }
}

TEST(Nipals, SetsTinyLoadingsToZeroAndSurvivesAnEmptyTable) {
  // The first column has 1e-8 of the second one's size.
  const Fit fit = FitOf(ResidualMatrix(MatrixOf({{1e-8f, 1}, {-1e-8f, -1}})), LeftOut());
  EXPECT_EQ(fit.p, (std::vector<float>{0, 1}));
  const Fit none = FitOf(ResidualMatrix(MatrixOf({{0, 0}, {0, 0}})), LeftOut());
  EXPECT_EQ(none.result.status, 0);
  EXPECT_EQ(none.p, (std::vector<float>{0, 0}));
  EXPECT_EQ(FitOf(ResidualMatrix(MatrixOf({{0, kNone}, {0, 0}})), LeftOut()).result.status, 8042);
}

TEST(ResidualMatrix, StartsFromAColumnWithAlternatingSubstitutes) {
  const ResidualMatrix residuals(MatrixOf({{kNone}, {3}, {kNone}, {-50}, {kNone}}));
  std::vector<float> start(5);
  residuals.CopyStart(0, start);
  EXPECT_EQ(start, (std::vector<float>{0.5f, 3, -0.5f, -50, 0.5f}));
}

TEST(ResidualMatrix, LeavesMissingAndExcludedElementsAsTheyAre) {
  XFMatrix matrix = MatrixOf({{8, 1, kNone, 7}, {kNone, kNone, 4, kNone}, {9, 5, 6, 9}});
  ResidualMatrix residuals(matrix, std::vector<char>{0, 1, 1, 0});
  EXPECT_EQ(residuals.RowSquares(), (std::vector<double>{1, 16, 61}));
  residuals.Subtract(std::vector<float>{1, 2, kNone}, std::vector<float>{0, 1, 3, 0});
  EXPECT_EQ(residuals.RowSquares(), (std::vector<double>{0, 4, 61}));
  EXPECT_EQ(residuals.ColumnSquares(), (std::vector<double>{0, 25, 40, 0}));
  residuals.CopyTo(matrix);
  const Table expected{{8, 0, kNone, 7}, {kNone, kNone, -2, kNone}, {9, 5, 6, 9}};
  for (int i = 1; i <= 3; ++i) {
    EXPECT_TRUE(std::ranges::equal(matrix.Row(i), expected[std::size_t(i) - 1]));
  }
}

}  // namespace
}  // namespace zemva
