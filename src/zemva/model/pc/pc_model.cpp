#include "zemva/model/pc/pc_model.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "zemva/errors/status.h"
#include "zemva/model/block/data_block.h"
#include "zemva/model/driver/validation.h"
#include "zemva/model/kernels/adaptive_nipals.h"
#include "zemva/model/kernels/left_out.h"
#include "zemva/model/kernels/nipals.h"
#include "zemva/model/kernels/residual_matrix.h"
#include "zemva/model/pc/cross_validation.h"
#include "zemva/numeric/f_matrix.h"

namespace zemva {
namespace {

constexpr double kLeastVariableShare = 0.02;

// Whether the inverse of a matrix of sums of products, with this diagonal, has digits that mean
// something. M[c][c] M^-1[c][c] = 1 / (1 - R^2), with R^2 that of c on the others: 1 or more, where
// the inversion has not met its smallest pivot, and beyond what floats resolve the more c depends
// on the others.
bool IsDetermined(const FMatrix& inverse, std::span<const float> diagonal) {
  constexpr double kLeast = 0.5;
  constexpr double kMost = 1e6;
  for (int c = 1; c <= inverse.NRow(); ++c) {
    const double inflation = static_cast<double>(inverse[c][c]) *
                             static_cast<double>(diagonal[static_cast<std::size_t>(c - 1)]);
    if (!(inflation > kLeast && inflation < kMost)) return false;
  }
  return true;
}

}  // namespace

PCModel::PCModel(ModelOwner* owner, EModType type, StreamWindow& window, ModOpt* options,
                 char selector)
    : Model(owner, type, window, options, selector),
      iteration_(std::make_unique<AdaptiveNipals>()) {}

PCModel::PCModel(const PCModel& other)
    : Model(other), iteration_(std::make_unique<AdaptiveNipals>()) {}

PCModel::~PCModel() = default;

const ClassID& PCModel::GetClassID() {
  static const ClassID id("PCModel");
  return id;
}

Model::Rules PCModel::GetRules() const {
  const int used_columns = GetNVarXUsed();
  return {used_columns, true, GetRequiredCount(used_columns), kLeastVariableShare};
}

int PCModel::Fit(CompInfo& component) {
  const std::span<const float> squares = GetStage(EBlock::kX, GetComponentCount())->ssv.Values();
  const auto largest = std::ranges::max_element(squares) - squares.begin();
  GetX().GetResiduals().CopyStart(static_cast<std::size_t>(largest), component.t.Values());
  std::optional<GroupLabels> groups;
  if (GetValidation(GetOptions(), true).is_cross_validated) groups = MakeGroups();
  return FitWhole(groups ? groups->GetLeftOut(static_cast<std::size_t>(GetNObs())) : LeftOut(),
                  component);
}

int PCModel::FitWhole(const LeftOut& groups, CompInfo& component) {
  const NipalsResult result = iteration_->Fit(GetX().GetResiduals(), groups, MakeSettings(0, 1.0),
                                              component.t.Values(), component.p.Values());
  component.iteration_count =
      static_cast<short>(std::min<int>(result.iterations, std::numeric_limits<short>::max()));
  return result.status == status::kOk ? Finish(component.p, component.t) : result.status;
}

int PCModel::FitRound(int round, const LeftOut& left_out, XFVector& p, XFVector& t) {
  // In a round of G groups the limits of the corrections are G / (G - 1) times as wide.
  const double group_count = GetOptions().GetNCV();
  const NipalsSettings settings = MakeSettings(round, group_count / (group_count - 1.0));
  const NipalsResult result =
      iteration_->FitRound(GetX().GetResiduals(), left_out, settings, t.Values(), p.Values());
  return result.status == status::kOk ? Finish(p, t) : result.status;
}

NipalsSettings PCModel::MakeSettings(int round, double widening) {
  return {GetOptions().GetMaxIter(),
          MakeCap(static_cast<double>(GetLoadingLimit()) * widening, GetOptions().GetIsShoLoaLim(),
                  "CompLimLoa overrun for p, VarIx "),
          MakeCap(static_cast<double>(GetOptions().GetCLS()) * widening,
                  GetOptions().GetIsShoScrLim(), "CompLimScr overrun for t, ObsIx "),
          AskBefore(round)};
}

int PCModel::Finish(XFVector& p, XFVector& t) {
  const auto is_finite = [](float value) { return std::isfinite(value); };
  const bool is_in_range =
      std::ranges::all_of(t.Values(), is_finite) && std::ranges::all_of(p.Values(), is_finite);
  t.SetActValInfo();
  p.SetActValInfo();
  return is_in_range ? status::kOk : status::mva::kDomain;
}

int PCModel::Complete(CompInfo& /*component*/) {
  iteration_->TakeOff();
  return status::kOk;
}

std::optional<GroupLabels> PCModel::MakeGroups() const {
  const int asked = std::min<int>(GetOptions().GetNCV(), GetNObs() * GetNVarX());
  const short group_count = GetGroupCount(static_cast<short>(asked), GetNVarXUsed(), nullptr);
  if (group_count == 0) return std::nullopt;
  const ResidualMatrix& residuals = GetX().GetResiduals();
  std::vector<char> takes_part;
  takes_part.reserve(static_cast<std::size_t>(GetNVarX()));
  for (int k = 0; k < GetNVarX(); ++k) {
    takes_part.push_back(residuals.TakesPart(static_cast<std::size_t>(k)));
  }
  return GroupLabels(group_count, takes_part);
}

int PCModel::AddPredictionErrors(const CompInfo& component, std::span<double> errors) {
  const int element_count = GetNObs() * GetNVarX();
  if (GetOptions().GetNCV() > element_count) {
    GetOptions().SetNCV(static_cast<short>(element_count));
    GetLog().Write("NCV is reduced to NObs*NVar: " + std::to_string(element_count) + "\n");
  }
  const short group_count = GetGroupCount(GetOptions().GetNCV(), GetNVarXUsed(), &GetLog());
  if (group_count == 0) return status::mva::kArgument;
  GetOptions().SetNCV(group_count);

  GroupLabels groups = *MakeGroups();
  for (int round = 1; round <= group_count; ++round) {
    if (round > 1) groups.Rotate();
    const LeftOut left_out = groups.GetLeftOut(static_cast<std::size_t>(GetNObs()));
    XFVector p(component.p);
    XFVector t(component.t);
    const int status = FitRound(round, left_out, p, t);
    if (status != status::kOk) return status;
    zemva::AddPredictionErrors(GetX().GetResiduals(), left_out, t.Values(), p.Values(), errors);
  }
  return status::kOk;
}

int PCModel::CalcTPred(const XFVector& values, FVector& scores) {
  const int a = scores.NVal();
  FMatrix cross_products(a, a, 0.0f);
  FVector projections(a, 0.0f);
  Whole(cross_products);
  Whole(projections);
  const auto sum_present = [&](auto term) {
    double sum = 0.0;
    for (int k = 1; k <= values.NVal(); ++k) {
      if (!IsMissing(values[k])) sum += term(k);
    }
    return static_cast<float>(sum);
  };
  const auto loading = [&](int c, int k) { return static_cast<double>(GetComponent(c)->p[k]); };
  // P*'x* and P*'P*, over the present values
  for (int c = 1; c <= a; ++c) {
    projections[c] =
        sum_present([&](int k) { return loading(c, k) * static_cast<double>(values[k]); });
    for (int d = 1; d <= a; ++d) {
      cross_products[c][d] = sum_present([&](int k) { return loading(c, k) * loading(d, k); });
    }
  }
  std::vector<float> diagonal;
  for (int c = 1; c <= a; ++c) diagonal.push_back(cross_products[c][c]);
  const int status = cross_products.MInv();
  if (status == status::mat::kMemory) return status::mva::kMemory;
  if (status != status::kOk || !IsDetermined(cross_products, diagonal)) {
    GetLog().Write("Matrix singular!\n");
    SetIsOverrun();
    return status::kOk;
  }
  // t = (P*'P*)^-1 P*'x*
  for (int c = 1; c <= a; ++c) {
    double score = 0.0;
    for (int d = 1; d <= a; ++d) {
      score += static_cast<double>(cross_products[c][d]) * static_cast<double>(projections[d]);
    }
    scores[c] = AsPresent(static_cast<float>(score));
  }
  return status::kOk;
}

}  // namespace zemva
