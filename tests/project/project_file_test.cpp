// Projects in folders.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "model/model_fixture.h"
#include "support/model_answers.h"
#include "support/recording_window.h"
#include "support/temp_folder.h"
#include "zemva/project/project.h"
#include "zemva/settings/ini/ini_file.h"

namespace zemva {
namespace {

using test::Noise;
using test::SmallDataset;

std::string DigitsOf(const Workset& workset) {
  std::string digits;
  for (short j = 0; j <= workset.GetNVar() + 1; ++j) {
    const char* const name = workset.GetVNam(j);
    digits += std::to_string(workset.GetVNum(j)) + (name == nullptr ? "" : name) + " " +
              std::to_string(static_cast<int>(workset.GetRole(j))) +
              std::to_string(int{workset.GetBlock(j)}) + ";";
  }
  for (short i = 0; i <= workset.GetNObsDS() + 1; ++i) {
    digits += std::to_string(workset.IsObsIn(i)) + std::to_string(int{workset.GetOClass(i)});
  }
  for (char b = 0; b <= 99; ++b) digits += std::to_string(workset.GetBlockType(b));
  test::RecordingWindow window;
  auto show = [&](auto table) { table.ShowAll(window), digits += table.GetNam(); };
  show(workset.GetLags()), show(workset.GetTerms()), show(workset.GetScalings());
  show(workset.GetTransformations());
  return digits + window.log;
}

class ProjectFolder : public testing::Test {
 protected:
  // Two data sets, a work set and a prediction set of each, two models.
  void Fill(Project& project) {
    const short first = project.AddDataset(SmallDataset("abcdef", Noise().Table(14, 6)).release());
    const short other = project.AddDataset(SmallDataset("fedcba", Noise().Table(5, 6)).release());
    const short workset = project.AddWorkset(first, "First");
    Workset& set = *project.GetWorkset(workset);
    set.SetRole(6, EVarRole::kY), set.SetRole(5, EVarRole::kExcluded);
    set.SetTransformation(1, ETraType::kLinear, 2.0f, 1.0f, 0.0f);
    set.AddLagged(2, 1), set.AddTerm(1, 7), set.SetOClass(3, 9), set.SetIsObsIn(2, false);
    set.SetBlock(3, 4, BlkInfo::kFourthRoot), set.SetScaling(4, EScaType::kFreeze);
    set.SetScaling(3, EScaType::kPar, 2.0f), set.SetScaling(5, EScaType::kNone);
    set.SetFixedWeight(7, EScaType::kFWN, 0.5f);
    project.AddWorkset(other, "Second");
    project.GetPredset(project.AddPredset(other, workset, "PS"))->SetIsObsIn(4, false);
    for (const EModType type : {EModType::kPC1, EModType::kPLS12}) {
      const short model = project.AddModel(workset, type, 0);
      project.GetModel(model)->GetModOpt().SetIsRule(false);
      project.GetModel(model)->GetModOpt().SetNComp(2);
      EXPECT_EQ(project.Compute(model), 0);
    }
    EXPECT_EQ(project.DelModel(1), 0);
    EXPECT_EQ(project.ExecPS(2, 1), 0);
  }

