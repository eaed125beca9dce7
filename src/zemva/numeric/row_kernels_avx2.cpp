// Nothing else belongs here: what this file defines may run only where the processor has AVX2.
#include "zemva/numeric/row_kernels_body.h"

namespace zemva {

const RowKernels& Avx2RowKernels() {
  return kRowKernels;
}

}  // namespace zemva
