#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "model/small_dataset.h"
#include "support/recording_window.h"
#include "zemva/data/selection.h"
#include "zemva/model/preprocess/columns.h"
#include "zemva/model/preprocess/sca_info.h"

namespace zemva {
namespace {

using test::Rows;
using test::RowsOf;
using enum ETraType;

constexpr float kM = kMissing;
constexpr auto kUnknown = static_cast<ETraType>(7);
constexpr float kLargest = std::numeric_limits<float>::max();
constexpr float kNotANumber = std::numeric_limits<float>::quiet_NaN();

// What an update makes of variable 7, whose column is the second and whose last row is masked.
ScaData Updated(const std::vector<float>& values, EScaType type, const ScaData& before,
                int expected_status = 0) {
  const int n = static_cast<int>(values.size());
  VarInfo variables("Var");
  variables.AddVar(3, "other");
  variables.AddVar(7, "x");
  XFMatrix matrix("X", n + 1, 2, 1e6f);
  XI1Vector mask("mask", n + 1, kNotSelected);
  for (int i = 1; i <= n; ++i) {
    matrix[i][2] = values[static_cast<std::size_t>(i - 1)];
    mask[i] = 2;
  }
  ScaInfo table("Sca");
  table.AddItm(before);
  EXPECT_EQ(table.Update(7, &variables, &matrix, &mask, type), expected_status);
  return *table.GetItm(1);
}

TEST(ScaInfo, UpdateWeighsByTheData) {
  // 1, 3, 5: mean 3, s^2 = 8/2 = 4. 1, 7: rms^2 = 50/2 = 25, s^2 = 18.
  const float s = std::sqrt(18.0f);
  const struct {
    const char* what;
    std::vector<float> values;
    EScaType type;
    float modifier, weight, weight_ac;
  } cases[] = {
      {"UV", {1, 3, 5}, EScaType::kUV, kM, 0.5f, 0.5f},
      {"UVN", {1, 7}, EScaType::kUVN, kM, 0.2f, 1.0f / s},
      {"Par", {1, 3, 5}, EScaType::kPar, kM, std::sqrt(0.5f), 0.5f},
      {"ParN", {1, 7}, EScaType::kParN, kM, std::sqrt(0.2f), 1.0f / s},
      {"Ctr", {1, 3, 5}, EScaType::kCtr, 3.0f, 1.0f, 0.5f},
      {"modified after the root", {1, 3, 5}, EScaType::kPar, 2.0f, 2.0f * std::sqrt(0.5f), 0.5f},
      {"missing", {kM, 1, kM, 3, 5}, EScaType::kUV, kM, 0.5f, 0.5f},
      {"offset", {1000001, 1000002, 1000003}, EScaType::kUV, kM, 1.0f, 1.0f},
      {"one value modified", {4}, EScaType::kPar, 2.0f, kM, kM},
      {"one value, root of rms", {4}, EScaType::kParN, kM, 0.5f, kM},
      {"no value", {kM}, EScaType::kUVN, kM, kM, kM},
      {"constant", {7, 7, 7}, EScaType::kUV, kM, kM, kM},
      {"variance 5e-31", {0, 1e-15f}, EScaType::kUV, kM, kM, kM},
      {"variance 2e-30", {0, 2e-15f}, EScaType::kUV, kM, 0.7071068e15f, 0.7071068e15f},
      {"not a number", {1, 2, kNotANumber}, EScaType::kUV, kM, kM, kM},
  };
  for (const auto& c : cases) {
    const ScaData row =
        Updated(c.values, c.type, {7, "x", EScaType::kUV, 8, 8, c.modifier, 4, 5, EScaType::kPar});
    EXPECT_FLOAT_EQ(row.GetWeig(), c.weight) << c.what;
    EXPECT_FLOAT_EQ(row.GetWeigAC(), c.weight_ac) << c.what;
    EXPECT_EQ(row.GetScaType(), c.type) << c.what;
    EXPECT_EQ(row.GetWeigM(), kM) << c.what;
    EXPECT_EQ(row.GetPrevScaType(), EScaType::kUdef) << c.what;
  }
}

TEST(ScaInfo, FreezingKeepsTheWeightAndTheCentring) {
  for (int present = 0; present <= 11; ++present) {
    const ScaData before(7, "x", static_cast<EScaType>(present), 8.0f, kM, 3.0f);
    const ScaData frozen = Updated({1, 3, 5}, EScaType::kFreeze, before);
    const bool is_uncentred = present == 2 || present == 4 || present == 6 || present == 9;
    EXPECT_STREQ(ScaInfo::GetString(frozen.GetScaType()), is_uncentred ? "FWN" : "FW") << present;
    EXPECT_EQ(frozen.GetWeig(), 8.0f);
  }
}

TEST(ScaInfo, RefusedUpdatesChangeNothing) {
  const ScaData before(7, "x", EScaType::kUV, 8.0f, 9.0f);
  for (const EScaType type : {EScaType::kOrt, EScaType::kRng, static_cast<EScaType>(12)}) {
    EXPECT_EQ(Updated({1, 3}, type, before, 8021).GetWeigAC(), 9.0f);
  }
  const ScaData unknown(8, "y", EScaType::kUV, 8.0f);
  EXPECT_EQ(Updated({1, 3}, EScaType::kUV, unknown, 8015).GetWeig(), 8.0f);
  ScaInfo table("Sca");
  const VarInfo variables("Var");
  const XFMatrix matrix("X", 1, 1, 0.0f);
  const XI1Vector mask("mask", 1, kSelected);
  XFVector averages("Avg", 1, 0.0f);
  const LagInfo lags("Lag");
  const ExpInfo terms("Exp");
  for (const int status :
       {table.Update(7, nullptr, &matrix, &mask, EScaType::kUV),
        table.Update(7, &variables, nullptr, &mask, EScaType::kUV),
        table.Update(7, &variables, &matrix, nullptr, EScaType::kUV),
        table.UpdateAll(nullptr, &matrix), table.UpdateAll(&variables, nullptr),
        table.SetNCRef(nullptr, &averages), table.SetNCRef(&variables, nullptr),
        table.FixAddedVars(0, nullptr, &terms), table.FixAddedVars(0, &lags, nullptr)}) {
    EXPECT_EQ(status, 8022);
  }
}

TEST(ScaInfo, TypesHaveNamesAndCentredCounterparts) {
  EXPECT_EQ(ScaInfo::GetScaType("uv"), EScaType::kUdef);
  EXPECT_STREQ(ScaInfo::GetString(static_cast<EScaType>(12)), "");
  ScaInfo table("Sca");
  for (short i = 0; i <= 11; ++i) {
    const auto type = static_cast<EScaType>(i);
    EXPECT_EQ(ScaInfo::GetScaType(ScaInfo::GetString(type)), type);
    EXPECT_EQ(ScaInfo::IsCentred(type), i == 1 || i == 3 || i == 5 || i == 8);
    table.AddItm({i, "", type, 2.0f});
  }
  EXPECT_TRUE(table.IsAnyVarCtd());
  table.SetCenter(false);
  EXPECT_FALSE(table.IsAnyVarCtd());
  EXPECT_EQ(table.GetNMisWeig(), 2);
}

TEST(ScaInfo, WeightsAndCentresFollowTheOrderOfTheVariables) {
  ScaInfo table("Sca");
  table.AddItm({1, "a", EScaType::kUVN, 2.0f, 20.0f});
  table.AddItm({3, "c", EScaType::kPar, 4.0f, 40.0f});
  VarInfo variables("Var");
  variables.AddVar(3, "c");
  variables.AddVar(1, "a");
  EXPECT_EQ((*std::unique_ptr<XFVector>(table.ExtWeig(&variables, 2, 0)))[2], 2.0f);
  EXPECT_EQ((*std::unique_ptr<XFVector>(table.ExtWeig(&variables, 2, 1)))[2], 20.0f);
  EXPECT_EQ(table.ExtWeig(&variables, 3, 0), nullptr);
  EXPECT_EQ(table.GetStatus(), 8021);
  XFVector averages("Avg", 2, 5.0f);
  EXPECT_EQ(table.SetNCRef(&variables, &averages), 0);
  EXPECT_EQ(averages[1], 5.0f);
  EXPECT_EQ(averages[2], 0.0f);
  variables.AddVar(9, "unknown");
  EXPECT_EQ(table.SetNCRef(&variables, &averages), 8021);
  XFVector longer("Avg", 3, 5.0f);
  EXPECT_EQ(table.SetNCRef(&variables, &longer), 8015);
  EXPECT_EQ(longer[2], 5.0f);
  EXPECT_EQ(table.ExtWeig(&variables, 3, 0), nullptr);
  EXPECT_EQ(table.GetStatus(), 8015);
}

TEST(ScaInfo, ListingWarnsOfVariablesWithoutVariance) {
  ScaInfo table("Sca");
  table.AddItm({1, "length", EScaType::kUV, 0.5f, 0.5f, kM, 2.0f, 1e-9f});
  test::RecordingWindow window;
  table.ShowAll(window);
  table.AddItm({4, "averylongname", EScaType::kCtr, 1.0f});
  table.ShowAll(window);
  const std::string rows =
      "  Item  VNum  VNam      ScaType   Weig      WeigAC    ScaC1     ScaC2    WeigM\n"
      "     1     1    length       UV       0.5       0.5       -99         2     1e-09\n";
  EXPECT_EQ(window.log,
            "Sca has 1 items:\n" + rows + "Sca has 2 items:\n" + rows +
                "     2     4 averylongname      Ctr         1       -99       -99       -99"
                "       -99\n"
                "WARNING: 1 variable(s) have zero variance.\n"
                "Exclude these variable(s) or include more observations.\n");
}

TEST(TraData, FormulasHaveTheirValuesWithinTheirDomains) {
  const struct {
    ETraType type;
    float c1, c2, c3, x, y;
  } cases[] = {
      {kNone, 5, 5, 5, 3, 3},
      {kLinear, 2, 1, 0, 3, 7},
      {kLog, 90, 10, 0, 11, 3},
      {kNegLog, 1, 0, 0, 1e-4f, 4},
      {kLogit, 1, 12, 0, 11, 1},
      {kExp, 2, 1, 0, -0.5f, 1},
      {kPower, 1, 0, 3, -2, -8},
      {kPower, 1, 0, -0.5f, 4, 0.5f},
      {kLinear, 2, 1, 0, -50, std::nextafter(kM, 0.0f)},  // a value like any other
      {kExp, 1, 0, 0, -1e6f, 0},
      {kLinear, 2, 1, 0, kM, kM},
      {kLog, 1, -2, 0, 2, kM},
      {kNegLog, -1, 0, 0, 2, kM},
      {kLogit, 1, 5, 0, 1, kM},
      {kLogit, 1, 5, 0, 5, kM},
      {kLogit, 5, 5, 0, 5, kM},
      {kExp, 1, 0, 0, 89, kM},
      {kPower, 1, 0, 0.5f, -1, kM},
      {kPower, 1, 0, -1, 0, kM},
      {kLinear, 10, 0, 0, kLargest, kM},
      {kUnknown, 1, 1, 1, 2, kM},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(TraData::GetFormat(c.type, 'x')) + " of " + std::to_string(c.x));
    const float transform = TraData::Transform(c.x, c.type, c.c1, c.c2, c.c3);
    EXPECT_FLOAT_EQ(transform, c.y);
    EXPECT_EQ(IsMissing(transform), IsMissing(c.y));
  }
}

TEST(TraData, BackTransformationInverts) {
  for (const float c1 : {-2.0f, -0.25f, 0.5f, 3.0f}) {
    for (const float c2 : {-4.0f, 0.0f, 1.5f, 20.0f}) {
      for (const float x : {-9.0f, -3.5f, -0.2f, 0.3f, 1.0f, 7.0f, 25.0f}) {
        for (int type = 0; type <= 6; ++type) {
          const TraData row(1, "x", static_cast<ETraType>(type), c1, c2, c2 == 0.0f ? -1.0f : 2.0f);
          // An even power has no way back to the negative side.
          if (IsMissing(row.Transform(x)) || (type == 6 && c1 * x + c2 <= 0.0f)) continue;
          EXPECT_NEAR(row.BackTra(row.Transform(x)), x, 2e-5) << type << ' ' << c1 << ' ' << c2;
        }
      }
    }
  }
}

TEST(TraData, WhatHasNoWayBackIsMissing) {
  for (int type : {1, 2, 3, 5, 6}) {
    EXPECT_EQ(TraData::BackTra(1, static_cast<ETraType>(type), 0, 1, 1), kM) << type;
  }
  EXPECT_EQ(TraData::BackTra(0.5f, kPower, 1, 0, 0), kM);
  EXPECT_EQ(TraData::BackTra(0, kExp, 1, 0, 0), kM);
  EXPECT_EQ(TraData::BackTra(39, kLog, 1, 0, 0), kM);
  EXPECT_EQ(TraData::BackTra(kM, kLinear, 1, 0, 0), kM);
}

TEST(PreprocessTables, FormulasAndNamesArePrinted) {
  EXPECT_STREQ(TraData::GetFormat(kLogit, 'y'), "10Log((y-c1)/(c2-y))");
  EXPECT_STREQ(TraData::GetFormat(static_cast<ETraType>(-1), 'x'), "");
  EXPECT_STREQ(ExpData::DefaultName('X', 4, 4, 0).Get(), "X4X4");
  EXPECT_STREQ(ExpData::DefaultName('Y', 32767, 1, -32768).Get(), "Y32767Y1Y-32768");
  EXPECT_STREQ(LagData::DefaultName(2, "flow").Get(), "002flow");
  EXPECT_EQ(LagData::DefaultName(12, std::string(60, 'n').c_str()).Get(),
            "012" + std::string(22, 'n'));
}

TEST(PreprocessTables, ListingsShowARowALine) {
  TraInfo transformations("Tra");
  transformations.AddItm({3, "x", kPower, 1.0f, 0.5f, kM});
  ExpInfo terms("Exp");
  terms.AddItm({11, "X1X2", 1, 2, 0, kM});
  LagInfo lags("Lag");
  lags.AddItm({12, "001flow", 4, 1, 0.5f, 2});
  lags.AddItm({13, "001heat", 5, 1, 1.0f, 0});
  lags.AddItm({14, "010flow", 4, 10, 0.25f, 0});
  test::RecordingWindow window;
  transformations.ShowAll(window);
  terms.ShowAll(window);
  lags.ShowItm(3, window);
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
            "Lagstructures are:\n"
            "     4     1    10\n"
            "     5     1\n");
}

