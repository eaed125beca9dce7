// What a model keeps of its data as they were before the first component.
#ifndef ZEMVA_MODEL_BLOCK_CENT_INFO_H
#define ZEMVA_MODEL_BLOCK_CENT_INFO_H

#include <vector>

#include "zemva/model/block/stage.h"

namespace zemva {

// Component 0 of a block of N rows by K columns. An element x of column k enters the model as
// (x - reference[k]) * weights[k].
struct CentInfo {
  // All missing. Throws std::bad_alloc.
  CentInfo(char letter, int row_count, int column_count);

  WholeVector loaded_average;   // "AvgX[-1]", of the data as loaded
  WholeVector average;          // "AvgX[0]", of the data centred and scaled
  WholeVector reference;        // "RefX[0]", 0 where a column is not centred
  WholeVector weights;          // "Weig[0]"
  WholeVector smallest;         // "MinX[-1]"
  WholeVector largest;          // "MaxX[-1]"
  std::vector<int> row_counts;  // the present values of each row, and of each column
  std::vector<int> column_counts;
  Stage loaded;   // stage -1
  Stage centred;  // stage 0
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_BLOCK_CENT_INFO_H
