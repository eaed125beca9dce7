// Models of all kinds of a small data set.
#ifndef ZEMVA_TESTS_DIO_MODEL_BENCH_H
#define ZEMVA_TESTS_DIO_MODEL_BENCH_H

#include <memory>
#include <string>

#include "model/model_fixture.h"
#include "zemva/model/pls/pls_model.h"

namespace zemva::test {

struct KindOfModel {
  const char* what;
  EModType type;
  char selector;
  void (*prepare)(Workset&, ModOpt&);
  short component_count;
};

inline void Leave(Workset&, ModOpt&) {}

inline void UseAll(Workset& workset, ModOpt& options) {
  workset.SetRole(5, EVarRole::kY);
  workset.SetRole(6, EVarRole::kY);
  workset.SetRole(4, EVarRole::kExcluded);
  workset.SetTransformation(1, ETraType::kLinear, 2.0f, 1.0f, 0.0f);
  workset.SetTransformation(6, ETraType::kExp, 0.5f, 0.1f, 0.0f);
  workset.AddLagged(2, 1, "b one before, of 25 chars");
  workset.AddLagged(4, 2);  // of what is excluded
  workset.AddTerm(1, 3);
  workset.AddTerm(7, 7);
  workset.SetRole(8, EVarRole::kY);
  for (const short j : {short{1}, short{2}, short{3}})
    workset.SetBlock(j, j == 3 ? 7 : 2, BlkInfo::kSquareRoot);
  workset.SetBlock(9, 7, BlkInfo::kFourthRoot);
  workset.SetScaling(2, EScaType::kPar, 1.5f);
  workset.SetFixedWeight(3, EScaType::kFWN, 0.75f);
  workset.SetIsObsIn(3, false);
  for (const short i : {short{1}, short{2}, short{6}, short{9}})
    workset.SetOClass(i, static_cast<char>(i == 6 ? 99 : 5));
  options.SetIsWResLS(true);
  options.SetIsNormDistLS(false);
  options.SetSeqValidate(EValidate::CV);
}

inline void MakeClasses(Workset& workset, ModOpt&) {
  for (short i = 1; i <= 14; ++i) workset.SetOClass(i, static_cast<char>(i % 3 == 0 ? 99 : 1));
  workset.SetOClass(5, 0);
}

inline constexpr KindOfModel kKindsOfModels[] = {
    {"principal components", EModType::kPC1, 0, Leave, 3},
    {"without components", EModType::kPC1, 0, Leave, 0},
    {"not centred", EModType::kPC1, 0, [](Workset&, ModOpt& o) { o.SetIsCenter(false); }, 2},
    {"by the rules", EModType::kPCAll, 0,
     [](Workset&, ModOpt& o) { o.SetIsRule(true), o.SetSeqValidate(EValidate::CV); }, 1},
    {"of a class", EModType::kPC1Cl, 1, MakeClasses, 2},
    {"of a variable without variance", EModType::kNoVarianceCheck, 0, Leave, 1},
    {"partial least squares, with all tables", EModType::kPLS12, 0, UseAll, 3},
    {"the other way round", EModType::kPLS21, 0, UseAll, 1},
    {"discriminant", EModType::kPLS1DA, 0, MakeClasses, 2},
};

// A model of 14 observations of 6 variables, 3 values missing, computed and executed.
struct ModelBench {
  explicit ModelBench(const KindOfModel& kind)
      : dataset(Table(14, 6)), workset("WS", *dataset, window) {
    owner.workset = &workset;
    options.SetIsCenter(true);
    options.SetIsRule(false);
    options.SetNComp(kind.component_count);
    kind.prepare(workset, options);
    if (IsPLSFamily(kind.type)) {
      model = std::make_unique<PLSModel>(&owner, kind.type, window, &options, kind.selector);
    } else {
      model = std::make_unique<PCModel>(&owner, kind.type, window, &options, kind.selector);
    }
    model->SetModNam("The name of a model of 24");
    model->SetModTitle("A title");
    if (kind.component_count == 0) {
      model->Load();
      return;
    }
    int status = model->Compute();
    while (status == status::mva::kNotCompleted) status = model->Compute();
    if (model->GetA() > 0) model->ExecLS(char{0});
  }

  static std::unique_ptr<Dataset> Table(int row_count, int column_count) {
    Rows rows = Noise().Table(row_count, column_count);
    rows[3][1] = rows[8][4] = rows[9][0] = kMissing;
    return SmallDataset(Letters(column_count), rows);
  }

  RecordingWindow window;
  std::unique_ptr<Dataset> dataset;
  Workset workset;
  Owner owner;
  ModOpt options;
  std::unique_ptr<Model> model;
};

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_DIO_MODEL_BENCH_H
