#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <utility>

#include "numeric/matrices.h"

namespace zemva {
namespace {

using test::CellsOf;
using test::ElementsOf;
using test::MatrixOf;
using test::VectorOf;
using Floats = std::vector<float>;

std::unique_ptr<XFVector> Owned(XFVector* vector) {
  return std::unique_ptr<XFVector>(vector);
}

TEST(XFMatrix, StatisticsOfColumnsAndRows) {
  const XFMatrix matrix = MatrixOf(3, {1, 8, kMissing, 3, kMissing, kMissing, 5, -2, kMissing});
  const struct {
    XFVector* result;
    Floats expected;
  } cases[] = {
      {matrix.Avg("s"), {3, 3, kMissing}},
      {matrix.SSCol("s"), {35, 68, 0}},
      {matrix.SSRow("s"), {65, 9, 29}},
      {matrix.MinCol("s"), {1, -2, kMissing}},
      {matrix.MaxCol("s"), {5, 8, kMissing}},
      {matrix.ExtCol("s", 2), {8, kMissing, -2}},
      {matrix.ExtRow("s", 2), {3, kMissing, kMissing}},
      {matrix.S2Col("s", 0, 0, 1), {35.0f / 3, 34, 0}},
      {matrix.S2Row("s", kMissing, 1, 1), {24.5f, 0, 24.5f}},
      {matrix.S2Row("s", 2, 0, 1), {18.5f, 1, 12.5f}},
  };
  for (const auto& c : cases) {
    const auto result = Owned(c.result);
    EXPECT_EQ(ElementsOf(*result), c.expected);
    EXPECT_STREQ(result->GetName(), "s");
    EXPECT_EQ(result->NValA(), result->FVector::NValA());
  }
  const auto variances = Owned(matrix.S2Col("s", kMissing, 1, 1));
  EXPECT_EQ((*variances)[1], 4.0f);
  EXPECT_TRUE(std::isnan((*variances)[3])) << "no value: 0 / 0";
  EXPECT_EQ(matrix.ExtCol("s", 4), nullptr);
  EXPECT_EQ(matrix.GetStatus(), 5004);
  const float infinity = std::numeric_limits<float>::infinity();
  const XFMatrix infinite = MatrixOf(2, {kMissing, kMissing, -infinity, kMissing});
  const std::unique_ptr<FVector> plain(infinite.MaxCol());
  EXPECT_EQ(ElementsOf(*plain), (Floats{-infinity, kMissing}));
}

// The sums of a column are those of the column taken as a vector, whichever way they are reached.
TEST(XFMatrix, ColumnsOfTallAndWideMatricesAgreeWithVectors) {
  for (const auto& [rows, columns] : {std::pair(1000, 3), {7, 261}, {32767, 2}, {1, 1}}) {
    const XFMatrix matrix = test::RandomMatrix(rows, columns, 0.2);
    const auto means = Owned(matrix.Avg("a"));
    const auto squares = Owned(matrix.SSCol("a"));
    const auto variances = Owned(matrix.S2Col("a", 0.5f, 1, 1));
    const auto minima = Owned(matrix.MinCol("a"));
    for (int j = 1; j <= columns; ++j) {
      const auto column = Owned(matrix.ExtCol("c", j));
      EXPECT_EQ(matrix.NValACol(j), column->NValA());
      EXPECT_FLOAT_EQ((*means)[j], column->Avg());
      EXPECT_FLOAT_EQ((*squares)[j], static_cast<float>(column->SS()));
      EXPECT_NEAR((*variances)[j], column->S2(0.5f, 1, 1), 1e-5);
      EXPECT_EQ((*minima)[j], column->Min());
    }
  }
}

TEST(XFMatrix, AutoscaleGivesUnitVarianceAboutTheCentre) {
  XFMatrix matrix = test::RandomMatrix(200, 40, 0.1);
  for (int i = 1; i <= 200; ++i) {
    matrix[i][1] = 7;                      // constant
    matrix[i][2] = i == 5 ? 3 : kMissing;  // a single value
    matrix[i][4] = i == 5 || i == 9 ? static_cast<float>(i) : kMissing;
    matrix[i][3] = i % 2 == 0 ? 1e6f : 1e6f + 2;  // deviations far smaller than the mean
  }
  matrix.SetActValInfo();
  const auto centre = Owned(matrix.Avg("mean"));
  const auto expected = Owned(matrix.Autoweig("w", centre.get()));
  const auto weights = Owned(matrix.Autoscale(centre.get()));
  EXPECT_EQ(ElementsOf(*weights), ElementsOf(*expected));
  EXPECT_STREQ(weights->GetName(), "Weig");
  EXPECT_EQ((*weights)[1], kMissing);
  EXPECT_EQ((*weights)[2], kMissing);
  EXPECT_NEAR((*weights)[3], std::sqrt(199.0 / 200.0), 1e-7);
  EXPECT_EQ(weights->NValA(), 38);
  EXPECT_EQ(matrix.NValACol(1), 0);
  const auto means = Owned(matrix.Avg("mean"));
  const auto variances = Owned(matrix.S2Col("s2", kMissing, 1, 1));
  for (int j = 3; j <= 40; ++j) {
    EXPECT_NEAR((*means)[j], 0.0, 1e-6);
    EXPECT_NEAR((*variances)[j], 1.0, 1e-6);
  }
  const XFVector wrong("wrong", 39, 0.0f);
  EXPECT_EQ(matrix.Autoscale(&wrong), nullptr);
  EXPECT_EQ(matrix.GetStatus(), 5004);
  EXPECT_EQ(matrix.Autoweig("w", nullptr), nullptr);
}

TEST(XFMatrix, ArithmeticWithVectors) {
  XFMatrix matrix = MatrixOf(2, {1, 2, kMissing, 4, 5, 6});
  const XFVector columns = VectorOf({10, 20});
  const XFVector rows = VectorOf({1, kMissing, 3});
  EXPECT_EQ(matrix.MSubVp(&rows), 5004);
  EXPECT_EQ(matrix.Addcomp(&columns, &columns), 5004);
  EXPECT_EQ(matrix.Subcomp(&rows, &rows), 5004);
  EXPECT_EQ(matrix.Addcomp(nullptr, &columns), 5007);
  EXPECT_EQ(matrix.Addcomp(&rows, nullptr), 5007);
  EXPECT_EQ(matrix.MDotMulVp(nullptr), 5007);
  EXPECT_EQ(CellsOf(matrix), (Floats{1, 2, -99, 4, 5, 6}));
  EXPECT_EQ(matrix.MSubVp(&columns), 0);
  EXPECT_EQ(CellsOf(matrix), (Floats{-9, -18, -99, -16, -5, -14}));
  EXPECT_EQ(matrix.Addcomp(&rows, &columns), 0);
  EXPECT_EQ(CellsOf(matrix), (Floats{1, 2, -99, -16, 25, 46}));
  EXPECT_EQ(matrix.Subcomp(&rows, &columns), 0);
  EXPECT_EQ(matrix.MDotMulVp(&columns), 0);
  EXPECT_EQ(CellsOf(matrix), (Floats{-90, -360, -99, -320, -50, -280}));
  const XFVector unknown = VectorOf({kMissing, 1});
  EXPECT_EQ(matrix.MDotMulVp(&unknown), 0);
  EXPECT_EQ(CellsOf(matrix), (Floats{-99, -360, -99, -320, -99, -280}));
  EXPECT_EQ(matrix.NValA(), 3);
}

TEST(XFMatrix, WithoutRowsOrColumns) {
  for (const auto& [rows, columns] : {std::pair(0, 0), {0, 3}, {3, 0}}) {
    XFMatrix matrix("E", rows, columns, 0.0f);
    matrix.SetActValInfo();
    EXPECT_EQ(matrix.NValA(), 0);
    EXPECT_EQ(Owned(matrix.Avg("a"))->NVal(), columns);
    EXPECT_EQ(Owned(matrix.SSRow("a"))->NVal(), rows);
    const XFVector centre("c", columns, 0.0f);
    EXPECT_EQ(Owned(matrix.Autoscale(&centre))->NValA(), 0);
    EXPECT_EQ(matrix.ExpRows(2, 1.0f), 0);
    EXPECT_EQ(matrix.NValA(), (rows + 2) * columns - rows * columns);
  }
}

}  // namespace
}  // namespace zemva
