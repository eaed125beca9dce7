#include "zemva/base/fixed_text.h"

#include <cstring>

namespace zemva {

void CopyText(char* field, std::size_t capacity, const char* text) {
  if (capacity == 0) return;
  std::size_t length = 0;
  if (text != nullptr) {
    const void* const end = std::memchr(text, '\0', capacity - 1);
    length = end == nullptr ? capacity - 1
                            : static_cast<std::size_t>(static_cast<const char*>(end) - text);
    std::memmove(field, text, length);
  }
  field[length] = '\0';
}

}  // namespace zemva
