// A count that a table keeps of its items.
#ifndef ZEMVA_DATA_ITM_COUNT_H
#define ZEMVA_DATA_ITM_COUNT_H

#include <utility>

namespace zemva {

// How many items of a table there are of some kind: none once the table was moved from.
class ItmCount {
 public:
  ItmCount() = default;
  ItmCount(const ItmCount&) = default;
  ItmCount& operator=(const ItmCount&) = default;
  ItmCount(ItmCount&& other) noexcept : value_(std::exchange(other.value_, 0)) {}
  ItmCount& operator=(ItmCount&& other) noexcept {
    value_ = std::exchange(other.value_, 0);
    return *this;
  }

  void Set(int value) { value_ = value; }
  int Get() const { return value_; }

 private:
  int value_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_ITM_COUNT_H
