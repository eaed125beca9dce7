#include "zemva/model/workset/workset.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <string>

#include "model/small_dataset.h"
#include "support/recording_window.h"
#include "zemva/data/dangerous_data_set_manipulator.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

using test::Own;
using test::RowsOf;
using test::SmallDataset;
using enum EModType;

constexpr float kM = kMissing;

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
  // Before a model takes columns there is nothing to warn of.
  for (const bool is_from_data : {false, true}) {
    test::RecordingWindow window;
    ScaInfo table = is_from_data ? *scalings : workset.GetScalings();
    table.SetCenter(false);
    table.ShowAll(window);
    EXPECT_EQ(window.log.find("WARNING: 1 ") != std::string::npos, is_from_data);
  }
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

TEST(Workset, AddedVariablesAreMadeInOrderAndGoAgain) {
  const auto dataset = SmallDataset("ab", {{1, 4}, {2, 5}, {3, 6}});
  Workset workset("WS", *dataset, GlobalStreamWindow());
  EXPECT_EQ(workset.AddLagged(1, 2), 0);
  EXPECT_EQ(workset.AddTerm(2, 3), 0);
  EXPECT_EQ(workset.SetRole(4, EVarRole::kY), 0);
  EXPECT_EQ(workset.AddLagged(2, 1, "A name of more than twenty-five"), 0);
  const short numbers[] = {100, 200, 201, 203, 202};
  for (short j = 1; j <= 5; ++j) EXPECT_EQ(workset.GetVNum(j), numbers[j - 1]);
  EXPECT_EQ(Names(Own(workset.ExtVarInfo(kPLS12, EBlock::kX, 0))),
            "ab002aA name of more than twent");
  EXPECT_EQ(Names(Own(workset.ExtVarInfo(kPLS12, EBlock::kY, 0))), "X200X201");
  EXPECT_EQ(RowsOf(*Own(workset.ExtMatrix(kPCAll, EBlock::kX, 0))),
            (test::Rows{{1, 4, kM, kM, kM}, {2, 5, kM, 4, kM}, {3, 6, 1, 5, 6}}));
  EXPECT_EQ(Own(workset.ExtLagInfo(kPLS12, EBlock::kX, 0))->GetNItm(), 2);
  EXPECT_EQ(workset.ExtExpInfo(kPLS12, EBlock::kX, 0), nullptr);
  EXPECT_EQ(workset.GetStatus(), 0);
  EXPECT_EQ(Own(workset.ExtExpInfo(kPLS12, EBlock::kY, 0))->GetItm(1)->GetVNum2(), 201);

  EXPECT_EQ(workset.SetTransformation(3, ETraType::kLinear, 2, 0, 0), 0);
  EXPECT_EQ(workset.DelAdded(3), 8035);
  EXPECT_EQ(workset.DelAdded(5), 0);
  EXPECT_EQ(workset.GetTransformations().GetNItm(), 1);
  EXPECT_EQ(workset.DelAdded(3), 0);
  EXPECT_EQ(workset.GetTransformations().GetNItm(), 0);
  EXPECT_EQ(workset.AddTerm(1, 1, 1), 0);
  EXPECT_EQ(workset.GetScalings().GetNItm(), workset.GetNVar());
  EXPECT_EQ(RowsOf(*Own(workset.ExtMatrix(kPC1, EBlock::kX, 0))),
            (test::Rows{{1, 4, kM, 1}, {2, 5, 4, 8}, {3, 6, 5, 27}}));
}

