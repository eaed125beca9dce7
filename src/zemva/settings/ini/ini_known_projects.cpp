// The list of known projects.
#include <algorithm>

#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/ini/ini_layout.h"
#include "zemva/base/paths.h"
#include "zemva/settings/profile/text.h"

namespace zemva {
namespace {

NumberedList::Matcher IsAddress(std::string_view address) {
  return [address](const std::string& known) { return known == address; };
}

}  // namespace

const char* IniFile::GetNumberOfProjects() {
  return ReadInto(short_value_, kKnownProjects.section, kKnownProjects.count_key,
                  settings_file_.Get());
}

bool IniFile::IncNumberOfProjects() {
  return EditList(kKnownProjects, settings_file_.Get(), [](NumberedList& projects) {
    return projects.GetCount() >= 0 && RaiseCount(projects);
  });
}

bool IniFile::DecNumberOfProjects() {
  return EditList(kKnownProjects, settings_file_.Get(), LowerCount);
}

const char* IniFile::GetProjectAddress(short i) {
  return GetProjectAddressByString(EntryKey(kKnownProjects, i).c_str());
}

const char* IniFile::GetProjectAddressByString(const char* key) {
  return ReadAddress(value_, kKnownProjects.section, key, settings_file_.Get());
}

bool IniFile::CheckIfProjectIsKnown(const char* addr) {
  return ReadList(kKnownProjects, settings_file_.Get()).Contains(IsAddress(ViewOf(addr)));
}

bool IniFile::AddNewProjectAddress(const char* addr) {
  const std::string address(ViewOf(addr));
  return addr != nullptr &&
         EditList(kKnownProjects, settings_file_.Get(), [&](NumberedList& projects) {
           return projects.GetCount() >= 0 && !projects.Contains(IsAddress(address)) &&
                  projects.Append(address);
         });
}

bool IniFile::DeleteProject(const char* addr) {
  const std::string address(ViewOf(addr));
  const bool is_listed =
      EditList(kKnownProjects, settings_file_.Get(), [&](NumberedList& projects) {
        // An unknown project lowers the count all the same.
        if (projects.RemoveIf(IsAddress(address)) == 0) LowerCount(projects);
        return true;
      });
  const bool is_gone = RemoveFile(address);
  return is_listed && is_gone;
}

bool IniFile::DeleteProjectFromIniFile(const char* addr) {
  const std::string_view address = ViewOf(addr);
  return EditList(kKnownProjects, settings_file_.Get(), [&](NumberedList& projects) {
    return projects.RemoveIf(
               [&](const std::string& known) { return IsSameIgnoringCase(known, address); }, 1) > 0;
  });
}

bool IniFile::AdjustNumberOfKnownProjects(int max) {
  return EditList(kKnownProjects, settings_file_.Get(), [max](NumberedList& projects) {
    if (projects.GetCount() <= max) return true;
    projects.CloseGaps();
    const int excess = projects.GetCount() - std::max(max, 0);
    projects.RemoveIf([](const std::string&) { return true; }, std::max(excess, 0));
    return true;
  });
}

bool IniFile::ScanAndRemoveBadProjects() {
  const bool is_listed = EditList(kKnownProjects, settings_file_.Get(), [](NumberedList& projects) {
    projects.RemoveIf([](const std::string& known) { return !FileExists(known); });
    projects.CloseGaps();
    return true;
  });
  const std::string current = GetCurrentProjectAddress();
  const bool is_current_fine =
      current.empty() || FileExists(current) || SetCurrentProjectAddress("");
  return is_listed && is_current_fine;
}

int IniFile::ReadLastProjects(HMENU__*, int, int) {
  return 1;
}

}  // namespace zemva
