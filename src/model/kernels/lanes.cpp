#include "model/kernels/lanes.h"

namespace zemva {

bool HasAvx2() {
  return __builtin_cpu_supports("avx2") != 0;
}

const Lanes& BestLanes() {
  static const Lanes& best = HasAvx2() ? Avx2Lanes() : Sse2Lanes();
  return best;
}

}  // namespace zemva
