#include "zemva/settings/profile/profile.h"

#include "zemva/settings/profile/text.h"

#if defined(_WIN32)
#include "zemva/settings/profile/windows_profile.h"
#else
#include "zemva/settings/profile/file_profile.h"
#endif

namespace zemva {

namespace {

bool FitsALine(const char* text) {
  const std::string_view view = ViewOf(text);
  return view.size() <= Profile::kMaxText && view.find_first_of("\r\n") == std::string_view::npos;
}

}  // namespace

Profile::~Profile() = default;

bool Profile::IsValid(const ProfileChange& change) {
  return change.section != nullptr && FitsALine(change.section) && FitsALine(change.key) &&
         FitsALine(change.value);
}

const Profile& Profile::OfThisSystem() {
#if defined(_WIN32)
  static const WindowsProfile profile;
#else
  static const FileProfile profile;
#endif
  return profile;
}

}  // namespace zemva
