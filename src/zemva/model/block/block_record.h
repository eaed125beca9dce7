// What a block of a model is without its data.
#ifndef ZEMVA_MODEL_BLOCK_BLOCK_RECORD_H
#define ZEMVA_MODEL_BLOCK_BLOCK_RECORD_H

#include <memory>

#include "zemva/data/blk_info.h"
#include "zemva/data/var_info.h"
#include "zemva/model/block/cent_info.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/sca_info.h"
#include "zemva/model/preprocess/tra_info.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva {

// A table that is null is not there.
struct BlockRecord {
  explicit BlockRecord(EBlock which) : block(which) {}

  // Whether the model had its tables, which it is without when it was unloaded.
  bool IsOfLoaded() const { return scalings != nullptr; }

  EBlock block;
  short column_count = 0;
  std::shared_ptr<VarInfo> variables;  // a row for each column
  std::shared_ptr<ScaInfo> scalings;
  std::shared_ptr<BlkInfo> blocks;
  // All that the columns are made with, also what helps to make another one; none for classes.
  std::shared_ptr<TraInfo> transformations;
  std::shared_ptr<ExpInfo> terms;
  std::shared_ptr<LagInfo> lags;
  std::shared_ptr<CentInfo> info;    // there once anything was loaded; shared with the block
  std::shared_ptr<XFMatrix> values;  // of loaded responses: what was observed is a result
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_BLOCK_BLOCK_RECORD_H