TEST(Workset, RefusedChangesChangeNothing) {
  const auto dataset = SmallDataset("abc", {{1, 4, 7}, {2, 5, 7}, {3, 6, 7}});
  Workset ws("WS", *dataset, GlobalStreamWindow());
  ws.AddLagged(1, 1);
  ws.AddTerm(4, 2);  // the fifth variable
  const float infinity = std::numeric_limits<float>::infinity();
  const auto bad_type = static_cast<EScaType>(99);
  const struct {
    int status;
    std::function<int()> change;
  } cases[] = {
      {8032, [&] { return ws.AddLagged(0, 1); }},
      {8032, [&] { return ws.AddLagged(4, 1); }},
      {8021, [&] { return ws.AddLagged(1, 0); }},
      {8055, [&] { return ws.AddLagged(1, 1); }},
      {8055, [&] { return ws.AddLagged(2, 1, "c"); }},
      {8032, [&] { return ws.AddTerm(0, 1); }},
      {8032, [&] { return ws.AddTerm(1, 5); }},
      {8032, [&] { return ws.AddTerm(1, 2, -1); }},
      {8055, [&] { return ws.AddTerm(4, 2); }},
      {8015, [&] { return ws.DelAdded(3); }},
      {8015, [&] { return ws.DelAdded(6); }},
      {8035, [&] { return ws.DelAdded(4); }},
      {8015, [&] { return ws.SetRole(0, EVarRole::kY); }},
      {8015, [&] { return ws.SetRole(6, EVarRole::kY); }},
      {8021, [&] { return ws.SetRole(1, static_cast<EVarRole>(3)); }},
      {8037, [&] { return ws.SetIsObsIn(0, false); }},
      {8037, [&] { return ws.SetIsObsIn(4, false); }},
      {8037, [&] { return ws.SetOClass(4, 1); }},
      {8021, [&] { return ws.SetOClass(1, -1); }},
      {8021, [&] { return ws.SetOClass(1, ClaInfo::kMaxClass + 1); }},
      {8015, [&] { return ws.SetScaling(0, EScaType::kUV); }},
      {8021, [&] { return ws.SetScaling(1, EScaType::kFW); }},
      {8021, [&] { return ws.SetScaling(1, bad_type); }},
      {8013, [&] { return ws.SetScaling(1, EScaType::kUV, infinity); }},
      {8013, [&] { return ws.SetScaling(1, EScaType::kUV, -1); }},
      {8038, [&] { return ws.SetScaling(3, EScaType::kFreeze); }},
      {8021, [&] { return ws.SetFixedWeight(1, EScaType::kUV, 1); }},
      {8013, [&] { return ws.SetFixedWeight(1, EScaType::kFW, std::nanf("")); }},
      {8013, [&] { return ws.SetFixedWeight(1, EScaType::kFW, kM); }},
      {8015, [&] { return ws.SetTransformation(6, ETraType::kLog, 1, 0, 0); }},
      {8021, [&] { return ws.SetTransformation(1, static_cast<ETraType>(7), 1, 0, 0); }},
      {8013, [&] { return ws.SetTransformation(1, ETraType::kLog, 1, kM, 0); }},
      {8045, [&] { return ws.SetTransformation(5, ETraType::kLog, 1, 0, 0); }},
      {8015, [&] { return ws.SetBlock(-1, 1, BlkInfo::kSquareRoot); }},
      {8021, [&] { return ws.SetBlock(1, 100, BlkInfo::kSquareRoot); }},
      {8050, [&] { return ws.SetBlock(1, 1, BlkInfo::kUndefined); }},
      {8013,
       [&] {
         return ws.ExcludeMissing({std::nanf(""), 50});
       }},
  };
  const auto before = RowsOf(*Own(ws.ExtMatrix(kPC1, EBlock::kX, 0)));
  for (const bool is_frozen : {false, true}) {
    ws.SetIsFrozen(is_frozen);
    for (const auto& c : cases) {
      SCOPED_TRACE(&c - cases);
      EXPECT_EQ(c.change(), is_frozen ? 8049 : c.status);
      EXPECT_EQ(ws.GetStatus(), is_frozen ? 8049 : c.status);
    }
  }
  EXPECT_EQ(RowsOf(*Own(ws.ExtMatrix(kPC1, EBlock::kX, 0))), before);
  EXPECT_EQ(ws.GetTransformations().GetNItm(), 0);
  EXPECT_EQ(ws.ExtBlkInfo(kPC1, EBlock::kX, 0), nullptr);
  for (short j = 1; j <= 5; ++j) {
    EXPECT_EQ(ws.GetScalings().GetItm(j)->GetScaType(), EScaType::kUV);
  }
}

