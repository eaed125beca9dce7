// Finding the rows of a table by their numbers.
#ifndef ZEMVA_DATA_ASCENDING_RUN_H
#define ZEMVA_DATA_ASCENDING_RUN_H

#include <algorithm>
#include <optional>

#include "zemva/data/itm_count.h"

namespace zemva {

// How many of the first rows of a table are known to have ascending numbers, as most tables have
// throughout: a row is then found by halving, and rows that are added or taken out change nothing
// for the others. Row i, 1..count, has the number number_of(i).
class AscendingRun {
 public:
  // Whether the numbers of all rows ascend. It looks at those rows alone that it does not know.
  template <typename NumberOf>
  bool Spans(int count, NumberOf number_of) {
    int length = length_.Get();
    while (length < count && (length == 0 || number_of(length) < number_of(length + 1))) ++length;
    length_.Set(length);
    return length == count;
  }

  // The row with a number, 0 if there is none; nothing where the numbers do not ascend.
  template <typename NumberOf>
  std::optional<short> Find(int count, short number, NumberOf number_of) {
    if (!Spans(count, number_of)) return std::nullopt;
    int first = 1;
    int behind = count + 1;
    while (first < behind) {
      const int middle = (first + behind) / 2;
      if (number_of(middle) < number) {
        first = middle + 1;
      } else {
        behind = middle;
      }
    }
    const bool is_found = first <= count && number_of(first) == number;
    return is_found ? static_cast<short>(first) : short{0};
  }

  // Row i has got another number.
  void Renumbered(int i) { length_.Set(std::min(length_.Get(), i - 1)); }
  // `count` rows are gone, the first of which was row `first`.
  void Removed(int first, int count) {
    if (first > length_.Get()) return;
    length_.Set(std::max(first - 1, length_.Get() - count));
  }

 private:
  ItmCount length_;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_ASCENDING_RUN_H
