#include "project/workset_model.h"

#include "data/memory_guard.h"
#include "errors/status.h"
#include "model/pc/pc_model.h"
#include "model/workset/model_type.h"

namespace zemva {

WorksetModel::WorksetModel(ModelOwner& owner, Workset& workset, EModType type, char selector,
                           StreamWindow& window)
    : workset_(workset), options_(&owner.GetOptions()) {
  status_ = MemoryGuarded([&] { return Init(owner, type, selector, window); });
}

WorksetModel::~WorksetModel() = default;

int WorksetModel::Init(ModelOwner& owner, EModType type, char selector, StreamWindow& window) {
  if (!IsPCFamily(type) && type != EModType::kNoVarianceCheck) {
    return status::mva::kFunctionNotAvailable;
  }
  const std::unique_ptr<VarInfo> variables(workset_.ExtVarInfo(type, EBlock::kX, selector));
  if (variables == nullptr) return workset_.GetStatus();
  ScaInfo scalings("ScaInfoX");
  const int status = scalings.SetScaInfo(variables.get(), nullptr, &workset_, false);
  if (status != status::kOk) return status;
  options_.SetIsCenter(scalings.IsAnyVarCtd());
  model_ = std::make_unique<PCModel>(&owner, type, window, &options_, selector);
  return status::kOk;
}

}  // namespace zemva
