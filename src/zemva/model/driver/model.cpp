#include "zemva/model/driver/model.h"

#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "zemva/base/paths.h"
#include "zemva/base/time_stamp.h"
#include "zemva/errors/status.h"
#include "zemva/model/block/data_block.h"
#include "zemva/model/workset/workset.h"

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
      y_(other.y_ == nullptr ? nullptr : std::make_unique<DataBlock>(*other.y_)),
      components_(other.components_),
      workset_results_(other.workset_results_),
      predictions_(other.predictions_),
      a0_(other.a0_),
      log_(other.log_),
      is_overrun_(other.is_overrun_),
      is_search_over_(other.is_search_over_),
      status_(other.status_) {}

Model::~Model() = default;

void Model::AddResponses() {
  y_ = std::make_unique<DataBlock>(EBlock::kY);
}

bool Model::HasFailed() const {
  return status_ != status::kOk && status_ != status::mva::kNotCompleted &&
         status_ != status::mva::kComponentAborted;
}

int Model::Compute() {
  if (!HasFailed() && !is_search_over_) Load();
  if (!HasFailed() && IsLoaded() && !x_->IsCentred()) Center();
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
    RowTables rows;
    std::vector<std::unique_ptr<DataBlock>> loaded;
    for (const DataBlock* const block : GetBlocks()) {
      loaded.push_back(std::make_unique<DataBlock>(block->GetBlock()));
      int status = loaded.back()->Extract(*workset, type_, selector_, log_);
      if (status == status::kOk) status = ExtractRowTables(*workset, rows);
      if (status == status::kOk) status = Check(*loaded.back(), *rows.observations);
      if (status != status::kOk) return status;
      if (GetComponentCount() > 0 && !loaded.back()->HasDataOf(*block)) {
        return status::mva::kInconsistentWorksets;
      }
    }
    x_ = std::move(loaded.front());
    if (y_ != nullptr) y_ = std::move(loaded.back());
    observations_ = std::move(rows.observations);
    classes_ = std::move(rows.classes);
    dataset_name_.Set(workset->GetDataset().GetDSNam());
    return status::kOk;
  });
}

int Model::ExtractRowTables(Workset& workset, RowTables& rows) const {
  if (rows.observations != nullptr) return status::kOk;
  rows.observations.reset(workset.ExtObsInfo(type_, selector_));
  if (rows.observations == nullptr) return workset.GetStatus();
  // Null without a code stands for observations without classes.
  rows.classes.reset(workset.ExtClaInfo(type_, selector_));
  return rows.classes == nullptr ? workset.GetStatus() : status::kOk;
}

int Model::Check(DataBlock& block, const ObsInfo& observations) {
  if (block.GetRowCount() < kFewestObservations) return status::mva::kTooFewObservations;
  const MissingLimits limits{options_->GetMaxMisValVarLS(), options_->GetMaxMisValObsLS()};
  int status = block.CheckMissing(observations, limits, *owner_, log_);
  if (status != status::kOk) return status;
  if (block.GetBlock() == EBlock::kY) {
    status = block.CheckConstants(log_);
  } else if (type_ != EModType::kNoVarianceCheck) {
    block.CheckVariance(log_);
  }
  return status == status::kOk ? block.FindWeights(log_) : status;
}

int Model::Center() {
  return Run([&] {
    if (!IsLoaded()) return status::mva::kDataNotAvailable;
    // Components that there are stay those of the centre that they were fitted about.
    const int a0 = GetComponentCount() > 0 ? a0_ : options_->GetIsCenter() ? 1 : 0;
    std::vector<std::unique_ptr<DataBlock>> centred;
    for (const DataBlock* const block : GetBlocks()) {
      const int status = block->MakeCentred(a0 != 0, log_, centred.emplace_back());
      if (status != status::kOk) return status;
      // A model that was unloaded has them already.
      TakeOffComponents(*centred.back());
    }
    x_ = std::move(centred.front());
    if (y_ != nullptr) y_ = std::move(centred.back());
    a0_ = a0;
    return status::kOk;
  });
}

int Model::RSEqn(StreamWindow& /*window*/) {
  return status::mva::kFunctionNotAvailable;
}

int Model::Unload() {
  for (DataBlock* const block : GetBlocks()) block->Unload();
  observations_.reset();
  classes_.reset();
  return status::kOk;
}

void Model::SetModAddr(const char* address) {
  // A path that was cut would name another file.
  const bool fits = address != nullptr && std::strlen(address) <= header_.address.kCapacity;
  header_.address.Set(fits ? address : nullptr);
}

int Model::Save(short number) {
  SetModNum(number);
  const bool has_address = header_.address.View() != kNoAddress;
  const int status = has_address ? Store() : status::dio::kFileNameMissing;
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

}  // namespace zemva
