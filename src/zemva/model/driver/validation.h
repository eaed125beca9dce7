// How the components of a model are validated and judged.
#ifndef ZEMVA_MODEL_DRIVER_VALIDATION_H
#define ZEMVA_MODEL_DRIVER_VALIDATION_H

#include <span>

#include "zemva/model/block/comp_info.h"
#include "zemva/model/block/model_log.h"
#include "zemva/settings/options/mod_opt.h"

namespace zemva {

// What the options ask for.
struct Validation {
  int status;  // 8013 for a setting that there is not, or fewer than 2 groups
  bool is_cross_validated;
  bool is_by_eigenvalue;
};

// With the rules: cross-validation, or the eigenvalue where the model has that rule. Without them:
// cross-validation or nothing.
Validation GetValidation(const ModOpt& options, bool has_eigenvalue_rule);

// Sets Q2 and its kin from what a cross-validation left unpredicted, in all and by variable, and
// the sums of squares before the component and at stage 0. With SS before, SST at stage 0:
//
//   Q2 = 1 - PRESS / SS, 1 where PRESS is 0      Q2(cum) = 1 - (1 - max(Q2, 0)) (1 - Q2(cum)
//   before)
//
// or, where `is_of_total`, Q2 = (SS - PRESS) / SST and Q2(cum) the running sum of max(Q2, 0). Both
// likewise by variable; a variable that had nothing left has no Q2, nor has what rounding has left
// nothing to compare with. `previous` is the component before, null for the first; where it has no
// Q2(cum), none follows. (S. Wold, Cross-validatory estimation of the number of components in
// factor and principal components models, Technometrics 20 (1978) 397-405.)
void SetQ2(double press, std::span<const double> press_by_variable, const Stage& before,
           const Stage& initial, const CompInfo* previous, bool is_of_total, CompInfo& component);

// Rules 1 and 2: Q2 exceeds the limit, or the Q2 of `required_count` variables do. A verdict that
// stands is kept.
void JudgeByQ2(int required_count, CompInfo& component, ModelLog& log);

// Rule 3: a component beyond the third of the smaller dimension. Whether it holds.
bool JudgeBySize(int a, int dimension, CompInfo& component, ModelLog& log);

// Rule 4: a component that takes less than a hundredth of the sum of squares at stage 0, and of no
// variable's more than `variable_limit`. Whether it holds; only rule 3's verdict is kept then.
bool JudgeByR2(const Stage& before, const Stage& after, const Stage& initial, double variable_limit,
               CompInfo& component, ModelLog& log);

// Rule 5: no verdict stands after a cross-validation. Whether it holds.
bool JudgeByDefault(bool is_cross_validated, CompInfo& component, ModelLog& log);

// The line of a listing that tells the verdict, up to "Q2"; "" where there is none.
const char* DescribeVerdict(EVerdict verdict);

}  // namespace zemva

#endif  // ZEMVA_MODEL_DRIVER_VALIDATION_H
