#include "zemva/numeric/row_kernels_body.h"

namespace zemva {

const RowKernels& FloorRowKernels() {
  return kRowKernels;
}

}  // namespace zemva
