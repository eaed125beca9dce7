// A small data set, two models of it, and their numbers from elsewhere.
#ifndef ZEMVA_TESTS_MODEL_VECTOR_REFERENCE_H
#define ZEMVA_TESTS_MODEL_VECTOR_REFERENCE_H

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "model/model_fixture.h"

namespace zemva::test {

// Rows of the data set; observations of the models and of the prediction set, X variables,
// responses, components.
inline constexpr int kNDS = 13;
inline constexpr int kN = 12;
inline constexpr int kNPS = 5;
inline constexpr int kK = 3;
inline constexpr int kM = 2;
inline constexpr int kA = 2;

struct Expected {
  int status = status::mva::kUnknownVectorType;
  std::string labels;  // the first, a blank and the last
  std::vector<float> values;
};

// What reference/make_vectors.py has computed, apart from the program: the data, and by their names
// and the objects that they are asked of all vectors.
struct Reference {
  Reference() {
    std::ifstream file(ZEMVA_REFERENCES "/vectors.csv");
    for (std::string line; std::getline(file, line);) {
      std::istringstream cells(line);
      const auto next = [&] {
        std::string cell;
        std::getline(cells, cell, ',');
        return cell;
      };
      const auto rest = [&] {
        std::vector<float> values;
        for (std::string cell; std::getline(cells, cell, ',');) values.push_back(std::stof(cell));
        return values;
      };
      const std::string object = next();
      if (object == "data") {
        (rows.size() < kNDS ? rows : ps_rows).push_back(rest());
        continue;
      }
      Expected& expected = vectors[next()][object];
      const std::string first = next();
      expected.status = cells.eof() ? std::stoi(first) : status::kOk;
      if (expected.status == status::kOk) expected.labels = first + " " + next();
      expected.values = rest();
    }
  }

  Rows rows, ps_rows;
  std::map<std::string, std::map<std::string, Expected>> vectors;
};

// A model with its work set and a prediction set, all of the same data and of two components.
template <typename TBench>
void Fit(TBench& bench) {
  bench.workset.SetTransformation(2, ETraType::kLog, 1, 0, 0);
  bench.workset.SetTransformation(5, ETraType::kLog, 1, 0, 0);
  bench.workset.SetIsObsIn(4, false);
  bench.options.SetSeqValidate(EValidate::CV);
  ASSERT_EQ(bench.Compute(kA), 0);
  ASSERT_EQ(bench.model.ExecLS(char{0}), 0);
}

struct Models {
  Reference reference;
  Bench pc{Letters(kK + kM), reference.rows};
  PLSBench pls{reference.rows, kM};
  std::unique_ptr<Dataset> ps_data = SmallDataset(Letters(kK + kM), reference.ps_rows);
  Predset predset{"PS", *ps_data, pls.workset};

  Models() {
    for (short j = 4; j <= 5; ++j) pc.workset.SetRole(j, EVarRole::kY);
    predset.SetIsObsIn(2, false);
    Fit(pc);
    Fit(pls);
  }
  void Predict() {
    Predset of_pc("PS", *ps_data, pc.workset);
    pc.owner.predset = &of_pc;
    pls.owner.predset = &predset;
    of_pc.SetIsObsIn(2, false);
    ASSERT_EQ(pc.model.ExecPS(), 0);
    ASSERT_EQ(pls.model.ExecPS(), 0);
  }
};

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_MODEL_VECTOR_REFERENCE_H
