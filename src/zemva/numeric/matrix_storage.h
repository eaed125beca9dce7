// The storage under the matrices.
#ifndef ZEMVA_NUMERIC_MATRIX_STORAGE_H
#define ZEMVA_NUMERIC_MATRIX_STORAGE_H

#include <algorithm>
#include <span>
#include <utility>

#include "zemva/numeric/row_storage.h"

namespace zemva {

// A matrix of NRow() by NCol() elements of type T, both counted from 1; element 0 of a row is never
// data. `Derived` is the matrix class.
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

  // The numbers of rows and columns.
  int NRow() const { return this->RowCount(); }
  int NCol() const { return this->Width(); }

  // Element j of row i; what element 0 holds when there is no such element.
  T GetElement(int i, int j) const {
    return HasRow(i) && HasColumn(j) ? (*this)[i][j] : kUnusedSlot<T>;
  }

  // Puts rows in the place of columns. 5001, with nothing changed, when memory runs out.
  int Transp() {
    MatrixStorage transposed(NCol(), NRow());
    if (transposed.GetStatus() != status::kOk) return this->Report(transposed.GetStatus());
    // Square tiles keep the cache lines that are written to in the cache.
    constexpr int kTile = 16;
    for (int top = 1; top <= NRow(); top += kTile) {
      const int bottom = std::min(top + kTile - 1, NRow());
      for (int left = 1; left <= NCol(); left += kTile) {
        const int right = std::min(left + kTile - 1, NCol());
        for (int j = left; j <= right; ++j) {
          for (int i = top; i <= bottom; ++i) transposed[j][i] = (*this)[i][j];
        }
      }
    }
    this->Swap(transposed);
    return status::kOk;
  }

  // Exchange two rows (columns). 5004, with nothing changed, when one of them does not exist.
  int SwapRow(int i, int k) {
    if (!HasRow(i) || !HasRow(k)) return this->Report(status::mat::kDimension);
    std::swap(this->GetMatPtr()[i], this->GetMatPtr()[k]);
    return status::kOk;
  }
  int SwapCol(int j, int k) {
    if (!HasColumn(j) || !HasColumn(k)) return this->Report(status::mat::kDimension);
    for (int i = 1; i <= NRow(); ++i) std::swap((*this)[i][j], (*this)[i][k]);
    return status::kOk;
  }

  // Elements 1..NCol() of row i.
  std::span<T> Row(int i) { return this->RowValues(i); }
  std::span<const T> Row(int i) const { return this->RowValues(i); }

 protected:
  ~MatrixStorage() = default;

  bool HasRow(int i) const { return i >= 1 && i <= NRow(); }
  bool HasColumn(int j) const { return j >= 1 && j <= NCol(); }

  // Moves the result of an operator on `left` and `right` into one of the class's two work matrices
  // and returns that one: the first where it is empty or an operand, emptying the second if that
  // was an operand too; else the second.
  static Derived& KeepResult(Derived& result, const Derived& left, const Derived& right,
                             Derived& first, Derived& second) {
    const auto is_operand = [&](const Derived& work) { return &left == &work || &right == &work; };
    const bool is_first_used = is_operand(first) || first.NRow() == 0;
    Derived& work = is_first_used ? first : second;
    if (is_first_used && is_operand(second)) second.Release();
    work.Swap(result);
    work.Report(result.GetStatus());
    return work;
  }
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_MATRIX_STORAGE_H
