#include "zemva/settings/options/mod_opt.h"

#include "zemva/settings/options/prj_opt.h"

namespace zemva {
namespace {

// The options of a project are wider than the record.
short Short(int value) {
  using Limits = std::numeric_limits<short>;
  return static_cast<short>(std::clamp<int>(value, Limits::min(), Limits::max()));
}

// What a model outside a project has otherwise than the defaults.
ModOpt OutsideAProject() {
  constexpr float kMaxMissing = 20.0F;
  ModOpt options;
  options.SetIsXDesigned(true);
  options.SetIsSeq(false);
  options.SetLagDecay(1.0F);
  options.SetMaxMisValObsLS(kMaxMissing);
  options.SetMaxMisValVarLS(kMaxMissing);
  options.SetMaxMisValObsPS(kMaxMissing);
  options.SetMaxMisValVarPS(kMaxMissing);
  options.SetIsBackTraYLS(false);
  options.SetIsNormDistLS(false);
  return options;
}

ModOpt OfProject(const PrjOpt& project) {
  const bool is_normalized = project.GetModDistType() == EModDist::Normalized;
  const bool is_standardized = project.GetResidType() == EResidType::Standardized;
  ModOpt options;
  options.SetIsRule(false);
  options.SetSeqValidate(project.GetCrossValidation());
  options.SetRuleValidate(project.GetAutofitStopCriteria());
  options.SetNCV(Short(project.GetNCV()));
  options.SetMaxIter(Short(project.GetMaxIter()));
  options.SetCompLimLoa(project.GetCompLimLoa());
  options.SetCompLimScr(project.GetCompLimScr());
  options.SetLagDecay(project.GetLagDecay());
  options.SetMaxMisValObsLS(project.GetMaxMisValLS());
  options.SetMaxMisValVarLS(project.GetMaxMisValLS());
  options.SetMaxMisValObsPS(project.GetMaxMisValObsPS());
  options.SetMaxMisValVarPS(project.GetMaxMisValObsPS());
  options.SetIsShoScrLim(project.GetLogCompLim());
  options.SetIsShoLoaLim(project.GetLogCompLim());
  options.SetIsBackTraYLS(project.GetBackTraYLS());
  options.SetIsNormDistLS(is_normalized);
  options.SetSignLevLS(project.GetSignLevLS());
  options.SetIsStdResLS(is_standardized);
  options.SetIsBackTraYPS(project.GetBackTraYPS());
  // From the option of the work set too, not from the one of the prediction set.
  options.SetIsNormDistPS(is_normalized);
  options.SetSignLevPS(project.GetSignLev());
  options.SetIsWResPS(project.GetMPowResPS());
  options.SetIsWResLS(project.GetMPowResLS());
  options.SetIsResFilePS(project.GetResFilePS());
  options.SetIsStdResPS(is_standardized);
  options.SetIsSaveResPS(project.GetResFilePS());
  options.SetIsScaResPS(project.GetScaResPS());
  options.SetDModType(project.GetDModType());
  options.SetEVariablePlotMark(project.GetVarPltMark());
  options.SetEObjectPlotMark(project.GetObjPltMark());
  options.SetER2(project.GetVariMode());
  options.SetVariablePlotMarkLength(Short(project.GetVarPltMarkLen()));
  options.SetVariablePlotMarkStart(Short(project.GetVarPltMarkSta()));
  options.SetObjectPlotMarkLength(Short(project.GetObjPltMarkLen()));
  options.SetObjectPlotMarkStart(Short(project.GetObjPltMarkSta()));
  return options;
}

}  // namespace

ModOpt::ModOpt(const PrjOpt* project)
    : ModOpt(project != nullptr ? OfProject(*project) : OutsideAProject()) {}

}  // namespace zemva
