#include "zemva/model/pc/cross_validation.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <string>

namespace zemva {

short GetGroupCount(short asked, int column_count, ModelLog* log) {
  int count = asked;
  while (std::gcd(count, column_count) != 1) {
    if (++count > std::numeric_limits<short>::max()) return 0;
    if (log == nullptr) continue;
    log->Write("NCV is incremented to " + std::to_string(count) +
               " to make all var.s participate in each CV round.\n");
  }
  return static_cast<short>(count);
}

int GetRequiredCount(int column_count) {
  constexpr std::array<int, 5> kCubes = {27, 64, 125, 216, 343};
  return 3 + static_cast<int>(std::ranges::upper_bound(kCubes, column_count) - kCubes.begin());
}

GroupLabels::GroupLabels(int group_count, std::span<const char> takes_part)
    : group_count_(group_count), labels_(takes_part.size()) {
  for (std::size_t k = 0; k < takes_part.size(); ++k) {
    if (takes_part[k] != 0) members_.push_back(k);
  }
  const auto groups = static_cast<std::size_t>(group_count);
  for (std::size_t j = 0; j < members_.size(); ++j) {
    // Position 1 + j G is that of variable (j G) mod Keff + 1 in pass (j G) / Keff + 1.
    const std::size_t step = j * groups;
    const std::size_t pass = step / members_.size() + 1;
    labels_[members_[step % members_.size()]] = static_cast<short>(pass % groups);
  }
}

void GroupLabels::Rotate() {
  const short last = labels_[members_.back()];
  for (std::size_t j = members_.size() - 1; j > 0; --j) {
    labels_[members_[j]] = labels_[members_[j - 1]];
  }
  labels_.front() = static_cast<short>((last + 1) % group_count_);
}

}  // namespace zemva
