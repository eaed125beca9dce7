#include "zemva/project/project.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

#include "zemva/base/positions.h"
#include "zemva/data/names.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

constexpr short kMostOfAKind = std::numeric_limits<short>::max();

// What stands under a number, null where there is nothing.
template <typename Map>
auto* Find(Map& all, short number) {
  const auto found = all.find(number);
  return found == all.end() ? nullptr : &found->second;
}

// One more than the last, or where that is the most there can be, the smallest that is free.
template <typename Map>
short NextNumber(const Map& all, short most) {
  if (all.empty()) return 1;
  if (all.rbegin()->first < most) return static_cast<short>(all.rbegin()->first + 1);
  short number = 1;
  while (all.contains(number)) ++number;
  return number;
}

// The number of components after which rounding alone is left of X, 0 where there is none. What is
// fitted to that is noise, whether or not the fit ends on a code.
short FindRank(const Model& model) {
  constexpr float kRounding = 1e-12f;
  for (const short a : PositionsUpTo(model.GetA())) {
    if (model.GetSSX(static_cast<char>(a)) <= kRounding * model.GetSSX(0)) return a;
  }
  return 0;
}

}  // namespace

Project::Project(const char* name, StreamWindow& window)
    : name_(name), window_(window), options_(true) {}

Project::~Project() = default;

template <typename Owned, typename Make>
short Project::Add(Numbered<Owned>& all, short most, Make make, short wanted) {
  short number = 0;
  SetStatus(MemoryGuarded([&] {
    if (all.size() >= static_cast<std::size_t>(most)) return status::mva::kTooManyModels;
    Owned owned{};
    const bool is_free = wanted > 0 && wanted <= most && !all.contains(wanted);
    const short free = is_free ? wanted : NextNumber(all, most);
    const int status = make(free, owned);
    if (status != status::kOk) return status;
    all.emplace(free, std::move(owned));
    number = free;
    return status::kOk;
  }));
  return status_ == status::kOk ? number : short{0};
}

short Project::AddDataset(Dataset* dataset, short wanted) {
  const bool is_here =
      std::ranges::any_of(datasets_, [&](const auto& own) { return own.second.get() == dataset; });
  if (is_here) return SetStatus(status::mva::kAlreadyInserted), short{0};
  std::unique_ptr<Dataset> taken(dataset);
  return Add(
      datasets_, kMostOfAKind,
      [&](short free, std::unique_ptr<Dataset>& owned) {
        if (taken == nullptr) return status::mva::kNullPointer;
        if (taken->GetDSNum() != free) taken->SetDSNum(free);
        owned = std::move(taken);
        return status::kOk;
      },
      wanted);
}

short Project::AddWorkset(short dataset, const char* name, short wanted) {
  const short number = Add(
      worksets_, kMostOfAKind,
      [&](short free, std::unique_ptr<Workset>& owned) {
        Dataset* const source = GetDataset(dataset);
        if (source == nullptr) return status::mva::kDataNotAvailable;
        owned = std::make_unique<Workset>(name, *source, window_);
        owned->SetWSNum(free);
        return owned->GetStatus();
      },
      wanted);
  if (number != 0) current_workset_ = number;
  return number;
}

short Project::AddPredset(short dataset, short workset, const char* name, short wanted) {
  const short number = Add(
      predsets_, kMostOfAKind,
      [&](short free, PredsetOfWorkset& owned) {
        Dataset* const source = GetDataset(dataset);
        owned.workset = GetWorkset(workset);
        if (source == nullptr) return status::mva::kDataNotAvailable;
        if (owned.workset == nullptr) return status::mva::kWorksetNotAvailable;
        owned.predset = std::make_unique<Predset>(name, *source, *owned.workset);
        owned.predset->SetPSNum(free);
        return owned.predset->GetStatus();
      },
      wanted);
  if (number != 0) current_predset_ = number;
  return number;
}

short Project::AddModel(short workset, EModType type, char selector) {
  Workset* const source = GetWorkset(workset);
  const short number =
      Add(models_, kMaxModels, [&](short free, std::unique_ptr<WorksetModel>& owned) {
        if (source == nullptr) return status::mva::kWorksetNotAvailable;
        owned = std::make_unique<WorksetModel>(*this, *source, type, selector, window_);
        if (owned->GetStatus() != status::kOk) return owned->GetStatus();
        owned->GetModel()->SetModNum(free);
        owned->GetModel()->SetModNam(NumberedName("M", free).c_str());
        return status::kOk;
      });
  return number == 0 ? short{0} : ListModel(number);
}

