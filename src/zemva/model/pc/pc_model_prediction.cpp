// The execution of PCModel on a prediction set.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "zemva/base/lane_sums.h"
#include "zemva/base/positions.h"
#include "zemva/data/selection.h"
#include "zemva/errors/status.h"
#include "zemva/model/driver/data_block.h"
#include "zemva/model/driver/distances.h"
#include "zemva/model/kernels/residual_matrix.h"
#include "zemva/model/pc/pc_model.h"
#include "zemva/numeric/f_matrix.h"
#include "zemva/numeric/present.h"

namespace zemva {
namespace {

// Whether an inverse of a matrix whose elements are at most 1 has digits that mean something.
bool IsDetermined(const FMatrix& inverse) {
  constexpr float kLargest = 1e6f;
  for (int c = 1; c <= inverse.NRow(); ++c) {
    for (const float element : inverse.Row(c)) {
      if (!(std::fabs(element) < kLargest)) return false;
    }
  }
  return true;
}

bool AreFinite(std::span<const float> values) {
  return std::ranges::all_of(values, [](float value) { return std::isfinite(value); });
}

}  // namespace

int PCModel::AddPSResults() {
  return Run([&] {
    predictions_ = std::make_shared<PCPredictions>(GetUsed(GetOptions().GetAUsePS()), GetNVarX());
    return status::kOk;
  });
}

int PCModel::DeletePSResults() {
  predictions_.reset();
  return status::kOk;
}

int PCModel::ExecPS(ObsInfo* observations, XFMatrix* data, I1Vector* selection) {
  return Run([&] {
    if (observations == nullptr || data == nullptr || selection == nullptr) {
      return status::mva::kNullPointer;
    }
    if (GetComponentCount() == 0) return status::mva::kModelNotAvailable;
    const bool fits = data->NCol() == GetNVarX() && data->NRow() == selection->NVal() &&
                      data->NRow() == observations->GetNItm();
    if (!fits) return status::mva::kIndexOutOfRange;
    const int status = ExecuteRows(*observations, *data, *selection);
    if (status != status::kOk) DeletePSResults();
    return status;
  });
}

int PCModel::ExecuteRows(const ObsInfo& observations, const XFMatrix& data,
                         const I1Vector& selection) {
  GetLog().Write(std::string("Executing PS: Model ") + GetModNam() + "\n");
  int status = AddPSResults();
  if (status != status::kOk) return status;
  XI1Vector kept("Selection", data.NRow(), kNotSelected);
  std::vector<short> positions;
  std::vector<char> is_member;
  for (const short i : PositionsUpTo(kept.NVal())) {
    if (selection[i] == 0 || IsExcluded(observations, data, i)) continue;
    kept[i] = kSelected;
    positions.push_back(i);
    is_member.push_back(selection[i] == kMemberRow);
  }
  std::unique_ptr<ObsInfo> rows(observations.ExtObsInfo(&kept));
  if (rows == nullptr) return status::mva::kMemory;
  predictions_->SetRows(std::move(rows), std::move(positions), std::move(is_member));
  for (const short to : PositionsUpTo(GetNObsPS())) {
    status = Predict(data.Row(GetObsIxPS(to)), to);
    if (status != status::kOk) return status;
  }
  DistanceResults& distance = predictions_->distance;
  predictions_->residuals.SetActValInfo();
  distance.distances.SetActValInfo();
  distance.probabilities.SetActValInfo();
  return SetLimits(GetGaugePS(distance.component_count), GetOptions().GetSignLevPS(),
                   distance.limits);
}

bool PCModel::IsExcluded(const ObsInfo& observations, const XFMatrix& data, short i) {
  const double percent = 100.0 - static_cast<double>(data.NValARow(i)) / data.NCol() * 100.0;
  if (percent <= static_cast<double>(GetOptions().GetMaxMisValObsPS())) return false;
  char message[100];
  std::snprintf(message, sizeof message, "Observation %d %s has %6.2f%% missing values.\n",
                observations.GetONum(i), observations.GetONam(i), percent);
  GetLog().Write(message);
  const char reply = GetOwner().Ask((std::string(message) + "Exclude this observation?").c_str());
  const bool is_excluded = reply == 'y' || reply == 'Y';
  if (is_excluded) GetLog().Write("Observation excluded.\n");
  return is_excluded;
}

float PCModel::CenterAndScale(float value, short k) const {
  if (IsMissing(value)) return value;
  const CentInfo& info = *GetX().GetInfo();
  return CenteredAndScaled(value, info.reference[k], info.weights[k]);
}

int PCModel::Predict(std::span<const float> row, short to) {
  const int a = GetASelPS();
  XFVector values("x", GetNVarX(), kMissing);
  FVector scores(a, kMissing);
  if (values.NVal() != GetNVarX() || scores.NVal() != a) return status::mva::kMemory;
  for (const short k : PositionsUpTo(GetNVarX())) {
    values[k] = CenterAndScale(row[static_cast<std::size_t>(k - 1)], k);
  }
  const int status = CalcTPred(values, scores);
  if (status != status::kOk) return status;
  if (!AreFinite(values.Values()) || !AreFinite(scores.Values())) {
    GetLog()
        .Line()
        .Text("Can not execute observation ")
        .Number(GetObsInfoPS()->GetONum(to))
        .EndLine();
    return status::kOk;
  }
  if (IsMissing(scores[1])) return status::kOk;
  for (int c = 1; c <= a; ++c) {
    predictions_->scores[static_cast<std::size_t>(c - 1)][to] = scores[c];
  }
  const std::vector<float> residuals = TakeOffScores(values, scores);
  const std::span<float> kept = predictions_->residuals.Row(to);
  for (std::size_t k = 0; k < kept.size(); ++k) {
    kept[k] = IsMissing(row[k]) ? kMissing : AsPresent(residuals[k]);
  }
  SetDistance(row, residuals, to);
  return status::kOk;
}

// 0 for what is missing.
std::vector<float> PCModel::TakeOffScores(const XFVector& values, const FVector& scores) const {
  std::vector<float> residuals;
  for (int k = 1; k <= values.NVal(); ++k) {
    double residual = IsMissing(values[k]) ? 0.0 : static_cast<double>(values[k]);
    for (int c = 1; c <= scores.NVal() && !IsMissing(values[k]); ++c) {
      residual -= static_cast<double>(scores[c]) * static_cast<double>(GetComponent(c)->p[k]);
    }
    residuals.push_back(static_cast<float>(residual));
  }
  return residuals;
}

void PCModel::SetDistance(std::span<const float> row, std::span<const float> residuals, short to) {
  DistanceResults& distance = predictions_->distance;
  const Gauge gauge = GetGaugePS(distance.component_count);
  const int present_count = CountPresent(row);
  double variance = 0.0;
  if (gauge.is_weighted) {
    const ResidualWeights weights(GetComponent(gauge.component_count)->x.mpow);
    variance = WeightedVariance(weights.Sum(residuals, row, present_count), gauge.component_count);
  } else {
    const double squares = SumInLanes(residuals.size(), [&](std::size_t k) {
      return static_cast<double>(residuals[k]) * static_cast<double>(residuals[k]);
    });
    variance = ObservationVariance(squares, present_count, gauge.component_count);
  }
  const bool is_member = IsMembPS(to);
  if (is_member && !IsMissing(variance)) {
    variance *= GetSize(gauge.component_count).MembershipCorrection();
  }
  distance.distances[to] = GetDistance(gauge, variance);
  distance.probabilities[to] = GetProbability(gauge, variance, is_member);
}

int PCModel::CalcTPred(const XFVector& values, FVector& scores) {
  const int a = scores.NVal();
  FMatrix cross_products(a, a, 0.0f);
  FVector projections(a, 0.0f);
  if (cross_products.NRow() != a || projections.NVal() != a) return status::mva::kMemory;
  const auto sum_present = [&](auto term) {
    double sum = 0.0;
    for (int k = 1; k <= values.NVal(); ++k) {
      if (!IsMissing(values[k])) sum += term(k);
    }
    return static_cast<float>(sum);
  };
  const auto loading = [&](int c, int k) { return static_cast<double>(GetComponent(c)->p[k]); };
  for (int c = 1; c <= a; ++c) {
    projections[c] =
        sum_present([&](int k) { return loading(c, k) * static_cast<double>(values[k]); });
    for (int d = 1; d <= a; ++d) {
      cross_products[c][d] = sum_present([&](int k) { return loading(c, k) * loading(d, k); });
    }
  }
  const int status = cross_products.MInv();
  if (status == status::mat::kMemory) return status::mva::kMemory;
  if (status != status::kOk || !IsDetermined(cross_products)) {
    GetLog().Write("Matrix singular!\n");
    SetIsOverrun();
    return status::kOk;
  }
  for (int c = 1; c <= a; ++c) {
    double score = 0.0;
    for (int d = 1; d <= a; ++d) {
      score += static_cast<double>(cross_products[c][d]) * static_cast<double>(projections[d]);
    }
    scores[c] = AsPresent(static_cast<float>(score));
  }
  return status::kOk;
}

// Null for another number of components than was executed.
const PCPredictions* PCModel::GetPredictions(char a) const {
  return predictions_ != nullptr && predictions_->distance.component_count == a ? predictions_.get()
                                                                                : nullptr;
}

const DistanceResults* PCModel::GetPSResults() const {
  return predictions_ == nullptr ? nullptr : &predictions_->distance;
}

char PCModel::GetASelPS() const {
  return predictions_ == nullptr ? char{0}
                                 : static_cast<char>(predictions_->distance.component_count);
}

short PCModel::GetNObsPS() const {
  return predictions_ == nullptr ? short{0} : static_cast<short>(predictions_->positions.size());
}

ObsInfo* PCModel::GetObsInfoPS() const {
  return predictions_ == nullptr ? nullptr : predictions_->observations.get();
}

short PCModel::GetObsIxPS(short i) const {
  const bool is_row = i >= 1 && i <= GetNObsPS();
  return is_row ? predictions_->positions[static_cast<std::size_t>(i - 1)] : short{0};
}

bool PCModel::IsMembPS(short i) const {
  const bool is_row = i >= 1 && i <= GetNObsPS();
  return is_row && predictions_->is_member[static_cast<std::size_t>(i - 1)] != 0;
}

float PCModel::GetTPredPS(char a, short i) const {
  if (a < 1 || a > GetASelPS()) return kMissing;
  return predictions_->scores[static_cast<std::size_t>(a - 1)].GetElement(i);
}

float PCModel::GetDModXPS(char a, short i) const {
  const PCPredictions* const predictions = GetPredictions(a);
  return predictions == nullptr ? kMissing : predictions->distance.distances.GetElement(i);
}

float PCModel::GetPModXPS(char a, short i) const {
  const PCPredictions* const predictions = GetPredictions(a);
  return predictions == nullptr ? kMissing : predictions->distance.probabilities.GetElement(i);
}

float PCModel::GetDCritTrSPS() const {
  return predictions_ == nullptr ? kMissing : predictions_->distance.limits.of_others;
}

float PCModel::GetDCritTeSPS() const {
  return predictions_ == nullptr ? kMissing : predictions_->distance.limits.of_members;
}

float PCModel::GetXResPS(short i, short k) const {
  return predictions_ == nullptr ? kMissing : predictions_->residuals.GetElement(i, k);
}

}  // namespace zemva
