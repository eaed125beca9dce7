// Work on the names of observations and variables.
#ifndef ZEMVA_DATA_NAMES_H
#define ZEMVA_DATA_NAMES_H

#include <compare>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "zemva/errors/stream_window.h"

namespace zemva {

// The text that follows `stem` and ends in the number.
inline std::string NumberedName(std::string_view stem, int number) {
  std::string name(stem);
  name += std::to_string(number);
  return name;
}

// The k-th name of those that share `name`: "A_2".
inline std::string SuffixedName(std::string_view name, int k) {
  std::string stem(name);
  stem += '_';
  return NumberedName(stem, k);
}

// Tells that a variable name is repeated, and what it is changed to. False when that would have
// more than 23 characters, which it then tells instead.
bool ReportRepair(StreamWindow& window, std::string_view name, std::string_view repaired);

// Names in the order of their bytes, equal ones in the order of their positions. The texts belong
// to others and must outlive it.
class NameOrder {
 public:
  struct Entry {
    std::string_view name;
    int position;  // from 1

    // NOLINTNEXTLINE(modernize-use-nullptr): the comparison that the compiler writes has a 0 in it
    auto operator<=>(const Entry&) const = default;
  };

  explicit NameOrder(std::span<const std::string_view> names);

  std::span<const Entry> GetEntries() const { return entries_; }

  // The first position of the name at or behind `from`, else its first position at all, else 0.
  int Find(std::string_view name, int from) const;

 private:
  std::vector<Entry> entries_;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_NAMES_H
