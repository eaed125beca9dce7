#include "zemva/base/time_stamp.h"

#include <ctime>

namespace zemva {

FixedText<22> TimeStamp() {
  const std::time_t now = std::time(nullptr);
  char text[FixedText<22>::kCapacity + 1] = {};
  if (const std::tm* local = std::localtime(&now)) {
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", local);
  }
  return FixedText<22>(text);
}

}  // namespace zemva
