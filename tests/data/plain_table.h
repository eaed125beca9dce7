// The content of a data set as plain values, to build data sets from and to compare them with.
#ifndef ZEMVA_TESTS_DATA_PLAIN_TABLE_H
#define ZEMVA_TESTS_DATA_PLAIN_TABLE_H

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "zemva/data/dataset.h"

namespace zemva::test {

struct Label {
  int number;
  std::string name;

  bool operator==(const Label&) const = default;
};

inline void PrintTo(const Label& label, std::ostream* out) {
  *out << label.number << ' ' << label.name;
}

// Values are floats as a data set holds them, -99 where missing.
struct PlainTable {
  std::vector<Label> variables;
  std::vector<Label> observations;
  std::vector<std::vector<float>> values;  // a vector an observation

  bool operator==(const PlainTable&) const = default;
};

inline std::unique_ptr<Dataset> MakeDataset(const PlainTable& table, StreamWindow& window,
                                            const char* address = "") {
  const auto rows = static_cast<int>(table.observations.size());
  const auto columns = static_cast<int>(table.variables.size());
  auto matrix = std::make_unique<XFMatrix>("DataMatrix", rows, columns, 0.0f);
  auto observations = std::make_unique<ObsInfo>("ObsInfo");
  auto variables = std::make_unique<VarInfo>("VarInfo");
  for (int i = 1; i <= rows; ++i) {
    const Label& label = table.observations[static_cast<std::size_t>(i - 1)];
    observations->AddObs(static_cast<short>(label.number), label.name.c_str());
    for (int j = 1; j <= columns; ++j) {
      (*matrix)[i][j] =
          table.values[static_cast<std::size_t>(i - 1)][static_cast<std::size_t>(j - 1)];
    }
  }
  for (const Label& label : table.variables) {
    variables->AddVar(static_cast<short>(label.number), label.name.c_str());
  }
  auto dataset = std::make_unique<Dataset>("Plain", address, window, matrix.get(),
                                           observations.get(), variables.get());
  EXPECT_EQ(dataset->GetStatus(), 0);
  matrix.release();  // the data set's now, and so are the tables
  observations.release();
  variables.release();
  return dataset;
}

// What the data set holds by its counts, matrix and tables, which must agree.
inline PlainTable Content(Dataset& dataset) {
  PlainTable table;
  const int rows = dataset.GetNObsDS();
  const int columns = dataset.GetNVarDS();
  XFMatrix* matrix = dataset.GetDMPtr();
  if (matrix == nullptr || matrix->NRow() != rows || matrix->NCol() != columns ||
      dataset.GetOIPtr()->GetNItm() != rows || dataset.GetVIPtr()->GetNItm() != columns) {
    ADD_FAILURE() << "counts, matrix and tables differ";
    return table;
  }
  short number;
  char* name;
  for (int j = 1; j <= columns; ++j) {
    dataset.GetVarInfo(static_cast<short>(j), number, name);
    table.variables.push_back({number, name});
  }
  int present = 0;
  for (int i = 1; i <= rows; ++i) {
    dataset.GetObsInfo(static_cast<short>(i), number, name);
    table.observations.push_back({number, name});
    const float* row = dataset[static_cast<short>(i)];
    table.values.emplace_back(row + 1, row + 1 + columns);
    for (const float value : table.values.back()) present += value == -99.0f ? 0 : 1;
  }
  EXPECT_EQ(dataset.GetNValA(), present);
  return table;
}

inline std::string Numbered(std::string stem, int number) {
  return stem += std::to_string(number);
}

// Observations 1..n named o1.., variables 1..k named v1.., value 10 i + j.
inline PlainTable SmallTable(int n, int k) {
  PlainTable table;
  for (int j = 1; j <= k; ++j) table.variables.push_back({j, Numbered("v", j)});
  for (int i = 1; i <= n; ++i) {
    table.observations.push_back({i, Numbered("o", i)});
    std::vector<float>& row = table.values.emplace_back();
    for (int j = 1; j <= k; ++j) row.push_back(static_cast<float>(10 * i + j));
  }
  return table;
}

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_DATA_PLAIN_TABLE_H
