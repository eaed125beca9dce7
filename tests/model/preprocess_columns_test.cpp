#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "data/selection.h"
#include "model/preprocess/columns.h"
#include "numeric/missing.h"

namespace zemva {
namespace {

using Values = std::vector<std::vector<float>>;

// A matrix whose column j is variable 10 j.
struct Columns {
  explicit Columns(const Values& values)
      : matrix("X", static_cast<int>(values.size()), static_cast<int>(values[0].size()), 0.0f),
        excluded("Excluded", matrix.NRow(), kNotSelected) {
    for (int j = 1; j <= matrix.NCol(); ++j) variables.AddVar(static_cast<short>(10 * j), "v");
    for (int i = 1; i <= matrix.NRow(); ++i) {
      std::ranges::copy(values[static_cast<std::size_t>(i - 1)], matrix[i] + 1);
    }
    matrix.SetActValInfo();
  }

  Values Content() const {
    Values values;
    for (int i = 1; i <= matrix.NRow(); ++i) {
      values.emplace_back(matrix[i] + 1, matrix[i] + 1 + matrix.NCol());
    }
    return values;
  }

  XFMatrix matrix;
  VarInfo variables{"Var"};
  XI1Vector excluded;
};

TEST(Columns, LaggedValuesComeFromEarlierRows) {
  Columns columns({{1, 5}, {2, kMissing}, {3, 7}});
  LagInfo lags("Lag");
  lags.AddItm({31, "001b", 20, 1, 1.0f, 0});
  lags.AddItm({32, "002a", 10, 2, 1.0f, 0});
  lags.AddItm({33, "003a", 10, 3, 1.0f, 0});
  ASSERT_EQ(AppendLagged(lags, columns.matrix, columns.variables), 0);
  EXPECT_EQ(columns.Content(), (Values{{1, 5, kMissing, kMissing, kMissing},
                                       {2, kMissing, 5, kMissing, kMissing},
                                       {3, 7, kMissing, 1, kMissing}}));
  EXPECT_EQ(columns.variables.GetVIx(32), 4);
  EXPECT_STREQ(columns.variables.GetVNam(3), "001b");
  EXPECT_EQ(columns.matrix.NValACol(4), 1);
  EXPECT_EQ(columns.matrix.NValA(), 7);
}

TEST(Columns, TransformationsMarkTheRowsThatLoseAValue) {
  Columns columns({{100, 1}, {-1, 2}, {kMissing, 3}, {0, 4}});
  columns.excluded[1] = 1;
  TraInfo table("Tra");
  table.AddItm({20, "b", ETraType::kLinear, 2, 1, 0});
  table.AddItm({10, "a", ETraType::kLog, 1, 0, 0});
  ASSERT_EQ(TransformColumns(table, columns.variables, columns.matrix, columns.excluded), 0);
  EXPECT_EQ(columns.Content(), (Values{{2, 3}, {kMissing, 5}, {kMissing, 7}, {kMissing, 9}}));
  EXPECT_EQ(columns.matrix.NValACol(1), 1);
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(columns.excluded[i], i == 3 ? 0 : 1) << i;
}

TEST(Columns, TermsAreProductsOfPresentFactors) {
  Columns columns({{2, 3}, {kMissing, 4}, {1e20f, 5}});
  ExpInfo terms("Exp");
  terms.AddItm({31, "square", 10, 10, 0, kMissing});
  terms.AddItm({32, "cross", 10, 20, 0, kMissing});
  terms.AddItm({33, "cube", 20, 20, 20, kMissing});
  ASSERT_EQ(AppendExpanded(terms, columns.matrix, columns.variables, columns.excluded), 0);
  EXPECT_EQ(columns.Content(), (Values{{2, 3, 4, 6, 27},
                                       {kMissing, 4, kMissing, kMissing, 64},
                                       {1e20f, 5, kMissing, 5e20f, 125}}));
  EXPECT_EQ(columns.excluded[2], 0);
  EXPECT_EQ(columns.excluded[3], 1);
  EXPECT_STREQ(columns.variables.GetVNam(5), "cube");
}

TEST(Columns, RefusalsChangeNothing) {
  Columns columns({{2, 3}, {4, 5}});
  const Values before = columns.Content();
  XFMatrix& matrix = columns.matrix;
  VarInfo& variables = columns.variables;
  LagInfo lags("Lag");
  lags.AddItm({31, "001a", 10, 1, 1.0f, 0});
  lags.AddItm({32, "001c", 30, 1, 1.0f, 0});
  EXPECT_EQ(AppendLagged(lags, matrix, variables), 8032);
  TraInfo transformations("Tra");
  transformations.AddItm({10, "a", ETraType::kLinear, 2, 0, 0});
  XI1Vector too_short("Excluded", 1, kNotSelected);
  EXPECT_EQ(TransformColumns(transformations, variables, matrix, too_short), 8021);
  transformations.AddItm({30, "c", ETraType::kLinear, 2, 0, 0});
  EXPECT_EQ(TransformColumns(transformations, variables, matrix, columns.excluded), 8015);
  ExpInfo terms("Exp");
  terms.AddItm({31, "none", 0, 0, 0, kMissing});
  EXPECT_EQ(AppendExpanded(terms, matrix, variables, columns.excluded), 8032);
  EXPECT_EQ(columns.Content(), before);
  EXPECT_EQ(variables.GetNVar(), 2);
  variables.AddVar(30, "without column");
  EXPECT_EQ(AppendLagged(lags, matrix, variables), 8021);
}

}  // namespace
}  // namespace zemva
