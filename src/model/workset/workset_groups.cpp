// What the tables of classes, blocks and scalings take from a work set.
#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

#include "data/blk_info.h"
#include "data/cla_info.h"
#include "data/memory_guard.h"
#include "data/names.h"
#include "errors/status.h"
#include "model/preprocess/sca_info.h"
#include "model/workset/workset.h"

namespace zemva {

int ClaInfo::SetClaInfo(const Workset* workset) {
  if (workset == nullptr) return SetStatus(status::mva::kNullPointer);
  for (int i = 1; i <= o_class_.NVal(); ++i) {
    o_class_[i] = workset->GetOClass(static_cast<short>(i));
  }
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
    if (blocks.size() > kMaxItems) return status::mva::kIndexOutOfRange;
    BlkInfo table(GetNam(), static_cast<short>(blocks.size()));
    if (table.GetStatus() != status::kOk) return table.GetStatus();
    std::ranges::copy(blocks, table.b_stat_.Values().begin());
    for (char b = 1; b <= kMaxBlock; ++b) {
      const BlkData block(b, NumberedName("Block", b).c_str(), workset->GetBlockType(b), 0,
                          kMissing);
      const int status = table.TakeBlock(block);
      if (status != status::kOk) return status;
    }
    b_stat_ = table.b_stat_;
    if (b_stat_.NVal() != table.b_stat_.NVal()) return status::mva::kMemory;
    ItmInfo::operator=(std::move(table));
    return status::kOk;
  }));
}

int ScaInfo::SetScaInfo(const VarInfo* variables, const XFMatrix* matrix, const Workset* workset,
                        bool is_from_data) {
  if (variables == nullptr || workset == nullptr || (is_from_data && matrix == nullptr)) {
    return SetStatus(status::mva::kNullPointer);
  }
  return SetStatus(MemoryGuarded([&] {
    const ScaInfo& scalings = workset->GetScalings();
    ScaInfo table(GetNam());
    for (int j = 1; j <= variables->GetNVar(); ++j) {
      const ScaData* row =
          scalings.GetItm(scalings.FindVar(variables->GetVNum(static_cast<short>(j))));
      if (row == nullptr) return status::mva::kVariableNotAvailable;
      const int status = table.AddItm(*row);
      if (status != status::kOk) return status;
    }
    const int status = is_from_data ? table.UpdateAll(variables, matrix) : status::kOk;
    if (status == status::kOk) *this = std::move(table);
    return status;
  }));
}

}  // namespace zemva
