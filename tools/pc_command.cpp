// A model of principal components.
#include <array>
#include <optional>
#include <string>

#include "commands.h"
#include "zemva/model/pc/pc_model.h"
#include "model_csv.h"
#include "model_options.h"
#include "model_run.h"

namespace zemva::tools {
namespace {

struct PcOptions {
  ModelOptions model;
  std::optional<char> only_class;
};

PcOptions ParseOptions(Arguments arguments) {
  PcOptions options;
  const std::array own = {ModelOption{"--only-class", [&](std::string_view value) {
                                        options.only_class = ParseClass("--only-class", value);
                                      }}};
  options.model = ParseModelOptions(arguments, own);
  if (options.only_class && !options.model.classes.contains(*options.only_class)) {
    throw UsageError("--only-class: --class does not say what is in it");
  }
  return options;
}

int WriteFiles(const PCModel& model, Dataset* test, const std::string& folder) {
  int exit_status = MakeFolder(folder);
  const auto write = [&](const ResultTable& table) {
    if (exit_status == kDone) exit_status = WriteTable(table, folder);
  };
  write(TabulateComponents(model));
  write(TabulateObservations(model));
  write(TabulateVariables(model));
  if (test != nullptr) write(TabulatePredictions(model, *test));
  return exit_status;
}

int RunModel(const PcOptions& options) {
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
  const auto& folder = options.model.out_directory;
  return folder ? WriteFiles(model, run.GetTestDataset(), *folder) : kDone;
}

}  // namespace

int PcCommand(Arguments arguments) {
  try {
    return RunModel(ParseOptions(arguments));
  } catch (const UsageError& error) {
    return WrongUsage(error.what());
  }
}

}  // namespace zemva::tools
