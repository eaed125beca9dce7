// A model of principal components.
#include <memory>
#include <optional>
#include <string>

#include "arguments/command_line.h"
#include "arguments/model_options.h"
#include "arguments/settings_folder.h"
#include "commands/commands.h"
#include "model/model_csv.h"
#include "model/model_run.h"
#include "model/result_folder.h"
#include "text/text_window.h"
#include "zemva/model/pc/pc_model.h"

namespace zemva::tools {
namespace {

struct PcOptions {
  ModelOptions model;
  std::optional<char> only_class;
};

void WriteFiles(const PCModel& model, Dataset* test, ResultFolder& folder) {
  folder.Write(TabulateComponents(model));
  folder.Write(TabulateObservations(model));
  folder.Write(TabulateVariables(model));
  if (test != nullptr) folder.Write(TabulatePredictions(model, *test));
  folder.RemoveOthers();
}

int RunModel(const PcOptions& options) {
  CheckModelOptions(options.model);
  const bool has_classes = options.model.csv.class_column.has_value();
  if (options.only_class && !has_classes && !options.model.classes.contains(*options.only_class)) {
    throw UsageError("--only-class: --class does not say what is in it");
  }
  ChooseSettingsFolder(options.model.settings_directory);
  std::optional<ResultFolder> folder;
  if (options.model.out_directory) folder.emplace(*options.model.out_directory);
  ModelRun run(options.model);
  const EModType type = options.only_class ? EModType::kPC1Cl : EModType::kPC1;
  int exit_status = run.LoadFile();
  if (exit_status == kDone) exit_status = run.MakeModel(type, options.only_class.value_or(0));
  if (exit_status == kDone) exit_status = run.Fit();
  if (exit_status == kDone) exit_status = run.Predict();
  if (exit_status != kDone) return exit_status;
  auto& model = static_cast<PCModel&>(run.GetModel());
  TextWindow listing(stdout);
  model.Show(listing);
  if (folder) WriteFiles(model, run.GetTestDataset(), *folder);
  return kDone;
}

}  // namespace

Run AddPc(CLI::App& program) {
  CLI::App& line =
      AddCommand(program, "pc", "Fits principal components.",
                 "zemva pc measured.csv --components 3 --exclude Weight --out results");
  const auto options = std::make_shared<PcOptions>();
  AddModelOptions(line, options->model);
  AddOption(line, "--only-class", "N", "fits the observations of that class alone",
            [options](const std::string& value) {
              options->only_class = ParseClass("--only-class", value);
            });
  return [options] { return RunModel(*options); };
}

}  // namespace zemva::tools
