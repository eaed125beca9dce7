#include "zemva/settings/profile/settings_file.h"

#include "zemva/base/paths.h"
#include "zemva/settings/profile/path_text.h"
#include "zemva/settings/profile/profile.h"

namespace zemva {
namespace {

constexpr char kSettingsFileName[] = "zemva.ini";

PathText directory;
bool is_directory_set = false;

}  // namespace

void SetSettingsDirectory(const char* dir) {
  directory.SetPath(dir != nullptr && FileExists(dir)
                        ? WithSeparator(dir)
                        : Profile::OfThisSystem().FindWindowsDirectory());
  is_directory_set = true;
}

const char* SettingsDirectory() {
  if (!is_directory_set) SetSettingsDirectory(nullptr);
  return directory.Get();
}

std::string SettingsFile() {
  std::string file = WithSeparator(SettingsDirectory());
  if (file.empty()) return file;
  file += kSettingsFileName;
  return IsPathThatFits(file) ? file : std::string();
}

}  // namespace zemva
