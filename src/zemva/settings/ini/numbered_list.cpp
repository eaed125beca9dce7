#include "zemva/settings/ini/numbered_list.h"

#include <algorithm>
#include <utility>

#include "zemva/settings/profile/path_text.h"
#include "zemva/settings/profile/text.h"

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

NumberedList::NumberedList(const ListLayout& layout, const std::vector<ProfileEntry>& section)
    : layout_(layout), stored_count_(layout.absent_count) {
  for (const ProfileEntry& entry : section) {
    const bool is_count = IsSameIgnoringCase(entry.key, layout.count_key);
    if (is_count && !entry.value.empty()) stored_count_ = layout.count_of(entry.value);
  }
  count_ = stored_count_;
  for (const ProfileEntry& entry : section) {
    const int number = EntryNumber(layout, entry.key);
    if (number >= 1 && number <= count_) stored_entries_.emplace(number, entry.value);
  }
  entries_ = stored_entries_;
}

bool NumberedList::Contains(const Matcher& matches) const {
  return std::ranges::any_of(entries_, [&](const auto& entry) { return matches(entry.second); });
}

bool NumberedList::Append(std::string_view address) {
  if (!IsPathThatFits(address) || !RaiseCount(*this)) return false;
  entries_.insert_or_assign(count_, std::string(address));
  return true;
}

int NumberedList::RemoveIf(const Matcher& matches, int most) {
  int removed = 0;
  std::erase_if(entries_, [&](const auto& entry) {
    if (removed == most || !matches(entry.second)) return false;
    ++removed;
    return true;
  });
  if (removed > 0) CloseGaps();
  return removed;
}

void NumberedList::CloseGaps() {
  std::map<int, std::string> closed;
  count_ = 0;
  for (auto& [number, address] : entries_) closed.emplace(++count_, std::move(address));
  entries_ = std::move(closed);
}

std::vector<KeyChange> NumberedList::GetChanges() const {
  std::vector<KeyChange> changes;
  for (const auto& [number, address] : entries_) {
    const auto stored = stored_entries_.find(number);
    if (stored != stored_entries_.end() && stored->second == address) continue;
    changes.push_back({EntryKey(layout_, number), address});
  }
  for (const auto& [number, address] : stored_entries_) {
    if (!entries_.contains(number)) changes.push_back({EntryKey(layout_, number), std::nullopt});
  }
  if (count_ != stored_count_) changes.push_back({layout_.count_key, std::to_string(count_)});
  return changes;
}

bool LowerCount(NumberedList& list) {
  if (list.GetCount() <= 0) return false;
  list.SetCount(list.GetCount() - 1);
  return true;
}

bool RaiseCount(NumberedList& list) {
  if (list.GetCount() == std::numeric_limits<int>::max()) return false;
  list.SetCount(list.GetCount() + 1);
  return true;
}

NumberedList::Matcher Is(std::string_view address) {
  return [address](const std::string& entry) { return entry == address; };
}

void RemoveOrLowerCount(NumberedList& list, std::string_view address) {
  if (list.RemoveIf(Is(address)) == 0) LowerCount(list);
}

bool AppendOnce(NumberedList& list, std::string_view address) {
  return list.GetCount() >= 0 && !list.Contains(Is(address)) && list.Append(address);
}

NumberedList ReadList(const ListLayout& layout, const char* file) {
  return {layout, Profile::OfThisSystem().ReadSection(layout.section, file)};
}

}  // namespace zemva
