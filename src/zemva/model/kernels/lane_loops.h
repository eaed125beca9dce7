// The loops of lanes.h over an instruction set's vectors of doubles. A file that includes this is
// compiled for its own instruction set: nothing here may have a copy shared with other files, which
// the linker might take for all of them. Hence the template argument of a type that is the file's.
#ifndef ZEMVA_MODEL_KERNELS_LANE_LOOPS_H
#define ZEMVA_MODEL_KERNELS_LANE_LOOPS_H

#include "zemva/model/kernels/lanes.h"

namespace zemva {

// `Simd` gives the type Vector of kWidth doubles (2 or 4), Load and Store of them, Widen (as many
// floats to doubles) and Splat (one double to all).
template <typename Simd>
struct LaneLoops {
  using Vector = typename Simd::Vector;
  static constexpr std::size_t kVectors = kLaneCount / Simd::kWidth;

  template <std::size_t kRows>
  static void Dot(const float* const* rows, const double* weights, std::size_t length,
                  double* sums) {
    const float* row[kRows];
    for (std::size_t r = 0; r < kRows; ++r) row[r] = rows[r];
    Vector lanes[kRows][kVectors] = {};
    for (std::size_t j = 0; j < length; j += kLaneCount) {
#pragma GCC unroll 4
      for (std::size_t v = 0; v < kVectors; ++v) {
        const Vector weight = Simd::Load(weights + j + v * Simd::kWidth);
#pragma GCC unroll 4
        for (std::size_t r = 0; r < kRows; ++r) {
          lanes[r][v] += Simd::Widen(row[r] + j + v * Simd::kWidth) * weight;
        }
      }
    }
    for (std::size_t r = 0; r < kRows; ++r) sums[r] = Total(lanes[r]);
  }

  template <std::size_t kRows>
  static void Add(const float* const* rows, const double* scores, std::size_t length, double* sums,
                  std::size_t ahead) {
    const float* row[kRows];
    Vector score[kRows];
    for (std::size_t r = 0; r < kRows; ++r) {
      row[r] = rows[r];
      score[r] = Simd::Splat(scores[r]);
    }
    for (std::size_t j = 0; j < length; j += kLaneCount) {
      if (ahead != 0) Fetch<kRows>(row, j, ahead);
#pragma GCC unroll 4
      for (std::size_t k = j; k < j + kLaneCount; k += Simd::kWidth) {
        const auto product = [&](std::size_t r) { return Simd::Widen(row[r] + k) * score[r]; };
        Vector block = product(0);
        if constexpr (kRows > 1) block += product(1);
        if constexpr (kRows == 3) block += product(2);
        if constexpr (kRows == 4) block += product(2) + product(3);
        Simd::Store(sums + k, Simd::Load(sums + k) + block);
      }
    }
  }

  static constexpr Lanes kTable{{Dot<1>, Dot<2>, Dot<3>, Dot<4>}, {Add<1>, Add<2>, Add<3>, Add<4>}};

 private:
  // Half of the rows by turns: a line of the cache holds the floats of two steps.
  template <std::size_t kRows>
  static void Fetch(const float* const* row, std::size_t j, std::size_t ahead) {
    for (std::size_t r = (j / kLaneCount) % 2; r < kRows; r += 2) {
      __builtin_prefetch(row[r] + j + ahead, 0, 2);
    }
  }

  // As AddLanes, of which there is a copy for all files.
  static double Total(const Vector* lanes) {
    alignas(64) double values[kLaneCount];
    for (std::size_t v = 0; v < kVectors; ++v) Simd::Store(values + v * Simd::kWidth, lanes[v]);
    return ((values[0] + values[4]) + (values[2] + values[6])) +
           ((values[1] + values[5]) + (values[3] + values[7]));
  }
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_LANE_LOOPS_H
