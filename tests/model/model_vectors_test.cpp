#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "model/vector_reference.h"
#include "zemva/numeric/missing.h"
#include "zemva/vectors/vec_catalogue.h"

namespace zemva {
namespace {

using test::D;
using test::Expected;
using test::kA;
using test::kK;
using test::kM;
using test::kN;
using test::kNPS;
using test::Models;
using test::Own;
using test::Reference;
using test::Rows;

template <typename Object>
void ExpectVector(Object& object, const std::string& name, const Expected& expected) {
  VecSpec spec;
  ASSERT_EQ(spec.SetName(name.c_str()), 0);
  XFVector* values = nullptr;
  XSVector* labels = nullptr;
  ASSERT_EQ(object.GetXFVector(&spec, values), 0);
  ASSERT_EQ(object.GetXSVector(&spec, labels, false), 0);
  const auto owned_values = Own(values);
  const auto owned_labels = Own(labels);
  EXPECT_EQ(values->GetName(), name);
  EXPECT_EQ(labels->GetName(), name);
  const int length = static_cast<int>(expected.values.size());
  ASSERT_EQ(values->NVal(), length);
  ASSERT_EQ(labels->NVal(), length);
  EXPECT_EQ(std::string((*labels)[1]) + " " + (*labels)[length], expected.labels);
  for (int n = 1; n <= length; ++n) {
    const double value = D(expected.values[static_cast<std::size_t>(n - 1)]);
    EXPECT_NEAR(D((*values)[n]), value, 1e-4 * std::max(1.0, std::abs(value))) << n;
  }
}

template <typename Object>
int StatusOf(Object& object, const char* name) {
  VecSpec spec;
  EXPECT_EQ(spec.SetName(name), 0) << name;
  XFVector* values = nullptr;
  XSVector* labels = nullptr;
  const int status = object.GetXFVector(&spec, values);
  EXPECT_EQ(object.GetXSVector(&spec, labels, false) == 0, status == 0) << name;
  EXPECT_EQ(Own(values) == nullptr, status != 0) << name;
  EXPECT_EQ(Own(labels) == nullptr, status != 0) << name;
  return status;
}

TEST(ModelVectors, EveryTypeOfEveryObjectHasItsNumbersAndLabelsOrItsRefusal) {
  Models models;
  for (const bool is_predicted : {false, true}) {
    if (is_predicted) models.Predict();
    for (const auto& [asked, of_objects] : models.reference.vectors) {
      const std::string& name = asked;
      const std::map<std::string, Expected>& answers = of_objects;
      const auto expect = [&](auto& object, const char* of, bool is_model) {
        SCOPED_TRACE(name + " of " + of + (is_predicted ? " predicted" : ""));
        const auto found = answers.find(of);
        const Expected expected = found == answers.end() ? Expected() : found->second;
        const bool is_of_predictions = is_model && name.find("PS") != std::string::npos &&
                                       expected.status != status::mva::kUnknownVectorType;
        if (is_of_predictions && !is_predicted) {
          EXPECT_EQ(StatusOf(object, name.c_str()), 8036);
        } else if (expected.status != status::kOk) {
          EXPECT_EQ(StatusOf(object, name.c_str()), expected.status);
        } else {
          ExpectVector(object, name, expected);
        }
      };
      expect(models.pc.model, "PC", true);
      expect(models.pls.model, "PLS", true);
      expect(*models.pls.dataset, "DS", false);
      expect(models.pls.workset, "WS", false);
      expect(models.predset, "PS", false);
    }
  }
}

TEST(ModelVectors, TheReferenceHasEveryType) {
  const Reference reference;
  for (const VecRow& row : VecCatalogue()) {
    const bool is_elsewhere = row.type == CEVecType::None || row.along == EVecAxis::kLags ||
                              row.comps == EVecComps::kResponse;
    const bool is_here = std::ranges::any_of(reference.vectors, [&](const auto& vector) {
      VecSpec spec;
      return spec.SetName(vector.first.c_str()) == 0 && spec.GetVType() == row.type;
    });
    EXPECT_NE(is_here, is_elsewhere) << row.name;
  }
}

TEST(ModelVectors, WhatIsLeftOpenIsTheLastComponentOrAll) {
  Models models;
  models.Predict();
  const struct {
    const char *asked, *name;
    int length;
  } cases[] = {
      {"VIP", "VIP[2]", kK},
      {"t", "t[2]", kN},
      {"R2X", "R2X", kA},
      {"XRes3", "XRes3[2]", kN},
      {"tPS", "tPS[2]", kNPS},
      {"AvgY", "AvgY[0]", kM},
      {"Tsquare", "Tsquare[2]", kN},
      {"X1", "X1[-1]", kN},
      {"Coeff1", "Coeff1[2]", kK + 1},
      {"SerrLPS2", "SerrLPS2[2]", kNPS},
      {"S2X", "S2X", kA + 2},
      {"wsX", "wsX", kK},
  };
  for (const auto& c : cases) {
    VecSpec spec;
    ASSERT_EQ(spec.SetName(c.asked), 0);
    XFVector* vector = nullptr;
    ASSERT_EQ(models.pls.model.GetXFVector(&spec, vector), 0) << c.asked;
    const auto owned = Own(vector);
    EXPECT_STREQ(vector->GetName(), c.name);
    EXPECT_EQ(vector->NVal(), c.length);
  }
}

TEST(ModelVectors, LimitsAreOfTheComponentsThatWereExecuted) {
  Models models;
  PLSModel& model = models.pls.model;
  ASSERT_EQ(model.ExecLS(char{1}), 0);
  const float limit = model.GetSEYPredLLS(1, 1);
  model.GetModOpt()->SetAUseLS(2);
  ASSERT_NE(model.GetSEYPredLLS(1, 1), limit);
  XFVector* vector = nullptr;
  VecSpec spec(CEVecType::SerrL, 1);
  ASSERT_EQ(model.GetXFVector(&spec, vector), 0);
  const auto owned = Own(vector);
  EXPECT_STREQ(vector->GetName(), "SerrL1[1]");
  EXPECT_EQ((*vector)[1], limit);
}

TEST(ModelVectors, WhatThereIsNotIsRefused) {
  Models models;
  models.Predict();
  PLSModel& model = models.pls.model;
  const struct {
    const char* name;
    int status;
  } cases[] = {
      {"None", 8016},        {"t[0]", 8003},          {"t[-1]", 8003},       {"t[3]", 8003},
      {"t[32767]", 8003},    {"AvgX[1]", 8003},       {"X1[0]", 8003},       {"XRes1[-1]", 8003},
      {"SerrL1[1]", 8003},   {"DModXPS[1]", 8003},    {"t2:1[1]", 8003},     {"t1:3[1]", 8003},
      {"Num[1]", 8003},      {"wsX[1]", 8003},        {"X", 8021},           {"X4[-1]", 8021},
      {"VarRes6[1]", 8021},  {"ObsX13[-1]", 8021},    {"ObsXPS6[-1]", 8021}, {"YRes3[1]", 8021},
      {"t1:2[13]", 8021},    {"t1:2[0]", 8021},       {"t3[1]", 8013},       {"Num3", 8013},
      {"R2X1:2[1]", 8013},   {"Tsquare1:2[1]", 8013}, {"X1:2[1]", 8003},     {"tTr[1]", 8013},
      {"XSt1[-1]", 8013},    {"VarResPS4[1]", 8056},  {"YResPS1[1]", 8003},  {"pLag1[1]", 8021},
      {"CoeffCSLag1", 8021},
  };
  for (const auto& c : cases) EXPECT_EQ(StatusOf(model, c.name), c.status) << c.name;

  const auto status = [&](auto change) {
    VecSpec spec(CEVecType::VarRes, 1, 1);
    change(spec);
    XFVector* vector = nullptr;
    const int result = model.GetXFVector(&spec, vector);
    const auto owned = Own(vector);
    return result == 0 ? std::string(vector->GetName()) : std::to_string(result);
  };
  model.SetModNum(3);
  EXPECT_EQ(status([](VecSpec& s) { s.SetDNum(3); }), "VarRes1[1]");
  EXPECT_EQ(status([](VecSpec& s) { s.SetDNum(2); }), "8014");
  EXPECT_EQ(status([](VecSpec& s) { s.SetDType(CEDatType::Predset); }), "8013");
  EXPECT_EQ(status([](VecSpec& s) { s.SetBlock(VecSpec::kY); }), "VarRes4[1]");
  EXPECT_EQ(status([](VecSpec& s) { s.SetBlock(VecSpec::kX); }), "VarRes1[1]");
  const auto by_number = [](short number, VecSpec::EBlock block) {
    return [=](VecSpec& s) {
      s.SetIx(number);
      s.SetBlock(block);
      s.SetIsByNumber(true);
    };
  };
  EXPECT_EQ(status(by_number(500, VecSpec::kWhole)), "VarRes5[1]");
  EXPECT_EQ(status(by_number(500, VecSpec::kX)), "8014");
  EXPECT_EQ(status(by_number(5, VecSpec::kY)), "8014");
  XFVector* vector = nullptr;
  EXPECT_EQ(model.GetXFVector(nullptr, vector), 8022);

  EXPECT_STREQ(model.GetPSResults()->name, "PSResiduals");
  EXPECT_TRUE(model.GetPSResults()->errors.has_value());
  EXPECT_FALSE(models.pc.model.GetPSResults()->y.has_value());
  model.DeletePSResults();
  EXPECT_EQ(model.GetPSResults(), nullptr);
  EXPECT_EQ(StatusOf(model, "tPS[1]"), 8036);
  EXPECT_EQ(StatusOf(model, "ObsYPS1[-1]"), 8036);
  EXPECT_EQ(model.Reset(1), 0);
  EXPECT_EQ(StatusOf(model, "t[2]"), 8003);
  EXPECT_EQ(StatusOf(model, "t[1]"), 0);
  EXPECT_EQ(model.Unload(), 0);
  VecSpec spec(CEVecType::T);
  ASSERT_EQ(model.GetXFVector(&spec, vector), 0);
  EXPECT_EQ(Own(vector)->NVal(), kN);
  XSVector* labels = nullptr;
  EXPECT_EQ(model.GetXSVector(&spec, labels, false), 8009);
  EXPECT_EQ(StatusOf(model, "R2X"), 0);
  for (const char* const name : {"X1[-1]", "XRes1[1]", "VarPred1[1]", "Num"}) {
    EXPECT_EQ(StatusOf(model, name), 8009) << name;
  }
  EXPECT_EQ(model.GetStatus(), 0);
  test::PLSBench empty(models.reference.rows, kM);
  EXPECT_EQ(StatusOf(empty.model, "AvgX[-1]"), 8009);
  EXPECT_EQ(empty.model.Load(), 0);
  EXPECT_EQ(StatusOf(empty.model, "AvgX[-1]"), 0);
  EXPECT_EQ(StatusOf(empty.model, "AvgX[0]"), 8003);
  EXPECT_EQ(StatusOf(empty.model, "t[1]"), 8003);
  EXPECT_EQ(StatusOf(empty.model, "SerrL1[1]"), 8036);
}

TEST(ModelVectors, MissingValuesStayMissing) {
  Rows rows = Reference().rows;
  rows[4][0] = kMissing;
  rows[6][3] = kMissing;
  test::PLSBench bench(rows, kM);
  ASSERT_EQ(bench.Compute(1), 0);
  const struct {
    const char* name;
    int element;
    bool is_missing;
  } cases[] = {
      {"X1[-1]", 5, true},     {"XSc1[-1]", 5, true},     {"XRes1[1]", 5, true},
      {"XResSt1[0]", 5, true}, {"VarPred1[1]", 5, false}, {"XRes1[1]", 7, false},
      {"Y1[-1]", 7, true},     {"YResSc1[1]", 7, true},   {"VarPred4[1]", 7, false},
  };
  for (const auto& c : cases) {
    VecSpec spec;
    spec.SetName(c.name);
    XFVector* vector = nullptr;
    ASSERT_EQ(bench.model.GetXFVector(&spec, vector), 0);
    const auto owned = Own(vector);
    EXPECT_EQ(IsMissing((*vector)[c.element]), c.is_missing) << c.name;
    EXPECT_EQ(vector->NValA(),
              std::ranges::count_if(vector->Values(), [](float v) { return !IsMissing(v); }));
  }
}

TEST(ModelVectors, LagsOfAVariableComeTogether) {
  test::PLSBench bench(Reference().rows, kM);
  // a, b, c, then b one and two and c one observation earlier.
  ASSERT_EQ(bench.workset.AddLagged(2, 2, "B2"), 0);
  ASSERT_EQ(bench.workset.AddLagged(3, 1, "C1"), 0);
  ASSERT_EQ(bench.workset.AddLagged(2, 1, "B1"), 0);
  ASSERT_EQ(bench.Compute(2), 0);
  const PLSModel& model = bench.model;
  const std::vector<std::vector<short>> positions = {{2, 4, 6}, {3, 5}};
  const std::vector<std::string> labels = {"bB2B1 021", "cC1 01"};
  const struct {
    const char* stem;
    float (Model::*get)(char, short) const;
  } cases[] = {
      {"pLag", &Model::GetP},      {"VIPLag", &Model::GetVIP}, {"wLag", &Model::GetW},
      {"w*Lag", &Model::GetWStar}, {"CoeffCSLag", nullptr},
  };
  for (const auto& c : cases) {
    for (std::size_t v = 0; v < 2; ++v) {
      const std::string name = c.stem + std::to_string(v + 1) + "[2]";
      SCOPED_TRACE(name);
      VecSpec spec;
      ASSERT_EQ(spec.SetName(name.c_str()), 0);
      XFVector* values = nullptr;
      XSVector* names = nullptr;
      XSVector* lags = nullptr;
      ASSERT_EQ(model.GetXFVector(&spec, values), 0);
      ASSERT_EQ(model.GetXSVector(&spec, names, false), 0);
      ASSERT_EQ(model.GetXSVector(&spec, lags, true), 0);
      const auto owned_values = Own(values);
      const auto owned_names = Own(names);
      const auto owned_lags = Own(lags);
      EXPECT_STREQ(values->GetName(), name.c_str());
      ASSERT_EQ(values->NVal(), static_cast<int>(positions[v].size()));
      std::string text, numbers;
      for (int n = 1; n <= values->NVal(); ++n) {
        const short k = positions[v][static_cast<std::size_t>(n - 1)];
        EXPECT_EQ((*values)[n],
                  c.get != nullptr ? (model.*c.get)(2, k) : model.GetCoeffCS(2, k, 2));
        text += (*names)[n];
        numbers += (*lags)[n];
      }
      EXPECT_EQ(text + " " + numbers, labels[v]);
    }
  }
  EXPECT_EQ(StatusOf(model, "CoeffCSLag1[3]"), 8021);
  EXPECT_EQ(StatusOf(model, "pLag3[1]"), 8021);
}

std::string Listed(XSVector* names) {
  const auto owned = Own(names);
  std::string text = owned->GetName();
  for (int n = 1; n <= owned->NVal(); ++n) text += std::string(" ") + (*owned)[n];
  return text;
}

TEST(ModelVectors, RangesAndListsTellWhatThereIs) {
  Models models;
  const struct {
    CEVecType::EVT type;
    int status, first_comp, last_comp, indices;
  } cases[] = {
      {CEVecType::T, 0, 1, 2, kN},       {CEVecType::AvgX, 0, -1, 0, kK},
      {CEVecType::SSX, 0, -1, 2, 0},     {CEVecType::VarRes, 0, 0, 2, kK},
      {CEVecType::ObsX, 0, -1, -1, kN},  {CEVecType::WsX, 0, 1, 0, kK},
      {CEVecType::U, 8016, 1, 0, 0},     {CEVecType::TPS, 8036, 1, 0, 0},
      {CEVecType::VarDS, 8016, 1, 0, 0}, {CEVecType::Undefined, 8016, 1, 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(CEVecType::GetString(c.type));
    char first = 0, last = 0;
    short first_ix = 0, last_ix = 0;
    EXPECT_EQ(models.pc.model.GetVecCompRange(c.type, first, last), c.status);
    EXPECT_EQ(first, c.first_comp);
    EXPECT_EQ(last, c.last_comp);
    EXPECT_EQ(models.pc.model.GetVecIxRange(c.type, first_ix, last_ix), c.status);
    EXPECT_EQ(first_ix, 1);
    EXPECT_EQ(last_ix, c.indices);
  }
  const PCModel& pc = models.pc.model;
  EXPECT_EQ(Listed(pc.GetObsVecNames()),
            "ObsVecNames Num Time DModX OLevX PModX S2OX SSOX t Tsquare VarRes VarPred X XRes");
  EXPECT_EQ(Listed(pc.GetVarVecNames()),
            "VarVecNames AvgX MaxX MinX MPowX ObsX ObsXRes p Q2V Q2V(cum) R2VX R2VXadj R2VX(cum) "
            "R2VX(cum)adj S2VX SSVX wsX");
  EXPECT_EQ(Listed(pc.GetCompVecNames()),
            "CompVecNames DFX Eig Iter Q2 Q2(cum) R2X R2X(cum) R2Xadj R2Xadj(cum) S2X SDt SSX");
  EXPECT_EQ(Listed(pc.GetLagVecNames()), "LagVecNames");
  EXPECT_EQ(Listed(pc.GetTSVecNames()), "TSVecNames");
  models.Predict();
  EXPECT_EQ(Listed(pc.GetTSVecNames()),
            "TSVecNames DModXPS PModXPS TsquarePS tPS VarResPS VarPredPS XResPS");
}

TEST(ModelVectors, ContributionsAddUpToTheGap) {
  Models models;
  const auto sum = [](int status, XFVector* contributions) {
    EXPECT_EQ(status, 0);
    const auto owned = Own(contributions);
    EXPECT_EQ(owned->NVal(), kK);
    double total = 0.0;
    for (const float value : owned->Values()) total += D(value);
    return total;
  };
  const PLSModel& model = models.pls.model;
  XFVector* vector = nullptr;
  const int of_t = model.GetGapContVector(2, 3, 7, vector);
  EXPECT_STREQ(vector->GetName(), "GapCont[2]");
  EXPECT_NEAR(sum(of_t, vector), D(model.GetT(2, 3)) - D(model.GetT(2, 7)), 1e-4);
  const PCModel& pc = models.pc.model;
  for (const short j : {short{0}, short{7}}) {
    const int of_pc = pc.GetGapContVector(1, 3, j, vector);
    EXPECT_NEAR(sum(of_pc, vector), D(pc.GetT(1, 3)) - (j == 0 ? 0.0 : D(pc.GetT(1, j))), 1e-4);
  }
  const int of_y = model.GetGapContVectorY(2, 2, 3, 0, vector);
  EXPECT_STREQ(vector->GetName(), "GapContY2[2]");
  EXPECT_NEAR(sum(of_y, vector),
              D(model.GetT(1, 3)) * D(model.GetC(1, 2)) + D(model.GetT(2, 3)) * D(model.GetC(2, 2)),
              1e-4);
  const struct {
    char a;
    short i, j;
    int status;
  } cases[] = {
      {0, 1, 0, 8003}, {3, 1, 0, 8003}, {1, 0, 0, 8021}, {1, 13, 0, 8021}, {1, 1, -1, 8021},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(model.GetGapContVector(c.a, c.i, c.j, vector), c.status);
    EXPECT_EQ(model.GetGapContVectorY(c.a, 1, c.i, c.j, vector), c.status);
    EXPECT_EQ(vector, nullptr);
  }
  EXPECT_EQ(model.GetGapContVectorY(1, 3, 1, 0, vector), 8021);
  EXPECT_EQ(pc.GetGapContVectorY(1, 1, 1, 0, vector), 8016);
}

}  // namespace
}  // namespace zemva
