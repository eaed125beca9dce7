#include <immintrin.h>

#include "zemva/model/kernels/lane_loops.h"

namespace zemva {
namespace {

struct Avx2 {
  using Vector = __m256d;
  static constexpr std::size_t kWidth = 4;
  static Vector Load(const double* from) { return _mm256_load_pd(from); }
  static void Store(double* to, Vector vector) { _mm256_store_pd(to, vector); }
  static Vector Splat(double value) { return _mm256_set1_pd(value); }
  static Vector Widen(const float* from) { return _mm256_cvtps_pd(_mm_load_ps(from)); }
};

}  // namespace

const Lanes& Avx2Lanes() {
  return LaneLoops<Avx2>::kTable;
}

}  // namespace zemva
