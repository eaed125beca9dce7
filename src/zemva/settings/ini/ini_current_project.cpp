// The current project, and free values.
#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/ini/ini_layout.h"
#include "zemva/settings/options/options.h"
#include "zemva/base/paths.h"
#include "zemva/settings/profile/text.h"

namespace zemva {

const char* IniFile::GetCurrentProjectAddress() {
  return ReadAddress(value_, kCurrentProjectSection, kCurrentProjectKey, settings_file_.Get());
}

bool IniFile::SetCurrentProjectAddress(const char* addr) {
  if (!WriteAddress(kCurrentProjectSection, kCurrentProjectKey, addr, settings_file_.Get())) {
    return false;
  }
  project_file_.SetPath(GetCurrentProjectAddress());
  return true;
}

const char* IniFile::GetCurrentProjectName() {
  return ReadInto(short_value_, kProductSection, kNameKey, project_file_.Get());
}

const char* IniFile::GetCurrentProjectTitle() {
  return ReadInto(title_, kProductSection, kTitleKey, project_file_.Get());
}

bool IniFile::SetCurrentProjectName(const char* name) {
  return Profile::OfThisSystem().Write({kProductSection, kNameKey, name}, project_file_.Get());
}

bool IniFile::SetCurrentProjectTitle(const char* title) {
  return Profile::OfThisSystem().Write({kProductSection, kTitleKey, title}, project_file_.Get());
}

bool IniFile::MoveCurrentProject(const char* newAddr) {
  const std::string new_address(ViewOf(newAddr));
  const std::string old_address = GetCurrentProjectAddress();
  // A project that could not be made anew must not be deleted.
  const bool is_usable = !new_address.empty() && IsPathThatFits(new_address);
  if (old_address.empty() || !is_usable) return false;
  project_file_.SetPath(old_address);
  const std::string title = GetCurrentProjectTitle();
  const std::string name = GetCurrentProjectName();
  if (!DeleteProject(old_address.c_str())) return false;
  const std::string made = MakeNewProject(new_address.c_str(), title.c_str(), name.c_str());
  return !made.empty() && SetCurrentProjectAddress(new_address.c_str());
}

const char* IniFile::GetDefaultProjectDirectory() {
  ReadAddress(value_, kOptionsSection, Options::GetString(EOptType::DefaultProjectDir),
              settings_file_.Get());
  value_.SetPath(WithSeparator(value_.View()));
  return value_.Get();
}

bool IniFile::SetDefaultProjectDirectory(const char* dir) {
  return WriteAddress(kOptionsSection, Options::GetString(EOptType::DefaultProjectDir), dir,
                      settings_file_.Get());
}

const char* IniFile::GetGlobalMiscOption(const char* key) {
  return ReadInto(value_, kMiscellaneousSection, key, settings_file_.Get());
}

bool IniFile::SaveGlobalMiscOption(const char* key, const char* value) {
  return key != nullptr &&
         Profile::OfThisSystem().Write({kMiscellaneousSection, key, value}, settings_file_.Get());
}

bool IniFile::DeleteSection(const char* section) {
  return Profile::OfThisSystem().Write({section, nullptr, nullptr}, project_file_.Get());
}

}  // namespace zemva
