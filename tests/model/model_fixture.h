// A model of a small data set, and what it wrote.
#ifndef ZEMVA_TESTS_MODEL_MODEL_FIXTURE_H
#define ZEMVA_TESTS_MODEL_MODEL_FIXTURE_H

#include <memory>
#include <string>
#include <vector>

#include "zemva/data/dataset.h"
#include "zemva/errors/status.h"
#include "zemva/model/block/model_owner.h"
#include "zemva/model/pc/pc_model.h"
#include "model/small_dataset.h"
#include "zemva/model/workset/predset.h"
#include "zemva/model/workset/workset.h"
#include "zemva/settings/options/mod_opt.h"
#include "support/recording_window.h"

namespace zemva::test {

// Keeps what it is asked.
class Owner : public ModelOwner {
 public:
  Workset* GetCurrentWorkset() override { return workset; }
  Predset* GetCurrentPredset() override { return predset; }
  const PrjOpt& GetOptions() const override { return options; }
  char Ask(const char* question) override {
    questions += question;
    return reply;
  }

  Workset* workset = nullptr;
  Predset* predset = nullptr;
  PrjOpt options{true};
  char reply = 'y';
  std::string questions;
};

// Centred, with the options of a model outside a project but for what a test sets.
struct Bench {
  explicit Bench(std::unique_ptr<Dataset> source) : dataset(std::move(source)) {
    owner.workset = &workset;
    options.SetIsCenter(true);
    options.SetIsRule(false);
    options.SetIsSeq(false);
    options.SetSeqValidate(EValidate::NoCV);
    options.SetNComp(1);
  }
  Bench(const std::string& names, const Rows& rows) : Bench(SmallDataset(names, rows)) {}

  // Computes while there is more to do. The last status.
  int Compute() {
    int status = model.Compute();
    while (status == status::mva::kNotCompleted) status = model.Compute();
    return status;
  }
  int Compute(short component_count) {
    options.SetNComp(component_count);
    return Compute();
  }

  RecordingWindow window;
  std::unique_ptr<Dataset> dataset;
  Workset workset{"WS", *dataset, window};
  Owner owner;
  ModOpt options;
  PCModel model{&owner, EModType::kPC1, window, &options, 0};
};

inline std::unique_ptr<Dataset> Sample(const std::string& name) {
  auto dataset = std::make_unique<Dataset>("Sample", (ZEMVA_SAMPLES "/" + name + ".vdo").c_str(),
                                           GlobalStreamWindow());
  dataset->Load();
  return dataset;
}

// Names "a", "b" and so on.
inline std::string Letters(int count) {
  std::string letters;
  for (int k = 0; k < count; ++k) letters += static_cast<char>('a' + k);
  return letters;
}

// Numbers without a pattern, always the same, between -1 and 1.
class Noise {
 public:
  float Next() {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<float>(static_cast<double>(state_ >> 40) / 8388608.0 - 1.0);
  }
  Rows Table(int row_count, int column_count) {
    Rows rows(static_cast<std::size_t>(row_count));
    for (auto& row : rows) {
      for (int k = 0; k < column_count; ++k) row.push_back(Next());
    }
    return rows;
  }

 private:
  unsigned long long state_ = 1;
};

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_MODEL_MODEL_FIXTURE_H
