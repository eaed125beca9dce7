// The storage under the matrices.
#ifndef ZEMVA_NUMERIC_MATRIX_STORAGE_H
#define ZEMVA_NUMERIC_MATRIX_STORAGE_H

#include <algorithm>
#include <span>
#include <utility>

#include "numeric/row_storage.h"

namespace zemva {

// A matrix of NRow() by NCol() elements of type T, both counted from 1; row i is an allocation of
// its own, whose element 0 is never data. `Derived` is the matrix class.
template <typename Derived, typename T>
class MatrixStorage : public RowStorage<Derived, T> {
 public:
  using Element = T;
  using RowStorage<Derived, T>::RowStorage;

  // `row_count` by `column_count` elements set to `fill`.
  MatrixStorage(int row_count, int column_count, T fill) : MatrixStorage(row_count, column_count) {
    this->Fill(fill);
  }

  // A copy of `row_count` rows of `column_count` elements; both counted from 1, so that rows[0]
  // and rows[i][0] are not read. Empty with status 5007 when `rows` is null.
  MatrixStorage(T** rows, int row_count, int column_count)
      : MatrixStorage(rows ? row_count : 0, rows ? column_count : 0) {
    if (rows == nullptr) this->Report(status::mat::kNullPointer);
    for (int i = 1; i <= NRow(); ++i) std::copy_n(rows[i] + 1, column_count, (*this)[i] + 1);
  }

  int NRow() const { return this->RowCount(); }
  int NCol() const { return this->Width(); }

  // Element j of row i; what element 0 holds when there is no such element.
  T GetElement(int i, int j) const {
    const bool exists = i >= 1 && i <= NRow() && j >= 1 && j <= NCol();
    return exists ? (*this)[i][j] : kUnusedSlot<T>;
  }

  // Elements 1..NCol() of row i.
  std::span<T> Row(int i) { return this->RowValues(i); }
  std::span<const T> Row(int i) const { return this->RowValues(i); }

 protected:
  ~MatrixStorage() = default;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_MATRIX_STORAGE_H
