// The problem that the benchmarks of fitting components share.
#ifndef ZEMVA_BENCH_NIPALS_PROBLEM_H
#define ZEMVA_BENCH_NIPALS_PROBLEM_H

#include <chrono>
#include <memory>
#include <random>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/zemva.h"

namespace zemva {

inline constexpr char kComponents = 5;

// What a table is made of: normally distributed scores and loadings of so many directions, which
// weigh `strength` each, or rank * strength, (rank - 1) * strength and so on, plus noise of this
// deviation; a share of the cells is missing.
struct TableRecipe {
  std::size_t rank = 8;
  float strength = 0.3f;
  bool falls_off = true;
  float noise = 0.5f;
  double missing_share = 0.0;
};

inline XFMatrix NoisyTable(int rows, int columns, const TableRecipe& recipe) {
  const std::size_t rank = recipe.rank;
  std::mt19937 random(1);
  std::normal_distribution<float> normal;
  const auto draw = [&](int count) {
    std::vector<float> values(static_cast<std::size_t>(count) * rank);
    for (float& value : values) value = normal(random);
    return values;
  };
  const std::vector<float> scores = draw(rows);
  const std::vector<float> loadings = draw(columns);
  XFMatrix table("X", rows, columns, 0.0f);
  for (std::size_t i = 0; i < static_cast<std::size_t>(rows); ++i) {
    const std::span<float> row = table.Row(static_cast<int>(i) + 1);
    for (std::size_t k = 0; k < row.size(); ++k) {
      row[k] = recipe.noise * normal(random);
      for (std::size_t a = 0; a < rank; ++a) {
        const auto share = recipe.falls_off ? static_cast<float>(rank - a) : 1.0f;
        row[k] += recipe.strength * share * scores[i * rank + a] * loadings[k * rank + a];
      }
      if (static_cast<double>(random()) < recipe.missing_share * 4294967296.0) row[k] = kMissing;
    }
  }
  table.SetActValInfo();
  return table;
}

inline XFMatrix NipalsTable(int rows, int columns, double missing_share) {
  TableRecipe recipe;
  recipe.missing_share = missing_share;
  return NoisyTable(rows, columns, recipe);
}

struct FittedComponents {
  double seconds = 0;     // from loading the data to the statistics of the last component
  double components = 0;  // of these, for the components
  int count = 0;
  int iterations = 0;
  double unexplained =
      0;  // share of the sum of squares that is left, of Y where there are responses
};

// A model of a table that can be fitted over and over.
class TableModel : private ModelOwner {
 public:
  // Of five components of the table as it is, neither centred nor scaled. With `groups` above 0
  // each component is cross-validated. The last `responses` columns are Y.
  TableModel(const XFMatrix& table, int groups, int responses = 0)
      : dataset_(MakeDataset(table)), has_responses_(responses > 0) {
    for (const short k : PositionsUpTo(workset_.GetNVar())) {
      workset_.SetScaling(k, EScaType::kNone);
      if (k > workset_.GetNVar() - responses) workset_.SetRole(k, EVarRole::kY);
    }
    options_.SetIsRule(false);
    options_.SetIsSeq(false);
    options_.SetNComp(kComponents);
    options_.SetMaxIter(10000);
    options_.SetNCV(static_cast<short>(groups));
    options_.SetSeqValidate(groups > 0 ? EValidate::CV : EValidate::NoCV);
  }

  // Of the table centred and scaled to unit variance, with these options.
  TableModel(const XFMatrix& table, const ModOpt& options)
      : dataset_(MakeDataset(table)), has_responses_(false), options_(options) {}

  FittedComponents Fit() {
    using Clock = std::chrono::steady_clock;
    const auto since = [](Clock::time_point start) {
      return std::chrono::duration<double>(Clock::now() - start).count();
    };
    const auto start = Clock::now();
    const std::unique_ptr<Model> made = MakeModel();
    Model& model = *made;
    model.LoadWS();
    model.Center();
    const auto first = Clock::now();
    while (model.Compute() == status::mva::kNotCompleted) continue;
    FittedComponents result;
    result.components = since(first);
    result.seconds = since(start);
    const char count = model.GetA();
    const float explained = has_responses_ ? model.GetR2Y(count) : model.GetR2X(count);
    result.count = count;
    result.unexplained = 1.0 - static_cast<double>(explained);
    for (char a = 1; a <= count; ++a) result.iterations += model.GetNIter(a);
    return result;
  }

  // Seconds for loading the data.
  double LoadSeconds() {
    const std::unique_ptr<Model> model = MakeModel();
    const auto start = std::chrono::steady_clock::now();
    model->LoadWS();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }

  // The model, executed; the problem outlives it.
  std::unique_ptr<Model> FitModel() {
    std::unique_ptr<Model> model = MakeModel();
    while (model->Compute() == status::mva::kNotCompleted) continue;
    model->ExecLS(char{0});
    return model;
  }

 private:
  std::unique_ptr<Model> MakeModel() {
    StreamWindow& window = GlobalStreamWindow();
    ModelOwner* const owner = this;  // which others cannot see
    if (!has_responses_) {
      return std::make_unique<PCModel>(owner, EModType::kPC1, window, &options_, 0);
    }
    return std::make_unique<PLSModel>(owner, EModType::kPLS12, window, &options_, 0);
  }

  static Dataset MakeDataset(const XFMatrix& table) {
    auto* const observations = new ObsInfo("ObsInfo");
    auto* const variables = new VarInfo("VarInfo");
    for (int i = 1; i <= table.NRow(); ++i) observations->AddObs(static_cast<short>(i), "");
    for (int k = 1; k <= table.NCol(); ++k) variables->AddVar(static_cast<short>(k), "");
    // The data set takes all three over.
    return {"X", "none", GlobalStreamWindow(), new XFMatrix(table), observations, variables};
  }

  Workset* GetCurrentWorkset() override { return &workset_; }
  Predset* GetCurrentPredset() override { return nullptr; }
  const PrjOpt& GetOptions() const override { return project_options_; }

  Dataset dataset_;
  bool has_responses_;
  Workset workset_{"WS", dataset_, GlobalStreamWindow()};
  PrjOpt project_options_{true};
  ModOpt options_;
};

}  // namespace zemva

#endif  // ZEMVA_BENCH_NIPALS_PROBLEM_H
