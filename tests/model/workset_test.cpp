#include "model/workset/workset.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include "model/small_dataset.h"
#include "numeric/missing.h"
#include "support/recording_window.h"

namespace zemva {
namespace {

using test::RowsOf;
using test::SmallDataset;
using enum EModType;

constexpr float kM = kMissing;

template <typename T>
std::unique_ptr<T> Own(T* object) {
  return std::unique_ptr<T>(object);
}

// The names in a table without gaps between them, "-" where there is no table.
std::string Names(const std::unique_ptr<VarInfo>& table) {
  std::string names = table == nullptr ? "-" : "";
  for (short j = 1; table != nullptr && j <= table->GetNVar(); ++j) names += table->GetVNam(j);
  return names;
}
std::string Names(const std::unique_ptr<ObsInfo>& table) {
  std::string names = table == nullptr ? "-" : "";
  for (short i = 1; table != nullptr && i <= table->GetNItm(); ++i) names += table->GetONam(i);
  return names;
}

TEST(Workset, EveryTypeOfModelTakesItsObservationsAndBlocks) {
  const auto dataset =
      SmallDataset("abcd", {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}});
  Workset workset("WS", *dataset, GlobalStreamWindow());
  workset.SetRole(workset.GetVIx("c"), EVarRole::kY);
  workset.SetRole(workset.GetVIx(short{400}), EVarRole::kExcluded);
  workset.SetIsObsIn(workset.GetOIx("o4"), false);
  workset.SetOClass(1, 7);
  workset.SetOClass(3, 2);
  workset.SetOClass(4, 7);
  const struct {
    EModType type;
    const char *observations, *x, *y;
    test::Rows x_rows, y_rows;
  } cases[] = {
      {kPC1, "o1o2o3", "ab", "-", {{1, 2}, {5, 6}, {9, 10}}, {}},
      {kNoVarianceCheck, "o1o2o3", "ab", "-", {{1, 2}, {5, 6}, {9, 10}}, {}},
      {kPC2, "o1o2o3", "c", "-", {{3}, {7}, {11}}, {}},
      {kPCAll, "o1o2o3", "abc", "-", {{1, 2, 3}, {5, 6, 7}, {9, 10, 11}}, {}},
      {kPC1Cl, "o1", "ab", "-", {{1, 2}}, {}},
      {kPLS12, "o1o2o3", "ab", "c", {{1, 2}, {5, 6}, {9, 10}}, {{3}, {7}, {11}}},
      {kPLS21, "o1o2o3", "c", "ab", {{3}, {7}, {11}}, {{1, 2}, {5, 6}, {9, 10}}},
      {kPLS1DA, "o1o3", "ab", "Class2Class7", {{1, 2}, {9, 10}}, {{0, 1}, {1, 0}}},
      {kPLS1DAOld, "o1o3", "ab", "Class2Class7", {{1, 2}, {9, 10}}, {{0, 1}, {1, 0}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.type));
    EXPECT_EQ(Names(Own(workset.ExtObsInfo(c.type, 7))), c.observations);
    EXPECT_EQ(Names(Own(workset.ExtVarInfo(c.type, EBlock::kX, 7))), c.x);
    EXPECT_EQ(RowsOf(*Own(workset.ExtMatrix(c.type, EBlock::kX, 7))), c.x_rows);
    EXPECT_EQ(Names(Own(workset.ExtVarInfo(c.type, EBlock::kY, 7))), c.y);
    EXPECT_EQ(workset.GetStatus(), c.y_rows.empty() ? 8013 : 0);
    const auto y = Own(workset.ExtMatrix(c.type, EBlock::kY, 7));
    EXPECT_EQ(y == nullptr ? test::Rows() : RowsOf(*y), c.y_rows);
  }
}

TEST(Workset, WeightsAreThoseOfTheColumnsTaken) {
  // Over the first three: 1, 3, 5 has s = 2; 2, 2, 2 has none.
  const auto dataset = SmallDataset("ab", {{1, 2}, {3, 2}, {5, 2}, {90, 3}});
  Workset workset("WS", *dataset, GlobalStreamWindow());
  workset.SetIsObsIn(4, false);
  const auto scalings = Own(workset.ExtScaInfo(kPC1, EBlock::kX, 0));
  EXPECT_EQ(scalings->GetItm(1)->GetWeig(), 0.5f);
  EXPECT_EQ(scalings->GetItm(2)->GetWeig(), kM);
  EXPECT_TRUE(scalings->IsAnyVarCtd());
}

TEST(Workset, WhatIsNoNumberIsMissingAndToldOnce) {
  test::RecordingWindow window;
  const float infinity = std::numeric_limits<float>::infinity();
  const auto dataset = SmallDataset("ab", {{1, std::nanf("")}, {-infinity, kM}, {2, 3}});
  Workset workset("WS", *dataset, window);
  Own(workset.ExtScaInfo(kPC1, EBlock::kX, 0));
  const auto matrix = Own(workset.ExtMatrix(kPC1, EBlock::kX, 0));
  EXPECT_EQ(RowsOf(*matrix), (test::Rows{{1, kM}, {kM, kM}, {2, 3}}));
  EXPECT_EQ(matrix->NValA(), 3);
  EXPECT_EQ(window.log, "2 value(s) that are not finite numbers are taken as missing.\n");
}

}  // namespace
}  // namespace zemva
