// How PCModel fits a component.
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "zemva/errors/status.h"
#include "zemva/model/driver/data_block.h"
#include "zemva/model/driver/distances.h"
#include "zemva/model/driver/validation.h"
#include "zemva/model/kernels/left_out.h"
#include "zemva/model/kernels/nipals.h"
#include "zemva/model/kernels/residual_matrix.h"
#include "zemva/model/pc/cross_validation.h"
#include "zemva/model/pc/pc_model.h"

namespace zemva {
namespace {

constexpr double kLeastVariableShare = 0.02;
constexpr float kLeastEigenvalue = 2.0f;
constexpr int kMostComponents = std::numeric_limits<signed char>::max();

std::string Label(int a) {
  return "[" + std::to_string(a) + "]";
}

}  // namespace

int PCModel::CalcComp() {
  return Run([&] {
    if (IsSearchOver()) return status::mva::kComponentAborted;
    return GetX().IsCentered() ? FitComponent() : status::mva::kDataNotAvailable;
  });
}

int PCModel::FitComponent() {
  const int used_columns = GetNVarXUsed();
  const int a = GetComponentCount() + 1;
  if (used_columns < a || a > kMostComponents) return status::kOk;
  const Validation validation = GetValidation(GetOptions(), true);
  if (validation.status != status::kOk) return validation.status;

  PCCompInfo component(a, GetNObs(), GetNVarX());
  const int dimension = std::min<int>(used_columns, GetNObs());
  if (JudgeBySize(a, dimension, component, GetLog()) && GetOptions().GetIsRule()) {
    return status::mva::kComponentAborted;
  }
  const int status = FitTo(validation, component);
  return status == status::kOk ? AddComp(std::move(component), validation) : status;
}

int PCModel::FitTo(const Validation& validation, PCCompInfo& component) {
  const std::span<const float> column_squares = GetStageX(GetComponentCount())->ssv.Values();
  const auto largest = std::ranges::max_element(column_squares) - column_squares.begin();
  GetX().GetResiduals().CopyStart(static_cast<std::size_t>(largest), component.t.Values());
  const int status = Nipals(LeftOut(), component.p, component.t, component.iteration_count);
  if (status != status::kOk || !validation.is_cross_validated) return status;
  return CrossValidate(component);
}

int PCModel::Nipals(const LeftOut& left_out, XFVector& p, XFVector& t, short& iteration_count) {
  const double group_count = GetOptions().GetNCV();
  const double widening = left_out.IsNothing() ? 1.0 : group_count / (group_count - 1.0);
  const auto cap = [&](float limit, bool is_reported, const char* text) {
    Cap result{static_cast<double>(limit) * widening, {}};
    result.report = [this, is_reported, text](int number, double factor) {
      SetIsOverrun();
      if (!is_reported) return;
      GetLog().Line().Text(text).Number(number).Text(", was ").General(0, factor).EndLine();
    };
    return result;
  };
  const NipalsSettings settings{
      GetOptions().GetMaxIter(),
      cap(GetLoadingLimit(), GetOptions().GetIsShoLoaLim(), "CompLimLoa overrun for p, VarIx "),
      cap(GetOptions().GetCLS(), GetOptions().GetIsShoScrLim(),
          "CompLimScr overrun for t, ObsIx ")};
  const NipalsResult result =
      zemva::Nipals(GetX().GetResiduals(), left_out, settings, t.Values(), p.Values());
  if (result.status != status::kOk) return result.status;
  iteration_count =
      static_cast<short>(std::min<int>(result.iterations, std::numeric_limits<short>::max()));
  const auto is_finite = [](float value) { return std::isfinite(value); };
  const bool is_in_range =
      std::ranges::all_of(t.Values(), is_finite) && std::ranges::all_of(p.Values(), is_finite);
  t.SetActValInfo();
  p.SetActValInfo();
  return is_in_range ? status::kOk : status::mva::kDomain;
}

int PCModel::CrossValidate(PCCompInfo& component) {
  const int element_count = GetNObs() * GetNVarX();
  if (GetOptions().GetNCV() > element_count) {
    GetOptions().SetNCV(static_cast<short>(element_count));
    GetLog().Write("NCV is reduced to NObs*NVar: " + std::to_string(element_count) + "\n");
  }
  const short group_count = GetGroupCount(GetOptions().GetNCV(), GetNVarXUsed(), GetLog());
  if (group_count == 0) return status::mva::kArgument;
  GetOptions().SetNCV(group_count);

  const ResidualMatrix& residuals = GetX().GetResiduals();
  std::vector<char> takes_part;
  for (int k = 0; k < GetNVarX(); ++k) {
    takes_part.push_back(residuals.TakesPart(static_cast<std::size_t>(k)));
  }
  GroupLabels labels(group_count, takes_part);
  std::vector<double> errors(takes_part.size());
  for (int round = 1; round <= group_count; ++round) {
    if (round > 1) labels.Rotate();
    const LeftOut left_out = LeftOut::Elements(group_count, labels.Get());
    XFVector p(component.p);
    XFVector t(component.t);
    short iteration_count = 0;
    const int status = Nipals(left_out, p, t, iteration_count);
    if (status != status::kOk) return status;
    AddPredictionErrors(residuals, left_out, t.Values(), p.Values(), errors);
  }
  const int a = GetComponentCount() + 1;
  const double press = std::accumulate(errors.begin(), errors.end(), 0.0);
  const bool is_of_total = GetOptions().GetXOpt1() != 0;
  SetQ2(press, errors, *GetStageX(a - 1), *GetStageX(0), GetComponent(a - 1), is_of_total,
        component);
  component.q2_limit = GetQ2Limit(static_cast<char>(a));
  GetLog()
      .Line()
      .Text("Q2" + Label(a) + "= ")
      .Fixed(0, 3, static_cast<double>(component.q2))
      .Text(" Q2Lim" + Label(a) + "= ")
      .Fixed(0, 3, static_cast<double>(component.q2_limit))
      .EndLine();
  JudgeByQ2(GetRequiredCount(GetNVarXUsed()), component, GetLog());
  return status::kOk;
}

int PCModel::AddComp(PCCompInfo component, const Validation& validation) {
  components_.push_back(std::move(component));
  PCCompInfo& added = components_.back();
  GetX().GetResiduals().Subtract(added.t.Values(), added.p.Values());
  const int status = MemoryGuarded([&] {
    Measure(added);
    return Judge(validation, added);
  });
  if (status != status::kOk) DropComp();
  return status;
}

void PCModel::Measure(PCCompInfo& component) {
  const int a = GetComponentCount();
  GetX().Measure({GetA0(), a}, component.x);
  const double initial_ss = static_cast<double>(GetSSX(0));
  const double ss_before = static_cast<double>(GetSSX(static_cast<char>(a - 1)));
  const double ss = static_cast<double>(component.x.ss);
  const double dimension = std::min(GetNObs(), GetNVarX());
  const bool has_variation = initial_ss > 0.0;
  component.eigenvalue =
      has_variation ? static_cast<float>((ss_before - ss) / initial_ss * dimension) : 0.0f;
  GetLog()
      .Line()
      .Text(" R2X(cum)" + Label(a) + " = ")
      .Fixed(0, 3, has_variation ? 1.0 - ss / initial_ss : 0.0)
      .EndLine();
  MeasureWeighted(component);
  component.t_min = component.t.Min();
  component.t_max = component.t.Max();
  component.s2t = static_cast<float>(component.t.S2(0.0f, 0, 1.0f));
  std::vector<std::span<const float>> scores;
  for (const PCCompInfo& each : components_) scores.push_back(each.t.Values());
  std::ranges::copy(Leverages(scores, GetA0()), component.leverages.Values().begin());
  component.leverages.SetActValInfo();
}

void PCModel::MeasureWeighted(PCCompInfo& component) {
  const int a = GetComponentCount();
  const XFMatrix& values = GetX().GetValues();
  const ResidualWeights weights(component.x.mpow);
  double sum = 0.0;
  for (int i = 1; i <= values.NRow(); ++i) {
    const auto row = static_cast<std::size_t>(i - 1);
    const WeightedSums sums = weights.Sum(GetX().GetResiduals().Row(row), values.Row(i),
                                          GetX().GetInfo()->row_counts[row]);
    const double variance = WeightedVariance(sums, a);
    component.weighted_s2o[i] = static_cast<float>(variance);
    sum += variance;
  }
  component.weighted_s2o.SetActValInfo();
  component.weighted_s2 = static_cast<float>(sum / GetSize(a).FreeObservations());
}

int PCModel::Judge(const Validation& validation, PCCompInfo& component) {
  if (validation.is_by_eigenvalue && component.eigenvalue < kLeastEigenvalue) {
    component.verdict = EVerdict::kEigenvalue;
    return status::mva::kComponentAborted;
  }
  const int a = GetComponentCount();
  const bool is_small = JudgeByR2(*GetStageX(a - 1), component.x, *GetStageX(0),
                                  kLeastVariableShare, component, GetLog());
  const bool is_refused =
      is_small || JudgeByDefault(validation.is_cross_validated, component, GetLog());
  return is_refused && GetOptions().GetIsRule() ? status::mva::kComponentAborted : status::kOk;
}

}  // namespace zemva
