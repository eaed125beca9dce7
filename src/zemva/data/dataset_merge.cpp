// Observations or variables of one data set appended to another.
#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/data/dataset.h"
#include "zemva/data/names.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

// For each variable of one data set the position of its namesake in another, 0 where there is none.
struct NameMap {
  std::vector<short> positions;
  bool is_matched = false;  // by any variable

  // Namesakes are sought behind the one found last first, then from the beginning.
  NameMap(const std::vector<std::string_view>& to, const std::vector<std::string_view>& from) {
    const NameOrder order(from);
    positions.reserve(to.size());
    int cursor = 1;
    for (const std::string_view name : to) {
      const int found = order.Find(name, cursor);
      if (found != 0) cursor = found + 1;
      is_matched = is_matched || found != 0;
      positions.push_back(static_cast<short>(found));
    }
  }

  // Elements of rows are counted from 1; `from` has `width` of them.
  void CopyRow(const float* from, int width, float* to, bool fill) const {
    for (const short position : positions) {
      ++to;
      if (position >= 1 && position <= width) {
        *to = from[position];
      } else if (fill) {
        *to = kMissing;
      }
    }
  }
};

// What CopyObservationData keeps between calls.
std::optional<NameMap> kept_map;

// A variable table that others join under names of their own.
class JoinedVariables {
 public:
  JoinedVariables(const VarInfo& table, StreamWindow& window) : table_(table), window_(window) {
    for (const short j : PositionsUpTo(table.GetNVar())) taken_.emplace(table.GetVNam(j));
  }

  // Appends a variable. One whose repeated name cannot be repaired is left out.
  int Add(short number, const std::string& name) {
    if (!taken_.contains(name)) return AddAs(number, name);
    has_repeated_ = true;
    const std::string repaired = FindFree(name);
    if (ReportRepair(window_, name, repaired)) return AddAs(number, repaired);
    is_complete_ = false;
    return status::kOk;
  }

  VarInfo& GetTable() { return table_; }
  bool HasRepeated() const { return has_repeated_; }
  bool IsComplete() const { return is_complete_; }

 private:
  int AddAs(short number, const std::string& name) {
    taken_.insert(name);
    return table_.AddVar(number, name.c_str());
  }

  // The first of name_1, name_2 ... that is free.
  std::string FindFree(const std::string& name) {
    int& suffix = suffixes_[name];  // all before it are taken
    suffix = std::max(suffix, 1);
    while (taken_.contains(SuffixedName(name, suffix))) ++suffix;
    return SuffixedName(name, suffix);
  }

  VarInfo table_;
  StreamWindow& window_;
  std::unordered_set<std::string> taken_;
  std::unordered_map<std::string, int> suffixes_;
  bool has_repeated_ = false;
  bool is_complete_ = true;
};

// Loads a data set that is not loaded, until the end of its life.
class LoadedMeanwhile {
 public:
  explicit LoadedMeanwhile(Dataset& dataset) : dataset_(dataset), was_loaded_(dataset.IsLoaded()) {
    if (!was_loaded_) status_ = dataset_.Load();
  }
  LoadedMeanwhile(const LoadedMeanwhile&) = delete;
  LoadedMeanwhile& operator=(const LoadedMeanwhile&) = delete;
  ~LoadedMeanwhile() {
    if (!was_loaded_) dataset_.Unload();
  }

  int GetStatus() const { return status_; }

 private:
  Dataset& dataset_;
  bool was_loaded_;
  int status_ = status::kOk;
};

// Whether a table has an observation of some number.
class NumbersOf {
 public:
  // Keeps the table, which must not change meanwhile.
  explicit NumbersOf(const ObsInfo& table) : table_(table) {
    if (table.DoONumsAscend()) return;
    is_taken_.resize(std::size_t{1} << 16);
    for (const short i : PositionsUpTo(table.GetNItm())) is_taken_[Slot(table.GetONum(i))] = true;
  }

  bool Has(short number) const {
    return is_taken_.empty() ? table_.GetOIx(number) != 0 : is_taken_[Slot(number)];
  }

