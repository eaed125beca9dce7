// The execution of Model on a prediction set.
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
#include "zemva/model/block/data_block.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/execution/distances.h"
#include "zemva/model/execution/gauge.h"
#include "zemva/model/execution/leverage.h"
#include "zemva/model/workset/predset.h"
#include "zemva/numeric/f_matrix.h"
#include "zemva/numeric/present.h"

namespace zemva {
namespace {

bool AreFinite(std::span<const float> values) {
  return std::ranges::all_of(values, [](float value) { return std::isfinite(value); });
}

}  // namespace

int Model::AddPSResults() {
  return Run([&] {
    predictions_ =
        std::make_shared<Predictions>(GetUsed(options_->GetAUsePS()), GetNVarX(), GetNVarY());
    return status::kOk;
  });
}

int Model::DeletePSResults() {
  predictions_.reset();
  return status::kOk;
}

int Model::ExecPS() {
  return Run([&] {
    if (GetComponentCount() == 0) return status::mva::kModelNotAvailable;
    DeletePSResults();
    Predset* const predset = owner_->GetCurrentPredset();
    return predset == nullptr ? status::mva::kPredsetNotAvailable : ExecPS(*predset);
  });
}

int Model::ExecPS(Predset& predset) {
  return Run([&] {
    if (GetComponentCount() == 0) return status::mva::kModelNotAvailable;
    DeletePSResults();
    const std::unique_ptr<XFMatrix> data(predset.ExtMatrix(x_->GetPreparation(), log_));
    if (data == nullptr) return predset.GetStatus();
    std::unique_ptr<XFMatrix> observed;
    if (HasY()) observed.reset(predset.ExtMatrix(y_->GetPreparation(), log_));
    if (HasY() && observed == nullptr) return predset.GetStatus();
    const std::unique_ptr<ObsInfo> observations(predset.ExtObsInfo());
    if (observations == nullptr) return predset.GetStatus();
    const std::unique_ptr<I1Vector> selection(predset.ExtMembership(x_->GetPreparation()));
    if (selection == nullptr) return predset.GetStatus();
    for (char& byte : selection->Values()) byte = byte != 0 ? kMemberRow : kNewRow;
    const int status = ExecuteRows(*observations, *data, observed.get(), *selection);
    if (status != status::kOk) DeletePSResults();
    return status;
  });
}

int Model::ExecPS(ObsInfo* observations, XFMatrix* data, I1Vector* selection) {
  return Run([&] {
    if (observations == nullptr || data == nullptr || selection == nullptr) {
      return status::mva::kNullPointer;
    }
    if (GetComponentCount() == 0) return status::mva::kModelNotAvailable;
    const bool fits = data->NCol() == GetNVarX() && data->NRow() == selection->NVal() &&
                      data->NRow() == observations->GetNItm();
    if (!fits) return status::mva::kIndexOutOfRange;
    const int status = ExecuteRows(*observations, *data, nullptr, *selection);
    if (status != status::kOk) DeletePSResults();
    return status;
  });
}

int Model::ExecuteRows(const ObsInfo& observations, const XFMatrix& data, const XFMatrix* observed,
                       const I1Vector& selection) {
  log_.Write(std::string("Executing PS: Model ") + GetModNam() + "\n");
  int status = AddPSResults();
  if (status != status::kOk) return status;
  XI1Vector kept("Selection", data.NRow(), kNotSelected);
  Whole(kept);
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
  DistanceResults& distance = predictions_->results->x;
  predictions_->values.SetActValInfo();
  predictions_->residuals.SetActValInfo();
  distance.distances.SetActValInfo();
  distance.probabilities.SetActValInfo();
  if (HasY()) {
    const Leverage leverage = MakeLeverage(distance.component_count, &CompInfo::t);
    for (const short to : PositionsUpTo(GetNObsPS())) PredictResponses(observed, leverage, to);
    FinishResponses();
  }
  return SetLimits(MakeGauge(EBlock::kX, distance.component_count, GetMeasurementPS()),
                   options_->GetSignLevPS(), distance.limits);
}

bool Model::IsExcluded(const ObsInfo& observations, const XFMatrix& data, short i) {
  const double percent = 100.0 - static_cast<double>(data.NValARow(i)) / data.NCol() * 100.0;
  if (percent <= static_cast<double>(options_->GetMaxMisValObsPS())) return false;
  char message[100];
  std::snprintf(message, sizeof message, "Observation %d %s has %6.2f%% missing values.\n",
                observations.GetONum(i), observations.GetONam(i), percent);
  log_.Write(message);
  const char reply = owner_->Ask((std::string(message) + "Exclude this observation?").c_str());
  const bool is_excluded = reply == 'y' || reply == 'Y';
  if (is_excluded) log_.Write("Observation excluded.\n");
  return is_excluded;
}

int Model::Predict(std::span<const float> row, short to) {
  const int a = GetASelPS();
  XFVector values("x", GetNVarX(), kMissing);
  FVector scores(a, kMissing);
  Whole(values);
  Whole(scores);
  std::ranges::copy(row, predictions_->values.Row(to).begin());
  for (const short k : PositionsUpTo(GetNVarX())) {
    values[k] = x_->CenterAndScale(row[static_cast<std::size_t>(k - 1)], k);
  }
  const int status = Project(values, to, scores);
  if (status != status::kOk) return status;
  const bool is_hopeless = HasY() && IsMissing(scores[1]);
  if (is_hopeless || !AreFinite(values.Values()) || !AreFinite(scores.Values())) {
    log_.Line().Text("Can not execute observation ").Number(GetObsInfoPS()->GetONum(to)).EndLine();
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
std::vector<float> Model::TakeOffScores(const XFVector& values, const FVector& scores) const {
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

void Model::SetDistance(std::span<const float> row, std::span<const float> residuals, short to) {
  DistanceResults& distance = predictions_->results->x;
  const int a = distance.component_count;
  const Gauge gauge = MakeGauge(EBlock::kX, a, GetMeasurementPS());
  const int present_count = CountPresent(row);
  double variance = 0.0;
  if (gauge.is_weighted) {
    const ResidualWeights weights(GetComponent(a)->x.mpow);
    variance =
        WeightedObservationVariance(weights.Sum(residuals, row, present_count), gauge.size.of_row);
  } else {
    const double squares = SumInLanes(residuals.size(), [&](std::size_t k) {
      return static_cast<double>(residuals[k]) * static_cast<double>(residuals[k]);
    });
    variance = ObservationVariance(squares, present_count, gauge.size.of_row);
  }
  const bool is_member = IsMembPS(to);
  if (is_member && !IsMissing(variance)) variance *= gauge.size.MembershipCorrection();
  distance.distances[to] = gauge.Distance(variance);
  distance.probabilities[to] = gauge.Probability(variance, is_member);
}

// Null for another number of components than was executed.
const Predictions* Model::GetPredictions(char a) const {
  return predictions_ != nullptr && predictions_->results->x.component_count == a
             ? predictions_.get()
             : nullptr;
}

const Results* Model::GetPSResults() const {
  return predictions_ == nullptr ? nullptr : predictions_->results.get();
}

char Model::GetASelPS() const {
  return predictions_ == nullptr ? char{0}
                                 : static_cast<char>(predictions_->results->x.component_count);
}

short Model::GetNObsPS() const {
  return predictions_ == nullptr ? short{0} : static_cast<short>(predictions_->positions.size());
}

ObsInfo* Model::GetObsInfoPS() const {
  return predictions_ == nullptr ? nullptr : predictions_->observations.get();
}

short Model::GetObsIxPS(short i) const {
  const bool is_row = i >= 1 && i <= GetNObsPS();
  return is_row ? predictions_->positions[static_cast<std::size_t>(i - 1)] : short{0};
}

bool Model::IsMembPS(short i) const {
  const bool is_row = i >= 1 && i <= GetNObsPS();
  return is_row && predictions_->is_member[static_cast<std::size_t>(i - 1)] != 0;
}

float Model::GetTPredPS(char a, short i) const {
  if (a < 1 || a > GetASelPS()) return kMissing;
  return predictions_->scores[static_cast<std::size_t>(a - 1)].GetElement(i);
}

float Model::GetDModXPS(char a, short i) const {
  const Predictions* const predictions = GetPredictions(a);
  return predictions == nullptr ? kMissing : predictions->results->x.distances.GetElement(i);
}

float Model::GetPModXPS(char a, short i) const {
  const Predictions* const predictions = GetPredictions(a);
  return predictions == nullptr ? kMissing : predictions->results->x.probabilities.GetElement(i);
}

float Model::GetDCritTrSPS() const {
  return predictions_ == nullptr ? kMissing : predictions_->results->x.limits.of_others;
}

float Model::GetDCritTeSPS() const {
  return predictions_ == nullptr ? kMissing : predictions_->results->x.limits.of_members;
}

float Model::GetXResPS(short i, short k) const {
  return predictions_ == nullptr ? kMissing : predictions_->residuals.GetElement(i, k);
}

}  // namespace zemva
