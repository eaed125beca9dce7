// A model of responses, or of classes, by partial least squares.
#include <memory>

#include "arguments/command_line.h"
#include "arguments/model_options.h"
#include "commands/commands.h"
#include "commands/fit_model.h"

namespace zemva::tools {
namespace {

int FitPls(const ModelOptions& options) {
  const bool has_classes = !options.classes.empty() || options.csv.class_column;
  if (options.responses.empty() && !has_classes) {
    throw UsageError("pls takes responses, --y, or classes, --class or --class-by");
  }
  const bool is_of_classes = options.responses.empty();
  return FitModel(options, is_of_classes ? EModType::kPLS1DA : EModType::kPLS12, 0);
}

}  // namespace

Run AddPls(CLI::App& program) {
  CLI::App& line =
      AddCommand(program, "pls", "Fits responses, or classes, by partial least squares.",
                 "zemva pls measured.csv --y Yield,Purity --out results");
  const auto options = std::make_shared<ModelOptions>();
  AddModelOptions(line, *options);
  AddTestOption(line, *options);
  AddResultOptions(line, *options);
  AddResponseOptions(line, *options);
  return [options] { return FitPls(*options); };
}

}  // namespace zemva::tools
