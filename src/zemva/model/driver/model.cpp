#include "zemva/model/driver/model.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "zemva/base/time_stamp.h"
#include "zemva/errors/status.h"
#include "zemva/model/driver/data_block.h"
#include "zemva/model/driver/distances.h"
#include "zemva/model/workset/predset.h"
#include "zemva/model/workset/workset.h"
#include "zemva/base/paths.h"

namespace zemva {
namespace {

constexpr short kFewestObservations = 4;
constexpr char kNoAddress[] = "NoAddress";

// Owns no data.
class Nobody : public ModelOwner {
 public:
  Workset* GetCurrentWorkset() override { return nullptr; }
  Predset* GetCurrentPredset() override { return nullptr; }
  const PrjOpt& GetOptions() const override { return options_; }

 private:
  PrjOpt options_{true};
};

ModelOwner& GetNobody() {
  static Nobody nobody;
  return nobody;
}

}  // namespace

Model::Model(ModelOwner* owner, EModType type, StreamWindow& window, ModOpt* options, char selector)
    : owner_(owner == nullptr ? &GetNobody() : owner),
      type_(type),
      options_(options == nullptr ? &own_options_ : options),
      selector_(selector),
      x_(std::make_unique<DataBlock>(EBlock::kX)),
      log_(window) {
  header_.name.Set("UnNamed");
  header_.title.Set("Untitled");
  header_.address.Set(kNoAddress);
  header_.creation_date = TimeStamp();
  if (owner == nullptr || options == nullptr) status_ = status::mva::kNullPointer;
}

Model::Model(const Model& other)
    : ConstructDestructMessage(other),
      owner_(other.owner_),
      type_(other.type_),
      header_(other.header_),
      dataset_name_(other.dataset_name_),
      own_options_(other.own_options_),
      options_(other.options_ == &other.own_options_ ? &own_options_ : other.options_),
      selector_(other.selector_),
      observations_(other.observations_),
      classes_(other.classes_),
      x_(std::make_unique<DataBlock>(*other.x_)),
      a0_(other.a0_),
      log_(other.log_),
      is_overrun_(other.is_overrun_),
      is_search_over_(other.is_search_over_),
      status_(other.status_) {}

Model::~Model() = default;

bool Model::HasFailed() const {
  return status_ != status::kOk && status_ != status::mva::kNotCompleted &&
         status_ != status::mva::kComponentAborted;
}

int Model::Compute() {
  if (!HasFailed() && !IsSearchOver()) Load();
  if (!HasFailed() && IsLoaded() && !x_->IsCentered()) Center();
  const int count_before = GetComponentCount();
  const int status = HasFailed() ? status_ : CalcComp();
  if (status != status::kOk) return status;
  const int count = GetComponentCount();
  if (count == count_before) return status::kOk;
  // A first component of a designed X is followed by a second one where the rules let it stand.
  const bool is_designed_start = options_->GetIsXDesigned() && count <= 1;
  const bool is_further_wanted = options_->GetIsRule()
                                     ? GetVerdict(GetA()) < EVerdict::kRule3 || is_designed_start
                                     : count < options_->GetNComp();
  return SetStatus(is_further_wanted ? status::mva::kNotCompleted : status::kOk);
}

int Model::LoadWS() {
  return Run([&] {
    Workset* const workset = owner_->GetCurrentWorkset();
    if (workset == nullptr) return status::mva::kWorksetNotAvailable;
    auto block = std::make_unique<DataBlock>(EBlock::kX);
    int status = block->Extract(*workset, type_, selector_);
    if (status != status::kOk) return status;
    std::unique_ptr<ObsInfo> observations(workset->ExtObsInfo(type_, selector_));
    if (observations == nullptr) return workset->GetStatus();
    std::unique_ptr<ClaInfo> classes(workset->ExtClaInfo(type_, selector_));
    if (classes == nullptr && workset->GetStatus() != status::kOk) return workset->GetStatus();
    status = CheckX(*block, *observations);
    if (status != status::kOk) return status;
    if (GetComponentCount() > 0 && !block->HasDataOf(*x_)) {
      return status::mva::kInconsistentWorksets;
    }
    x_ = std::move(block);
    observations_ = std::move(observations);
    classes_ = std::move(classes);
    dataset_name_.Set(workset->GetDataset().GetDSNam());
    return status::kOk;
  });
}

int Model::CheckX(DataBlock& block, const ObsInfo& observations) {
  if (block.GetRowCount() < kFewestObservations) return status::mva::kTooFewObservations;
  const MissingLimits limits{options_->GetMaxMisValVarLS(), options_->GetMaxMisValObsLS()};
  const int status = block.CheckMissing(observations, limits, *owner_, log_);
  if (status != status::kOk) return status;
  if (type_ != EModType::kNoVarianceCheck) block.CheckVariance(log_);
  return block.FindWeights(log_);
}

int Model::Center() {
  return Run([&] {
    if (!IsLoaded()) return status::mva::kDataNotAvailable;
    // Components that there are stay those of the centre that they were fitted about.
    if (GetComponentCount() == 0) a0_ = options_->GetIsCenter() ? 1 : 0;
    return x_->Center(a0_ != 0, log_);
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
    DeletePSResults();
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
  observations_.reset();
  classes_.reset();
  return status::kOk;
}

int Model::Save(short number) {
  SetModNum(number);
  const bool has_address = header_.address.View() != kNoAddress;
  const int status =
      has_address ? WriteListing(GetModAddr(), &Model::ShowAll) : status::dio::kFileNameMissing;
  if (status == status::kOk) {
    saved_address_ = header_.address;
  } else {
    log_.Write("Could not save model\n");
  }
  return status;
}

int Model::SaveRes(const char* path) {
  return path == nullptr ? status::mva::kNullPointer : WriteListing(path, &Model::ShowRes);
}

int Model::DeleteFiles() {
  const bool is_gone = saved_address_.IsEmpty() || RemoveFile(saved_address_.View());
  if (is_gone) saved_address_.Set("");
  return is_gone ? status::kOk : status::fio::kOther;
}

bool Model::IsLoaded() const {
  return x_->IsLoaded();
}

int Model::GetUsed(short asked) const {
  const int count = GetComponentCount();
  return asked <= 0 ? count : std::min<int>(asked, count);
}

}  // namespace zemva
