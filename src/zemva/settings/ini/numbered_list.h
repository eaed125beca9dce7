// The numbered lists in the settings files: known projects, secondary data sets, models.
#ifndef ZEMVA_SETTINGS_INI_NUMBERED_LIST_H
#define ZEMVA_SETTINGS_INI_NUMBERED_LIST_H

#include <functional>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "zemva/errors/memory_guard.h"
#include "zemva/settings/profile/profile.h"

namespace zemva {

// Where a list stands: its count under one key, entry i under the prefix followed by i, from 1 on.
struct ListLayout {
  const char* section;
  const char* count_key;
  const char* prefix;
  int absent_count;  // what no count means
  int (*count_of)(std::string_view text);
};

std::string EntryKey(const ListLayout& layout, int number);

// A list as its section holds it, to be looked into or changed.
class NumberedList {
 public:
  using Matcher = std::function<bool(const std::string& address)>;

  // Takes the entries 1 to the count. What the count promises and the section does not hold is left
  // out, so that the file bounds the list, whatever the count says.
  NumberedList(const ListLayout& layout, const std::vector<ProfileEntry>& section);

  int GetCount() const { return count_; }
  bool Contains(const Matcher& matches) const;

  void SetCount(int count) { count_ = count; }
  // Adds the entry behind the count. False when the address does not fit a path or the count can
  // grow no more.
  bool Append(std::string_view address);
  // Removes the first `most` entries that match and returns how many there were. The others get the
  // numbers from 1 on, and the count becomes theirs; where none matches, nothing changes.
  int RemoveIf(const Matcher& matches, int most = std::numeric_limits<int>::max());
  // Gives the entries the numbers from 1 on, and makes the count theirs.
  void CloseGaps();

  // What has to change in the section.
  std::vector<KeyChange> GetChanges() const;

 private:
  ListLayout layout_;
  int stored_count_;
  int count_;
  std::map<int, std::string> stored_entries_;  // by number
  std::map<int, std::string> entries_;
};

// One less; false when there is nothing to take it from.
bool LowerCount(NumberedList& list);
// One more; false when it can grow no more.
bool RaiseCount(NumberedList& list);

// Matches exactly this address, which must live as long.
NumberedList::Matcher Is(std::string_view address);
// Removes the entries of this address; where there are none, the count goes down all the same.
void RemoveOrLowerCount(NumberedList& list, std::string_view address);
// Adds an address. False when the list has it, or a count below 0.
bool AppendOnce(NumberedList& list, std::string_view address);

NumberedList ReadList(const ListLayout& layout, const char* file);

// Changes a list in one step. `change`, which may be called twice, returns whether it was possible.
// False when it was not, or when the file could not be read or written, or for want of memory.
template <typename Change>
bool EditList(const ListLayout& layout, const char* file, Change change) {
  bool is_possible = false;
  const auto edit = [&](const std::vector<ProfileEntry>& section) {
    NumberedList list(layout, section);
    is_possible = change(list);
    return list.GetChanges();
  };
  const auto update = [&] { return Profile::OfThisSystem().Update(layout.section, file, edit); };
  return MemoryGuarded(update, false) && is_possible;
}

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_INI_NUMBERED_LIST_H
