#include "zemva/project/workset_model.h"

#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/pc/pc_model.h"
#include "zemva/model/pls/pls_model.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/project/project.h"

namespace zemva {

WorksetModel::WorksetModel(Project& project, Workset& workset, EModType type, char selector,
                           StreamWindow& window)
    : project_(project), workset_(workset), options_(&project.GetPrjOpt()) {
  status_ = MemoryGuarded([&] { return Init(type, selector, window); });
}

WorksetModel::WorksetModel(Project& project, Workset& workset, const char* path,
                           StreamWindow& window)
    : project_(project), workset_(workset) {
  model_.reset(Model::Read(path, this, window, &options_, status_));
}

WorksetModel::~WorksetModel() = default;

int WorksetModel::Init(EModType type, char selector, StreamWindow& window) {
  const bool is_pls = IsPLSFamily(type);
  if (!is_pls && !IsPCFamily(type) && type != EModType::kNoVarianceCheck) {
    return status::mva::kFunctionNotAvailable;
  }
  const std::unique_ptr<VarInfo> variables(workset_.ExtVarInfo(type, EBlock::kX, selector));
  if (variables == nullptr) return workset_.GetStatus();
  if (is_pls) {
    const std::unique_ptr<VarInfo> responses(workset_.ExtVarInfo(type, EBlock::kY, selector));
    if (responses == nullptr) return workset_.GetStatus();
  }
  ScaInfo scalings("ScaInfoX");
  const int status = scalings.SetScaInfo(variables.get(), nullptr, &workset_, false);
  if (status != status::kOk) return status;
  options_.SetIsCenter(scalings.IsAnyVarCtd());
  if (is_pls) {
    model_ = std::make_unique<PLSModel>(this, type, window, &options_, selector);
  } else {
    model_ = std::make_unique<PCModel>(this, type, window, &options_, selector);
  }
  return status::kOk;
}

Model& WorksetModel::Restart() {
  if (model_->HasFailed()) model_->Reset(model_->GetA());
  return *model_;
}

int WorksetModel::ExecPS(Predset& predset) {
  DeletePSResults();
  predset_ = &predset;
  const int status = Restart().ExecPS();
  if (status != status::kOk) predset_ = nullptr;
  return status;
}

int WorksetModel::DeletePSResults() {
  predset_ = nullptr;
  return model_->DeletePSResults();
}

const PrjOpt& WorksetModel::GetOptions() const {
  return project_.GetPrjOpt();
}

char WorksetModel::Ask(const char* question) {
  return project_.Ask(question);
}

bool WorksetModel::GoesOn(const FitProgress& progress) {
  return project_.GoesOn(progress);
}

}  // namespace zemva