short Project::AddModel(short workset, const char* path) {
  Workset* const source = GetWorkset(workset);
  const auto make = [&](short free, std::unique_ptr<WorksetModel>& owned) {
    if (source == nullptr) return status::mva::kWorksetNotAvailable;
    owned = std::make_unique<WorksetModel>(*this, *source, path, window_);
    if (owned->GetStatus() == status::kOk) owned->GetModel()->SetModNum(free);
    return owned->GetStatus();
  };
  const short number = Add(models_, kMaxModels, make, NumberOfFile(path));
  return number == 0 ? short{0} : ListModel(number);
}

// Lists a model that was added; the number, or 0 where it had to be dropped again.
short Project::ListModel(short number) {
  WorksetModel* const added = GetModel(number);
  const char* const name = added->GetModel()->GetModNam();
  if (SetStatus(models_info_.AddWM(number, name, added)) != status::kOk) {
    models_.erase(number);
    return 0;
  }
  added->GetWorkset().SetIsFrozen(true);
  return number;
}

Dataset* Project::GetDataset(short number) const {
  const auto* const found = Find(datasets_, number);
  return found == nullptr ? nullptr : found->get();
}

Workset* Project::GetWorkset(short number) const {
  const auto* const found = Find(worksets_, number);
  return found == nullptr ? nullptr : found->get();
}

Predset* Project::GetPredset(short number) const {
  const auto* const found = Find(predsets_, number);
  return found == nullptr ? nullptr : found->predset.get();
}

WorksetModel* Project::GetModel(short number) const {
  const auto* const found = Find(models_, number);
  return found == nullptr ? nullptr : found->get();
}

int Project::SetCurrentWorkset(short number) {
  if (GetWorkset(number) == nullptr) return SetStatus(status::mva::kWorksetNotAvailable);
  current_workset_ = number;
  return SetStatus(status::kOk);
}

int Project::SetCurrentPredset(short number) {
  if (GetPredset(number) == nullptr) return SetStatus(status::mva::kPredsetNotAvailable);
  current_predset_ = number;
  return SetStatus(status::kOk);
}

Predset* Project::GetCurrentPredset() {
  const auto* const found = Find(predsets_, current_predset_);
  const bool is_of_current = found != nullptr && found->workset == GetCurrentWorkset();
  return is_of_current ? found->predset.get() : nullptr;
}

template <typename Request>
int Project::AskObject(const VecSpec* spec, Request ask) {
  if (spec == nullptr) return SetStatus(status::mva::kNullPointer);
  const auto find = [&](const auto& all, int none, auto ask_one) {
    const auto found = spec->GetDNum() != 0 ? all.find(spec->GetDNum())
                       : all.empty()        ? all.end()
                                            : std::prev(all.end());
    return SetStatus(found == all.end() ? none : ask_one(found->second));
  };
  const auto ask_owned = [&](const auto& owned) { return ask(*owned); };
  const CEDatType::EDT kind = spec->GetDType() == CEDatType::Undefined
                                  ? CEVecType::GetEDT(spec->GetVType())
                                  : spec->GetDType();
  switch (kind) {
    case CEDatType::Dataset:
      return find(datasets_, status::mva::kDataNotAvailable, ask_owned);
    case CEDatType::Workset:
      return find(worksets_, status::mva::kWorksetNotAvailable, ask_owned);
    case CEDatType::Predset:
      return find(predsets_, status::mva::kPredsetNotAvailable,
                  [&](const PredsetOfWorkset& owned) { return ask(*owned.predset); });
    case CEDatType::Model:
      return find(models_, status::mva::kModelNotAvailable,
                  [&](const auto& owned) { return ask(*owned->GetModel()); });
    case CEDatType::Undefined:
      break;
  }
  return SetStatus(status::mva::kUnknownVectorType);
}

int Project::GetXFVector(const VecSpec* spec, XFVector*& vector) {
  vector = nullptr;
  return AskObject(spec, [&](auto& object) { return object.GetXFVector(spec, vector); });
}

int Project::GetXSVector(const VecSpec* spec, XSVector*& vector, bool is_by_number) {
  vector = nullptr;
  return AskObject(spec,
                   [&](auto& object) { return object.GetXSVector(spec, vector, is_by_number); });
}

