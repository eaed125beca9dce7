// Matrices of single-precision values.
#ifndef ZEMVA_NUMERIC_F_MATRIX_H
#define ZEMVA_NUMERIC_F_MATRIX_H

#include "zemva/base/export.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/matrix_storage.h"

namespace zemva {

class FVector;
class I1Vector;
class I2Vector;
class XI1Vector;

// Values of which some may be missing. The algebra knows no missing value and takes the marker as
// the number that it is.
//
// The members that return a matrix or vector by pointer hand a new one over to the caller; null
// when they fail, with the code in the status.
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
  // each. 5004 when it is of another length, 5007 when it is null, DelCols 5001 when memory runs
  // out; the matrix is then unchanged.
  virtual int DelCols(const XI1Vector* keep);
  virtual int DelRows(const XI1Vector* keep);

  // Append `count` columns (rows) set to `value`. 5001 when memory runs out, 5004 when `count` is
  // negative or the matrix would grow too large; the matrix is then unchanged.
  virtual int ExpCols(int count, float value);
  virtual int ExpRows(int count, float value);

  // Removes the rows first..last. 5004, with the matrix unchanged, when these are no rows of the
  // matrix in order.
  int DelRows(int first, int last);

  // The rows (columns) whose flag equals `wanted`, in order. 5004 when there is not a flag for
  // each, 5007 for null.
  FMatrix* ExtRows(const I1Vector* flags, char wanted) const;
  FMatrix* ExtCols(const I1Vector* flags, char wanted) const;

  // The rows (columns) at the listed positions, in the order of the list. 5004 when there is no
  // such position, 5007 for null.
  FMatrix* ExtRows(const I2Vector* positions) const;
  FMatrix* ExtCols(const I2Vector* positions) const;

  // The largest (smallest) present value of each column; kMissing for a column that has none.
  FVector* MaxCol() const;
  FVector* MinCol() const;

  // Sum, difference and product, in float; the product adds its terms in ascending order. When the
  // sizes do not fit the result is empty, and no status is set.
  //
  // The result lands in one of the two work matrices of the class: in MStat when that is empty or
  // one of the operands, else in MStat2; MStat2 is emptied when it is an operand and the result
  // lands in MStat. A result is good until a later operator overwrites its work matrix: whoever
  // combines two results, as in A * B + C * D, empties MStat first. Not for several threads.
  FMatrix& operator+(const FMatrix& right) const;
  FMatrix& operator-(const FMatrix& right) const;
  FMatrix& operator*(const FMatrix& right) const;

  // The work matrices of the operators.
  static FMatrix& MStat;
  static FMatrix& MStat2;

  // Inverts the matrix in place, by LU decomposition. 5004 when it is not square or larger than
  // 32,767, 5005 when a row is all 0, 5001; the matrix is then unchanged.
  int MInv();

  // The determinant, by LU decomposition, which without `is_kept` overwrites the matrix; +1e300
  // when its absolute value would exceed that. kMissing with the codes of MInv when it fails.
  double Det(bool is_kept);

  // The singular value decomposition  A = U W V'  of an r by c matrix, with k the smaller of both:
  // U is r by k and V is c by k, with orthonormal columns; W is k by k and diagonal, its elements
  // descending. The three matrices are new and the caller's; null when it fails: 5000 when a value
  // is not finite or the iteration does not converge, 5001.
  int SVD(FMatrix*& u, FMatrix*& w, FMatrix*& v) const;

  // The sum of the diagonal. kMissing with status 5004 when the matrix is not square.
  double Trace() const;

  // The ratio of the largest singular value to the smallest, the square root of that of X'X. A
  // ratio that rounding in double precision makes meaningless (about 1e8 and above) is kMissing, as
  // is that of a matrix whose columns depend on one another.
  double CondNo() const;

  // Replaces the matrix by that of a file; 5000 when the file cannot be read or is not a matrix,
  // 5007 for null, 5001; the matrix is then unchanged.
  int Read(const char* path);

  // Writes the matrix to a file, in the place of what is there, such that Read gives back the same
  // bits. 5000 when it cannot be written, 5007 for null.
  int Write(const char* path) const;

  // Lists the matrix, a row a line; where `is_wrapped`, with 7 values to a line.
  virtual void Show(StreamWindow& window, bool is_wrapped) const;

  // As GetMatPtr.
  float** GetFMatPtr() const { return GetMatPtr(); }

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "FMatrix is NULL";

 protected:
  // What MaxCol and MinCol return, into a vector of NCol() elements.
  void FindMaxima(FVector& maxima) const;
  void FindMinima(FVector& minima) const;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_F_MATRIX_H
