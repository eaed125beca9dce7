// Reads any bytes as a file of a model, a work set and a prediction set. Asks what came as a model
// for all that it answers, and has it predict.
#include <cstddef>
#include <cstdint>
#include <memory>

#include "memory_file.h"
#include "support/model_answers.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/model/dio_predset.h"
#include "zemva/dio/model/dio_workset.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/workset/predset.h"

namespace {

// Three observations of the variables of the model, all 1.
std::unique_ptr<zemva::Dataset> Observations(const zemva::VarInfo& variables) {
  auto* const matrix = new zemva::XFMatrix("Data", 3, variables.GetNVar(), 1.0f);
  matrix->SetActValInfo();
  auto* const observations = new zemva::ObsInfo("ObsInfo");
  for (short i = 1; i <= 3; ++i) observations->AddObs(i, "");
  // The data set takes all three over.
  return std::make_unique<zemva::Dataset>("Three", "", zemva::GlobalStreamWindow(), matrix,
                                          observations, new zemva::VarInfo(variables));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static MemoryFile file;
  file.Rewrite(bytes, size);
  zemva::WorksetRecord workset;
  zemva::DioWorkset(file.GetPath(), zemva::GlobalStreamWindow()).Load(workset);
  zemva::PredsetRecord predset_record;
  zemva::DioPredset(file.GetPath(), zemva::GlobalStreamWindow()).Load(predset_record);
  int status = 0;
  const std::unique_ptr<zemva::Model> model(
      zemva::Model::Read(file.GetPath(), nullptr, zemva::GlobalStreamWindow(), nullptr, status));
  if (model == nullptr) return 0;
  if (model->GetVarInfoDS() != nullptr) {
    const auto observations = Observations(*model->GetVarInfoDS());
    zemva::Predset predset("PS", *observations, *model->GetVarInfoDS());
    model->ExecPS(predset);
  }
  model->ExecLS(char{0});
  zemva::test::AnswersOf(*model);
  return 0;
}