TEST(Workset, FrozenAndFixedWeightsStayWhatTheyWere) {
  // 1, 3, 5 has s = 2 and so the weight 1/2; with 7 in place of 5 it would have another.
  const auto dataset = SmallDataset("ab", {{1, 1}, {3, 3}, {5, 5}, {7, 7}});
  Workset workset("WS", *dataset, GlobalStreamWindow());
  workset.SetIsObsIn(4, false);
  EXPECT_EQ(workset.SetScaling(1, EScaType::kUV, 3.0f), 0);
  EXPECT_EQ(workset.SetScaling(1, EScaType::kFreeze), 0);
  EXPECT_EQ(workset.SetFixedWeight(2, EScaType::kFWN, 0.25f), 0);
  workset.SetIsObsIn(4, true);
  workset.SetIsObsIn(3, false);
  const auto scalings = Own(workset.ExtScaInfo(kPC1, EBlock::kX, 0));
  EXPECT_EQ(scalings->GetItm(1)->GetScaType(), EScaType::kFW);
  EXPECT_EQ(scalings->GetItm(1)->GetWeig(), 1.5f);
  EXPECT_EQ(scalings->GetItm(2)->GetScaType(), EScaType::kFWN);
  EXPECT_EQ(scalings->GetItm(2)->GetWeig(), 0.25f);
  for (short i = 1; i <= 4; ++i) workset.SetIsObsIn(i, false);
  EXPECT_EQ(workset.SetScaling(2, EScaType::kFreeze), 8020);
}

TEST(Workset, TermsAreOfTransformedAndLagsOfRawValues) {
  test::RecordingWindow window;
  const auto dataset = SmallDataset("ab", {{10, 2}, {100, 3}, {-1, 4}});
  Workset workset("WS", *dataset, window);
  workset.SetTransformation(1, ETraType::kExp, 1, 0, 0);
  workset.SetTransformation(1, ETraType::kLog, 1, 0, 0);  // takes its place
  workset.AddLagged(1, 1);
  workset.AddTerm(1, 2);
  workset.SetTransformation(2, ETraType::kLinear, 1, 1, 0);
  workset.SetTransformation(2, ETraType::kNone, kM, kM, kM);
  EXPECT_EQ(RowsOf(*Own(workset.ExtMatrix(kPC1, EBlock::kX, 0))),
            (test::Rows{{1, 2, kM, 2}, {2, 3, 10, 6}, {kM, 4, 100, kM}}));
  EXPECT_EQ(window.log,
            "Observation 30 had value(s) excluded due to transformation domain error.\r\n");
  EXPECT_EQ(Own(workset.ExtTraInfo(kPC1, EBlock::kX, 0))->GetNItm(), 1);
}

TEST(Workset, BlocksScaleTheVariablesOfAModel) {
  const auto dataset = SmallDataset("abcde", {{1, 2, 3, 4, 5}, {2, 3, 4, 5, 7}});
  Workset workset("WS", *dataset, GlobalStreamWindow());
  workset.SetBlock(1, 9, BlkInfo::kFourthRoot);
  workset.SetBlock(2, 9, BlkInfo::kSquareRoot);
  workset.SetBlock(3, 9, BlkInfo::kSquareRoot);
  workset.SetBlock(4, 5, BlkInfo::kFourthRoot);  // alone in X
  workset.SetBlock(5, 5, BlkInfo::kFourthRoot);
  workset.SetRole(5, EVarRole::kY);
  workset.AddLagged(2, 1);
  EXPECT_EQ(workset.GetBlock(6), 9);
  const auto blocks = Own(workset.ExtBlkInfo(kPLS12, EBlock::kX, 0));
  ASSERT_NE(blocks, nullptr);
  XFVector weights("Weig", 5, 3.0f);
  weights[2] = kM;
  EXPECT_EQ(blocks->Transfer(&weights), 0);
  // One over the root of 4.
  const float expected[] = {1.5f, kM, 1.5f, 3, 1.5f};
  for (int v = 1; v <= 5; ++v) EXPECT_EQ(weights[v], expected[v - 1]);
  test::RecordingWindow window;
  blocks->ShowItm(1, window);
  EXPECT_NE(window.log.find("     1     9   Block9   1/sqrt       4       0.5\n"),
            std::string::npos);
  XFVector too_short("Weig", 4, 1.0f);
  EXPECT_EQ(blocks->Transfer(&too_short), 8021);
  EXPECT_EQ(blocks->Transfer(nullptr), 8022);
  // A variable in none, inserted behind the lagged one, that is made of it.
  blocks->AddVar(6);
  EXPECT_EQ(blocks->FixAddedVars(6, 4), 0);
  EXPECT_EQ(blocks->FixAddedVars(6, 5), 0);
  EXPECT_EQ(blocks->GetNVar(short{1}), 5);
  EXPECT_EQ(blocks->FixAddedVars(6, 5), 8023);
  EXPECT_EQ(blocks->FixAddedVars(7, 1), 8021);

  EXPECT_EQ(workset.ExtBlkInfo(kPLS12, EBlock::kY, 0), nullptr);
  workset.SetBlock(1, 0, BlkInfo::kUndefined);
  workset.SetBlock(3, 0, BlkInfo::kUndefined);
  EXPECT_EQ(workset.DelAdded(6), 0);
  EXPECT_EQ(workset.GetBlock(2), 0);
}

