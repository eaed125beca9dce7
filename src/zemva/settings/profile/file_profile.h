// The profile operations on systems that have none of their own.
#ifndef ZEMVA_SETTINGS_PROFILE_FILE_PROFILE_H
#define ZEMVA_SETTINGS_PROFILE_FILE_PROFILE_H

#include "zemva/settings/profile/profile.h"

namespace zemva {

// Behaves as the Windows calls do. A write replaces the file whole and in one step, and holds it
// from the reading on, so that no other process's write is lost, but does not wait for more than
// some seconds for one that does not let go; the changes of one operation come all or not at all.
// Memory is bounded by the length of the file.
class FileProfile : public Profile {
 public:
  using Profile::Write;

  std::size_t ReadString(const char* section, const char* key, const char* fallback,
                         std::span<char> buffer, const char* file) const override;
  int ReadInteger(const char* section, const char* key, int fallback,
                  const char* file) const override;
  std::vector<ProfileEntry> ReadSection(const char* section, const char* file) const override;
  bool Write(std::span<const ProfileChange> changes, const char* file) const override;
  bool Replace(std::span<const ProfileChange> changes, const char* file) const override;
  bool Update(const char* section, const char* file, const SectionEdit& edit) const override;

  // The user's configuration directory, made when it does not exist: $XDG_CONFIG_HOME, or .config
  // in the home directory; without a home, the current directory.
  std::string FindWindowsDirectory() const override;
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_PROFILE_FILE_PROFILE_H
