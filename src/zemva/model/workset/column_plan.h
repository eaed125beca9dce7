// How the columns that a model takes are made from those of a data set.
#ifndef ZEMVA_MODEL_WORKSET_COLUMN_PLAN_H
#define ZEMVA_MODEL_WORKSET_COLUMN_PLAN_H

#include <memory>
#include <new>
#include <span>
#include <vector>

#include "zemva/data/var_info.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/tra_info.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

// What an extraction returned, which is null when memory ran out: throws std::bad_alloc.
template <typename Table>
std::unique_ptr<Table> Owned(Table* table) {
  if (table == nullptr) throw std::bad_alloc();
  return std::unique_ptr<Table>(table);
}

// Takes the variables that are wanted and those that the wanted ones are made of, lags, transforms
// and expands them, and drops what is not wanted.
class ColumnPlan {
 public:
  // The variables are those of a data set; they, the lagged variables and the terms have numbers
  // above 0 of their own. `wanted` is some of all these, in this order. Throws std::bad_alloc.
  ColumnPlan(const VarInfo& variables, const LagInfo& lags, const TraInfo& transformations,
             const ExpInfo& terms, const VarInfo& wanted);

  // The positions of the variables whose columns Apply starts from, ascending.
  const std::vector<short>& GetSources() const { return sources_; }
  // Those of the tables given that it takes: a plan that is made of them is the same.
  const LagInfo& GetLags() const { return *lags_; }
  const TraInfo& GetTransformations() const { return *transformations_; }
  const ExpInfo& GetTerms() const { return *terms_; }

  // Turns a matrix with the columns of the sources into one with the wanted columns. Where there
  // are lagged variables its rows are those of the data set, of which `rows`, ascending, stay once
  // these have looked back; else those alone. `excluded` has a byte for each that stays, which
  // becomes 1 where a present value was lost. 8002 and the codes of the steps; the matrix is then
  // of no use. Throws std::bad_alloc.
  int Apply(XFMatrix& matrix, std::span<const short> rows, XI1Vector& excluded) const;

 private:
  std::vector<short> sources_;
  // Where the columns are more than those of the sources.
  VarInfo source_variables_{"Sources"};
  std::unique_ptr<LagInfo> lags_;
  std::unique_ptr<TraInfo> transformations_;
  std::unique_ptr<ExpInfo> terms_;
  std::vector<bool> is_wanted_;  // of sources, lagged variables, terms; likewise
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_WORKSET_COLUMN_PLAN_H
