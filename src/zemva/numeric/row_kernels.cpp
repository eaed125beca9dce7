#include "zemva/numeric/row_kernels.h"

#include "zemva/base/instruction_set.h"

namespace zemva {

std::span<const RowKernels* const> UsableRowKernels() {
  static const LoopsByWidth<RowKernels> all{&Avx512RowKernels(), &Avx2RowKernels(),
                                            &FloorRowKernels()};
  return Usable(all);
}

const RowKernels& GetRowKernels() {
  return *UsableRowKernels().front();
}

}  // namespace zemva