  test::TempFolder folder_;
  std::string path_ = folder_.Path().string();
  test::RecordingWindow window_;
};

TEST_F(ProjectFolder, OpensAsItWasSavedWhereverItIs) {
  Project saved("Project", window_);
  Fill(saved);
  ASSERT_EQ(saved.Save(path_.c_str()), 0);
  const std::string first = folder_.File("dataset1.vdo");
  const auto old = std::filesystem::last_write_time(first) - std::chrono::hours(1);
  std::filesystem::last_write_time(first, old);
  ASSERT_EQ(saved.Save(path_.c_str()), 0);
  EXPECT_EQ(std::filesystem::last_write_time(first), old) << "it has not changed";
  const test::TempFolder elsewhere;
  std::filesystem::remove(elsewhere.Path());  // one system copies into no folder that is there
  std::filesystem::copy(folder_.Path(), elsewhere.Path());
  std::filesystem::remove_all(folder_.Path());

  window_.log.clear();
  Project opened("", window_);
  ASSERT_EQ(opened.Open(elsewhere.Path().string().c_str()), 0);
  EXPECT_EQ(window_.log, "");
  EXPECT_EQ(opened.Open(elsewhere.Path().string().c_str()), 8023);
  EXPECT_STREQ(opened.GetNam(), "Project");
  for (const short number : {short{1}, short{2}}) {
    const Workset& workset = *opened.GetWorkset(number);
    EXPECT_STREQ(workset.GetNam(), number == 1 ? "First" : "Second");
    EXPECT_EQ(DigitsOf(workset), DigitsOf(*saved.GetWorkset(number)));
  }
  EXPECT_STREQ(opened.GetPredset(1)->GetNam(), "PS");
  EXPECT_EQ(opened.GetPredset(1)->GetNObs(), 4);
  EXPECT_EQ(opened.GetModel(1), nullptr);
  ASSERT_NE(opened.GetModel(2), nullptr);
  EXPECT_TRUE(opened.GetWorkset(1)->IsFrozen());
  EXPECT_EQ(opened.ExecPS(2, 1), 0);
  EXPECT_TRUE(test::AnswersOf(*opened.GetModel(2)->GetModel()) ==
              test::AnswersOf(*saved.GetModel(2)->GetModel()));
  // And goes on.
  for (Project* const project : {&saved, &opened}) {
    project->GetModel(2)->GetModOpt().SetNComp(3);
    EXPECT_EQ(project->Compute(2), 0);
  }
  EXPECT_EQ(opened.GetModel(2)->GetModel()->GetT(3, 5), saved.GetModel(2)->GetModel()->GetT(3, 5));
}

TEST_F(ProjectFolder, OverwritesNoDataSetByAnother) {
  const std::string second = folder_.File("dataset2.vdo");
  auto first = std::make_unique<Dataset>("First", ZEMVA_SAMPLES "/iris.vdo", window_);
  ASSERT_EQ(first->Load(), 0);
  first->SetDSAddr(second.c_str());
  ASSERT_EQ(first->Save(), 0);
  IniFile(folder_.File("project.ini").c_str()).SetCurrentProjectTitle("A title");
  Project project("Project", window_);
  EXPECT_EQ(project.AddDataset(first.release()), 1);
  EXPECT_EQ(project.AddDataset(SmallDataset("abcdef", Noise().Table(14, 6)).release()), 2);
  ASSERT_EQ(project.Save(path_.c_str()), 0);
  Dataset read("", second.c_str(), window_);
  ASSERT_EQ(read.Load(), 0);
  EXPECT_STREQ(read.GetDSNam(), "iris");
  IniFile list(folder_.File("project.ini").c_str());
  EXPECT_STREQ(list.GetCurrentProjectTitle(), "A title");
  EXPECT_EQ(std::string(list.GetMainDatasetAddress()), second);
  EXPECT_EQ(std::string(list.GetSecondaryDatasetAddress(1)), folder_.File("_dataset2.vdo"));

  const test::TempFolder elsewhere;
  ASSERT_EQ(project.Save(elsewhere.Path().string().c_str()), 0);
  EXPECT_TRUE(std::filesystem::exists(elsewhere.File("dataset1.vdo"))) << "it has all its files";

  // The primary data set stays the primary one while it is missing.
  std::filesystem::rename(second, folder_.File("away"));
  Project opened("", window_);
  ASSERT_EQ(opened.Open(path_.c_str()), 0);
  ASSERT_EQ(opened.Save(path_.c_str()), 0);
  EXPECT_EQ(std::string(list.GetMainDatasetAddress()), second);
  EXPECT_NE(test::ReadBytes(folder_.File("project.ini")).find("name=iris"), std::string::npos);
}

TEST_F(ProjectFolder, TakesTheNumbersOfItsObjectsFromTheirFiles) {
  const std::pair<const char*, short> cases[] = {
      {"x7.vdo", 7},     {"7.vdo", 7},          {"dataset7.1.vdo", 1}, {"7x.vdo", 1},
      {"x0.vdo", 1},     {"x32767.vdo", 32767}, {"x32768.vdo", 1},     {"x123456.vdo", 1},
      {"x00002.vdo", 2}, {"x000002.vdo", 1},
  };
  for (const auto& [file, number] : cases) {
    std::filesystem::copy(ZEMVA_SAMPLES "/iris.vdo", folder_.File(file));
    EXPECT_TRUE(IniFile(folder_.File("project.ini").c_str()).SetMainDatasetAddress(file));
    Project opened("", window_);
    ASSERT_EQ(opened.Open(path_.c_str()), 0);
    EXPECT_NE(opened.GetDataset(number), nullptr) << file;
  }
  IniFile list(folder_.File("project.ini").c_str());
  EXPECT_TRUE(list.SetMainDatasetAddress("x7.vdo") && list.AddSecondaryDataset("", "7.vdo"));
  Project opened("", window_);
  ASSERT_EQ(opened.Open(path_.c_str()), 0);
  EXPECT_NE(opened.GetDataset(8), nullptr) << "7 is taken";
}

// Written once and kept: every later release reads them.
TEST_F(ProjectFolder, SetsOfTheFirstVersionAreRead) {
  const auto dataset = test::Sample("iris");
  Workset workset("WS", *dataset, window_);
  ASSERT_EQ(workset.Load(ZEMVA_SAMPLES "/iris.wks"), 0);
  EXPECT_STREQ(workset.GetNam(), "Three kinds");
  EXPECT_EQ(workset.GetNObs(), 148);
  EXPECT_EQ(workset.GetOClass(51), 2);
  EXPECT_EQ(workset.GetRole(2), EVarRole::kExcluded);
  EXPECT_EQ(workset.GetRole(4), EVarRole::kY);
  EXPECT_EQ(workset.GetBlock(3), 2);
  EXPECT_EQ(workset.GetBlockType(2), BlkInfo::kSquareRoot);
  EXPECT_EQ(workset.GetLags().GetItm(1)->GetVNumDS(), 3);
  EXPECT_EQ(workset.GetTerms().GetItm(1)->GetVNum2(), 3);
  EXPECT_EQ(workset.GetScalings().GetItm(3)->GetScaC1(), 1.5f);
  EXPECT_EQ(workset.GetTransformations().GetItm(1)->GetTraType(), ETraType::kLog);
  Predset predset("PS", *dataset, workset);
  ASSERT_EQ(predset.Load(ZEMVA_SAMPLES "/iris.pre", window_), 0);
  EXPECT_STREQ(predset.GetNam(), "Every tenth");
  EXPECT_EQ(predset.GetNObs(), 15);
  EXPECT_TRUE(predset.IsObsIn(10));
}

TEST_F(ProjectFolder, NamesWhatIsMissingOpensTheRestAndLosesNothing) {
  Project saved("Project", window_);
  Fill(saved);
  ASSERT_EQ(saved.Save(path_.c_str()), 0);
  std::filesystem::rename(folder_.File("workset2.wks"), folder_.File("away"));
  std::filesystem::rename(folder_.File("dataset2.vdo"), folder_.File("away.vdo"));
  window_.log.clear();
  {
    Project opened("", window_);
    ASSERT_EQ(opened.Open(path_.c_str()), 0);
    EXPECT_EQ(opened.GetDataset(2), nullptr);
    EXPECT_NE(opened.GetModel(2), nullptr);
    for (const char* const file : {"dataset2.vdo", "workset2.wks", "predset1.pre"}) {
      EXPECT_NE(window_.log.find(std::string("Could not open ") + file), std::string::npos) << file;
    }
    // What is new takes no missing file's name.
    EXPECT_EQ(opened.AddWorkset(1, "Third"), 2);
    ASSERT_EQ(opened.Save(path_.c_str()), 0);
  }
  std::filesystem::rename(folder_.File("away"), folder_.File("workset2.wks"));
  std::filesystem::rename(folder_.File("away.vdo"), folder_.File("dataset2.vdo"));
  window_.log.clear();
  Project whole("", window_);
  ASSERT_EQ(whole.Open(path_.c_str()), 0);
  EXPECT_EQ(window_.log, "");
  EXPECT_NE(whole.GetDataset(2), nullptr);
  EXPECT_NE(whole.GetPredset(1), nullptr);
  EXPECT_STREQ(whole.GetWorkset(2)->GetNam(), "Second");
  EXPECT_STREQ(whole.GetWorkset(3)->GetNam(), "Third");

  // A model by another number, and then none.
  std::string list = test::ReadBytes(folder_.File("project.ini"));
  for (std::size_t at = 0; (at = list.find("model2", at)) != std::string::npos;) list[at + 5] = '1';
  test::WriteBytes(folder_.File("project.ini"), list);
  std::filesystem::rename(folder_.File("model2.mdl"), folder_.File("model1.mdl"));
  for (const bool is_there : {true, false}) {
    Project opened("", window_);
    ASSERT_EQ(opened.Open(path_.c_str()), 0);
    EXPECT_EQ(opened.GetModel(1) != nullptr, is_there);
    EXPECT_EQ(window_.log.find("Could not open model1.mdl") == std::string::npos, is_there);
    std::filesystem::remove(folder_.File("model1.mdl"));
  }
}

TEST_F(ProjectFolder, RefusesWhatIsNotItsOwn) {
  Project project("Project", window_);
  EXPECT_EQ(project.Open(path_.c_str()), 1002);
  Fill(project);
  test::WriteBytes(folder_.File("model2.mdl"), "Something of somebody else's");
  EXPECT_EQ(project.Save(path_.c_str()), 2005);
  EXPECT_STREQ(project.GetModel(2)->GetModel()->GetModAddr(), "NoAddress");
  EXPECT_FALSE(std::filesystem::exists(folder_.File("project.ini")));
  const auto other = SmallDataset("abcdeg", Noise().Table(14, 6));
  Workset workset("WS", *other, window_);
  EXPECT_EQ(workset.Load(folder_.File("workset1.wks").c_str()), 8046);
  EXPECT_STREQ(workset.GetNam(), "WS");
  EXPECT_EQ(workset.Load(folder_.File("dataset1.vdo").c_str()), 2000);
}

}  // namespace
}  // namespace zemva
