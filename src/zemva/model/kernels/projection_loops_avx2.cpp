// Nothing else belongs here: what this file defines may run only where the processor has AVX2.
#include "zemva/model/kernels/projection_loops_body.h"

namespace zemva {

const ProjectionLoops& Avx2ProjectionLoops() {
  return kProjectionLoops;
}

}  // namespace zemva
