// The arithmetic of a matrix with vectors.
#include "zemva/numeric/row_kernels.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva {

int XFMatrix::MSubVp(const XFVector* vector) {
  return CombineRows(vector, GetRowKernels().subtract);
}

int XFMatrix::MDotMulVp(const XFVector* vector) {
  return CombineRows(vector, GetRowKernels().multiply);
}

int XFMatrix::Addcomp(const XFVector* t, const XFVector* p) {
  return AddMultiples(t, p, GetRowKernels().add_multiple);
}

int XFMatrix::Subcomp(const XFVector* t, const XFVector* p) {
  return AddMultiples(t, p, GetRowKernels().subtract_multiple);
}

int XFMatrix::CheckColumns(const XFVector* vector) const {
  if (vector == nullptr) return status::mat::kNullPointer;
  return vector->NVal() == NCol() ? status::kOk : status::mat::kDimension;
}

int XFMatrix::CombineRows(const XFVector* vector, void (*operation)(float*, const float*, int)) {
  const int check = CheckColumns(vector);
  if (check != status::kOk) return Report(check);
  for (int i = 1; i <= NRow(); ++i) operation(Row(i).data(), vector->Values().data(), NCol());
  if (vector->FVector::NValA() < NCol()) SetActValInfo();
  return status::kOk;
}

int XFMatrix::AddMultiples(const XFVector* t, const XFVector* p,
                           void (*operation)(float*, float, const float*, int)) {
  if (t == nullptr) return Report(status::mat::kNullPointer);
  const int check = CheckColumns(p);
  if (check != status::kOk) return Report(check);
  if (t->NVal() != NRow()) return Report(status::mat::kDimension);
  for (int i = 1; i <= NRow(); ++i) {
    if (!IsMissing((*t)[i])) operation(Row(i).data(), (*t)[i], p->Values().data(), NCol());
  }
  return status::kOk;
}

}  // namespace zemva
