// Some of the variables, by number.
#ifndef ZEMVA_MODEL_PREPROCESS_NUMBER_SET_H
#define ZEMVA_MODEL_PREPROCESS_NUMBER_SET_H

#include <bitset>
#include <cstddef>
#include <limits>

#include "zemva/data/itm_info.h"
#include "zemva/data/selection.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

// Any number can be in it. It takes no memory but its own.
class NumberSet {
 public:
  NumberSet() = default;
  // The numbers of all items of a table.
  explicit NumberSet(const ItmInfo& table) { Add(table); }

  void Add(short number) { is_in_[Slot(number)] = true; }
  void Add(const ItmInfo& table) {
    for (int i = 1; i <= table.GetNItm(); ++i) Add(table.GetINum(static_cast<short>(i)));
  }
  bool Has(short number) const { return is_in_[Slot(number)]; }

  // The items of the table that have one of the numbers. Throws std::bad_alloc.
  XI1Vector Select(const ItmInfo& table) const {
    return SelectIf(table.GetNItm(), [&](short i) { return Has(table.GetINum(i)); });
  }

 private:
  using Index = unsigned short;

  static std::size_t Slot(short number) { return static_cast<Index>(number); }

  std::bitset<std::numeric_limits<Index>::max() + std::size_t{1}> is_in_;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PREPROCESS_NUMBER_SET_H
