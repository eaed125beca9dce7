#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "data/plain_table.h"
#include "support/recording_window.h"
#include "zemva/data/blk_info.h"
#include "zemva/data/cla_info.h"
#include "zemva/model/workset/workset.h"

namespace zemva {
namespace {

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
