#include "zemva/model/driver/validation.h"

#include <algorithm>
#include <cmath>

#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

constexpr short kFewestGroups = 2;
constexpr double kSmallShare = 0.01;

// Missing where rounding has left nothing to compare with.
float Q2Of(double press, double before, double total, bool is_of_total) {
  if (!is_of_total && press == 0.0) return 1.0f;
  // (SS - PRESS) / SST, or 1 - PRESS / SS
  const auto q2 = static_cast<float>(is_of_total ? (before - press) / total : 1.0 - press / before);
  return std::isfinite(q2) ? AsPresent(q2) : kMissing;
}

// `previous` is null for the first component.
float Cumulated(float q2, const float* previous, bool is_of_total) {
  if (IsMissing(q2)) return kMissing;
  // the sum of max(Q2, 0), or 1 - (1 - max(Q2, 0)) (1 - Q2(cum) before)
  const float gain = std::max(q2, 0.0f);
  if (previous == nullptr) return gain;
  if (IsMissing(*previous)) return kMissing;
  return is_of_total ? *previous + gain : 1.0f - (1.0f - gain) * (1.0f - *previous);
}

double Share(float before, float after, float initial) {
  const double total = static_cast<double>(initial);
  return total == 0.0 ? 0.0 : (static_cast<double>(before) - static_cast<double>(after)) / total;
}

}  // namespace

Validation GetValidation(const ModOpt& options, bool has_eigenvalue_rule) {
  Validation validation{status::kOk, false, false};
  if (options.GetIsRule()) {
    const EValidate rule = options.GetRuleValidate();
    validation.is_cross_validated = rule == EValidate::Auto || rule == EValidate::CV;
    validation.is_by_eigenvalue = has_eigenvalue_rule && rule == EValidate::Eig;
    if (!validation.is_cross_validated && !validation.is_by_eigenvalue) {
      validation.status = status::mva::kArgument;
    }
  } else if (options.GetIsSeq() || options.GetNComp() > 0) {
    validation.is_cross_validated = options.GetSeqValidate() == EValidate::CV;
    if (!validation.is_cross_validated && options.GetSeqValidate() != EValidate::NoCV) {
      validation.status = status::mva::kArgument;
    }
  }
  if (validation.is_cross_validated && options.GetNCV() < kFewestGroups) {
    validation.status = status::mva::kArgument;
  }
  return validation;
}

void SetQ2(double press, std::span<const double> press_by_variable, const Stage& before,
           const Stage& initial, const CompInfo* previous, bool is_of_total, CompInfo& component) {
  component.q2 =
      Q2Of(press, static_cast<double>(before.ss), static_cast<double>(initial.ss), is_of_total);
  component.q2_cum =
      Cumulated(component.q2, previous == nullptr ? nullptr : &previous->q2_cum, is_of_total);
  for (int k = 1; k <= component.q2v.NVal(); ++k) {
    if (before.ssv[k] == 0.0f) continue;
    component.q2v[k] =
        Q2Of(press_by_variable[static_cast<std::size_t>(k - 1)], static_cast<double>(before.ssv[k]),
             static_cast<double>(initial.ssv[k]), is_of_total);
    component.q2v_cum[k] = Cumulated(
        component.q2v[k], previous == nullptr ? nullptr : &previous->q2v_cum[k], is_of_total);
  }
  component.q2v.SetActValInfo();
  component.q2v_cum.SetActValInfo();
}

void JudgeByQ2(int required_count, CompInfo& component, ModelLog& log) {
  const auto judge = [&](EVerdict verdict, const char* message) {
    log.Write(message);
    if (component.verdict == EVerdict::kNone) component.verdict = verdict;
  };
  const float limit = component.q2_limit;
  if (component.q2 > limit) {
    judge(EVerdict::kRule1, "Significant component (5%) acc. to rule 1.\n");
  }
  const auto above =
      std::ranges::count_if(component.q2v.Values(), [&](float q2) { return q2 > limit; });
  if (above >= required_count) {
    judge(EVerdict::kRule2, "Significant component (5%) acc. to rule 2.\n");
  }
}

bool JudgeBySize(int a, int dimension, CompInfo& component, ModelLog& log) {
  // a > min(N, K) / 3 + 1, in whole numbers
  if (a <= dimension / 3 + 1) return false;
  component.verdict = EVerdict::kRule3;
  log.Write("Not significant component acc. to rule 3.\n");
  return true;
}

bool JudgeByR2(const Stage& before, const Stage& after, const Stage& initial, double variable_limit,
               CompInfo& component, ModelLog& log) {
  // R2 < 0.01, and no R2V above the limit
  if (Share(before.ss, after.ss, initial.ss) >= kSmallShare) return false;
  for (int k = 1; k <= after.ssv.NVal(); ++k) {
    if (Share(before.ssv[k], after.ssv[k], initial.ssv[k]) > variable_limit) return false;
  }
  if (component.verdict != EVerdict::kRule3) component.verdict = EVerdict::kRule4;
  log.Write("Not significant component acc. to rule 4.\n");
  return true;
}

bool JudgeByDefault(bool is_cross_validated, CompInfo& component, ModelLog& log) {
  if (!is_cross_validated || component.verdict != EVerdict::kNone) return false;
  component.verdict = EVerdict::kRule5;
  log.Write("Component not significant acc. to current rules.\n");
  return true;
}

const char* DescribeVerdict(EVerdict verdict) {
  switch (verdict) {
    case EVerdict::kRule1:
      return "Significant comp. acc. to rule 1. Q2";
    case EVerdict::kRule2:
      return "Significant comp. acc. to rule 2. Q2";
    case EVerdict::kRule3:
      return "Not significant comp. acc. to rule 3. Q2";
    case EVerdict::kRule4:
      return "Not significant comp. acc. to rule 4. Q2";
    case EVerdict::kRule5:
      return "Not significant comp. acc. to rule 5. Q2";
    default:
      return "";
  }
}

}  // namespace zemva
