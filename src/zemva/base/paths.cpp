#include "zemva/base/paths.h"

#include <filesystem>
#include <system_error>

#include "zemva/base/native_path.h"

namespace zemva {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSeparators = "\\/";

bool HasDrive(std::string_view path) {
  if (path.size() < 2 || path[1] != ':') return false;
  const char letter = path[0];
  return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
}

char SeparatorOf(std::string_view path) {
  if (HasDrive(path) || path.find('\\') != std::string_view::npos) return '\\';
  const bool has_slash = path.find('/') != std::string_view::npos;
  return has_slash ? '/' : static_cast<char>(fs::path::preferred_separator);
}

std::size_t LengthOfDirectory(std::string_view path) {
  const std::size_t last = path.find_last_of(kSeparators);
  if (last != std::string_view::npos) return last + 1;
  return HasDrive(path) ? 2 : 0;
}

}  // namespace

std::string WithSeparator(std::string_view path) {
  std::string result(path);
  if (!path.empty() && kSeparators.find(path.back()) == std::string_view::npos) {
    result += SeparatorOf(path);
  }
  return result;
}

std::string_view DirectoryOf(std::string_view path) {
  return path.substr(0, LengthOfDirectory(path));
}

std::string_view FileNameOf(std::string_view path) {
  return path.substr(LengthOfDirectory(path));
}

bool FileExists(std::string_view path) {
  std::error_code error;
  return fs::exists(NativePath(path), error);
}

bool RemoveFile(std::string_view path) {
  return RemoveFileAt(NativePath(path));
}

bool RemoveFileAt(const fs::path& file) {
  std::error_code error;
  if (fs::is_directory(file, error)) return false;
  fs::remove(file, error);
  return !fs::exists(file, error);
}

}  // namespace zemva
