// Paths in fields of a fixed size.
#ifndef ZEMVA_SETTINGS_INI_PATH_TEXT_H
#define ZEMVA_SETTINGS_INI_PATH_TEXT_H

#include <cstddef>
#include <string>
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
    Set(IsPathThatFits(path) ? std::string(path).c_str() : "");
  }
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_INI_PATH_TEXT_H
