// The numbered lists in the settings files: known projects, secondary data sets, models.
#ifndef ZEMVA_SETTINGS_NUMBERED_LIST_H
#define ZEMVA_SETTINGS_NUMBERED_LIST_H

#include <functional>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zemva {

// Where a list stands: its count under one key, entry i under the prefix followed by i, from 1 on.
struct ListLayout {
  const char* section;
  const char* count_key;
  const char* prefix;
};

std::string EntryKey(const ListLayout& layout, int number);

bool WriteCount(const ListLayout& layout, int count, const char* file);

// Writes `address` as entry `count` + 1, and the count one higher. False when a write failed or the
// count can grow no more.
bool AppendEntry(const ListLayout& layout, int count, std::string_view address, const char* file);

// The entries of a list as the file holds them, to be changed and written back.
class NumberedList {
 public:
  // Takes the entries 1 to `count`. What the count promises and the file does not hold is left out,
  // so that the file bounds the list, whatever the count says.
  NumberedList(const ListLayout& layout, int count, const char* file);

  const std::vector<std::string>& GetAddresses() const { return addresses_; }
  bool Contains(const std::function<bool(const std::string&)>& matches) const;

  // Removes the first `most` entries that match and moves the later ones down to close the gaps.
  // Returns how many were removed.
  int RemoveIf(const std::function<bool(const std::string&)>& matches,
               int most = std::numeric_limits<int>::max());

  // Writes what has changed, and the count, in one step.
  bool Save(int count) const;

 private:
  ListLayout layout_;
  std::string file_;
  std::map<int, std::string> stored_;  // by number
  std::vector<std::string> addresses_;
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_NUMBERED_LIST_H
