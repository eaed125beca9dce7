// Selections: a byte for each row or column, 1 for those that are kept.
#ifndef ZEMVA_DATA_SELECTION_H
#define ZEMVA_DATA_SELECTION_H

#include <new>

#include "zemva/base/positions.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

inline constexpr char kSelected = 1;
inline constexpr char kNotSelected = 0;

// Selects the first `kept` of `length`. As for every vector, the status tells whether there was
// memory for it.
inline XI1Vector SelectFirst(int kept, int length) {
  XI1Vector selection("Selection", length, kNotSelected);
  for (int i = 1; i <= kept && i <= selection.NVal(); ++i) selection[i] = kSelected;
  return selection;
}

// Selects the positions i of 1..length for which `is_selected(i)` is true. Throws std::bad_alloc
// when there is no memory for it.
template <typename Predicate>
XI1Vector SelectIf(int length, Predicate is_selected) {
  XI1Vector selection("Selection", length, kNotSelected);
  Whole(selection);
  for (const short i : PositionsUpTo(length)) {
    if (is_selected(i)) selection[i] = kSelected;
  }
  return selection;
}

}  // namespace zemva

#endif  // ZEMVA_DATA_SELECTION_H
