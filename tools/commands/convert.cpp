// A table of comma-separated values becomes the data set of a project file.
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "arguments/command_line.h"
#include "arguments/csv_arguments.h"
#include "commands/commands.h"
#include "csv/csv_file.h"
#include "text/code_page.h"
#include "zemva/base/native_path.h"
#include "zemva/data/dataset.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"

namespace zemva::tools {
namespace {

constexpr std::size_t kLongestDatasetName = 24;
constexpr std::size_t kLongestTitle = 60;

struct ConvertOptions {
  std::string in;
  std::string out;
  std::optional<std::string> name;
  std::optional<std::string> title;
  bool is_forced = false;
  CsvOptions csv;
};

// A text of the command line in the code page, and whether that and the field have all of it.
std::string FieldText(std::string_view text, std::size_t capacity, bool& fits) {
  std::size_t lost = 0;
  const std::string bytes = CodePageFromArgument(text, lost);
  fits = lost == 0 && bytes.size() <= capacity;
  return bytes.substr(0, capacity);
}

// Sets a field from an option. False when it does not fit and is not to be repaired.
template <class Set>
bool SetField(const std::optional<std::string>& value, const char* option, std::size_t capacity,
              bool is_repairing, Set set) {
  if (!value) return true;
  bool fits = true;
  const std::string text = FieldText(*value, capacity, fits);
  if (!fits) {
    std::string message = "more than ";
    message += std::to_string(capacity);
    message += " characters, or one not in code page 1252";
    if (is_repairing) message += ": stored as '" + Utf8FromCodePage(text) + "'";
    Tell(option, message);
    if (!is_repairing) return false;
  }
  set(text.c_str());
  return true;
}

// The header of the data set to write: that of the one it replaces, else a new one named after the
// table. Its status is that of the file which it is to go into. Raises Failure for a data set that
// is not to be replaced.
void StartHeader(const ConvertOptions& options, Dataset& header) {
  std::error_code error;
  if (std::filesystem::exists(NativePath(options.out), error)) {
    if (header.LoadListProject() == status::kOk && !options.is_forced) {
      throw Failure(options.out, "holds a data set already; --force replaces it");
    }
    return;
  }
  bool fits = true;
  const std::string stem = NativePath(options.in).stem().string();
  header.SetDSNum(1);
  header.SetDSNam(FieldText(stem, kLongestDatasetName, fits).c_str());
}

int SaveTable(CsvTable table, const Dataset& header, StreamWindow& window) {
  Dataset dataset(header.GetDSNam(), header.GetDSAddr(), window, table.values.get(),
                  table.observations.get(), table.variables.get());
  if (!dataset.IsLoaded()) return dataset.GetStatus();
  // The data set has taken them over.
  static_cast<void>(table.values.release());
  static_cast<void>(table.observations.release());
  static_cast<void>(table.variables.release());
  dataset.SetDSNum(header.GetDSNum());
  dataset.SetDSTitle(header.GetDSTitle());
  return dataset.Save();
}

int Convert(const ConvertOptions& options) {
  StreamWindow discard;
  Dataset header("Convert", options.out.c_str(), discard);
  if (header.GetStatus() == status::kOk) StartHeader(options, header);
  if (header.GetStatus() != status::kOk) return Fail(options.out, header.GetStatus());
  const auto set_name = [&](const char* name) { header.SetDSNam(name); };
  const auto set_title = [&](const char* title) { header.SetDSTitle(title); };
  if (!SetField(options.name, "--name", kLongestDatasetName, options.csv.is_repairing, set_name) ||
      !SetField(options.title, "--title", kLongestTitle, options.csv.is_repairing, set_title)) {
    return kFailed;
  }
  CsvTable table = ReadCsvFile(options.in, options.csv);
  if (options.csv.is_verbose) Tell(options.in, table.description);
  const int saved = SaveTable(std::move(table), header, discard);
  return saved == status::kOk ? kDone : Fail(options.out, saved);
}

}  // namespace

Run AddConvert(CLI::App& program) {
  CLI::App& line = AddCommand(program, "convert",
                              "Makes the data set of a project file out of comma-separated values.",
                              "zemva convert measured.csv measured.vdo --title 'First series'");
  const auto options = std::make_shared<ConvertOptions>();
  AddFile(line, "IN.csv", "the table to read, or - for standard input", options->in);
  AddFile(line, "OUT.vdo", "the project file, new or with a data set to replace", options->out);
  AddOption(line, "--name", "NAME", "the name of the data set", options->name,
            "that of the table, or of the data set it replaces");
  AddOption(line, "--title", "TITLE", "its title", options->title);
  AddFlag(line, "--force", "replace the data set that OUT.vdo holds", options->is_forced);
  AddCsvOptions(line, options->csv);
  return [options] { return Convert(*options); };
}

}  // namespace zemva::tools
