// Observations turned into variables and variables into observations.
#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/data/dataset.h"
#include "zemva/data/names.h"
#include "zemva/errors/memory_guard.h"
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

}  // namespace

int Dataset::Transpose(bool new_names) {
  if (StartEdit([] { return status::kOk; }) != status::kOk) return status_;
  return Changed(MemoryGuarded([&] { return TransposeAll(new_names); }));
}

int Dataset::TransposeAll(bool new_names) {
  std::vector<std::string> names;
  for (const short i : PositionsUpTo(nobs_)) names.emplace_back(GetObsLabel(i).name);
  bool has_repeated = false;
  if (new_names || !RepairNames(names, window_, has_repeated)) {
    for (std::size_t i = 0; i < names.size(); ++i) {
      names[i] = NumberedName("V", static_cast<int>(i + 1));
    }
    window_ << "New variable names are given starting with V1.\n";
  }

  VarInfo variables("VarInfo");
  ObsInfo observations("ObsInfo");
  for (const short i : PositionsUpTo(nobs_)) {
    const int status = variables.AddVar(i, names[static_cast<std::size_t>(i - 1)].c_str());
    if (status != status::kOk) return status;
  }
  for (const short j : PositionsUpTo(nvar_)) {
    const int status = observations.AddObs(j, GetVarLabel(j).name);
    if (status != status::kOk) return status;
  }
  if (const int status = matrix_->Transp(); status != status::kOk) return status;
  *var_info_ = std::move(variables);
  *obs_info_ = std::move(observations);
  std::swap(nobs_, nvar_);
  return has_repeated ? status::mva::kDuplicateName : status::kOk;
}

}  // namespace zemva
