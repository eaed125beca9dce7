#include "model/result_folder.h"

#include <system_error>

#include "text/messages.h"
#include "zemva/base/atomic_file.h"
#include "zemva/base/native_path.h"

namespace zemva::tools {
namespace {

// All that there can be.
constexpr const char* kTables[] = {"components", "observations", "variables",
                                   "responses",  "predictions",  "limits"};

// Whether a file could be replaced. What is no regular file is not opened: that could do something.
bool CanWrite(const std::string& path) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(NativePath(path), error);
  if (std::filesystem::is_directory(status)) return false;
  const bool is_special = std::filesystem::exists(status) && !is_regular_file(status);
  return is_special || AtomicFile(path).GetStream() != nullptr;
}

}  // namespace

ResultFolder::ResultFolder(const std::string& folder, char decimal_mark)
    : folder_(folder), decimal_mark_(decimal_mark) {
  try {
    Make(NativePath(folder));
    for (const char* const table : kTables) {
      if (!CanWrite(PathOf(table))) throw Failure(PathOf(table), "cannot be written");
    }
  } catch (const Failure&) {
    RemoveMade();
    throw;
  }
}

ResultFolder::~ResultFolder() {
  RemoveMade();
}

// Makes a folder and those that it is in.
void ResultFolder::Make(const std::filesystem::path& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return;
  if (path.has_parent_path() && path.parent_path() != path) Make(path.parent_path());
  if (std::filesystem::create_directory(path, error)) made_.push_back(path);
  if (!std::filesystem::is_directory(path, error)) throw Failure(folder_, "cannot be created");
}

void ResultFolder::RemoveMade() const {
  std::error_code error;
  for (auto path = made_.rbegin(); path != made_.rend(); ++path) {
    std::filesystem::remove(*path, error);  // which fails where something is in it
  }
}

void ResultFolder::Write(const ResultTable& table) {
  const std::string path = PathOf(table.name);
  if (!table.columns.WriteTo(path, table.row_count, decimal_mark_))
    throw Failure(path, "cannot be written");
  written_.insert(table.name);
}

void ResultFolder::RemoveOthers() const {
  for (const char* const table : kTables) {
    if (written_.contains(table)) continue;
    std::error_code error;
    const std::string path = PathOf(table);
    if (std::filesystem::remove(NativePath(path), error)) {
      Tell(path, "of an earlier model, is removed");
    } else if (error) {
      throw Failure(path, "is of an earlier model and cannot be removed");
    }
  }
}

}  // namespace zemva::tools
