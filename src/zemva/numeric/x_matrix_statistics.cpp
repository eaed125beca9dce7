// The statistics of a matrix by columns and rows.
#include <cmath>
#include <memory>

#include "zemva/numeric/row_kernels.h"
#include "zemva/numeric/slots.h"
#include "zemva/numeric/variance.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva {
namespace {

// An accumulator a column, for the kernels.
DVector Accumulators(const FMatrix& matrix) {
  return DVector(PaddedCount(matrix.NCol()), 0.0);
}

// Sums of columns and how many of their values are missing.
class ColumnSums {
 public:
  explicit ColumnSums(const FMatrix& matrix)
      : sums_(Accumulators(matrix)), missing_counts_(AllocateSlots<int>(sums_.NVal())) {
    if (missing_counts_) std::fill_n(missing_counts_.get(), sums_.NVal(), 0);
  }

  bool IsMade() const { return sums_.GetStatus() == status::kOk && missing_counts_ != nullptr; }

  // From 0, as the kernels want them.
  double* Sums() { return sums_.Values().data(); }
  int* MissingCounts() { return missing_counts_.get(); }

  // Of column j, from 1.
  double Sum(int j) const { return sums_[j]; }
  int MissingCount(int j) const { return missing_counts_[static_cast<std::size_t>(j - 1)]; }

 private:
  DVector sums_;
  std::unique_ptr<int[]> missing_counts_;
};

float WeightOf(double squares, int count) {
  if (count < 2 || squares == 0.0) return kMissing;
  return static_cast<float>(1.0 / std::sqrt(squares / (count - 1)));
}

}  // namespace

XFVector* XFMatrix::Avg(const char* name) const {
  auto means = MakeObject<XFVector>(name, NCol(), 0.0f);
  ColumnSums columns(*this);
  if (!means || !columns.IsMade()) return HandOver<XFVector>(nullptr);
  GetRowKernels().add_to_sums(GetMatPtr() + 1, NRow(), NCol(), columns.Sums(),
                              columns.MissingCounts());
  for (int j = 1; j <= NCol(); ++j) {
    const int count = NRow() - columns.MissingCount(j);
    (*means)[j] = count > 0 ? static_cast<float>(columns.Sum(j) / count) : kMissing;
  }
  means->SetActValInfo();
  return HandOver(std::move(means));
}

XFVector* XFMatrix::SSCol(const char* name) const {
  auto result = MakeObject<XFVector>(name, NCol(), 0.0f);
  DVector squares = Accumulators(*this);
  if (!result || squares.GetStatus() != status::kOk) return HandOver<XFVector>(nullptr);
  GetRowKernels().add_to_squares(GetMatPtr() + 1, NRow(), NCol(), squares.Values().data());
  for (int j = 1; j <= NCol(); ++j) (*result)[j] = static_cast<float>(squares[j]);
  result->SetActValInfo();
  return HandOver(std::move(result));
}

XFVector* XFMatrix::SSRow(const char* name) const {
  auto result = MakeObject<XFVector>(name, NRow(), 0.0f);
  if (!result) return HandOver<XFVector>(nullptr);
  for (int i = 1; i <= NRow(); ++i) {
    const PresentSum squares = GetRowKernels().sum_of_squares(Row(i).data(), NCol());
    (*result)[i] = static_cast<float>(squares.sum);
  }
  result->SetActValInfo();
  return HandOver(std::move(result));
}

XFVector* XFMatrix::S2Col(const char* name, float centre, int df_loss, float df_factor) const {
  auto result = MakeObject<XFVector>(name, NCol(), 0.0f);
  ColumnSums columns(*this);
  DVector squares = Accumulators(*this);
  if (!result || !columns.IsMade() || squares.GetStatus() != status::kOk) {
    return HandOver<XFVector>(nullptr);
  }
  GetRowKernels().add_to_sums_and_squares(GetMatPtr() + 1, NRow(), NCol(), columns.Sums(),
                                          squares.Values().data(), columns.MissingCounts());
  const VarianceRule variance{centre, df_loss, df_factor};
  for (int j = 1; j <= NCol(); ++j) {
    (*result)[j] = static_cast<float>(variance.Apply(NValACol(j), columns.Sum(j), squares[j]));
  }
  result->SetActValInfo();
  return HandOver(std::move(result));
}

XFVector* XFMatrix::S2Row(const char* name, float centre, int df_loss, float df_factor) const {
  auto result = MakeObject<XFVector>(name, NRow(), 0.0f);
  if (!result) return HandOver<XFVector>(nullptr);
  const VarianceRule variance{centre, df_loss, df_factor};
  for (int i = 1; i <= NRow(); ++i) {
    double squares = 0.0;
    const double sum = GetRowKernels().sum_and_squares(Row(i).data(), NCol(), &squares).sum;
    (*result)[i] = static_cast<float>(variance.Apply(NValARow(i), sum, squares));
  }
  result->SetActValInfo();
  return HandOver(std::move(result));
}

XFVector* XFMatrix::MinCol(const char* name) const {
  auto minima = MakeObject<XFVector>(name, NCol(), kMissing);
  if (minima) {
    FindMinima(*minima);
    minima->SetActValInfo();
  }
  return HandOver(std::move(minima));
}

XFVector* XFMatrix::MaxCol(const char* name) const {
  auto maxima = MakeObject<XFVector>(name, NCol(), kMissing);
  if (maxima) {
    FindMaxima(*maxima);
    maxima->SetActValInfo();
  }
  return HandOver(std::move(maxima));
}

XFVector* XFMatrix::ExtCol(const char* name, int j) const {
  if (!HasColumn(j)) return HandOver<XFVector>(nullptr, status::mat::kDimension);
  auto column = MakeObject<XFVector>(name, NRow(), kMissing);
  if (column) {
    for (int i = 1; i <= NRow(); ++i) (*column)[i] = (*this)[i][j];
    column->SetActValInfo();
  }
  return HandOver(std::move(column));
}

XFVector* XFMatrix::ExtRow(const char* name, int i) const {
  if (!HasRow(i)) return HandOver<XFVector>(nullptr, status::mat::kDimension);
  auto row = MakeObject<XFVector>(name, NCol(), kMissing);
  if (row) {
    std::ranges::copy(Row(i), row->Values().begin());
    row->SetActValInfo();
  }
  return HandOver(std::move(row));
}

XFVector* XFMatrix::Autoweig(const char* name, const XFVector* centre) const {
  const int check = CheckColumns(centre);
  if (check != status::kOk) return HandOver<XFVector>(nullptr, check);
  auto weights = MakeObject<XFVector>(name, NCol(), kMissing);
  ColumnSums columns(*this);
  if (!weights || !columns.IsMade()) return HandOver<XFVector>(nullptr);
  GetRowKernels().add_to_deviations(GetMatPtr() + 1, NRow(), NCol(), centre->Values().data(),
                                    columns.Sums(), columns.MissingCounts());
  for (int j = 1; j <= NCol(); ++j) {
    (*weights)[j] = WeightOf(columns.Sum(j), NRow() - columns.MissingCount(j));
  }
  weights->SetActValInfo();
  return HandOver(std::move(weights));
}

XFVector* XFMatrix::Autoscale(const XFVector* centre) {
  XFVector* const weights = Autoweig("Weig", centre);
  if (weights == nullptr) return nullptr;
  StartActValInfo();
  for (int i = 1; i <= NRow(); ++i) {
    GetRowKernels().scale(Row(i).data(), centre->Values().data(), weights->Values().data(), NCol());
    AddRowToActValInfo(i);
  }
  return weights;
}

}  // namespace zemva
