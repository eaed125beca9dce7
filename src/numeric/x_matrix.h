// Named matrices with counts of present values.
#ifndef ZEMVA_NUMERIC_X_MATRIX_H
#define ZEMVA_NUMERIC_X_MATRIX_H

#include <memory>

#include "base/export.h"
#include "numeric/f_matrix.h"
#include "numeric/named.h"

namespace zemva {

// Asks for a matrix whose contents are left as allocated.
struct Unfilled {};

// Writing elements does not change the counts: SetActValInfo counts anew.
class ZEMVA_API XFMatrix : public Named<XFMatrix, FMatrix> {
 public:
  // Filled; the counts of rows and columns are not: SetActValInfo sets them.
  XFMatrix(const char* name, int row_count, int column_count, float fill);
  // Contents as allocated, all counts 0: for a caller that fills row by row.
  XFMatrix(const char* name, int row_count, int column_count, Unfilled);
  // A copy of rows[1..row_count][1..column_count], counted. Empty with status 5007 for null.
  XFMatrix(const char* name, float** rows, int row_count, int column_count);
  XFMatrix(const XFMatrix& other);
  explicit XFMatrix(const XFMatrix* other);
  XFMatrix& operator=(const XFMatrix& other);
  ~XFMatrix() override;

  // Copies name, contents and counts of a matrix of the same size, with the codes of the base.
  int Copy(const XFMatrix* other);

  // As in the base; the values are counted anew.
  int DelCols(const XI1Vector* keep) override;
  int DelRows(const XI1Vector* keep) override;
  int ExpCols(int count, float value) override;
  int ExpRows(int count, float value) override;

  void Show(StreamWindow& window, bool is_wrapped) const override;

  // Counts of present values as counted last: in all, in row i, in column j. The counts of rows and
  // columns are kept modulo 2^16.
  int NValA() const { return present_count_; }
  short NValARow(int i) const { return row_counts_[static_cast<std::size_t>(i)]; }
  short NValACol(int j) const { return column_counts_[static_cast<std::size_t>(j)]; }
  // The counts of the rows, 1..NRow(), and of the columns, 1..NCol().
  short* GetNValARowPtr() const { return row_counts_.get(); }
  short* GetNValAColPtr() const { return column_counts_.get(); }

  // Counts the present values.
  void SetActValInfo();

  // The same in steps, for a caller that has just filled a row: StartActValInfo takes all values as
  // present, then AddRowToActValInfo takes off what is missing in row i, once for each row.
  void StartActValInfo();
  void AddRowToActValInfo(int row);

  static constexpr const char* kNullText = "XFMatrix is NULL.";

 private:
  // Makes room for counts, all 0; the matrix is left empty with status 5001 when there is none.
  void InitCounts();
  void CopyCounts(const XFMatrix& other);
  int CellCount() const;

  int present_count_ = 0;
  std::unique_ptr<short[]> row_counts_;
  std::unique_ptr<short[]> column_counts_;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_X_MATRIX_H
