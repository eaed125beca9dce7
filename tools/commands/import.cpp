// The grid of a file as a host application receives it: this command knows the plug-in only through
// the twelve functions that it finds in the library by name.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

#include "arguments/command_line.h"
#include "arguments/csv_arguments.h"
#include "commands/commands.h"
#include "commands/plugin_library.h"
#include "csv/csv_file.h"
#include "csv/csv_writer.h"
#include "text/code_page.h"
#include "zemva/base/atomic_file.h"
#include "zemva/base/native_path.h"
#include "zemva/plugin/ko_import.h"

namespace zemva::tools {
namespace {

struct ImportOptions {
  std::string file;
  std::optional<std::string> out;
  std::optional<std::string> plugin;
  std::optional<char> decimal_mark;
};

// The host's grid: an ImportGrid that knows what is in its cells. Most of them hold numbers.
class Grid : public ImportGrid {
 public:
  Grid(int row_count, int column_count)
      : ImportGrid{SetNumber, SetText, nullptr, row_count, column_count},
        numbers_(static_cast<std::size_t>(row_count) * static_cast<std::size_t>(column_count)),
        is_number_(numbers_.size()) {}

  // Whether the plug-in named a cell that is not in the grid.
  bool IsOverrun() const { return is_overrun_; }

  void WriteTo(std::FILE* stream, char decimal_mark) const {
    CsvWriter csv(stream, decimal_mark);
    for (std::size_t cell = 0; cell < numbers_.size(); ++cell) {
      const auto text = texts_.find(cell);
      if (is_number_[cell]) {
        csv.Number(numbers_[cell]);
      } else if (text != texts_.end()) {
        csv.Text(Utf8FromCodePage(text->second));
      } else {
        csv.Empty();
      }
      if ((cell + 1) % static_cast<std::size_t>(columns) == 0) csv.EndRow();
    }
  }

 private:
  static void ZEMVA_CALL SetNumber(ImportGrid* grid, int row, int column, float value) {
    static_cast<Grid*>(grid)->InCell(row, column, [&](Grid& self, std::size_t cell) {
      self.numbers_[cell] = value;
      self.is_number_[cell] = true;
    });
  }
  static void ZEMVA_CALL SetText(ImportGrid* grid, int row, int column, const char* text) {
    static_cast<Grid*>(grid)->InCell(row, column, [&](Grid& self, std::size_t cell) {
      self.is_number_[cell] = false;
      if (*text != '\0') self.texts_[cell] = text;
    });
  }

  template <class Action>
  void InCell(int row, int column, Action action) {
    if (row < 1 || row > rows || column < 1 || column > columns) {
      is_overrun_ = true;
      return;
    }
    action(*this, static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(columns) +
                      static_cast<std::size_t>(column - 1));
  }

  std::vector<float> numbers_;
  std::vector<bool> is_number_;
  std::unordered_map<std::size_t, std::string> texts_;  // those that are not empty
  bool is_overrun_ = false;
};

// The twelve functions, under the names that they have without the prefix.
struct Plugin {
  explicit Plugin(const PluginLibrary& library)
      : InitPackage(library.Find<decltype(KoImportInitPackage)>("KoImportInitPackage")),
        ReleasePackage(library.Find<decltype(KoImportReleasePackage)>("KoImportReleasePackage")),
        GetWarning(library.Find<decltype(KoImportGetWarning)>("KoImportGetWarning")),
        SizeFileFormatsSupported(library.Find<decltype(KoImportSizeFileFormatsSupported)>(
            "KoImportSizeFileFormatsSupported")),
        GetFileFormatInfo(
            library.Find<decltype(KoImportGetFileFormatInfo)>("KoImportGetFileFormatInfo")),
        Open(library.Find<decltype(KoImportOpen)>("KoImportOpen")),
        Close(library.Find<decltype(KoImportClose)>("KoImportClose")),
        GetLastError(library.Find<decltype(KoImportGetLastError)>("KoImportGetLastError")),
        EstablishSize(library.Find<decltype(KoImportEstablishSize)>("KoImportEstablishSize")),
        Read(library.Find<decltype(KoImportRead)>("KoImportRead")),
        Write(library.Find<decltype(KoImportWrite)>("KoImportWrite")),
        IsCorrectFileType(
            library.Find<decltype(KoImportIsCorrectFileType)>("KoImportIsCorrectFileType")) {}

