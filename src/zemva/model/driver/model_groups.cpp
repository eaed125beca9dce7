// What the tables of classes, blocks and scalings take from a model.
#include <algorithm>
#include <initializer_list>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/data/blk_info.h"
#include "zemva/data/cla_info.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/sca_info.h"

namespace zemva {
namespace {

struct BlockTables {
  VarInfo* variables;
  BlkInfo* blocks;  // null where there are none
  ScaInfo* scalings;
};

// Of the loaded blocks of variables, X first. Classes are none.
std::vector<BlockTables> TablesOf(const Model& model) {
  std::vector<BlockTables> tables = {{model.GetVarInfoX(), model.GetBIXPtr(), model.GetScaInfoX()}};
  if (model.HasY() && !IsDiscriminant(model.GetModType())) {
    tables.push_back({model.GetVarInfoY(), model.GetBIYPtr(), model.GetScaInfoY()});
  }
  return tables;
}

}  // namespace

int ClaInfo::SetClaInfo(const ObsInfo* observations, const Model* model) {
  if (observations == nullptr || model == nullptr || model->GetClaInfo() == nullptr) {
    return SetStatus(status::mva::kNullPointer);
  }
  if (observations->GetNItm() != o_class_.NVal()) return SetStatus(status::mva::kIndexOutOfRange);
  for (const short i : PositionsUpTo(observations->GetNItm())) {
    const short source = model->GetObsInfo()->GetOIx(observations->GetONum(i));
    SetOClass(i, model->GetClaInfo()->GetOClass(source));
  }
  return Update();
}

int BlkInfo::SetBlkInfo(const XI1Vector* sel, short wanted, const LagInfo* lags,
                        const ExpInfo* terms, const Model* model) {
  if (sel == nullptr || lags == nullptr || terms == nullptr || model == nullptr) {
    return SetStatus(status::mva::kNullPointer);
  }
  if (!model->IsLoaded()) return SetStatus(status::mva::kDataNotAvailable);
  return SetStatus(MemoryGuarded([&] {
    const std::vector<BlockTables> tables = TablesOf(*model);
    int count = 0;
    for (const BlockTables& block : tables) count += block.variables->GetNVar();
    if (sel->NVal() != count) return status::mva::kIndexOutOfRange;
    const auto block_of = [](BlkInfo* source, short v) {
      return source == nullptr ? kNoBlock : source->GetBStat(v);
    };
    std::vector<char> blocks;
    BlockTypes types = {};
    int position = 0;
    for (const auto& [variables, source, scalings] : tables) {
      for (const short v : PositionsUpTo(variables->GetNVar())) {
        if ((*sel)[++position] == wanted) blocks.push_back(block_of(source, v));
      }
      for (short b = 1; source != nullptr && b <= kMaxBlock; ++b) {
        const short row = source->GetIx(b);
        if (row != 0) types[static_cast<std::size_t>(b)] = source->GetBType(row);
      }
    }
    for (const ItmInfo* added : std::initializer_list<const ItmInfo*>{lags, terms}) {
      for (const short i : PositionsUpTo(added->GetNItm())) {
        const auto of = std::ranges::find_if(tables, [&](const BlockTables& block) {
          return block.variables->GetVIx(added->GetINum(i)) != 0;
        });
        if (of == tables.end()) return status::mva::kVariableNotAvailable;
        blocks.push_back(block_of(of->blocks, of->variables->GetVIx(added->GetINum(i))));
      }
    }
    return SetBlocks(blocks, types);
  }));
}

int ScaInfo::SetScaInfo(const VarInfo* variables, const XFMatrix* matrix, const Model* model,
                        bool is_from_data) {
  if (variables == nullptr || model == nullptr) return SetStatus(status::mva::kNullPointer);
  if (!model->IsLoaded()) return SetStatus(status::mva::kDataNotAvailable);
  return SetStatus(MemoryGuarded([&] {
    std::vector<const ScaInfo*> sources;
    for (const BlockTables& block : TablesOf(*model)) sources.push_back(block.scalings);
    return TakeRows(sources, *variables, matrix, is_from_data);
  }));
}

}  // namespace zemva
