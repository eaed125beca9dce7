#include "zemva/settings/profile/windows_profile.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <set>
#include <string_view>
#include <system_error>

#include "zemva/base/native_path.h"
#include "zemva/base/paths.h"
#include "zemva/settings/profile/text.h"

namespace zemva {
namespace {

namespace fs = std::filesystem;

// Longer texts and paths are not safe with the system's calls.
bool FitsTheCalls(const char* text) {
  return ViewOf(text).size() <= Profile::kMaxText;
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

// The system's calls do not tell a file that cannot be read from one that does not exist.
bool IsReadableOrMissing(const char* file) {
  const fs::path path = NativePath(file);
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) return true;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(OpenFile(path, "rb"), std::fclose);
  return fs::is_regular_file(status) && stream != nullptr;
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
  std::set<std::string, LessIgnoringCase> seen;
  for (std::size_t at = 0; at < names.size();) {
    const std::string name(names.c_str() + at);
    at += name.size() + 1;
    if (!seen.insert(name).second) continue;
    const std::size_t length = ReadString(section, name.c_str(), "", value, file);
    // A key without a value gives whatever it is to fall back on.
    std::array<char, 2> probe = {};
    if (length == 0 && ReadString(section, name.c_str(), "x", probe, file) > 0) continue;
    entries.push_back({name, value.substr(0, length)});
  }
  return entries;
}

bool WindowsProfile::Write(std::span<const ProfileChange> changes, const char* file) const {
  if (!IsUsablePath(file)) return false;
  const bool are_made = std::ranges::all_of(changes, [file](const ProfileChange& change) {
    return IsValid(change) &&
           WritePrivateProfileStringA(change.section, change.key, change.value, file) != 0;
  });
  // What the system still keeps back for itself reaches the file.
  WritePrivateProfileStringA(nullptr, nullptr, nullptr, file);
  return are_made;
}

bool WindowsProfile::Replace(std::span<const ProfileChange> changes, const char* file) const {
  if (!IsUsablePath(file) || !std::ranges::all_of(changes, &Profile::IsValid)) return false;
  const fs::path path = NativePath(file);
  if (!RemoveFileAt(path)) return false;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> made(_wfopen(path.c_str(), L"wb"),
                                                             std::fclose);
  return made != nullptr && Write(changes, file);
}

bool WindowsProfile::Update(const char* section, const char* file, const SectionEdit& edit) const {
  if (section == nullptr || !IsUsablePath(file) || !IsReadableOrMissing(file)) return false;
  const std::vector<KeyChange> edits = edit(ReadSection(section, file));
  std::vector<ProfileChange> changes;
  for (const KeyChange& change : edits) changes.push_back(ToProfileChange(section, change));
  return changes.empty() || Write(changes, file);
}

std::string WindowsProfile::FindWindowsDirectory() const {
  std::array<char, MAX_PATH> directory = {};
  const UINT length = GetWindowsDirectoryA(directory.data(), static_cast<UINT>(directory.size()));
  return length < directory.size() ? std::string(directory.data()) : std::string();
}

}  // namespace zemva
