// A model of a small data set, and what it wrote.
#ifndef ZEMVA_TESTS_MODEL_MODEL_FIXTURE_H
#define ZEMVA_TESTS_MODEL_MODEL_FIXTURE_H

#include <memory>
#include <string>
#include <vector>

#include "model/small_dataset.h"
#include "support/recording_window.h"
#include "zemva/data/dataset.h"
#include "zemva/errors/status.h"
#include "zemva/model/block/model_owner.h"
#include "zemva/model/pc/pc_model.h"
#include "zemva/model/pls/pls_model.h"
#include "zemva/model/workset/predset.h"
#include "zemva/model/workset/workset.h"
#include "zemva/settings/options/mod_opt.h"

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
  bool GoesOn(const FitProgress& progress) override {
    seen.push_back(progress);
    return seen.size() < stops_at;
  }

  Workset* workset = nullptr;
  Predset* predset = nullptr;
  PrjOpt options{true};
  char reply = 'y';
  std::string questions;
  std::vector<FitProgress> seen;
  std::size_t stops_at = static_cast<std::size_t>(-1);
};

inline double D(float value) {
  return static_cast<double>(value);
}

// Of term(1) to term(count).
template <typename Term>
double Sum(int count, Term term) {
  double sum = 0.0;
  for (const short i : PositionsUpTo(count)) sum += D(term(i));
  return sum;
}

// Names "a", "b" and so on.
inline std::string Letters(int count) {
  std::string letters;
  for (int k = 0; k < count; ++k) letters += static_cast<char>('a' + k);
  return letters;
}

// Centred, with the options of a model outside a project but for what a test sets.
template <typename Kind>
struct BenchOf {
  BenchOf(std::unique_ptr<Dataset> source, EModType type)
      : dataset(std::move(source)), model(&owner, type, window, &options, 0) {
    owner.workset = &workset;
    options.SetIsCenter(true);
    options.SetIsRule(false);
    options.SetIsSeq(false);
    options.SetSeqValidate(EValidate::NoCV);
    options.SetNComp(1);
  }
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
  Kind model;
};

struct Bench : BenchOf<PCModel> {
  explicit Bench(std::unique_ptr<Dataset> source) : BenchOf(std::move(source), EModType::kPC1) {}
  Bench(const std::string& names, const Rows& rows) : Bench(SmallDataset(names, rows)) {}
};

// With responses by name, or so many of the last variables.
struct PLSBench : BenchOf<PLSModel> {
  PLSBench(std::unique_ptr<Dataset> source, const std::vector<std::string>& responses,
           EModType type = EModType::kPLS12)
      : BenchOf(std::move(source), type) {
    for (const std::string& name : responses) {
      workset.SetRole(workset.GetVIx(name.c_str()), EVarRole::kY);
    }
  }
  PLSBench(const Rows& rows, int response_count, EModType type = EModType::kPLS12)
      : BenchOf(SmallDataset(Letters(static_cast<int>(rows[0].size())), rows), type) {
    for (int m = 0; m < response_count; ++m) {
      workset.SetRole(static_cast<short>(workset.GetNVarDS() - m), EVarRole::kY);
    }
  }

  // Neither centred nor scaled.
  void TakeAsIs() {
    options.SetIsCenter(false);
    for (const short j : PositionsUpTo(workset.GetNVar())) workset.SetScaling(j, EScaType::kNone);
  }
};

// A listing but for the times at which models were made.
inline std::string WithoutDates(std::string listing) {
  const std::string created = " Created       : ";
  for (std::size_t at = 0; (at = listing.find(created, at)) != std::string::npos;) {
    at += created.size();
    listing.erase(at, listing.find('\n', at) - at);
  }
  return listing;
}

inline std::unique_ptr<Dataset> Sample(const std::string& name) {
  auto dataset = std::make_unique<Dataset>("Sample", (ZEMVA_SAMPLES "/" + name + ".vdo").c_str(),
                                           GlobalStreamWindow());
  dataset->Load();
  return dataset;
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
