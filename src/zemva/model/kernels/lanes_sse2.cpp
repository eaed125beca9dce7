#include <emmintrin.h>

#include "zemva/model/kernels/lane_loops.h"

namespace zemva {
namespace {

struct Sse2 {
  using Vector = __m128d;
  static constexpr std::size_t kWidth = 2;
  static Vector Load(const double* from) { return _mm_load_pd(from); }
  static void Store(double* to, Vector vector) { _mm_store_pd(to, vector); }
  static Vector Splat(double value) { return _mm_set1_pd(value); }
  static Vector Widen(const float* from) {
    return _mm_cvtps_pd(_mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(from))));
  }
};

}  // namespace

const Lanes& Sse2Lanes() {
  return LaneLoops<Sse2>::kTable;
}

}  // namespace zemva
