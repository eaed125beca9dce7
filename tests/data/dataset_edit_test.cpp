#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "data/plain_table.h"
#include "support/recording_window.h"
#include "zemva/data/dangerous_data_set_manipulator.h"
#include "zemva/data/dataset.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {
namespace {

using test::Content;
using test::Label;
using test::MakeDataset;
using test::PlainTable;
using test::SmallTable;
using Inside = DangerousDataSetManipulator;

constexpr float kGap = -99.0f;

PlainTable WithVariables(int n, const std::vector<std::string>& names) {
  PlainTable table = SmallTable(n, static_cast<int>(names.size()));
  for (std::size_t j = 0; j < names.size(); ++j) table.variables[j].name = names[j];
  return table;
}

std::vector<Label> Numbered(const std::vector<std::string>& names) {
  std::vector<Label> labels;
  for (const std::string& name : names) {
    labels.push_back({static_cast<int>(labels.size()) + 1, name});
  }
  return labels;
}

TEST(DatasetEdit, AnEmptyDataSetGrowsFromNothing) {
  StreamWindow window;
  Dataset dataset("empty", "", window);
  Inside::SetIsLoaded(&dataset, true);
  EXPECT_EQ(dataset.DelObs(1), 8014);
  EXPECT_EQ(dataset.DelVar(1), 8014);
  EXPECT_EQ(dataset.AddObs(7, "o"), 1);
  EXPECT_STREQ(dataset.GetDMPtr()->GetName(), "empty");
  EXPECT_STREQ(dataset.GetOIPtr()->GetNam(), "empty");
  EXPECT_EQ(dataset.AddVar(nullptr), 1);
  EXPECT_EQ(Content(dataset), (PlainTable{{{1, ""}}, {{7, "o"}}, {{kGap}}}));
}

// Deleting an unknown variable lowers the count alone; what is beyond goes with the next edit.
TEST(DatasetEdit, RefusalsChangeNothing) {
  StreamWindow window;
  const auto dataset = MakeDataset(SmallTable(3, 3), window);
  const auto taller = MakeDataset(SmallTable(4, 2), window);
  Dataset missing("missing", "no/such/file.vdo", window);
  const XI1Vector too_short("sel", 2, 1);
  I2Vector unknown(1, 5);
  EXPECT_EQ(dataset->DelVar(9), 0);
  EXPECT_EQ(dataset->GetVIPtr()->GetStatus(), 8021);
  EXPECT_EQ(dataset->DelObs(9), 8014);
  EXPECT_EQ(dataset->DeleteExcludedObservations(nullptr), 8022);
  EXPECT_EQ(dataset->DeleteExcludedObservations(&too_short), 5004);
  EXPECT_EQ(dataset->DelVars(nullptr), 8022);
  EXPECT_EQ(dataset->DelVars(&unknown), 8014);
  EXPECT_EQ(dataset->AddVars(nullptr, 1), 0);
  EXPECT_EQ(dataset->GetStatus(), 8022);
  EXPECT_EQ(dataset->AddVars(nullptr, -1), 0);
  EXPECT_EQ(dataset->GetStatus(), 8013);
  EXPECT_EQ(dataset->MergeObs(nullptr, false), 8022);
  EXPECT_EQ(dataset->MergeVar(nullptr, true), 8022);
  EXPECT_EQ(dataset->MergeVar(taller.get(), false), 8046);
  EXPECT_EQ(dataset->MergeObs(&missing, false), 2004);
  EXPECT_EQ(dataset->GetNVarDS(), 2);
  EXPECT_EQ(dataset->GetDMPtr()->NCol(), 3);
  EXPECT_EQ(dataset->GetVIPtr()->GetNVar(), 3);
  EXPECT_EQ(dataset->DelObs(3), 0);
  EXPECT_EQ(Content(*dataset), SmallTable(2, 2));
}

TEST(DatasetEdit, DeletesAVariableForEachNumberListed) {
  StreamWindow window;
  PlainTable table = SmallTable(1, 4);
  table.variables[2].number = 2;
  const auto dataset = MakeDataset(table, window);
  I2Vector listed(3, 2);
  EXPECT_EQ(dataset->DelVars(&listed), 8014) << "two have the number";
  listed[3] = 4;
  EXPECT_EQ(dataset->DelVars(&listed), 0);
  EXPECT_EQ(Content(*dataset), SmallTable(1, 1));
}

TEST(DatasetEdit, NoDataSetGrowsBeyond32767) {
  StreamWindow window;
  const auto tall = MakeDataset(SmallTable(20000, 1), window);
  EXPECT_EQ(tall->MergeObs(tall.get(), true), 8021);
  EXPECT_EQ(Content(*tall), SmallTable(20000, 1));
  const auto wide = MakeDataset(SmallTable(1, 20000), window);
  EXPECT_EQ(wide->MergeVar(wide.get(), true), 8021);
  EXPECT_EQ(wide->AddVars(nullptr, 32767), 0);
  EXPECT_EQ(Content(*wide), SmallTable(1, 20000));
  const auto full = MakeDataset(SmallTable(32767, 0), window);
  EXPECT_EQ(full->AddObs(1, "one more"), 0);
  EXPECT_EQ(full->GetStatus(), 8021);
  EXPECT_EQ(full->GetOIPtr()->GetNItm(), 32767);
  const auto one = MakeDataset(SmallTable(1, 1), window);
  const auto almost_tall = MakeDataset(SmallTable(32766, 1), window);
  const auto almost_wide = MakeDataset(SmallTable(1, 32766), window);
  for (const int status : {0, 8021}) {
    EXPECT_EQ(almost_tall->MergeObs(one.get(), true), status);
    EXPECT_EQ(almost_tall->GetNObsDS(), 32767);
    EXPECT_EQ(almost_wide->MergeVar(one.get(), true), status);
    EXPECT_EQ(almost_wide->GetNVarDS(), 32767);
  }
  EXPECT_EQ(almost_wide->DelVar(32767), 0);
  EXPECT_EQ(almost_wide->AddVar("v"), 32767);
  EXPECT_EQ(almost_wide->AddVar("v"), 0);
}

TEST(DatasetEdit, TablesThatAFileLeftOutAreAddedByTheFirstEdit) {
  StreamWindow window;
  const auto dataset = MakeDataset(SmallTable(2, 2), window);
  const auto bare = MakeDataset(SmallTable(2, 2), window);
  Inside::SetOI(bare.get(), nullptr);
  Inside::SetVI(bare.get(), nullptr);
  EXPECT_EQ(dataset->MergeVar(bare.get(), false), 8055);
  EXPECT_EQ(bare->GetVIPtr(), nullptr);
  EXPECT_EQ(Content(*dataset).variables,
            (std::vector<Label>{{1, "v1"}, {2, "v2"}, {3, ""}, {4, "_1"}}));
  EXPECT_EQ(bare->DelObs(1), 0);
  EXPECT_EQ(Content(*bare), (PlainTable{{{1, ""}, {2, ""}}, {{2, ""}}, {{21.0f, 22.0f}}}));
}

TEST(DatasetMergeObs, TellsOfNewNumbersAndNames) {
  test::RecordingWindow window;
  const auto dataset = MakeDataset(SmallTable(2, 1), window);
  const auto other = MakeDataset(SmallTable(2, 1), window);
  other->SetObsNum(1, 30);
  EXPECT_EQ(dataset->MergeObs(other.get(), false), 8055);
  EXPECT_EQ(dataset->MergeObs(other.get(), true), 0);
  EXPECT_EQ(window.log,
            "Duplicate observation number 2.\n"
            "Observations have been renumbered starting with 1.\n"
            "Observations have been reidentified starting with Obs_1.\n");
  EXPECT_EQ(Content(*dataset).observations,
            Numbered({"Obs_1", "Obs_2", "Obs_3", "Obs_4", "Obs_5", "Obs_6"}));
}

TEST(DatasetMergeVar, ARenamingAnswersTheObservationTablesStatus) {
  StreamWindow window;
  const auto dataset = MakeDataset(SmallTable(1, 1), window);
  EXPECT_EQ(dataset->DelObs(9), 8014);
  EXPECT_EQ(dataset->MergeVar(dataset.get(), true), 8014);
  EXPECT_EQ(Content(*dataset).variables, Numbered({"Var_1", "Var_2"}));
}

// Of variables that are merged with others, or of observations that become variables.
TEST(DatasetEdit, RepairsRepeatedNamesAndTells) {
  const std::string tight(21, 'n'), loose(22, 'n');
  const std::string repeated = "Duplicate variable name ";
  const std::string too_long = ".\nVariable name too long, can not fix duplicate name.\n";
  using Names = std::vector<std::string>;
  const struct {
    Names names, others, repaired;
    std::string log;
  } cases[] = {
      {{"B", "B_1"}, {"B", "C"}, {"B", "B_1", "B_2", "C"}, repeated + "B.\nChanged to B_2.\n"},
      {{tight},
       {tight},
       {tight, tight + "_1"},
       repeated + tight + ".\nChanged to " + tight + "_1.\n"},
      {{loose},
       {loose},
       {"Var_1", "Var_2"},
       repeated + loose + too_long + "Variables have been renamed starting with Var_1.\n"},
      {{"A", "A_2", "A", "A"},
       {},
       {"A", "A_2", "A_2_2", "A_3"},
       repeated + "A.\nChanged to A_2.\n" + repeated + "A.\nChanged to A_3.\n" + repeated +
           "A_2.\nChanged to A_2_2.\n"},
      {{loose, loose},
       {},
       {"V1", "V2"},
       repeated + loose + too_long + "New variable names are given starting with V1.\n"},
  };
  for (const auto& c : cases) {
    test::RecordingWindow window;
    const auto dataset = MakeDataset(WithVariables(2, c.names), window);
    if (c.others.empty()) {
      EXPECT_EQ(dataset->Transpose(true), 0);  // the names are now those of observations
      window.log.clear();
      EXPECT_EQ(dataset->Transpose(false), 8055);
    } else {
      EXPECT_EQ(dataset->MergeVar(MakeDataset(WithVariables(2, c.others), window).get(), false),
                8055);
    }
    EXPECT_EQ(Content(*dataset).variables, Numbered(c.repaired));
    EXPECT_EQ(window.log, c.log);
  }
}

TEST(CopyObservationData, TheMapIsKeptUntilTheLengthDiffersOrItIsDropped) {
  StreamWindow window;
  const auto to = MakeDataset(WithVariables(2, {"a", "b"}), window);
  const auto from = MakeDataset(WithVariables(2, {"b", "z", "a"}), window);
  const auto stranger = MakeDataset(WithVariables(2, {"x"}), window);
  const auto copy = [&](Dataset* source, int to_row, int from_row, bool fill) {
    return Dataset::CopyObservationData(to.get(), to_row, source, from_row, fill);
  };
  EXPECT_TRUE(copy(nullptr, 1, 1, true));
  EXPECT_TRUE(copy(from.get(), 1, 2, true));
  EXPECT_EQ(Content(*to).values[0], (std::vector<float>{23.0f, 21.0f}));
  // The kept map reaches beyond the only column of this one.
  EXPECT_TRUE(copy(stranger.get(), 1, 1, true));
  EXPECT_EQ((*to)[1][1], kGap);
  EXPECT_EQ((*to)[1][2], 11.0f);
  copy(nullptr, 1, 1, true);
  EXPECT_FALSE(copy(stranger.get(), 2, 1, false));
  EXPECT_FALSE(copy(stranger.get(), 65537, 1, true));
  EXPECT_EQ((*to)[2][1], 21.0f);
  EXPECT_TRUE(copy(nullptr, 1, 1, true));
}

}  // namespace
}  // namespace zemva