TEST(Workset, TablesRefuseWhatIsNotInTheWorkset) {
  const auto dataset = SmallDataset("ab", {{1, 2}, {2, 3}});
  const Workset workset("WS", *dataset, GlobalStreamWindow());
  const XI1Vector all("Selection", 2, 1);
  const XI1Vector too_many("Selection", 3, 1);
  LagInfo lags("LagInfo");
  const ExpInfo none("ExpInfo");
  BlkInfo blocks("BlkInfo", 1);
  EXPECT_EQ(blocks.SetBlkInfo(nullptr, 1, &lags, &none, &workset), 8022);
  EXPECT_EQ(blocks.SetBlkInfo(&all, 1, &lags, &none, static_cast<Workset*>(nullptr)), 8022);
  EXPECT_EQ(blocks.SetBlkInfo(&too_many, 1, &lags, &none, &workset), 8021);
  EXPECT_FALSE(blocks.IsModified());
  EXPECT_EQ(blocks.SetBlkInfo(&all, 1, &lags, &none, &workset), 0);
  EXPECT_TRUE(blocks.IsModified());
  lags.AddItm(LagData(200, "b", 100, 1, kM, 0));
  EXPECT_EQ(blocks.SetBlkInfo(&all, 1, &lags, &none, &workset), 8015);
  EXPECT_EQ(blocks.GetNVar(), 2);
  VarInfo variables("VarInfo");
  variables.AddVar(300, "c");
  ScaInfo scalings("ScaInfo");
  EXPECT_EQ(scalings.SetScaInfo(&variables, nullptr, &workset, true), 8022);
  EXPECT_EQ(scalings.SetScaInfo(&variables, nullptr, static_cast<Workset*>(nullptr), false), 8022);
  EXPECT_EQ(scalings.SetScaInfo(&variables, nullptr, &workset, false), 8015);
  EXPECT_EQ(scalings.GetNItm(), 0);
}

TEST(Workset, ScreeningTakesVariablesBeforeObservations) {
  test::RecordingWindow window;
  // Without variable b, which lacks three quarters, o1 has all and o2 lacks half of X.
  const auto dataset = SmallDataset(
      "abcd", {{1, kM, 1, 1}, {1, kM, kM, 1}, {1, 1, 1, std::nanf("")}, {1, kM, 1, 1}});
  Workset workset("WS", *dataset, window);
  workset.SetRole(4, EVarRole::kY);
  const std::string listing =
      "X variable 200, b has more than MaxMisVal% missing values ( 75.00%).\n"
      "X observation 20, o2 has more than MaxMisVal% missing values ( 50.00%).\n"
      "Y observation 30, o3 has more than MaxMisVal% missing values (100.00%).\n";
  const MissingLimits limits = {50, 49};
  workset.SetIsFrozen(true);
  EXPECT_EQ(workset.ShowMissing(limits), 0);
  workset.SetIsFrozen(false);
  EXPECT_EQ(window.log, listing);
  EXPECT_EQ(workset.GetNObs(), 4);
  EXPECT_EQ(workset.ExcludeMissing(limits), 0);
  EXPECT_EQ(window.log, listing + listing);
  EXPECT_EQ(Names(Own(workset.ExtObsInfo(kPLS12, 0))), "o1o4");
  EXPECT_EQ(Names(Own(workset.ExtVarInfo(kPLS12, EBlock::kX, 0))), "ac");
  EXPECT_EQ(workset.ExcludeMissing({0, 0}), 0);
  EXPECT_EQ(workset.GetNObs(), 2);
  for (short i = 1; i <= 4; ++i) workset.SetIsObsIn(i, false);
  EXPECT_EQ(workset.ShowMissing(limits), 8020);
}

