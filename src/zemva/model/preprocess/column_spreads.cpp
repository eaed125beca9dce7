#include "zemva/model/preprocess/column_spreads.h"

#include <algorithm>
#include <cmath>

#include "zemva/base/lane_sums.h"
#include "zemva/numeric/missing.h"
#include "zemva/numeric/row_kernels.h"

namespace zemva {
namespace {

// A variance or mean square up to this is none.
constexpr double kNegligible = 1e-30;

double InverseRoot(double mean_square) {
  return mean_square > kNegligible ? 1.0 / std::sqrt(mean_square) : static_cast<double>(kMissing);
}

constexpr std::size_t kBlock = 1024;

}  // namespace

ColumnSpreads::ColumnSpreads(const XFMatrix& matrix, const XI1Vector& mask, int first, int count)
    : first_(first),
      counts_(PaddedCount(static_cast<std::size_t>(count))),
      squares_(counts_.size()),
      deviations_(counts_.size()) {
  const auto width = static_cast<std::size_t>(count);
  std::vector<const float*> rows;
  for (std::size_t from = 0; from < width; from += kBlock) {
    rows.clear();
    for (int i = 1; i <= std::min(matrix.NRow(), mask.NVal()); ++i) {
      // The kernels begin behind element 0.
      if (mask[i] != 0) rows.push_back(matrix[i] + (first - 1) + from);
    }
    Measure(rows, from, std::min(kBlock, width - from));
  }
}

void ColumnSpreads::Measure(const std::vector<const float*>& rows, std::size_t from,
                            std::size_t count) {
  std::vector<double> means(PaddedCount(count));
  std::vector<int> missing_counts(means.size());
  const auto row_count = static_cast<int>(rows.size());
  const auto width = static_cast<int>(count);
  GetRowKernels().add_to_sums_and_squares(rows.data(), row_count, width, means.data(),
                                          &squares_[from], missing_counts.data());
  for (std::size_t k = 0; k < count; ++k) {
    counts_[from + k] = row_count - missing_counts[k];
    means[k] /= std::max(counts_[from + k], 1.0);
  }
  GetRowKernels().add_to_wide_deviations(rows.data(), row_count, width, means.data(),
                                         &deviations_[from]);
}

double ColumnSpreads::InverseDeviation(int column) const {
  const double count = counts_[Slot(column)];
  if (count < 2.0) return static_cast<double>(kMissing);
  return InverseRoot(deviations_[Slot(column)] / (count - 1.0));
}

double ColumnSpreads::InverseRootMeanSquare(int column) const {
  return InverseRoot(squares_[Slot(column)] / std::max(counts_[Slot(column)], 1.0));
}

}  // namespace zemva
