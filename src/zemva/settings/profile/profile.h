// The profile operations: the one way to the settings files.
//
// A profile file is a text of sections, "[name]", each with lines "key=value". Names are compared
// without regard to the case of the letters A to Z or to the blanks around them, except by a
// removal, which takes blanks around a name for part of it; of two sections, or two keys of a
// section, with one name, the first counts. Blanks around a value, and one pair of quotes (" or ')
// around that, do not belong to it.
#ifndef ZEMVA_SETTINGS_PROFILE_PROFILE_H
#define ZEMVA_SETTINGS_PROFILE_PROFILE_H

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zemva {

struct ProfileEntry {
  std::string key;
  std::string value;
};

// Puts `value` under `key`. A null value removes the key, a null key the whole section.
struct ProfileChange {
  const char* section;
  const char* key;
  const char* value;
};

// The same in a section that is known. Without a value it removes the key.
struct KeyChange {
  std::string key;
  std::optional<std::string> value;
};

// Valid as long as what it was made from.
inline ProfileChange ToProfileChange(const char* section, const KeyChange& change) {
  return {section, change.key.c_str(), change.value ? change.value->c_str() : nullptr};
}

// Each of them lets std::bad_alloc out; what it was to change is then as it was.
class Profile {
 public:
  // The longest key or value that can be written.
  static constexpr std::size_t kMaxText = 32000;

  virtual ~Profile();

  // Copies the value of a key into `buffer`, cut at what it holds and ended with a zero byte, and
  // returns its length. Without the key, or without the file, the value is `fallback`, less its
  // trailing blanks and its quotes; a null one is empty.
  virtual std::size_t ReadString(const char* section, const char* key, const char* fallback,
                                 std::span<char> buffer, const char* file) const = 0;

  // The value of a key as an integer: a sign and decimal digits, or hexadecimal, octal or binary
  // ones behind 0x, 0o or 0b, up to the first other character, modulo 2^32. 0 when there is none,
  // `fallback` when the value is empty or absent.
  virtual int ReadInteger(const char* section, const char* key, int fallback,
                          const char* file) const = 0;

  // The keys of a section that have a value, in the order of the file and each name once.
  virtual std::vector<ProfileEntry> ReadSection(const char* section, const char* file) const = 0;

  // Makes the changes one after the other, and the file when it does not exist. To remove what is
  // not there succeeds. False when one could not be made; a text that is too long or of more than
  // one line cannot.
  virtual bool Write(std::span<const ProfileChange> changes, const char* file) const = 0;
  bool Write(const ProfileChange& change, const char* file) const {
    return Write(std::span(&change, 1), file);
  }

  // Makes the changes to an empty file, which takes the place of what is there.
  virtual bool Replace(std::span<const ProfileChange> changes, const char* file) const = 0;

  // The changes that a section needs, told from what it holds.
  using SectionEdit = std::function<std::vector<KeyChange>(const std::vector<ProfileEntry>&)>;

  // Reads a section and makes the changes that `edit` asks for, a key at most once. `edit` may be
  // called twice; what it returned last is made. False, without a call, when the file exists and
  // cannot be read; false too when it cannot be written.
  virtual bool Update(const char* section, const char* file, const SectionEdit& edit) const = 0;

  // Where settings are kept that have no place of their own, without a separator at its end.
  virtual std::string FindWindowsDirectory() const = 0;

  // The profile operations of this system: the system's own calls on Windows, FileProfile
  // elsewhere.
  static const Profile& OfThisSystem();

 protected:
  // Whether a change names a section, and texts that fit a line.
  static bool IsValid(const ProfileChange& change);
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_PROFILE_PROFILE_H
