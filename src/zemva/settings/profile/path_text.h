// Paths in fields of a fixed size.
#ifndef ZEMVA_SETTINGS_PROFILE_PATH_TEXT_H
#define ZEMVA_SETTINGS_PROFILE_PATH_TEXT_H

#include <cstddef>
#include <string_view>

#include "zemva/base/fixed_text.h"

namespace zemva {

// The most characters of a path.
inline constexpr std::size_t kLongestPath = 259;

inline bool IsPathThatFits(std::string_view path) {
  return path.size() <= kLongestPath;
}

// A path in a field of 260 bytes. One that does not fit would name another file: the field is then
// empty, which names none.
class PathText : public FixedText<kLongestPath> {
 public:
  void SetPath(std::string_view path) {
    const std::size_t length = IsPathThatFits(path) ? path.copy(Get(), path.size()) : 0;
    Get()[length] = '\0';
  }
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_PROFILE_PATH_TEXT_H
