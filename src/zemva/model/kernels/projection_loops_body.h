// The inner loops of the projections, written once for all instruction sets: a source that is
// compiled for one of them includes this and hands out kProjectionLoops.
#ifndef ZEMVA_MODEL_KERNELS_PROJECTION_LOOPS_BODY_H
#define ZEMVA_MODEL_KERNELS_PROJECTION_LOOPS_BODY_H

#include "zemva/base/lanes.h"
#include "zemva/model/kernels/projection_loops.h"

namespace zemva {
namespace {

template <std::size_t kRows>
void Dot(const float* const* rows, const double* weights, std::size_t length, double* sums) {
  const float* row[kRows];
  for (std::size_t r = 0; r < kRows; ++r) row[r] = rows[r];
  Double8 lanes[kRows] = {};
  for (std::size_t j = 0; j < length; j += kLaneCount) {
    const Double8 weight = Load(weights + j);
    for (std::size_t r = 0; r < kRows; ++r) {
      lanes[r] = lanes[r] + LoadAsDouble(row[r] + j) * weight;
    }
  }
  for (std::size_t r = 0; r < kRows; ++r) sums[r] = Total(lanes[r]);
}

// Half of the rows by turns: a line of the cache holds the floats of two steps.
template <std::size_t kRows>
ZEMVA_INLINE void Fetch(const float* const* row, std::size_t j, std::size_t ahead) {
  for (std::size_t r = (j / kLaneCount) % 2; r < kRows; r += 2) {
    __builtin_prefetch(row[r] + j + ahead, 0, 2);
  }
}

template <std::size_t kRows>
void Add(const float* const* rows, const double* scores, std::size_t length, double* sums,
         std::size_t ahead) {
  const float* row[kRows];
  Double8 score[kRows];
  for (std::size_t r = 0; r < kRows; ++r) {
    row[r] = rows[r];
    score[r] = Spread(scores[r]);
  }
  for (std::size_t j = 0; j < length; j += kLaneCount) {
    if (ahead != 0) Fetch<kRows>(row, j, ahead);
    Double8 sum = Load(sums + j);
    for (std::size_t r = 0; r < kRows; ++r) sum = sum + LoadAsDouble(row[r] + j) * score[r];
    Store(sum, sums + j);
  }
}

void DotOfDoubles(const double* rows, std::size_t stride, const double* weights, std::size_t length,
                  double* sums) {
  Double8 lanes[kBlockRows] = {};
  for (std::size_t j = 0; j < length; j += kLaneCount) {
    const Double8 weight = Load(weights + j);
    for (std::size_t r = 0; r < kBlockRows; ++r) {
      lanes[r] = lanes[r] + Load(rows + r * stride + j) * weight;
    }
  }
  for (std::size_t r = 0; r < kBlockRows; ++r) sums[r] = Total(lanes[r]);
}

constexpr ProjectionLoops kProjectionLoops{
    {Dot<1>, Dot<2>, Dot<3>, Dot<4>}, {Add<1>, Add<2>, Add<3>, Add<4>}, DotOfDoubles};

}  // namespace
}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_PROJECTION_LOOPS_BODY_H
