// Whether tables of preprocessing hold together, whatever their file says.
#ifndef ZEMVA_DIO_MODEL_TABLE_CHECK_H
#define ZEMVA_DIO_MODEL_TABLE_CHECK_H

#include "zemva/data/blk_info.h"
#include "zemva/data/var_info.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/tra_info.h"

namespace zemva {

// The variables of a data set, and what is made of them; a table that is null has no rows.
struct MadeOf {
  const VarInfo& variables;
  const LagInfo* lags;
  const TraInfo* transformations;
  const ExpInfo* terms;
};

// Whether every row has a number of its own above 0.
bool HasOwnNumbers(const ItmInfo& table);

// Whether variables, lagged variables and terms have numbers of their own above 0, and all that is
// made of something is made of what there is.
bool CanBeMade(const MadeOf& tables);

// Whether each of so many variables is in no block or in one that has a row, which counts it.
bool AreBlocks(const BlkInfo& blocks, int variable_count);

}  // namespace zemva

#endif  // ZEMVA_DIO_MODEL_TABLE_CHECK_H
