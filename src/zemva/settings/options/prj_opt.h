// The options of a project, typed.
#ifndef ZEMVA_SETTINGS_OPTIONS_PRJ_OPT_H
#define ZEMVA_SETTINGS_OPTIONS_PRJ_OPT_H

#include "zemva/settings/options/options.h"

namespace zemva {

// Getters read the text of an option: as a number, as far as it is one, or as a word, compared
// exactly, where a text that is no word gives the value that the getter names as its fallback.
// Setters write the text of a value and return whether it was legal; if not, nothing changes.
class ZEMVA_API PrjOpt : public Options {
 public:
  // All options begin with their defaults. The argument is Options' own.
  explicit PrjOpt(bool has_defaults_only) : Options(has_defaults_only) {}

  // How far a correction for missing values may go: for a loading, for a score.
  float GetCompLimLoa() const { return GetFloatValue(EOptType::CompLimLoa); }
  bool SetCompLimLoa(float value) { return SetReal(EOptType::CompLimLoa, value); }
  float GetCompLimScr() const { return GetFloatValue(EOptType::CompLimScr); }
  bool SetCompLimScr(float value) { return SetReal(EOptType::CompLimScr, value); }
  // Whether such a correction is reported when it is cut; fallback true.
  bool GetLogCompLim() const;
  bool SetLogCompLim(bool value) { return SetToggle(EOptType::LogCompLim, value); }

  // The number that stands for a missing value in the files of other programs.
  float GetExtMisVal() const { return GetFloatValue(EOptType::ExtMisVal); }
  bool SetExtMisVal(float value) { return SetReal(EOptType::ExtMisVal, value); }

  // The factor by which a lag counts less than the one before it, 0 to 1.
  float GetLagDecay() const { return GetFloatValue(EOptType::LagDecay); }
  bool SetLagDecay(float value) { return SetReal(EOptType::LagDecay, value); }

  // The most iterations of a component.
  int GetMaxIter() const { return GetInteger(EOptType::MaxIter); }
  bool SetMaxIter(int value) { return SetInteger(EOptType::MaxIter, value); }

  // The most missing values, in per cent, of an observation and of a variable: in a work set, in a
  // prediction set.
  float GetMaxMisValLS() const { return GetFloatValue(EOptType::MaxMisValLS); }
  float GetMaxMisValObsLS() const { return GetMaxMisValLS(); }
  float GetMaxMisValVarLS() const { return GetMaxMisValLS(); }
  bool SetMaxMisValLS(float value) { return SetReal(EOptType::MaxMisValLS, value); }
  float GetMaxMisValPS() const { return GetFloatValue(EOptType::MaxMisValPS); }
  float GetMaxMisValObsPS() const { return GetMaxMisValPS(); }
  float GetMaxMisValVarPS() const { return GetMaxMisValPS(); }
  bool SetMaxMisValPS(float value) { return SetReal(EOptType::MaxMisValPS, value); }

  // The groups of a cross-validation, and whether there is one: CV for "CV" and "On", else NoCV.
  int GetNCV() const { return GetInteger(EOptType::NCV); }
  bool SetNCV(int value) { return SetInteger(EOptType::NCV, value); }
  EValidate GetCrossValidation() const;
  bool SetCrossValidation(EValidate value) {
    return SetWord(EOptType::CrossValidation, GetString(value));
  }
  // What ends the search for components. Auto means CV; fallback NoCV.
  EValidate GetAutofitStopCriteria() const;
  bool SetAutofitStopCriteria(EValidate value) {
    return SetWord(EOptType::AutofitStop, GetString(value));
  }
  // How often a validation by permutation permutes.
  int GetValidatePermutations() const { return 10; }

  // Levels of significance, 0 to 1: of a prediction set, of a work set.
  float GetSignLev() const { return GetFloatValue(EOptType::SignLev); }
  bool SetSignLev(float value) { return SetReal(EOptType::SignLev, value); }
  float GetSignLevLS() const { return GetFloatValue(EOptType::SignLevLS); }
  bool SetSignLevLS(float value) { return SetReal(EOptType::SignLevLS, value); }

  // What orders the observations; fallback Time.
  ETimeType GetTimeType() const;
  bool SetTimeType(ETimeType value) { return SetWord(EOptType::TimeMode, GetString(value)); }
  // How explained variation is shown; fallback R2adj.
  EVariType GetVariMode() const;
  bool SetVariMode(EVariType value) { return SetWord(EOptType::VariMode, GetString(value)); }
  // The distance to the model that is meant; fallback DModY.
  EDModType GetDModType() const;
  bool SetDModType(EDModType value) { return SetWord(EOptType::DModType, GetString(value)); }
  // The scale of distances to the model: of a work set, where the fallback is Absolute, and of a
  // prediction set, where it is Normalized.
  EModDist GetModDistType() const;
  bool SetModDistType(EModDist value) { return SetWord(EOptType::ModDistType, GetString(value)); }
  EModDist GetModDistTypePS() const;
  bool SetModDistTypePS(EModDist value) {
    return SetWord(EOptType::ModDistTypePS, GetString(value));
  }
  // Whether the X variables were set by a design; fallback Undesigned.
  EXBLKType GetDesignedX() const;
  bool SetDesignedX(EXBLKType value) { return SetWord(EOptType::DesignedX, GetString(value)); }
  // The scale of residuals; fallback Standardized.
  EResidType GetResidType() const;
  bool SetResidType(EResidType value) { return SetWord(EOptType::ResidType, GetString(value)); }

