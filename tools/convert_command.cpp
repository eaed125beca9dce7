// A table in a CSV file becomes the data set of a project file.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>

#include "base/native_path.h"
#include "code_page.h"
#include "commands.h"
#include "csv_table.h"
#include "data/dataset.h"
#include "errors/status.h"
#include "errors/stream_window.h"

namespace zemva::tools {
namespace {

struct ConvertOptions {
  std::string in;
  std::string out;
  std::optional<std::string> name;
  std::optional<std::string> title;
  bool is_repairing = false;
};

std::optional<ConvertOptions> ParseOptions(Arguments arguments) {
  ConvertOptions options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const bool has_value = i + 1 < arguments.size();
    if (arguments[i] == "--name" && has_value) {
      options.name = arguments[++i];
    } else if (arguments[i] == "--title" && has_value) {
      options.title = arguments[++i];
    } else if (arguments[i] == "--repair") {
      options.is_repairing = true;
    } else if (arguments[i].starts_with('-') || !options.out.empty()) {
      return std::nullopt;
    } else {
      (options.in.empty() ? options.in : options.out) = arguments[i];
    }
  }
  return options.out.empty() ? std::nullopt : std::optional(options);
}

std::string Place(const std::string& file, const CsvProblem& problem) {
  std::string place = file;
  if (problem.line > 0) place += ":" + std::to_string(problem.line);
  if (problem.column > 0) place += ":" + std::to_string(problem.column);
  return place;
}

constexpr std::size_t kNameCapacity = 24;
constexpr std::size_t kTitleCapacity = 60;

// A text of the command line in the code page; nothing when it has other characters. Where the
// system gives arguments in the code page, they are no valid UTF-8.
std::optional<std::string> CodePageText(const std::string& text) {
  if (!IsUtf8(text)) return text;
  bool is_whole = true;
  std::string converted = CodePageFromUtf8(text, is_whole);
  return is_whole ? std::optional(converted) : std::nullopt;
}

// The name of the data set: the one that is asked for, or that of its file as far as it fits.
std::optional<std::string> NameOf(const ConvertOptions& options) {
  if (!options.name) {
    const std::string stem = std::filesystem::path(options.out).stem().string();
    return CodePageText(stem).value_or("Data set").substr(0, kNameCapacity);
  }
  const std::optional<std::string> name = CodePageText(*options.name);
  return name && name->size() <= kNameCapacity ? name : std::nullopt;
}

// A data set takes over its parts.
struct Parts {
  std::unique_ptr<XFMatrix> matrix;
  std::unique_ptr<ObsInfo> observations = std::make_unique<ObsInfo>("ObsInfo");
  std::unique_ptr<VarInfo> variables = std::make_unique<VarInfo>("VarInfo");
};

Parts PartsOf(const CsvTable& table, const std::string& name) {
  Parts parts;
  const int rows = static_cast<int>(table.observation_names.size());
  const int columns = static_cast<int>(table.variable_names.size());
  parts.matrix = std::make_unique<XFMatrix>(name.c_str(), rows, columns, Unfilled{});
  auto value = table.values.begin();
  for (int i = 1; i <= rows; ++i) {
    std::copy_n(value, columns, (*parts.matrix)[i] + 1);
    value += columns;
    const auto row = static_cast<std::size_t>(i - 1);
    parts.observations->AddObs(table.observation_numbers[row],
                               table.observation_names[row].c_str());
  }
  for (int j = 1; j <= columns; ++j) {
    parts.variables->AddVar(static_cast<short>(j),
                            table.variable_names[static_cast<std::size_t>(j - 1)].c_str());
  }
  return parts;
}

}  // namespace

int ConvertCommand(Arguments arguments) {
  const std::optional<ConvertOptions> options = ParseOptions(arguments);
  if (!options) return WrongUsage("convert takes a CSV file and the file to make of it");
  const std::optional<std::string> name = NameOf(*options);
  if (!name) return Fail(*options->name, "is no name of a data set (at most 24 characters)");
  const std::optional<std::string> title = CodePageText(options->title.value_or(""));
  if (!title || title->size() > kTitleCapacity) {
    return Fail(*options->title, "is no title of a data set (at most 60 characters)");
  }

  std::ifstream in(NativePath(options->in), std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (!in.is_open() || in.bad()) return Fail(options->in, "cannot be read");

  RepairLog repair;
  if (options->is_repairing) {
    repair = [&](const CsvProblem& problem) {
      std::fprintf(stderr, "%s: %s\n", Place(options->in, problem).c_str(), problem.reason.c_str());
    };
  }
  Parts parts;
  try {
    parts = PartsOf(ReadCsvTable(std::move(text), repair), *name);
  } catch (const CsvProblem& problem) {
    return Fail(Place(options->in, problem), problem.reason);
  }
  Dataset dataset(name->c_str(), options->out.c_str(), GlobalStreamWindow(), parts.matrix.release(),
                  parts.observations.release(), parts.variables.release());
  if (dataset.GetStatus() != status::kOk) return Fail(options->out, dataset.GetStatus());
  dataset.SetDSNum(1);
  if (options->title) dataset.SetDSTitle(title->c_str());
  const int status = dataset.Save();
  return status == status::kOk ? kDone : Fail(options->out, status);
}

}  // namespace zemva::tools
