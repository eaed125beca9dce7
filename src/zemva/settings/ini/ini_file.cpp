#include "zemva/settings/ini/ini_file.h"

#include <vector>

#include "zemva/errors/memory_guard.h"
#include "zemva/settings/ini/ini_layout.h"
#include "zemva/settings/options/option_table.h"
#include "zemva/settings/profile/settings_file.h"

namespace zemva {

const char* GetIniFile() {
  return nullptr;
}

IniFile::IniFile(const char* projectFile) {
  settings_file_.SetPath(GetSettingsFile());
  project_file_.SetPath(ViewOf(projectFile));
}

void IniFile::SetIniPath(const char* dir) {
  MemoryGuarded([dir] { return SetSettingsDirectory(dir), 0; });
}

const char* IniFile::GetIniPath() {
  return MemoryGuarded([] { return SettingsDirectory(); }, "");
}

std::string IniFile::GetSettingsFile() {
  return MemoryGuarded([] { return SettingsFile(); }, std::string());
}

const char* IniFile::GetOptionsSectionName() {
  return kOptionsSection;
}

bool IniFile::CreateVardoIniFile() {
  const auto create = [] {
    std::vector<ProfileChange> contents = {
        {szVardoSection, kIdentificationKey, kProductIdentification},
        {szVardoSection, kVersionKey, kLayoutVersion},
        {kCurrentProjectSection, kCurrentProjectKey, ""},
        {kKnownProjects.section, kKnownProjects.count_key, "0"},
    };
    for (int number = 1; number <= kGlobalOptionCount; ++number) {
      const OptionCell& option = OptionRow(static_cast<EOptType>(number));
      contents.push_back({kOptionsSection, option.key, option.default_value});
    }
    return Profile::OfThisSystem().Replace(contents, SettingsFile().c_str());
  };
  return MemoryGuarded(create, false);
}

const char* IniFile::MakeNewProject(const char* addr, const char* title, const char* name) {
  if (!WriteDefaultProject(addr, title, name)) return "";
  AddNewProjectAddress(addr);
  return addr;
}

bool IniFile::WriteDefaultProject(const char* addr, const char* title, const char* name) {
  const ProfileChange contents[] = {
      {szVardoSection, kIdentificationKey, kProductIdentification},
      {szVardoSection, kVersionKey, kLayoutVersion},
      {szVardoSection, kNameKey, name},
      {szVardoSection, kTitleKey, title},
      {kPrimaryDatasetSection, kPrimaryDatasetKey, ""},
      {kPrimaryDatasetSection, kPrimaryDatasetNameKey, ""},
      {kSecondaryDatasets.section, kSecondaryDatasets.count_key, "0"},
      {kModels.section, kModels.count_key, "0"},
  };
  const auto write = [&] { return Profile::OfThisSystem().Replace(contents, addr); };
  return IsPathThatFits(ViewOf(addr)) && MemoryGuarded(write, false);
}

}  // namespace zemva
