// Parts and column extrema of a matrix.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>

#include "zemva/numeric/f_matrix.h"
#include "zemva/numeric/row_kernels.h"
#include "zemva/numeric/slots.h"
#include "zemva/numeric/vector.h"

namespace zemva {
namespace {

constexpr bool kUnfilled = false;
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// The positions that an extraction takes: those with the wanted flag, or those listed.
class Selection {
 public:
  Selection(const I1Vector* flags, char wanted, int count) {
    if (!Check(flags, flags && flags->NVal() == count)) return;
    Reserve(flags->GetNEqual(wanted));
    for (int i = 1; i <= count; ++i) {
      if ((*flags)[i] == wanted) Take(i);
    }
  }

  Selection(const I2Vector* positions, int count) {
    const auto exists = [count](int position) { return position >= 1 && position <= count; };
    if (!Check(positions, positions && std::ranges::all_of(positions->Values(), exists))) return;
    Reserve(positions->NVal());
    for (const short position : positions->Values()) Take(position);
  }

  int GetStatus() const { return status_; }
  int Count() const { return count_; }
  int operator[](int k) const { return positions_[static_cast<std::size_t>(k)]; }

 private:
  bool Check(const void* argument, bool fits) {
    if (argument == nullptr) {
      status_ = status::mat::kNullPointer;
    } else if (!fits) {
      status_ = status::mat::kDimension;
    }
    return status_ == status::kOk;
  }

  void Reserve(int count) {
    positions_ = AllocateSlots<int>(count);
    if (!positions_) status_ = status::mat::kMemory;
  }

  void Take(int position) {
    if (positions_) positions_[static_cast<std::size_t>(++count_)] = position;
  }

  std::unique_ptr<int[]> positions_;
  int count_ = 0;
  int status_ = status::kOk;
};

// The matrix of the selected rows, and that of the selected columns; null after a failure.
std::unique_ptr<FMatrix> TakeRows(const FMatrix& matrix, const Selection& rows) {
  if (rows.GetStatus() != status::kOk) return nullptr;
  auto result = MakeObject<FMatrix>(rows.Count(), matrix.NCol(), kMissing, kUnfilled);
  for (int k = 1; result && k <= rows.Count(); ++k) {
    std::ranges::copy(matrix.Row(rows[k]), result->Row(k).begin());
  }
  return result;
}

std::unique_ptr<FMatrix> TakeColumns(const FMatrix& matrix, const Selection& columns) {
  if (columns.GetStatus() != status::kOk) return nullptr;
  auto result = MakeObject<FMatrix>(matrix.NRow(), columns.Count(), kMissing, kUnfilled);
  for (int i = 1; result && i <= matrix.NRow(); ++i) {
    for (int k = 1; k <= columns.Count(); ++k) (*result)[i][k] = matrix[i][columns[k]];
  }
  return result;
}

// An extremum that is still infinite has found nothing, or infinite values.
void MarkEmptyColumns(const FMatrix& matrix, FVector& extrema) {
  for (int j = 1; j <= matrix.NCol(); ++j) {
    if (!std::isinf(extrema[j])) continue;
    int i = 1;
    while (i <= matrix.NRow() && IsMissing(matrix[i][j])) ++i;
    if (i > matrix.NRow()) extrema[j] = kMissing;
  }
}

}  // namespace

FMatrix* FMatrix::ExtRows(const I1Vector* flags, char wanted) const {
  const Selection rows(flags, wanted, NRow());
  return HandOver(TakeRows(*this, rows), rows.GetStatus());
}

FMatrix* FMatrix::ExtCols(const I1Vector* flags, char wanted) const {
  const Selection columns(flags, wanted, NCol());
  return HandOver(TakeColumns(*this, columns), columns.GetStatus());
}

FMatrix* FMatrix::ExtRows(const I2Vector* positions) const {
  const Selection rows(positions, NRow());
  return HandOver(TakeRows(*this, rows), rows.GetStatus());
}

FMatrix* FMatrix::ExtCols(const I2Vector* positions) const {
  const Selection columns(positions, NCol());
  return HandOver(TakeColumns(*this, columns), columns.GetStatus());
}

FVector* FMatrix::MaxCol() const {
  auto maxima = MakeObject<FVector>(NCol(), kMissing);
  if (maxima) FindMaxima(*maxima);
  return HandOver(std::move(maxima));
}

FVector* FMatrix::MinCol() const {
  auto minima = MakeObject<FVector>(NCol(), kMissing);
  if (minima) FindMinima(*minima);
  return HandOver(std::move(minima));
}

void FMatrix::FindMaxima(FVector& maxima) const {
  std::ranges::fill(maxima.Values(), -kInfinity);
  GetRowKernels().update_greatest(GetMatPtr() + 1, NRow(), NCol(), maxima.Values().data());
  MarkEmptyColumns(*this, maxima);
}

void FMatrix::FindMinima(FVector& minima) const {
  std::ranges::fill(minima.Values(), kInfinity);
  GetRowKernels().update_least(GetMatPtr() + 1, NRow(), NCol(), minima.Values().data());
  MarkEmptyColumns(*this, minima);
}

}  // namespace zemva
