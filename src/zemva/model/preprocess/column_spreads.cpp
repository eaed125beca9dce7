#include "zemva/model/preprocess/column_spreads.h"

#include <algorithm>
#include <cmath>

#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

// A variance or mean square up to this is none.
constexpr double kNegligible = 1e-30;

double InverseRoot(double mean_square) {
  return mean_square > kNegligible ? 1.0 / std::sqrt(mean_square) : static_cast<double>(kMissing);
}

// Calls visit with the first of the columns in each row of the mask.
template <typename Visit>
void ForEachRow(const XFMatrix& matrix, const XI1Vector& mask, int first, Visit visit) {
  for (int i = 1; i <= std::min(matrix.NRow(), mask.NVal()); ++i) {
    if (mask[i] != 0) visit(matrix[i] + first);
  }
}

}  // namespace

ColumnSpreads::ColumnSpreads(const XFMatrix& matrix, const XI1Vector& mask, int first, int count)
    : first_(first),
      counts_(static_cast<std::size_t>(count)),
      squares_(counts_.size()),
      deviations_(counts_.size()) {
  std::vector<double> means(counts_.size());
  // What is missing adds 0, without a branch.
  ForEachRow(matrix, mask, first, [&](const float* row) {
    for (std::size_t k = 0; k < means.size(); ++k) {
      const bool is_present = !IsMissing(row[k]);
      const double value = is_present ? static_cast<double>(row[k]) : 0.0;
      counts_[k] += is_present ? 1.0 : 0.0;
      means[k] += value;
      squares_[k] += value * value;
    }
  });
  for (std::size_t k = 0; k < means.size(); ++k) means[k] /= std::max(counts_[k], 1.0);
  ForEachRow(matrix, mask, first, [&](const float* row) {
    for (std::size_t k = 0; k < means.size(); ++k) {
      const double deviation = IsMissing(row[k]) ? 0.0 : static_cast<double>(row[k]) - means[k];
      deviations_[k] += deviation * deviation;
    }
  });
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
