#include "csv/csv_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "text/code_page.h"
#include "text/messages.h"
#include "zemva/base/native_path.h"
#include "zemva/dio/dataset/dio_data.h"
#include "zemva/dio/file/file_contents.h"
#include "zemva/errors/status.h"

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

namespace zemva::tools {
namespace {

constexpr char kStandardInput[] = "standard input";

struct CloseFile {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// Up to `most` bytes of a stream; none when it cannot be read.
std::optional<std::string> ReadStream(std::FILE* stream, std::size_t most) {
  std::string bytes;
  std::array<char, 1 << 16> block;
  while (bytes.size() < most) {
    const std::size_t wanted = std::min(block.size(), most - bytes.size());
    const std::size_t got = std::fread(block.data(), 1, wanted, stream);
    if (got == 0) break;
    bytes.append(block.data(), got);
  }
  return std::ferror(stream) != 0 ? std::nullopt : std::optional(std::move(bytes));
}

std::optional<std::string> ReadFile(const std::string& path, std::size_t most = SIZE_MAX) {
  if (path == kStandardStream) {
#if defined(_WIN32)
    _setmode(_fileno(stdin), _O_BINARY);
#endif
    return ReadStream(stdin, most);
  }
  const File file(OpenFile(NativePath(path), "rb"));
  return file == nullptr ? std::nullopt : ReadStream(file.get(), most);
}

// The version that a project file begins with.
bool BeginsAsProject(std::string_view bytes) {
  if (bytes.size() < 2) return false;
  const auto low = static_cast<unsigned char>(bytes[0]);
  const auto high = static_cast<unsigned char>(bytes[1]);
  return DioData::CanRead(static_cast<std::int16_t>(low | high << 8));
}

// Counts repairs by their kinds.
class RepairCounts {
 public:
  void Add(CsvRepair kind) { ++counts_[static_cast<std::size_t>(kind)]; }

  std::string Describe() const {
    std::string text;
    for (std::size_t kind = 0; kind < counts_.size(); ++kind) {
      if (counts_[kind] == 0) continue;
      text += (text.empty() ? "" : ", ") + std::to_string(counts_[kind]) + ' ' +
              std::string(kCsvRepairNames[kind]);
    }
    return text;
  }

 private:
  std::array<long long, kCsvRepairNames.size()> counts_ = {};
};

std::string NameOf(const std::string& path) {
  return path == kStandardStream ? kStandardInput : path;
}

}  // namespace

bool IsProjectFile(const std::string& path) {
  return path != kStandardStream && BeginsAsProject(ReadFile(path, 2).value_or(""));
}

bool IsModelFile(const std::string& path) {
  if (!IsProjectFile(path)) return false;
  StreamWindow discard;
  FileContents contents;
  GetFileContents(path.c_str(), discard, contents);
  return !contents.super_items.empty() &&
         contents.super_items.front().super_item.type == SuperItem::kModel;
}

bool IsTextFile(const std::string& path) {
  const std::optional<std::string> start = ReadFile(path, 1 << 12);
  return start && !start->empty() && start->find('\0') == std::string::npos;
}

namespace {

void RefuseModel(const std::string& path) {
  if (IsModelFile(path)) {
    throw Failure(path, "is a saved model: info, show, predict, plot and vectors take it");
  }
}

}  // namespace

CsvTable ReadCsvFile(const std::string& path, const CsvOptions& options) {
  const std::string name = NameOf(path);
  RefuseModel(path);
  const std::optional<std::string> bytes = ReadFile(path);
  if (!bytes) throw Failure(name, "cannot be read");
  if (BeginsAsProject(*bytes)) {
    throw Failure(name, path == kStandardStream ? "a project file cannot be read from there"
                                                : std::string("is a project file: info, import, ") +
                                                      kDataCommands + " take it as it is");
  }
  RepairCounts counts;
  CsvRepairs::Report report;
  if (options.is_repairing) {
    report = [&](CsvRepair kind, const std::string& message) {
      counts.Add(kind);
      if (options.is_verbose) Tell(name, message);
    };
  }
  try {
    CsvTable table = ReadCsv(*bytes, options, CsvRepairs(report));
    if (const std::string repairs = counts.Describe(); !repairs.empty()) {
      Tell(name, "repaired: " + repairs);
    }
    return table;
  } catch (const CsvError& error) {
    throw Failure(name, error.what());
  }
}

OpenedTable OpenTable(const std::string& path, const CsvOptions& options, StreamWindow& window) {
  OpenedTable opened;
  std::error_code error;
  const bool exists = path == kStandardStream || std::filesystem::exists(NativePath(path), error);
  RefuseModel(path);
  if (!exists || IsProjectFile(path)) {
    opened.dataset = std::make_unique<Dataset>("Data", path.c_str(), window);
    return opened;
  }
  CsvTable table = ReadCsvFile(path, options);
  Tell(NameOf(path), table.description);
  std::size_t lost = 0;
  const std::string stem = path == kStandardStream
                               ? "stdin"
                               : CodePageFromArgument(NativePath(path).stem().string(), lost);
  opened.dataset =
      std::make_unique<Dataset>(stem.c_str(), NameOf(path).c_str(), window, table.values.get(),
                                table.observations.get(), table.variables.get());
  if (!opened.dataset->IsLoaded()) throw Failure(path, opened.dataset->GetStatus());
  // The data set has taken them over.
  static_cast<void>(table.values.release());
  static_cast<void>(table.observations.release());
  static_cast<void>(table.variables.release());
  opened.classes = std::move(table.classes);
  opened.class_names = std::move(table.class_names);
  return opened;
}

}  // namespace zemva::tools
