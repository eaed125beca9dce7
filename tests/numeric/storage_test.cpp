#include <gtest/gtest.h>

#include <vector>

#include "numeric/x_matrix.h"
#include "numeric/x_vector.h"
#include "support/recording_window.h"

namespace zemva {
namespace {

std::vector<float> ElementsOf(const FMatrix& matrix) {
  std::vector<float> elements;
  for (int i = 1; i <= matrix.NRow(); ++i) {
    elements.insert(elements.end(), matrix.Row(i).begin(), matrix.Row(i).end());
  }
  return elements;
}

XFMatrix Numbered(int row_count, int column_count) {
  XFMatrix matrix("M", row_count, column_count, 0.0f);
  for (int i = 1; i <= row_count; ++i) {
    for (int j = 1; j <= column_count; ++j) matrix[i][j] = static_cast<float>(10 * i + j);
  }
  matrix.SetActValInfo();
  return matrix;
}

TEST(XFMatrix, CountsWhatIsMissingByRowAndColumn) {
  XFMatrix matrix = Numbered(3, 2);
  matrix[2][1] = kMissing;
  matrix[2][2] = kMissing;
  matrix[3][1] = kMissing;
  matrix.SetActValInfo();
  EXPECT_EQ(matrix.NValA(), 3);
  EXPECT_EQ(matrix.NValARow(2), 0);
  EXPECT_EQ(matrix.NValARow(3), 1);
  EXPECT_EQ(matrix.NValACol(1), 1);
  EXPECT_EQ(matrix.NValACol(2), 2);
}

TEST(XFMatrix, KeepsRowsAndColumnsFlaggedOne) {
  XFMatrix matrix = Numbered(3, 3);
  XI1Vector keep("keep", 3, char{1});
  EXPECT_EQ(matrix.DelRows(&keep), 0);
  EXPECT_EQ(matrix.NRow(), 3);
  keep[2] = 2;
  EXPECT_EQ(matrix.DelRows(&keep), 0);
  EXPECT_EQ(matrix.DelRows(&keep), 5004) << "three flags, two rows";
  EXPECT_EQ(matrix.DelCols(&keep), 0);
  EXPECT_EQ(ElementsOf(matrix), (std::vector<float>{11, 13, 31, 33}));
  EXPECT_EQ(matrix.ExpCols(1, kMissing), 0);
  EXPECT_EQ(matrix.ExpRows(1, 7), 0);
  EXPECT_EQ(ElementsOf(matrix), (std::vector<float>{11, 13, -99, 31, 33, -99, 7, 7, 7}));
  EXPECT_EQ(matrix.NValA(), 7);
  EXPECT_EQ(matrix.NValACol(3), 1);
  EXPECT_EQ(matrix[0], nullptr);
  EXPECT_EQ(matrix.GetMatPtr()[1][0], kMissing);
}

}  // namespace
}  // namespace zemva
