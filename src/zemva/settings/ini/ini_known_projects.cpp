// The list of known projects.
#include <algorithm>

#include "zemva/base/native_path.h"
#include "zemva/base/paths.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/ini/ini_layout.h"

namespace zemva {

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
  return ReadEntry(value_, kKnownProjects, i, settings_file_.Get());
}

const char* IniFile::GetProjectAddressByString(const char* key) {
  return ReadAddress(value_, kKnownProjects.section, key, settings_file_.Get());
}

bool IniFile::CheckIfProjectIsKnown(const char* addr) {
  const auto check = [&] {
    return ReadList(kKnownProjects, settings_file_.Get()).Contains(Is(ViewOf(addr)));
  };
  return MemoryGuarded(check, false);
}

bool IniFile::AddNewProjectAddress(const char* addr) {
  return addr != nullptr &&
         EditList(kKnownProjects, settings_file_.Get(),
                  [addr](NumberedList& projects) { return AppendOnce(projects, addr); });
}

bool IniFile::DeleteProject(const char* addr) {
  const auto remove = [&] {
    const std::filesystem::path file = NativePath(ViewOf(addr));
    const auto take_out = [addr](NumberedList& projects) {
      RemoveOrLowerCount(projects, ViewOf(addr));
      return true;
    };
    return EditList(kKnownProjects, settings_file_.Get(), take_out) && RemoveFileAt(file);
  };
  return MemoryGuarded(remove, false);
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
  const auto check_current = [&] {
    const std::string_view current =
        FindAddress(value_, kCurrentProjectSection, kCurrentProjectKey, settings_file_.Get());
    return current.empty() || FileExists(current) || SetCurrentProjectAddress("");
  };
  return MemoryGuarded(check_current, false) && is_listed;
}

int IniFile::ReadLastProjects(HMENU__*, int, int) {
  return 1;
}

}  // namespace zemva
