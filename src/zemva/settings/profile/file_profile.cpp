#include "zemva/settings/profile/file_profile.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

#include "zemva/base/atomic_file.h"
#include "zemva/base/native_path.h"
#include "zemva/settings/profile/file_lock.h"
#include "zemva/settings/profile/profile_text.h"
#include "zemva/settings/profile/text.h"

namespace zemva {
namespace {

namespace fs = std::filesystem;

// The bytes of a file; none when it does not exist, null when it cannot be read. A device or pipe
// is not read: it need not come to an end.
std::optional<std::string> ReadFile(const char* file) {
  std::string bytes;
  const fs::path path = NativePath(ViewOf(file));
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) return bytes;
  if (!fs::is_regular_file(status)) return std::nullopt;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(OpenFile(path, "rb"), std::fclose);
  if (stream == nullptr) return std::nullopt;
  std::array<char, 1 << 16> block;
  while (const std::size_t count = std::fread(block.data(), 1, block.size(), stream.get())) {
    bytes.append(block.data(), count);
  }
  if (std::ferror(stream.get()) != 0) return std::nullopt;
  return bytes;
}

std::optional<std::string> FindValue(const char* section, const char* key, const char* file) {
  const ProfileText text(ReadFile(file).value_or(""));
  const auto value = text.Find(ViewOf(section), ViewOf(key));
  return value ? std::optional<std::string>(*value) : std::nullopt;
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  while (text.size() > 1 && text.back() == ' ') text.remove_suffix(1);
  return text;
}

void Apply(std::span<const ProfileChange> changes, ProfileText& text) {
  for (const ProfileChange& change : changes) {
    if (change.key == nullptr) {
      text.RemoveSection(change.section);
      continue;
    }
    KeyChange key_change = {change.key, std::nullopt};
    if (change.value != nullptr) key_change.value = change.value;
    text.Change(change.section, std::span(&key_change, 1));
  }
}

bool ReplaceFile(const std::string& path, const std::string& bytes) {
  AtomicFile file(path);
  if (file.GetStream() == nullptr) return false;
  std::fwrite(bytes.data(), 1, bytes.size(), file.GetStream());
  return file.Commit();
}

// Holds the file from the reading to the writing.
bool ChangeFile(const std::string& path, const std::function<void(ProfileText&)>& change) {
  const FileLock lock(path);
  if (!lock.IsHeld()) return false;
  const std::optional<std::string> before = ReadFile(path.c_str());
  if (!before) return false;
  ProfileText text(*before);
  if (text.IsUtf16()) return false;
  change(text);
  return text.GetBytes() == *before || ReplaceFile(path, text.GetBytes());
}

bool IsRemoval(const ProfileChange& change) {
  return change.key == nullptr || change.value == nullptr;
}

}  // namespace

std::size_t FileProfile::ReadString(const char* section, const char* key, const char* fallback,
                                    std::span<char> buffer, const char* file) const {
  if (buffer.empty()) return 0;
  const std::optional<std::string> found = FindValue(section, key, file);
  const std::string_view value =
      found ? std::string_view(*found) : Unquoted(WithoutTrailingBlanks(ViewOf(fallback)));
  const std::size_t length = std::min(value.size(), buffer.size() - 1);
  std::copy_n(value.data(), length, buffer.data());
  buffer[length] = '\0';
  return length;
}

int FileProfile::ReadInteger(const char* section, const char* key, int fallback,
                             const char* file) const {
  const std::optional<std::string> value = FindValue(section, key, file);
  return value && !value->empty() ? IntegerOf(*value) : fallback;
}

std::vector<ProfileEntry> FileProfile::ReadSection(const char* section, const char* file) const {
  return ProfileText(ReadFile(file).value_or("")).GetEntries(ViewOf(section));
}

bool FileProfile::Write(std::span<const ProfileChange> changes, const char* file) const {
  const std::string path(ViewOf(file));
  if (path.empty() || !std::ranges::all_of(changes, &Profile::IsValid)) return false;
  std::error_code error;
  const fs::file_type type = fs::status(NativePath(path), error).type();
  const bool is_missing = type == fs::file_type::not_found;
  if (is_missing && std::ranges::all_of(changes, IsRemoval)) return true;
  return ChangeFile(path, [changes](ProfileText& text) { Apply(changes, text); });
}

bool FileProfile::Replace(std::span<const ProfileChange> changes, const char* file) const {
  const std::string path(ViewOf(file));
  if (path.empty() || !std::ranges::all_of(changes, &Profile::IsValid)) return false;
  ProfileText text("");
  Apply(changes, text);
  const FileLock lock(path);
  return lock.IsHeld() && ReplaceFile(path, text.GetBytes());
}

bool FileProfile::Update(const char* section, const char* file, const SectionEdit& edit) const {
  const std::string path(ViewOf(file));
  if (section == nullptr || path.empty()) return false;
  const std::optional<std::string> bytes = ReadFile(path.c_str());
  if (!bytes) return false;
  // Whoever changes nothing waits for nobody.
  if (edit(ProfileText(*bytes).GetEntries(section)).empty()) return true;
  bool are_valid = false;
  const bool is_written = ChangeFile(path, [&](ProfileText& text) {
    const std::vector<KeyChange> changes = edit(text.GetEntries(section));
    are_valid = std::ranges::all_of(changes, [section](const KeyChange& change) {
      return IsValid(ToProfileChange(section, change));
    });
    if (are_valid) text.Change(section, changes);
  });
  return is_written && are_valid;
}

std::string FileProfile::FindWindowsDirectory() const {
  const std::string_view configuration = ViewOf(std::getenv("XDG_CONFIG_HOME"));
  const std::string_view home = ViewOf(std::getenv("HOME"));
  std::string directory = ".";
  if (configuration.starts_with('/')) {
    directory = configuration;
  } else if (!home.empty()) {
    directory = std::string(home).append("/.config");
  }
  std::error_code error;
  fs::create_directories(NativePath(directory), error);
  return directory;
}

}  // namespace zemva
