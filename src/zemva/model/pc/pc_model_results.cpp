// The execution of PCModel on its work set.
#include <cmath>

#include "zemva/base/positions.h"
#include "zemva/errors/status.h"
#include "zemva/model/driver/data_block.h"
#include "zemva/model/driver/distances.h"
#include "zemva/model/pc/pc_model.h"
#include "zemva/numeric/distributions.h"

namespace zemva {

int PCModel::AddLSResults() {
  return Run([&] {
    workset_results_.emplace("DModX", "PModX", GetUsed(GetOptions().GetAUseLS()), GetNObs());
    return status::kOk;
  });
}

int PCModel::DeleteLSResults() {
  workset_results_.reset();
  return status::kOk;
}

int PCModel::ExecLS(XFMatrix* residuals) {
  return Run([&] {
    if (GetComponentCount() == 0) return status::mva::kModelNotAvailable;
    const bool fits =
        residuals == nullptr || (residuals->NRow() == GetNObs() && residuals->NCol() == GetNVarX());
    if (!fits) return status::mva::kIndexOutOfRange;
    int status = AddLSResults();
    if (status != status::kOk) return status;
    DistanceResults& results = *workset_results_;
    const auto a = static_cast<char>(results.component_count);
    for (const short i : PositionsUpTo(GetNObs())) {
      results.distances[i] = GetDModXLS(a, i);
      results.probabilities[i] = GetPModXLS(a, i);
    }
    status = SetLimits(GetGaugeLS(a), GetOptions().GetSignLevLS(), results.limits);
    if (status != status::kOk || residuals == nullptr) return status;
    const std::unique_ptr<XFMatrix> left(MakeResid(a));
    if (left == nullptr) return GetStatus();
    return residuals->Copy(left.get()) == status::kOk ? status::kOk : status::mva::kMemory;
  });
}

double PCModel::GetPooledVariance(const Gauge& gauge) const {
  const auto a = static_cast<char>(gauge.component_count);
  // Nothing has modelling power before the first component.
  const bool is_weighted = gauge.is_weighted && a > 0;
  return static_cast<double>(is_weighted ? GetS2WX(a) : GetS2X(a));
}

double PCModel::GetVarianceLS(const Gauge& gauge, int i) const {
  const int a = gauge.component_count;
  const Stage* const stage = a < 0 ? nullptr : GetStageX(a);
  if (stage == nullptr || i < 1 || i > GetNObs()) return static_cast<double>(kMissing);
  const double variance =
      gauge.is_weighted && a > 0
          ? static_cast<double>(GetComponent(a)->weighted_s2o[i])
          : ObservationVariance(static_cast<double>(stage->sso[i]),
                                GetX().GetInfo()->row_counts[static_cast<std::size_t>(i - 1)], a);
  return IsMissing(variance) ? variance : variance * GetSize(a).MembershipCorrection();
}

float PCModel::GetDistance(const Gauge& gauge, double variance) const {
  if (IsMissing(variance)) return kMissing;
  if (!gauge.is_normalised) return static_cast<float>(std::sqrt(variance));
  const double pooled = GetPooledVariance(gauge);
  return pooled > 0.0 ? static_cast<float>(std::sqrt(variance / pooled)) : kMissing;
}

float PCModel::GetProbability(const Gauge& gauge, double variance, bool is_member) const {
  const double pooled = GetPooledVariance(gauge);
  if (IsMissing(variance) || !(pooled > 0.0)) return kMissing;
  const int a = gauge.component_count;
  const DistanceTest test(GetSize(a), static_cast<double>(GetDFX(static_cast<char>(a))));
  return test.GetProbability(is_member, variance / pooled);
}

int PCModel::SetLimits(const Gauge& gauge, float level, DistanceLimits& limits) {
  if (level <= 0.0f) return status::kOk;
  const int a = gauge.component_count;
  const DistanceTest test(GetSize(a), static_cast<double>(GetDFX(static_cast<char>(a))));
  const double others = test.GetLimit(false, level);
  const double members = test.GetLimit(true, level);
  if (others < 0.0 || members < 0.0) return status::mva::kOther;
  const double scale = gauge.is_normalised ? 1.0 : GetPooledVariance(gauge);
  limits.of_others = static_cast<float>(std::sqrt(scale * others));
  limits.of_members = static_cast<float>(std::sqrt(scale * members));
  GetLog()
      .Line()
      .Text("DCritWS = ")
      .Fixed(0, 3, static_cast<double>(limits.of_members))
      .Text(" DCritTS = ")
      .Fixed(0, 3, static_cast<double>(limits.of_others))
      .EndLine();
  return status::kOk;
}

float PCModel::GetDModXLS(char a, short i) const {
  return GetDistance(GetGaugeLS(a), GetVarianceLS(GetGaugeLS(a), i));
}

float PCModel::GetPModXLS(char a, short i) const {
  return GetProbability(GetGaugeLS(a), GetVarianceLS(GetGaugeLS(a), i), true);
}

float PCModel::GetDCritTrSLS() const {
  return workset_results_ ? workset_results_->limits.of_others : kMissing;
}

float PCModel::GetDCritTeSLS() const {
  return workset_results_ ? workset_results_->limits.of_members : kMissing;
}

float PCModel::GetXResLS(char a, short i, short k) const {
  const bool is_element = i >= 1 && i <= GetNObs() && k >= 1 && k <= GetNVarX();
  if (!is_element || a < 0 || a > GetA() || !GetX().IsCentered()) return kMissing;
  if (IsMissing(GetX().GetValues()[i][k])) return kMissing;
  float residual =
      GetX().GetResiduals().Row(static_cast<std::size_t>(i - 1))[static_cast<std::size_t>(k - 1)];
  for (int c = GetA(); c > a; --c) {
    const PCCompInfo& component = *GetComponent(c);
    if (!IsMissing(component.t[i])) residual += component.t[i] * component.p[k];
  }
  return AsPresent(residual);
}

float PCModel::GetGapCont(char a, short i, short j, short k) const {
  const auto is_row = [&](short row) { return row >= 1 && row <= GetNObs(); };
  const bool is_element = is_row(i) && (j == 0 || is_row(j)) && k >= 1 && k <= GetNVarX();
  if (!is_element || GetComponent(a) == nullptr || !GetX().IsLoaded()) return kMissing;
  const XFMatrix& values = GetX().GetValues();
  const float first = CenterAndScale(values[i][k], k);
  const float second = j == 0 ? 0.0f : CenterAndScale(values[j][k], k);
  if (IsMissing(first) || IsMissing(second)) return kMissing;
  return AsPresent((first - second) * GetP(a, k));
}

// A component without variation has scores of 0 and adds nothing.
template <typename Score>
float PCModel::SumT2(char first, char last, Score score) const {
  if (first < 1 || first > last || last > GetA()) return kMissing;
  double sum = 0.0;
  for (int c = first; c <= last; ++c) {
    const auto component = static_cast<char>(c);
    const float t = score(component);
    if (IsMissing(t)) return kMissing;
    const double variance = static_cast<double>(GetS2T(component));
    if (variance > 0.0) sum += static_cast<double>(t) * static_cast<double>(t) / variance;
  }
  return static_cast<float>(sum);
}

float PCModel::GetT2LS(char a, short i) const {
  return GetT2RangeLS(1, a, i);
}

float PCModel::GetT2RangeLS(char first, char last, short i) const {
  return SumT2(first, last, [&](char c) { return GetT(c, i); });
}

float PCModel::GetT2PS(char a, short i) const {
  return GetT2RangePS(1, a, i);
}

float PCModel::GetT2RangePS(char first, char last, short i) const {
  return SumT2(first, last, [&](char c) { return GetTPredPS(c, i); });
}

float PCModel::GetTCritAxisLen(char a, float p) const {
  const PCCompInfo* const component = GetComponent(a);
  const double n = GetNObs();
  if (component == nullptr || n < 3) return kMissing;
  const double f = static_cast<double>(FFTest(2.0f, static_cast<float>(n - 2.0), p));
  if (f < 0.0) return kMissing;
  const double variance = static_cast<double>(component->s2t);
  return static_cast<float>(std::sqrt(variance * 2.0 * f * (n - 1.0) / (n - 2.0)));
}

}  // namespace zemva