  // What marks a variable, or an observation, in a plot (fallback None), and the part of its name
  // that does: first character and length, 1 to 25.
  EPltMark GetVarPltMark() const;
  bool SetVarPltMark(EPltMark value) { return SetWord(EOptType::VarPltMark, GetString(value)); }
  int GetVarPltMarkSta() const { return GetInteger(EOptType::VarPltMarkSta); }
  bool SetVarPltMarkSta(int value) { return SetInteger(EOptType::VarPltMarkSta, value); }
  int GetVarPltMarkLen() const { return GetInteger(EOptType::VarPltMarkLen); }
  bool SetVarPltMarkLen(int value) { return SetInteger(EOptType::VarPltMarkLen, value); }
  EPltMark GetObjPltMark() const;
  bool SetObjPltMark(EPltMark value) { return SetWord(EOptType::ObsPltMark, GetString(value)); }
  int GetObjPltMarkSta() const { return GetInteger(EOptType::ObsPltMarkSta); }
  bool SetObjPltMarkSta(int value) { return SetInteger(EOptType::ObsPltMarkSta, value); }
  int GetObjPltMarkLen() const { return GetInteger(EOptType::ObsPltMarkLen); }
  bool SetObjPltMarkLen(int value) { return SetInteger(EOptType::ObsPltMarkLen, value); }

  // Whether predicted Y values are transformed back: of a work set, of a prediction set; fallback
  // true.
  bool GetBackTraYLS() const;
  bool SetBackTraYLS(bool value) { return SetToggle(EOptType::BackTraYLS, value); }
  bool GetBackTraYPS() const;
  bool SetBackTraYPS(bool value) { return SetToggle(EOptType::BackTraYPS, value); }
  // Whether residuals are weighted by modelling power: of a work set, of a prediction set; fallback
  // false.
  bool GetMPowResLS() const;
  bool SetMPowResLS(bool value) { return SetToggle(EOptType::MPowResLS, value); }
  bool GetMPowResPS() const;
  bool SetMPowResPS(bool value) { return SetToggle(EOptType::MPowResPS, value); }
  // Whether the residuals of a prediction set go to a file, and whether they are scaled; fallback
  // false.
  bool GetResFilePS() const;
  bool SetResFilePS(bool value) { return SetToggle(EOptType::ResFilePS, value); }
  bool GetScaResPS() const;
  bool SetScaResPS(bool value) { return SetToggle(EOptType::ScaResPS, value); }

  // A free number, for which no value is legal.
  int GetXOpt1() const { return GetInteger(EOptType::XOpt1); }
  bool SetXOpt1(int value) { return SetInteger(EOptType::XOpt1, value); }
  // Whether wavelets are turned back into variables; fallback true.
  bool GetReconstructWavelets() const;
  bool SetReconstructWavelets(bool value) {
    return SetToggle(EOptType::ReconstructWavelets, value);
  }

  // The options from here on are not kept in the settings file.

  // The decimals of a number, 0 to 5.
  int GetFormatNumber() const { return GetInteger(EOptType::NumberFormat); }
  bool SetFormatNumber(int value) { return SetInteger(EOptType::NumberFormat, value); }
  // The critical limits of distances to the model and of scores, 0 to 4.
  float GetDModXCritDistLimit() const { return GetFloatValue(EOptType::DModXCritDistLimit); }
  bool SetDModXCritDistLimit(float value) { return SetReal(EOptType::DModXCritDistLimit, value); }
  float GetXScoreCritDistLimit() const { return GetFloatValue(EOptType::XScoreCritDistLimit); }
  bool SetXScoreCritDistLimit(float value) { return SetReal(EOptType::XScoreCritDistLimit, value); }
  // Whether the columns of a plot are marked; fallback true.
  bool GetColumnPlotMark() const;
  bool SetColumnPlotMark(bool value) { return SetToggle(EOptType::ColumnPlotMark, value); }

 private:
  int GetInteger(EOptType type) const;
  template <typename Enumeration>
  Enumeration GetWord(EOptType type, Enumeration fallback) const;
  bool GetToggle(EOptType type, EToggle fallback) const;

  // As %g and %d, with a decimal point in every language.
  bool SetReal(EOptType type, float value);
  bool SetInteger(EOptType type, int value);
  bool SetWord(EOptType type, const char* word) { return SetValue(type, word); }
  bool SetToggle(EOptType type, bool value);
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_OPTIONS_PRJ_OPT_H
