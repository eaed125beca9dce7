// The kinds of options and the values of those that are chosen from a list of words.
#ifndef ZEMVA_SETTINGS_OPTIONS_OPTION_TYPES_H
#define ZEMVA_SETTINGS_OPTIONS_OPTION_TYPES_H

namespace zemva {

// The options of a project, numbered as in the table of option_table.cpp and named by their keys.
enum class EOptType : int {
  None = 0,
  CompLimLoa,
  CompLimScr,
  ExtMisVal,
  LagDecay,
  LogCompLim,
  MaxIter,
  MaxMisValLS,
  MaxMisValPS,
  NCV,
  SignLev,
  SignLevLS,
  TimeMode,
  VariMode,
  ModDistType,
  VarPltMark,
  VarPltMarkSta,
  VarPltMarkLen,
  ObsPltMark,
  ObsPltMarkSta,
  ObsPltMarkLen,
  PltTempl,
  DesignedX,
  DefaultProjectDir,
  ResidType,
  AutofitStop,
  CrossValidation,
  BackTraYLS,
  MPowResLS,
  MPowResPS,
  BackTraYPS,
  ModDistTypePS,
  ResFilePS,
  ScaResPS,
  XOpt1,
  DModType,
  ReconstructWavelets,
  NumberFormat,
  DModXCritDistLimit,
  XScoreCritDistLimit,
  ColumnPlotMark,
};

inline constexpr int kOptionCount = static_cast<int>(EOptType::ColumnPlotMark);
// The first of them are kept in the settings file.
inline constexpr int kGlobalOptionCount = static_cast<int>(EOptType::ReconstructWavelets);

// The values are named by their words.
enum class EToggle { Off, On };
enum class EDModType { DModX, DModY };         // the distance to the model that is meant
enum class EVariType { R2, R2adj };            // explained variation, or adjusted for freedom
enum class EModDist { Absolute, Normalized };  // the scale of a distance to the model
enum class EPltMark { None, Number, Name };    // what marks a point in a plot
enum class EPltTempl { Screen, Printer };
enum class EXBLKType { Designed, Undesigned };
enum class EResidType { Scaled, Standardized };
enum class ETimeType { Time, Discrete };
enum class EValidate { NoCV, Auto, CV, Eig };  // what ends the search for components

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_OPTIONS_OPTION_TYPES_H
