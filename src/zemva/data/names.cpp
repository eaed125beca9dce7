#include "zemva/data/names.h"

#include <algorithm>

#include "zemva/errors/listing.h"

namespace zemva {
namespace {

constexpr std::size_t kLongestRepairedName = 23;

}  // namespace

bool ReportRepair(StreamWindow& window, std::string_view name, std::string_view repaired) {
  Listing(window).Text("Duplicate variable name ").Text(name).Text(".").EndLine();
  if (repaired.size() > kLongestRepairedName) {
    window << "Variable name too long, can not fix duplicate name.\n";
    return false;
  }
  Listing(window).Text("Changed to ").Text(repaired).Text(".").EndLine();
  return true;
}

NameOrder::NameOrder(std::span<const std::string_view> names) {
  entries_.reserve(names.size());
  int position = 0;
  for (const std::string_view name : names) entries_.push_back({name, ++position});
  std::ranges::sort(entries_);
}

int NameOrder::Find(std::string_view name, int from) const {
  for (const int first : {from, 1}) {
    const auto found = std::ranges::lower_bound(entries_, Entry{name, first});
    if (found != entries_.end() && found->name == name) return found->position;
  }
  return 0;
}

}  // namespace zemva
