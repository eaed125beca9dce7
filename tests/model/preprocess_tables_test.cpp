#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include "model/preprocess/exp_info.h"
#include "model/preprocess/lag_info.h"
#include "model/preprocess/tra_info.h"
#include "numeric/missing.h"
#include "numeric/x_vector.h"
#include "support/recording_window.h"

namespace zemva {
namespace {

constexpr float kLargest = std::numeric_limits<float>::max();

TEST(TraData, FormulasHaveTheirValues) {
  const struct {
    ETraType type;
    float c1, c2, c3, x, y;
  } cases[] = {
      {ETraType::kNone, 5, 5, 5, 3, 3},         {ETraType::kLinear, 2, 1, 0, 3, 7},
      {ETraType::kLog, 90, 10, 0, 11, 3},       {ETraType::kNegLog, 1, 0, 0, 1e-4f, 4},
      {ETraType::kLogit, 1, 12, 0, 11, 1},      {ETraType::kExp, 2, 1, 0, -0.5f, 1},
      {ETraType::kPower, 3, 1, 2, 1, 16},       {ETraType::kPower, 1, 0, 3, -2, -8},
      {ETraType::kPower, 1, 0, -0.5f, 4, 0.5f}, {ETraType::kLinear, 0, 4, 0, 3, 4},
  };
  for (const auto& c : cases) {
    const TraData row(1, "x", c.type, c.c1, c.c2, c.c3);
    EXPECT_FLOAT_EQ(row.Transform(c.x), c.y) << TraData::GetFormat(c.type, 'x');
  }
}

TEST(TraData, BackTransformationInverts) {
  for (int type = 0; type <= 6; ++type) {
    for (const float c1 : {-2.0f, -0.25f, 0.5f, 3.0f}) {
      for (const float c2 : {-4.0f, 0.0f, 1.5f, 20.0f}) {
        for (const float c3 : {-1.0f, 0.5f, 2.0f}) {
          for (const float x : {-30.0f, -3.5f, -0.2f, 0.3f, 1.0f, 7.0f, 40.0f}) {
            // An even power has no way back from the negative side.
            if (type == 6 && c1 * x + c2 <= 0.0f) continue;
            const TraData row(1, "x", static_cast<ETraType>(type), c1, c2, c3);
            const float y = row.Transform(x);
            // Nor has a value without transform, or one that was rounded to 0.
            if (IsMissing(y) || (type == 5 && y < 1e-30f)) continue;
            EXPECT_NEAR(row.BackTra(y), x, 2e-4)
                << TraData::GetFormat(row.GetTraType(), 'x') << ' ' << c1 << ' ' << c2;
          }
        }
      }
    }
  }
}

TEST(TraData, WhatHasNoValueIsMissing) {
  const struct {
    const char* what;
    ETraType type;
    float c1, c2, c3, value;
    bool is_back;
  } cases[] = {
      {"missing", ETraType::kNone, 0, 0, 0, kMissing, false},
      {"missing, linear", ETraType::kLinear, 2, 1, 0, kMissing, false},
      {"log of 0", ETraType::kLog, 1, -2, 0, 2, false},
      {"log of a negative", ETraType::kNegLog, -1, 0, 0, 2, false},
      {"lower end", ETraType::kLogit, 1, 5, 0, 1, false},
      {"upper end", ETraType::kLogit, 1, 5, 0, 5, false},
      {"outside", ETraType::kLogit, 1, 5, 0, 6, false},
      {"empty interval", ETraType::kLogit, 5, 5, 0, 5, false},
      {"exp too large", ETraType::kExp, 1, 0, 0, 89, false},
      {"exp beyond a double", ETraType::kExp, 1, 0, 0, 1e6f, false},
      {"root of a negative", ETraType::kPower, 1, 0, 0.5f, -1, false},
      {"pole", ETraType::kPower, 1, 0, -1, 0, false},
      {"too large", ETraType::kLinear, 10, 0, 0, kLargest, false},
      {"unknown type", static_cast<ETraType>(7), 1, 1, 1, 2, false},
      {"back by c1 = 0", ETraType::kLinear, 0, 1, 0, 1, true},
      {"back by c1 = 0, log", ETraType::kLog, 0, 1, 0, 1, true},
      {"back by c1 = 0, -log", ETraType::kNegLog, 0, 1, 0, 1, true},
      {"back by c1 = 0, exp", ETraType::kExp, 0, 1, 0, 1, true},
      {"back by c1 = 0, power", ETraType::kPower, 0, 1, 1, 1, true},
      {"back by c3 = 0", ETraType::kPower, 1, 0, 0, 0.5f, true},
      {"back of a negative", ETraType::kExp, 1, 0, 0, -1, true},
      {"back of 0", ETraType::kExp, 1, 0, 0, 0, true},
      {"back too large", ETraType::kLog, 1, 0, 0, 39, true},
      {"back missing", ETraType::kLog, 1, 0, 0, kMissing, true},
  };
  for (const auto& c : cases) {
    const TraData row(1, "x", c.type, c.c1, c.c2, c.c3);
    EXPECT_EQ(c.is_back ? row.BackTra(c.value) : row.Transform(c.value), kMissing) << c.what;
  }
  EXPECT_EQ(TraData::Transform(-1e6f, ETraType::kExp, 1, 0, 0), 0.0f);
  EXPECT_GT(TraData::Transform(88.0f, ETraType::kExp, 1, 0, 0), 1e38f);
}

TEST(PreprocessTables, FormulasAndNamesArePrinted) {
  EXPECT_STREQ(TraData::GetFormat(ETraType::kLogit, 'y'), "10Log((y-c1)/(c2-y))");
  EXPECT_STREQ(TraData::GetFormat(ETraType::kNegLog, '%'), "-10Log(c1*%+c2)");
  EXPECT_STREQ(TraData::GetFormat(static_cast<ETraType>(-1), 'x'), "");
  EXPECT_STREQ(ExpData::DefaultName('X', 4, 4, 0).Get(), "X4X4");
  EXPECT_STREQ(ExpData::DefaultName('Y', 32767, 1, -32768).Get(), "Y32767Y1Y-32768");
  EXPECT_STREQ(LagData::DefaultName(2, "flow").Get(), "002flow");
  EXPECT_STREQ(LagData::DefaultName(1234, nullptr).Get(), "1234");
  EXPECT_EQ(LagData::DefaultName(12, std::string(60, 'n').c_str()).Get(),
            "012" + std::string(22, 'n'));
}

TEST(PreprocessTables, ListingsShowARowALine) {
  TraInfo transformations("Tra");
  transformations.AddItm({3, "x", ETraType::kPower, 1.0f, 0.5f, kMissing});
  ExpInfo terms("Exp");
  terms.AddItm({11, "X1X2", 1, 2, 0, kMissing});
  LagInfo lags("Lag");
  lags.AddItm({12, "001flow", 4, 1, 0.5f, 2});
  lags.AddItm({13, "001heat", 5, 1, 1.0f, 0});
  lags.AddItm({14, "010flow", 4, 10, 0.25f, 0});
  test::RecordingWindow window;
  transformations.ShowAll(window);
  terms.ShowAll(window);
  lags.ShowItm(3, window);
  lags.ShowItm(4, window);
  lags.ShowStructures(window);
  EXPECT_EQ(window.log,
            "Tra has 1 items:\n"
            "  Item\tVNum\tTraType\tTraC1\t\tTraC2\t\tTraC3\n"
            "     1\t3\t(c1*X+c2)**c3\t1\t\t0.5\t\t-99\n"
            "Exp has 1 items:\n"
            "  Item  VNum       VName   VNum1  VNum2  VNum3  Modifier\n"
            "     1    11        X1X2       1      2      0       -99\n"
            "Lag, item 3 is:\n"
            "  Item  VNum  VName    VNumDS Lag  Lambda Delay\n"
            "     3    14  010flow       4  10    0.25     0\n"
            "Lag, item 4 is:\n"
            "  Item  VNum  VName    VNumDS Lag  Lambda Delay\n"
            "Lagstructures are:\n"
            "     4     1    10\n"
            "     5     1\n");
}

TEST(PreprocessTables, ExtractsAreCopiesOfTheSelectedRows) {
  TraInfo table("Tra");
  for (short vnum = 5; vnum <= 7; ++vnum)
    table.AddItm({vnum, "x", ETraType::kLinear, 1, 2, 10.0f * vnum});
  XI1Vector selection("sel", 3, 1);
  selection[2] = 0;
  const std::unique_ptr<TraInfo> extract(table.ExtTraInfo(&selection));
  EXPECT_EQ(table.Update({7, "changed", ETraType::kNone, 0, 0, 0}), 0);
  EXPECT_EQ(table.Update({8, "absent", ETraType::kNone, 0, 0, 0}), 8015);
  EXPECT_EQ(table.DelItm(4), 7002);
  ASSERT_NE(extract, nullptr);
  EXPECT_STREQ(extract->GetNam(), "TraInfoX");
  ASSERT_EQ(extract->GetNItm(), 2);
  EXPECT_EQ(extract->GetItm(2)->GetTraC3(), 70.0f);
  EXPECT_EQ(extract->GetItm(3), nullptr);
  EXPECT_EQ(table.ExtTraInfo(nullptr), nullptr);
  EXPECT_STREQ(std::unique_ptr<LagInfo>(LagInfo("L").ExtLagInfo(&selection))->GetNam(), "LagInfoX");
  EXPECT_STREQ(std::unique_ptr<ExpInfo>(ExpInfo("E").ExtExpInfo(&selection))->GetNam(), "ExpInfoX");
}

// The search for a row goes round from where the last one was found.
TEST(PreprocessTables, RowsAreFoundInAnyOrder) {
  TraInfo table("Tra");
  for (short vnum = 50; vnum <= 70; vnum += 10) table.AddItm({vnum, "x", ETraType::kNone, 0, 0, 0});
  const struct {
    short vnum, position;
  } lookups[] = {{50, 1}, {60, 2}, {70, 3}, {50, 1}, {70, 3}, {60, 2}, {60, 2}, {65, 0}, {50, 1}};
  for (const auto& lookup : lookups) EXPECT_EQ(table.FindVar(lookup.vnum), lookup.position);
  EXPECT_EQ(table.FindVar(60), 2);
  table.DelItm(3);
  table.DelItm(2);
  EXPECT_EQ(table.FindVar(70), 0);
  EXPECT_EQ(table.FindVar(50), 1);
}

}  // namespace
}  // namespace zemva
