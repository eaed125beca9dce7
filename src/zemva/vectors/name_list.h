// Enumerations whose values have names.
#ifndef ZEMVA_VECTORS_NAME_LIST_H
#define ZEMVA_VECTORS_NAME_LIST_H

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

namespace zemva {

// What is printed for a value that is none of its enumeration.
inline constexpr const char* kUndefinedName = "Undefined";

// The name of value 1, 2 and so on; `names` begins with that of value 1.
constexpr const char* NameOf(std::span<const char* const> names, int value) {
  const bool is_value = value >= 1 && static_cast<std::size_t>(value) <= names.size();
  return is_value ? names[static_cast<std::size_t>(value - 1)] : kUndefinedName;
}

// The value whose name is exactly `name`, 0 where there is none and for null.
inline int ValueOfName(std::span<const char* const> names, const char* name) {
  if (name == nullptr) return 0;
  const auto found = std::ranges::find(names, std::string_view(name));
  return found == names.end() ? 0 : static_cast<int>(found - names.begin()) + 1;
}

}  // namespace zemva

#endif  // ZEMVA_VECTORS_NAME_LIST_H