  decltype(&KoImportInitPackage) InitPackage;
  decltype(&KoImportReleasePackage) ReleasePackage;
  decltype(&KoImportGetWarning) GetWarning;
  decltype(&KoImportSizeFileFormatsSupported) SizeFileFormatsSupported;
  decltype(&KoImportGetFileFormatInfo) GetFileFormatInfo;
  decltype(&KoImportOpen) Open;
  decltype(&KoImportClose) Close;
  decltype(&KoImportGetLastError) GetLastError;
  decltype(&KoImportEstablishSize) EstablishSize;
  decltype(&KoImportRead) Read;
  decltype(&KoImportWrite) Write;
  decltype(&KoImportIsCorrectFileType) IsCorrectFileType;
};

// The plug-in between its first call and its last.
class Session {
 public:
  explicit Session(const Plugin& plugin) : plugin_(plugin) { plugin_.InitPackage(nullptr); }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session() { plugin_.ReleasePackage(nullptr); }

  // The grid of a file. Throws std::runtime_error with the plug-in's own words.
  std::unique_ptr<Grid> Import(const std::string& file) const {
    if (plugin_.SizeFileFormatsSupported(nullptr) < 1) {
      throw std::runtime_error("the plug-in reads no file format");
    }
    const FileFormatInfo* format = plugin_.GetFileFormatInfo(nullptr);
    if (plugin_.IsCorrectFileType(nullptr, file.c_str()) != 1) {
      throw std::runtime_error(std::string("not a ") + format->name);
    }
    void* handle = nullptr;
    if (!plugin_.Open(nullptr, file.c_str(), nullptr, &handle)) {
      throw std::runtime_error(plugin_.GetLastError(nullptr));
    }
    const auto close = [this](void* open) { plugin_.Close(nullptr, open); };
    const std::unique_ptr<void, decltype(close)> closer(handle, close);
    int rows = 0;
    int columns = 0;
    plugin_.EstablishSize(nullptr, handle, &rows, &columns);
    auto grid = std::make_unique<Grid>(rows, columns);
    if (!plugin_.Read(nullptr, handle, grid.get())) {
      throw std::runtime_error(plugin_.GetLastError(nullptr));
    }
    if (grid->IsOverrun()) throw std::runtime_error("the plug-in writes outside the grid");
    return grid;
  }

 private:
  const Plugin& plugin_;
};

// Why a file cannot even be looked at; empty when it can.
std::string WhyUnreadable(const std::string& file) {
  constexpr std::size_t kLongestPath = 260;
  const std::filesystem::path path = NativePath(file);
  std::error_code error;
  if (!std::filesystem::exists(path, error)) return "does not exist";
  if (!std::filesystem::is_regular_file(path, error)) return "is no file";
  if (file.size() > kLongestPath) return "has a path of more than 260 characters";
  std::FILE* stream = OpenFile(path, "rb");
  if (stream == nullptr) return "cannot be read";
  std::fclose(stream);
  return "";
}

int Import(const ImportOptions& options) {
  if (const std::string why = WhyUnreadable(options.file); !why.empty()) {
    return Fail(options.file, why);
  }
  std::error_code error;
  if (options.out &&
      std::filesystem::equivalent(NativePath(options.file), NativePath(*options.out), error)) {
    return Fail(*options.out, "is the file to be read");
  }
  std::unique_ptr<Grid> grid;
  try {
    const PluginLibrary library(options.plugin.value_or(DefaultPluginPath()));
    const Plugin plugin(library);
    grid = Session(plugin).Import(options.file);
  } catch (const std::runtime_error& problem) {
    const bool is_table = !IsProjectFile(options.file) && IsTextFile(options.file);
    const std::string hint =
        std::string("; it is a text, and convert, ") + kDataCommands + " take tables";
    return Fail(options.file, problem.what() + (is_table ? hint : std::string()));
  }
  const char mark = options.decimal_mark.value_or('.');
  if (!options.out || *options.out == kStandardStream) {
    grid->WriteTo(stdout, mark);
    return kDone;
  }
  AtomicFile file(*options.out);
  if (file.GetStream() == nullptr) return Fail(*options.out, "cannot be written");
  grid->WriteTo(file.GetStream(), mark);
  return file.Commit() ? kDone : Fail(*options.out, "cannot be written");
}

}  // namespace

Run AddImport(CLI::App& program) {
  CLI::App& line = AddCommand(
      program, "import", "Writes the grid of a project file as a host of the plug-in receives it.",
      "zemva import measured.vdo -o measured.csv");
  const auto options = std::make_shared<ImportOptions>();
  AddFile(line, "FILE.vdo", "the project file", options->file);
  AddOption(line, "-o,--output", "OUT.csv", "the file to write", options->out,
            "-, which is standard output");
  AddOption(line, "--plugin", "LIBRARY", "the plug-in to ask", options->plugin,
            "the one of this program");
  AddDecimalMark(line, options->decimal_mark);
  return [options] { return Import(*options); };
}

}  // namespace zemva::tools
