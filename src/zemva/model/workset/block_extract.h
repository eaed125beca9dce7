// What a model takes of a work set at once.
#ifndef ZEMVA_MODEL_WORKSET_BLOCK_EXTRACT_H
#define ZEMVA_MODEL_WORKSET_BLOCK_EXTRACT_H

#include <memory>

#include "zemva/data/blk_info.h"
#include "zemva/data/var_info.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/sca_info.h"
#include "zemva/model/preprocess/tra_info.h"
#include "zemva/model/workset/preparation.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva {

// The matrix of a block and all that describes its columns. The preparation shares the variables.
struct BlockExtract {
  std::shared_ptr<XFMatrix> matrix;
  std::shared_ptr<const Preparation> preparation;
  std::shared_ptr<VarInfo> variables;
  std::shared_ptr<ScaInfo> scalings;
  // Null where there is none.
  std::shared_ptr<TraInfo> transformations;
  std::shared_ptr<ExpInfo> terms;
  std::shared_ptr<LagInfo> lags;
  std::shared_ptr<BlkInfo> blocks;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_WORKSET_BLOCK_EXTRACT_H
