#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "data/var_info.h"
#include "model/preprocess/sca_info.h"
#include "numeric/missing.h"
#include "numeric/x_matrix.h"
#include "numeric/x_vector.h"
#include "support/recording_window.h"

namespace zemva {
namespace {

// Variable 7 with these values, and what an update makes of it.
ScaData Updated(const std::vector<float>& values, EScaType type, const ScaData& before,
                int expected_status = 0) {
  const int n = static_cast<int>(values.size());
  VarInfo variables("Var");
  variables.AddVar(3, "other");
  variables.AddVar(7, "x");
  XFMatrix matrix("X", n, 2, 1e6f);
  for (int i = 1; i <= n; ++i) matrix[i][2] = values[static_cast<std::size_t>(i - 1)];
  const XI1Vector mask("mask", n, 1);
  ScaInfo table("Sca");
  table.AddItm(before);
  EXPECT_EQ(table.Update(7, &variables, &matrix, &mask, type), expected_status);
  return *table.GetItm(1);
}

TEST(ScaInfo, UpdateWeighsByTheData) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  // 1, 3, 5: mean 3, s^2 = 8/2 = 4, rms^2 = 35/3. 1e6 + 1..3: s = 1. 3, 4: s^2 = 1/2, rms^2 = 25/2.
  const float rms = static_cast<float>(std::sqrt(35.0 / 3.0));
  const struct {
    const char* what;
    std::vector<float> values;
    EScaType type;
    float modifier, weight, weight_ac;
  } cases[] = {
      {"UV", {1, 3, 5}, EScaType::kUV, kMissing, 0.5f, 0.5f},
      {"UVN", {1, 3, 5}, EScaType::kUVN, kMissing, 1.0f / rms, 0.5f},
      {"Par", {1, 3, 5}, EScaType::kPar, kMissing, std::sqrt(0.5f), 0.5f},
      {"ParN", {1, 3, 5}, EScaType::kParN, kMissing, 1.0f / std::sqrt(rms), 0.5f},
      {"Ctr", {1, 3, 5}, EScaType::kCtr, 3.0f, 1.0f, 0.5f},
      {"None", {1, 3, 5}, EScaType::kNone, 3.0f, 1.0f, 0.5f},
      {"Udef", {1, 3, 5}, EScaType::kUdef, kMissing, kMissing, 0.5f},
      {"modified", {1, 3, 5}, EScaType::kUV, 3.0f, 1.5f, 0.5f},
      {"modified after the root", {1, 3, 5}, EScaType::kPar, 2.0f, 2.0f * std::sqrt(0.5f), 0.5f},
      {"missing", {kMissing, 1, kMissing, 3, 5}, EScaType::kUV, kMissing, 0.5f, 0.5f},
      {"offset", {1000001, 1000002, 1000003}, EScaType::kUV, kMissing, 1.0f, 1.0f},
      {"one value", {4, kMissing}, EScaType::kUV, kMissing, kMissing, kMissing},
      {"one value modified", {4}, EScaType::kPar, 2.0f, kMissing, kMissing},
      {"one value, rms", {4}, EScaType::kUVN, kMissing, 0.25f, kMissing},
      {"one value, root of rms", {4}, EScaType::kParN, kMissing, 0.5f, kMissing},
      {"no value", {kMissing}, EScaType::kUVN, kMissing, kMissing, kMissing},
      {"zeros", {0, 0}, EScaType::kParN, kMissing, kMissing, kMissing},
      {"constant", {7, 7, 7}, EScaType::kUV, kMissing, kMissing, kMissing},
      {"variance 5e-31", {0, 1e-15f}, EScaType::kUV, kMissing, kMissing, kMissing},
      {"variance 2e-30", {0, 2e-15f}, EScaType::kUV, kMissing, 0.7071068e15f, 0.7071068e15f},
      {"largest", {-3e38f, 3e38f}, EScaType::kUV, kMissing, 2.357023e-39f, 2.357023e-39f},
      {"not a number", {1, 2, kNaN}, EScaType::kUV, kMissing, kMissing, kMissing},
  };
  for (const auto& c : cases) {
    const ScaData row =
        Updated(c.values, c.type,
                {7, "x", EScaType::kUV, 8.0f, 8.0f, c.modifier, 4.0f, 5.0f, EScaType::kPar});
    EXPECT_FLOAT_EQ(row.GetWeig(), c.weight) << c.what;
    EXPECT_FLOAT_EQ(row.GetWeigAC(), c.weight_ac) << c.what;
    EXPECT_EQ(row.GetScaType(), c.type) << c.what;
    EXPECT_EQ(row.GetScaC1(), c.modifier) << c.what;
    EXPECT_EQ(row.GetScaC2(), 4.0f) << c.what;
    EXPECT_EQ(row.GetWeigM(), kMissing) << c.what;
    EXPECT_EQ(row.GetPrevScaType(), EScaType::kUdef) << c.what;
    EXPECT_STREQ(row.GetINam(), "x") << c.what;
  }
}

TEST(ScaInfo, FreezingKeepsTheWeightAndTheCentring) {
  for (int present = 0; present <= 11; ++present) {
    const ScaData before(7, "x", static_cast<EScaType>(present), 8.0f, kMissing, 3.0f);
    const ScaData frozen = Updated({1, 3, 5}, EScaType::kFreeze, before);
    const bool is_uncentred = present == 2 || present == 4 || present == 6 || present == 9;
    EXPECT_STREQ(ScaInfo::GetString(frozen.GetScaType()), is_uncentred ? "FWN" : "FW") << present;
    EXPECT_EQ(frozen.GetWeig(), 8.0f);
    EXPECT_EQ(frozen.GetWeigAC(), 0.5f);
  }
  EXPECT_EQ(Updated({1, 3}, EScaType::kFWN, {7, "x", EScaType::kUV, 8.0f}).GetWeig(), 8.0f);
}

TEST(ScaInfo, RefusedUpdatesChangeNothing) {
  for (const int type : {10, 11, 12, -1}) {
    const ScaData before(7, "x", EScaType::kUV, 8.0f, 9.0f);
    const ScaData after = Updated({1, 3}, static_cast<EScaType>(type), before, 8021);
    EXPECT_EQ(after.GetScaType(), EScaType::kUV);
    EXPECT_EQ(after.GetWeigAC(), 9.0f);
  }
  VarInfo variables("Var");
  variables.AddVar(1, "x");
  const XFMatrix matrix("X", 2, 1, 0.0f);
  const XI1Vector mask("mask", 2, 1);
  ScaInfo table("Sca");
  table.AddItm({2, "y", EScaType::kUV});
  EXPECT_EQ(table.Update(1, &variables, &matrix, &mask, EScaType::kUV), 8015);
  EXPECT_EQ(table.Update(2, &variables, &matrix, &mask, EScaType::kUV), 8015);
  EXPECT_EQ(table.Update(2, nullptr, &matrix, &mask, EScaType::kUV), 8022);
  EXPECT_EQ(table.Update(3, "z", EScaType::kFW, 1, 1, 1, 1, 1, EScaType::kUV), 8015);
  EXPECT_EQ(table.GetStatus(), 8015);
}

TEST(ScaInfo, OnlyRowsOfTheMaskCount) {
  VarInfo variables("Var");
  variables.AddVar(1, "x");
  XFMatrix matrix("X", 4, 1, 100.0f);
  matrix[2][1] = 1.0f;
  matrix[3][1] = 5.0f;
  XI1Vector mask("mask", 3, 2);
  mask[1] = 0;
  ScaInfo table("Sca");
  table.AddItm({1, "x", EScaType::kUdef});
  ASSERT_EQ(table.Update(1, &variables, &matrix, &mask, EScaType::kUV), 0);
  EXPECT_FLOAT_EQ(table.GetItm(1)->GetWeig(), 1.0f / std::sqrt(8.0f));
}

TEST(ScaInfo, TypesHaveNamesAndCentredCounterparts) {
  EXPECT_EQ(ScaInfo::GetScaType("ParN"), EScaType::kParN);
  EXPECT_EQ(ScaInfo::GetScaType("uv"), EScaType::kUdef);
  EXPECT_EQ(ScaInfo::GetScaType(nullptr), EScaType::kUdef);
  EXPECT_STREQ(ScaInfo::GetString(static_cast<EScaType>(12)), "");
  ScaInfo table("Sca");
  for (short type = 0; type <= 11; ++type) {
    const auto value = static_cast<EScaType>(type);
    EXPECT_EQ(ScaInfo::GetScaType(ScaInfo::GetString(value)), value);
    EXPECT_EQ(ScaInfo::IsCentred(value), type == 1 || type == 3 || type == 5 || type == 8);
    table.AddItm({type, "", value, 2.0f});
  }
  EXPECT_TRUE(table.IsAnyVarCtd());
  table.SetCenter(false);
  EXPECT_FALSE(table.IsAnyVarCtd());
  // UV and Par have other weights than UVN and ParN.
  EXPECT_EQ(table.GetNMisWeig(), 2);
  table.SetCenter(true);
  EXPECT_EQ(table.GetItm(5)->GetScaType(), EScaType::kPar);
  EXPECT_EQ(table.GetItm(10)->GetScaType(), EScaType::kFW);
  EXPECT_EQ(table.GetItm(10)->GetWeig(), 2.0f);
}

TEST(ScaInfo, WeightsAndCentresFollowTheOrderOfTheVariables) {
  ScaInfo table("Sca");
  table.AddItm({1, "a", EScaType::kUVN, 2.0f, 20.0f});
  table.AddItm({2, "b", EScaType::kUV, kMissing, 30.0f});
  table.AddItm({3, "c", EScaType::kPar, 4.0f, 40.0f});
  VarInfo variables("Var");
  variables.AddVar(3, "c");
  variables.AddVar(1, "a");
  const std::unique_ptr<XFVector> weights(table.ExtWeig(&variables, 2, 0));
  ASSERT_NE(weights, nullptr);
  EXPECT_EQ((*weights)[1], 4.0f);
  EXPECT_EQ((*weights)[2], 2.0f);
  EXPECT_EQ((*std::unique_ptr<XFVector>(table.ExtWeig(&variables, 1, 1)))[1], 40.0f);
  XFVector averages("Avg", 2, 5.0f);
  EXPECT_EQ(table.SetNCRef(&variables, &averages), 0);
  EXPECT_EQ(averages[1], 5.0f);
  EXPECT_EQ(averages[2], 0.0f);
  EXPECT_EQ(table.ExtWeig(&variables, 3, 0), nullptr);
  EXPECT_EQ(table.GetStatus(), 8021);
  variables.AddVar(9, "unknown");
  EXPECT_EQ(table.ExtWeig(&variables, 3, 0), nullptr);
  EXPECT_EQ(table.GetStatus(), 8015);
}

TEST(ScaInfo, ListingWarnsOfVariablesWithoutVariance) {
  ScaInfo table("Sca");
  table.AddItm({1, "length", EScaType::kUV, 0.5f, 0.5f, kMissing, 2.0f, 1e-9f});
  test::RecordingWindow window;
  table.ShowAll(window);
  table.AddItm({2, "averylongname", EScaType::kFreeze});
  table.AddItm({4, "y", EScaType::kCtr, 1.0f});
  window.log += "--\n";
  table.ShowAll(window);
  const std::string header =
      "  Item  VNum  VNam      ScaType   Weig      WeigAC    ScaC1     ScaC2    WeigM\n";
  const std::string first =
      "     1     1    length       UV       0.5       0.5       -99         2     1e-09\n";
  EXPECT_EQ(window.log,
            "Sca has 1 items:\n" + header + first + "--\nSca has 3 items:\n" + header + first +
                "     2     2 averylongname   Freeze       -99       -99       -99       -99"
                "       -99\n"
                "     3     4         y      Ctr         1       -99       -99       -99"
                "       -99\n"
                "WARNING: 2 variable(s) have zero variance.\n"
                "Exclude these variable(s) or include more observations.\n");
}

}  // namespace
}  // namespace zemva
