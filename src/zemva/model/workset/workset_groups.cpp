// What the tables of classes, blocks and scalings take from a work set.
#include <initializer_list>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/data/blk_info.h"
#include "zemva/data/cla_info.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/preprocess/sca_info.h"
#include "zemva/model/workset/workset.h"

namespace zemva {

int ClaInfo::SetClaInfo(const Workset* workset) {
  if (workset == nullptr) return SetStatus(status::mva::kNullPointer);
  for (const short i : PositionsUpTo(o_class_.NVal())) SetOClass(i, workset->GetOClass(i));
  return Update();
}

int BlkInfo::SetBlkInfo(const XI1Vector* sel, short wanted, const LagInfo* lags,
                        const ExpInfo* terms, const Workset* workset) {
  if (sel == nullptr || lags == nullptr || terms == nullptr || workset == nullptr) {
    return SetStatus(status::mva::kNullPointer);
  }
  if (sel->NVal() != workset->GetNVarDS()) return SetStatus(status::mva::kIndexOutOfRange);
  return SetStatus(MemoryGuarded([&] {
    std::vector<char> blocks;
    for (int v = 1; v <= sel->NVal(); ++v) {
      if ((*sel)[v] == wanted) blocks.push_back(workset->GetBlock(static_cast<short>(v)));
    }
    for (const ItmInfo* table : std::initializer_list<const ItmInfo*>{lags, terms}) {
      for (int i = 1; i <= table->GetNItm(); ++i) {
        const short v = workset->GetVIx(table->GetINum(static_cast<short>(i)));
        if (v <= workset->GetNVarDS()) return status::mva::kVariableNotAvailable;
        blocks.push_back(workset->GetBlock(v));
      }
    }
    BlockTypes types = {};
    for (char b = 1; b <= kMaxBlock; ++b) {
      types[static_cast<std::size_t>(b)] = workset->GetBlockType(b);
    }
    return SetBlocks(blocks, types);
  }));
}

int ScaInfo::SetScaInfo(const VarInfo* variables, const XFMatrix* matrix, const Workset* workset,
                        bool is_from_data) {
  if (variables == nullptr || workset == nullptr) return SetStatus(status::mva::kNullPointer);
  const ScaInfo* const source = &workset->GetScalings();
  return TakeRows({&source, 1}, *variables, matrix, is_from_data);
}

}  // namespace zemva