 private:
  static std::size_t Slot(short number) { return static_cast<unsigned short>(number); }

  const ObsInfo& table_;
  std::vector<bool> is_taken_;
};

// A table "ObsInfo" of n observations Obs_1, Obs_2 ... with the labels of an earlier one.
int NumberObservations(int n, const ObsInfo& labelled, ObsInfo& table) {
  ObsInfo numbered("ObsInfo");
  for (int i = 1; i <= 3; ++i) numbered.SetLabel(i, labelled.GetLabel(i));
  for (const short i : PositionsUpTo(n)) {
    const int status = numbered.AddObs(i, NumberedName("Obs_", i).c_str());
    if (status != status::kOk) return status;
  }
  table = std::move(numbered);
  return status::kOk;
}

// A table "VarInfo" of n variables Var_1, Var_2 ...
int NumberVariables(int n, VarInfo& table) {
  VarInfo numbered("VarInfo");
  for (const short j : PositionsUpTo(n)) {
    const int status = numbered.AddVar(j, NumberedName("Var_", j).c_str());
    if (status != status::kOk) return status;
  }
  table = std::move(numbered);
  return status::kOk;
}

}  // namespace

bool Dataset::CopyObservationData(Dataset* dst, int dst_row, Dataset* src, int src_row, bool fill) {
  if (dst == nullptr || src == nullptr) {
    kept_map.reset();
    return true;
  }
  if (dst->EnsureLoaded() != status::kOk || src->EnsureLoaded() != status::kOk) return false;
  const auto variable_count = static_cast<std::size_t>(dst->nvar_);
  if (!kept_map || kept_map->positions.size() != variable_count) {
    kept_map.reset();
    const int status = MemoryGuarded([&] {
      kept_map.emplace(dst->GetVarNames(), src->GetVarNames());
      return status::kOk;
    });
    if (status != status::kOk) return false;
  }
  float* to = dst->GetRow(dst_row);
  const float* from = src->GetRow(src_row);
  if (to != nullptr && from != nullptr && dst->CountsFitMatrix()) {
    kept_map->CopyRow(from, src->matrix_->NCol(), to, fill);
    dst->is_dirty_ = true;
  }
  return kept_map->is_matched;
}

// Runs `merge` while `other` is loaded, where `check` finds that the two go together.
template <typename Check, typename Merge>
int Dataset::MergeWith(Dataset* other, Check check, Merge merge) {
  if (const int status = EnsureLoaded(); status != status::kOk) return status_ = status;
  if (other == nullptr) return status_ = status::mva::kNullPointer;
  const LoadedMeanwhile loaded(*other);
  if (loaded.GetStatus() != status::kOk) return status_ = loaded.GetStatus();
  const auto check_both = [&] {
    return other->CountsFitMatrix() ? check() : status::dio::kIncompleteDataset;
  };
  if (StartEdit(check_both) != status::kOk) return status_;
  return status_ = MemoryGuarded(merge);
}

int Dataset::MergeObs(Dataset* other, bool renumber) {
  const auto check = [&] {
    return nobs_ + other->nobs_ > kMaxItems ? status::mva::kIndexOutOfRange : status::kOk;
  };
  return MergeWith(other, check, [&] { return MergeObsOf(*other, renumber); });
}

