// LU decomposition.
#ifndef ZEMVA_NUMERIC_LU_H
#define ZEMVA_NUMERIC_LU_H

#include <algorithm>
#include <cmath>
#include <limits>

#include "zemva/errors/status.h"
#include "zemva/numeric/vector.h"

namespace zemva {

// What stands against decomposing a matrix: that it is not square, or has more rows than a short
// counts.
template <typename Matrix>
int CheckSquare(const Matrix& matrix) {
  const bool fits =
      matrix.NRow() == matrix.NCol() && matrix.NRow() <= std::numeric_limits<short>::max();
  return fits ? status::kOk : status::mat::kDimension;
}

// Decomposes the n by n matrix A in place into P A = L U by Crout's method with implicit scaling of
// the rows and partial pivoting (Golub and Van Loan, Matrix Computations, 3.4): L below the
// diagonal, with ones on it, U on and above it. Elements keep their type and inner products are
// summed in double.
template <typename Matrix>
class LuDecomposition {
 public:
  // The codes: 5005 when a row is all 0, which leaves the matrix as it was; 5001.
  explicit LuDecomposition(Matrix& matrix)
      : matrix_(matrix),
        order_(matrix.NRow(), 0),
        scale_(matrix.NRow(), 0.0),
        column_(matrix.NRow(), 0.0) {
    status_ = Scale();
    for (int j = 1; status_ == status::kOk && j <= matrix_.NRow(); ++j) DecomposeColumn(j);
  }

  // The code of a failure, else 0.
  int GetStatus() const { return status_; }

  // 1 or -1: the sign of the row exchanges.
  int Sign() const { return sign_; }

  // Solves A x = b in place: `b` becomes x.
  void Solve(DVector& b) const {
    const int n = matrix_.NRow();
    for (int i = 1; i <= n; ++i) {
      std::swap(b[i], b[order_[i]]);
      b[i] -= InnerProduct(i, 1, i - 1, b);
    }
    for (int i = n; i >= 1; --i) b[i] = (b[i] - InnerProduct(i, i + 1, n, b)) / matrix_[i][i];
  }

 private:
  using Element = typename Matrix::Element;

  // The reciprocal of the largest absolute value of each row.
  int Scale() {
    for (const DVector* work : {&scale_, &column_}) {
      if (work->GetStatus() != status::kOk) return work->GetStatus();
    }
    if (order_.GetStatus() != status::kOk) return order_.GetStatus();
    for (int i = 1; i <= matrix_.NRow(); ++i) {
      double largest = 0.0;
      for (const Element element : matrix_.Row(i)) {
        largest = std::max(largest, std::fabs(static_cast<double>(element)));
      }
      if (largest == 0.0) return status::mat::kSingular;
      scale_[i] = 1.0 / largest;
    }
    return status::kOk;
  }

  // The work column stands in for column j, so that inner products run along rows.
  void DecomposeColumn(int j) {
    const int n = matrix_.NRow();
    for (int i = 1; i <= n; ++i) column_[i] = static_cast<double>(matrix_[i][j]);
    for (int i = 1; i <= n; ++i) {
      const double rest = column_[i] - InnerProduct(i, 1, std::min(i, j) - 1, column_);
      matrix_[i][j] = static_cast<Element>(rest);
      column_[i] = static_cast<double>(matrix_[i][j]);
    }
    Pivot(j);
    for (int i = j + 1; i <= n; ++i) {
      matrix_[i][j] = static_cast<Element>(column_[i] / static_cast<double>(matrix_[j][j]));
    }
  }

  // Puts the row with the largest scaled element of column j, of equal ones the last, in row j.
  void Pivot(int j) {
    constexpr double kSmallestPivot = 1e-16;
    int pivot = j;
    for (int i = j + 1; i <= matrix_.NRow(); ++i) {
      if (ScaledSize(i) >= ScaledSize(pivot)) pivot = i;
    }
    order_[j] = static_cast<short>(pivot);
    if (pivot != j) {
      matrix_.SwapRow(j, pivot);
      std::swap(column_[j], column_[pivot]);
      scale_[pivot] = scale_[j];
      sign_ = -sign_;
    }
    if (std::fabs(column_[j]) < kSmallestPivot) {
      const double replaced = column_[j] < 0.0 ? -kSmallestPivot : kSmallestPivot;
      matrix_[j][j] = static_cast<Element>(replaced);
    }
  }

  double ScaledSize(int i) const { return scale_[i] * std::fabs(column_[i]); }

  // Of row i and `vector` from element `first` to element `last`.
  double InnerProduct(int i, int first, int last, const DVector& vector) const {
    const Element* const row = matrix_[i];
    double sum = 0.0;
    for (int k = first; k <= last; ++k) sum += static_cast<double>(row[k]) * vector[k];
    return sum;
  }

  Matrix& matrix_;
  I2Vector order_;
  DVector scale_;
  DVector column_;
  int sign_ = 1;
  int status_ = status::kOk;
};

// Replaces a square matrix by its inverse, of which column k solves A x = e[k].
template <typename Matrix>
int Invert(Matrix& matrix) {
  const int check = CheckSquare(matrix);
  if (check != status::kOk) return check;
  Matrix factors(matrix);
  DVector column(matrix.NRow(), 0.0);
  if (factors.GetStatus() != status::kOk) return factors.GetStatus();
  if (column.GetStatus() != status::kOk) return column.GetStatus();
  const LuDecomposition<Matrix> lu(factors);
  if (lu.GetStatus() != status::kOk) return lu.GetStatus();
  for (int k = 1; k <= matrix.NRow(); ++k) {
    std::ranges::fill(column.Values(), 0.0);
    column[k] = 1.0;
    lu.Solve(column);
    for (int i = 1; i <= matrix.NRow(); ++i) {
      matrix[i][k] = static_cast<typename Matrix::Element>(column[i]);
    }
  }
  return status::kOk;
}

// The determinant of a matrix that is overwritten by its factors; 1e300 when it would be larger.
template <typename Matrix>
int DeterminantInPlace(Matrix& matrix, double& determinant) {
  constexpr double kLargest = 1e300;
  const int check = CheckSquare(matrix);
  if (check != status::kOk) return check;
  const LuDecomposition<Matrix> lu(matrix);
  if (lu.GetStatus() != status::kOk) return lu.GetStatus();
  determinant = lu.Sign();
  for (int i = 1; i <= matrix.NRow(); ++i) {
    const double factor = static_cast<double>(matrix[i][i]);
    const double size = std::fabs(factor);
    if (size > 1.0 && std::fabs(determinant) >= kLargest / size) {
      determinant = kLargest;
      break;
    }
    determinant *= factor;
  }
  return status::kOk;
}

template <typename Matrix>
int Determinant(Matrix& matrix, bool is_kept, double& determinant) {
  if (!is_kept) return DeterminantInPlace(matrix, determinant);
  Matrix factors(matrix);
  if (factors.GetStatus() != status::kOk) return factors.GetStatus();
  return DeterminantInPlace(factors, determinant);
}

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_LU_H
