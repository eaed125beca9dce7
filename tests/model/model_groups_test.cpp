// What a model takes of the tables of a work set, and other tables take of a model.
#include <gtest/gtest.h>

#include <string>

#include "model/model_fixture.h"
#include "zemva/data/blk_info.h"
#include "zemva/data/cla_info.h"
#include "zemva/data/selection.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/sca_info.h"

namespace zemva {
namespace {

using test::Bench;

constexpr float kM = kMissing;

// Ten observations of four variables; a and c, with the term a * a, are a block.
struct Grouped : Bench {
  Grouped() : Bench("abcd", test::Noise().Table(10, 4)) {
    workset.SetBlock(1, 7, BlkInfo::kSquareRoot);
    workset.SetBlock(3, 7, BlkInfo::kSquareRoot);
    workset.AddTerm(1, 1);
    workset.SetOClass(2, 5);
    workset.SetOClass(9, 5);
  }
  XI1Vector all{"Selection", 5, kSelected};
};

TEST(ModelGroups, BlocksShareTheirWeight) {
  Grouped grouped;
  ASSERT_EQ(grouped.Compute(), 0);
  const PCModel& model = grouped.model;
  ASSERT_EQ(model.GetNVarX(), 5);
  // A sum of squares of 9, shared by the three of the block.
  const double expected[] = {3, 9, 3, 9, 3};
  for (short k = 1; k <= 5; ++k) {
    EXPECT_NEAR(static_cast<double>(model.GetSSVX(0, k)), expected[k - 1], 1e-4) << k;
  }
}

TEST(ModelGroups, TablesTakeThemOver) {
  Grouped grouped;
  const PCModel& model = grouped.model;
  LagInfo lags("LagInfo");
  ExpInfo terms("ExpInfo");
  ScaInfo scalings("ScaInfo");
  BlkInfo blocks("BlkInfo", 1);
  VarInfo variables("VarInfo");
  variables.AddVar(500, "X");
  variables.AddVar(200, "b");
  EXPECT_EQ(blocks.SetBlkInfo(&grouped.all, kSelected, &lags, &terms, &model), 8009);
  EXPECT_EQ(scalings.SetScaInfo(&variables, nullptr, &model, false), 8009);
  ASSERT_EQ(grouped.Compute(), 0);

  // As many rows as there can be.
  while (model.GetBIXPtr()->AddItm(9, "", BlkInfo::kUndefined, 0, kM) == 0) continue;
  // a, c and d, and what is made of a.
  grouped.all[2] = grouped.all[5] = kNotSelected;
  const short term = model.GetVarInfoX()->GetVNum(5);
  terms.AddItm(ExpData(term, "aa", 100, 100, 0, kM));
  EXPECT_EQ(blocks.SetBlkInfo(&grouped.all, kSelected, &lags, &terms, &model), 0);
  ASSERT_EQ(blocks.GetNVar(), 4);
  ASSERT_EQ(blocks.GetNItm(), 1);
  EXPECT_EQ(blocks.GetBType(1), BlkInfo::kSquareRoot);
  EXPECT_EQ(blocks.GetNVar(1), 3);
  EXPECT_EQ(blocks.GetBStat(3), 0);
  EXPECT_EQ(blocks.GetBStat(4), 7);
  terms.AddItm(ExpData(9999, "none", 100, 100, 0, kM));
  EXPECT_EQ(blocks.SetBlkInfo(&grouped.all, kSelected, &lags, &terms, &model), 8015);
  const Model* const nobody = nullptr;
  for (const int status : {blocks.SetBlkInfo(nullptr, kSelected, &lags, &terms, &model),
                           blocks.SetBlkInfo(&grouped.all, kSelected, nullptr, &terms, &model),
                           blocks.SetBlkInfo(&grouped.all, kSelected, &lags, nullptr, &model),
                           blocks.SetBlkInfo(&grouped.all, kSelected, &lags, &terms, nobody),
                           scalings.SetScaInfo(nullptr, nullptr, &model, false),
                           scalings.SetScaInfo(&variables, nullptr, nobody, false)}) {
    EXPECT_EQ(status, 8022);
  }

  variables.SetVNum(1, term);
  EXPECT_EQ(scalings.SetScaInfo(&variables, nullptr, &model, false), 0);
  EXPECT_EQ(scalings.GetItm(2)->GetWeig(), model.GetScaInfoX()->GetItm(2)->GetWeig());
  EXPECT_EQ(scalings.SetScaInfo(&variables, nullptr, &model, true), 8022);
  variables.SetVNum(1, 999);
  EXPECT_EQ(scalings.SetScaInfo(&variables, nullptr, &model, false), 8015);

  // By number, not by position.
  ObsInfo observations("ObsInfo");
  for (const int onum : {90, 20, 11}) observations.AddObs(static_cast<short>(onum), "");
  ClaInfo classes("ClaInfo", 3);
  EXPECT_EQ(classes.SetClaInfo(&observations, &model), 0);
  EXPECT_EQ(classes.GetOClass(1), 5);
  EXPECT_EQ(classes.GetOClass(2), 5);
  EXPECT_EQ(classes.GetOClass(3), 0);
  EXPECT_EQ(classes.GetNObsOClass(1), 2);
  ClaInfo longer("ClaInfo", 4);
  EXPECT_EQ(longer.SetClaInfo(&observations, &model), 8021);
  Bench without("ab", test::Noise().Table(5, 2));
  ASSERT_EQ(without.Compute(), 0);
  EXPECT_EQ(classes.SetClaInfo(&observations, &without.model), 8022);
  EXPECT_EQ(classes.SetClaInfo(&observations, nobody), 8022);
  EXPECT_EQ(classes.SetClaInfo(nullptr, &model), 8022);
}

TEST(ModelGroups, TablesTakeThoseOfResponsesOver) {
  // a and the responses c and d are a block.
  test::PLSBench bench(test::Noise().Table(10, 4), 2);
  for (const short j : {short{1}, short{3}, short{4}}) {
    bench.workset.SetBlock(j, 7, BlkInfo::kFourthRoot);
  }
  bench.workset.SetFixedWeight(4, EScaType::kFW, 2.0f);
  ASSERT_EQ(bench.Compute(), 0);
  const PLSModel& model = bench.model;
  LagInfo lags("LagInfo");
  ExpInfo terms("ExpInfo");
  BlkInfo blocks("BlkInfo", 1);
  XI1Vector all("Selection", 4, kSelected);
  all[3] = kNotSelected;
  EXPECT_EQ(blocks.SetBlkInfo(&all, kSelected, &lags, &terms, &model), 0);
  EXPECT_EQ(blocks.GetNVar(), 3);
  EXPECT_EQ(blocks.GetNItm(), 0);
  all[3] = kSelected;
  EXPECT_EQ(blocks.SetBlkInfo(&all, kSelected, &lags, &terms, &model), 0);
  ASSERT_EQ(blocks.GetNItm(), 1);
  EXPECT_EQ(blocks.GetNVar(1), 2);
  EXPECT_EQ(blocks.GetBType(1), BlkInfo::kFourthRoot);
  EXPECT_EQ(blocks.GetBStat(4), 7);
  XI1Vector x_alone("Selection", 2, kSelected);
  EXPECT_EQ(blocks.SetBlkInfo(&x_alone, kSelected, &lags, &terms, &model), 8021);

  VarInfo variables("VarInfo");
  variables.AddVar(400, "d");
  variables.AddVar(200, "b");
  ScaInfo scalings("ScaInfo");
  EXPECT_EQ(scalings.SetScaInfo(&variables, nullptr, &model, false), 0);
  EXPECT_EQ(scalings.GetItm(1)->GetWeig(), 2.0f);
  EXPECT_EQ(scalings.GetItm(2)->GetWeig(), model.GetScaInfoX()->GetItm(2)->GetWeig());
}

}  // namespace
}  // namespace zemva
