// What a saved model says of other observations.
#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "arguments/command_line.h"
#include "arguments/csv_arguments.h"
#include "commands/commands.h"
#include "csv/csv_file.h"
#include "model/model_csv.h"
#include "model/result_folder.h"
#include "model/stored_model.h"
#include "text/json_writer.h"
#include "text/text_window.h"
#include "zemva/errors/status.h"
#include "zemva/model/workset/predset.h"

namespace zemva::tools {
namespace {

struct PredictOptions {
  std::string model;
  std::string file;
  CsvOptions csv;
  std::optional<std::string> out_directory;
  bool is_json = false;
};

int Predict(const PredictOptions& options) {
  std::optional<ResultFolder> folder;
  if (options.out_directory) {
    folder.emplace(*options.out_directory, options.csv.decimal_mark.value_or('.'));
  }
  TextWindow log(stderr);
  const std::unique_ptr<Model> model = ReadModel(options.model, log);
  if (model->GetA() == 0) return Fail(options.model, status::mva::kModelNotAvailable);
  // Observations to be predicted need no names and classes.
  CsvOptions csv = options.csv;
  csv.are_columns_optional = true;
  const OpenedTable table = OpenTable(options.file, csv, GlobalStreamWindow());
  Dataset& dataset = *table.dataset;
  Predset predset("Predset", dataset, *model->GetVarInfoDS());
  int status = predset.GetStatus();
  if (status == status::kOk) status = model->ExecPS(predset);
  if (status != status::kOk) return Fail(options.file, status);
  if (model->GetNObsPS() == 0) Tell(options.file, "no observation can be predicted");
  if (options.is_json) {
    const ResultTable predictions = TabulatePredictions(*model, dataset);
    JsonWriter json(stdout);
    predictions.columns.WriteTo(json, predictions.row_count);
  } else {
    TextWindow listing(stdout);
    model->ShowRes(listing);
  }
  if (folder) folder->Write(TabulatePredictions(*model, dataset));
  return kDone;
}

}  // namespace

Run AddPredict(CLI::App& program) {
  CLI::App& line = AddCommand(program, "predict", "Predicts observations by a saved model.",
                              "zemva predict measured.mdl new.csv --out results");
  const auto options = std::make_shared<PredictOptions>();
  AddFile(line, "MODEL.mdl", "the model, as pc and pls save it", options->model);
  AddFile(line, "FILE", kDataHelp, options->file);
  AddOption(line, "--out", "DIR", "writes the predictions into a folder, as a table",
            options->out_directory);
  AddFlag(line, "--json", "writes the predictions as JSON", options->is_json);
  AddCsvOptions(line, options->csv);
  return [options] { return Predict(*options); };
}

}  // namespace zemva::tools
