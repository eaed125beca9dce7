#include "settings/numbered_list.h"

#include <algorithm>
#include <array>

#include "settings/profile.h"
#include "settings/text.h"

namespace zemva {
namespace {

// The number in an entry's key; 0 when it is no entry's key.
int EntryNumber(const ListLayout& layout, std::string_view key) {
  const std::string_view prefix = layout.prefix;
  if (key.size() <= prefix.size()) return 0;
  const int number = LeadingInteger(key.substr(prefix.size()));
  return IsSameIgnoringCase(key, EntryKey(layout, number)) ? number : 0;
}

}  // namespace

std::string EntryKey(const ListLayout& layout, int number) {
  return layout.prefix + std::to_string(number);
}

bool WriteCount(const ListLayout& layout, int count, const char* file) {
  const std::string text = std::to_string(count);
  return Profile::OfThisSystem().Write({layout.section, layout.count_key, text.c_str()}, file);
}

bool AppendEntry(const ListLayout& layout, int count, std::string_view address, const char* file) {
  if (count == std::numeric_limits<int>::max()) return false;
  const std::string value(address);
  const std::string key = EntryKey(layout, count + 1);
  const std::string new_count = std::to_string(count + 1);
  return Profile::OfThisSystem().Write(
      std::array<ProfileChange, 2>{{{layout.section, key.c_str(), value.c_str()},
                                    {layout.section, layout.count_key, new_count.c_str()}}},
      file);
}

NumberedList::NumberedList(const ListLayout& layout, int count, const char* file)
    : layout_(layout), file_(ViewOf(file)) {
  for (ProfileEntry& entry : Profile::OfThisSystem().ReadSection(layout.section, file)) {
    const int number = EntryNumber(layout, entry.key);
    if (number >= 1 && number <= count) stored_.emplace(number, std::move(entry.value));
  }
  for (const auto& [number, address] : stored_) addresses_.push_back(address);
}

bool NumberedList::Contains(const std::function<bool(const std::string&)>& matches) const {
  return std::ranges::any_of(addresses_, matches);
}

int NumberedList::RemoveIf(const std::function<bool(const std::string&)>& matches, int most) {
  int removed = 0;
  std::erase_if(addresses_, [&](const std::string& address) {
    if (removed == most || !matches(address)) return false;
    ++removed;
    return true;
  });
  return removed;
}

bool NumberedList::Save(int count) const {
  std::vector<ProfileEntry> written;
  for (std::size_t i = 0; i < addresses_.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    const auto stored = stored_.find(number);
    if (stored != stored_.end() && stored->second == addresses_[i]) continue;
    written.push_back({EntryKey(layout_, number), addresses_[i]});
  }
  written.push_back({layout_.count_key, std::to_string(count)});
  std::vector<std::string> removed;
  for (const auto& [number, address] : stored_) {
    if (number > static_cast<int>(addresses_.size())) removed.push_back(EntryKey(layout_, number));
  }

  std::vector<ProfileChange> changes;
  for (const ProfileEntry& entry : written) {
    changes.push_back({layout_.section, entry.key.c_str(), entry.value.c_str()});
  }
  for (const std::string& key : removed) changes.push_back({layout_.section, key.c_str(), nullptr});
  return Profile::OfThisSystem().Write(changes, file_.c_str());
}

}  // namespace zemva
