#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "model/model_fixture.h"
#include "model/vector_reference.h"
#include "zemva/numeric/missing.h"
#include "zemva/vectors/vec_catalogue.h"

namespace zemva {
namespace {

using test::D;
using test::kA;
using test::kK;
using test::kM;
using test::kN;
using test::kNPS;
using test::MakeRows;
using test::Own;
using test::Reference;
using test::Rows;
using test::SquaresOf;

// Which objects have it: data set, work set, prediction set, models (PLS alone), and those with
// predictions.
enum Who { kDS, kWS, kPS, kAll, kModels, kPLS, kModelsPS, kPLSPS };

using R = const Reference&;
struct Expected {
  const char* name;
  Who who;
  const char* labels;  // the first, a blank and the last
  std::function<double(R, const Model&, int)> value;
};

constexpr const char* kObs = "o1 o12";
constexpr const char* kObsPS = "o1 o5";
constexpr const char* kX = "a c";
constexpr const char* kY = "d e";
constexpr const char* kComps = "Comp[1] Comp[2]";
constexpr const char* kStages = "Initial Comp[2]";
constexpr const char* kData = "a e";

short S(int i) {
  return static_cast<short>(i);
}
char Ch(int a) {
  return static_cast<char>(a);
}

// The responses of a model that has some, else the X variables.
constexpr const char* kValidated = "";

// clang-format off
// Every type, and then further forms of some.
const Expected kExpected[] = {
    {"Num", kAll, kObs, [](R, const Model&, int n) { return 10.0 * n; }},
    {"Time", kAll, kObs, [](R, const Model&, int n) { return 1.0 * n; }},
    {"DFX", kModels, kStages, [](R r, const Model&, int n) { return r.DF(r.x, n - 2); }},
    {"S2X", kModels, kStages, [](R r, const Model&, int n) { return r.S2(r.x, n - 2); }},
    {"SSX", kModels, kStages, [](R r, const Model&, int n) { return r.x.SS(n - 2); }},
    {"R2X", kModels, kComps, [](R r, const Model&, int n) { return r.R2(r.x, n - 1, n); }},
    {"R2X(cum)", kModels, kComps, [](R r, const Model&, int n) { return r.R2(r.x, 0, n); }},
    {"R2Xadj", kModels, kComps, [](R r, const Model&, int n) { return r.R2Adj(r.x, n - 1, n); }},
    {"R2Xadj(cum)", kModels, kComps, [](R r, const Model&, int n) { return r.R2Adj(r.x, 0, n); }},
    {"DModX[2]", kModels, kObs, [](R r, const Model&, int n) { return r.DMod(r.x, r.x, n, true); }},
    {"DModXPS[2]", kModelsPS, kObsPS, [](R r, const Model&, int n) { return r.DMod(r.x_ps, r.x, n, false); }},
    {"PModX[2]", kModels, kObs, [](R, const Model& m, int n) { return D(m.GetPModXLS(2, S(n))); }},
    {"PModXPS[2]", kModelsPS, kObsPS, [](R, const Model& m, int n) { return D(m.GetPModXPS(2, S(n))); }},
    {"S2OX[2]", kModels, kObs, [](R r, const Model&, int n) { return SquaresOf(r.x.Row(2, n)) / std::max((kK - 2) * 9.0 / kN, 1.0); }},
    {"SSOX[1]", kModels, kObs, [](R r, const Model&, int n) { return SquaresOf(r.x.Row(1, n)); }},
    {"AvgX[-1]", kModels, kX, [](R r, const Model&, int n) { return r.x.centre[static_cast<std::size_t>(n - 1)]; }},
    {"MaxX[-1]", kModels, kX, [](R r, const Model&, int n) { return std::ranges::max(r.x.Col(-1, n)); }},
    {"MinX[-1]", kModels, kX, [](R r, const Model&, int n) { return std::ranges::min(r.x.Col(-1, n)); }},
    {"R2VX[2]", kModels, kX, [](R r, const Model&, int n) { return r.x.R2V(1, 2, n); }},
    {"R2VXadj[2]", kModels, kX, [](R r, const Model&, int n) { return r.x.R2VAdj(1, 2, n); }},
    {"R2VX(cum)[2]", kModels, kX, [](R r, const Model&, int n) { return r.x.R2V(0, 2, n); }},
    {"R2VX(cum)adj[2]", kModels, kX, [](R r, const Model&, int n) { return r.x.R2VAdj(0, 2, n); }},
    {"S2VX[2]", kModels, kX, [](R r, const Model&, int n) { return r.x.S2V(2, n); }},
    {"SSVX[-1]", kModels, kX, [](R r, const Model&, int n) { return SquaresOf(r.x.Col(-1, n)); }},
    {"wsX", kModels, kX, [](R r, const Model&, int n) { return r.x.weight[static_cast<std::size_t>(n - 1)]; }},
    {"X2[-1]", kModels, kObs, [](R r, const Model&, int n) { return r.x.Value(n, 2, ' '); }},
    {"XRes2[1]", kModels, kObs, [](R r, const Model&, int n) { return r.x.Residual(n, 2, 1, ' '); }},
    {"XResPS2[1]", kModelsPS, kObsPS, [](R r, const Model&, int n) { return r.x_ps.Residual(n, 2, 1, ' '); }},
    {"ObsXTr3[-1]", kModels, kX, [](R r, const Model&, int n) { return r.x.Value(3, n, 'T'); }},
    {"ObsXPSSc3[-1]", kModelsPS, kX, [](R r, const Model&, int n) { return r.x_ps.Value(3, n, 'C'); }},
    {"ObsXResTr3[2]", kModels, kX, [](R r, const Model&, int n) { return r.x.Residual(3, n, 2, 'T'); }},
    {"ObsXResPSTr3[2]", kModelsPS, kX, [](R r, const Model&, int n) { return r.x_ps.Residual(3, n, 2, 'T'); }},
    {"DFY", kPLS, kStages, [](R r, const Model&, int n) { return r.DF(r.y, n - 2); }},
    {"S2Y", kPLS, kStages, [](R r, const Model&, int n) { return r.S2(r.y, n - 2); }},
    {"SSY", kPLS, kStages, [](R r, const Model&, int n) { return r.y.SS(n - 2); }},
    {"R2Y", kPLS, kComps, [](R r, const Model&, int n) { return r.R2(r.y, n - 1, n); }},
    {"R2Y(cum)", kPLS, kComps, [](R r, const Model&, int n) { return r.R2(r.y, 0, n); }},
    {"R2Yadj", kPLS, kComps, [](R r, const Model&, int n) { return r.R2Adj(r.y, n - 1, n); }},
    {"R2Yadj(cum)", kPLS, kComps, [](R r, const Model&, int n) { return r.R2Adj(r.y, 0, n); }},
    {"DModY[2]", kPLS, kObs, [](R r, const Model&, int n) { return r.DMod(r.y, r.y, n, true); }},
    {"DModYPS[2]", kPLSPS, kObsPS, [](R r, const Model&, int n) { return r.DMod(r.y_ps, r.y, n, false); }},
    {"PModY[2]", kPLS, kObs, [](R, const Model& m, int n) { return D(m.GetPModYLS(2, S(n))); }},
    {"PModYPS[2]", kPLSPS, kObsPS, [](R, const Model& m, int n) { return D(m.GetPModYPS(2, S(n))); }},
    {"S2OY[2]", kPLS, kObs, [](R r, const Model&, int n) { return SquaresOf(r.y.Row(2, n)) / std::max(kM * 9.0 / kN, 1.0); }},
    {"SSOY[1]", kPLS, kObs, [](R r, const Model&, int n) { return SquaresOf(r.y.Row(1, n)); }},
    {"AvgY[-1]", kPLS, kY, [](R r, const Model&, int n) { return r.y.centre[static_cast<std::size_t>(n - 1)]; }},
    {"MaxY[-1]", kPLS, kY, [](R r, const Model&, int n) { return std::ranges::max(r.y.Col(-1, n)); }},
    {"MinY[-1]", kPLS, kY, [](R r, const Model&, int n) { return std::ranges::min(r.y.Col(-1, n)); }},
    {"R2VY[2]", kPLS, kY, [](R r, const Model&, int n) { return r.y.R2V(1, 2, n); }},
    {"R2VYadj[2]", kPLS, kY, [](R r, const Model&, int n) { return r.y.R2VAdj(1, 2, n); }},
    {"R2VY(cum)[2]", kPLS, kY, [](R r, const Model&, int n) { return r.y.R2V(0, 2, n); }},
    {"R2VY(cum)adj[2]", kPLS, kY, [](R r, const Model&, int n) { return r.y.R2VAdj(0, 2, n); }},
    {"S2VY[2]", kPLS, kY, [](R r, const Model&, int n) { return r.y.S2V(2, n); }},
    {"SSVY[-1]", kPLS, kY, [](R r, const Model&, int n) { return SquaresOf(r.y.Col(-1, n)); }},
    {"wsY", kPLS, kY, [](R r, const Model&, int n) { return r.y.weight[static_cast<std::size_t>(n - 1)]; }},
    {"Y2[-1]", kPLS, kObs, [](R r, const Model&, int n) { return r.y.Value(n, 2, ' '); }},
    {"YRes2[1]", kPLS, kObs, [](R r, const Model&, int n) { return r.y.Residual(n, 2, 1, ' '); }},
    {"YResPS2[2]", kPLSPS, kObsPS, [](R r, const Model&, int n) { return r.y_ps.Residual(n, 2, 2, ' '); }},
    {"ObsYTr3[-1]", kPLS, kY, [](R r, const Model&, int n) { return r.y.Value(3, n, 'T'); }},
    {"ObsYPSSc3[-1]", kPLSPS, kY, [](R r, const Model&, int n) { return r.y_ps.Value(3, n, 'C'); }},
    {"ObsYResTr3[2]", kPLS, kY, [](R r, const Model&, int n) { return r.y.Residual(3, n, 2, 'T'); }},
    {"ObsYResPSTr3[2]", kPLSPS, kY, [](R r, const Model&, int n) { return r.y_ps.Residual(3, n, 2, 'T'); }},
    {"YPS2[-1]", kPLSPS, kObsPS, [](R r, const Model&, int n) { return r.y_ps.Value(n, 2, ' '); }},
    {"Eig", kModels, kComps, [](R r, const Model&, int n) { return r.R2(r.x, n - 1, n) * kK; }},
    {"Iter", kModels, kComps, [](R, const Model& m, int n) { return 1.0 * m.GetNIter(Ch(n)); }},
    {"Q2", kModels, kComps, [](R r, const Model& m, int n) { return D(r.has_y ? m.GetQ2AY(Ch(n)) : m.GetQ2AX(Ch(n))); }},
    {"Q2(cum)", kModels, kComps, [](R r, const Model& m, int n) { return D(r.has_y ? m.GetQ2Y(Ch(n)) : m.GetQ2X(Ch(n))); }},
    {"SDt", kModels, kComps, [](R r, const Model&, int n) { return std::sqrt(r.S2T(n)); }},
    {"SDu", kPLS, kComps, [](R r, const Model&, int n) { return std::sqrt(SquaresOf(r.u[static_cast<std::size_t>(n - 1)]) / kN); }},
    {"OLevX[2]", kModels, kObs, [](R r, const Model&, int n) { return (1.0 + r.T2(r.t, 1, n)) / kN; }},
    {"OLevY[2]", kPLS, kObs, [](R, const Model& m, int n) { return D(m.GetOLevY(2, S(n))); }},
    {"SerrL2[2]", kPLS, kObs, [](R, const Model& m, int n) { return D(m.GetSEYPredLLS(S(n), 2)); }},
    {"SerrLPS2[2]", kPLSPS, kObsPS, [](R, const Model& m, int n) { return D(m.GetSEYPredLPS(S(n), 2)); }},
    {"SerrU2[2]", kPLS, kObs, [](R, const Model& m, int n) { return D(m.GetSEYPredULS(S(n), 2)); }},
    {"SerrUPS2[2]", kPLSPS, kObsPS, [](R, const Model& m, int n) { return D(m.GetSEYPredUPS(S(n), 2)); }},
    {"t[2]", kModels, kObs, [](R r, const Model&, int n) { return r.Of(r.t, 2, n); }},
    {"u[1]", kPLS, kObs, [](R r, const Model&, int n) { return r.Of(r.u, 1, n); }},
    {"tPS[2]", kModelsPS, kObsPS, [](R r, const Model&, int n) { return r.Of(r.t_ps, 2, n); }},
    {"Tsquare[2]", kModels, kObs, [](R r, const Model&, int n) { return r.T2(r.t, 1, n); }},
    {"TsquarePS[2]", kModelsPS, kObsPS, [](R r, const Model&, int n) { return r.T2(r.t_ps, 1, n); }},
    {"VarDS2", kDS, kObs, [](R r, const Model&, int n) { return r.x.Value(n, 2, ' '); }},
    {"ObsDS3", kDS, kData, [](R r, const Model&, int n) { return n <= kK ? r.x.Value(3, n, ' ') : r.y.Value(3, n - kK, ' '); }},
    {"VarTr2", kWS, kObs, [](R r, const Model&, int n) { return r.x.Value(n, 2, 'T'); }},
    {"Obs3", kWS, kData, [](R r, const Model&, int n) { return n <= kK ? r.x.Value(3, n, ' ') : r.y.Value(3, n - kK, ' '); }},
    {"VarPS2", kPS, kObsPS, [](R r, const Model&, int n) { return r.x_ps.Value(n, 2, ' '); }},
    {"ObsPSTr3", kPS, kData, [](R r, const Model&, int n) { return n <= kK ? r.x_ps.Value(3, n, 'T') : r.y_ps.Value(3, n - kK, 'T'); }},
    {"VarRes2[2]", kModels, kObs, [](R r, const Model&, int n) { return r.x.Residual(n, 2, 2, ' '); }},
    {"VarResPSTr2[1]", kModelsPS, kObsPS, [](R r, const Model&, int n) { return r.x_ps.Residual(n, 2, 1, 'T'); }},
    {"VarPred2[1]", kModels, kObs, [](R r, const Model&, int n) { return r.x.Predicted(n, 2, 1, ' '); }},
    {"VarPredPS2[2]", kModelsPS, kObsPS, [](R r, const Model&, int n) { return r.x_ps.Predicted(n, 2, 2, ' '); }},
    {"Coeff2[2]", kPLS, "Const c", [](R r, const Model&, int n) { return n == 1 ? r.B0(2) : r.Coeff(n - 1, 2); }},
    {"CoeffC2[2]", kPLS, kX, [](R r, const Model&, int n) { return r.Coeff(n, 2); }},
    {"CoeffCS2[2]", kPLS, kX, [](R r, const Model&, int n) { return r.B(n, 2); }},
    {"CoeffMR2[2]", kPLS, "Const c", [](R r, const Model&, int n) { return n == 1 ? r.y.centre[1] : r.B(n - 1, 2) / r.y.weight[1]; }},
    {"c[1]", kPLS, kY, [](R r, const Model&, int n) { return r.Of(r.c, 1, n); }},
    {"p[2]", kModels, kX, [](R r, const Model&, int n) { return r.Of(r.p, 2, n); }},
    {"w[2]", kPLS, kX, [](R r, const Model&, int n) { return r.Of(r.w, 2, n); }},
    {"w*[2]", kPLS, kX, [](R r, const Model&, int n) { return r.WStar(2, n); }},
    {"w*c[2]", kPLS, kData, [](R r, const Model&, int n) { return n <= kK ? r.WStar(2, n) : r.Of(r.c, 2, n - kK); }},
    {"wc[2]", kPLS, kData, [](R r, const Model&, int n) { return n <= kK ? r.Of(r.w, 2, n) : r.Of(r.c, 2, n - kK); }},
    {"VIP[2]", kPLS, kX, [](R r, const Model&, int n) { return r.VIP(n); }},
    {"MPowX[2]", kModels, kX, [](R r, const Model&, int n) { return std::max(0.0, 1.0 - std::sqrt(r.x.S2V(2, n) / r.x.S2V(0, n))); }},
    {"Q2V[2]", kModels, kValidated, [](R r, const Model& m, int n) { return D(r.has_y ? m.GetQ2VAY(2, S(n)) : m.GetQ2VAX(2, S(n))); }},
    {"Q2V(cum)[2]", kModels, kValidated, [](R r, const Model& m, int n) { return D(r.has_y ? m.GetQ2VY(2, S(n)) : m.GetQ2VX(2, S(n))); }},
    {"XSc2[-1]", kModels, kObs, [](R r, const Model&, int n) { return r.x.Value(n, 2, 'C'); }},
    {"YTr2[-1]", kPLS, kObs, [](R r, const Model&, int n) { return r.y.Value(n, 2, 'T'); }},
    {"XResSc2[0]", kModels, kObs, [](R r, const Model&, int n) { return r.x.Residual(n, 2, 0, 'C'); }},
    {"XResSt2[1]", kModels, kObs, [](R r, const Model&, int n) { return r.x.Residual(n, 2, 1, 'C') / std::sqrt(r.x.S2V(1, 2)); }},
    {"YResPSSt1[2]", kPLSPS, kObsPS, [](R r, const Model&, int n) { return r.y_ps.Residual(n, 1, 2, 'C') / std::sqrt(r.y.S2V(2, 1)); }},
    {"VarRes5[1]", kPLS, kObs, [](R r, const Model&, int n) { return r.y.Residual(n, 2, 1, ' '); }},
    {"VarResPSSc4[2]", kPLSPS, kObsPS, [](R r, const Model&, int n) { return r.y_ps.Residual(n, 1, 2, 'C'); }},
    {"VarPred5[2]", kPLS, kObs, [](R r, const Model&, int n) { return r.y.Predicted(n, 2, 2, ' '); }},
    {"VarPredPS5[1]", kPLSPS, kObsPS, [](R r, const Model&, int n) { return r.y_ps.Predicted(n, 2, 1, ' '); }},
    {"VarPredSc1[0]", kModels, kObs, [](R, const Model&, int) { return 0.0; }},
    {"AvgX[0]", kModels, kX, [](R, const Model&, int) { return 0.0; }},
    {"t1:2[5]", kModels, kComps, [](R r, const Model&, int n) { return r.Of(r.t, n, 5); }},
    {"p1:2[3]", kModels, kComps, [](R r, const Model&, int n) { return r.Of(r.p, n, 3); }},
    {"SSVX-1:1[2]", kModels, "Initial Comp[1]", [](R r, const Model&, int n) { return SquaresOf(r.x.Col(n - 2, 2)); }},
    {"S2X0:1[0]", kModels, "Center Comp[1]", [](R r, const Model&, int n) { return r.S2(r.x, n - 1); }},
    {"R2X[2]", kModels, "Comp[2] Comp[2]", [](R r, const Model&, int) { return r.R2(r.x, 1, 2); }},
    {"Tsquare1:2[0]", kModels, kObs, [](R r, const Model&, int n) { return r.T2(r.t, 1, n); }},
};
// clang-format on

template <typename Object>
void ExpectVector(Object& object, const Expected& expected, const std::string& labels, R reference,
                  const Model& model) {
  VecSpec spec;
  ASSERT_EQ(spec.SetName(expected.name), 0);
  XFVector* values = nullptr;
  XSVector* names = nullptr;
  ASSERT_EQ(object.GetXFVector(&spec, values), 0);
  ASSERT_EQ(object.GetXSVector(&spec, names, false), 0);
  const auto owned_values = Own(values);
  const auto owned_names = Own(names);
  EXPECT_STREQ(values->GetName(), expected.name);
  EXPECT_STREQ(names->GetName(), expected.name);
  ASSERT_EQ(values->NVal(), names->NVal());
  ASSERT_GT(values->NVal(), 0);
  EXPECT_EQ(std::string((*names)[1]) + " " + (*names)[names->NVal()], labels);
  for (int n = 1; n <= values->NVal(); ++n) {
    const double value = expected.value(reference, model, n);
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

// A model with its work set and a prediction set, all of the same data and of two components.
template <typename TBench>
void Fit(TBench& bench) {
  bench.workset.SetTransformation(2, ETraType::kLog, 1, 0, 0);
  bench.workset.SetTransformation(5, ETraType::kLog, 1, 0, 0);
  bench.options.SetSeqValidate(EValidate::CV);
  ASSERT_EQ(bench.Compute(kA), 0);
  ASSERT_EQ(bench.model.ExecLS(char{0}), 0);
}

struct Models {
  Rows rows = MakeRows(kN);
  Rows ps_rows = MakeRows(kN + kNPS);
  test::Bench pc{test::Letters(kK + kM), rows};
  test::PLSBench pls{rows, kM};
  std::unique_ptr<Dataset> ps_data;
  std::unique_ptr<Predset> predset;

  Models() {
    for (short j = 4; j <= 5; ++j) pc.workset.SetRole(j, EVarRole::kY);
    Fit(pc);
    Fit(pls);
    ps_rows.erase(ps_rows.begin(), ps_rows.begin() + kN);
    ps_data = test::SmallDataset(test::Letters(kK + kM), ps_rows);
    predset = std::make_unique<Predset>("PS", *ps_data, pls.workset);
  }
  void Predict() {
    Predset of_pc("PS", *ps_data, pc.workset);
    pc.owner.predset = &of_pc;
    pls.owner.predset = predset.get();
    ASSERT_EQ(pc.model.ExecPS(), 0);
    ASSERT_EQ(pls.model.ExecPS(), 0);
  }
};

TEST(ModelVectors, EveryTypeOfEveryObjectHasItsNumbersAndLabelsOrItsRefusal) {
  Models models;
  for (const bool is_predicted : {false, true}) {
    if (is_predicted) models.Predict();
    const Reference pc(models.pc.model, models.rows, models.ps_rows);
    const Reference pls(models.pls.model, models.rows, models.ps_rows);
    for (const Expected& e : kExpected) {
      SCOPED_TRACE(std::string(e.name) + (is_predicted ? " predicted" : ""));
      const auto expect_model = [&](auto& model, R reference) {
        const bool has_type = e.who == kAll || e.who >= kModels;
        const bool is_missing_y = !reference.has_y && (e.who == kPLS || e.who == kPLSPS);
        if (!has_type || is_missing_y) {
          // What counts X variables and responses has no response.
          const int status = std::string(e.name).starts_with("Var") && has_type ? 8021 : 8016;
          EXPECT_EQ(StatusOf(model, e.name),
                    e.who == kPLSPS && status == 8021 && !is_predicted ? 8036 : status);
        } else if (e.who >= kModelsPS && !is_predicted) {
          EXPECT_EQ(StatusOf(model, e.name), 8036);
        } else {
          const char* const labels = e.labels != kValidated ? e.labels : reference.has_y ? kY : kX;
          ExpectVector(model, e, labels, reference, model);
        }
      };
      expect_model(models.pc.model, pc);
      expect_model(models.pls.model, pls);
      const auto expect_set = [&](auto& set, Who own, const char* labels) {
        if (e.who == kAll || e.who == own) {
          ExpectVector(set, e, labels, pls, models.pls.model);
        } else {
          EXPECT_EQ(StatusOf(set, e.name), 8016);
        }
      };
      expect_set(*models.pls.dataset, kDS, e.labels);
      expect_set(models.pls.workset, kWS, e.labels);
      expect_set(*models.predset, kPS, e.who == kAll ? kObsPS : e.labels);
    }
  }
}

TEST(ModelVectors, TheTableHasEveryType) {
  for (const VecRow& row : VecCatalogue()) {
    const bool is_elsewhere = row.type == CEVecType::None || row.comps == EVecComps::kResponse ||
                              row.along == EVecAxis::kLags;
    const bool is_here = std::ranges::any_of(kExpected, [&](const Expected& e) {
      VecSpec spec;
      return spec.SetName(e.name) == 0 && spec.GetVType() == row.type;
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
  test::PLSBench empty(models.rows, kM);
  EXPECT_EQ(StatusOf(empty.model, "AvgX[-1]"), 8009);
  EXPECT_EQ(empty.model.Load(), 0);
  EXPECT_EQ(StatusOf(empty.model, "AvgX[-1]"), 0);
  EXPECT_EQ(StatusOf(empty.model, "AvgX[0]"), 8003);
  EXPECT_EQ(StatusOf(empty.model, "t[1]"), 8003);
  EXPECT_EQ(StatusOf(empty.model, "SerrL1[1]"), 8036);
}

TEST(ModelVectors, MissingValuesStayMissing) {
  Rows rows = MakeRows(kN);
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
  const Rows rows = MakeRows(kN);
  test::PLSBench bench(rows, kM);
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
  const int of_pc = models.pc.model.GetGapContVector(1, 3, 0, vector);
  EXPECT_NEAR(sum(of_pc, vector), D(models.pc.model.GetT(1, 3)), 1e-4);
  const Reference reference(model, models.rows, models.ps_rows);
  const int of_y = model.GetGapContVectorY(2, 2, 3, 0, vector);
  EXPECT_STREQ(vector->GetName(), "GapContY2[2]");
  EXPECT_NEAR(sum(of_y, vector), reference.y.Predicted(3, 2, 2, 'C'), 1e-4);
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
  EXPECT_EQ(models.pc.model.GetGapContVectorY(1, 1, 1, 0, vector), 8016);
}

}  // namespace
}  // namespace zemva
