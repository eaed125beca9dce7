#include "zemva/numeric/f_matrix.h"

#include "zemva/errors/listing.h"
#include "zemva/numeric/vector_listing.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {
namespace {

constexpr char kKept = 1;

// What stands against removing by these flags one of `count` rows or columns.
int CheckFlags(const XI1Vector* keep, int count) {
  if (keep == nullptr) return status::mat::kNullPointer;
  return keep->NVal() == count ? status::kOk : status::mat::kDimension;
}

bool KeepsAll(const XI1Vector& keep) {
  return std::ranges::all_of(keep.Values(), [](char flag) { return flag == kKept; });
}

}  // namespace

FMatrix::FMatrix(int row_count, int column_count, float fill, bool is_filled)
    : MatrixStorage(row_count, column_count) {
  if (is_filled) Fill(fill);
}

FMatrix::FMatrix(const FVector* column) : MatrixStorage(column ? column->NVal() : 0, 1) {
  if (column == nullptr) Report(status::mat::kNullPointer);
  for (int i = 1; i <= NRow(); ++i) (*this)[i][1] = (*column)[i];
}

FMatrix::~FMatrix() = default;

int FMatrix::DelCols(const XI1Vector* keep) {
  const int check = CheckFlags(keep, NCol());
  if (check != status::kOk) return Report(check);
  if (KeepsAll(*keep)) return status::kOk;
  return KeepColumns([keep](int j) { return (*keep)[j] == kKept; });
}

int FMatrix::DelRows(const XI1Vector* keep) {
  const int check = CheckFlags(keep, NRow());
  if (check != status::kOk) return Report(check);
  if (KeepsAll(*keep)) return status::kOk;
  KeepRows([keep](int i) { return (*keep)[i] == kKept; });
  return status::kOk;
}

int FMatrix::ExpCols(int count, float value) {
  return AppendColumns(count, value);
}

int FMatrix::ExpRows(int count, float value) {
  return AppendRows(count, value);
}

int FMatrix::DelRows(int first, int last) {
  if (!HasRow(first) || !HasRow(last) || last < first) return Report(status::mat::kDimension);
  RemoveRows(first, last);
  return status::kOk;
}

void FMatrix::Show(StreamWindow& window, bool is_wrapped) const {
  Listing(window)
      .Text("Matrix has ")
      .Number(NRow())
      .Text(" rows and ")
      .Number(NCol())
      .Text(" columns of float:")
      .EndLine();
  for (int i = 1; i <= NRow(); ++i) ListValues(window, Row(i), is_wrapped);
}

}  // namespace zemva
