// Matrices for the tests.
#ifndef ZEMVA_TESTS_NUMERIC_MATRICES_H
#define ZEMVA_TESTS_NUMERIC_MATRICES_H

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <random>
#include <span>
#include <vector>

#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"

namespace zemva::test {

constexpr double kNone = static_cast<double>(kMissing);

template <typename Vector>
auto ElementsOf(const Vector& vector) {
  const auto values = vector.Values();
  return std::vector<typename Vector::Element>(values.begin(), values.end());
}

inline std::vector<float> CellsOf(const FMatrix& matrix) {
  std::vector<float> cells;
  for (int i = 1; i <= matrix.NRow(); ++i) {
    cells.insert(cells.end(), matrix.Row(i).begin(), matrix.Row(i).end());
  }
  return cells;
}

inline XFVector VectorOf(std::initializer_list<float> values) {
  XFVector vector("v", static_cast<int>(values.size()), 0.0f);
  std::ranges::copy(values, vector.Values().begin());
  vector.SetActValInfo();
  return vector;
}

inline XFMatrix MatrixOf(int columns, std::initializer_list<float> cells) {
  XFMatrix matrix("M", static_cast<int>(cells.size()) / columns, columns, 0.0f);
  const float* cell = cells.begin();
  for (int i = 1; i <= matrix.NRow(); ++i) {
    std::copy_n(cell, columns, matrix.Row(i).begin());
    cell += columns;
  }
  matrix.SetActValInfo();
  return matrix;
}

// Values between -2 and 2, of which `missing_share` are missing; the same for the same seed.
inline XFMatrix RandomMatrix(int rows, int columns, double missing_share, unsigned seed = 1) {
  std::mt19937 random(seed);
  XFMatrix matrix("R", rows, columns, 0.0f);
  const double scale = 1.0 / static_cast<double>(std::mt19937::max());
  for (int i = 1; i <= rows; ++i) {
    for (float& cell : matrix.Row(i)) {
      const bool is_missing = static_cast<double>(random()) * scale < missing_share;
      const double value = static_cast<double>(random()) * scale * 4.0 - 2.0;
      cell = is_missing ? kMissing : static_cast<float>(value);
    }
  }
  matrix.SetActValInfo();
  return matrix;
}

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_NUMERIC_MATRICES_H