int Project::Compute(short number) {
  WorksetModel* const workset_model = GetModel(number);
  if (workset_model == nullptr) return SetStatus(status::mva::kModelNotAvailable);
  Model& model = workset_model->Restart();
  const ModOpt& options = workset_model->GetModOpt();
  const bool has_all =
      !options.GetIsRule() && options.GetNComp() > 0 && model.GetA() >= options.GetNComp();
  int status = has_all ? status::kOk : model.Compute();
  while (status == status::mva::kNotCompleted) status = model.Compute();
  if (status == status::mva::kComponentAborted) status = status::kOk;
  if (const short rank = FindRank(model); rank != 0) {
    if (rank < model.GetA() || model.HasFailed()) model.Reset(rank);
    status = status::kOk;
  }
  // With the components that the options say, which ExecLS of a number would set.
  if (status == status::kOk && model.GetA() > 0) status = model.ExecLS(nullptr);
  return SetStatus(status);
}

int Project::ExecPS(short number, short predset) {
  WorksetModel* const workset_model = GetModel(number);
  const PredsetOfWorkset* const executed = Find(predsets_, predset);
  if (workset_model == nullptr) return SetStatus(status::mva::kModelNotAvailable);
  if (executed == nullptr) return SetStatus(status::mva::kPredsetNotAvailable);
  if (executed->workset != &workset_model->GetWorkset()) {
    return SetStatus(status::mva::kInconsistentWorksets);
  }
  return SetStatus(workset_model->ExecPS(*executed->predset));
}

bool Project::HasModels(const Workset& workset) const {
  return std::ranges::any_of(
      models_, [&](const auto& model) { return &model.second->GetWorkset() == &workset; });
}

int Project::DelModel(short number) {
  const WorksetModel* const deleted = GetModel(number);
  if (deleted == nullptr) return SetStatus(status::mva::kModelNotAvailable);
  Workset& workset = deleted->GetWorkset();
  models_info_.DelWM(models_info_.GetWMIx(number));
  models_.erase(number);
  workset.SetIsFrozen(HasModels(workset));
  return SetStatus(status::kOk);
}

int Project::DelPSResults(short number) {
  WorksetModel* const workset_model = GetModel(number);
  if (workset_model == nullptr) return SetStatus(status::mva::kModelNotAvailable);
  return SetStatus(workset_model->DeletePSResults());
}

bool Project::HasResults(const Predset& predset) const {
  return std::ranges::any_of(
      models_, [&](const auto& model) { return model.second->GetPredset() == &predset; });
}

int Project::DelPredset(short number) {
  const Predset* const deleted = GetPredset(number);
  if (deleted == nullptr) return SetStatus(status::mva::kPredsetNotAvailable);
  if (HasResults(*deleted)) return SetStatus(status::mva::kDeletePredsetFirst);
  predsets_.erase(number);
  return SetStatus(status::kOk);
}

int Project::DelWorkset(short number) {
  const Workset* const deleted = GetWorkset(number);
  if (deleted == nullptr) return SetStatus(status::mva::kWorksetNotAvailable);
  if (HasModels(*deleted)) return SetStatus(status::mva::kDeleteModelsFirst);
  std::erase_if(predsets_, [&](const auto& predset) { return predset.second.workset == deleted; });
  worksets_.erase(number);
  return SetStatus(status::kOk);
}

int Project::DelDataset(short number) {
  const Dataset* const deleted = GetDataset(number);
  if (deleted == nullptr) return SetStatus(status::mva::kDataNotAvailable);
  const bool has_worksets = std::ranges::any_of(
      worksets_, [&](const auto& workset) { return &workset.second->GetDataset() == deleted; });
  if (has_worksets) return SetStatus(status::mva::kWorksetGenerated);
  const auto is_of_deleted = [&](const auto& predset) {
    return &predset.second.predset->GetDataset() == deleted;
  };
  const bool has_results = std::ranges::any_of(predsets_, [&](const auto& predset) {
    return is_of_deleted(predset) && HasResults(*predset.second.predset);
  });
  if (has_results) return SetStatus(status::mva::kDeletePredsetFirst);
  std::erase_if(predsets_, is_of_deleted);
  datasets_.erase(number);
  return SetStatus(status::kOk);
}

}  // namespace zemva
