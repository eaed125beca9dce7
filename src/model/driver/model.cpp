#include "model/driver/model.h"

#include <algorithm>
#include <string>

#include "base/time_stamp.h"
#include "errors/status.h"
#include "model/driver/data_block.h"
#include "model/driver/distances.h"
#include "model/workset/predset.h"
#include "model/workset/workset.h"

namespace zemva {
namespace {

constexpr short kFewestObservations = 4;

}  // namespace

Model::Model(ModelOwner* owner, EModType type, StreamWindow& window, ModOpt* options, char selector)
    : owner_(owner),
      type_(type),
      options_(options),
      selector_(selector),
      x_(std::make_unique<DataBlock>(EBlock::kX)),
      log_(window) {
  header_.name.Set("UnNamed");
  header_.title.Set("Untitled");
  header_.address.Set("NoAddress");
  header_.creation_date = TimeStamp();
  if (owner == nullptr || options == nullptr) status_ = status::mva::kNullPointer;
}

Model::Model(const Model& other)
    : ConstructDestructMessage(other),
      owner_(other.owner_),
      type_(other.type_),
      header_(other.header_),
      dataset_name_(other.dataset_name_),
      options_(other.options_),
      selector_(other.selector_),
      observations_(other.observations_),
      classes_(other.classes_),
      x_(std::make_unique<DataBlock>(*other.x_)),
      a0_(other.a0_),
      log_(other.log_),
      is_overrun_(other.is_overrun_),
      status_(other.status_) {}

Model::~Model() = default;

bool Model::HasFailed() const {
  return status_ != status::kOk && status_ != status::mva::kNotCompleted &&
         status_ != status::mva::kComponentAborted;
}

int Model::Compute() {
  if (status_ == status::mva::kComponentAborted) return status_;
  if (!IsLoaded()) Load();
  if (!HasFailed() && !x_->IsCentered()) Center();
  const int count_before = GetComponentCount();
  const int status = HasFailed() ? status_ : CalcComp();
  if (status != status::kOk) return SetStatus(status);
  const int count = GetComponentCount();
  if (count == count_before) return status::kOk;
  const bool is_designed_start = options_->GetIsXDesigned() && count <= 1;
  const bool is_further_wanted = options_->GetIsRule()
                                     ? GetVerdict(GetA()) < EVerdict::kRule3 || is_designed_start
                                     : count < options_->GetNComp();
  return SetStatus(is_further_wanted ? status::mva::kNotCompleted : status::kOk);
}

int Model::Load() {
  return LoadWS();
}

int Model::LoadWS() {
  return Run([&] {
    Workset* const workset = owner_->GetCurrentWorkset();
    if (workset == nullptr) return status::mva::kWorksetNotAvailable;
    int status = x_->Extract(*workset, type_, selector_);
    if (status != status::kOk) return status;
    observations_.reset(workset->ExtObsInfo(type_, selector_));
    if (observations_ == nullptr) return workset->GetStatus();
    classes_.reset(workset->ExtClaInfo(type_, selector_));
    if (classes_ == nullptr && workset->GetStatus() != status::kOk) return workset->GetStatus();
    dataset_name_.Set(workset->GetDataset().GetDSNam());
    status = CheckX();
    if (status != status::kOk) x_->Unload();
    return status;
  });
}

int Model::CheckX() {
  if (GetNObs() < kFewestObservations) return status::mva::kTooFewObservations;
  const MissingLimits limits{options_->GetMaxMisValVarLS(), options_->GetMaxMisValObsLS()};
  const int status = x_->CheckMissing(*observations_, limits, *owner_, log_);
  if (status != status::kOk) return status;
  if (type_ != EModType::kNoVarianceCheck) x_->CheckVariance(log_);
  return x_->FindWeights(log_);
}

int Model::Center() {
  return Run([&] {
    if (!IsLoaded()) return status::mva::kDataNotAvailable;
    a0_ = options_->GetIsCenter() ? 1 : 0;
    return x_->Center(options_->GetIsCenter());
  });
}

int Model::ExecLS(char a) {
  return Run([&] {
    if (GetComponentCount() == 0) return status::mva::kModelNotAvailable;
    if (a < 0 || a > GetComponentCount()) return status::mva::kComponentNotAvailable;
    options_->SetAUseLS(a);
    log_.Write(std::string("Executing WS: Model ") + GetModNam() + "\n");
    return ExecLS(static_cast<XFMatrix*>(nullptr));
  });
}

int Model::ExecPS() {
  return Run([&] {
    if (GetComponentCount() == 0) return status::mva::kModelNotAvailable;
    Predset* const predset = owner_->GetCurrentPredset();
    if (predset == nullptr) return status::mva::kPredsetNotAvailable;
    const std::unique_ptr<XFMatrix> data(predset->ExtMatrix(type_, EBlock::kX, selector_));
    if (data == nullptr) return predset->GetStatus();
    const std::unique_ptr<ObsInfo> observations(predset->ExtObsInfo());
    if (observations == nullptr) return predset->GetStatus();
    const std::unique_ptr<I1Vector> selection(predset->ExtMembership(type_, selector_));
    if (selection == nullptr) return predset->GetStatus();
    for (char& byte : selection->Values()) byte = byte != 0 ? kMemberRow : kNewRow;
    return ExecPS(observations.get(), data.get(), selection.get());
  });
}

int Model::RSEqn(StreamWindow& /*window*/) {
  return status::mva::kFunctionNotAvailable;
}

int Model::Unload() {
  x_->Unload();
  return status::kOk;
}

bool Model::IsLoaded() const {
  return x_->IsLoaded();
}

int Model::GetUsed(short asked) const {
  const int count = GetComponentCount();
  return asked <= 0 ? count : std::min<int>(asked, count);
}

}  // namespace zemva
