// The result vectors of a file and of a model of it, by name.
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "arguments/command_line.h"
#include "arguments/model_options.h"
#include "arguments/settings_folder.h"
#include "commands/commands.h"
#include "csv/csv_file.h"
#include "model/model_run.h"
#include "model/stored_model.h"
#include "model/vector_tables.h"
#include "text/messages.h"
#include "text/near_word.h"
#include "text/text_window.h"
#include "zemva/vectors/vec_catalogue.h"

namespace zemva::tools {
namespace {

struct VectorOptions {
  ModelOptions model;
  std::optional<std::string> kind;
  bool is_list = false;
  std::vector<std::string> names;
  std::optional<std::string> by;
};

constexpr char kEverything[] = "all";

// Raises UsageError for what is no name of a vector.
VecSpec SpecOf(const std::string& name) {
  VecSpec spec;
  if (spec.SetName(name.c_str()) == 0) return spec;
  std::vector<std::string> types;
  for (const VecRow& row : VecCatalogue()) types.emplace_back(row.name);
  const std::string type = name.substr(0, name.find('['));
  throw UsageError("--get: there is no vector " + Quoted(name) + Suggestion(type, types));
}

void Check(const VectorOptions& options) {
  const bool is_everything = options.names == std::vector<std::string>{kEverything};
  if (options.is_list != options.names.empty()) {
    throw UsageError("vectors takes --list, or --get");
  }
  if (options.by.has_value() != is_everything) {
    throw UsageError("--get all takes --by, and --by goes with it");
  }
}

EModType TypeOf(const VectorOptions& options) {
  if (options.kind == "pls") {
    return options.model.responses.empty() ? EModType::kPLS1DA : EModType::kPLS12;
  }
  return EModType::kPC1;
}

// The vectors of the data set, in which an index is a position.
std::vector<VectorChoice> ChoicesOf(Dataset& dataset) {
  std::vector<VectorChoice> choices;
  for (const VecRow& row : VecCatalogue()) {
    if (!row.objects.Has(CEDatType::Dataset)) continue;
    const int count = row.of == EVecAxis::kNothing ? 0
                      : row.of == EVecAxis::kObs   ? dataset.GetNObsDS()
                                                   : dataset.GetNVarDS();
    choices.push_back({&row, 1, 0, count});
  }
  return choices;
}

std::vector<VectorChoice> ChoicesOf(const Model& model) {
  std::vector<VectorChoice> choices;
  for (const VecRow& row : VecCatalogue()) {
    char first_comp = 0, last_comp = 0;
    short first_ix = 0, last_ix = 0;
    if (model.GetVecCompRange(row.type, first_comp, last_comp) != 0) continue;
    model.GetVecIxRange(row.type, first_ix, last_ix);
    choices.push_back({&row, first_comp, last_comp, row.of == EVecAxis::kNothing ? 0 : int{last_ix},
                       row.comps == EVecComps::kResponse ? int{model.GetNVarY()} : 0});
  }
  return choices;
}

// What the elements of a vector are. Made of a range of components together, those of its type.
EVecAxis AxisOf(const VecSpec& spec, const VecRow& row) {
  const bool is_of_span = row.comps == EVecComps::kSpan || row.comps == EVecComps::kSpanPS;
  return spec.IsRange() && !is_of_span ? EVecAxis::kComponents : row.along;
}

// Whether a vector is one that a type has not, at an index or a component at which it has others.
bool IsGap(int status) {
  return status == status::mva::kDataNotAvailable || status == status::mva::kOnlyAfterLastComponent;
}

// Adds the vector of a spec, of a project or a model, and returns the status.
template <typename Source>
int Take(Source& source, bool has_model, VecSpec spec, VectorTables& tables) {
  const VecRow& row = *FindVecRow(spec.GetVType());
  if (has_model && row.objects.Has(CEDatType::Model)) spec.SetDType(CEDatType::Model);
  XFVector* values = nullptr;
  XSVector* names = nullptr;
  XSVector* numbers = nullptr;
  int status = source.GetXFVector(&spec, values);
  std::unique_ptr<XFVector> own_values(values);
  if (status == 0) status = source.GetXSVector(&spec, names, false);
  std::unique_ptr<XSVector> own_names(names);
  if (status == 0) status = source.GetXSVector(&spec, numbers, true);
  std::unique_ptr<XSVector> own_numbers(numbers);
  if (status != 0) return status;
  tables.Add(AxisOf(spec, row), std::move(own_values), std::move(own_names),
             std::move(own_numbers));
  return status;
}

// Raises Failure for a vector that there is not.
template <typename Source>
int Write(const VectorOptions& options, Source& source, bool has_model,
          const std::vector<VectorChoice>& choices) {
  if (options.is_list) {
    WriteChoices(choices);
    return kDone;
  }
  std::vector<VecSpec> specs;
  if (options.by) {
    specs = SpecsBy(*options.by, choices);
  } else {
    for (const std::string& name : options.names) specs.push_back(SpecOf(name));
  }
  VectorTables tables;
  for (const VecSpec& spec : specs) {
    const int status = Take(source, has_model, spec, tables);
    if (status != 0 && !(options.by && IsGap(status))) throw Failure(spec.GetName(), status);
  }
  tables.Write();
  return kDone;
}

int GiveVectors(const VectorOptions& options) {
  CheckModelOptions(options.model);
  Check(options);
  for (const std::string& name : options.names) {
    if (!options.by) SpecOf(name);
  }
  if (IsModelFile(options.model.file)) {
    if (options.kind) throw UsageError("vectors of a saved model are of that model");
    TextWindow log(stderr);
    const std::unique_ptr<Model> model = ReadModel(options.model.file, log);
    return Write(options, *model, true, ChoicesOf(*model));
  }
  ChooseSettingsFolder(options.model.settings_directory);
  ModelRun run(options.model);
  int exit_status = run.LoadFile();
  const bool has_model = options.kind.has_value();
  if (has_model) {
    if (exit_status == kDone) exit_status = run.MakeModel(TypeOf(options), 0);
    if (exit_status == kDone) exit_status = run.Fit();
    if (exit_status == kDone) exit_status = run.Predict();
  }
  if (exit_status != kDone) return exit_status;
  const std::vector<VectorChoice> choices =
      has_model ? ChoicesOf(run.GetModel()) : ChoicesOf(run.GetDataset());
  return Write(options, run.GetProject(), has_model, choices);
}

}  // namespace

Run AddVectors(CLI::App& program) {
  CLI::App& line = AddCommand(program, "vectors", "Writes result vectors, by name.",
                              "zemva vectors measured.csv pls --y Yield --get VIP --get 't[1]'");
  const auto options = std::make_shared<VectorOptions>();
  AddModelOptions(line, options->model);
  AddTestOption(line, options->model);
  AddOption(line, "MODEL", "pc|pls", "the kind of model, pc or pls; without it those of the data",
            [options](const std::string& kind) {
              if (kind != "pc" && kind != "pls") {
                throw UsageError("vectors takes pc or pls behind the file, not " + Quoted(kind));
              }
              options->kind = kind;
            });
  AddResponseOptions(line, options->model);
  AddFlag(line, "--list", "says which vectors there are", options->is_list);
  AddRepeatable(line, "--get", "NAME", "writes a vector, or all",
                [options](const std::string& name) { options->names.push_back(name); });
  AddOption(
      line, "--by", "ELEMENTS",
      "with --get all: observations, variables, components, lags or predictions",
      [options](const std::string& elements) {
        for (const VecRow& row : VecCatalogue()) {
          if (NameOf(row.along) == elements) options->by = elements;
        }
        if (!options->by) {
          throw UsageError("--by takes observations, variables, components, lags or predictions");
        }
      });
  return [options] { return GiveVectors(*options); };
}

}  // namespace zemva::tools
