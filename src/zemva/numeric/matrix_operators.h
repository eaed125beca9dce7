// Sums, differences and products of matrices.
#ifndef ZEMVA_NUMERIC_MATRIX_OPERATORS_H
#define ZEMVA_NUMERIC_MATRIX_OPERATORS_H

#include <algorithm>

#include "zemva/numeric/row_kernels.h"

namespace zemva {

// values += factors[0] * rows[0] + factors[1] * rows[1] + ..., one term after the other.
inline void AddRows(float* values, const float* factors, const float* const* rows, int row_count,
                    int n) {
  GetRowKernels().add_rows(values, factors, rows, row_count, n);
}
inline void AddRows(double* values, const double* factors, const double* const* rows, int row_count,
                    int n) {
  for (int k = 0; k < row_count; ++k) {
    for (int j = 0; j < n; ++j) values[j] += factors[k] * rows[k][j + 1];
  }
}

// A new matrix of operation(left, right) element by element; empty when the sizes differ.
template <typename Matrix, typename Operation>
Matrix CombineElements(const Matrix& left, const Matrix& right, Operation operation) {
  const bool fits = left.NRow() == right.NRow() && left.NCol() == right.NCol();
  Matrix result(fits ? left.NRow() : 0, fits ? left.NCol() : 0, 0);
  for (int i = 1; i <= result.NRow(); ++i) {
    std::ranges::transform(left.Row(i), right.Row(i), result.Row(i).begin(), operation);
  }
  return result;
}

// A new matrix left * right; empty when the inner sizes differ. Each element adds its terms in
// ascending order, but a block of rows of the right operand is used for all rows of the left one
// while it is in the cache.
template <typename Matrix>
Matrix Multiply(const Matrix& left, const Matrix& right) {
  constexpr int kBlockElements = 1 << 16;
  const bool fits = left.NCol() == right.NRow();
  Matrix result(fits ? left.NRow() : 0, fits ? right.NCol() : 0, 0);
  const int block = std::max(kBlockElements / std::max(right.NCol(), 1), 4);
  for (int k = 1; k <= left.NCol(); k += block) {
    const int count = std::min(block, left.NCol() - k + 1);
    for (int i = 1; i <= result.NRow(); ++i) {
      AddRows(result[i] + 1, left[i] + k, right.GetMatPtr() + k, count, result.NCol());
    }
  }
  return result;
}

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_MATRIX_OPERATORS_H
