// Observations and variables added and deleted.
#include <memory>
#include <utility>
#include <vector>

#include "zemva/data/dataset.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/data/selection.h"
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

int Dataset::StartEdit() {
  const int status = EnsureLoaded();
  return status_ = status == status::kOk ? MakeWhole() : status;
}

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
    for (int i = obs_info_->GetNItm() + 1; i <= nobs_ && status == status::kOk; ++i) {
      status = obs_info_->AddObs(static_cast<short>(i), "");
    }
    for (int j = var_info_->GetNItm() + 1; j <= nvar_ && status == status::kOk; ++j) {
      status = var_info_->AddVar(static_cast<short>(j), "");
    }
    return status;
  });
}

short Dataset::AddObs(short onum, const char* name) {
  if (EnsureLoaded() != status::kOk) return 0;
  const float fill = matrix_ ? kMissing : 0.0f;
  if (StartEdit() != status::kOk) return 0;
  if (nobs_ == kMaxItems) {
    status_ = status::mva::kIndexOutOfRange;
    return 0;
  }
  for (int i = 1; i <= nobs_; ++i) obs_info_->SetINum(static_cast<short>(i), static_cast<short>(i));
  int status = obs_info_->AddObs(onum, name);
  if (status == status::kOk) status = matrix_->ExpRows(1, fill);
  obs_info_->KeepFirst(status == status::kOk ? ++nobs_ : nobs_);
  return Changed(status) == status::kOk ? nobs_ : short{0};
}

short Dataset::AddVars(const char* const* names, int n) {
  if (EnsureLoaded() != status::kOk) return 0;
  const float fill = matrix_ ? kMissing : 0.0f;
  if (StartEdit() != status::kOk) return 0;
  int status = status::kOk;
  if (names == nullptr) status = status::mva::kNullPointer;
  if (n < 0) status = status::mva::kArgument;
  if (n > kMaxItems - nvar_) status = status::mva::kIndexOutOfRange;
  for (int k = 0; k < n && status == status::kOk; ++k) {
    status = var_info_->AddVar(static_cast<short>(nvar_ + k + 1), names[k]);
  }
  if (status == status::kOk) status = matrix_->ExpCols(n, fill);
  if (status == status::kOk) nvar_ = static_cast<short>(nvar_ + n);
  var_info_->KeepFirst(nvar_);
  return Changed(status) == status::kOk ? nvar_ : short{0};
}

int Dataset::DelObs(short onum) {
  if (StartEdit() != status::kOk) return status_;
  const short i = obs_info_->GetOIx(onum);
  if (i == 0) return status_ = obs_info_->DelObs(onum);
  XI1Vector kept = SelectFirst(nobs_, nobs_);
  if (kept.GetStatus() != status::kOk) return status_ = kept.GetStatus();
  kept[i] = kNotSelected;
  return DeleteExcludedObservations(&kept);
}

int Dataset::DeleteExcludedObservations(const XI1Vector* selection) {
  if (StartEdit() != status::kOk) return status_;
  if (selection == nullptr) return status_ = status::mva::kNullPointer;
  const int status = matrix_->DelRows(selection);
  if (status == status::kOk) obs_info_->KeepItms(*selection);
  nobs_ = obs_info_->GetNItm();
  return Changed(status);
}

int Dataset::DelVar(short vnum) {
  if (StartEdit() != status::kOk) return status_;
  if (nvar_ == 0) return status_ = status::mva::kNoSuchNumber;
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
  if (StartEdit() != status::kOk) return status_;
  if (vnums == nullptr) return status_ = status::mva::kNullPointer;
  return Changed(MemoryGuarded([&] {
    NumberTally listed;
    for (const short vnum : vnums->Values()) listed.Add(vnum);
    XI1Vector kept = SelectFirst(nvar_, nvar_);
    if (kept.GetStatus() != status::kOk) return kept.GetStatus();
    int deleted_count = 0;
    for (int j = 1; j <= nvar_; ++j) {
      if (!listed.Take(GetVarLabel(j).number)) continue;
      kept[j] = kNotSelected;
      ++deleted_count;
    }
    if (deleted_count != vnums->NVal()) return status::mva::kNoSuchNumber;
    const int status = matrix_->DelCols(&kept);
    if (status == status::kOk) var_info_->KeepItms(kept);
    nvar_ = var_info_->GetNVar();
    return status;
  }));
}

}  // namespace zemva
