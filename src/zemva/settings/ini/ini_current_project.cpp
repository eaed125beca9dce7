// The current project, and free values.
#include <filesystem>
#include <system_error>

#include "zemva/base/native_path.h"
#include "zemva/base/paths.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/ini/ini_layout.h"
#include "zemva/settings/options/option_table.h"
#include "zemva/settings/options/options.h"

namespace zemva {
namespace {

bool IsSameFile(const std::string& a, const std::string& b) {
  std::error_code error;
  return std::filesystem::equivalent(NativePath(a), NativePath(b), error);
}

}  // namespace

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
  return ReadInto(short_value_, szVardoSection, kNameKey, project_file_.Get());
}

const char* IniFile::GetCurrentProjectTitle() {
  return ReadInto(title_, szVardoSection, kTitleKey, project_file_.Get());
}

bool IniFile::SetCurrentProjectName(const char* name) {
  return WriteValue({szVardoSection, kNameKey, name}, project_file_.Get());
}

bool IniFile::SetCurrentProjectTitle(const char* title) {
  return WriteValue({szVardoSection, kTitleKey, title}, project_file_.Get());
}

// The new project is made first, and the old one's file goes last: whatever fails in between, a
// project is there.
bool IniFile::MoveCurrentProject(const char* newAddr) {
  const auto move = [&] {
    const std::string new_address(ViewOf(newAddr));
    const std::string old_address =
        FindAddress(value_, kCurrentProjectSection, kCurrentProjectKey, settings_file_.Get());
    if (old_address.empty()) return false;
    const char* title = FindValue(title_, szVardoSection, kTitleKey, old_address.c_str());
    const char* name = FindValue(short_value_, szVardoSection, kNameKey, old_address.c_str());
    if (!WriteDefaultProject(new_address.c_str(), title, name) ||
        !SetCurrentProjectAddress(new_address.c_str())) {
      return false;
    }
    const bool is_listed =
        EditList(kKnownProjects, settings_file_.Get(), [&](NumberedList& projects) {
          RemoveOrLowerCount(projects, old_address);
          AppendOnce(projects, new_address);
          return true;
        });
    return is_listed && (IsSameFile(old_address, new_address) || RemoveFile(old_address));
  };
  return MemoryGuarded(move, false);
}

const char* IniFile::GetDefaultProjectDirectory() {
  const auto read = [&] {
    FindAddress(value_, kOptionsSection, Options::GetString(EOptType::DefaultProjectDir),
                settings_file_.Get());
    value_.SetPath(WithSeparator(value_.View()));
    return static_cast<const char*>(value_.Get());
  };
  return MemoryGuarded(read, "");
}

bool IniFile::SetDefaultProjectDirectory(const char* dir) {
  return WriteAddress(kOptionsSection, Options::GetString(EOptType::DefaultProjectDir), dir,
                      settings_file_.Get());
}

const char* IniFile::GetGlobalMiscOption(const char* key) {
  return ReadInto(value_, kMiscellaneousSection, key, settings_file_.Get());
}

bool IniFile::SaveGlobalMiscOption(const char* key, const char* value) {
  return key != nullptr && WriteValue({kMiscellaneousSection, key, value}, settings_file_.Get());
}

bool IniFile::DeleteSection(const char* section) {
  return WriteValue({section, nullptr, nullptr}, project_file_.Get());
}

}  // namespace zemva
