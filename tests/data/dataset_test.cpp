#include "zemva/data/dataset.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <tuple>

#include "data/plain_table.h"
#include "support/recording_window.h"
#include "support/temp_folder.h"
#include "zemva/data/dangerous_data_set_manipulator.h"

namespace zemva {
namespace {

using Inside = DangerousDataSetManipulator;

TEST(Dataset, ConstructionRefusesWhatDoesNotFitAndLeavesThePartsToTheCaller) {
  StreamWindow window;
  EXPECT_EQ(Dataset(nullptr, "a", window).GetStatus(), 8013);
  EXPECT_EQ(Dataset("n", nullptr, window).GetStatus(), 8013);
  // Cut, it would be another file.
  EXPECT_EQ(Dataset("n", std::string(261, 'a').c_str(), window).GetStatus(), 8013);
  EXPECT_EQ(Dataset("n", std::string(260, 'a').c_str(), window).GetStatus(), 0);
  XFMatrix matrix("m", 1, 1, 0.0f);
  ObsInfo row("ObsInfo"), no_row("ObsInfo");
  VarInfo column("VarInfo"), no_column("VarInfo");
  row.AddObs(1, "o");
  column.AddVar(1, "x");
  const std::tuple<XFMatrix*, ObsInfo*, VarInfo*> cases[] = {{&matrix, &no_row, &column},
                                                             {&matrix, &row, &no_column},
                                                             {nullptr, &row, &column},
                                                             {&matrix, nullptr, &column},
                                                             {&matrix, &row, nullptr}};
  for (const auto& [values, observations, variables] : cases) {
    const Dataset dataset("n", "a", window, values, observations, variables);
    EXPECT_EQ(dataset.GetStatus(), 8013);
    EXPECT_FALSE(dataset.IsLoaded());
  }
}

TEST(Dataset, AFileThatIsNotThereLeavesItUnloaded) {
  test::TempFolder folder;
  test::RecordingWindow window;
  Dataset dataset("n", folder.File("none.vdo").c_str(), window);
  EXPECT_EQ(dataset.Load(), 2004);
  EXPECT_EQ(dataset.GetNObsDS(), 0);
  EXPECT_EQ(dataset.GetNValA(), 0);
  EXPECT_EQ(dataset.GetDMPtr(), nullptr);
  EXPECT_EQ(dataset[1], nullptr);
  short number = 5;
  char* name;
  EXPECT_EQ(dataset.GetObsInfo(1, number, name), 2004);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(name, nullptr);
  EXPECT_EQ(dataset.SetVarName(1, "x"), 2004);
  EXPECT_EQ(dataset.DeleteFileA(), 1002);
  window.log.clear();
  EXPECT_EQ(dataset.Save(), 8009);
  EXPECT_EQ(window.log,
            std::string("Could not save data set 0to file ") + dataset.GetDSAddr() + ".\n");
  EXPECT_FALSE(std::filesystem::exists(dataset.GetDSAddr()));
  EXPECT_EQ(Dataset("n", "", window).Save(), 8013);
  EXPECT_EQ(Dataset("n", "", window).DeleteFileA(), 8013);
}

TEST(Dataset, SavedAndLoadedItIsTheSame) {
  test::TempFolder folder;
  StreamWindow window;
  test::PlainTable table = test::SmallTable(3, 2);
  table.values[1][1] = -99.0f;
  table.observations[2] = {-7, ""};
  const std::string path = folder.File("saved.vdo");
  const auto dataset = test::MakeDataset(table, window, path.c_str());
  dataset->SetDSTitle("A title");
  dataset->GetOIPtr()->SetLabel(2, " label ");
  EXPECT_TRUE(dataset->IsDirty());
  ASSERT_EQ(dataset->Save(), 0);
  EXPECT_FALSE(dataset->IsDirty());
  EXPECT_EQ(dataset->Load(), 8001);
  EXPECT_EQ(dataset->LoadListProject(), 0);
  EXPECT_EQ((*dataset)[0], nullptr);
  EXPECT_EQ((*dataset)[4], nullptr);

  Dataset loaded("Tovle", path.c_str(), window);
  EXPECT_EQ(loaded.LoadListProject(), 0);
  EXPECT_FALSE(loaded.IsLoaded());
  EXPECT_FALSE(loaded.IsDirty());
  EXPECT_EQ(test::Content(loaded), table);
  EXPECT_STREQ(loaded.GetDSNam(), "Plain");
  EXPECT_STREQ(loaded.GetDSTitle(), "A title");
  EXPECT_EQ(std::string(loaded.GetOIPtr()->GetLabel(2)).substr(0, 7), " label ");

  loaded.Unload();
  EXPECT_EQ(dataset->MergeVar(&loaded, false), 8055);
  EXPECT_EQ(dataset->GetNVarDS(), 4);
  EXPECT_FALSE(loaded.IsLoaded()) << "it was loaded meanwhile";
  EXPECT_EQ(loaded.DeleteFileA(), 0);
  EXPECT_EQ(loaded.Load(), 2004);
}

TEST(Dataset, IsDirtyAfterWhatChangesIt) {
  StreamWindow window;
  const auto stranger = test::MakeDataset(test::SmallTable(2, 1), window);
  stranger->SetObsNum(1, 11);
  stranger->SetObsNum(2, 12);
  stranger->SetVarName(1, "stranger");
  const auto empty = test::MakeDataset(test::SmallTable(3, 0), window);
  const struct {
    const char* what;
    bool is_change;
    std::function<void(Dataset&)> operation;
  } cases[] = {
      {"title", true, [](Dataset& d) { d.SetDSTitle("t"); }},
      {"name", true, [](Dataset& d) { d.SetDSNam("n"); }},
      {"number", true, [](Dataset& d) { d.SetDSNum(3); }},
      {"name of a variable", true, [](Dataset& d) { d.SetVarName(1, "v"); }},
      {"an observation", true, [](Dataset& d) { d.AddObs(9, "o"); }},
      {"variables", true, [&](Dataset& d) { d.MergeVar(&d, false); }},
      {"no variables", false, [&](Dataset& d) { d.MergeVar(empty.get(), false); }},
      {"other names", true, [&](Dataset& d) { d.MergeVar(empty.get(), true); }},
      {"observations", true, [&](Dataset& d) { d.MergeObs(&d, false); }},
      {"nothing that matches", false, [&](Dataset& d) { d.MergeObs(stranger.get(), false); }},
      {"other numbers", true, [&](Dataset& d) { d.MergeObs(stranger.get(), true); }},
      {"a refusal", false, [](Dataset& d) { d.DelObs(99); }},
  };
  for (const auto& c : cases) {
    const auto dataset = test::MakeDataset(test::SmallTable(3, 2), window);
    dataset->SetDirtyFlag(false);
    c.operation(*dataset);
    EXPECT_EQ(dataset->IsDirty(), c.is_change) << c.what;
  }
}

TEST(Dataset, LoadDropsWhatIsBeyondTheCountsAndLeavesShortTablesShort) {
  test::TempFolder folder;
  StreamWindow window;
  const std::string path = folder.File("odd.vdo");
  const auto dataset = test::MakeDataset(test::SmallTable(4, 3), window, path.c_str());
  Inside::SetNObsDS(dataset.get(), 2);
  Inside::SetNVarDS(dataset.get(), 1);
  ASSERT_EQ(dataset->Save(), 0);
  Dataset cut("cut", path.c_str(), window);
  EXPECT_EQ(test::Content(cut), test::SmallTable(2, 1));

  Inside::SetOI(dataset.get(), nullptr);
  Inside::SetVI(dataset.get(), new VarInfo("none"));
  ASSERT_EQ(dataset->Save(), 0);
  Dataset bare("bare", path.c_str(), window);
  short number = 1;
  char old[] = "old";
  char* name = old;
  EXPECT_EQ(bare.GetObsInfo(1, number, name), 8021);
  EXPECT_EQ(name, nullptr);
  EXPECT_EQ(bare.GetVarInfo(1, number, name), 8021);
  EXPECT_EQ(bare.GetOIPtr(), nullptr);
  EXPECT_EQ(bare.GetOIx(1), 0);
  EXPECT_EQ(bare.SetObsName(1, "x"), 8021);

  Inside::SetNObsDS(dataset.get(), 5);
  ASSERT_EQ(dataset->Save(), 0);
  Dataset half("half", path.c_str(), window);
  EXPECT_EQ(half.Load(), 2023);
  EXPECT_EQ(Inside::GetDM(&half), nullptr);
  EXPECT_STREQ(half.GetDSNam(), "half");
}

TEST(Dataset, ACopyIsItsOwn) {
  StreamWindow window;
  const auto dataset = test::MakeDataset(test::SmallTable(2, 2), window);
  Dataset copy(*dataset);
  copy[1][1] = 5.0f;
  EXPECT_EQ(copy.SetObsName(1, "changed"), 0);
  EXPECT_EQ(copy.SetObsName(3, "x"), 7002);
  EXPECT_EQ(copy.SetObsNum(3, 1), 8021);
  EXPECT_EQ(copy.GetVNum(2), 2);
  EXPECT_EQ(copy.GetVIx(2), 2);
  EXPECT_EQ(test::Content(*dataset), test::SmallTable(2, 2));
  EXPECT_EQ(copy[1][1], 5.0f);
  EXPECT_TRUE(copy.IsClass(Dataset::GetClassID().GetID()));
}

TEST(Dataset, ListingsDoNotLoad) {
  test::RecordingWindow window;
  Dataset unloaded("name", "addr", window);
  unloaded.SetDSCreaDate("today");
  unloaded.ShowAll(window);
  EXPECT_EQ(window.log,
            "Data set name  : name\n"
            "Address: addr\n"
            "Data set title : UnTitled\n"
            "Created       : today\n"
            "No. of observations is 0, no. of variables is 0\n"
            "Data set is unloaded.\n");

  window.log.clear();
  const auto loaded = test::MakeDataset(test::SmallTable(1, 1), window);
  loaded->Show(window);
  EXPECT_EQ(window.log,
            "Data set name: Plain\n"
            "Address: \n"
            "Data set title  : UnTitled\n"
            "No. of observations is 1, no. of variables is 1\n"
            "Variable info loaded\n"
            "Observation info loaded \n"
            "Data matrix loaded \n");
  window.log.clear();
  loaded->ShowAll(window);
  EXPECT_NE(window.log.find("ObsInfo has 1 items:\n  Item  ONum      ONam\n"), std::string::npos);
  EXPECT_NE(window.log.find("VarInfo has 1 items:\n  Item  VNum      VNam\n"), std::string::npos);
}

}  // namespace
}  // namespace zemva
