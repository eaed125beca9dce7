// Paths in fields of a fixed size.
#ifndef ZEMVA_SETTINGS_PATH_TEXT_H
#define ZEMVA_SETTINGS_PATH_TEXT_H

#include <string>
#include <string_view>

#include "base/fixed_text.h"

namespace zemva {

// A path in a field of 260 bytes. One that does not fit would name another file: the field is then
// empty, which names none.
class PathText : public FixedText<259> {
 public:
  void SetPath(std::string_view path) {
    Set(path.size() <= kCapacity ? std::string(path).c_str() : "");
  }
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_PATH_TEXT_H
