#include "zemva/base/fixed_text.h"

#include <cstring>

namespace zemva {

void CopyText(char* field, std::size_t capacity, const char* text) {
  if (capacity == 0) return;
  std::size_t length = 0;
  if (text != nullptr) {
    while (length + 1 < capacity && text[length] != '\0') ++length;
    std::memmove(field, text, length);
  }
  field[length] = '\0';
}

}  // namespace zemva
