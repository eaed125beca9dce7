// The profile operations of Windows.
#ifndef ZEMVA_SETTINGS_PROFILE_WINDOWS_PROFILE_H
#define ZEMVA_SETTINGS_PROFILE_WINDOWS_PROFILE_H

#include "zemva/settings/profile/profile.h"

namespace zemva {

// The system's calls hold nothing between a read and a write. The system looks for a file without a
// directory in the Windows directory.
class WindowsProfile : public Profile {
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
  std::string FindWindowsDirectory() const override;
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_PROFILE_WINDOWS_PROFILE_H
