// Observations and variables added and deleted.
#include <memory>
#include <utility>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/data/dataset.h"
#include "zemva/data/selection.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

// How many of the numbers listed are still to be met, for each signed 16-bit number.
class NumberTally {
 public:
  void Add(short number) { ++counts_[Slot(number)]; }
  // True, and one fewer, when the number is still to be met.
  bool Take(short number) {
    const bool is_met = counts_[Slot(number)] > 0;
    if (is_met) --counts_[Slot(number)];
    return is_met;
  }

 private:
  static std::size_t Slot(short number) { return static_cast<unsigned short>(number); }

  std::vector<int> counts_ = std::vector<int>(std::size_t{1} << 16);
};

}  // namespace

// Brings matrix and tables to the size of the counts: what is missing is added, what is beyond is
// dropped.
int Dataset::MakeWhole() {
  return MemoryGuarded([&] {
    if (!matrix_) {
      auto matrix = std::make_unique<XFMatrix>(GetDSNam(), nobs_, nvar_, 0.0f);
      if (matrix->GetStatus() != status::kOk) return matrix->GetStatus();
      matrix_ = std::move(matrix);
    }
    int status = DropBeyondCounts();
    if (!obs_info_) obs_info_ = std::make_unique<ObsInfo>(GetDSNam());
    if (!var_info_) var_info_ = std::make_unique<VarInfo>(GetDSNam());
    while (status == status::kOk && obs_info_->GetNItm() < nobs_) {
      status = obs_info_->AddObs(static_cast<short>(obs_info_->GetNItm() + 1), "");
    }
    while (status == status::kOk && var_info_->GetNVar() < nvar_) {
      status = var_info_->AddVar(static_cast<short>(var_info_->GetNVar() + 1), "");
    }
    return status;
  });
}

short Dataset::AddObs(short onum, const char* name) {
  if (EnsureLoaded() != status::kOk) return 0;
  const float fill = matrix_ ? kMissing : 0.0f;
  const auto check = [&] {
    return nobs_ == kMaxItems ? status::mva::kIndexOutOfRange : status::kOk;
  };
  if (StartEdit(check) != status::kOk) return 0;
  obs_info_->NumberInOrder();
  int status = obs_info_->AddObs(onum, name);
  if (status == status::kOk) status = matrix_->ExpRows(1, fill);
  obs_info_->KeepFirst(status == status::kOk ? ++nobs_ : nobs_);
  return Changed(status) == status::kOk ? nobs_ : short{0};
}

short Dataset::AddVars(const char* const* names, int n) {
  if (EnsureLoaded() != status::kOk) return 0;
  const float fill = matrix_ ? kMissing : 0.0f;
  const auto check = [&] {
    if (n > kMaxItems - nvar_) return status::mva::kIndexOutOfRange;
    if (n < 0) return status::mva::kArgument;
    return names == nullptr ? status::mva::kNullPointer : status::kOk;
  };
  if (StartEdit(check) != status::kOk) return 0;
  int status = status::kOk;
  for (int k = 0; k < n && status == status::kOk; ++k) {
    status = var_info_->AddVar(static_cast<short>(nvar_ + k + 1), names[k]);
  }
  if (status == status::kOk) status = matrix_->ExpCols(n, fill);
  if (status == status::kOk) {
    nvar_ = static_cast<short>(nvar_ + n);
    var_info_->NumberInOrder();
  }
  var_info_->KeepFirst(nvar_);
  return Changed(status) == status::kOk ? nvar_ : short{0};
}

// The position of the observation with this number, of those without a row in the table too.
short Dataset::FindObs(short onum) const {
  const short found = obs_info_ ? obs_info_->GetOIx(onum) : short{0};
  if (found != 0) return found;
  const bool is_position = onum > (obs_info_ ? obs_info_->GetNItm() : 0) && onum <= nobs_;
  return is_position ? onum : short{0};
}

int Dataset::DelObs(short onum) {
  short i = 0;
  const auto check = [&] {
    i = FindObs(onum);
    if (i != 0) return status::kOk;
    return obs_info_ ? obs_info_->DelObs(onum) : status::mva::kNoSuchNumber;
  };
  if (StartEdit(check) != status::kOk) return status_;
  const int status = matrix_->DelRows(i, i);
  if (status == status::kOk) obs_info_->DelObsAt(i);
  nobs_ = obs_info_->GetNItm();
  return Changed(status);
}

int Dataset::DeleteExcludedObservations(const XI1Vector* selection) {
  const auto check = [&] {
    if (selection == nullptr) return status::mva::kNullPointer;
    return selection->NVal() == nobs_ ? status::kOk : status::mat::kDimension;
  };
  if (StartEdit(check) != status::kOk) return status_;
  const int status = matrix_->DelRows(selection);
  if (status == status::kOk) obs_info_->KeepItms(*selection);
  nobs_ = obs_info_->GetNItm();
  return Changed(status);
}

int Dataset::DelVar(short vnum) {
  const auto check = [&] { return nvar_ == 0 ? status::mva::kNoSuchNumber : status::kOk; };
  if (StartEdit(check) != status::kOk) return status_;
  const short j = var_info_->GetVIx(vnum);
  XI1Vector kept = SelectFirst(nvar_, nvar_);
  if (kept.GetStatus() != status::kOk) return status_ = kept.GetStatus();
  if (j != 0) kept[j] = kNotSelected;
  const int status = matrix_->DelCols(&kept);
  if (status == status::kOk) {
    var_info_->DelVar(j);
    --nvar_;
  }
  return Changed(status);
}

int Dataset::DelVars(const I2Vector* vnums) {
  XI1Vector kept = SelectFirst(0, 0);
  const auto check = [&] {
    if (vnums == nullptr) return status::mva::kNullPointer;
    return MemoryGuarded([&] { return SelectAllBut(*vnums, kept); });
  };
  if (StartEdit(check) != status::kOk) return status_;
  const int status = matrix_->DelCols(&kept);
  if (status == status::kOk) var_info_->KeepItms(kept);
  nvar_ = var_info_->GetNVar();
  return Changed(status);
}

// Selects the variables but one for each number listed. 8014 when there are fewer.
int Dataset::SelectAllBut(const I2Vector& vnums, XI1Vector& kept) const {
  NumberTally listed;
  for (const short vnum : vnums.Values()) listed.Add(vnum);
  kept = SelectIf(nvar_, [&](short j) { return !listed.Take(GetVarLabel(j).number); });
  if (kept.NVal() != nvar_) return status::mva::kMemory;
  const int deleted_count = kept.GetNEqual(kNotSelected);
  return deleted_count == vnums.NVal() ? status::kOk : status::mva::kNoSuchNumber;
}

}  // namespace zemva
