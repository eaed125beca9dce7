// What work sets and prediction sets share: how the matrix of a model is read from a data set.
#ifndef ZEMVA_MODEL_WORKSET_EXTRACTION_H
#define ZEMVA_MODEL_WORKSET_EXTRACTION_H

#include <cstddef>
#include <memory>
#include <vector>

#include "zemva/data/dataset.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/workset/column_plan.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva {

// Where a vector keeps what belongs to a position, which counts from 1.
inline std::size_t Slot(int position) {
  return static_cast<std::size_t>(position - 1);
}

// A data set as a model sees it.
struct DataSource {
  Dataset& dataset;
  // A row for each of its observations and variables, as they were when it was described.
  const ObsInfo& observations;
  const VarInfo& variables;
  // The observations that are taken.
  std::vector<short> rows;
  // For each variable of the work set its column, 0 where the data set has none.
  std::vector<short> columns;
};

// Makes the columns of the plan. Tells in the window of values that are not finite numbers and of
// those that have no transform, which are missing. 8046 when the data set has other observations,
// by number, or other variables, by name; the codes of Load, and of the plan. Throws
// std::bad_alloc.
int ExtractColumns(const ColumnPlan& plan, const DataSource& source, StreamWindow& window,
                   std::unique_ptr<XFMatrix>& matrix);

// The positions that are selected, ascending. Throws std::bad_alloc.
std::vector<short> Positions(const XI1Vector& selection);

// The positions 1..count.
std::vector<short> Identity(int count);

// A table that describes every row or column: a copy of `table`, where there is one, with what is
// missing numbered by position and without a name. They throw std::bad_alloc.
ObsInfo CompleteObsInfo(const ObsInfo* table, short count);
VarInfo CompleteVarInfo(const VarInfo* table, short count);

// Hands over what `extract`, given an empty std::unique_ptr<Result>, put into it; null when that
// returns a status other than 0, which is kept in `status`.
template <typename Result, typename Extract>
Result* HandOver(int& status, Extract extract) {
  std::unique_ptr<Result> result;
  status = MemoryGuarded([&] { return extract(result); });
  return status == status::kOk ? result.release() : nullptr;  // the caller's
}

}  // namespace zemva

#endif  // ZEMVA_MODEL_WORKSET_EXTRACTION_H
