// Named matrices with counts of present values.
#ifndef ZEMVA_NUMERIC_X_MATRIX_H
#define ZEMVA_NUMERIC_X_MATRIX_H

#include <cstdint>
#include <memory>

#include "zemva/base/export.h"
#include "zemva/numeric/f_matrix.h"
#include "zemva/numeric/named.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

// Asks for a matrix whose contents are left as allocated.
struct Unfilled {};

// Writing elements does not change the counts, nor does what is done to the matrix as an FMatrix:
// SetActValInfo counts anew. A member that changes the shape marks the counts as out of date, and
// they are made when they are asked for next.
//
// There are at most 32,767 rows and as many columns, as the counts are 16-bit: a constructor whose
// matrix would be larger leaves it empty, and a member leaves it as it was, with status 5004.
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

  // As in the base; the counts are out of date then.
  int DelCols(const XI1Vector* keep) override;
  int DelRows(const XI1Vector* keep) override;
  int ExpCols(int count, float value) override;
  int ExpRows(int count, float value) override;

  // As in the base; the counts are out of date then, and with Read made.
  int DelRows(int first, int last);
  int Transp();
  int SwapRow(int i, int k);
  int SwapCol(int j, int k);
  int Read(const char* path);

  // The name, the count of all values and the elements, a row a line; where `is_wrapped`, with 7
  // values to a line.
  void Show(StreamWindow& window, bool is_wrapped) const override;

  // Counts of present values as counted last: in all, in row i, in column j; 0 where there was no
  // such row or column.
  int NValA() const { return UpToDate().present_count; }
  short NValARow(int i) const { return UpToDate().rows.Get(i); }
  short NValACol(int j) const { return UpToDate().columns.Get(j); }
  // The counts of the rows, 1..NRow(), and of the columns, 1..NCol(), as counted last.
  short* GetNValARowPtr() const { return UpToDate().rows.slots.get(); }
  short* GetNValAColPtr() const { return UpToDate().columns.slots.get(); }

  // Counts the present values. 5004 and 5001, with the counts as they were, for a matrix that was
  // made larger as an FMatrix, to more than 32,767 rows or columns or where memory runs out.
  int SetActValInfo();

  // The same in steps, for a caller that has just filled a row: StartActValInfo takes all values as
  // present, then AddRowToActValInfo takes off what is missing in row i, once for each row.
  int StartActValInfo();
  void AddRowToActValInfo(int row) { TakeOffMissing(row); }

  // Statistics of the columns and rows over their present values, each a new vector of that name
  // that is the caller's; null with status 5001 when memory runs out. Sums are in double.

  // The means of the columns; kMissing where no value is present.
  XFVector* Avg(const char* name) const;

  // The sums of squares; 0 where no value is present.
  XFVector* SSCol(const char* name) const;
  XFVector* SSRow(const char* name) const;

  // The variances as FVector::S2 defines them, where N is the count of present values as counted
  // last: where that is 0 the variance about the mean is not a number.
  XFVector* S2Col(const char* name, float centre, int df_loss, float df_factor) const;
  XFVector* S2Row(const char* name, float centre, int df_loss, float df_factor) const;

  // The smallest and the largest value of each column; kMissing where no value is present.
  XFVector* MinCol(const char* name) const;
  XFVector* MaxCol(const char* name) const;
  using FMatrix::MaxCol;
  using FMatrix::MinCol;

  // Column j and row i; null with status 5004 when there is no such column or row.
  XFVector* ExtCol(const char* name, int j) const;
  XFVector* ExtRow(const char* name, int i) const;

  // The weights that scale the columns to unit variance about `centre`:
  // 1 / sqrt(sum of (x - centre)^2 / (n - 1)); kMissing where fewer than two values are present or
  // the sum is 0. Null with status 5004 when `centre` has not an element for each column, 5007 when
  // it is null.
  XFVector* Autoweig(const char* name, const XFVector* centre) const;

  // Scales the columns: x becomes (x - centre) * weight with the weights of Autoweig, and missing
  // where the weight or the centre is; counts anew. The weights, named "Weig", with the codes of
  // Autoweig; the matrix is then unchanged.
  XFVector* Autoscale(const XFVector* centre);

  // Subtract the vector's element from every present value of its column, multiply them by it;
  // what meets a missing element becomes missing, and is then counted anew. 5004 when the vector
  // has not an element for each column, 5007 for null.
  int MSubVp(const XFVector* vector);
  int MDotMulVp(const XFVector* vector);

  // Add (subtract) t p': x becomes x + t[i] * p[j] in float, where x and t[i] are present. 5004
  // when t has not an element for each row or p for each column, 5007 for null.
  int Addcomp(const XFVector* t, const XFVector* p);
  int Subcomp(const XFVector* t, const XFVector* p);

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "XFMatrix is NULL.";

 private:
  // Of the rows or columns 1..size, as counted last; slots for 1..capacity.
  struct Counts {
    short Get(int i) const {
      return i >= 1 && i <= size ? slots[static_cast<std::size_t>(i)] : short{0};
    }
    bool Reserve(int count);
    void SetAll(int count, int value);
    void Take(const Counts& other, int count);

    std::unique_ptr<short[]> slots;
    int size = 0;
    int capacity = 0;
  };
  struct PresentCounts {
    int present_count = 0;
    Counts rows;
    Counts columns;
  };

  // The counts, which are made first where they are out of date.
  const PresentCounts& UpToDate() const {
    if (is_out_of_date_) Recount();
    return counts_;
  }
  void Recount() const;
  void TakeAllAsPresent() const;
  void TakeOffMissing(int row) const;
  // Makes room for counts, all 0; the matrix is left empty when there is none.
  void InitCounts();
  int ReserveCounts(std::int64_t row_count, std::int64_t column_count);
  // Marks the counts as out of date where `result`, which it returns, is no failure.
  int MarkIf(int result);
  int CheckColumns(const XFVector* vector) const;
  int CombineRows(const XFVector* vector, void (*operation)(float*, const float*, int));
  int AddMultiples(const XFVector* t, const XFVector* p,
                   void (*operation)(float*, float, const float*, int));
  void CopyCounts(const XFMatrix& other);
  int CellCount() const;

  // Room for the counts is there before they are out of date.
  mutable PresentCounts counts_;
  mutable bool is_out_of_date_ = false;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_X_MATRIX_H
