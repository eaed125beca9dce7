// What the preprocessing tables do to the columns of a matrix.
//
// Column j of the matrix is variable j of `variables`, which has a row for each column. A table
// refers to variables by number. All return 0; 8021 when counts do not fit together, 8002 when
// memory runs out, and the codes named. After a failure matrix and variables are as they were.
#ifndef ZEMVA_MODEL_PREPROCESS_COLUMNS_H
#define ZEMVA_MODEL_PREPROCESS_COLUMNS_H

#include "zemva/data/var_info.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/tra_info.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

// Appends a column and a variable for each lagged one, missing where the lag reaches beyond the
// matrix. 8032 when a source is not among the variables, 7002 when there would be too many.
int AppendLagged(const LagInfo& lags, XFMatrix& matrix, VarInfo& variables);

// Transforms the columns in place. `excluded` has a byte a row, which becomes 1 where a present
// value has no transform and is now missing, and stays what it is elsewhere. 8015 when a variable
// is not there.
int TransformColumns(const TraInfo& transformations, const VarInfo& variables, XFMatrix& matrix,
                     XI1Vector& excluded);

// Appends a column and a variable for each term: the product of its factors, missing where one of
// them is. Products beyond the range of a float are missing too and are marked in `excluded`, as
// for TransformColumns. 8032 when a factor is not among the variables or there is none, 7002 when
// there would be too many variables.
int AppendExpanded(const ExpInfo& terms, XFMatrix& matrix, VarInfo& variables, XI1Vector& excluded);

}  // namespace zemva

#endif  // ZEMVA_MODEL_PREPROCESS_COLUMNS_H
