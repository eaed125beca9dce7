// The inner loops of the projections.
#ifndef ZEMVA_MODEL_KERNELS_PROJECTION_LOOPS_H
#define ZEMVA_MODEL_KERNELS_PROJECTION_LOOPS_H

#include <array>
#include <cstddef>
#include <span>

namespace zemva {

// The rows that a loop takes at a time.
inline constexpr std::size_t kBlockRows = 4;

// The loops as compiled for one instruction set. Products of floats are exact in double. `length`
// is a multiple of kLaneCount; rows, weights and sums are best aligned to 64 bytes. Entry n - 1 is
// for a block of n rows.
struct ProjectionLoops {
  // sums[r] = sum over j of rows[r][j] * weights[j], in lanes.
  using Dot = void (*)(const float* const* rows, const double* weights, std::size_t length,
                       double* sums);
  // sums[j] += rows[0][j] * scores[0], ..., sums[j] += rows[n - 1][j] * scores[n - 1]. Meanwhile
  // the rows that lie `ahead` floats further on are fetched from memory; none where it is 0.
  using Add = void (*)(const float* const* rows, const double* scores, std::size_t length,
                       double* sums, std::size_t ahead);

  // As dot, of kBlockRows rows of doubles, one behind the other at distances of `stride`.
  using DotOfDoubles = void (*)(const double* rows, std::size_t stride, const double* weights,
                                std::size_t length, double* sums);

  std::array<Dot, kBlockRows> dot;
  std::array<Add, kBlockRows> add;
  DotOfDoubles dot_of_doubles;
};

const ProjectionLoops& Avx512ProjectionLoops();
const ProjectionLoops& Avx2ProjectionLoops();
const ProjectionLoops& FloorProjectionLoops();

// Those that can run here, the widest first; and the widest.
std::span<const ProjectionLoops* const> UsableProjectionLoops();
const ProjectionLoops& BestProjectionLoops();

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_PROJECTION_LOOPS_H
