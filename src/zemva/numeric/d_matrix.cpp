#include "zemva/numeric/d_matrix.h"

#include <algorithm>

#include "zemva/errors/listing.h"
#include "zemva/numeric/f_matrix.h"
#include "zemva/numeric/vector.h"
#include "zemva/numeric/vector_listing.h"

namespace zemva {

DMatrix::DMatrix(const FMatrix* other)
    : MatrixStorage(other ? other->NRow() : 0, other ? other->NCol() : 0) {
  if (other == nullptr) Report(status::mat::kNullPointer);
  for (int i = 1; i <= NRow(); ++i) std::ranges::copy(other->Row(i), Row(i).begin());
}

DMatrix::DMatrix(const DVector* column) : MatrixStorage(column ? column->NVal() : 0, 1) {
  if (column == nullptr) Report(status::mat::kNullPointer);
  for (int i = 1; i <= NRow(); ++i) (*this)[i][1] = (*column)[i];
}

DMatrix::~DMatrix() = default;

void DMatrix::Show(StreamWindow& window) const {
  Listing(window)
      .Text("DMatrix has ")
      .Number(NRow())
      .Text(" rows and ")
      .Number(NCol())
      .Text(" columns of double:")
      .EndLine();
  for (int i = 1; i <= NRow(); ++i) ListValues(window, Row(i), false);
}

}  // namespace zemva
