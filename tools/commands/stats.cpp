// The univariate summary of every variable of a file.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "arguments/command_line.h"
#include "arguments/csv_arguments.h"
#include "commands/commands.h"
#include "csv/csv_file.h"
#include "csv/csv_text.h"
#include "text/code_page.h"
#include "text/json_writer.h"
#include "zemva/data/dataset.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/missing.h"
#include "zemva/numeric/uni_var.h"

namespace zemva::tools {
namespace {

UniVar WithEveryStatistic() {
  UniVar summary;
  summary.SetIsKurt(true);
  summary.SetIsMedian(true);
  summary.SetIsPNorm(true);
  summary.SetIsSkew(true);
  summary.SetIsIQR(true);
  return summary;
}

// A number with six digits that count, in a field that keeps it apart from the one before.
void PrintNumber(float value, int width) {
  if (IsMissing(value)) {
    std::printf(" %*s", width, "N/A");
  } else {
    std::printf(" %*.6g", width, static_cast<double>(value));
  }
}

std::string NameOf(Dataset& dataset, int j) {
  short number;
  char* name = nullptr;
  dataset.GetVarInfo(static_cast<short>(j), number, name);
  return name == nullptr ? "" : PrintableFromCodePage(name);
}

void PrintTable(Dataset& dataset, const XFMatrix& results, const XSVector& headers) {
  constexpr int kNumberWidth = 12;
  std::vector<std::string> names;
  std::size_t longest = 4;
  for (int j = 1; j <= results.NRow(); ++j) {
    names.push_back(NameOf(dataset, j));
    longest = std::max(longest, names.back().size());
  }
  const int name_width = static_cast<int>(longest);
  std::printf("%5s  %-*s", "Var", name_width, "Name");
  for (int k = 1; k <= headers.NVal(); ++k) std::printf(" %*s", kNumberWidth, headers[k]);
  std::printf("\n");
  for (int j = 1; j <= results.NRow(); ++j) {
    std::printf("%5d  %-*s", j, name_width, names[static_cast<std::size_t>(j - 1)].c_str());
    for (int k = 1; k <= results.NCol(); ++k) PrintNumber(results[j][k], kNumberWidth);
    std::printf("\n");
  }
}

void WriteJson(Dataset& dataset, const XFMatrix& results, const XSVector& headers) {
  JsonWriter json(stdout);
  json.BeginList();
  for (int j = 1; j <= results.NRow(); ++j) {
    json.BeginObject();
    json.Integer("Var", j);
    json.Text("Name", NameOf(dataset, j));
    for (int k = 1; k <= headers.NVal(); ++k) {
      json.Key(WithoutBlanks(headers[k]));
      json.Number(results[j][k]);
    }
    json.EndObject();
  }
  json.EndList();
}

struct StatsOptions {
  std::string file;
  CsvOptions csv;
  bool is_all = false;
  bool is_json = false;
};

int ShowStats(const StatsOptions& options) {
  const std::string& path = options.file;
  const OpenedTable table = OpenTable(path, options.csv, GlobalStreamWindow());
  Dataset& dataset = *table.dataset;
  if (!dataset.IsLoaded() && dataset.Load() != status::kOk) return Fail(path, dataset.GetStatus());
  const XI1Vector variables("Variables", dataset.GetNVarDS(), 1);
  const XI1Vector observations("Observations", dataset.GetNObsDS(), 1);
  const UniVar summary = options.is_all ? WithEveryStatistic() : UniVar();
  XFMatrix* results = nullptr;
  XSVector* headers = nullptr;
  const int status = summary.CalcAndReturnAsVectors(dataset.GetDMPtr(), &variables, &observations,
                                                    results, headers);
  const std::unique_ptr<XFMatrix> owned_results(results);
  const std::unique_ptr<XSVector> owned_headers(headers);
  if (status != status::kOk) return Fail(path, status);
  (options.is_json ? WriteJson : PrintTable)(dataset, *results, *headers);
  return kDone;
}

}  // namespace

Run AddStats(CLI::App& program) {
  CLI::App& line = AddCommand(program, "stats", "Summarises each variable of a file.",
                              "zemva stats measured.csv --all");
  const auto options = std::make_shared<StatsOptions>();
  AddFile(line, "FILE", kDataHelp, options->file);
  AddFlag(line, "--all", "also median, quartiles, skewness, kurtosis and normality",
          options->is_all);
  AddFlag(line, "--json", "writes JSON", options->is_json);
  AddCsvOptions(line, options->csv);
  return [options] { return ShowStats(*options); };
}

}  // namespace zemva::tools
