#include "settings/profile.h"

#if defined(_WIN32)
#include "settings/windows_profile.h"
#else
#include "settings/file_profile.h"
#endif

namespace zemva {

Profile::~Profile() = default;

const Profile& Profile::OfThisSystem() {
#if defined(_WIN32)
  static const WindowsProfile profile;
#else
  static const FileProfile profile;
#endif
  return profile;
}

}  // namespace zemva