TEST(PreprocessTables, RowsBelongToVariablesAndExtractsAreCopies) {
  TraInfo table("Tra");
  for (short v = 5; v <= 7; ++v) table.AddItm({v, "x", kLinear, 1, 2, 10.0f * v});
  for (short v = 7; v >= 5; --v) EXPECT_EQ(table.FindVar(v), v - 4);
  EXPECT_EQ(table.FindVar(5), 1);
  XI1Vector selection("sel", 3, 1);
  selection[2] = 0;
  const std::unique_ptr<TraInfo> extract(table.ExtTraInfo(&selection));
  EXPECT_EQ(table.Update({7, "changed", kNone, 0, 0, 0}), 0);
  EXPECT_EQ(table.Update({8, "absent", kNone, 0, 0, 0}), 8015);
  ASSERT_EQ(extract->GetNItm(), 2);
  EXPECT_STREQ(extract->GetNam(), "TraInfoX");
  EXPECT_EQ(extract->GetItm(2)->GetTraC3(), 70.0f);
  EXPECT_EQ(table.FindVar(7), 3);
  table.DelItm(3);
  EXPECT_EQ(table.FindVar(7), 0);
}

// Three rows of the variables 10 and 20, and tables that refer to them.
class Columns : public testing::Test {
 protected:
  Columns() {
    int i = 0;
    for (const auto& row : values) std::ranges::copy(row, matrix[++i] + 1);
    matrix.SetActValInfo();
    variables.AddVar(10, "a");
    variables.AddVar(20, "b");
    lags.AddItm({31, "001b", 20, 1, 1.0f, 0});
    lags.AddItm({32, "002a", 10, 2, 1.0f, 0});
    lags.AddItm({33, "003a", 10, 3, 1.0f, 0});
    transformations.AddItm({31, "001b", kLinear, 2, 1, 0});
    transformations.AddItm({10, "a", kLog, 1, 0, 0});
    terms.AddItm({41, "square", 10, 10, 0, kM});
    terms.AddItm({42, "cross", 20, 31, 0, kM});
    terms.AddItm({43, "cube", 20, 20, 20, kM});
  }

