// The list of known projects.
#include <algorithm>

#include "settings/ini_file.h"
#include "settings/ini_layout.h"
#include "settings/paths.h"
#include "settings/text.h"

namespace zemva {

const char* IniFile::GetNumberOfProjects() {
  return ReadInto(short_value_, kKnownProjects.section, kKnownProjects.count_key,
                  settings_file_.Get());
}

int IniFile::CountProjects() {
  return LeadingInteger(GetNumberOfProjects());
}

bool IniFile::IncNumberOfProjects() {
  const int count = CountProjects();
  if (count < 0 || count == std::numeric_limits<int>::max()) return false;
  return WriteCount(kKnownProjects, count + 1, settings_file_.Get());
}

bool IniFile::DecNumberOfProjects() {
  const int count = CountProjects();
  return count > 0 && WriteCount(kKnownProjects, count - 1, settings_file_.Get());
}

const char* IniFile::GetProjectAddress(short i) {
  return GetProjectAddressByString(EntryKey(kKnownProjects, i).c_str());
}

const char* IniFile::GetProjectAddressByString(const char* key) {
  return ReadInto(value_, kKnownProjects.section, key, settings_file_.Get());
}

bool IniFile::CheckIfProjectIsKnown(const char* addr) {
  const std::string address(ViewOf(addr));
  return NumberedList(kKnownProjects, CountProjects(), settings_file_.Get())
      .Contains([&](const std::string& known) { return known == address; });
}

bool IniFile::AddNewProjectAddress(const char* addr) {
  if (addr == nullptr || CheckIfProjectIsKnown(addr)) return false;
  const int count = CountProjects();
  return count >= 0 && AppendEntry(kKnownProjects, count, addr, settings_file_.Get());
}

bool IniFile::DeleteProject(const char* addr) {
  const std::string address(ViewOf(addr));
  const int count = CountProjects();
  NumberedList projects(kKnownProjects, count, settings_file_.Get());
  projects.RemoveIf([&](const std::string& known) { return known == address; });
  const bool is_listed = count <= 0 || projects.Save(count - 1);
  const bool is_gone = RemoveFile(address);
  return is_listed && is_gone;
}

bool IniFile::DeleteProjectFromIniFile(const char* addr) {
  const std::string address(ViewOf(addr));
  const int count = CountProjects();
  NumberedList projects(kKnownProjects, count, settings_file_.Get());
  const int removed = projects.RemoveIf(
      [&](const std::string& known) { return IsSameIgnoringCase(known, address); }, 1);
  return removed == 1 && projects.Save(count - 1);
}

bool IniFile::AdjustNumberOfKnownProjects(int max) {
  const int count = CountProjects();
  if (count <= max) return true;
  NumberedList projects(kKnownProjects, count, settings_file_.Get());
  const int kept = std::min(static_cast<int>(projects.GetAddresses().size()), std::max(max, 0));
  const int excess = static_cast<int>(projects.GetAddresses().size()) - kept;
  projects.RemoveIf([](const std::string&) { return true; }, excess);
  return projects.Save(kept);
}

bool IniFile::ScanAndRemoveBadProjects() {
  const int count = CountProjects();
  NumberedList projects(kKnownProjects, count, settings_file_.Get());
  projects.RemoveIf([](const std::string& known) { return !FileExists(known); });
  const int kept = static_cast<int>(projects.GetAddresses().size());
  const bool is_listed = kept == count || projects.Save(kept);
  const std::string current = GetCurrentProjectAddress();
  const bool is_current_fine =
      current.empty() || FileExists(current) || SetCurrentProjectAddress("");
  return is_listed && is_current_fine;
}

int IniFile::ReadLastProjects(HMENU__*, int, int) {
  return 1;
}

}  // namespace zemva
