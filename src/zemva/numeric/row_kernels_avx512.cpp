// Nothing else belongs here: what this file defines may run only where the processor has AVX-512.
#include "zemva/numeric/row_kernels_body.h"

namespace zemva {

const RowKernels& Avx512RowKernels() {
  return kRowKernels;
}

}  // namespace zemva
