#include "zemva/model/workset/predset.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "zemva/base/positions.h"
#include "zemva/data/names.h"
#include "zemva/data/selection.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"
#include "zemva/model/workset/extraction.h"
#include "zemva/model/workset/preparation.h"
#include "zemva/model/workset/set_vectors.h"
#include "zemva/vectors/vec_delivery.h"

namespace zemva {
namespace {

NameOrder OrderOfNames(const VarInfo& variables) {
  std::vector<std::string_view> names;
  for (int j = 1; j <= variables.GetNVar(); ++j) {
    names.emplace_back(variables.GetVNam(static_cast<short>(j)));
  }
  return NameOrder(names);
}

}  // namespace

Predset::Predset(const char* name, Dataset& dataset, const Workset& workset)
    : name_(name), dataset_(dataset), workset_(&workset), workset_variables_(*workset.variables_) {
  status_ = MemoryGuarded([&] { return Init(); });
}

Predset::Predset(const char* name, Dataset& dataset, const VarInfo& variables)
    : name_(name), dataset_(dataset), workset_(nullptr), workset_variables_(variables) {
  status_ = MemoryGuarded([&] { return Init(); });
}

bool Predset::IsOfWorkset(const ObsInfo& own, const VarInfo& variables) const {
  return workset_ != nullptr && &dataset_ == &workset_->GetDataset() &&
         own.GetNItm() == workset_->GetNObsDS() && variables.GetNVar() == workset_->GetNVarDS();
}

int Predset::Init() {
  if (workset_variables_.GetStatus() != status::kOk) return workset_variables_.GetStatus();
  if (!dataset_.IsLoaded()) {
    const int status = dataset_.Load();
    if (status != status::kOk) return status;
  }
  ObsInfo observations = CompleteObsInfo(dataset_.GetOIPtr(), dataset_.GetNObsDS());
  VarInfo variables = CompleteVarInfo(dataset_.GetVIPtr(), dataset_.GetNVarDS());
  is_of_workset_ = IsOfWorkset(observations, variables);
  columns_ = is_of_workset_ ? Identity(variables.GetNVar()) : MatchVars(variables);
  is_in_.assign(static_cast<std::size_t>(observations.GetNItm()), true);
  // Without observations the rest is not used: they come last.
  variables_ = std::move(variables);
  observations_ = std::move(observations);
  return status::kOk;
}

std::vector<short> Predset::MatchVars(const VarInfo& own) const {
  std::vector<short> columns(static_cast<std::size_t>(workset_variables_.GetNVar()), 0);
  const NameOrder wanted_names = OrderOfNames(workset_variables_);
  const NameOrder own_names = OrderOfNames(own);
  // Both are in order, so that equal names meet, each pair once.
  auto wanted = wanted_names.GetEntries().begin();
  auto found = own_names.GetEntries().begin();
  while (wanted != wanted_names.GetEntries().end() && found != own_names.GetEntries().end()) {
    const auto order = wanted->name.compare(found->name);
    if (order == 0 && !wanted->name.empty()) {
      columns[Slot(wanted->position)] = static_cast<short>(found->position);
    }
    if (order <= 0) ++wanted;
    if (order >= 0) ++found;
  }
  return columns;
}

bool Predset::IsFor(const Preparation& preparation) const {
  if (preparation.workset != nullptr) return preparation.workset == workset_;
  const VarInfo& variables = *preparation.dataset_variables;
  if (variables.GetNVar() != workset_variables_.GetNVar()) return false;
  for (const short j : PositionsUpTo(variables.GetNVar())) {
    const std::string_view name = variables.GetVNam(j);
    const bool is_same = variables.GetVNum(j) == workset_variables_.GetVNum(j) &&
                         name == workset_variables_.GetVNam(j);
    if (!is_same) return false;
  }
  return true;
}

short Predset::GetNObs() const {
  return static_cast<short>(std::ranges::count(is_in_, true));
}

bool Predset::IsObsIn(short i) const {
  return IsObs(i) && is_in_[Slot(i)];
}

int Predset::SetIsObsIn(short i, bool is_in) {
  if (!IsObs(i)) return status_ = status::mva::kObservationNotAvailable;
  is_in_[Slot(i)] = is_in;
  return status_ = status::kOk;
}

XI1Vector Predset::SelectObs() const {
  return SelectIf(GetNObsDS(), [&](short i) { return IsObsIn(i); });
}

DataSource Predset::MakeSource() const {
  return {dataset_, observations_, variables_, Positions(SelectObs()), columns_};
}

SetVectors Predset::MakeVectors() const {
  return SetVectors(CEDatType::Predset, number_, *workset_, MakeSource());
}

int Predset::GetXFVector(const VecSpec* spec, XFVector*& vector) {
  vector = nullptr;
  if (workset_ == nullptr) return status_ = status::mva::kWorksetNotAvailable;
  return status_ = MemoryGuarded([&] { return DeliverXFVector(MakeVectors(), spec, vector); });
}

int Predset::GetXSVector(const VecSpec* spec, XSVector*& vector, bool is_by_number) {
  vector = nullptr;
  if (workset_ == nullptr) return status_ = status::mva::kWorksetNotAvailable;
  return status_ = MemoryGuarded(
             [&] { return DeliverXSVector(MakeVectors(), spec, vector, is_by_number); });
}

// Tells of the sources that are not there.
int Predset::CheckSources(const Preparation& preparation, StreamWindow& window) const {
  const std::vector<short>& sources = preparation.plan->GetSources();
  const auto is_there = [&](short j) { return columns_[Slot(j)] != 0; };
  if (preparation.block == EBlock::kX && std::ranges::none_of(sources, is_there)) {
    return status::mva::kNoCommonElements;
  }
  for (const short j : sources) {
    if (is_there(j)) continue;
    Listing(window)
        .Text("Variable ")
        .Text(workset_variables_.GetVNam(j))
        .Text(" is not in the data set, its values are missing.")
        .EndLine();
  }
  return status::kOk;
}

int Predset::MakeClassMatrix(const VarInfo& classes, std::unique_ptr<XFMatrix>& matrix) const {
  std::vector<char> row_classes;
  for (const short i : Positions(SelectObs())) {
    row_classes.push_back(is_of_workset_ ? workset_->GetOClass(i) : Workset::kNoClass);
  }
  return Workset::MakeClassMatrix(row_classes, classes, matrix);
}

int Predset::MakeMatrix(const Preparation& preparation, StreamWindow& window,
                        std::unique_ptr<XFMatrix>& matrix) const {
  if (!IsFor(preparation)) return status::mva::kInconsistentWorksets;
  if (GetNObs() == 0) return status::mva::kTooFewObservations;
  if (preparation.plan == nullptr) return MakeClassMatrix(*preparation.variables, matrix);
  const int status = CheckSources(preparation, window);
  if (status != status::kOk) return status;
  return ExtractColumns(*preparation.plan, MakeSource(), window, matrix);
}

XFMatrix* Predset::ExtMatrix(const Preparation& preparation, StreamWindow& window) {
  return HandOver<XFMatrix>(status_,
                            [&](auto& matrix) { return MakeMatrix(preparation, window, matrix); });
}

ObsInfo* Predset::ExtObsInfo() {
  return HandOver<ObsInfo>(status_, [&](auto& table) {
    const XI1Vector selection = SelectObs();
    table = Owned(observations_.ExtObsInfo(&selection));
    return status::kOk;
  });
}

I2Vector* Predset::ExtObsIx() {
  return HandOver<I2Vector>(status_, [&](auto& positions) {
    const std::vector<short> rows = Positions(SelectObs());
    positions = std::make_unique<I2Vector>(static_cast<int>(rows.size()), short{0});
    if (positions->GetStatus() != status::kOk) return status::mva::kMemory;
    std::ranges::copy(rows, positions->Values().begin());
    return status::kOk;
  });
}

I1Vector* Predset::ExtMembership(const Preparation& preparation) {
  return HandOver<I1Vector>(status_, [&](auto& memberships) {
    if (!IsFor(preparation)) return status::mva::kInconsistentWorksets;
    const std::vector<short> rows = Positions(SelectObs());
    memberships = std::make_unique<I1Vector>(static_cast<int>(rows.size()), kNotSelected);
    if (memberships->GetStatus() != status::kOk) return status::mva::kMemory;
    if (!is_of_workset_) return status::kOk;
    std::ranges::transform(rows, memberships->Values().begin(),
                           [&](short i) { return preparation.members.GetElement(i); });
    return status::kOk;
  });
}

}  // namespace zemva
