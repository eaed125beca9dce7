// Data sets written down in the test.
#ifndef ZEMVA_TESTS_MODEL_SMALL_DATASET_H
#define ZEMVA_TESTS_MODEL_SMALL_DATASET_H

#include <memory>
#include <string>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/data/dataset.h"

namespace zemva::test {

// What an extraction has handed over.
template <typename T>
std::unique_ptr<T> Own(T* object) {
  return std::unique_ptr<T>(object);
}

using Rows = std::vector<std::vector<float>>;

// The matrix, row by row, without element 0.
inline Rows RowsOf(const XFMatrix& matrix) {
  Rows rows;
  for (int i = 1; i <= matrix.NRow(); ++i) {
    rows.emplace_back(matrix[i] + 1, matrix[i] + 1 + matrix.NCol());
  }
  return rows;
}

// Loaded, without a file. Observation i has number 10 i and name "oi"; variable j has number 100 j,
// and as its name character j of `names`.
inline std::unique_ptr<Dataset> SmallDataset(const std::string& names, const Rows& rows,
                                             StreamWindow& window = GlobalStreamWindow()) {
  const auto row_count = static_cast<short>(rows.size());
  const auto column_count = static_cast<short>(names.size());
  auto* const matrix = new XFMatrix("Data", row_count, column_count, 0.0f);
  auto* const observations = new ObsInfo("ObsInfo");
  auto* const variables = new VarInfo("VarInfo");
  for (const short i : PositionsUpTo(row_count)) {
    observations->AddObs(static_cast<short>(10 * i), ("o" + std::to_string(i)).c_str());
    for (const short j : PositionsUpTo(column_count)) {
      (*matrix)[i][j] = rows[static_cast<std::size_t>(i - 1)][static_cast<std::size_t>(j - 1)];
    }
  }
  for (const short j : PositionsUpTo(column_count)) {
    variables->AddVar(static_cast<short>(100 * j),
                      names.substr(static_cast<std::size_t>(j - 1), 1).c_str());
  }
  matrix->SetActValInfo();
  // The data set takes all three over.
  return std::make_unique<Dataset>("Small", "small.vdo", window, matrix, observations, variables);
}

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_MODEL_SMALL_DATASET_H
