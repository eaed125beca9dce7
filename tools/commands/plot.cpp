// Figures of a model.
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "arguments/command_line.h"
#include "arguments/lists.h"
#include "arguments/model_options.h"
#include "arguments/settings_folder.h"
#include "commands/commands.h"
#include "csv/csv_file.h"
#include "model/model_run.h"
#include "model/stored_model.h"
#include "plot/figure_kinds.h"
#include "plot/gnuplot.h"
#include "plot/gnuplot_script.h"
#include "text/code_page.h"
#include "text/messages.h"
#include "text/near_word.h"
#include "text/text_window.h"
#include "zemva/base/positions.h"

namespace zemva::tools {
namespace {

constexpr short kMostComponents = 127;

struct PlotOptions {
  ModelOptions model;
  std::optional<std::string> kind;
  std::optional<std::string> type;  // pc or pls
  std::optional<std::string> figure;
  std::optional<std::string> script;
  std::optional<std::string> response;  // in the code page
  FigureChoice choice;
};

std::string KindNames() {
  std::string names;
  for (const FigureKind& kind : FigureKinds()) {
    names += (names.empty() ? "" : ", ") + std::string(kind.name);
  }
  return names;
}

std::string KindHelp() {
  std::string help = "the figure:";
  for (const FigureKind& kind : FigureKinds()) {
    help += (help.back() == ':' ? " " : "; ") + std::string(kind.name) + ", " + kind.help;
  }
  return help;
}

// "2,3", or "2".
void TakeAxes(const std::string& text, FigureChoice& choice) {
  const std::vector<std::string> axes = ParseList("--axes", text);
  if (axes.size() > 2) Refuse("--axes", Quoted(text) + " is not A,B");
  choice.component_x = ParseWithin("--axes", axes.front(), 1, kMostComponents);
  choice.component_y =
      axes.size() == 2 ? ParseWithin("--axes", axes[1], 1, kMostComponents) : short{0};
}

// Raises UsageError for a response that the model has not.
short LocateResponse(const Model& model, const std::string& name) {
  std::vector<std::string> names;
  for (const short m : PositionsUpTo(model.GetNVarY())) {
    const char* const own = model.GetVarInfoY()->GetVNam(m);
    if (name == own) return m;
    names.push_back(PrintableFromCodePage(own));
  }
  const std::string printable = PrintableFromCodePage(name);
  Refuse("--response", "there is no response " + Quoted(printable) + Suggestion(printable, names));
}

int Write(const PlotOptions& options, const FigureKind& kind, const Model& model,
          const std::vector<std::string>& class_names) {
  FigureSource source{model, class_names, options.choice};
  if (options.response) source.choice.response = LocateResponse(model, *options.response);
  const Figure figure = MakeFigure(kind, source);
  const bool is_stream = options.figure == kStandardStream;
  const EFigureFormat format =
      options.figure && !is_stream ? FigureFormatOf(*options.figure) : EFigureFormat::kSvg;
  if (options.script) {
    const std::string output =
        options.figure && !is_stream ? *options.figure : std::string(kind.name) + ".svg";
    WriteWhole(*options.script, ScriptOf(figure, format, output));
  }
  if (options.figure) WriteWhole(*options.figure, DrawFigure(figure, format));
  return kDone;
}

EModType TypeOf(const PlotOptions& options, const FigureKind& kind) {
  const bool has_responses = !options.model.responses.empty();
  const bool is_pls = options.type ? options.type == "pls" : has_responses || kind.needs_responses;
  if (!is_pls) return EModType::kPC1;
  const bool has_classes = !options.model.classes.empty() || options.model.csv.class_column;
  if (!has_responses && !has_classes) {
    throw UsageError("this figure takes responses, --y, or classes, --class or --class-by");
  }
  return has_responses ? EModType::kPLS12 : EModType::kPLS1DA;
}

int Plot(const PlotOptions& options) {
  CheckModelOptions(options.model);
  if (!options.kind) throw UsageError("plot takes a kind of figure: " + KindNames());
  const FigureKind& kind = FindFigureKind(*options.kind);
  if (!options.figure && !options.script) throw UsageError("plot takes -o, or --script");
  if (options.figure && options.figure != kStandardStream) FigureFormatOf(*options.figure);
  if (IsModelFile(options.model.file)) {
    if (options.type) throw UsageError("--model: figures of a saved model are of that model");
    TextWindow log(stderr);
    const std::unique_ptr<Model> model = ReadModel(options.model.file, log);
    return Write(options, kind, *model, {});
  }
  const EModType type = TypeOf(options, kind);
  if (options.figure) RequireGnuplot();
  ChooseSettingsFolder(options.model.settings_directory);
  ModelRun run(options.model);
  int exit_status = run.LoadFile();
  if (exit_status == kDone) exit_status = run.MakeModel(type, 0);
  if (exit_status == kDone) exit_status = run.Fit();
  if (exit_status != kDone) return exit_status;
  return Write(options, kind, run.GetModel(), run.GetClassNames());
}

void AddChoice(CLI::App& line, PlotOptions& options) {
  AddOption(
      line, "--model", "pc|pls", "the model that is fitted to a table",
      [&](const std::string& type) {
        if (type != "pc" && type != "pls") Refuse("--model", Quoted(type) + " is none of pc, pls");
        options.type = type;
      },
      "pls with --y and for figures of responses, else pc");
  AddOption(
      line, "--axes", "A,B", "the components of scores, loadings and contributions",
      [&](const std::string& axes) { TakeAxes(axes, options.choice); }, "1,2");
  AddOption(
      line, "--obs", "N", "the observation of contributions, by number",
      [&](const std::string& number) {
        const std::vector<NumberRange> ranges = ParseRanges("--obs", number);
        options.choice.observation = ranges.front().first;
      },
      "the one with the greatest T2");
  AddOption(
      line, "--response", "NAME", "the response of coefficients and predicted",
      [&](const std::string& name) { options.response = ParseNames("--response", name).front(); },
      "the first");
}

}  // namespace

Run AddPlot(CLI::App& program) {
  CLI::App& line =
      AddCommand(program, "plot", "Draws a figure of a model, saved or of a table, by gnuplot.",
                 "zemva plot measured.csv scores --class-by Species -o scores.svg");
  const auto options = std::make_shared<PlotOptions>();
  AddModelOptions(line, options->model);
  AddOption(line, "KIND", "KIND", KindHelp(), options->kind);
  AddResponseOptions(line, options->model);
  AddOption(line, "-o,--output", "FIGURE", "the file to write: .svg, .png, .pdf, or - for SVG",
            options->figure);
  AddOption(line, "--script", "FILE",
            "writes what draws the figure: a script for gnuplot, with the data in it",
            options->script);
  AddChoice(line, *options);
  return [options] { return Plot(*options); };
}

}  // namespace zemva::tools
