// How the values of columns spread, which scaling weights are made of.
#ifndef ZEMVA_MODEL_PREPROCESS_COLUMN_SPREADS_H
#define ZEMVA_MODEL_PREPROCESS_COLUMN_SPREADS_H

#include <cstddef>
#include <vector>

#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

// Of some columns of a matrix, over the present values in the rows that have a byte in a mask other
// than 0. It goes row by row over as many columns as stay in the cache until they are read again;
// each column's sums are in double and in the order of the rows.
class ColumnSpreads {
 public:
  // Of `count` columns from `first` on. Throws std::bad_alloc.
  ColumnSpreads(const XFMatrix& matrix, const XI1Vector& mask, int first, int count);

  // 1/s and 1/rms of a column; missing where the values do not spread: with fewer than two of them
  // or a variance of 1e-30 and less, without any or with a mean square of 1e-30 and less.
  double InverseDeviation(int column) const;
  double InverseRootMeanSquare(int column) const;

 private:
  std::size_t Slot(int column) const { return static_cast<std::size_t>(column - first_); }

  void Measure(const std::vector<const float*>& rows, std::size_t from, std::size_t count);

  int first_;
  std::vector<double> counts_;
  std::vector<double> squares_;
  std::vector<double> deviations_;  // squares about the mean
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PREPROCESS_COLUMN_SPREADS_H
