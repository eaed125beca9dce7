#include "settings/file_profile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <new>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/atomic_file.h"
#include "base/native_path.h"
#include "settings/file_lock.h"
#include "settings/profile_text.h"
#include "settings/text.h"

namespace zemva {
namespace {

namespace fs = std::filesystem;

// The bytes of a regular file; empty when there is none. A device or pipe is not read: it need not
// come to an end.
std::string ReadFile(const char* file) {
  std::string bytes;
  const fs::path path = NativePath(ViewOf(file));
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return bytes;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(OpenFile(path, "rb"), std::fclose);
  if (stream == nullptr) return bytes;
  std::array<char, 1 << 16> block;
  while (const std::size_t count = std::fread(block.data(), 1, block.size(), stream.get())) {
    bytes.append(block.data(), count);
  }
  return bytes;
}

std::optional<std::string> FindValue(const char* section, const char* key, const char* file) {
  try {
    const ProfileText text(ReadFile(file));
    if (const auto value = text.Find(ViewOf(section), ViewOf(key))) return std::string(*value);
  } catch (const std::bad_alloc&) {
  }
  return std::nullopt;
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  while (text.size() > 1 && text.back() == ' ') text.remove_suffix(1);
  return text;
}

int IntegerOf(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  const bool is_negative = text.starts_with('-');
  if (is_negative || text.starts_with('+')) text.remove_prefix(1);
  constexpr std::array<std::pair<std::string_view, unsigned>, 3> kPrefixes = {
      {{"0x", 16}, {"0o", 8}, {"0b", 2}}};
  unsigned base = 10;
  for (const auto& [prefix, prefix_base] : kPrefixes) {
    if (!text.starts_with(prefix)) continue;
    base = prefix_base;
    text.remove_prefix(prefix.size());
    break;
  }
  std::uint32_t value = 0;
  for (const char& character : text) {
    unsigned digit = base;
    std::from_chars(&character, &character + 1, digit, static_cast<int>(base));
    if (digit == base) break;
    value = value * base + digit;
  }
  return static_cast<int>(is_negative ? 0 - value : value);
}

bool FitsALine(const char* text) {
  return ViewOf(text).size() <= Profile::kMaxText;
}

bool IsValid(const ProfileChange& change) {
  return change.section != nullptr && FitsALine(change.section) && FitsALine(change.key) &&
         FitsALine(change.value);
}

void Apply(const ProfileChange& change, ProfileText& text) {
  if (change.key == nullptr) {
    text.RemoveSection(change.section);
  } else if (change.value == nullptr) {
    text.RemoveKey(change.section, change.key);
  } else {
    text.Set(change.section, change.key, change.value);
  }
}

bool ReplaceFile(const std::string& path, const std::string& bytes) {
  AtomicFile file(path);
  if (file.GetStream() == nullptr) return false;
  std::fwrite(bytes.data(), 1, bytes.size(), file.GetStream());
  return file.Commit();
}

bool ChangeFile(std::span<const ProfileChange> changes, const std::string& path) {
  const FileLock lock(path);
  if (!lock.IsHeld()) return false;
  ProfileText text(ReadFile(path.c_str()));
  if (text.IsUtf16()) return false;
  const std::string before = text.GetBytes();
  for (const ProfileChange& change : changes) Apply(change, text);
  return text.GetBytes() == before || ReplaceFile(path, text.GetBytes());
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
  try {
    return ProfileText(ReadFile(file)).GetEntries(ViewOf(section));
  } catch (const std::bad_alloc&) {
    return {};
  }
}

bool FileProfile::Write(std::span<const ProfileChange> changes, const char* file) const {
  if (!std::ranges::all_of(changes, IsValid)) return false;
  try {
    const std::string path(ViewOf(file));
    std::error_code error;
    const bool is_missing = !fs::exists(NativePath(path), error);
    if (is_missing && std::ranges::all_of(changes, IsRemoval)) return true;
    return ChangeFile(changes, path);
  } catch (const std::bad_alloc&) {
    return false;
  }
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
