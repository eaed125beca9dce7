#include "zemva/numeric/row_kernels.h"

#include "zemva/numeric/row_kernels_body.h"

namespace zemva {

#if defined(ZEMVA_HAS_AVX2_KERNELS)
// In row_kernels_avx2.cpp.
const RowKernels& GetCompiledAvx2Kernels();
#endif

const RowKernels& GetBaselineKernels() {
  return kRowKernels;
}

const RowKernels* GetAvx2Kernels() {
#if defined(ZEMVA_HAS_AVX2_KERNELS)
  if (__builtin_cpu_supports("avx2")) return &GetCompiledAvx2Kernels();
#endif
  return nullptr;
}

const RowKernels& GetRowKernels() {
  static const RowKernels& kernels =
      GetAvx2Kernels() != nullptr ? *GetAvx2Kernels() : GetBaselineKernels();
  return kernels;
}

}  // namespace zemva
