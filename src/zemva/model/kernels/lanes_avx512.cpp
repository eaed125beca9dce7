#include <immintrin.h>

#include "zemva/model/kernels/lane_loops.h"

namespace zemva {
namespace {

struct Avx512 {
  using Vector = __m512d;
  static constexpr std::size_t kWidth = 8;
  static Vector Load(const double* from) { return _mm512_load_pd(from); }
  static void Store(double* to, Vector vector) { _mm512_store_pd(to, vector); }
  static Vector Splat(double value) { return _mm512_set1_pd(value); }
  // The masked form, of all elements: the plain one starts from an undefined value in g++'s header,
  // which g++ warns of.
  static Vector Widen(const float* from) {
    return _mm512_maskz_cvtps_pd(0xff, _mm256_load_ps(from));
  }
};

}  // namespace

const Lanes& Avx512Lanes() {
  return LaneLoops<Avx512>::kTable;
}

}  // namespace zemva
