#include "commands/fit_model.h"

#include <cstdio>
#include <optional>
#include <string>

#include "arguments/settings_folder.h"
#include "model/model_csv.h"
#include "model/model_listing.h"
#include "model/model_run.h"
#include "model/result_folder.h"
#include "model/stored_model.h"
#include "plot/figure_folder.h"
#include "text/json_writer.h"
#include "text/messages.h"

namespace zemva::tools {
namespace {

void WriteTables(const Model& model, Dataset* test, ResultFolder& folder) {
  folder.Write(TabulateComponents(model));
  folder.Write(TabulateObservations(model));
  folder.Write(TabulateVariables(model));
  if (model.GetNVarY() > 0) folder.Write(TabulateResponses(model));
  folder.Write(TabulateLimits(model));
  if (test != nullptr) folder.Write(TabulatePredictions(model, *test));
  folder.RemoveOthers();
}

void WriteSummary(const Model& model) {
  std::string type = GetModTypeTag(model.GetModType());
  type.erase(type.find_last_not_of(' ') + 1);
  JsonWriter json(stdout);
  json.BeginObject();
  json.Text("type", type);
  json.Integer("observations", model.GetNObs());
  json.Integer("variables", model.GetNVarX());
  json.Integer("responses", model.GetNVarY());
  json.Key("components");
  const ResultTable components = TabulateComponents(model);
  components.columns.WriteTo(json, components.row_count);
  json.EndObject();
}

}  // namespace

int FitModel(const ModelOptions& options, EModType type, char selector) {
  CheckModelOptions(options);
  ChooseSettingsFolder(options.settings_directory);
  std::optional<ResultFolder> folder;
  if (options.out_directory) {
    folder.emplace(*options.out_directory, options.csv.decimal_mark.value_or('.'));
  }
  std::optional<FigureFolder> figures;
  if (options.plot_directory) figures.emplace(*options.plot_directory);
  ModelRun run(options);
  int exit_status = run.LoadFile();
  if (exit_status == kDone) exit_status = run.MakeModel(type, selector);
  if (exit_status == kDone) exit_status = run.Fit();
  if (exit_status == kDone) exit_status = run.Predict();
  if (exit_status != kDone) return exit_status;
  if (options.model_file) SaveModel(run.GetModel(), *options.model_file);
  if (options.is_json) {
    WriteSummary(run.GetModel());
  } else {
    ListModel(run.GetModel());
  }
  if (folder) WriteTables(run.GetModel(), run.GetTestDataset(), *folder);
  if (figures) figures->Draw(run.GetModel(), run.GetClassNames());
  return kDone;
}

}  // namespace zemva::tools