TEST(Workset, NumbersOfAddedVariablesAreFreeOnes) {
  const auto dataset = SmallDataset("ab", {{1, 2}, {3, 4}});
  dataset->GetVIPtr()->SetVNum(1, 32767);
  dataset->GetVIPtr()->SetVNum(2, 1);
  Workset workset("WS", *dataset, GlobalStreamWindow());
  EXPECT_EQ(workset.AddLagged(1, 1), 0);
  EXPECT_EQ(workset.GetVNum(3), 2);

  test::RecordingWindow window;
  const auto full = SmallDataset(std::string(32766, 'v'), {std::vector<float>(32766, 1.0f)});
  Workset full_workset("WS", *full, window);
  EXPECT_EQ(window.log, "Variables have been renumbered starting with 1.\n");
  EXPECT_EQ(full_workset.AddLagged(32766, 32767), 0);
  EXPECT_EQ(full_workset.AddTerm(1, 2), 8021);
  EXPECT_EQ(full_workset.AddLagged(1, 2), 8021);
  EXPECT_EQ(Own(full_workset.ExtMatrix(kPC1, EBlock::kX, 0))->NCol(), 32767);
}

TEST(Workset, DataSetsThatChangeAreRefusedAndTablesCanBeAbsent) {
  const auto dataset = SmallDataset("ab", {{1, 2}, {3, 4}});
  DangerousDataSetManipulator::SetOI(dataset.get(), nullptr);
  DangerousDataSetManipulator::SetVI(dataset.get(), nullptr);
  Workset workset("WS", *dataset, GlobalStreamWindow());
  EXPECT_EQ(workset.AddLagged(2, 1), 0);
  EXPECT_STREQ(workset.GetVNam(3), "001");
  EXPECT_EQ(RowsOf(*Own(workset.ExtMatrix(kPC1, EBlock::kX, 0))),
            (test::Rows{{1, 2, kM}, {3, 4, 2}}));
  dataset->AddVar("new");
  EXPECT_EQ(workset.ExtMatrix(kPC1, EBlock::kX, 0), nullptr);
  EXPECT_EQ(workset.GetStatus(), 8046);
  EXPECT_EQ(workset.SetScaling(1, EScaType::kFreeze), 8046);
  EXPECT_EQ(workset.ExcludeMissing({50, 50}), 8046);
  dataset->Unload();
  EXPECT_EQ(workset.ExtScaInfo(kPC1, EBlock::kX, 0), nullptr);
  EXPECT_EQ(workset.GetStatus(), dataset->Load());
}

TEST(Workset, NoticesAnEditThatKeepsTheSize) {
  const auto dataset = SmallDataset("ab", {{1, 2}, {3, 4}});
  Workset workset("WS", *dataset, GlobalStreamWindow());
  dataset->DelVar(100);
  dataset->AddVar("c");
  EXPECT_EQ(workset.ExtMatrix(kPC1, EBlock::kX, 0), nullptr);
  EXPECT_EQ(workset.GetStatus(), 8046);
  const auto other = SmallDataset("ab", {{1, 2}, {3, 4}});
  Workset of_other("WS", *other, GlobalStreamWindow());
  other->SetObsNum(2, 77);
  EXPECT_EQ(of_other.ExtMatrix(kPC1, EBlock::kX, 0), nullptr);
  EXPECT_EQ(of_other.GetStatus(), 8046);
}

TEST(Workset, DoesNotTransformWhatIsThereForItsLagsAlone) {
  test::RecordingWindow window;
  const auto dataset = SmallDataset("ab", {{5, 1}, {-1, 2}, {3, 4}, {2, 2}});
  Workset workset("WS", *dataset, window);
  ASSERT_EQ(workset.AddLagged(1, 1), 0);
  ASSERT_EQ(workset.SetTransformation(1, ETraType::kLog, 1, 0, 0), 0);
  ASSERT_EQ(workset.SetRole(1, EVarRole::kExcluded), 0);
  const auto matrix = Own(workset.ExtMatrix(kPC1, EBlock::kX, 0));
  EXPECT_EQ(RowsOf(*matrix), (test::Rows{{1, kM}, {2, 5}, {4, -1}, {2, 3}}));
  EXPECT_EQ(window.log, "");
}

}  // namespace
}  // namespace zemva
