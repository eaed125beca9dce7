#include "settings/windows_profile.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace zemva {
namespace {

// Longer texts and paths are not safe with the system's calls.
bool FitsTheCalls(const char* text) {
  return text == nullptr || std::strlen(text) <= Profile::kMaxText;
}
bool IsUsablePath(const char* file) {
  return file != nullptr && *file != '\0' && std::strlen(file) < MAX_PATH;
}

// The names of the keys of a section, each with a zero byte behind it.
std::string ReadKeyNames(const char* section, const char* file) {
  // Two characters less than the size mean that more names wait.
  constexpr std::size_t kLargest = std::size_t{1} << 27;
  std::string names;
  for (std::size_t size = 4096; size <= kLargest; size *= 2) {
    names.resize(size);
    const DWORD length = GetPrivateProfileStringA(section, nullptr, "", names.data(),
                                                  static_cast<DWORD>(size), file);
    if (length + 2 < size) {
      names.resize(length);
      return names;
    }
  }
  return {};
}

bool Make(const ProfileChange& change, const char* file) {
  if (change.section == nullptr) return false;
  if (!FitsTheCalls(change.section) || !FitsTheCalls(change.key) || !FitsTheCalls(change.value)) {
    return false;
  }
  return WritePrivateProfileStringA(change.section, change.key, change.value, file) != 0;
}

}  // namespace

std::size_t WindowsProfile::ReadString(const char* section, const char* key, const char* fallback,
                                       std::span<char> buffer, const char* file) const {
  if (buffer.empty()) return 0;
  // A null section or key would ask for a list of names; nothing stands in a folder.
  const bool is_askable = section != nullptr && key != nullptr && FitsTheCalls(section) &&
                          FitsTheCalls(key) && IsUsablePath(file);
  return GetPrivateProfileStringA(is_askable ? section : "", is_askable ? key : "", fallback,
                                  buffer.data(), static_cast<DWORD>(buffer.size()),
                                  is_askable ? file : ".\\");
}

int WindowsProfile::ReadInteger(const char* section, const char* key, int fallback,
                                const char* file) const {
  if (section == nullptr || key == nullptr || !IsUsablePath(file)) return fallback;
  return static_cast<int>(GetPrivateProfileIntA(section, key, fallback, file));
}

std::vector<ProfileEntry> WindowsProfile::ReadSection(const char* section, const char* file) const {
  std::vector<ProfileEntry> entries;
  if (section == nullptr || !IsUsablePath(file)) return entries;
  const std::string names = ReadKeyNames(section, file);
  std::string value(kMaxText + 1, '\0');
  for (std::size_t at = 0; at < names.size();) {
    const std::string name(names.c_str() + at);
    const std::size_t length = ReadString(section, name.c_str(), "", value, file);
    entries.push_back({name, value.substr(0, length)});
    at += name.size() + 1;
  }
  return entries;
}

bool WindowsProfile::Write(std::span<const ProfileChange> changes, const char* file) const {
  if (!IsUsablePath(file)) return false;
  const bool are_made = std::ranges::all_of(
      changes, [file](const ProfileChange& change) { return Make(change, file); });
  // What the system still keeps back for itself reaches the file.
  WritePrivateProfileStringA(nullptr, nullptr, nullptr, file);
  return are_made;
}

std::string WindowsProfile::FindWindowsDirectory() const {
  std::array<char, MAX_PATH> directory = {};
  const UINT length = GetWindowsDirectoryA(directory.data(), static_cast<UINT>(directory.size()));
  return length < directory.size() ? std::string(directory.data()) : std::string();
}

}  // namespace zemva
