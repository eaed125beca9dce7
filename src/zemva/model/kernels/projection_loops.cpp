#include "zemva/model/kernels/projection_loops.h"

#include "zemva/base/instruction_set.h"

namespace zemva {

std::span<const ProjectionLoops* const> UsableProjectionLoops() {
  static const LoopsByWidth<ProjectionLoops> all{&Avx512ProjectionLoops(), &Avx2ProjectionLoops(),
                                                 &FloorProjectionLoops()};
  return Usable(all);
}

const ProjectionLoops& BestProjectionLoops() {
  return *UsableProjectionLoops().front();
}

}  // namespace zemva
