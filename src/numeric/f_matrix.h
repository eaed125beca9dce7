// Matrices of single-precision values.
#ifndef ZEMVA_NUMERIC_F_MATRIX_H
#define ZEMVA_NUMERIC_F_MATRIX_H

#include "base/export.h"
#include "errors/stream_window.h"
#include "numeric/matrix_storage.h"

namespace zemva {

class FVector;
class XI1Vector;

class ZEMVA_API FMatrix : public MatrixStorage<FMatrix, float> {
 public:
  using MatrixStorage::MatrixStorage;
  // Elements set to `fill`, or with their contents as allocated.
  FMatrix(int row_count, int column_count, float fill, bool is_filled);
  // The vector as a matrix of one column. Empty with status 5007 when it is null.
  explicit FMatrix(const FVector* column);
  FMatrix(const FMatrix&) = default;
  FMatrix& operator=(const FMatrix&) = default;
  virtual ~FMatrix();

  // Keep the columns (rows) whose flag is 1, in order, and remove all others. `keep` has a flag for
  // each. 5004 when it is of another length, 5007 when it is null, 5001 when memory runs out; the
  // matrix is then unchanged.
  virtual int DelCols(const XI1Vector* keep);
  virtual int DelRows(const XI1Vector* keep);

  // Append `count` columns (rows) set to `value`. 5001 when memory runs out, 5004 when `count` is
  // negative or the matrix would grow too large; the matrix is then unchanged.
  virtual int ExpCols(int count, float value);
  virtual int ExpRows(int count, float value);

  // Lists the matrix, a row a line; where `is_wrapped`, with 7 values to a line.
  virtual void Show(StreamWindow& window, bool is_wrapped) const;

  float** GetFMatPtr() const { return GetMatPtr(); }

  static constexpr const char* kNullText = "FMatrix is NULL";
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_F_MATRIX_H
