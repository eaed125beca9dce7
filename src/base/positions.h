// Counting in 16 bits.
#ifndef ZEMVA_BASE_POSITIONS_H
#define ZEMVA_BASE_POSITIONS_H

#include <ranges>

namespace zemva {

// The positions 1..count of a table, of which there can be as many as a short holds: a loop that
// counted in shorts would then never end.
inline auto PositionsUpTo(int count) {
  return std::views::iota(1, count + 1) |
         std::views::transform([](int position) { return static_cast<short>(position); });
}

}  // namespace zemva

#endif  // ZEMVA_BASE_POSITIONS_H
