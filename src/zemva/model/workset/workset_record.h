// What a work set is without its data, as its file keeps it.
#ifndef ZEMVA_MODEL_WORKSET_WORKSET_RECORD_H
#define ZEMVA_MODEL_WORKSET_WORKSET_RECORD_H

#include <memory>
#include <vector>

#include "zemva/base/fixed_text.h"
#include "zemva/data/blk_info.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/sca_info.h"
#include "zemva/model/preprocess/tra_info.h"

namespace zemva {

// Variables are those of the data set, the lagged ones, and the terms, in this order.
struct WorksetRecord {
  FixedText<24> name;
  FixedText<24> dataset_name;
  // Those of the data set, by which it is known again.
  std::shared_ptr<ObsInfo> observations;
  std::shared_ptr<VarInfo> variables;
  // A byte for each observation: 1 where it is in; its class.
  std::vector<char> members;
  std::vector<char> classes;
  std::vector<char> roles;          // of each variable
  std::shared_ptr<BlkInfo> blocks;  // of each variable, and the types of the blocks that were used
  std::shared_ptr<ScaInfo> scalings;  // a row for each variable
  // Null where there is none.
  std::shared_ptr<TraInfo> transformations;
  std::shared_ptr<LagInfo> lags;
  std::shared_ptr<ExpInfo> terms;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_WORKSET_WORKSET_RECORD_H
