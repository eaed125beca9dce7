// What Model predicts of its responses.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/errors/status.h"
#include "zemva/model/block/data_block.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/execution/gauge.h"
#include "zemva/model/execution/leverage.h"
#include "zemva/numeric/distributions.h"

namespace zemva {
namespace {

constexpr double kNone = static_cast<double>(kMissing);

// Missing where it leaves the range of a float.
float InRange(double value) {
  const auto element = static_cast<float>(value);
  return std::isfinite(element) ? AsPresent(element) : kMissing;
}

// Observed less predicted; missing where one of them is.
float ErrorOf(float observed, float predicted) {
  if (IsMissing(observed) || IsMissing(predicted)) return kMissing;
  return InRange(static_cast<double>(observed) - static_cast<double>(predicted));
}

}  // namespace

// y = sum over components of t c, missing where a score is.
template <typename Score>
double Model::PredictResponse(int a, short m, Score score) const {
  double sum = 0.0;
  for (int c = 1; c <= a; ++c) {
    const float t = score(c);
    if (IsMissing(t)) return kNone;
    sum += static_cast<double>(t) * static_cast<double>(GetComponent(c)->c[m]);
  }
  return sum;
}

float Model::RestoreResponse(double scaled, short m, bool is_back_transformed) const {
  const double value = y_->Restore(scaled, m);
  const float element = IsMissing(value) ? kMissing : InRange(value);
  return IsMissing(element) ? kMissing : BackTransform(element, m, is_back_transformed);
}

float Model::BackTransform(float value, short m, bool is_back_transformed) const {
  return is_back_transformed ? y_->BackTransform(value, m) : value;
}

// What a transformation takes to the other side of the prediction changes places; what the way back
// takes there too, across a pole, is no limit.
Model::ResponseLimits Model::RestoreLimits(double scaled, double half, short m,
                                           bool is_back_transformed) const {
  const auto restore = [&](double value) { return RestoreResponse(value, m, is_back_transformed); };
  const float predicted = restore(scaled);
  if (IsMissing(half) || IsMissing(predicted)) return {};
  ResponseLimits limits{restore(scaled - half), restore(scaled + half)};
  const auto is_above = [&] { return !IsMissing(limits.lower) && limits.lower > predicted; };
  const auto is_below = [&] { return !IsMissing(limits.upper) && limits.upper < predicted; };
  if (is_above() || is_below()) std::swap(limits.lower, limits.upper);
  if (is_above()) limits.lower = kMissing;
  if (is_below()) limits.upper = kMissing;
  return limits;
}

// t(df) s sqrt(1 + h), the interval of least squares on the scores, with s^2 the residual variance
// of the response and df its degrees of freedom (S. de Vries and C. J. F. ter Braak, Prediction
// error in partial least squares regression, Chemometrics and Intelligent Laboratory Systems 30
// (1995) 239-245).
double Model::GetHalfWidth(int a, short m, double leverage, float level) const {
  const BlockSize size = GetSize(EBlock::kY, a);
  const int df =
      y_->GetInfo()->column_counts[static_cast<std::size_t>(m - 1)] - size.a0 - size.of_column;
  if (df < 1 || IsMissing(leverage) || !(level > 0.0f && level < 1.0f)) return kNone;
  const double t = static_cast<double>(TCrit(1.0f - level, df));
  const double variance = static_cast<double>(GetStage(EBlock::kY, a)->s2v[m]);
  return t * std::sqrt(variance * (1.0 + leverage));
}

// --- Of the work set ---

double Model::GetPredictionLS(int a, short i, short m) const {
  const bool is_element = i >= 1 && i <= GetNObs() && m >= 1 && m <= GetNVarY();
  if (!is_element || a == 0 || !y_->IsLoaded()) return kNone;
  return PredictResponse(a, m, [&](int c) { return GetComponent(c)->t[i]; });
}

float Model::GetYPredLS(short i, short m) const {
  const double scaled = GetPredictionLS(GetUsed(options_->GetAUseLS()), i, m);
  return IsMissing(scaled) ? kMissing : RestoreResponse(scaled, m, options_->GetIsBackTraYLS());
}

float Model::GetYObsLS(short i, short m) const {
  const bool is_element = i >= 1 && i <= GetNObs() && m >= 1 && m <= GetNVarY();
  if (!is_element || !y_->IsLoaded()) return kMissing;
  return BackTransform(y_->GetValues()[i][m], m, options_->GetIsBackTraYLS());
}

float Model::GetYPredErrLS(short i, short m) const {
  return ErrorOf(GetYObsLS(i, m), GetYPredLS(i, m));
}

Model::ResponseLimits Model::GetLimitsLS(int a, short i, short m) const {
  const double scaled = GetPredictionLS(a, i, m);
  if (IsMissing(scaled)) return {};
  const auto leverage = static_cast<double>(GetComponent(a)->leverages[i]);
  const double half = GetHalfWidth(a, m, leverage, options_->GetSignLevLS());
  return RestoreLimits(scaled, half, m, options_->GetIsBackTraYLS());
}

float Model::GetSEYPredLLS(short i, short m) const {
  return GetLimitsLS(GetUsed(options_->GetAUseLS()), i, m).lower;
}

float Model::GetSEYPredULS(short i, short m) const {
  return GetLimitsLS(GetUsed(options_->GetAUseLS()), i, m).upper;
}

void Model::SetErrorsLS(short first, PredictionErrors& errors) const {
  const BlockSize size = GetSize(EBlock::kY, GetUsed(options_->GetAUseLS()));
  std::vector<float> of_response(static_cast<std::size_t>(GetNObs()));
  const std::vector<char> is_member(of_response.size(), 1);
  for (const short number : PositionsUpTo(errors.rss.NVal())) {
    const auto m = static_cast<short>(first + number - 1);
    for (const short i : PositionsUpTo(GetNObs())) {
      of_response[static_cast<std::size_t>(i - 1)] = GetYPredErrLS(i, m);
    }
    errors.Set(number, of_response, is_member, size.a0 + size.of_column);
  }
}

float Model::GetRMSEE(short m) const {
  if (m < 1 || m > GetNVarY() || GetComponentCount() == 0 || !y_->IsLoaded()) return kMissing;
  PredictionErrors errors(1);
  SetErrorsLS(m, errors);
  return errors.sd_adj_ls[1];
}

// --- Of the prediction set ---

void Model::PredictResponses(const XFMatrix* observed, const Leverage& leverage, short to) {
  ResponsePredictions& results = *predictions_->y;
  const int a = GetASelPS();
  const bool is_back = options_->GetIsBackTraYPS();
  const auto score = [&](int c) { return GetTPredPS(static_cast<char>(c), to); };
  std::vector<float> scores;
  for (int c = 1; c <= a; ++c) scores.push_back(score(c));
  const double of_row = leverage.Of(scores);
  std::vector<double> residuals;
  for (const short m : PositionsUpTo(GetNVarY())) {
    const float value = observed == nullptr ? kMissing : (*observed)[GetObsIxPS(to)][m];
    results.values[to][m] = value;
    results.observed[to][m] = BackTransform(value, m, is_back);
    const double scaled = PredictResponse(a, m, score);
    if (IsMissing(scaled)) continue;
    results.predicted[to][m] = RestoreResponse(scaled, m, is_back);
    const double half = GetHalfWidth(a, m, of_row, options_->GetSignLevPS());
    const ResponseLimits limits = RestoreLimits(scaled, half, m, is_back);
    results.lower[to][m] = limits.lower;
    results.upper[to][m] = limits.upper;
    if (!IsMissing(value)) {
      residuals.push_back(static_cast<double>(y_->CenterAndScale(value, m)) - scaled);
    }
  }
  SetDistanceY(residuals, to);
}

void Model::SetDistanceY(std::span<const double> residuals, short to) {
  DistanceResults& distance = *predictions_->results->y;
  const Gauge gauge = MakeGauge(EBlock::kY, distance.component_count, GetMeasurementPS());
  double squares = 0.0;
  for (const double residual : residuals) squares += residual * residual;
  double variance =
      ObservationVariance(squares, static_cast<int>(residuals.size()), gauge.size.of_row);
  const bool is_member = IsMembPS(to);
  if (is_member && !IsMissing(variance)) variance *= gauge.size.MembershipCorrection();
  distance.distances[to] = gauge.Distance(variance);
  distance.probabilities[to] = gauge.Probability(variance, is_member);
}

void Model::FinishResponses() {
  ResponsePredictions& responses = *predictions_->y;
  Results& results = *predictions_->results;
  const BlockSize size = GetSize(EBlock::kY, results.x.component_count);
  std::vector<float> of_response(static_cast<std::size_t>(GetNObsPS()));
  for (const short m : PositionsUpTo(GetNVarY())) {
    for (const short i : PositionsUpTo(GetNObsPS())) {
      of_response[static_cast<std::size_t>(i - 1)] = GetYPredErrPS(i, m);
    }
    results.errors->Set(m, of_response, predictions_->is_member, size.a0 + size.of_column);
  }
  for (XFMatrix* matrix : {&responses.values, &responses.observed, &responses.predicted,
                           &responses.lower, &responses.upper}) {
    matrix->SetActValInfo();
  }
  results.y->distances.SetActValInfo();
  results.y->probabilities.SetActValInfo();
}

namespace {

float ElementOf(const Predictions* predictions, XFMatrix ResponsePredictions::*matrix, short i,
                short m) {
  const bool is_there = predictions != nullptr && predictions->y.has_value();
  return is_there ? (*predictions->y.*matrix).GetElement(i, m) : kMissing;
}

short CountOf(const PredictionErrors* errors, WholeVector PredictionErrors::*counts, short m) {
  const float count = errors == nullptr ? 0.0f : (errors->*counts).GetElement(m);
  return IsMissing(count) ? short{0} : static_cast<short>(count);
}

}  // namespace

float Model::GetYObsPS(short i, short m) const {
  return ElementOf(predictions_.get(), &ResponsePredictions::observed, i, m);
}

float Model::GetYPredPS(short i, short m) const {
  return ElementOf(predictions_.get(), &ResponsePredictions::predicted, i, m);
}

float Model::GetYPredErrPS(short i, short m) const {
  return ErrorOf(GetYObsPS(i, m), GetYPredPS(i, m));
}

float Model::GetSEYPredLPS(short i, short m) const {
  return ElementOf(predictions_.get(), &ResponsePredictions::lower, i, m);
}

float Model::GetSEYPredUPS(short i, short m) const {
  return ElementOf(predictions_.get(), &ResponsePredictions::upper, i, m);
}

float Model::GetDModYPS(char a, short i) const {
  const Predictions* const predictions = GetPredictions(a);
  if (predictions == nullptr || !HasY()) return kMissing;
  return predictions->results->y->distances.GetElement(i);
}

float Model::GetPModYPS(char a, short i) const {
  const Predictions* const predictions = GetPredictions(a);
  if (predictions == nullptr || !HasY()) return kMissing;
  return predictions->results->y->probabilities.GetElement(i);
}

const PredictionErrors* Model::GetPredictionErrorsPS() const {
  const bool has_errors = predictions_ != nullptr && predictions_->results->errors.has_value();
  return has_errors ? &*predictions_->results->errors : nullptr;
}

short Model::GetNPredErrTeS(short m) const {
  return CountOf(GetPredictionErrorsPS(), &PredictionErrors::np_ts, m);
}

short Model::GetNPredErrTrS(short m) const {
  return CountOf(GetPredictionErrorsPS(), &PredictionErrors::np_ws, m);
}

// --- Coefficients ---

// B = W (P'W)^-1 C'
float Model::GetCoeffCS(char a, short k, short m) const {
  const CompInfo* const last = GetComponent(a);
  const bool is_element = k >= 1 && k <= GetNVarX() && m >= 1 && m <= GetNVarY();
  if (last == nullptr || !is_element) return kMissing;
  double sum = 0.0;
  for (int c = 1; c <= a; ++c) {
    sum += static_cast<double>(GetComponent(c)->w[k]) * last->inv_ppw_cp[c][m];
  }
  return InRange(sum);
}

// b = B weight of x / weight of y
float Model::GetCoeff(char a, short k, short m) const {
  const float scaled = GetCoeffCS(a, k, m);
  const float weight = GetWeigY(m);
  if (IsMissing(scaled) || weight == 0.0f) return kMissing;
  return InRange(static_cast<double>(scaled) * static_cast<double>(GetWeigX(k)) /
                 static_cast<double>(weight));
}

// b0 = centre of y - sum of b times centre of x
float Model::GetB0(char a, short m) const {
  if (IsMissing(GetCoeff(a, 1, m))) return kMissing;
  double constant = static_cast<double>(y_->GetInfo()->reference[m]);
  for (const short k : PositionsUpTo(GetNVarX())) {
    const float coefficient = GetCoeff(a, k, m);
    if (IsMissing(coefficient)) return kMissing;
    constant -= static_cast<double>(coefficient) * static_cast<double>(x_->GetInfo()->reference[k]);
  }
  return InRange(constant);
}

FMatrix* Model::GetBMat(char a) const {
  if (GetComponent(a) == nullptr || !HasY()) return nullptr;
  auto matrix = std::make_unique<FMatrix>(GetNVarX(), GetNVarY(), 0.0f);
  if (matrix->GetStatus() != status::kOk) return nullptr;
  for (const short k : PositionsUpTo(GetNVarX())) {
    for (const short m : PositionsUpTo(GetNVarY())) (*matrix)[k][m] = GetCoeffCS(a, k, m);
  }
  return matrix.release();  // the caller's
}

}  // namespace zemva
