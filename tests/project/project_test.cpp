#include "zemva/project/project.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "model/model_fixture.h"
#include "model/small_dataset.h"
#include "support/failing_allocator.h"
#include "support/recording_window.h"
#include "zemva/model/pc/pc_model.h"

namespace zemva {
namespace {

using test::Noise;
using test::SmallDataset;

class ProjectOfOneTable : public testing::Test {
 protected:
  // Hands the data set over.
  static Dataset* Table(const std::string& names, int row_count) {
    return SmallDataset(names, Noise().Table(row_count, static_cast<int>(names.size()))).release();
  }

  test::RecordingWindow window_;
  Project project_{"P", window_};
  short dataset_ = project_.AddDataset(Table("abcd", 12));
  short workset_ = project_.AddWorkset(dataset_, "WS");
};

TEST_F(ProjectOfOneTable, ComputesAndExecutesAModel) {
  const short number = project_.AddModel(workset_, EModType::kPC1, 0);
  ASSERT_EQ(number, 1);
  WorksetModel& workset_model = *project_.GetModel(number);
  EXPECT_TRUE(workset_model.GetModOpt().GetIsCenter());
  workset_model.GetModOpt().SetNComp(2);
  EXPECT_EQ(project_.Compute(number), 0);
  const auto& model = static_cast<const PCModel&>(*workset_model.GetModel());
  EXPECT_EQ(model.GetA(), 2);
  EXPECT_STREQ(model.GetModNam(), "M1");
  EXPECT_NE(model.GetDCritTrSLS(), kMissing);

  // New observations; the model's own are members of it.
  const short other = project_.AddDataset(Table("dcbae", 5));
  const short predset = project_.AddPredset(other, workset_, "PS");
  ASSERT_NE(predset, 0) << project_.GetStatus();
  EXPECT_EQ(project_.ExecPS(number, predset), 0);
  EXPECT_EQ(model.GetNObsPS(), 5);
  EXPECT_FALSE(model.IsMembPS(1));
  const short same = project_.AddPredset(dataset_, workset_, "PS");
  EXPECT_EQ(project_.ExecPS(number, same), 0);
  EXPECT_EQ(model.GetNObsPS(), 12);
  for (short i = 1; i <= 12; ++i) {
    EXPECT_TRUE(model.IsMembPS(i));
    EXPECT_NEAR(static_cast<double>(model.GetTPredPS(2, i)), static_cast<double>(model.GetT(2, i)),
                1e-4);
    EXPECT_NEAR(static_cast<double>(model.GetDModXPS(2, i)),
                static_cast<double>(model.GetDModXLS(2, i)), 1e-4);
  }
}

TEST_F(ProjectOfOneTable, ObjectsKnowTheirNumbers) {
  for (short i = 2; i <= 3; ++i) {
    EXPECT_EQ(project_.GetDataset(project_.AddDataset(Table("ab", 4)))->GetDSNum(), i);
    EXPECT_EQ(project_.GetWorkset(project_.AddWorkset(dataset_, "W"))->GetWSNum(), i);
    const short predset = project_.AddPredset(dataset_, workset_, "PS");
    EXPECT_EQ(project_.GetPredset(predset)->GetPSNum(), i - 1);
    const short model = project_.AddModel(workset_, EModType::kPC1, 0);
    EXPECT_EQ(project_.GetModel(model)->GetModel()->GetModNum(), i - 1);
  }
}

TEST_F(ProjectOfOneTable, AsksTheObjectThatAVectorIsWantedOf) {
  const short model = project_.AddModel(workset_, EModType::kPC1, 0);
  project_.GetModel(model)->GetModOpt().SetNComp(1);
  ASSERT_EQ(project_.Compute(model), 0);
  const short other = project_.AddDataset(Table("dcba", 5));
  project_.AddPredset(other, workset_, "PS");
  const struct {
    const char* name;
    CEDatType::EDT kind;
    short number;
    int length, status;
  } cases[] = {
      {"VarDS1", CEDatType::Undefined, 0, 5, 0},  {"VarDS1", CEDatType::Dataset, 1, 12, 0},
      {"VarDS1", CEDatType::Dataset, 3, 0, 8009}, {"Var1", CEDatType::Undefined, 0, 12, 0},
      {"Var1", CEDatType::Workset, 2, 0, 8011},   {"VarPS1", CEDatType::Undefined, 1, 5, 0},
      {"VarPS1", CEDatType::Predset, 2, 0, 8030}, {"p[1]", CEDatType::Undefined, 0, 4, 0},
      {"p[1]", CEDatType::Model, 2, 0, 8010},     {"Num", CEDatType::Undefined, 0, 5, 0},
      {"Num", CEDatType::Model, 1, 12, 0},        {"Num", CEDatType::Workset, 1, 12, 0},
      {"None", CEDatType::Undefined, 0, 0, 8016}, {"p[1]", CEDatType::Dataset, 1, 0, 8016},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    VecSpec spec;
    ASSERT_EQ(spec.SetName(c.name), 0);
    spec.SetDType(c.kind);
    spec.SetDNum(c.number);
    XFVector* values = nullptr;
    XSVector* labels = nullptr;
    EXPECT_EQ(project_.GetXFVector(&spec, values), c.status);
    EXPECT_EQ(project_.GetXSVector(&spec, labels, true), c.status);
    const auto owned_values = test::Own(values);
    const auto owned_labels = test::Own(labels);
    EXPECT_EQ(values == nullptr ? 0 : values->NVal(), c.length);
    EXPECT_EQ(labels == nullptr ? 0 : labels->NVal(), c.length);
  }
  XFVector* vector = nullptr;
  EXPECT_EQ(project_.GetXFVector(nullptr, vector), 8022);
}

TEST_F(ProjectOfOneTable, MakesModelsOfEveryBlockAndClass) {
  Workset& workset = *project_.GetWorkset(workset_);
  workset.SetRole(3, EVarRole::kY);
  workset.SetRole(4, EVarRole::kY);
  workset.SetScaling(3, EScaType::kNone);
  workset.SetScaling(4, EScaType::kUVN);
  for (const int i : {1, 3, 4, 7, 8}) workset.SetOClass(static_cast<short>(i), 2);
  const struct {
    EModType type;
    char selector;
    short observations, variables;
    bool is_centred;
  } cases[] = {
      {EModType::kPC1, 0, 12, 2, true},
      {EModType::kPC2, 0, 12, 2, false},
      {EModType::kPCAll, 0, 12, 4, true},
      {EModType::kPC1Cl, 2, 5, 2, true},
      {EModType::kNoVarianceCheck, 0, 12, 2, true},
  };
  for (const auto& c : cases) {
    const short number = project_.AddModel(workset_, c.type, c.selector);
    ASSERT_NE(number, 0) << project_.GetStatus();
    project_.GetModel(number)->GetModOpt().SetNComp(1);
    EXPECT_EQ(project_.Compute(number), 0);
    const Model& model = *project_.GetModel(number)->GetModel();
    EXPECT_EQ(model.GetNObs(), c.observations);
    EXPECT_EQ(model.GetNVarX(), c.variables);
    EXPECT_EQ(model.GetA0(), c.is_centred ? 1 : 0);
    EXPECT_EQ(model.GetA(), 1);
  }
}

TEST_F(ProjectOfOneTable, DeletesInTheRightOrder) {
  const short model = project_.AddModel(workset_, EModType::kPC1, 0);
  project_.GetModel(model)->GetModOpt().SetNComp(1);
  ASSERT_EQ(project_.Compute(model), 0);
  const short predset = project_.AddPredset(dataset_, workset_, "PS");
  ASSERT_EQ(project_.ExecPS(model, predset), 0);

  EXPECT_EQ(project_.DelDataset(dataset_), 8054);
  EXPECT_EQ(project_.DelWorkset(workset_), 8049);
  EXPECT_EQ(project_.DelPredset(predset), 8041);
  EXPECT_EQ(project_.GetWorkset(workset_)->SetIsObsIn(1, false), 8049);  // frozen
  const short other = project_.AddDataset(Table("abcd", 5));
  const short of_other = project_.AddPredset(other, workset_, "PS");
  ASSERT_EQ(project_.ExecPS(model, of_other), 0);
  EXPECT_EQ(project_.DelDataset(other), 8041);
  EXPECT_EQ(project_.DelPSResults(model), 0);
  EXPECT_EQ(project_.DelDataset(other), 0);
  EXPECT_EQ(project_.GetPredset(of_other), nullptr) << "no model holds its results";
  ASSERT_EQ(project_.ExecPS(model, predset), 0);
  EXPECT_EQ(project_.DelPSResults(model), 0);
  EXPECT_EQ(project_.DelPredset(predset), 0);
  EXPECT_EQ(project_.ExecPS(model, predset), 8030);
  EXPECT_EQ(project_.DelModel(model), 0);
  EXPECT_EQ(project_.GetWMInfo().GetNItm(), 0);
  EXPECT_EQ(project_.GetWorkset(workset_)->SetIsObsIn(1, false), 0);
  const short another = project_.AddPredset(dataset_, workset_, "PS");
  EXPECT_EQ(project_.DelWorkset(workset_), 0);
  EXPECT_EQ(project_.GetPredset(another), nullptr);
  EXPECT_EQ(project_.DelDataset(dataset_), 0);
  EXPECT_EQ(project_.GetDataset(dataset_), nullptr);
  const std::vector<int> statuses = {project_.Compute(model),       project_.ExecPS(model, predset),
                                     project_.DelPSResults(model),  project_.DelModel(model),
                                     project_.DelWorkset(workset_), project_.DelPredset(predset),
                                     project_.DelDataset(dataset_)};
  EXPECT_EQ(statuses, (std::vector<int>{8010, 8010, 8010, 8010, 8011, 8030, 8009}));
}

TEST_F(ProjectOfOneTable, OwnsModelsThatAreMadeWithIt) {
  const short predset = project_.AddPredset(dataset_, workset_, "PS");
  const short other = project_.AddWorkset(project_.AddDataset(Table("abc", 7)), "Other");
  ModOpt options(&project_.GetPrjOpt());
  options.SetNComp(1);
  const auto make = [&](Project* project) {
    return PCModel(project, EModType::kPC1, window_, &options, 0);
  };
  PCModel of_last = make(&project_);
  ASSERT_EQ(of_last.Compute(), 0);
  EXPECT_EQ(of_last.GetNObs(), 7);
  EXPECT_EQ(of_last.ExecPS(), 8030);  // the prediction set is of the first
  EXPECT_EQ(project_.SetCurrentWorkset(workset_), 0);
  PCModel of_first = make(&project_);
  ASSERT_EQ(of_first.Compute(), 0);
  EXPECT_EQ(of_first.GetNObs(), 12);
  EXPECT_EQ(of_first.ExecPS(), 0);
  EXPECT_EQ(of_first.GetNObsPS(), 12);
  EXPECT_EQ(project_.SetCurrentPredset(static_cast<short>(predset + 1)), 8030);
  EXPECT_EQ(project_.SetCurrentWorkset(static_cast<short>(other + 1)), 8011);
  EXPECT_EQ(make(nullptr).GetStatus(), 8022);
}

TEST_F(ProjectOfOneTable, ARefusalDoesNotStandAgainstTheNextOperation) {
  const short number = project_.AddModel(workset_, EModType::kPC1, 0);
  ModOpt& options = project_.GetModel(number)->GetModOpt();
  options.SetNComp(2);
  options.SetSeqValidate(EValidate::CV);
  options.SetNCV(1);
  EXPECT_EQ(project_.Compute(number), 8013);
  options.SetNCV(7);
  EXPECT_EQ(project_.Compute(number), 0);
  const short foreign = project_.AddDataset(Table("wxyz", 5));
  EXPECT_EQ(project_.ExecPS(number, project_.AddPredset(foreign, workset_, "None")), 8033);
  EXPECT_EQ(project_.ExecPS(number, project_.AddPredset(dataset_, workset_, "PS")), 0);
  options.SetNComp(3);
  options.SetAUseLS(1);
  EXPECT_EQ(project_.Compute(number), 0);
  EXPECT_EQ(options.GetAUseLS(), 1);
  auto& model = static_cast<PCModel&>(*project_.GetModel(number)->GetModel());
  EXPECT_EQ(model.GetA(), 3);
  EXPECT_NE(model.GetDCritTrSLS(), kMissing);
  EXPECT_EQ(model.GetNObsPS(), 12);
  // What was executed goes with the components.
  EXPECT_EQ(model.Reset(2), 0);
  EXPECT_EQ(model.GetDCritTrSLS(), kMissing);
  EXPECT_EQ(model.GetNObsPS(), 0);
}

TEST_F(ProjectOfOneTable, RefusesWhatItCannotMake) {
  const auto refusal = [&](short number) { return number == 0 ? project_.GetStatus() : 0; };
  const auto model = [&](EModType type, char selector = 0) {
    return refusal(project_.AddModel(workset_, type, selector));
  };
  EXPECT_EQ(refusal(project_.AddDataset(nullptr)), 8022);
  EXPECT_EQ(refusal(project_.AddDataset(project_.GetDataset(dataset_))), 8023);
  EXPECT_EQ(refusal(project_.AddWorkset(7, "WS")), 8009);
  EXPECT_EQ(refusal(project_.AddPredset(7, workset_, "PS")), 8009);
  EXPECT_EQ(refusal(project_.AddPredset(dataset_, 7, "PS")), 8011);
  EXPECT_EQ(model(static_cast<EModType>(8)), 8045);
  EXPECT_EQ(model(EModType::kPC2), 8017);  // there is no Y
  EXPECT_EQ(model(EModType::kPLS12), 8018);
  EXPECT_EQ(model(EModType::kPC1Cl, 3), 8020);  // nor a class
  const short elsewhere = project_.AddWorkset(dataset_, "WS2");
  const short predset = project_.AddPredset(dataset_, elsewhere, "PS");
  EXPECT_EQ(project_.ExecPS(project_.AddModel(workset_, EModType::kPC1, 0), predset), 8040);
  for (int i = 2; i <= 99; ++i) EXPECT_EQ(project_.AddModel(workset_, EModType::kPC1, 0), i);
  EXPECT_EQ(model(EModType::kPC1), 8031);
  for (const short number : {short{99}, short{50}}) {
    EXPECT_EQ(project_.DelModel(number), 0);
    EXPECT_EQ(project_.AddModel(workset_, EModType::kPC1, 0), number) << "the one that is free";
  }
}

TEST_F(ProjectOfOneTable, ComputesEachModelOnItsOwnWorkSetAndNoFurtherThanAsked) {
  const short other = project_.AddWorkset(dataset_, "WS2");
  project_.GetWorkset(other)->SetIsObsIn(1, false);
  const short first = project_.AddModel(workset_, EModType::kPC1, 0);
  const short second = project_.AddModel(other, EModType::kPC1, 0);
  project_.GetModel(first)->GetModOpt().SetNComp(2);
  ASSERT_EQ(project_.Compute(second), 0);
  Model& model = *project_.GetModel(first)->GetModel();
  EXPECT_EQ(model.Compute(), 8012);
  EXPECT_EQ(model.GetNObs(), 12);
  for (int again = 0; again < 2; ++again) {
    EXPECT_EQ(project_.Compute(first), 0);
    EXPECT_EQ(model.GetA(), 2);
  }
  // A prediction that fails leaves none.
  const short predset = project_.AddPredset(dataset_, workset_, "PS");
  ASSERT_EQ(project_.ExecPS(first, predset), 0);
  const short foreign = project_.AddDataset(Table("wxyz", 5));
  EXPECT_EQ(project_.ExecPS(first, project_.AddPredset(foreign, workset_, "None")), 8033);
  EXPECT_EQ(model.GetNObsPS(), 0);
  EXPECT_EQ(project_.DelPredset(predset), 0);
  // A mark on the work set is not what keeps it.
  project_.GetWorkset(workset_)->SetIsFrozen(false);
  EXPECT_EQ(project_.DelWorkset(workset_), 8049);
}

TEST_F(ProjectOfOneTable, HoldsTheLargestTables) {
  for (const bool is_long : {true, false}) {
    const int most = 32767;
    auto table = SmallDataset(std::string(is_long ? 3 : most, 'v'),
                              Noise().Table(is_long ? most : 4, is_long ? 3 : most));
    const short data = project_.AddDataset(table.release());
    const short workset = project_.AddWorkset(data, "Large");
    const short number = project_.AddModel(workset, EModType::kPC1, 0);
    ASSERT_NE(number, 0);
    ModOpt& options = project_.GetModel(number)->GetModOpt();
    options.SetNComp(1);
    options.SetSeqValidate(EValidate::NoCV);
    EXPECT_EQ(project_.Compute(number), 0);
    EXPECT_EQ(project_.ExecPS(number, project_.AddPredset(data, workset, "PS")), 0);
    const auto& model = static_cast<const PCModel&>(*project_.GetModel(number)->GetModel());
    EXPECT_EQ(model.GetNObsPS(), is_long ? most : 4);
    ClaInfo classes("ClaInfo", model.GetNObs());
    EXPECT_EQ(classes.SetClaInfo(model.GetObsInfo(), &model), 8022);
  }
}

TEST_F(ProjectOfOneTable, FitsNothingToWhatRoundingHasLeft) {
  Noise noise;
  for (int table = 0; table < 60; ++table) {
    // Of rank one, in whole numbers.
    test::Rows rows = noise.Table(9, 6);
    for (std::size_t i = rows.size(); i-- > 0;) {
      const float multiple = std::round(9 * rows[i][0]);
      for (std::size_t k = 0; k < 6; ++k) rows[i][k] = multiple * std::ceil(5 * rows[0][k]);
    }
    const short workset =
        project_.AddWorkset(project_.AddDataset(SmallDataset("abcdef", rows).release()), "WS");
    for (short k = 1; k <= 6; ++k) project_.GetWorkset(workset)->SetScaling(k, EScaType::kCtr);
    const short number = project_.AddModel(workset, EModType::kPC1, 0);
    project_.GetModel(number)->GetModOpt().SetNComp(5);
    EXPECT_EQ(project_.Compute(number), 0);
    EXPECT_EQ(project_.GetModel(number)->GetModel()->GetA(), 1);
    ASSERT_EQ(project_.DelModel(number), 0);
  }
}

TEST(Project, TellsWhereMemoryRunsOut) {
  test::Rows rows = Noise().Table(8, 4);
  rows[2][1] = kMissing;
  const auto table = SmallDataset("abcd", rows);
  const auto run = [](Dataset* dataset) {
    Project project("P", GlobalStreamWindow());
    const short data = project.AddDataset(dataset);
    const short workset = data == 0 ? short{0} : project.AddWorkset(data, "WS");
    if (workset == 0) return project.GetStatus();
    project.GetWorkset(workset)->SetRole(4, EVarRole::kY);
    const short number = project.AddModel(workset, EModType::kPLS12, 0);
    if (number == 0) return project.GetStatus();
    project.GetModel(number)->GetModOpt().SetNComp(2);
    const short predset = project.AddPredset(data, workset, "PS");
    if (predset == 0) return project.GetStatus();
    const int status = project.Compute(number);
    return status == 0 ? project.ExecPS(number, predset) : status;
  };
  long count = 0;
  for (int successes = 0; successes < 20; ++count) {
    auto dataset = std::make_unique<Dataset>(*table);
    const int status = test::WithAllocations(count, [&] { return run(dataset.release()); });
    ASSERT_TRUE(status == 0 || status == 8002) << count << ": " << status;
    successes += status == 0 ? 1 : 0;
  }
  EXPECT_GT(count, 200);
}

TEST_F(ProjectOfOneTable, ListsItsModels) {
  window_.log.clear();
  project_.GetWMInfo().ShowAll(window_);
  EXPECT_EQ(window_.log, "WMInfo has 0 items:\n");
  project_.GetModel(project_.AddModel(workset_, EModType::kPC1, 0))->GetModOpt().SetNComp(1);
  project_.AddModel(workset_, EModType::kPCAll, 0);
  ASSERT_EQ(project_.Compute(1), 0);
  window_.log.clear();
  project_.GetWMInfo().ShowAll(window_);
  EXPECT_EQ(window_.log,
            "WMInfo has 2 items:\n"
            "  Item  MNum                      MNam    Type                  Workset  NComp\n"
            "     1     1                        M1  PC-1                         WS      1\n"
            "     2     2                        M2  PC-All                       WS      0\n");
}

}  // namespace
}  // namespace zemva
