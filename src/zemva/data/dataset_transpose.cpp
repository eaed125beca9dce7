// Observations turned into variables and variables into observations.
#include <algorithm>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zemva/data/dataset.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/data/names.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

constexpr int kRepairPasses = 6;

bool AreUnique(const NameOrder& order) {
  const auto entries = order.GetEntries();
  return std::ranges::adjacent_find(entries, {}, &NameOrder::Entry::name) == entries.end();
}

// Gives the 2nd, 3rd ... of the names that are equal the suffix _2, _3 ... False, with the names as
// they were, when one becomes too long.
bool SuffixRepeated(const NameOrder& order, std::vector<std::string>& names, StreamWindow& window) {
  std::vector<std::string> repaired = names;
  const auto entries = order.GetEntries();
  int k = 1;
  for (std::size_t e = 1; e < entries.size(); ++e) {
    const std::string_view name = entries[e].name;
    k = name == entries[e - 1].name ? k + 1 : 1;
    if (k == 1) continue;
    std::string suffixed = SuffixedName(name, k);
    if (!ReportRepair(window, name, suffixed)) return false;
    repaired[static_cast<std::size_t>(entries[e].position - 1)] = std::move(suffixed);
  }
  names = std::move(repaired);
  return true;
}

// Makes the names unique. False when that fails; a suffixed name may meet another one, so that it
// takes several passes, but there are only so many.
bool RepairNames(std::vector<std::string>& names, StreamWindow& window, bool& has_repeated) {
  for (int pass = 1;; ++pass) {
    const std::vector<std::string_view> views(names.begin(), names.end());
    const NameOrder order(views);
    if (AreUnique(order)) return true;
    has_repeated = true;
    if (pass > kRepairPasses || !SuffixRepeated(order, names, window)) return false;
  }
}

std::unique_ptr<XFMatrix> Transposed(const XFMatrix& matrix) {
  // A tile of both matrices fits the cache.
  constexpr int kTile = 64;
  auto transposed =
      std::make_unique<XFMatrix>(matrix.GetName(), matrix.NCol(), matrix.NRow(), Unfilled{});
  if (transposed->GetStatus() != status::kOk) return nullptr;
  for (int first_row = 1; first_row <= matrix.NRow(); first_row += kTile) {
    const int last_row = std::min(first_row + kTile - 1, matrix.NRow());
    for (int j = 1; j <= matrix.NCol(); ++j) {
      float* to = (*transposed)[j];
      for (int i = first_row; i <= last_row; ++i) to[i] = matrix[i][j];
    }
  }
  transposed->SetActValInfo();
  return transposed;
}

}  // namespace

int Dataset::Transpose(bool new_names) {
  if (StartEdit() != status::kOk) return status_;
  return Changed(MemoryGuarded([&] { return TransposeAll(new_names); }));
}

int Dataset::TransposeAll(bool new_names) {
  std::vector<std::string> names;
  for (int i = 1; i <= nobs_; ++i) names.emplace_back(GetObsLabel(i).name);
  bool has_repeated = false;
  if (new_names || !RepairNames(names, window_, has_repeated)) {
    for (std::size_t i = 0; i < names.size(); ++i) {
      names[i] = NumberedName("V", static_cast<int>(i + 1));
    }
    window_ << "New variable names are given starting with V1.\n";
  }

  VarInfo variables("VarInfo");
  ObsInfo observations("ObsInfo");
  int status = status::kOk;
  for (int i = 1; i <= nobs_ && status == status::kOk; ++i) {
    status =
        variables.AddVar(static_cast<short>(i), names[static_cast<std::size_t>(i - 1)].c_str());
  }
  for (int j = 1; j <= nvar_ && status == status::kOk; ++j) {
    status = observations.AddObs(static_cast<short>(j), GetVarLabel(j).name);
  }
  if (status != status::kOk) return status;
  auto transposed = Transposed(*matrix_);
  if (!transposed) return status::mva::kMemory;

  matrix_ = std::move(transposed);
  *var_info_ = std::move(variables);
  *obs_info_ = std::move(observations);
  std::swap(nobs_, nvar_);
  return has_repeated ? status::mva::kDuplicateName : status::kOk;
}

}  // namespace zemva
