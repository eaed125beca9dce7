// The grid of a file as a host application receives it: this command knows the plug-in only through
// the twelve functions that it finds in the library by name.
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "base/atomic_file.h"
#include "code_page.h"
#include "commands.h"
#include "csv_writer.h"
#include "plugin/ko_import.h"
#include "plugin_library.h"

namespace zemva::tools {
namespace {

struct ImportOptions {
  std::string file;
  std::optional<std::string> out;
  std::optional<std::string> plugin;
};

// The host's grid: an ImportGrid that knows where its cells are.
class Grid : public ImportGrid {
 public:
  using Cell = std::variant<std::monostate, float, std::string>;

  Grid(int row_count, int column_count)
      : ImportGrid{SetNumber, SetText, nullptr, row_count, column_count},
        cells_(static_cast<std::size_t>(row_count) * static_cast<std::size_t>(column_count)) {}

  const Cell& At(int row, int column) const { return cells_[Index(row, column)]; }

  // Whether the plug-in named a cell that is not in the grid.
  bool IsOverrun() const { return is_overrun_; }

 private:
  static void ZEMVA_CALL SetNumber(ImportGrid* grid, int row, int column, float value) {
    static_cast<Grid*>(grid)->Set(row, column, value);
  }
  static void ZEMVA_CALL SetText(ImportGrid* grid, int row, int column, const char* text) {
    static_cast<Grid*>(grid)->Set(row, column, text);
  }

  std::size_t Index(int row, int column) const {
    return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(columns) +
           static_cast<std::size_t>(column - 1);
  }

  template <class Value>
  void Set(int row, int column, Value value) {
    if (row < 1 || row > rows || column < 1 || column > columns) {
      is_overrun_ = true;
    } else {
      cells_[Index(row, column)] = value;
    }
  }

  std::vector<Cell> cells_;
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

void WriteGrid(const Grid& grid, std::FILE* stream) {
  CsvWriter csv(stream);
  for (int row = 1; row <= grid.rows; ++row) {
    for (int column = 1; column <= grid.columns; ++column) {
      const Grid::Cell& cell = grid.At(row, column);
      if (const float* number = std::get_if<float>(&cell)) {
        csv.Number(*number);
      } else if (const std::string* text = std::get_if<std::string>(&cell)) {
        csv.Text(Utf8FromCodePage(*text));
      } else {
        csv.Empty();
      }
    }
    csv.EndRow();
  }
}

std::optional<ImportOptions> ParseOptions(Arguments arguments) {
  ImportOptions options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const bool has_value = i + 1 < arguments.size();
    if (arguments[i] == "-o" && has_value) {
      options.out = arguments[++i];
    } else if (arguments[i] == "--plugin" && has_value) {
      options.plugin = arguments[++i];
    } else if (!arguments[i].starts_with('-') && options.file.empty()) {
      options.file = arguments[i];
    } else {
      return std::nullopt;
    }
  }
  return options.file.empty() ? std::nullopt : std::optional(options);
}

}  // namespace

int ImportCommand(Arguments arguments) {
  const std::optional<ImportOptions> options = ParseOptions(arguments);
  if (!options) return WrongUsage("import takes one file");
  std::unique_ptr<Grid> grid;
  try {
    const PluginLibrary library(options->plugin.value_or(DefaultPluginPath()));
    const Plugin plugin(library);
    grid = Session(plugin).Import(options->file);
  } catch (const std::runtime_error& error) {
    return Fail(options->file, error.what());
  }
  if (!options->out) {
    WriteGrid(*grid, stdout);
    return kDone;
  }
  AtomicFile file(*options->out);
  if (file.GetStream() == nullptr) return Fail(*options->out, "cannot be written");
  WriteGrid(*grid, file.GetStream());
  return file.Commit() ? kDone : Fail(*options->out, "cannot be written");
}

}  // namespace zemva::tools
