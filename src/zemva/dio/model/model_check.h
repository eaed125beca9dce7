// What must be true of a model whatever its file says.
#ifndef ZEMVA_DIO_MODEL_MODEL_CHECK_H
#define ZEMVA_DIO_MODEL_MODEL_CHECK_H

#include "zemva/model/driver/model_record.h"

namespace zemva {

// Whether all counts of a model agree, its tables describe its rows and columns, and its columns
// can be made of the variables of its data set.
bool IsConsistent(const ModelRecord& record);

}  // namespace zemva

#endif  // ZEMVA_DIO_MODEL_MODEL_CHECK_H
