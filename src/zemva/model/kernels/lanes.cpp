#include "zemva/model/kernels/lanes.h"

namespace zemva {

std::span<const Lanes* const> UsableLanes() {
  static const std::array<const Lanes*, 3> all{&Avx512Lanes(), &Avx2Lanes(), &Sse2Lanes()};
  static const std::size_t first_usable = __builtin_cpu_supports("avx512f") ? 0
                                          : __builtin_cpu_supports("avx2")  ? 1
                                                                            : 2;
  return std::span(all).subspan(first_usable);
}

const Lanes& BestLanes() {
  return *UsableLanes().front();
}

}  // namespace zemva
