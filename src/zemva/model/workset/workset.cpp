#include "zemva/model/workset/workset.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/preprocess/number_set.h"
#include "zemva/model/workset/extraction.h"
#include "zemva/model/workset/workset_edit.h"

namespace zemva {
namespace {

bool IsRole(EVarRole role) {
  return role >= EVarRole::kExcluded && role <= EVarRole::kY;
}

// Whether every variable has a number of its own above 0.
bool HasOwnNumbers(const VarInfo& variables) {
  NumberSet used;
  for (int j = 1; j <= variables.GetNVar(); ++j) {
    const short vnum = variables.GetVNum(static_cast<short>(j));
    if (vnum < 1 || used.Has(vnum)) return false;
    used.Add(vnum);
  }
  return true;
}

void NumberByPosition(VarInfo& variables) {
  for (int j = 1; j <= variables.GetNVar(); ++j) {
    variables.SetVNum(static_cast<short>(j), static_cast<short>(j));
  }
}

}  // namespace

Workset::Workset(const char* name, Dataset& dataset, StreamWindow& window)
    : name_(name), dataset_(dataset), window_(window) {
  status_ = MemoryGuarded([&] { return Init(); });
}

int Workset::Init() {
  if (!dataset_.IsLoaded()) {
    const int status = dataset_.Load();
    if (status != status::kOk) return status;
  }
  ObsInfo observations = CompleteObsInfo(dataset_.GetOIPtr(), dataset_.GetNObsDS());
  VarInfo variables = CompleteVarInfo(dataset_.GetVIPtr(), dataset_.GetNVarDS());
  if (!HasOwnNumbers(variables)) {
    NumberByPosition(variables);
    window_ << "Variables have been renumbered starting with 1.\n";
  }
  ScaInfo scalings("ScaInfo");
  if (scalings.AddVars(variables) != status::kOk) return status::mva::kMemory;
  std::vector<Membership> memberships(static_cast<std::size_t>(observations.GetNItm()));
  std::vector<Usage> usages(static_cast<std::size_t>(variables.GetNVar()));

  variables_ = std::make_shared<VarInfo>(std::move(variables));
  observations_ = std::move(observations);
  memberships_ = std::move(memberships);
  usages_ = std::move(usages);
  scalings_ = std::move(scalings);
  return status::kOk;
}

short Workset::GetNObs() const {
  return static_cast<short>(std::ranges::count(memberships_, true, &Membership::is_in));
}

bool Workset::IsObsIn(short i) const {
  return IsObs(i) && memberships_[Slot(i)].is_in;
}

int Workset::SetIsObsIn(short i, bool is_in) {
  return Edit([&] {
    if (!IsObs(i)) return status::mva::kObservationNotAvailable;
    memberships_[Slot(i)].is_in = is_in;
    return status::kOk;
  });
}

char Workset::GetOClass(short i) const {
  return IsObs(i) ? memberships_[Slot(i)].o_class : kNoClass;
}

int Workset::SetOClass(short i, char c) {
  return Edit([&] {
    if (!IsObs(i)) return status::mva::kObservationNotAvailable;
    if (c < kNoClass || c > ClaInfo::kMaxClass) return status::mva::kIndexOutOfRange;
    memberships_[Slot(i)].o_class = c;
    return status::kOk;
  });
}

short Workset::GetNVar(EBlock block) const {
  const EVarRole role = block == EBlock::kX ? EVarRole::kX : EVarRole::kY;
  return static_cast<short>(std::ranges::count(usages_, role, &Usage::role));
}

Workset::Place Workset::Locate(int j) const {
  const int first_lag = variables_->GetNVar() + 1;
  const int first_term = first_lag + lags_.GetNItm();
  if (j < first_lag) return {*variables_, static_cast<short>(j)};
  if (j < first_term) return {lags_, static_cast<short>(j - first_lag + 1)};
  return {terms_, static_cast<short>(j - first_term + 1)};
}

template <typename Key>
short Workset::FindVar(Key key) const {
  int before = 0;
  for (const ItmInfo* table :
       std::initializer_list<const ItmInfo*>{variables_.get(), &lags_, &terms_}) {
    const short row = table->GetIx(key);
    if (row != 0) return static_cast<short>(before + row);
    before += table->GetNItm();
  }
  return 0;
}

short Workset::GetVIx(short vnum) const {
  return FindVar(vnum);
}

short Workset::GetVIx(const char* name) const {
  return FindVar(name);
}

short Workset::GetVNum(short j) const {
  const Place place = Locate(j);
  return place.table.GetINum(place.row);
}

const char* Workset::GetVNam(short j) const {
  const Place place = Locate(j);
  return place.table.GetINam(place.row);
}

EVarRole Workset::GetRole(short j) const {
  return IsVar(j) ? usages_[Slot(j)].role : EVarRole::kExcluded;
}

int Workset::SetRole(short j, EVarRole role) {
  return Edit([&] {
    if (!IsVar(j)) return status::mva::kVariableNotAvailable;
    if (!IsRole(role)) return status::mva::kIndexOutOfRange;
    usages_[Slot(j)].role = role;
    return status::kOk;
  });
}

}  // namespace zemva
