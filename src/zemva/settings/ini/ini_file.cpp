#include "zemva/settings/ini/ini_file.h"

#include <array>

#include "zemva/settings/ini/ini_layout.h"
#include "zemva/base/paths.h"
#include "zemva/settings/options/prj_opt.h"
#include "zemva/settings/profile/text.h"

namespace zemva {

PathText IniFile::msszIniPath;
bool IniFile::is_ini_path_set_ = false;

const char* GetIniFile() {
  return nullptr;
}

IniFile::IniFile(const char* projectFile) {
  settings_file_.SetPath(GetSettingsFile());
  project_file_.SetPath(ViewOf(projectFile));
}

void IniFile::SetIniPath(const char* dir) {
  is_ini_path_set_ = true;
  if (dir != nullptr && FileExists(dir)) {
    msszIniPath.SetPath(WithSeparator(dir));
  } else {
    msszIniPath.SetPath(Profile::OfThisSystem().FindWindowsDirectory());
  }
}

const char* IniFile::GetIniPath() {
  if (!is_ini_path_set_) SetIniPath(nullptr);
  return msszIniPath.Get();
}

std::string IniFile::GetSettingsFile() {
  const std::string directory = WithSeparator(GetIniPath());
  if (directory.empty()) return {};
  const char* name = GetIniFile();
  const std::string file = directory + (name != nullptr ? name : kSettingsFileName);
  return IsPathThatFits(file) ? file : std::string();
}

const char* IniFile::GetOptionsSectionName() {
  return kOptionsSection;
}

bool IniFile::CreateVardoIniFile() {
  const std::string file = GetSettingsFile();
  if (!CreateEmptyFile(file)) return false;
  constexpr std::array<ProfileChange, 4> kContents = {{
      {kProductSection, kIdentificationKey, kProductIdentification},
      {kProductSection, kVersionKey, kLayoutVersion},
      {kCurrentProjectSection, kCurrentProjectKey, ""},
      {kKnownProjects.section, kKnownProjects.count_key, "0"},
  }};
  return Profile::OfThisSystem().Write(kContents, file.c_str()) && PrjOpt(true).SaveGlobal();
}

const char* IniFile::MakeNewProject(const char* addr, const char* title, const char* name) {
  if (!WriteDefaultProject(addr, title, name)) return "";
  AddNewProjectAddress(addr);
  return addr;
}

bool IniFile::WriteDefaultProject(const char* addr, const char* title, const char* name) {
  if (addr == nullptr || !IsPathThatFits(addr) || !CreateEmptyFile(addr)) return false;
  const std::array<ProfileChange, 8> contents = {{
      {kProductSection, kIdentificationKey, kProductIdentification},
      {kProductSection, kVersionKey, kLayoutVersion},
      {kProductSection, kNameKey, name},
      {kProductSection, kTitleKey, title},
      {kPrimaryDatasetSection, kPrimaryDatasetKey, ""},
      {kPrimaryDatasetSection, kPrimaryDatasetNameKey, ""},
      {kSecondaryDatasets.section, kSecondaryDatasets.count_key, "0"},
      {kModels.section, kModels.count_key, "0"},
  }};
  return Profile::OfThisSystem().Write(contents, addr);
}

}  // namespace zemva
