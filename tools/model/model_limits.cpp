#include "model/model_limits.h"

#include "zemva/numeric/missing.h"
#include "zemva/settings/options/mod_opt.h"
#include "zemva/vectors/vec_spec.h"

namespace zemva::tools {
namespace {

float DistanceLevel(const Model& model) {
  return 1.0f - model.GetModOpt()->GetSignLevLS();
}

}  // namespace

std::vector<ModelLimit> LimitsOf(const Model& model) {
  const char* const t2 = CEVecType::GetString(CEVecType::Tsquare);
  std::vector<ModelLimit> limits = {{"DCritWS", CEVecType::GetString(CEVecType::DModX),
                                     DistanceLevel(model), model.GetDCritTeSLS()},
                                    {"DCritTS", CEVecType::GetString(CEVecType::DModXPS),
                                     DistanceLevel(model), model.GetDCritTrSLS()}};
  for (const float tail : kT2Tails) {
    limits.push_back({"T2Crit", t2, 1.0f - tail, model.GetT2Limit(model.GetA(), tail)});
  }
  for (int a = 1; a <= model.GetA(); ++a) {
    const std::string score = VecSpec(CEVecType::T, 0, static_cast<short>(a)).GetName();
    for (const float tail : kT2Tails) {
      limits.push_back(
          {"HalfAxis", score, 1.0f - tail, model.GetTCritAxisLen(static_cast<char>(a), tail)});
    }
  }
  return limits;
}

float ObservationLimit::ValueOf(const Model& model, short i) const {
  return of == CEVecType::DModX ? model.GetDModXLS(model.GetA(), i)
                                : model.GetT2LS(model.GetA(), i);
}

float ObservationLimit::IsBeyond(const Model& model, short i) const {
  const float own = ValueOf(model, i);
  if (IsMissing(own) || IsMissing(value)) return kMissing;
  return own > value ? 1.0f : 0.0f;
}

std::vector<ObservationLimit> ObservationLimitsOf(const Model& model) {
  static_assert(kT2Tails[0] == 0.05f && kT2Tails[1] == 0.01f);
  const char a = model.GetA();
  return {
      {"DModX>DCrit", CEVecType::DModX, DistanceLevel(model), model.GetDCritTeSLS()},
      {"Tsquare>95%", CEVecType::Tsquare, 1.0f - kT2Tails[0], model.GetT2Limit(a, kT2Tails[0])},
      {"Tsquare>99%", CEVecType::Tsquare, 1.0f - kT2Tails[1], model.GetT2Limit(a, kT2Tails[1])}};
}

}  // namespace zemva::tools