int Dataset::MergeObsOf(const Dataset& other, bool renumber) {
  const int old_count = nobs_;
  const int added_count = other.nobs_;
  const bool has_repeated = !renumber && ReportRepeatedNumbers(other);

  // All that can fail comes before the first change of this data set, or is undone.
  const NameMap map(GetVarNames(), other.GetVarNames());
  kept_map.reset();
  const bool has_nothing_to_match = nvar_ == 0 && other.nvar_ == 0;
  const bool is_added = added_count > 0 && (map.is_matched || has_nothing_to_match);
  const int count = is_added ? old_count + added_count : old_count;
  ObsInfo numbered("");
  int status = renumber ? NumberObservations(count, *obs_info_, numbered) : status::kOk;
  if (status == status::kOk && is_added) {
    status = matrix_->ExpRows(added_count, kMissing);
    if (status != status::kOk) return status;
    if (!renumber) status = AppendObsLabels(other);
    if (status != status::kOk) matrix_->DelRows(old_count + 1, count);
  }
  if (status != status::kOk) return status;

  for (const short i : PositionsUpTo(count - old_count)) {
    map.CopyRow((*other.matrix_)[i], other.nvar_, (*matrix_)[old_count + i], true);
  }
  nobs_ = static_cast<short>(count);
  is_dirty_ = is_dirty_ || nobs_ > old_count || has_repeated || renumber;
  if (renumber) *obs_info_ = std::move(numbered);
  for (const short i : PositionsUpTo(has_repeated ? nobs_ : 0)) obs_info_->SetONum(i, i);
  if (has_repeated) window_ << "Observations have been renumbered starting with 1.\n";
  if (renumber) window_ << "Observations have been reidentified starting with Obs_1.\n";
  return has_repeated ? status::mva::kDuplicateName : status::kOk;
}

// Tells which numbers of `other` this data set has too; false if there is none.
bool Dataset::ReportRepeatedNumbers(const Dataset& other) const {
  const NumbersOf taken(*obs_info_);
  bool has_repeated = false;
  for (const short i : PositionsUpTo(other.nobs_)) {
    const short number = other.GetObsLabel(i).number;
    if (!taken.Has(number)) continue;
    has_repeated = true;
    Listing(window_).Text("Duplicate observation number ").Number(number).Text(".").EndLine();
  }
  return has_repeated;
}

// Appends the observation table of `other`. The table is unchanged where that fails.
int Dataset::AppendObsLabels(const Dataset& other) {
  const bool was_modified = obs_info_->IsModified();
  for (const short i : PositionsUpTo(other.nobs_)) {
    const Label label = other.GetObsLabel(i);
    const int status = obs_info_->AddObs(label.number, label.name);
    if (status == status::kOk) continue;
    obs_info_->KeepFirst(nobs_);
    if (!was_modified) obs_info_->ClearIsModified();
    return status;
  }
  return status::kOk;
}

int Dataset::MergeVar(Dataset* other, bool rename) {
  const auto check = [&] {
    if (nobs_ != other->nobs_) return status::mva::kInconsistentDatasets;
    return nvar_ + other->nvar_ > kMaxItems ? status::mva::kIndexOutOfRange : status::kOk;
  };
  return MergeWith(other, check, [&] { return MergeVarOf(*other, rename); });
}

int Dataset::MergeVarOf(const Dataset& other, bool rename) {
  const int old_count = nvar_;
  const int added_count = other.nvar_;
  const int count = old_count + added_count;

  // All that can fail comes before the first change of this data set.
  JoinedVariables joined(*var_info_, window_);
  if (joined.GetTable().GetNVar() != old_count) return status::mva::kMemory;
  int status = status::kOk;
  for (const short j : PositionsUpTo(rename ? 0 : added_count)) {
    const Label label = other.GetVarLabel(j);
    status = joined.Add(static_cast<short>(old_count + label.number), label.name);
    if (status != status::kOk) return status;
  }
  const bool is_renamed = rename || !joined.IsComplete();
  if (is_renamed) status = NumberVariables(count, joined.GetTable());
  if (status == status::kOk) status = matrix_->ExpCols(added_count, kMissing);
  if (status != status::kOk) return status;

  for (const short i : PositionsUpTo(nobs_)) {
    std::copy_n((*other.matrix_)[i] + 1, added_count, (*matrix_)[i] + old_count + 1);
  }
  nvar_ = static_cast<short>(count);
  *var_info_ = std::move(joined.GetTable());
  is_dirty_ = is_dirty_ || added_count > 0 || is_renamed;
  if (is_renamed) {
    window_ << "Variables have been renamed starting with Var_1.\n";
    status = obs_info_->GetStatus();  // what the renaming has always answered
  }
  return joined.HasRepeated() ? status::mva::kDuplicateName : status;
}

}  // namespace zemva
