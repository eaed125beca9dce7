// The execution of Model on its work set.
#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

#include "zemva/base/positions.h"
#include "zemva/errors/status.h"
#include "zemva/model/block/data_block.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/execution/distances.h"
#include "zemva/model/execution/gauge.h"

namespace zemva {

int Model::GetUsed(short asked) const {
  const int count = GetComponentCount();
  return asked <= 0 ? count : std::min<int>(asked, count);
}

int Model::AddLSResults() {
  return Run([&] {
    const int a = GetUsed(options_->GetAUseLS());
    workset_results_ = MakeResults(EExecuted::kWorkset, a, GetNObs(), GetNVarY());
    if (workset_results_->errors) SetErrorsLS(1, *workset_results_->errors);
    return status::kOk;
  });
}

int Model::DeleteLSResults() {
  workset_results_.reset();
  return status::kOk;
}

int Model::ExecLS(char a) {
  return Run([&] {
    if (GetComponentCount() == 0) return status::mva::kModelNotAvailable;
    if (a < 0 || a > GetComponentCount()) return status::mva::kComponentNotAvailable;
    options_->SetAUseLS(a);
    return ExecLS(static_cast<XFMatrix*>(nullptr));
  });
}

int Model::ExecLS(XFMatrix* residuals) {
  return Run([&] {
    if (GetComponentCount() == 0) return status::mva::kModelNotAvailable;
    const bool fits =
        residuals == nullptr || (residuals->NRow() == GetNObs() && residuals->NCol() == GetNVarX());
    if (!fits) return status::mva::kIndexOutOfRange;
    log_.Write(std::string("Executing WS: Model ") + GetModNam() + "\n");
    int status = AddLSResults();
    if (status != status::kOk) return status;
    const auto measure = [&](EBlock block, DistanceResults& results) {
      for (const short i : PositionsUpTo(GetNObs())) {
        results.distances[i] = GetDistanceLS(block, results.component_count, i);
        results.probabilities[i] = GetProbabilityLS(block, results.component_count, i);
      }
    };
    DistanceResults& results = workset_results_->x;
    measure(EBlock::kX, results);
    if (workset_results_->y) measure(EBlock::kY, *workset_results_->y);
    status = SetLimits(MakeGauge(EBlock::kX, results.component_count, GetMeasurementLS()),
                       options_->GetSignLevLS(), results.limits);
    if (status != status::kOk || residuals == nullptr) return status;
    const std::unique_ptr<XFMatrix> left(MakeResid(static_cast<char>(results.component_count)));
    if (left == nullptr) return GetStatus();
    return residuals->Copy(left.get()) == status::kOk ? status::kOk : status::mva::kMemory;
  });
}

BlockSize Model::GetSize(EBlock block, int a) const {
  if (block == EBlock::kX) return {GetNObs(), GetNVarX(), a0_, a, a};
  // A designed X is one that Y is regressed on as a whole.
  const int of_column = options_->GetIsXDesigned() && a > 0 ? GetNVarX() : a;
  return {GetNObs(), GetNVarY(), a0_, of_column, 0};
}

Gauge Model::MakeGauge(EBlock block, int a, Measurement measurement) const {
  const Stage& stage = *GetStage(block, a);
  // Nothing has modelling power before the first component.
  const bool is_weighted = measurement.is_weighted && block == EBlock::kX && a > 0;
  const float variance = is_weighted ? GetComponent(a)->weighted_s2 : stage.s2;
  return {GetSize(block, a), static_cast<double>(stage.df), static_cast<double>(variance),
          is_weighted, measurement.is_normalised};
}

double Model::GetVarianceLS(EBlock block, const Gauge& gauge, int a, int i) const {
  const DataBlock& data = block == EBlock::kX ? *x_ : *y_;
  const double variance =
      gauge.is_weighted
          ? static_cast<double>(GetComponent(a)->weighted_s2o[i])
          : ObservationVariance(static_cast<double>(GetStage(block, a)->sso[i]),
                                data.GetInfo()->row_counts[static_cast<std::size_t>(i - 1)],
                                gauge.size.of_row);
  return IsMissing(variance) ? variance : variance * gauge.size.MembershipCorrection();
}

float Model::GetDistanceLS(EBlock block, int a, int i) const {
  if (a < 0 || GetStage(block, a) == nullptr || i < 1 || i > GetNObs()) return kMissing;
  const Gauge gauge = MakeGauge(block, a, GetMeasurementLS());
  return gauge.Distance(GetVarianceLS(block, gauge, a, i));
}

float Model::GetProbabilityLS(EBlock block, int a, int i) const {
  if (a < 0 || GetStage(block, a) == nullptr || i < 1 || i > GetNObs()) return kMissing;
  const Gauge gauge = MakeGauge(block, a, GetMeasurementLS());
  return gauge.Probability(GetVarianceLS(block, gauge, a, i), true);
}

int Model::SetLimits(const Gauge& gauge, float level, DistanceLimits& limits) {
  if (level <= 0.0f) return status::kOk;
  if (!gauge.FindLimits(level, limits)) return status::mva::kOther;
  log_.Line()
      .Text("DCritWS = ")
      .Fixed(0, 3, static_cast<double>(limits.of_members))
      .Text(" DCritTS = ")
      .Fixed(0, 3, static_cast<double>(limits.of_others))
      .EndLine();
  return status::kOk;
}

float Model::GetDModXLS(char a, short i) const {
  return GetDistanceLS(EBlock::kX, a, i);
}

float Model::GetPModXLS(char a, short i) const {
  return GetProbabilityLS(EBlock::kX, a, i);
}

float Model::GetDModYLS(char a, short i) const {
  return GetDistanceLS(EBlock::kY, a, i);
}

float Model::GetPModYLS(char a, short i) const {
  return GetProbabilityLS(EBlock::kY, a, i);
}

float Model::GetDCritTrSLS() const {
  return workset_results_ ? workset_results_->x.limits.of_others : kMissing;
}

float Model::GetDCritTeSLS() const {
  return workset_results_ ? workset_results_->x.limits.of_members : kMissing;
}

float Model::GetXResLS(char a, short i, short k) const {
  const bool is_element = i >= 1 && i <= GetNObs() && k >= 1 && k <= GetNVarX();
  if (!is_element || a < 0 || a > GetA() || !x_->IsCentred()) return kMissing;
  return GetResidualLS(EBlock::kX, a, i, k);
}

float Model::GetResidualLS(EBlock block, int a, short i, short k) const {
  float residual = (block == EBlock::kX ? *x_ : *y_).GetResidual(i, k);
  if (IsMissing(residual)) return kMissing;
  for (int c = GetA(); c > a; --c) {
    const CompInfo& component = *GetComponent(c);
    if (!IsMissing(component.t[i])) residual += component.t[i] * component.LoadingsOf(block)[k];
  }
  return AsPresent(residual);
}

float Model::GetGap(short i, short j, short k) const {
  const float first = x_->GetCentredValue(i, k);
  const float second = j == 0 ? 0.0f : x_->GetCentredValue(j, k);
  return IsMissing(first) || IsMissing(second) ? kMissing : first - second;
}

float Model::GetGapCont(char a, short i, short j, short k) const {
  const auto is_row = [&](short row) { return row >= 1 && row <= GetNObs(); };
  const bool is_element = is_row(i) && (j == 0 || is_row(j)) && k >= 1 && k <= GetNVarX();
  if (!is_element || GetComponent(a) == nullptr || !x_->IsLoaded()) return kMissing;
  const float gap = GetGap(i, j, k);
  return IsMissing(gap) ? kMissing : AsPresent(gap * (HasY() ? GetWStar(a, k) : GetP(a, k)));
}

// A component without variation has scores of 0 and adds nothing.
template <typename Score>
float Model::SumT2(char first, char last, Score score) const {
  if (first < 1 || first > last || last > GetA()) return kMissing;
  double sum = 0.0;
  for (int c = first; c <= last; ++c) {
    const auto component = static_cast<char>(c);
    const float t = score(component);
    if (IsMissing(t)) return kMissing;
    // T2 = sum of t^2 / S2t
    const double variance = static_cast<double>(GetS2T(component));
    if (variance > 0.0) sum += static_cast<double>(t) * static_cast<double>(t) / variance;
  }
  // A score made of next to nothing can be far beyond all others.
  return std::isfinite(static_cast<float>(sum)) ? static_cast<float>(sum) : kMissing;
}

float Model::GetT2LS(char a, short i) const {
  return GetT2RangeLS(1, a, i);
}

float Model::GetT2RangeLS(char first, char last, short i) const {
  return SumT2(first, last, [&](char c) { return GetT(c, i); });
}

float Model::GetT2PS(char a, short i) const {
  return GetT2RangePS(1, a, i);
}

float Model::GetT2RangePS(char first, char last, short i) const {
  return SumT2(first, last, [&](char c) { return GetTPredPS(c, i); });
}

float Model::GetT2Limit(char a, float p) const {
  return GetComponent(a) == nullptr ? kMissing : static_cast<float>(T2Limit(GetNObs(), a, p));
}

float Model::GetTCritAxisLen(char a, float p) const {
  const CompInfo* const component = GetComponent(a);
  const double limit = T2Limit(GetNObs(), 2, p);
  if (component == nullptr || IsMissing(limit)) return kMissing;
  // sqrt(S2t 2 F (N - 1) / (N - 2))
  return static_cast<float>(std::sqrt(static_cast<double>(component->s2t) * limit));
}

}  // namespace zemva
