#include "zemva/model/kernels/projection_loops_body.h"

namespace zemva {

const ProjectionLoops& FloorProjectionLoops() {
  return kProjectionLoops;
}

}  // namespace zemva
