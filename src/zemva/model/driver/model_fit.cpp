// The loop of Model over its components.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <numeric>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/errors/status.h"
#include "zemva/model/block/data_block.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/driver/validation.h"
#include "zemva/model/execution/distances.h"
#include "zemva/model/execution/leverage.h"
#include "zemva/model/kernels/projection.h"

namespace zemva {
namespace {

constexpr float kLeastEigenvalue = 2.0f;
constexpr auto kBetweenQuestions = std::chrono::milliseconds(100);
constexpr int kMostComponents = std::numeric_limits<signed char>::max();

std::string Label(int a) {
  return "[" + std::to_string(a) + "]";
}

}  // namespace

const CompInfo* Model::GetComponent(int a) const {
  const bool is_there = a >= 1 && a <= GetComponentCount();
  return is_there ? components_[static_cast<std::size_t>(a - 1)].get() : nullptr;
}

int Model::CalcComp() {
  return Run([&] {
    if (is_search_over_) return status::mva::kComponentAborted;
    return x_->IsCentred() ? FitComponent() : status::mva::kDataNotAvailable;
  });
}

int Model::FitComponent() {
  const Rules rules = GetRules();
  const int a = GetComponentCount() + 1;
  if (rules.variable_count < a || a > kMostComponents) return status::kOk;
  const Validation validation = GetValidation(*options_, rules.has_eigenvalue_rule);
  if (validation.status != status::kOk) return validation.status;

  auto component = std::make_shared<CompInfo>(a, GetNObs(), GetNVarX(), GetNVarY());
  const int dimension = std::min<int>(rules.variable_count, GetNObs());
  if (JudgeBySize(a, dimension, *component, log_) && options_->GetIsRule()) {
    return status::mva::kComponentAborted;
  }
  int status = Fit(*component);
  if (status == status::kOk && validation.is_cross_validated) status = CrossValidate(*component);
  return status == status::kOk ? AddComp(std::move(component), validation) : status;
}

Cap Model::MakeCap(double limit, bool is_reported, const char* text) {
  return {limit, [this, is_reported, text](int number, double factor) {
            is_overrun_ = true;
            if (!is_reported) return;
            log_.Line().Text(text).Number(number).Text(", was ").General(0, factor).EndLine();
          }};
}

std::function<bool(int)> Model::AskBefore(int round) {
  return [this, round](int iterations) {
    const auto now = std::chrono::steady_clock::now();
    if (now - asked_ < kBetweenQuestions) return true;
    asked_ = now;
    return owner_->GoesOn({GetComponentCount() + 1, round, iterations});
  };
}

int Model::CrossValidate(CompInfo& component) {
  std::vector<double> errors(static_cast<std::size_t>(GetTarget().GetColumnCount()));
  const int status = AddPredictionErrors(component, errors);
  if (status != status::kOk) return status;
  const int a = GetComponentCount() + 1;
  const EBlock target = GetTarget().GetBlock();
  // PRESS, the sum of the squares of what was left out less what was predicted of it.
  const double press = std::accumulate(errors.begin(), errors.end(), 0.0);
  SetQ2(press, errors, *GetStage(target, a - 1), *GetStage(target, 0), GetComponent(a - 1),
        options_->GetXOpt1() != 0, component);
  component.q2_limit = GetQ2Limit(static_cast<char>(a));
  // The limit of models with responses is the same for all components.
  log_.Line()
      .Text("Q2" + Label(a) + "= ")
      .Fixed(0, 3, static_cast<double>(component.q2))
      .Text(HasY() ? " Q2Lim= " : " Q2Lim" + Label(a) + "= ")
      .Fixed(0, 3, static_cast<double>(component.q2_limit))
      .EndLine();
  JudgeByQ2(GetRules().required_count, component, log_);
  return status::kOk;
}

int Model::AddComp(std::shared_ptr<CompInfo> component, const Validation& validation) {
  CompInfo& added = *component;
  components_.push_back(std::move(component));
  // E = E - t p', F = F - t c'
  for (DataBlock* const block : GetBlocks()) {
    block->GetResiduals().Subtract(added.t.Values(), added.LoadingsOf(block->GetBlock()).Values());
  }
  const int status = MemoryGuarded([&] {
    Measure(added);
    const int verdict = Judge(validation, GetRules(), added);
    return verdict == status::kOk ? Complete(added) : verdict;
  });
  if (status != status::kOk) DropAfter(GetComponentCount() - 1);
  return status;
}

int Model::Complete(CompInfo& /*component*/) {
  return status::kOk;
}

// Residuals that a component were added to again would be others in their last digits.
void Model::DropAfter(int a) {
  components_.resize(static_cast<std::size_t>(a));
  for (DataBlock* const block : GetBlocks()) {
    if (!block->IsCentred()) continue;
    block->ResetResiduals();
    TakeOffComponents(*block);
  }
}

void Model::TakeOffComponents(DataBlock& block) const {
  for (const auto& component : components_) {
    block.GetResiduals().Subtract(component->t.Values(),
                                  component->LoadingsOf(block.GetBlock()).Values());
  }
}

int Model::Reset(short a) {
  if (a < 0) return SetStatus(status::mva::kIndexOutOfRange);
  if (GetComponentCount() > a) {
    DeleteLSResults();
    DeletePSResults();
    DropAfter(a);
  }
  return ClearStatus();
}

void Model::ReportExplained(const char* text, const Stage& after, const Stage& initial) {
  const double total = static_cast<double>(initial.ss);
  log_.Line()
      .Text(text + Label(GetComponentCount()) + " = ")
      .Fixed(0, 3, total > 0.0 ? 1.0 - static_cast<double>(after.ss) / total : 0.0)
      .EndLine();
}

void Model::Measure(CompInfo& component) {
  const int a = GetComponentCount();
  x_->Measure({a0_, a, a}, component.x);
  const Stage& initial = *GetStage(EBlock::kX, 0);
  const double total = static_cast<double>(initial.ss);
  const double gain =
      static_cast<double>(GetStage(EBlock::kX, a - 1)->ss) - static_cast<double>(component.x.ss);
  // Eig = (SSX before - SSX) min(N, K) / SSX of stage 0
  const double dimension = std::min(GetNObs(), GetNVarX());
  component.eigenvalue = total > 0.0 ? static_cast<float>(gain / total * dimension) : 0.0f;
  ReportExplained(" R2X(cum)", component.x, initial);
  if (HasY()) {
    const BlockSize size = GetSize(EBlock::kY, a);
    y_->Measure({size.a0, size.of_column, size.of_row}, *component.y);
    ReportExplained(" R2Y(cum)", *component.y, *GetStage(EBlock::kY, 0));
  }
  MeasureWeighted(component);
  component.t_min = component.t.Min();
  component.t_max = component.t.Max();
  component.s2t = static_cast<float>(component.t.S2(0.0f, 0, 1.0f));
  const auto set_leverages = [&](WholeVector CompInfo::*scores, XFVector& leverages) {
    std::ranges::copy(MakeLeverage(a, scores).OfRows(), leverages.Values().begin());
    leverages.SetActValInfo();
  };
  set_leverages(&CompInfo::t, component.leverages);
  if (HasY()) set_leverages(&CompInfo::u, component.leverages_y);
}

Leverage Model::MakeLeverage(int a, WholeVector CompInfo::*scores) const {
  std::vector<std::span<const float>> all;
  for (int c = 1; c <= a; ++c) all.push_back((GetComponent(c)->*scores).Values());
  return Leverage(all, GetA0());
}

void Model::MeasureWeighted(CompInfo& component) {
  const int a = GetComponentCount();
  const XFMatrix& values = x_->GetValues();
  const ResidualWeights weights(component.x.mpow);
  double sum = 0.0;
  for (int i = 1; i <= values.NRow(); ++i) {
    const auto row = static_cast<std::size_t>(i - 1);
    const WeightedSums sums =
        weights.Sum(x_->GetResiduals().Row(row), values.Row(i), x_->GetInfo()->row_counts[row]);
    component.weighted_s2o[i] = static_cast<float>(WeightedObservationVariance(sums, a));
    sum += WeightedVariance(sums, a);
  }
  component.weighted_s2o.SetActValInfo();
  // S2WX = (sum of the weighted variances of the observations) / (N - A0 - a)
  component.weighted_s2 = static_cast<float>(sum / GetSize(EBlock::kX, a).FreeObservations());
}

int Model::Judge(const Validation& validation, const Rules& rules, CompInfo& component) {
  if (validation.is_by_eigenvalue && component.eigenvalue < kLeastEigenvalue) {
    component.verdict = EVerdict::kEigenvalue;
    return status::mva::kComponentAborted;
  }
  const int a = GetComponentCount();
  const EBlock target = GetTarget().GetBlock();
  const bool is_small = JudgeByR2(*GetStage(target, a - 1), *GetStage(target, a),
                                  *GetStage(target, 0), rules.least_share, component, log_);
  const bool is_refused =
      is_small || JudgeByDefault(validation.is_cross_validated, component, log_);
  return is_refused && options_->GetIsRule() ? status::mva::kComponentAborted : status::kOk;
}

XFMatrix* Model::MakeResid(char a) {
  std::unique_ptr<XFMatrix> matrix;
  Run([&] {
    if (!x_->IsCentred()) return status::mva::kDataNotAvailable;
    if (a < 0 || a > GetA()) return status::mva::kComponentNotAvailable;
    matrix = std::make_unique<XFMatrix>("LSResiduals", GetNObs(), GetNVarX(), kMissing);
    if (matrix->GetStatus() != status::kOk) return status::mva::kMemory;
    x_->GetResiduals().CopyTo(*matrix);
    // Nothing is left of a variable that takes no part.
    for (const short k : PositionsUpTo(GetNVarX())) {
      if (GetWeigX(k) != 0.0f) continue;
      for (const short i : PositionsUpTo(GetNObs())) {
        if (!IsMissing(x_->GetValues()[i][k])) (*matrix)[i][k] = 0.0f;
      }
    }
    for (int c = GetA(); c > a; --c) {
      matrix->Addcomp(&GetComponent(c)->t, &GetComponent(c)->p);
    }
    matrix->SetActValInfo();
    return status::kOk;
  });
  return HasFailed() ? nullptr : matrix.release();  // the caller's
}

}  // namespace zemva
