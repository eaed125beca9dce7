#include "zemva/base/native_path.h"

#include <string>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace zemva {

#if defined(_WIN32)
namespace {

std::wstring Wide(std::string_view text) {
  const int length = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), size);
  return wide;
}

}  // namespace

std::filesystem::path NativePath(std::string_view text) {
  return Wide(text);
}

std::FILE* OpenFile(const std::filesystem::path& path, const char* mode) {
  return _wfopen(path.c_str(), Wide(mode).c_str());
}
#else
std::filesystem::path NativePath(std::string_view text) {
  return text;
}

std::FILE* OpenFile(const std::filesystem::path& path, const char* mode) {
  return std::fopen(path.c_str(), mode);
}
#endif

}  // namespace zemva
