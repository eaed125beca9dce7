// A model of principal components.
#include <memory>
#include <optional>

#include "arguments/command_line.h"
#include "arguments/model_options.h"
#include "commands/commands.h"
#include "commands/fit_model.h"

namespace zemva::tools {
namespace {

struct PcOptions {
  ModelOptions model;
  std::optional<char> only_class;
};

int FitPc(const PcOptions& options) {
  if (!options.only_class) return FitModel(options.model, EModType::kPC1, 0);
  const bool is_said = options.model.classes.contains(*options.only_class);
  if (!is_said && !options.model.csv.class_column) {
    throw UsageError("--only-class: --class does not say what is in it");
  }
  return FitModel(options.model, EModType::kPC1Cl, *options.only_class);
}

}  // namespace

Run AddPc(CLI::App& program) {
  CLI::App& line =
      AddCommand(program, "pc", "Fits principal components.",
                 "zemva pc measured.csv --components 3 --exclude Weight --out results");
  const auto options = std::make_shared<PcOptions>();
  AddModelOptions(line, options->model);
  AddTestOption(line, options->model);
  AddResultOptions(line, options->model);
  AddOption(line, "--only-class", "N", "fits the observations of that class alone",
            [options](const std::string& value) {
              options->only_class = ParseClass("--only-class", value);
            });
  return [options] { return FitPc(*options); };
}

}  // namespace zemva::tools
