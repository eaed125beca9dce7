// The statistics of Model, which read the records of its components.
#include <algorithm>

#include "zemva/model/driver/data_block.h"
#include "zemva/model/driver/distances.h"
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
float Element(const Record* record, XFVector Record::*vector, short i) {
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

}  // namespace

const Stage* Model::GetStageX(int a) const {
  const auto& info = x_->GetInfo();
  if (a < -1 || !info) return nullptr;
  if (a == -1) return &info->loaded;
  if (a == 0) return IsMissing(info->centred.ss) ? nullptr : &info->centred;
  const CompInfo* const component = GetComponent(a);
  return component == nullptr ? nullptr : &component->x;
}

ModelSize Model::GetSize(int a) const {
  return {GetNObs(), GetNVarX(), a0_, a};
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

VarInfo* Model::GetVarInfoX() const {
  return x_->GetVarInfo();
}

ScaInfo* Model::GetScaInfoX() const {
  return x_->GetScaInfo();
}

TraInfo* Model::GetTraInfoX() const {
  return x_->GetTraInfo();
}

ExpInfo* Model::GetExpInfoX() const {
  return x_->GetExpInfo();
}

LagInfo* Model::GetLagInfoX() const {
  return x_->GetLagInfo();
}

BlkInfo* Model::GetBIXPtr() const {
  return x_->GetBlkInfo();
}

const XFMatrix* Model::GetXPtr() const {
  return IsLoaded() ? &x_->GetValues() : nullptr;
}

float Model::GetAvgX(char a, short k) const {
  if (GetStageX(a) == nullptr || a > 0) return kMissing;
  const CentInfo& info = *x_->GetInfo();
  return (a == -1 ? info.loaded_average : info.average).GetElement(k);
}

float Model::GetDFX(char a) const {
  return Field(GetStageX(a), &Stage::df);
}

float Model::GetSSX(char a) const {
  return Field(GetStageX(a), &Stage::ss);
}

float Model::GetS2X(char a) const {
  return Field(GetStageX(a), &Stage::s2);
}

float Model::GetSSVX(char a, short k) const {
  return Element(GetStageX(a), &Stage::ssv, k);
}

float Model::GetS2VX(char a, short k) const {
  return Element(GetStageX(a), &Stage::s2v, k);
}

float Model::GetMPowX(char a, short k) const {
  return Element(GetStageX(a), &Stage::mpow, k);
}

float Model::GetSSOX(char a, short i) const {
  return Element(GetStageX(a), &Stage::sso, i);
}

float Model::GetS2OX(char a, short i) const {
  return Element(GetStageX(a), &Stage::s2o, i);
}

float Model::GetEig(char a) const {
  return Field(GetComponent(a), &CompInfo::eigenvalue);
}

short Model::GetNIter(char a) const {
  return Field(GetComponent(a), &CompInfo::iteration_count, short{0});
}

float Model::GetOLevX(char a, short i) const {
  return Element(GetComponent(a), &CompInfo::leverages, i);
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
  const double columns = GetNVarXUsed() - (a - 1);
  const double rows = GetNObs() - (a - 1);
  const double free = columns * (rows - a0_);
  return free > 0.0 ? static_cast<float>(1.0 - free / ((columns + 1.0) * rows)) : 1.0f;
}

float Model::GetR2X(char a) const {
  return a < 0 ? kMissing : Explained(GetSSX(0), GetSSX(0), GetSSX(a));
}

float Model::GetR2Xadj(char a) const {
  return a < 0 ? kMissing : Explained(GetS2X(0), GetS2X(0), GetS2X(a));
}

float Model::GetR2AX(char a) const {
  return a < 1 ? kMissing : Explained(GetSSX(0), GetSSX(static_cast<char>(a - 1)), GetSSX(a));
}

float Model::GetR2AXadj(char a) const {
  return a < 1 ? kMissing : Explained(GetS2X(0), GetS2X(static_cast<char>(a - 1)), GetS2X(a));
}

float Model::GetR2VX(char a, short k) const {
  return a < 0 ? kMissing : Explained(GetSSVX(0, k), GetSSVX(0, k), GetSSVX(a, k));
}

float Model::GetR2VXadj(char a, short k) const {
  return a < 0 ? kMissing : Explained(GetS2VX(0, k), GetS2VX(0, k), GetS2VX(a, k));
}

float Model::GetR2VAX(char a, short k) const {
  const auto before = static_cast<char>(a - 1);
  return a < 1 ? kMissing : Explained(GetSSVX(0, k), GetSSVX(before, k), GetSSVX(a, k));
}

float Model::GetR2VAXadj(char a, short k) const {
  const auto before = static_cast<char>(a - 1);
  return a < 1 ? kMissing : Explained(GetS2VX(0, k), GetS2VX(before, k), GetS2VX(a, k));
}

}  // namespace zemva
