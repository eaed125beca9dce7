#include "zemva/model/driver/model_vectors.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>

#include "zemva/base/positions.h"
#include "zemva/errors/status.h"
#include "zemva/model/preprocess/lag_info.h"

namespace zemva {
namespace {

short Short(int number) {
  return static_cast<short>(number);
}

VecLabel LabelIn(const VarInfo* table, int i) {
  if (table == nullptr) return {0, nullptr};
  return {table->GetVNum(Short(i)), table->GetVNam(Short(i))};
}

VecLabel LabelIn(const ObsInfo* table, int i) {
  if (table == nullptr) return {0, nullptr};
  return {table->GetONum(Short(i)), table->GetONam(Short(i))};
}

// What was computed, as it is kept; missing where it is beyond the range of a float.
float Kept(double value) {
  const auto kept = static_cast<float>(value);
  return std::isfinite(kept) ? AsPresent(kept) : kMissing;
}

// The square root of a mean square.
float RootOf(float square) {
  return IsMissing(square) ? kMissing : std::sqrt(square);
}

}  // namespace

int ModelVectors::GetCount(EVecAxis axis, int of) const {
  const int x_count = model_.GetNVarX();
  const int y_count = model_.GetNVarY();
  switch (axis) {
    case EVecAxis::kObs:
      return model_.GetNObs();
    case EVecAxis::kObsPS:
      return model_.GetNObsPS();
    case EVecAxis::kVars:
      return x_count + y_count;
    case EVecAxis::kVarsX:
      return x_count;
    case EVecAxis::kResponses:
      return y_count;
    case EVecAxis::kValidated:
      return model_.HasY() ? y_count : x_count;
    case EVecAxis::kLagged:
      return static_cast<int>(GetLagged().size());
    case EVecAxis::kLags:
      return static_cast<int>(GetLagged()[static_cast<std::size_t>(of - 1)].lags.size());
    case EVecAxis::kNothing:
    case EVecAxis::kComponents:
    case EVecAxis::kCoefficients:
      break;
  }
  return 0;
}

VecLabel ModelVectors::GetLabel(EVecAxis axis, int of, int i) const {
  const VarInfo* const x = model_.GetVarInfoX();
  const VarInfo* const y = model_.GetVarInfoY();
  const int x_count = model_.GetNVarX();
  switch (axis) {
    case EVecAxis::kObs:
      return LabelIn(model_.GetObsInfo(), i);
    case EVecAxis::kObsPS:
      return LabelIn(model_.GetObsInfoPS(), i);
    case EVecAxis::kVars:
      return i <= x_count ? LabelIn(x, i) : LabelIn(y, i - x_count);
    case EVecAxis::kVarsX:
      return LabelIn(x, i);
    case EVecAxis::kResponses:
      return LabelIn(y, i);
    case EVecAxis::kValidated:
      return LabelIn(model_.HasY() ? y : x, i);
    case EVecAxis::kLagged: {
      const short vnum = GetLagged()[static_cast<std::size_t>(i - 1)].vnum;
      return {vnum, x->GetVNam(x->GetVIx(vnum))};
    }
    case EVecAxis::kLags: {
      const Lag& lag =
          GetLagged()[static_cast<std::size_t>(of - 1)].lags[static_cast<std::size_t>(i - 1)];
      return {lag.lag, x->GetVNam(lag.k)};
    }
    case EVecAxis::kNothing:
    case EVecAxis::kComponents:
    case EVecAxis::kCoefficients:
      break;
  }
  return {0, nullptr};
}

VecCompCounts ModelVectors::GetCompCounts() const {
  // Before centring there are but the data as loaded, component -1.
  const bool is_centred = model_.GetStage(EBlock::kX, 0) != nullptr;
  const auto& results = model_.workset_results_;
  return {is_centred ? int{model_.GetA()} : -1, results ? results->x.component_count : 0,
          model_.GetASelPS()};
}

bool ModelVectors::HasTables() const {
  return model_.GetObsInfo() != nullptr && (!model_.HasY() || model_.y_->IsLoaded());
}

int ModelVectors::Check(const VecRow& row) const {
  const bool has_row = model_.HasY() ? row.families.is_pls : row.families.is_pc;
  if (!has_row) return status::mva::kUnknownVectorType;
  // All that a model keeps is about what was loaded.
  if (!model_.x_->GetInfo()) return status::mva::kDataNotAvailable;
  // Other units than those of the data are found with the tables of the data.
  const bool has_units = row.units.Has(CEElmType::Transformed);
  const bool needs_tables =
      has_units || row.state == EVecState::kData || row.state == EVecState::kExecuted;
  if (needs_tables && !HasTables()) return status::mva::kDataNotAvailable;
  const bool is_of_x = IsMadeOf(row, EBlock::kX);
  const bool is_of_y = model_.HasY() && IsMadeOf(row, EBlock::kY);
  const bool has_data =
      (is_of_x && HasData(row, EBlock::kX)) || (is_of_y && HasData(row, EBlock::kY));
  if ((is_of_x || is_of_y) && !has_data) return status::mva::kDataNotAvailable;
  const bool has_results =
      (row.state != EVecState::kExecuted || model_.workset_results_ != nullptr) &&
      (row.state != EVecState::kPredicted || model_.predictions_ != nullptr);
  return has_results ? status::kOk : status::mva::kResultsNotAvailable;
}

bool ModelVectors::IsMadeOf(const VecRow& row, EBlock block) const {
  const EVecAxis own = block == EBlock::kX ? EVecAxis::kVarsX : EVecAxis::kResponses;
  return row.state == EVecState::kData &&
         (row.along == own || row.of == own || row.type == CEVecType::VarRes);
}

bool ModelVectors::HasData(const VecRow& row, EBlock block) const {
  const DataBlock& data = block == EBlock::kX ? *model_.x_ : *model_.y_;
  const bool is_of_residuals = row.units.Has(CEElmType::Standardized);
  return is_of_residuals ? data.IsCentred() : data.IsLoaded();
}

int ModelVectors::CheckQuery(const VecQuery& query) const {
  const EBlock block = query.of <= model_.GetNVarX() ? EBlock::kX : EBlock::kY;
  if (query.row->type == CEVecType::VarRes && !HasData(*query.row, block)) {
    return status::mva::kDataNotAvailable;
  }
  const bool is_early = query.row->type == CEVecType::VarResPS && query.of > model_.GetNVarX() &&
                        query.last_comp < model_.GetASelPS();
  return is_early ? status::mva::kOnlyAfterLastComponent : status::kOk;
}

int ModelVectors::CheckLabels(EVecAxis axis) const {
  const bool is_there = axis == EVecAxis::kObsPS || HasTables();
  return is_there ? status::kOk : status::mva::kDataNotAvailable;
}

int ModelVectors::FillNumbers(const VecQuery&, std::span<float> values) const {
  const ObsInfo* const table = model_.GetObsInfo();
  int i = 0;
  for (float& value : values) value = static_cast<float>(table->GetONum(Short(++i)));
  return status::kOk;
}

// A row keeps the position that it has in the data set.
int ModelVectors::FillTimes(const VecQuery&, std::span<float> values) const {
  const ObsInfo* const table = model_.GetObsInfo();
  int i = 0;
  for (float& value : values) value = static_cast<float>(table->GetINum(Short(++i)));
  return status::kOk;
}

// --- How a getter is called ---

float ModelVectors::Call(ByComp get, const VecQuery&, const VecCell& cell) const {
  return (model_.*get)(static_cast<char>(cell.comp));
}

float ModelVectors::Call(short (Model::*get)(char) const, const VecQuery&,
                         const VecCell& cell) const {
  return static_cast<float>((model_.*get)(static_cast<char>(cell.comp)));
}

float ModelVectors::Call(ByCompAndElement get, const VecQuery&, const VecCell& cell) const {
  return (model_.*get)(static_cast<char>(cell.comp), Short(cell.element));
}

float ModelVectors::Call(float (Model::*get)(char, short, short) const, const VecQuery&,
                         const VecCell& cell) const {
  return (model_.*get)(static_cast<char>(cell.comp), Short(cell.element), Short(cell.of));
}

float ModelVectors::Call(float (Model::*get)(short, short) const, const VecQuery&,
                         const VecCell& cell) const {
  return (model_.*get)(Short(cell.element), Short(cell.of));
}

float ModelVectors::Call(float (Model::*get)(short) const, const VecQuery&,
                         const VecCell& cell) const {
  return (model_.*get)(Short(cell.element));
}

float ModelVectors::Call(float (ModelVectors::*get)(const VecQuery&, const VecCell&) const,
                         const VecQuery& query, const VecCell& cell) const {
  return (this->*get)(query, cell);
}

template <auto kGetter>
int ModelVectors::FillEach(const VecQuery& query, std::span<float> values) const {
  int n = 0;
  for (float& value : values) value = Call(kGetter, query, query.At(++n));
  return status::kOk;
}

// --- What no single function gives ---

float ModelVectors::GetQ2(const VecQuery& query, const VecCell& cell) const {
  return Call(model_.HasY() ? ByComp{&Model::GetQ2AY} : ByComp{&Model::GetQ2AX}, query, cell);
}

float ModelVectors::GetQ2Cum(const VecQuery& query, const VecCell& cell) const {
  return Call(model_.HasY() ? ByComp{&Model::GetQ2Y} : ByComp{&Model::GetQ2X}, query, cell);
}

float ModelVectors::GetQ2V(const VecQuery& query, const VecCell& cell) const {
  using Getter = ByCompAndElement;
  return Call(model_.HasY() ? Getter{&Model::GetQ2VAY} : Getter{&Model::GetQ2VAX}, query, cell);
}

float ModelVectors::GetQ2VCum(const VecQuery& query, const VecCell& cell) const {
  using Getter = ByCompAndElement;
  return Call(model_.HasY() ? Getter{&Model::GetQ2VY} : Getter{&Model::GetQ2VX}, query, cell);
}

float ModelVectors::GetSDt(const VecQuery&, const VecCell& cell) const {
  return RootOf(model_.GetS2T(static_cast<char>(cell.comp)));
}

float ModelVectors::GetSDu(const VecQuery&, const VecCell& cell) const {
  return RootOf(model_.GetS2U(static_cast<char>(cell.comp)));
}

float ModelVectors::GetTsquare(const VecQuery& query, const VecCell& cell) const {
  return model_.GetT2RangeLS(static_cast<char>(query.first_comp), static_cast<char>(cell.comp),
                             Short(cell.element));
}

float ModelVectors::GetTsquarePS(const VecQuery& query, const VecCell& cell) const {
  return model_.GetT2RangePS(static_cast<char>(query.first_comp), static_cast<char>(cell.comp),
                             Short(cell.element));
}

float ModelVectors::GetSerrL(const VecQuery&, const VecCell& cell) const {
  return model_.GetLimitsLS(cell.comp, Short(cell.element), Short(cell.of)).lower;
}

float ModelVectors::GetSerrU(const VecQuery&, const VecCell& cell) const {
  return model_.GetLimitsLS(cell.comp, Short(cell.element), Short(cell.of)).upper;
}

float ModelVectors::GetMaxX(const VecQuery&, const VecCell& cell) const {
  return model_.x_->GetInfo()->largest[cell.element];
}

float ModelVectors::GetMinX(const VecQuery&, const VecCell& cell) const {
  return model_.x_->GetInfo()->smallest[cell.element];
}

float ModelVectors::GetCoeffWithConstant(const VecQuery&, const VecCell& cell) const {
  const auto a = static_cast<char>(cell.comp);
  return cell.element == 1 ? model_.GetB0(a, Short(cell.of))
                           : model_.GetCoeff(a, Short(cell.element - 1), Short(cell.of));
}

// b = B / weight of y, with the centre of y for the constant
float ModelVectors::GetCoeffMR(const VecQuery&, const VecCell& cell) const {
  if (cell.element == 1) return model_.y_->GetInfo()->reference[cell.of];
  const float scaled =
      model_.GetCoeffCS(static_cast<char>(cell.comp), Short(cell.element - 1), Short(cell.of));
  const float weight = model_.GetWeigY(Short(cell.of));
  if (IsMissing(scaled) || weight == 0.0f) return kMissing;
  return Kept(static_cast<double>(scaled) / static_cast<double>(weight));
}

template <ModelVectors::ByCompAndElement kOfX, ModelVectors::ByCompAndElement kOfY>
float ModelVectors::GetJoined(const VecQuery&, const VecCell& cell) const {
  const auto a = static_cast<char>(cell.comp);
  const int x_count = model_.GetNVarX();
  return cell.element <= x_count ? (model_.*kOfX)(a, Short(cell.element))
                                 : (model_.*kOfY)(a, Short(cell.element - x_count));
}

// --- Lags ---

// The lags of each variable in the order of the X variables, the variable itself as lag 0.
const std::vector<ModelVectors::Lagged>& ModelVectors::GetLagged() const {
  const LagInfo* const table = model_.GetLagInfoX();
  if (has_lagged_ || table == nullptr) return lagged_;
  std::map<short, const LagData*> rows;
  std::map<short, std::size_t> places;
  for (const short row : PositionsUpTo(table->GetNItm())) {
    const LagData* const lag = table->GetItm(row);
    rows[lag->GetINum()] = lag;
    const short vnum = lag->GetVNumDS();
    if (places.try_emplace(vnum, lagged_.size()).second) lagged_.push_back({vnum, {}});
  }
  const VarInfo& variables = *model_.GetVarInfoX();
  for (const short k : PositionsUpTo(variables.GetNVar())) {
    const short vnum = variables.GetVNum(k);
    const auto found = rows.find(vnum);
    const LagData* const lag = found == rows.end() ? nullptr : found->second;
    const auto place = places.find(lag == nullptr ? vnum : lag->GetVNumDS());
    if (place == places.end()) continue;
    lagged_[place->second].lags.push_back({lag == nullptr ? short{0} : lag->GetLag(), k});
  }
  has_lagged_ = true;
  return lagged_;
}

template <ModelVectors::ByCompAndElement kGetter>
float ModelVectors::GetOfLag(const VecQuery&, const VecCell& cell) const {
  const Lagged& lagged = GetLagged()[static_cast<std::size_t>(cell.of - 1)];
  const Lag& lag = lagged.lags[static_cast<std::size_t>(cell.element - 1)];
  return (model_.*kGetter)(static_cast<char>(cell.comp), lag.k);
}

float ModelVectors::GetCoeffCSLag(const VecQuery&, const VecCell& cell) const {
  const Lagged& lagged = GetLagged()[static_cast<std::size_t>(cell.of - 1)];
  const Lag& lag = lagged.lags[static_cast<std::size_t>(cell.element - 1)];
  return model_.GetCoeffCS(model_.GetA(), lag.k, Short(cell.of2));
}

// --- Values, predictions, residuals ---

ModelVectors::Place ModelVectors::Locate(const VecQuery& query, const VecCell& cell) const {
  const VecRow& row = *query.row;
  const bool is_by_observation = row.along == EVecAxis::kObs || row.along == EVecAxis::kObsPS;
  const EVecAxis rows = is_by_observation ? row.along : row.of;
  const EVecAxis columns = is_by_observation ? row.of : row.along;
  const int i = is_by_observation ? cell.element : cell.of;
  const int k = is_by_observation ? cell.of : cell.element;
  const int x_count = columns == EVecAxis::kResponses ? 0 : model_.GetNVarX();
  const EBlock block = k <= x_count ? EBlock::kX : EBlock::kY;
  return {block, rows == EVecAxis::kObsPS, Short(i), Short(block == EBlock::kX ? k : k - x_count),
          cell.comp};
}

const DataBlock& ModelVectors::BlockOf(const Place& place) const {
  return place.block == EBlock::kX ? *model_.x_ : *model_.y_;
}

float ModelVectors::GetLoaded(const Place& place) const {
  if (!place.is_ps) return BlockOf(place).GetValues()[place.i][place.k];
  const Predictions& predictions = *model_.predictions_;
  const XFMatrix& values = place.block == EBlock::kX ? predictions.values : predictions.y->values;
  return values.GetElement(place.i, place.k);
}

float ModelVectors::GetScore(const Place& place, int c) const {
  const auto a = static_cast<char>(c);
  return place.is_ps ? model_.GetTPredPS(a, place.i) : model_.GetT(a, place.i);
}

// sum of t p in X, of t c in Y; missing where a score is
double ModelVectors::Predict(const Place& place) const {
  double sum = 0.0;
  for (int c = 1; c <= place.a; ++c) {
    const float t = GetScore(place, c);
    if (IsMissing(t)) return static_cast<double>(kMissing);
    const XFVector& loadings = model_.GetComponent(c)->LoadingsOf(place.block);
    sum += static_cast<double>(t) * static_cast<double>(loadings[place.k]);
  }
  return sum;
}

float ModelVectors::GetScaledResidual(const Place& place) const {
  if (!place.is_ps) return model_.GetResidualLS(place.block, place.a, place.i, place.k);
  const float value = GetLoaded(place);
  const double predicted = Predict(place);
  if (IsMissing(value) || IsMissing(predicted)) return kMissing;
  if (place.block == EBlock::kX && place.a == model_.GetASelPS()) {
    return model_.GetXResPS(place.i, place.k);
  }
  const auto scaled = static_cast<double>(BlockOf(place).CenterAndScale(value, place.k));
  return Kept(scaled - predicted);
}

// Responses stay transformed where the options do not want them back.
bool ModelVectors::IsBackTransformed(const Place& place) const {
  const ModOpt& options = model_.GetOptions();
  return place.block == EBlock::kX ||
         (place.is_ps ? options.GetIsBackTraYPS() : options.GetIsBackTraYLS());
}

float ModelVectors::InUnits(CEElmType::EET units, const Place& place, float transformed) const {
  if (units != CEElmType::Plain || !IsBackTransformed(place)) return transformed;
  return BlockOf(place).BackTransform(transformed, place.k);
}

float ModelVectors::GetValue(const VecQuery& query, const VecCell& cell) const {
  const Place place = Locate(query, cell);
  const float value = GetLoaded(place);
  if (query.units == CEElmType::Scaled) return BlockOf(place).CenterAndScale(value, place.k);
  return InUnits(query.units, place, value);
}

float ModelVectors::GetPrediction(const VecQuery& query, const VecCell& cell) const {
  const Place place = Locate(query, cell);
  const double scaled = Predict(place);
  if (IsMissing(scaled)) return kMissing;
  if (query.units == CEElmType::Scaled) return Kept(scaled);
  const double restored = BlockOf(place).Restore(scaled, place.k);
  return IsMissing(restored) ? kMissing : InUnits(query.units, place, Kept(restored));
}

float ModelVectors::GetResidual(const VecQuery& query, const VecCell& cell) const {
  const Place place = Locate(query, cell);
  const float scaled = GetScaledResidual(place);
  if (IsMissing(scaled) || query.units == CEElmType::Scaled) return scaled;
  // Residual standard deviation for St, what the weight has made of the units otherwise.
  const bool is_standardised = query.units == CEElmType::Standardized;
  const DataBlock& block = BlockOf(place);
  const float divisor = is_standardised
                            ? RootOf(model_.GetStage(place.block, place.a)->s2v[place.k])
                            : block.GetInfo()->weights[place.k];
  if (IsMissing(divisor) || divisor == 0.0f) return kMissing;
  const float residual = Kept(static_cast<double>(scaled) / static_cast<double>(divisor));
  const bool is_difference = query.units == CEElmType::Plain && block.IsTransformed(place.k);
  if (!is_difference) return residual;
  const float value = GetLoaded(place);
  const float observed = InUnits(query.units, place, value);
  const float predicted = InUnits(query.units, place, AsPresent(value - residual));
  if (IsMissing(observed) || IsMissing(predicted)) return kMissing;
  return AsPresent(observed - predicted);
}

// --- The table ---

int ModelVectors::Fill(const VecQuery& query, std::span<float> values) const {
  using enum CEVecType::EVT;
  using M = ModelVectors;
  using Fill = VecFill<ModelVectors>;
  using A = ByComp;  // of functions that there are two of
  static constexpr Fill kFills[] = {
      {Num, &M::FillNumbers},
      {Time, &M::FillTimes},
      {DFX, &M::FillEach<&Model::GetDFX>},
      {DFY, &M::FillEach<&Model::GetDFY>},
      {Eig, &M::FillEach<&Model::GetEig>},
      {Iter, &M::FillEach<&Model::GetNIter>},
      {Q2, &M::FillEach<&M::GetQ2>},
      {Q2Cum, &M::FillEach<&M::GetQ2Cum>},
      {R2X, &M::FillEach<&Model::GetR2AX>},
      {R2Y, &M::FillEach<&Model::GetR2AY>},
      {R2XCum, &M::FillEach<&Model::GetR2X>},
      {R2YCum, &M::FillEach<A{&Model::GetR2Y}>},
      {R2XAdj, &M::FillEach<&Model::GetR2AXadj>},
      {R2YAdj, &M::FillEach<&Model::GetR2AYadj>},
      {R2XAdjCum, &M::FillEach<&Model::GetR2Xadj>},
      {R2YAdjCum, &M::FillEach<A{&Model::GetR2Yadj}>},
      {S2X, &M::FillEach<&Model::GetS2X>},
      {S2Y, &M::FillEach<&Model::GetS2Y>},
      {SDt, &M::FillEach<&M::GetSDt>},
      {SDu, &M::FillEach<&M::GetSDu>},
      {SSX, &M::FillEach<&Model::GetSSX>},
      {SSY, &M::FillEach<&Model::GetSSY>},
      {DModX, &M::FillEach<&Model::GetDModXLS>},
      {DModXPS, &M::FillEach<&Model::GetDModXPS>},
      {DModY, &M::FillEach<&Model::GetDModYLS>},
      {DModYPS, &M::FillEach<&Model::GetDModYPS>},
      {OLevX, &M::FillEach<&Model::GetOLevX>},
      {OLevY, &M::FillEach<&Model::GetOLevY>},
      {PModX, &M::FillEach<&Model::GetPModXLS>},
      {PModXPS, &M::FillEach<&Model::GetPModXPS>},
      {PModY, &M::FillEach<&Model::GetPModYLS>},
      {PModYPS, &M::FillEach<&Model::GetPModYPS>},
      {S2OX, &M::FillEach<&Model::GetS2OX>},
      {S2OY, &M::FillEach<&Model::GetS2OY>},
      {SerrL, &M::FillEach<&M::GetSerrL>},
      {SerrLPS, &M::FillEach<&Model::GetSEYPredLPS>},
      {SerrU, &M::FillEach<&M::GetSerrU>},
      {SerrUPS, &M::FillEach<&Model::GetSEYPredUPS>},
      {SSOX, &M::FillEach<&Model::GetSSOX>},
      {SSOY, &M::FillEach<&Model::GetSSOY>},
      {T, &M::FillEach<&Model::GetT>},
      {Tsquare, &M::FillEach<&M::GetTsquare>},
      {TsquarePS, &M::FillEach<&M::GetTsquarePS>},
      {TPS, &M::FillEach<&Model::GetTPredPS>},
      {U, &M::FillEach<&Model::GetU>},
      {VarRes, &M::FillEach<&M::GetResidual>},
      {VarResPS, &M::FillEach<&M::GetResidual>},
      {VarPred, &M::FillEach<&M::GetPrediction>},
      {VarPredPS, &M::FillEach<&M::GetPrediction>},
      {X, &M::FillEach<&M::GetValue>},
      {XRes, &M::FillEach<&M::GetResidual>},
      {XResPS, &M::FillEach<&M::GetResidual>},
      {Y, &M::FillEach<&M::GetValue>},
      {YRes, &M::FillEach<&M::GetResidual>},
      {YResPS, &M::FillEach<&M::GetResidual>},
      {YPS, &M::FillEach<&M::GetValue>},
      {AvgX, &M::FillEach<&Model::GetAvgX>},
      {AvgY, &M::FillEach<&Model::GetAvgY>},
      {Coeff, &M::FillEach<&M::GetCoeffWithConstant>},
      {CoeffC, &M::FillEach<&Model::GetCoeff>},
      {CoeffCS, &M::FillEach<&Model::GetCoeffCS>},
      {CoeffMR, &M::FillEach<&M::GetCoeffMR>},
      {C, &M::FillEach<&Model::GetC>},
      {MaxX, &M::FillEach<&M::GetMaxX>},
      {MaxY, &M::FillEach<&Model::GetMaxIY>},
      {MinX, &M::FillEach<&M::GetMinX>},
      {MinY, &M::FillEach<&Model::GetMinIY>},
      {MPowX, &M::FillEach<&Model::GetMPowX>},
      {ObsX, &M::FillEach<&M::GetValue>},
      {ObsXPS, &M::FillEach<&M::GetValue>},
      {ObsXRes, &M::FillEach<&M::GetResidual>},
      {ObsXResPS, &M::FillEach<&M::GetResidual>},
      {ObsY, &M::FillEach<&M::GetValue>},
      {ObsYPS, &M::FillEach<&M::GetValue>},
      {ObsYRes, &M::FillEach<&M::GetResidual>},
      {ObsYResPS, &M::FillEach<&M::GetResidual>},
      {P, &M::FillEach<&Model::GetP>},
      {Q2V, &M::FillEach<&M::GetQ2V>},
      {Q2VCum, &M::FillEach<&M::GetQ2VCum>},
      {R2VX, &M::FillEach<&Model::GetR2VAX>},
      {R2VXAdj, &M::FillEach<&Model::GetR2VAXadj>},
      {R2VY, &M::FillEach<&Model::GetR2VAY>},
      {R2VYAdj, &M::FillEach<&Model::GetR2VAYadj>},
      {R2VXCum, &M::FillEach<&Model::GetR2VX>},
      {R2VXCumAdj, &M::FillEach<&Model::GetR2VXadj>},
      {R2VYCum, &M::FillEach<&Model::GetR2VY>},
      {R2VYCumAdj, &M::FillEach<&Model::GetR2VYadj>},
      {S2VX, &M::FillEach<&Model::GetS2VX>},
      {S2VY, &M::FillEach<&Model::GetS2VY>},
      {SSVX, &M::FillEach<&Model::GetSSVX>},
      {SSVY, &M::FillEach<&Model::GetSSVY>},
      {VIP, &M::FillEach<&Model::GetVIP>},
      {W, &M::FillEach<&Model::GetW>},
      {WStar, &M::FillEach<&Model::GetWStar>},
      {WStarC, &M::FillEach<&M::GetJoined<&Model::GetWStar, &Model::GetC>>},
      {WC, &M::FillEach<&M::GetJoined<&Model::GetW, &Model::GetC>>},
      {WsX, &M::FillEach<&Model::GetWeigX>},
      {WsY, &M::FillEach<&Model::GetWeigY>},
      {CoeffCSLag, &M::FillEach<&M::GetCoeffCSLag>},
      {PLag, &M::FillEach<&M::GetOfLag<&Model::GetP>>},
      {VIPLag, &M::FillEach<&M::GetOfLag<&Model::GetVIP>>},
      {WLag, &M::FillEach<&M::GetOfLag<&Model::GetW>>},
      {WStarLag, &M::FillEach<&M::GetOfLag<&Model::GetWStar>>},
  };
  return FillBy<ModelVectors>(kFills, *this, query, values);
}

}  // namespace zemva
