#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/plain_table.h"
#include "support/recording_window.h"
#include "zemva/data/blk_info.h"
#include "zemva/data/cla_info.h"
#include "zemva/data/dataset.h"
#include "zemva/data/ds_info.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/model/workset/workset.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {
namespace {

ObsInfo ThreeObservations() {
  ObsInfo table("Obs");
  table.AddObs(10, "a");
  table.AddObs(20, "b");
  table.AddObs(30, "c");
  return table;
}

TEST(ItmInfo, TextsAreCutAtTheirFields) {
  VarInfo table(std::string(30, 't').c_str());
  EXPECT_FALSE(table.IsModified());
  EXPECT_EQ(table.GetNam(), std::string(24, 't'));
  table.AddVar(1, std::string(60000, 'n').c_str());
  table.AddVar(2, nullptr);
  EXPECT_EQ(table.GetVNam(1), std::string(25, 'n'));
  EXPECT_STREQ(table.GetVNam(2), "");
}

TEST(ItmInfo, FailedChangesKeepTheirCodeAndChangeNothing) {
  ObsInfo observations = ThreeObservations();
  VarInfo variables("Var");
  observations.ClearIsModified();
  EXPECT_EQ(observations.DelObs(99), 8014);
  EXPECT_EQ(observations.SetONum(0, 1), 8021);
  EXPECT_EQ(observations.SetONam(4, "x"), 7002);
  EXPECT_EQ(observations.SetINum(-1, 1), 7002);
  EXPECT_EQ(observations.KeepItms(XI1Vector("short", 2, 1)), 8021);
  EXPECT_EQ(observations.GetStatus(), 8021);
  EXPECT_EQ(variables.DelVar(1), 8021);
  EXPECT_EQ(variables.GetStatus(), 8021);
  EXPECT_EQ(observations.GetNItm(), 3);
  EXPECT_FALSE(observations.IsModified());

  short number = 5;
  char old[] = "old";
  char* name = old;
  EXPECT_EQ(observations.GetObs(4, number, name), 8021);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(name, nullptr);
}

TEST(ItmInfo, ItemsCompareByNumberAndACopyIsWhole) {
  const VarData item(1, "b");
  EXPECT_TRUE(item < VarData(2, "a"));
  EXPECT_FALSE(item < VarData(1, "c"));
  EXPECT_TRUE(item == VarData(1, "a"));
  EXPECT_TRUE(item != VarData(2, "b"));

  ObsInfo table = ThreeObservations();
  EXPECT_EQ(table.DelObs(99), 8014);
  const ObsInfo copy(table);
  ObsInfo assigned("other");
  assigned = table;
  table.DelAll();
  table.ClearStatus();
  for (const ObsInfo* each : {&copy, &std::as_const(assigned)}) {
    EXPECT_STREQ(each->GetNam(), "Obs");
    EXPECT_EQ(each->GetONum(3), 30);
    EXPECT_EQ(each->GetONum(4), 0);
    EXPECT_EQ(each->GetStatus(), 8014);
    EXPECT_TRUE(each->IsModified());
  }
  EXPECT_EQ(ObsInfo(static_cast<const ObsInfo*>(nullptr)).GetStatus(), 8022);
}

TEST(ItmInfo, AFullTableRefusesAnotherRow) {
  ObsInfo table("Obs");
  for (int i = 1; i <= 32767; ++i) ASSERT_EQ(table.AddObs(static_cast<short>(i), "o"), 0);
  EXPECT_NE(table.AddObs(1, "one more"), 0);
  EXPECT_EQ(table.GetNItm(), 32767);
  EXPECT_EQ(table.GetOIx(32767), 32767);
}

TEST(ObsInfo, DeletingClosesTheGapAndKeepsTheItemNumbers) {
  ObsInfo table = ThreeObservations();
  EXPECT_EQ(table.DelObs(20), 0);
  test::RecordingWindow window;
  table.ShowAll(window);
  table.ShowObs(2, window);
  table.ShowObs(3, window);
  EXPECT_EQ(window.log,
            "Obs has 2 items:\n"
            "  Item  ONum      ONam\n"
            "     1    10         a\n"
            "     3    30         c\n"
            "Obs, item 2 is:\n"
            "  Item  ONum      ONam\n"
            "     3    30         c\n"
            "Obs, item 3 is:\n"
            "  Item  ONum      ONam\n");
}

TEST(ObsInfo, ExtractKeepsSelectedRowsAndLabels) {
  ObsInfo table = ThreeObservations();
  table.SetLabel(3, std::string(40, 'l').c_str());
  for (const int none : {0, 4}) {
    table.SetLabel(none, "x");
    EXPECT_STREQ(table.GetLabel(none), "");
  }
  XI1Vector selection("sel", 3, 1);
  selection[1] = 2;
  const std::unique_ptr<ObsInfo> extract(table.ExtObsInfo(&selection));
  ASSERT_NE(extract, nullptr);
  EXPECT_STREQ(extract->GetNam(), "ObsInfo");
  EXPECT_EQ(extract->GetNItm(), 2);
  EXPECT_EQ(extract->GetONum(1), 20);
  EXPECT_EQ(extract->GetINum(1), 2);
  EXPECT_EQ(extract->GetLabel(3), std::string(22, 'l'));
  EXPECT_STREQ(extract->GetLabel(1), "");
  EXPECT_EQ(table.ExtObsInfo(nullptr), nullptr);
  const XI1Vector one("short", 1, 1);
  EXPECT_EQ(std::unique_ptr<ObsInfo>(table.ExtObsInfo(&one))->GetNItm(), 1);
}

TEST(VarInfo, ListingShowsPositionsAndACopyIsItsOwn) {
  VarInfo table("Var");
  table.AddVar(7, "x");
  table.AddVar(7, "y");
  VarInfo copy(&table);
  copy.SetVNam(1, "changed");
  EXPECT_EQ(table.GetVIx(7), 1);
  EXPECT_EQ(table.GetVIx("y"), 2);
  EXPECT_EQ(table.GetVIx("Y"), 0);
  test::RecordingWindow window;
  table.ShowAll(window);
  table.ShowVar(2, window);
  table.ItmInfo::ShowItm(2, window);
  EXPECT_EQ(window.log,
            "Var has 2 items:\n"
            "  Item  VNum      VNam\n"
            "     1     7         x\n"
            "     2     7         y\n"
            "Var, item 2 is:\n"
            "  Item  VNum      VNam\n"
            "     2     7         y\n"
            "PrivateItmInfo, item 2 is:\n"
            "  Item  INum  INam\n"
            "     2     7y\n");
}

TEST(ObsInfo, SettingATimeChangesTheArgumentAlone) {
  ObsInfo table("Obs");
  KOTime time;
  time.Set(5.0, KOTime::kInterval);
  table.SetStaTim(time);
  EXPECT_EQ(table.GetStaTim().GetValue(), 0.0);
  EXPECT_EQ(time.GetValue(), 5.0);
  EXPECT_EQ(time.GetKind(), KOTime::kInstant);
  table.SetSmpInt(time);
  EXPECT_EQ(time.GetKind(), KOTime::kInterval);
}

TEST(DSInfo, KeepsAddressesWholeAndDataSetsWithoutOwningThem) {
  DSInfo table("Data sets");
  test::RecordingWindow window;
  Dataset dataset("One", "one.vdo", window);
  EXPECT_EQ(table.AddDS(3, "One", "one.vdo", &dataset), 0);
  EXPECT_EQ(table.AddDS(4, "Two", std::string(261, 'x').c_str(), nullptr), 8013);
  EXPECT_EQ(table.SetDSAddr(1, std::string(261, 'x').c_str()), 8013);
  EXPECT_EQ(table.GetNItm(), 1);
  EXPECT_EQ(table.GetDSIx(short{3}), 1);
  EXPECT_STREQ(table.GetDSAddr(1), "one.vdo");
  EXPECT_EQ(table.GetDS(1), &dataset);
  EXPECT_EQ(table.GetDS(2), nullptr);
  EXPECT_EQ(table.SetDS(2, nullptr), 7002);
  EXPECT_EQ(table.SetDSAddr(2, ""), 7002);
  EXPECT_EQ(table.SetDSAddr(1, "two.vdo"), 0);
  table.ClearIsModified();
  EXPECT_EQ(table.SetDS(1, nullptr), 0);
  EXPECT_TRUE(table.IsModified());
  EXPECT_EQ(table.GetDS(1), nullptr);
  table.ShowAll(window);
  EXPECT_EQ(window.log,
            "Data sets has 1 items:\n"
            "  Item DSNum     DSNam  DSAddr\n"
            "     1     3       One  two.vdo\n");
}

// --- Tables of groups: classes of observations, blocks of variables ---

// Takes the classes from a work set.
void SetClasses(const std::vector<int>& classes, ClaInfo& table) {
  StreamWindow window;
  const auto dataset =
      test::MakeDataset(test::SmallTable(static_cast<int>(classes.size()), 1), window);
  Workset workset("WS", *dataset, window);
  short i = 0;
  for (const int c : classes) EXPECT_EQ(workset.SetOClass(++i, static_cast<char>(c)), 0);
  EXPECT_EQ(table.SetClaInfo(&workset), 0);
}

ClaInfo MakeClasses(const std::vector<int>& classes) {
  ClaInfo table("Classes", static_cast<short>(classes.size()));
  SetClasses(classes, table);
  return table;
}

// A block table whose rows count what `blocks` says of the variables.
BlkInfo MakeBlocks(const std::vector<int>& blocks, const std::vector<int>& rows) {
  BlkInfo table("Blocks", static_cast<short>(blocks.size()));
  short v = 0;
  for (const int b : blocks) table.SetBStat(++v, static_cast<char>(b));
  for (const int b : rows) {
    const auto nvar = static_cast<short>(std::count(blocks.begin(), blocks.end(), b));
    table.AddItm(static_cast<char>(b), "blk", BlkInfo::kSquareRoot, nvar, 0.5f);
  }
  return table;
}

std::vector<int> BlocksOf(const BlkInfo& table) {
  std::vector<int> blocks;
  for (short v = 1; v <= table.GetNVar(); ++v) blocks.push_back(table.GetBStat(v));
  return blocks;
}

using Blocks = std::vector<int>;

TEST(ClaInfo, RowsFollowTheAssignments) {
  ClaInfo table = MakeClasses({3, 3, 1, 3});
  EXPECT_EQ(table.GetNOClass(), 2);
  EXPECT_EQ(table.GetOClassNum(1), 3);
  EXPECT_EQ(table.GetNObsOClass(1), 3);
  EXPECT_EQ(table.GetOClassNum(2), 1);
  const ItmInfo& rows = table;
  EXPECT_STREQ(rows.GetINam(2), "Class1");
  SetClasses({0, 3, 0, 3, 7}, table);  // the last is no observation of the table
  EXPECT_EQ(rows.GetINam(2), nullptr);
  EXPECT_EQ(table.GetNOClass(), 1);
  EXPECT_EQ(table.GetNObsOClass(2), 0);
  test::RecordingWindow window;
  table.ShowAll(window);
  EXPECT_EQ(window.log.find("Classes has 1 items:\nOClass is: NValA= 4\n"), 0u);
  EXPECT_TRUE(
      window.log.ends_with("\n  Item  CNum     CNam  NObs\n     1     3   Class3       2\n"));
}

TEST(ClaInfo, NumbersForANewClass) {
  std::vector<int> all(99);
  for (int c = 1; c <= 99; ++c) all[static_cast<std::size_t>(c - 1)] = c;
  EXPECT_EQ(MakeClasses({}).GetNextOClassNum(), 1);
  EXPECT_EQ(MakeClasses({0, 4, 2}).GetNextOClassNum(), 5);
  EXPECT_EQ(MakeClasses({99}).GetNextOClassNum(), 1);
  EXPECT_EQ(MakeClasses({1, 99, 3}).GetNextOClassNum(), 2);
  EXPECT_EQ(MakeClasses(all).GetNextOClassNum(), 0);
}

TEST(ClaInfo, ExtractKeepsTheSelectedOrNothing) {
  ClaInfo table = MakeClasses({3, 0, 1, 3});
  XI1Vector selection("sel", 4, char{0});
  selection[2] = 1;
  EXPECT_EQ(table.ExtClaInfo(&selection), nullptr);
  EXPECT_EQ(table.GetStatus(), 0);
  selection[4] = 1;
  const std::unique_ptr<ClaInfo> extract(table.ExtClaInfo(&selection));
  ASSERT_NE(extract, nullptr);
  EXPECT_STREQ(extract->GetNam(), "ClaInfo");
  EXPECT_EQ(extract->GetOClass(2), 3);
  EXPECT_EQ(extract->GetNOClass(), 1);
  EXPECT_EQ(table.ExtClaInfo(nullptr), nullptr);
}

TEST(BlkInfo, NumbersForANewBlock) {
  const struct {
    Blocks rows;
    int next;
  } cases[] = {{{}, 1}, {{1, 5}, 6}, {{97}, 98}, {{98}, 1}, {{2, 1, 99}, 3}};
  for (const auto& c : cases) EXPECT_EQ(MakeBlocks({}, c.rows).GetBNumNext(), c.next);
}

TEST(BlkInfo, VariablesComeInNoBlockAndLeaveNoBlockOfOne) {
  BlkInfo table = MakeBlocks({1, 2, 1, 1}, {1, 2});
  EXPECT_EQ(table.AddVar(0), 8014);
  EXPECT_EQ(table.AddVar(4), 0);
  EXPECT_EQ(table.AddVar(30), 0);
  EXPECT_EQ(BlocksOf(table), (Blocks{1, 2, 1, 0, 1, 0}));
  table.SetBStat(6, 2);
  EXPECT_EQ(table.DelVar(0), 8014);
  EXPECT_EQ(table.DelVar(7), 8014);
  EXPECT_EQ(table.DelVar(4), 8014);
  EXPECT_EQ(BlocksOf(table), (Blocks{1, 2, 1, 0, 1, 2}));
  EXPECT_EQ(table.DelVar(1), 0);
  EXPECT_EQ(BlocksOf(table), (Blocks{2, 1, 0, 1, 2}));
  EXPECT_EQ(table.GetNVar(1), 2);
  EXPECT_EQ(table.DelVar(5), 0);
  EXPECT_EQ(BlocksOf(table), (Blocks{0, 1, 0, 1}));
  EXPECT_EQ(table.GetNItm(), 1);
  EXPECT_EQ(table.GetBNum(1), 1);
}

TEST(BlkInfo, ABlockHasTheVariablesThatAreInIt) {
  BlkInfo table = MakeBlocks({1, 2, 1, 2, 2, 3}, {1, 2});
  table.UpdateItm(1, 1, "blk", BlkInfo::kSquareRoot, 9, 0.5f);
  table.UpdateItm(2, 2, "blk", BlkInfo::kSquareRoot, 1, 0.5f);
  EXPECT_EQ(table.DelVar(6), 0) << "of a block without a row";
  EXPECT_EQ(table.DelVar(1), 0);
  EXPECT_EQ(BlocksOf(table), (Blocks{2, 0, 2, 2}));
  EXPECT_EQ(table.DelVar(1), 0);
  EXPECT_EQ(BlocksOf(table), (Blocks{0, 2, 2}));
  EXPECT_EQ(table.GetNItm(), 1);
  EXPECT_EQ(table.GetNVar(1), 2);
}

TEST(BlkInfo, AVariableMadeOfAnotherJoinsItsBlock) {
  BlkInfo table = MakeBlocks({7, 7, 0, 0}, {7});
  for (const auto& [v, source] : {std::pair(0, 1), {5, 1}, {3, 0}, {3, 5}}) {
    EXPECT_EQ(table.FixAddedVars(static_cast<short>(v), static_cast<short>(source)), 8021);
  }
  EXPECT_EQ(table.FixAddedVars(2, 1), 8023);
  EXPECT_EQ(table.FixAddedVars(4, 1), 0);
  EXPECT_EQ(table.FixAddedVars(3, 3), 0) << "of one in no block";
  EXPECT_EQ(BlocksOf(table), (Blocks{7, 7, 0, 7}));
  EXPECT_EQ(table.GetNVar(1), 3);
}

TEST(BlkInfo, RefusesNumbersOutside1To99) {
  BlkInfo table = MakeBlocks({1, 1}, {1, 99});
  for (const char b : {char{-5}, char{0}, char{100}}) {
    EXPECT_EQ(table.AddItm(b, "x", BlkInfo::kSquareRoot, 2, 1.0f), 8021);
    EXPECT_EQ(table.UpdateItm(1, b, "x", BlkInfo::kSquareRoot, 2, 1.0f), 8021);
    EXPECT_EQ(table.SetINum(1, b), 8021);
    EXPECT_EQ(b == 0 ? 8021 : table.SetBStat(1, b), 8021);
  }
  EXPECT_EQ(table.SetINum(1, 98), 0);
  EXPECT_EQ(table.GetNItm(), 2);
  EXPECT_EQ(table.GetBNum(1), 98);
}

TEST(BlkInfo, ExtractKeepsBlocksOfTwoOrMore) {
  BlkInfo table = MakeBlocks({1, 2, 1, 2, 1}, {1, 2});
  XI1Vector selection("sel", 5, 'X');
  selection[4] = 'Y';
  const std::unique_ptr<BlkInfo> extract(table.ExtBlkInfo(&selection, 'X'));
  ASSERT_NE(extract, nullptr);
  EXPECT_STREQ(extract->GetNam(), "BlkInfoX");
  EXPECT_EQ(BlocksOf(*extract), (Blocks{1, 0, 1, 1}));
  EXPECT_EQ(extract->GetNItm(), 1);
  EXPECT_EQ(extract->GetNVar(1), 3);
}

TEST(BlkInfo, RowsAreReadUpdatedAndListed) {
  BlkInfo table = MakeBlocks({1, 1, 1, 1}, {1});
  char number;
  char* name;
  BlkInfo::EBlkType type;
  short nvar;
  float weight, scale;
  EXPECT_EQ(table.GetItm(2, number, name, type, nvar, weight, scale), 7002);
  EXPECT_EQ(table.UpdateItm(2, 1, "x", BlkInfo::kSquareRoot, 1, 1.0f), 7002);
  ASSERT_EQ(table.GetItm(1, number, name, type, nvar, weight, scale), 0);
  EXPECT_EQ(scale, 0.5f);
  EXPECT_EQ(table.UpdateItm(1, 7, "new", BlkInfo::kUndefined, 4, 0.25f), 0);
  ASSERT_EQ(table.GetItm(1, number, name, type, nvar, weight, scale), 0);
  EXPECT_EQ(number, 7);
  EXPECT_EQ(scale, -99.0f);
  EXPECT_EQ(BlkInfo::GetBlkType("1/4root"), BlkInfo::kFourthRoot);
  EXPECT_STREQ(BlkInfo::GetString(BlkInfo::kUndefined), "");
  const std::string row = "     1     7      new    Undef       4      0.25\n";
  test::RecordingWindow window;
  table.ShowItm(1, window);
  EXPECT_EQ(window.log,
            "Blocks, item 1 is:\n  Item  BNum BNam        BType       NVar  BWeig\n" + row);
  table.ShowAll(window);
  EXPECT_TRUE(window.log.ends_with("  Item  BNum     BNam  BType   NVar    BWeig\n" + row));
  window.log.clear();
  table.ShowItm(2, window);
  EXPECT_EQ(window.log, "Index error.\n");
  table.DelAll();
  EXPECT_EQ(BlocksOf(table), (Blocks{0, 0, 0, 0}));
}

}  // namespace
}  // namespace zemva
