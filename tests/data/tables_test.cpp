#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/recording_window.h"
#include "zemva/data/dataset.h"
#include "zemva/data/ds_info.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
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

TEST(ObsInfo, LookUpStartsBehindTheLastHitAndGoesRound) {
  ObsInfo table("Obs");
  for (const int number : {5, 7, 5, 9}) table.AddObs(static_cast<short>(number), "");
  const struct {
    short number, position;
  } lookups[] = {{5, 1}, {5, 3}, {5, 1}, {8, 0}, {5, 3}, {9, 4}, {5, 1}, {7, 2}, {7, 2}};
  for (const auto& lookup : lookups) EXPECT_EQ(table.GetOIx(lookup.number), lookup.position);
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

}  // namespace
}  // namespace zemva
