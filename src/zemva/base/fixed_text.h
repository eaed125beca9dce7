// Texts in fields of a fixed size.
#ifndef ZEMVA_BASE_FIXED_TEXT_H
#define ZEMVA_BASE_FIXED_TEXT_H

#include <cstddef>
#include <string_view>

#include "zemva/base/export.h"

namespace zemva {

// Copies `text` into the `capacity` bytes at `field`, cut where it does not fit, and ends it with a
// zero byte. A null text leaves the field empty.
ZEMVA_API void CopyText(char* field, std::size_t capacity, const char* text);

// A text of at most `Capacity` characters that lives inside its owner.
template <std::size_t Capacity>
class FixedText {
 public:
  FixedText() = default;
  explicit FixedText(const char* text) { Set(text); }

  static constexpr std::size_t kCapacity = Capacity;

  void Set(const char* text) { CopyText(field_, sizeof field_, text); }
  const char* Get() const { return field_; }
  char* Get() { return field_; }
  std::string_view View() const { return field_; }
  bool IsEmpty() const { return field_[0] == '\0'; }

 private:
  char field_[Capacity + 1] = {};
};

}  // namespace zemva

#endif  // ZEMVA_BASE_FIXED_TEXT_H
