// What the tables of classes, blocks and scalings take from a model.
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
  if (sel->NVal() != model->GetNVarX()) return SetStatus(status::mva::kIndexOutOfRange);
  return SetStatus(MemoryGuarded([&] {
    BlkInfo* const source = model->GetBIXPtr();
    const auto block_of = [&](short v) {
      return source == nullptr ? kNoBlock : source->GetBStat(v);
    };
    std::vector<char> blocks;
    for (const short v : PositionsUpTo(sel->NVal())) {
      if ((*sel)[v] == wanted) blocks.push_back(block_of(v));
    }
    for (const ItmInfo* table : std::initializer_list<const ItmInfo*>{lags, terms}) {
      for (const short i : PositionsUpTo(table->GetNItm())) {
        const short v = model->GetVarInfoX()->GetVIx(table->GetINum(i));
        if (v == 0) return status::mva::kVariableNotAvailable;
        blocks.push_back(block_of(v));
      }
    }
    BlockTypes types = {};
    for (short b = 1; source != nullptr && b <= kMaxBlock; ++b) {
      types[static_cast<std::size_t>(b)] = source->GetBType(source->GetIx(b));
    }
    return SetBlocks(blocks, types);
  }));
}

int ScaInfo::SetScaInfo(const VarInfo* variables, const XFMatrix* matrix, const Model* model,
                        bool is_from_data) {
  if (variables == nullptr || model == nullptr) return SetStatus(status::mva::kNullPointer);
  if (model->GetScaInfoX() == nullptr) return SetStatus(status::mva::kDataNotAvailable);
  return TakeRows(*model->GetScaInfoX(), *variables, matrix, is_from_data);
}

}  // namespace zemva
