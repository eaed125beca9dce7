#include "zemva/base/instruction_set.h"

namespace zemva {

std::size_t WidestUsable() {
#if defined(__x86_64__) || defined(__i386__)
  static const std::size_t widest = __builtin_cpu_supports("avx512f") ? 0
                                    : __builtin_cpu_supports("avx2")  ? 1
                                                                      : 2;
  return widest;
#else
  return 2;
#endif
}

}  // namespace zemva
