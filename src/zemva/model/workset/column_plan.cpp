#include "zemva/model/workset/column_plan.h"

#include <algorithm>
#include <new>

#include "zemva/data/selection.h"
#include "zemva/errors/status.h"
#include "zemva/model/preprocess/columns.h"
#include "zemva/model/preprocess/number_set.h"

namespace zemva {
namespace {

int KeepRows(std::span<const short> rows, XFMatrix& matrix) {
  XI1Vector keep =
      SelectIf(matrix.NRow(), [&](short i) { return std::ranges::binary_search(rows, i); });
  return matrix.DelRows(&keep) == status::kOk ? status::kOk : status::mva::kMemory;
}

}  // namespace

ColumnPlan::ColumnPlan(const VarInfo& variables, const LagInfo& lags,
                       const TraInfo& transformations, const ExpInfo& terms,
                       const VarInfo& wanted) {
  NumberSet needed(wanted);
  const NumberSet is_wanted = needed;
  const auto keep_flags = [&](const ItmInfo& table) {
    for (int i = 1; i <= table.GetNItm(); ++i) {
      is_wanted_.push_back(is_wanted.Has(table.GetINum(static_cast<short>(i))));
    }
  };

  terms_ = Owned(terms.ExtExpInfo(needed.Select(terms).GetPtr()));
  for (short k = 1; terms_->GetItm(k) != nullptr; ++k) {
    // A factor that is not there is 0, the number of no variable.
    for (const short factor : terms_->GetItm(k)->GetFactors()) needed.Add(factor);
  }
  // What is there for its lags alone is not transformed.
  transformations_ = Owned(transformations.ExtTraInfo(needed.Select(transformations).GetPtr()));
  lags_ = Owned(lags.ExtLagInfo(needed.Select(lags).GetPtr()));
  for (short k = 1; lags_->GetItm(k) != nullptr; ++k) needed.Add(lags_->GetItm(k)->GetVNumDS());
  const bool has_steps =
      lags_->GetNItm() > 0 || transformations_->GetNItm() > 0 || terms_->GetNItm() > 0;
  for (int j = 1; j <= variables.GetNVar(); ++j) {
    const auto position = static_cast<short>(j);
    const short vnum = variables.GetVNum(position);
    if (!needed.Has(vnum)) continue;
    sources_.push_back(position);
    if (!has_steps) continue;
    if (source_variables_.AddVar(vnum, variables.GetVNam(position)) != status::kOk) {
      throw std::bad_alloc();
    }
  }
  if (!has_steps) return;
  keep_flags(source_variables_);
  keep_flags(*lags_);
  keep_flags(*terms_);
}

int ColumnPlan::Apply(XFMatrix& matrix, std::span<const short> rows, XI1Vector& excluded) const {
  if (is_wanted_.empty()) return status::kOk;
  VarInfo variables(source_variables_);
  int status = variables.GetStatus();
  if (status == status::kOk && lags_->GetNItm() > 0) {
    status = AppendLagged(*lags_, matrix, variables);
    if (status == status::kOk) status = KeepRows(rows, matrix);
  }
  if (status == status::kOk && transformations_->GetNItm() > 0) {
    status = TransformColumns(*transformations_, variables, matrix, excluded);
  }
  if (status == status::kOk && terms_->GetNItm() > 0) {
    status = AppendExpanded(*terms_, matrix, variables, excluded);
  }
  const bool has_helpers = std::ranges::find(is_wanted_, false) != is_wanted_.end();
  if (status != status::kOk || !has_helpers) return status;
  XI1Vector keep = SelectIf(
      matrix.NCol(), [&](short j) { return bool{is_wanted_[static_cast<std::size_t>(j - 1)]}; });
  return matrix.DelCols(&keep) == status::kOk ? status::kOk : status::mva::kMemory;
}

}  // namespace zemva
