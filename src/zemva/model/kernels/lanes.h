// The two inner loops of the projections, and the order in which they add.
#ifndef ZEMVA_MODEL_KERNELS_LANES_H
#define ZEMVA_MODEL_KERNELS_LANES_H

#include <array>
#include <cstddef>
#include <span>

namespace zemva {

// Products of floats are exact in double, and every sum has one order of its additions, so that the
// same bits come out whatever the instruction set: a sum along a row runs in 8 lanes, element j in
// lane j mod 8, which AddLanes adds up at the end; a sum down a column takes up to four rows at a
// time.
inline constexpr std::size_t kLaneCount = 8;
inline constexpr std::size_t kBlockRows = 4;

// The order in which the lanes are added up.
inline double AddLanes(const double* lanes) {
  return ((lanes[0] + lanes[4]) + (lanes[2] + lanes[6])) +
         ((lanes[1] + lanes[5]) + (lanes[3] + lanes[7]));
}

// The sum of term(0), ..., term(count - 1) in lanes.
template <typename Term>
double SumInLanes(std::size_t count, Term term) {
  double lanes[kLaneCount] = {};
  std::size_t i = 0;
  for (; i + kLaneCount <= count; i += kLaneCount) {
    for (std::size_t lane = 0; lane < kLaneCount; ++lane) lanes[lane] += term(i + lane);
  }
  for (std::size_t lane = 0; i + lane < count; ++lane) lanes[lane] += term(i + lane);
  return AddLanes(lanes);
}

// The loops as compiled for one instruction set. `length` is a multiple of kLaneCount; rows start
// at multiples of 32 bytes, weights and sums at multiples of 64. Entry n - 1 is for a block of n
// rows.
struct Lanes {
  // sums[r] = sum over j of rows[r][j] * weights[j].
  using Dot = void (*)(const float* const* rows, const double* weights, std::size_t length,
                       double* sums);
  // sums[j] += rows[0][j] * scores[0] + ... + rows[n - 1][j] * scores[n - 1]. Meanwhile the rows
  // that lie `ahead` floats further on are fetched from memory; none where it is 0.
  using Add = void (*)(const float* const* rows, const double* scores, std::size_t length,
                       double* sums, std::size_t ahead);

  std::array<Dot, kBlockRows> dot;
  std::array<Add, kBlockRows> add;
};

// For every processor that the library runs on, and for those that have AVX2 and AVX-512 too.
const Lanes& Sse2Lanes();
const Lanes& Avx2Lanes();
const Lanes& Avx512Lanes();

// Those that this processor, and the system on it, can run; the widest first.
std::span<const Lanes* const> UsableLanes();
const Lanes& BestLanes();

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_LANES_H
