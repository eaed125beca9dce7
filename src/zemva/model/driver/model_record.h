// What a model is without its data, as its file keeps it.
#ifndef ZEMVA_MODEL_DRIVER_MODEL_RECORD_H
#define ZEMVA_MODEL_DRIVER_MODEL_RECORD_H

#include <memory>
#include <vector>

#include "zemva/base/fixed_text.h"
#include "zemva/data/cla_info.h"
#include "zemva/data/object_header.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/model/block/block_record.h"
#include "zemva/model/block/comp_info.h"
#include "zemva/model/execution/predictions.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/settings/options/mod_opt.h"

namespace zemva {

// The most components that a file can number.
inline constexpr int kMostModelComponents = 99;

// A model that has not loaded any data yet has neither counts, tables nor records of its blocks.
struct ModelRecord {
  EModType type = EModType::kPC1;
  short selector = 0;   // the class of a kPC1Cl model
  ObjectHeader header;  // all but the address
  FixedText<24> dataset_name;
  ModOpt options;
  float loading_limit = 0.0f;  // the option that its record hands out to models alone
  short row_count = 0;
  short component_count = 0;
  short a0 = 0;
  bool is_overrun = false;
  bool is_search_over = false;
  // The rows, null where the model was unloaded; the classes also where no row has one.
  std::shared_ptr<ObsInfo> observations;
  std::shared_ptr<ClaInfo> classes;
  // Of the data set that the model is made of: a byte for each observation, 1 for the rows, and all
  // its variables.
  std::vector<char> members;
  std::shared_ptr<VarInfo> dataset_variables;
  BlockRecord x{EBlock::kX};
  BlockRecord y{EBlock::kY};                          // empty without responses
  std::vector<std::shared_ptr<CompInfo>> components;  // shared with the model
  // Of the execution on the work set, if there was one.
  std::shared_ptr<Results> results;

  bool HasY() const { return IsPLSFamily(type); }
  BlockRecord& Block(EBlock block) { return block == EBlock::kX ? x : y; }
  const BlockRecord& Block(EBlock block) const { return block == EBlock::kX ? x : y; }
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_DRIVER_MODEL_RECORD_H
