#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "numeric/matrices.h"
#include "zemva/numeric/d_matrix.h"

namespace zemva {
namespace {

using test::CellsOf;
using test::ElementsOf;
using test::MatrixOf;
using Floats = std::vector<float>;

TEST(XFMatrix, KeepsCountsInStepWithItsShape) {
  XFMatrix matrix = MatrixOf(3, {11, 12, 13, 21, 22, 23, 31, 32, 33});
  XI1Vector keep("keep", 3, char{1});
  EXPECT_EQ(matrix.DelRows(&keep), 0);
  EXPECT_EQ(matrix.NRow(), 3);
  keep[2] = 2;
  EXPECT_EQ(matrix.DelRows(&keep), 0);
  EXPECT_EQ(matrix.DelRows(&keep), 5004) << "three flags, two rows";
  EXPECT_EQ(matrix.DelRows(nullptr), 5007);
  EXPECT_EQ(matrix.DelCols(&keep), 0);
  EXPECT_EQ(CellsOf(matrix), (Floats{11, 13, 31, 33}));
  EXPECT_EQ(matrix.ExpRows(-1, 7), 5004);
  EXPECT_EQ(matrix.SwapCol(2, 3), 5004);
  EXPECT_EQ(matrix.SwapCol(1, 2), 0);
  EXPECT_EQ(matrix.SwapRow(1, 2), 0);
  EXPECT_EQ(CellsOf(matrix), (Floats{33, 31, 13, 11}));
  EXPECT_EQ(matrix.DelRows(2, 1), 5004);
  EXPECT_EQ(matrix.DelRows(1, 3), 5004);
  EXPECT_EQ(matrix.DelRows(1, 1), 0);
  EXPECT_EQ(CellsOf(matrix), (Floats{13, 11}));
  EXPECT_EQ(matrix[0], nullptr);
  EXPECT_EQ(matrix[1][0], kMissing);
}

TEST(XFMatrix, CountsAnewWhatWasChangedThroughItsBase) {
  XFMatrix matrix = MatrixOf(3, {11, kMissing, 13});
  FMatrix& base = matrix;
  EXPECT_EQ(base.Transp(), 0);
  EXPECT_EQ(matrix.NValARow(2), 0) << "not counted yet";
  const XFMatrix copy(matrix);
  EXPECT_EQ(copy.NValARow(3), 0);
  XFMatrix sized("sized", 1, 1, 0.0f);
  static_cast<FMatrix&>(sized) = matrix;
  EXPECT_EQ(sized.Copy(&matrix), 0);
  for (XFMatrix* each : {&matrix, &sized}) {
    EXPECT_EQ(each->SetActValInfo(), 0);
    EXPECT_EQ(each->NValACol(1), 2);
    EXPECT_EQ(each->NValARow(3), 1);
    EXPECT_EQ(each->NValARow(4), 0);
  }
}

TEST(XFMatrix, HasNoMoreRowsThanItCounts) {
  constexpr int kMost = 32767;
  EXPECT_EQ(XFMatrix("M", kMost + 1, 0, 0.0f).GetStatus(), 5004);
  EXPECT_EQ(XFMatrix("M", 0, kMost + 1, Unfilled{}).GetStatus(), 5004);
  XFMatrix matrix("M", kMost, 1, 1.0f);
  EXPECT_EQ(matrix.SetActValInfo(), 0);
  EXPECT_EQ(matrix.NValACol(1), kMost);
  EXPECT_EQ(matrix.ExpRows(1, 0), 5004);
  EXPECT_EQ(matrix.ExpCols(kMost, 0), 5004);
  EXPECT_EQ(matrix.NRow(), kMost);
  FMatrix& base = matrix;
  base = FMatrix(kMost + 1, 1, 0.0f);
  EXPECT_EQ(matrix.SetActValInfo(), 5004);
  EXPECT_EQ(XFMatrix(matrix).GetStatus(), 5004);
}

TEST(FMatrix, ExtractsByFlagAndByPosition) {
  const XFMatrix matrix = MatrixOf(3, {11, 12, 13, 21, 22, 23});
  I1Vector flags(3, 5);
  flags[2] = 0;
  I2Vector positions(3, 3);
  positions[2] = 1;
  const auto cells = [](FMatrix* extracted) {
    const std::unique_ptr<FMatrix> owned(extracted);
    return owned ? CellsOf(*owned) : Floats{};
  };
  EXPECT_EQ(cells(matrix.ExtCols(&flags, 5)), (Floats{11, 13, 21, 23}));
  EXPECT_EQ(cells(matrix.ExtCols(&positions)), (Floats{13, 11, 13, 23, 21, 23}));
  EXPECT_EQ(matrix.GetStatus(), 0);
  EXPECT_EQ(matrix.ExtRows(&flags, 5), nullptr);
  EXPECT_EQ(matrix.GetStatus(), 5004);
  EXPECT_EQ(matrix.ExtRows(&positions), nullptr);
  EXPECT_EQ(matrix.ExtRows(nullptr), nullptr);
  EXPECT_EQ(matrix.GetStatus(), 5007);
  I2Vector rows(1, 2);
  EXPECT_EQ(cells(matrix.ExtRows(&rows)), (Floats{21, 22, 23}));
}

TEST(Copying, IsDeepAndTakesAllOfIt) {
  XFMatrix matrix = MatrixOf(2, {1, kMissing, 3, 4});
  XFMatrix copy(matrix);
  const XFMatrix from_pointer(&matrix);
  XFMatrix assigned("other", 5, 1, 0.0f);
  assigned = matrix;
  matrix[1][1] = 0;
  matrix.SetName("changed");
  for (const XFMatrix* each : {&std::as_const(copy), &from_pointer, &std::as_const(assigned)}) {
    EXPECT_EQ(CellsOf(*each), (Floats{1, -99, 3, 4}));
    EXPECT_STREQ(each->GetName(), "M");
    EXPECT_EQ(each->NValACol(2), 1);
  }
  EXPECT_EQ(copy.Copy(&matrix), 0);
  EXPECT_STREQ(copy.GetName(), "changed");
  EXPECT_EQ(copy[1][1], 0.0f);
  const XFMatrix wide("wide", 2, 3, 0.0f);
  EXPECT_EQ(copy.Copy(&wide), 5004);
  EXPECT_EQ(copy.Copy(nullptr), 5007);
  EXPECT_EQ(copy.GetStatus(), 5007);
  copy.ClearStatus();
  EXPECT_EQ(copy.GetStatus(), 0);
  EXPECT_EQ(copy.GetPtr(), &copy);
}

TEST(Vectors, GrowAndKeepCount) {
  XFVector vector(std::string(300, 'n').c_str(), 2, kMissing);
  EXPECT_EQ(std::string(vector.GetName()).size(), 300u);
  EXPECT_EQ(vector.NValA(), 0);
  EXPECT_EQ(vector.Exp(2, 5.0f), 0);
  EXPECT_EQ(ElementsOf(vector), (Floats{-99, -99, 5, 5}));
  EXPECT_EQ(vector.NValA(), 2);
  EXPECT_EQ(vector[0], kMissing);
  EXPECT_EQ(vector.Exp(-1, 5.0f), 5004);
  EXPECT_EQ(vector.GetElement(5), kMissing);

  const char values[] = {0, 1, 2, 3};
  XI1Vector flags("flags", 3, values);
  EXPECT_EQ(ElementsOf(flags), (std::vector<char>{1, 2, 3}));
  EXPECT_EQ(flags.NValA(), 3);
  EXPECT_EQ(flags.GetNEqual(2), 1);
  EXPECT_EQ(flags.GetNNotEqual(2), 2);

  XSVector names("names", 1, 4);
  EXPECT_STREQ(names[1], "");
  EXPECT_EQ(names.Exp(1, "longer"), 0);
  EXPECT_EQ(names.NVal(), 2);
  EXPECT_STREQ(names[2], "long");
  EXPECT_EQ(names.SetElement(3, "x"), 5004);
  EXPECT_EQ(names.GetElement(0), nullptr);

  I2Vector unsorted(4, 7);
  unsorted[2] = -3;
  unsorted[4] = 0;
  unsorted.SortAsc();
  EXPECT_EQ(ElementsOf(unsorted), (std::vector<short>{-3, 0, 7, 7}));
}

// The rows fill several slabs, and edits at both ends meet the room that earlier ones left.
TEST(XFMatrix, IsWhatAPlainTableIsAfterAnyEdits) {
  std::mt19937 random(1);
  XFMatrix matrix = test::RandomMatrix(900, 1500, 0.1);
  using Rows = std::vector<Floats>;
  Rows plain;
  for (int i = 1; i <= matrix.NRow(); ++i) {
    plain.emplace_back(matrix.Row(i).begin(), matrix.Row(i).end());
  }
  const auto transpose = [&] {
    Rows transposed(plain[0].size(), Floats(plain.size()));
    for (std::size_t i = 0; i < plain.size(); ++i) {
      for (std::size_t j = 0; j < plain[i].size(); ++j) transposed[j][i] = plain[i][j];
    }
    plain = std::move(transposed);
  };
  for (int edit = 0; edit < 200; ++edit) {
    const int rows = matrix.NRow();
    const int columns = matrix.NCol();
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const int first = below(2) == 0 ? below(5) : below(rows - 5);
    const auto more = static_cast<std::size_t>(edit % 7);
    switch (edit % 40 == 0 ? 4 : below(4)) {
      case 0:
        matrix.ExpRows(edit % 7, kMissing);
        plain.resize(plain.size() + more, Floats(plain[0].size(), kMissing));
        break;
      case 1:
        matrix.ExpCols(edit % 7, 2.0f);
        for (auto& row : plain) row.insert(row.end(), more, 2.0f);
        break;
      case 2:
        matrix.DelRows(first + 1, first + 5);
        plain.erase(plain.begin() + first, plain.begin() + first + 5);
        break;
      case 3: {
        XI1Vector keep("keep", columns, char{1});
        const int column = below(columns);
        keep[column + 1] = 0;
        matrix.DelCols(&keep);
        for (auto& row : plain) row.erase(row.begin() + column);
        break;
      }
      default:
        matrix.Transp();
        transpose();
    }
  }
  ASSERT_EQ(static_cast<std::size_t>(matrix.NRow()), plain.size());
  const auto count_present = [](const Floats& cells) {
    return std::ssize(cells) - std::ranges::count(cells, kMissing);
  };
  std::ptrdiff_t present = 0;
  for (int i = 1; i <= matrix.NRow(); ++i) {
    const Floats& row = plain[static_cast<std::size_t>(i - 1)];
    ASSERT_TRUE(std::ranges::equal(matrix.Row(i), row)) << i;
    EXPECT_EQ(matrix.NValARow(i), count_present(row));
    present += count_present(row);
  }
  EXPECT_EQ(matrix.NValA(), present);
  transpose();
  for (int j = 1; j <= matrix.NCol(); ++j) {
    EXPECT_EQ(matrix.NValACol(j), count_present(plain[static_cast<std::size_t>(j - 1)]));
  }
  EXPECT_EQ(matrix.GetMatPtr()[0], nullptr);
}

TEST(Construction, OfNothingFromNothing) {
  EXPECT_EQ(FVector(-1, 0.0f, true).GetStatus(), 5004);
  EXPECT_EQ(FMatrix(2, -1, 0.0f, true).GetStatus(), 5004);
  EXPECT_EQ(XFMatrix("M", nullptr, 2, 2).GetStatus(), 5007);
  EXPECT_EQ(XI1Vector("v", 2, nullptr).GetStatus(), 5007);
  EXPECT_EQ(XI1Vector("v", 2, nullptr).NVal(), 0);
  EXPECT_EQ(XFVector(static_cast<const XFVector*>(nullptr)).GetStatus(), 5007);
  EXPECT_EQ(DMatrix(static_cast<const FMatrix*>(nullptr)).GetStatus(), 5007);
  EXPECT_EQ(DMatrix(static_cast<const DVector*>(nullptr)).GetStatus(), 5007);
  EXPECT_EQ(FMatrix(static_cast<const FVector*>(nullptr)).GetStatus(), 5007);
  const FVector empty(0, 1.0f, true);
  EXPECT_EQ(FMatrix(&empty).GetStatus(), 0);
  EXPECT_STREQ(XFVector(nullptr, 0, 0.0f).GetName(), "");
  const DVector column(2, 0.5);
  EXPECT_EQ(DMatrix(&column).GetElement(2, 1), 0.5);
  EXPECT_EQ(XFMatrix("M", 2, 3, kMissing).NValA(), 0);
  EXPECT_EQ(XFMatrix("M", 2, 3, 1.0f).NValA(), 6);
  XFMatrix rows = MatrixOf(2, {1, 2, 3, kMissing});
  EXPECT_EQ(XFMatrix("copy", rows.GetMatPtr(), 2, 2).NValA(), 3);
}

}  // namespace
}  // namespace zemva
