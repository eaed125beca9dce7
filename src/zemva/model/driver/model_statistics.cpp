// The statistics of Model, which read the records of its components.
#include <algorithm>

#include "zemva/model/block/data_block.h"
#include "zemva/model/driver/model.h"

namespace zemva {
namespace {

constexpr float kPLSLimit = 0.0975f;
constexpr float kPLSLimitOfDesign = -0.2f;

// The field or element of a record that may not be there.
template <typename Record, typename T>
T Field(const Record* record, T Record::*field, T none) {
  return record == nullptr ? none : record->*field;
}
template <typename Record>
float Field(const Record* record, float Record::*field) {
  return Field(record, field, kMissing);
}
template <typename Record>
float Element(const Record* record, WholeVector Record::*vector, short i) {
  return record == nullptr ? kMissing : (record->*vector).GetElement(i);
}

// The share of `initial` that goes from `before` to `after`. Of shares near 1 the difference would
// have lost its digits.
float Explained(float initial, float before, float after) {
  if (IsMissing(initial) || IsMissing(before) || IsMissing(after) || initial == 0.0f) {
    return kMissing;
  }
  const double gain = static_cast<double>(before) - static_cast<double>(after);
  return static_cast<float>(gain / static_cast<double>(initial));
}

// Before (-1) and after (0) centring and scaling.
float AverageOf(const DataBlock& block, char a, short k) {
  if (a > 0 || block.GetStage(a) == nullptr) return kMissing;
  const CentInfo& info = *block.GetInfo();
  return (a == -1 ? info.loaded_average : info.average).GetElement(k);
}

// How many rows there are in a table that there need not be.
short CountRows(const ItmInfo* table) {
  return table == nullptr ? short{0} : table->GetNItm();
}

}  // namespace

const Stage* Model::GetStage(EBlock block, int a) const {
  const DataBlock* const data = block == EBlock::kX ? x_.get() : y_.get();
  if (data == nullptr) return nullptr;
  if (a < 1) return data->GetStage(a);
  const CompInfo* const component = GetComponent(a);
  if (component == nullptr) return nullptr;
  return block == EBlock::kX ? &component->x : &*component->y;
}

// R2 = (SS of stage `from` - SS of stage `to`) / SS of stage 0, or the same with variances: 1 -
// what is left, where `from` is 0.
float Model::GetExplained(EBlock block, float Stage::*sum, int from, int to) const {
  const auto value = [&](int a) { return Field(GetStage(block, a), sum); };
  return from < 0 ? kMissing : Explained(value(0), value(from), value(to));
}

float Model::GetExplained(EBlock block, WholeVector Stage::*sums, short k, int from, int to) const {
  const auto value = [&](int a) { return Element(GetStage(block, a), sums, k); };
  return from < 0 ? kMissing : Explained(value(0), value(from), value(to));
}

short Model::GetNObs() const {
  return x_->GetInfo() ? x_->GetRowCount() : short{0};
}

short Model::GetNVarX() const {
  return x_->GetInfo() ? x_->GetColumnCount() : short{0};
}

short Model::GetNVarXUsed() const {
  if (!x_->GetInfo()) return 0;
  const auto weights = x_->GetInfo()->weights.Values();
  return static_cast<short>(weights.size()) - static_cast<short>(std::ranges::count(weights, 0.0f));
}

float Model::GetWeigX(short k) const {
  return x_->GetInfo() ? x_->GetInfo()->weights.GetElement(k) : kMissing;
}

float Model::GetWeigY(short m) const {
  return HasY() && y_->GetInfo() ? y_->GetInfo()->weights.GetElement(m) : kMissing;
}

VarInfo* Model::GetVarInfoX() const {
  return x_->GetVarInfo();
}

VarInfo* Model::GetVarInfoY() const {
  return HasY() ? y_->GetVarInfo() : nullptr;
}

ScaInfo* Model::GetScaInfoX() const {
  return x_->GetScaInfo();
}

ScaInfo* Model::GetScaInfoY() const {
  return HasY() ? y_->GetScaInfo() : nullptr;
}

TraInfo* Model::GetTraInfoX() const {
  return x_->GetTraInfo();
}

TraInfo* Model::GetTraInfoY() const {
  return HasY() ? y_->GetTraInfo() : nullptr;
}

ExpInfo* Model::GetExpInfoX() const {
  return x_->GetExpInfo();
}

ExpInfo* Model::GetExpInfoY() const {
  return HasY() ? y_->GetExpInfo() : nullptr;
}

LagInfo* Model::GetLagInfoX() const {
  return x_->GetLagInfo();
}

LagInfo* Model::GetLIYPtr() const {
  return HasY() ? y_->GetLagInfo() : nullptr;
}

BlkInfo* Model::GetBIYPtr() const {
  return HasY() ? y_->GetBlkInfo() : nullptr;
}

BlkInfo* Model::GetBIXPtr() const {
  return x_->GetBlkInfo();
}

float Model::GetMaxIY(short m) const {
  return HasY() && y_->GetInfo() ? y_->GetInfo()->largest.GetElement(m) : kMissing;
}

float Model::GetMinIY(short m) const {
  return HasY() && y_->GetInfo() ? y_->GetInfo()->smallest.GetElement(m) : kMissing;
}

short Model::GetNVarY() const {
  return HasY() && y_->GetInfo() ? y_->GetColumnCount() : short{0};
}

short Model::GetNVarLagY() const {
  return CountRows(GetLIYPtr());
}

short Model::GetNVarYDS() const {
  if (!HasY() || IsDiscriminant(type_)) return 0;
  const int added = GetNVarLagY() + CountRows(GetExpInfoY());
  return static_cast<short>(GetNVarY() - added);
}

const XFMatrix* Model::GetYPtr() const {
  return HasY() && y_->IsLoaded() ? &y_->GetValues() : nullptr;
}

const XFMatrix* Model::GetXPtr() const {
  return IsLoaded() ? &x_->GetValues() : nullptr;
}

float Model::GetAvgX(char a, short k) const {
  return AverageOf(*x_, a, k);
}

float Model::GetAvgY(char a, short m) const {
  return HasY() ? AverageOf(*y_, a, m) : kMissing;
}

float Model::GetDFX(char a) const {
  return Field(GetStage(EBlock::kX, a), &Stage::df);
}

float Model::GetDFY(char a) const {
  return HasY() ? Field(GetStage(EBlock::kY, a), &Stage::df) : 0.0f;
}

float Model::GetSSX(char a) const {
  return Field(GetStage(EBlock::kX, a), &Stage::ss);
}

float Model::GetSSY(char a) const {
  return HasY() ? Field(GetStage(EBlock::kY, a), &Stage::ss) : 0.0f;
}

float Model::GetS2X(char a) const {
  return Field(GetStage(EBlock::kX, a), &Stage::s2);
}

float Model::GetS2Y(char a) const {
  return HasY() ? Field(GetStage(EBlock::kY, a), &Stage::s2) : 0.0f;
}

float Model::GetSSVX(char a, short k) const {
  return Element(GetStage(EBlock::kX, a), &Stage::ssv, k);
}

float Model::GetSSVY(char a, short m) const {
  return Element(GetStage(EBlock::kY, a), &Stage::ssv, m);
}

float Model::GetS2VX(char a, short k) const {
  return Element(GetStage(EBlock::kX, a), &Stage::s2v, k);
}

float Model::GetS2VY(char a, short m) const {
  return Element(GetStage(EBlock::kY, a), &Stage::s2v, m);
}

float Model::GetMPowX(char a, short k) const {
  return Element(GetStage(EBlock::kX, a), &Stage::mpow, k);
}

float Model::GetSSOX(char a, short i) const {
  return Element(GetStage(EBlock::kX, a), &Stage::sso, i);
}

float Model::GetSSOY(char a, short i) const {
  return Element(GetStage(EBlock::kY, a), &Stage::sso, i);
}

float Model::GetS2OX(char a, short i) const {
  return Element(GetStage(EBlock::kX, a), &Stage::s2o, i);
}

float Model::GetS2OY(char a, short i) const {
  return Element(GetStage(EBlock::kY, a), &Stage::s2o, i);
}

float Model::GetEig(char a) const {
  return Field(GetComponent(a), &CompInfo::eigenvalue);
}

short Model::GetNIter(char a) const {
  return Field(GetComponent(a), &CompInfo::iteration_count, short{0});
}

float Model::GetQ2AX(char a) const {
  return HasY() ? 0.0f : Field(GetComponent(a), &CompInfo::q2);
}

float Model::GetQ2X(char a) const {
  return HasY() ? 0.0f : Field(GetComponent(a), &CompInfo::q2_cum);
}

float Model::GetQ2VAX(char a, short k) const {
  return HasY() ? kMissing : Element(GetComponent(a), &CompInfo::q2v, k);
}

float Model::GetQ2VX(char a, short k) const {
  return HasY() ? kMissing : Element(GetComponent(a), &CompInfo::q2v_cum, k);
}

float Model::GetQ2AY(char a) const {
  return HasY() ? Field(GetComponent(a), &CompInfo::q2) : 0.0f;
}

float Model::GetQ2Y(char a) const {
  return HasY() ? Field(GetComponent(a), &CompInfo::q2_cum) : 0.0f;
}

float Model::GetQ2VAY(char a, short m) const {
  return HasY() ? Element(GetComponent(a), &CompInfo::q2v, m) : kMissing;
}

float Model::GetQ2VY(char a, short m) const {
  return HasY() ? Element(GetComponent(a), &CompInfo::q2v_cum, m) : kMissing;
}

float Model::GetOLevX(char a, short i) const {
  return Element(GetComponent(a), &CompInfo::leverages, i);
}

float Model::GetOLevY(char a, short i) const {
  return Element(GetComponent(a), &CompInfo::leverages_y, i);
}

float Model::GetU(char a, short i) const {
  return Element(GetComponent(a), &CompInfo::u, i);
}

float Model::GetW(char a, short k) const {
  return Element(GetComponent(a), &CompInfo::w, k);
}

float Model::GetWStar(char a, short k) const {
  return Element(GetComponent(a), &CompInfo::w_star, k);
}

float Model::GetC(char a, short m) const {
  return Element(GetComponent(a), &CompInfo::c, m);
}

float Model::GetVIP(char a, short k) const {
  return Element(GetComponent(a), &CompInfo::vip, k);
}

float Model::GetP(char a, short k) const {
  return Element(GetComponent(a), &CompInfo::p, k);
}

float Model::GetT(char a, short i) const {
  return Element(GetComponent(a), &CompInfo::t, i);
}

float Model::GetS2T(char a) const {
  return Field(GetComponent(a), &CompInfo::s2t);
}

// S2u = sum of u^2 / N
float Model::GetS2U(char a) const {
  const CompInfo* const component = GetComponent(a);
  return HasY() && component != nullptr ? static_cast<float>(component->u.S2(0.0f, 0, 1.0f)) : 0.0f;
}

float Model::GetS2WX(char a) const {
  return Field(GetComponent(a), &CompInfo::weighted_s2);
}

float Model::GetTMin(char a) const {
  return Field(GetComponent(a), &CompInfo::t_min);
}

float Model::GetTMax(char a) const {
  return Field(GetComponent(a), &CompInfo::t_max);
}

EVerdict Model::GetVerdict(char a) const {
  return Field(GetComponent(a), &CompInfo::verdict, EVerdict::kNone);
}

const char* Model::GetSignRule(char a) const {
  static constexpr const char* kRules[] = {"", "R1", "R2", "N3", "N4", "N5", "N6"};
  return kRules[static_cast<int>(GetVerdict(a))];
}

float Model::GetQ2Limit(char a) const {
  if (a < 1) return kMissing;
  if (IsPLSFamily(type_)) return options_->GetIsXDesigned() ? kPLSLimitOfDesign : kPLSLimit;
  // With b = a - 1: f = (Keff - b) (N - A0 - b), 1 - f / ((Keff - b + 1) (N - b))
  const double columns = GetNVarXUsed() - (a - 1);
  const double rows = GetNObs() - (a - 1);
  const double free = columns * (rows - a0_);
  return free > 0.0 ? static_cast<float>(1.0 - free / ((columns + 1.0) * rows)) : 1.0f;
}

float Model::GetR2X(char a) const {
  return a < 0 ? kMissing : GetExplained(EBlock::kX, &Stage::ss, 0, a);
}

float Model::GetR2AX(char a) const {
  return GetExplained(EBlock::kX, &Stage::ss, a - 1, a);
}

float Model::GetR2Y(char a) const {
  return HasY() ? (a < 0 ? kMissing : GetExplained(EBlock::kY, &Stage::ss, 0, a)) : 0.0f;
}

float Model::GetR2AY(char a) const {
  return HasY() ? GetExplained(EBlock::kY, &Stage::ss, a - 1, a) : 0.0f;
}

float Model::GetR2Xadj(char a) const {
  return a < 0 ? kMissing : GetExplained(EBlock::kX, &Stage::s2, 0, a);
}

float Model::GetR2AXadj(char a) const {
  return GetExplained(EBlock::kX, &Stage::s2, a - 1, a);
}

float Model::GetR2Yadj(char a) const {
  return HasY() ? (a < 0 ? kMissing : GetExplained(EBlock::kY, &Stage::s2, 0, a)) : 0.0f;
}

float Model::GetR2AYadj(char a) const {
  return HasY() ? GetExplained(EBlock::kY, &Stage::s2, a - 1, a) : 0.0f;
}

float Model::GetR2VX(char a, short k) const {
  return a < 0 ? kMissing : GetExplained(EBlock::kX, &Stage::ssv, k, 0, a);
}

float Model::GetR2VAX(char a, short k) const {
  return GetExplained(EBlock::kX, &Stage::ssv, k, a - 1, a);
}

float Model::GetR2VY(char a, short m) const {
  return a < 0 ? kMissing : GetExplained(EBlock::kY, &Stage::ssv, m, 0, a);
}

float Model::GetR2VAY(char a, short m) const {
  return GetExplained(EBlock::kY, &Stage::ssv, m, a - 1, a);
}

float Model::GetR2VXadj(char a, short k) const {
  return a < 0 ? kMissing : GetExplained(EBlock::kX, &Stage::s2v, k, 0, a);
}

float Model::GetR2VAXadj(char a, short k) const {
  return GetExplained(EBlock::kX, &Stage::s2v, k, a - 1, a);
}

float Model::GetR2VYadj(char a, short m) const {
  return a < 0 ? kMissing : GetExplained(EBlock::kY, &Stage::s2v, m, 0, a);
}

float Model::GetR2VAYadj(char a, short m) const {
  return GetExplained(EBlock::kY, &Stage::s2v, m, a - 1, a);
}

}  // namespace zemva
