// The order in which a sum adds its terms: in eight lanes, term i in lane i mod 8, which are added
// up at the end from the first to the last. So the same bits come out whatever the instruction set,
// and for up to eight terms those of the plain order.
#ifndef ZEMVA_BASE_LANE_SUMS_H
#define ZEMVA_BASE_LANE_SUMS_H

#include <cstddef>

// Sources for several instruction sets include this, of which the linker must not take one's code
// for all: functions are static, and inlined where they are called.
#define ZEMVA_INLINE static inline __attribute__((always_inline))

namespace zemva {

inline constexpr int kLaneCount = 8;

// `n` rounded up to whole groups of lanes.
template <typename Count>
constexpr Count PaddedCount(Count n) {
  return (n + (kLaneCount - 1)) / kLaneCount * kLaneCount;
}

// The sum of `lanes`, of which there are kLaneCount.
template <typename T>
ZEMVA_INLINE T AddLanes(const T* lanes) {
  T total = 0;
  for (int l = 0; l < kLaneCount; ++l) total += lanes[l];
  return total;
}

// The sum of term(0), ..., term(count - 1).
template <typename Term>
ZEMVA_INLINE double SumInLanes(std::size_t count, Term term) {
  double lanes[kLaneCount] = {};
  std::size_t i = 0;
  for (; i + kLaneCount <= count; i += kLaneCount) {
    for (std::size_t lane = 0; lane < kLaneCount; ++lane) lanes[lane] += term(i + lane);
  }
  for (std::size_t lane = 0; i + lane < count; ++lane) lanes[lane] += term(i + lane);
  return AddLanes(lanes);
}

}  // namespace zemva

#endif  // ZEMVA_BASE_LANE_SUMS_H
