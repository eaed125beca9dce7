#include "zemva/settings/options/prj_opt.h"

#include <string>
#include <string_view>

#include "zemva/settings/options/option_words.h"
#include "zemva/settings/profile/text.h"

namespace zemva {

int PrjOpt::GetInteger(EOptType type) const {
  return LeadingInteger(GetValue(type));
}

template <typename Enumeration>
Enumeration PrjOpt::GetWord(EOptType type, Enumeration fallback) const {
  return ValueOf(GetValue(type), fallback);
}

bool PrjOpt::GetToggle(EOptType type, EToggle fallback) const {
  return GetWord(type, fallback) == EToggle::On;
}

bool PrjOpt::SetReal(EOptType type, float value) {
  return SetValue(type, FormatReal(static_cast<double>(value)).c_str());
}
bool PrjOpt::SetInteger(EOptType type, int value) {
  return SetValue(type, std::to_string(value).c_str());
}
bool PrjOpt::SetToggle(EOptType type, bool value) {
  return SetWord(type, GetString(value ? EToggle::On : EToggle::Off));
}

bool PrjOpt::GetLogCompLim() const {
  return GetToggle(EOptType::LogCompLim, EToggle::On);
}
bool PrjOpt::GetBackTraYLS() const {
  return GetToggle(EOptType::BackTraYLS, EToggle::On);
}
bool PrjOpt::GetBackTraYPS() const {
  return GetToggle(EOptType::BackTraYPS, EToggle::On);
}
bool PrjOpt::GetReconstructWavelets() const {
  return GetToggle(EOptType::ReconstructWavelets, EToggle::On);
}
bool PrjOpt::GetColumnPlotMark() const {
  return GetToggle(EOptType::ColumnPlotMark, EToggle::On);
}
bool PrjOpt::GetMPowResLS() const {
  return GetToggle(EOptType::MPowResLS, EToggle::Off);
}
bool PrjOpt::GetMPowResPS() const {
  return GetToggle(EOptType::MPowResPS, EToggle::Off);
}
bool PrjOpt::GetResFilePS() const {
  return GetToggle(EOptType::ResFilePS, EToggle::Off);
}
bool PrjOpt::GetScaResPS() const {
  return GetToggle(EOptType::ScaResPS, EToggle::Off);
}

EVariType PrjOpt::GetVariMode() const {
  return GetWord(EOptType::VariMode, EVariType::R2adj);
}
EDModType PrjOpt::GetDModType() const {
  return GetWord(EOptType::DModType, EDModType::DModY);
}
EXBLKType PrjOpt::GetDesignedX() const {
  return GetWord(EOptType::DesignedX, EXBLKType::Undesigned);
}
EResidType PrjOpt::GetResidType() const {
  return GetWord(EOptType::ResidType, EResidType::Standardized);
}
ETimeType PrjOpt::GetTimeType() const {
  return GetWord(EOptType::TimeMode, ETimeType::Time);
}
EPltMark PrjOpt::GetVarPltMark() const {
  return GetWord(EOptType::VarPltMark, EPltMark::None);
}
EPltMark PrjOpt::GetObjPltMark() const {
  return GetWord(EOptType::ObsPltMark, EPltMark::None);
}

// The two scales of distances fall back in opposite directions, on purpose.
EModDist PrjOpt::GetModDistType() const {
  return GetWord(EOptType::ModDistType, EModDist::Absolute);
}
EModDist PrjOpt::GetModDistTypePS() const {
  return GetWord(EOptType::ModDistTypePS, EModDist::Normalized);
}

EValidate PrjOpt::GetCrossValidation() const {
  const std::string_view word = GetValue(EOptType::CrossValidation);
  return word == "CV" || word == "On" ? EValidate::CV : EValidate::NoCV;
}

EValidate PrjOpt::GetAutofitStopCriteria() const {
  const EValidate criterion = GetWord(EOptType::AutofitStop, EValidate::NoCV);
  return criterion == EValidate::Auto ? EValidate::CV : criterion;
}

}  // namespace zemva
