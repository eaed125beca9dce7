// Nothing else belongs here: what this file defines may run only where the processor has AVX-512.
#include "zemva/model/kernels/projection_loops_body.h"

namespace zemva {

const ProjectionLoops& Avx512ProjectionLoops() {
  return kProjectionLoops;
}

}  // namespace zemva
