// Matrices of double-precision values.
#ifndef ZEMVA_NUMERIC_D_MATRIX_H
#define ZEMVA_NUMERIC_D_MATRIX_H

#include "zemva/base/export.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/matrix_storage.h"

namespace zemva {

class DVector;
class FMatrix;

class ZEMVA_API DMatrix : public MatrixStorage<DMatrix, double> {
 public:
  using MatrixStorage::MatrixStorage;
  // The values of a single-precision matrix. Empty with status 5007 when it is null.
  explicit DMatrix(const FMatrix* other);
  // The vector as a matrix of one column. Empty with status 5007 when it is null.
  explicit DMatrix(const DVector* column);
  DMatrix(const DMatrix&) = default;
  DMatrix& operator=(const DMatrix&) = default;
  virtual ~DMatrix();

  // As those of FMatrix, in double.
  DMatrix& operator+(const DMatrix& right) const;
  DMatrix& operator-(const DMatrix& right) const;
  DMatrix& operator*(const DMatrix& right) const;
  static DMatrix& MStat;
  static DMatrix& MStat2;
  int MInv();
  double Det(bool is_kept);
  int SVD(DMatrix*& u, DMatrix*& w, DMatrix*& v) const;

  // Lists the matrix, a row a line.
  virtual void Show(StreamWindow& window) const;

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "DMatrix is NULL";
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_D_MATRIX_H