  const Rows values = {{100, 1e20f}, {-1, kM}, {1000, 3}};
  XFMatrix matrix{"X", 3, 2, 0.0f};
  VarInfo variables{"Var"};
  XI1Vector excluded{"Excluded", 3, kNotSelected};
  LagInfo lags{"Lag"};
  TraInfo transformations{"Tra"};
  ExpInfo terms{"Exp"};
};

TEST_F(Columns, AreLaggedThenTransformedThenExpanded) {
  ASSERT_EQ(AppendLagged(lags, matrix, variables), 0);
  EXPECT_EQ(RowsOf(matrix),
            (Rows{{100, 1e20f, kM, kM, kM}, {-1, kM, 1e20f, kM, kM}, {1000, 3, kM, 100, kM}}));
  ASSERT_EQ(TransformColumns(transformations, variables, matrix, excluded), 0);
  EXPECT_EQ(RowsOf(matrix),
            (Rows{{2, 1e20f, kM, kM, kM}, {kM, kM, 2e20f, kM, kM}, {3, 3, kM, 100, kM}}));
  // The logarithm of -1.
  EXPECT_EQ(excluded[2], kSelected);
  EXPECT_EQ(excluded[1], kNotSelected);
  ASSERT_EQ(AppendExpanded(terms, matrix, variables, excluded), 0);
  EXPECT_EQ(RowsOf(matrix), (Rows{{2, 1e20f, kM, kM, kM, 4, kM, kM},
                                  {kM, kM, 2e20f, kM, kM, kM, kM, kM},
                                  {3, 3, kM, 100, kM, 9, kM, 27}}));
  // The cube of 1e20.
  EXPECT_EQ(excluded[1], kSelected);
  EXPECT_EQ(excluded[3], kNotSelected);
  EXPECT_STREQ(variables.GetVNam(variables.GetVIx(42)), "cross");
  EXPECT_EQ(matrix.NValACol(6), 2);
}

TEST_F(Columns, RefusalsChangeNothing) {
  EXPECT_EQ(AppendExpanded(terms, matrix, variables, excluded), 8032);
  EXPECT_EQ(TransformColumns(transformations, variables, matrix, excluded), 8015);
  lags.AddItm({34, "001c", 30, 1, 1.0f, 0});
  EXPECT_EQ(AppendLagged(lags, matrix, variables), 8032);
  EXPECT_EQ(RowsOf(matrix), values);
  EXPECT_EQ(variables.GetNVar(), 2);
  XI1Vector too_short("Excluded", 2, kNotSelected);
  EXPECT_EQ(TransformColumns(transformations, variables, matrix, too_short), 8021);
  EXPECT_EQ(AppendExpanded(terms, matrix, variables, too_short), 8021);
  variables.AddVar(30, "without column");
  EXPECT_EQ(AppendLagged(lags, matrix, variables), 8021);
  EXPECT_EQ(TransformColumns(transformations, variables, matrix, excluded), 8021);
  EXPECT_EQ(AppendExpanded(terms, matrix, variables, excluded), 8021);
}

}  // namespace
}  // namespace zemva
