// Versions of the settings files, and what is left in them of older ones.
#include <vector>

#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/ini/ini_layout.h"
#include "zemva/settings/options/options.h"
#include "zemva/settings/profile/text.h"

namespace zemva {
namespace {

constexpr const char* kOldProductKeys[] = {
    "Created", "Backup", "Observations", "Samples", "Variables", "Channels", "Directory",
};

constexpr const char* kOldOptionKeys[] = {
    "NumberFormat", "PltTempl",    "SVNetwork",    "SVNode",       "TimeMode",    "TimeMarkLen",
    "TimeMarkSta",  "LogFontSize", "LogFont",      "LogWrapMode",  "DPObs",       "DPObj",
    "DPLoa",        "DPScr",       "DPVar",        "DPVari",       "DPProb",      "LogBlowup",
    "MaxMisValObs", "MenuMode",    "MaxMisValVar", "MaxMisValObj", "OverlapMode", "NitMax",
};

constexpr char kOldUserSection[] = "Userinfo";

}  // namespace

const char* IniFile::GetIniFileVersion() {
  return ReadInto(short_value_, kProductSection, kVersionKey, settings_file_.Get());
}

const char* IniFile::GetProjectFileVersion() {
  return ReadInto(short_value_, kProductSection, kVersionKey, project_file_.Get());
}

bool IniFile::SetProjectFileVersion(const char* version) {
  return Profile::OfThisSystem().Write({kProductSection, kVersionKey, version},
                                       project_file_.Get());
}

bool IniFile::UpdateOldIniFile() {
  const double version = LeadingReal(GetProjectFileVersion());
  const ProfileChange present[] = {
      {kProductSection, kIdentificationKey, kProductIdentification},
      {kProductSection, kVersionKey, kLayoutVersion},
  };
  const bool is_marked = Profile::OfThisSystem().Write(present, settings_file_.Get());
  const bool is_clean = version >= kFirstCleanVersion || CleanIniFile(nullptr);
  project_file_.SetPath(GetCurrentProjectAddress());
  return is_marked && is_clean;
}

bool IniFile::CleanIniFile(const char* file) {
  std::vector<ProfileChange> changes;
  for (const char* key : kOldProductKeys) changes.push_back({kProductSection, key, nullptr});
  for (const char* key : kOldOptionKeys) changes.push_back({kOptionsSection, key, nullptr});
  changes.push_back({kOldUserSection, nullptr, nullptr});
  changes.push_back({kOptionsSection, Options::GetString(EOptType::CrossValidation),
                     Options::GetString(EValidate::CV)});
  return Profile::OfThisSystem().Write(changes, file != nullptr ? file : settings_file_.Get());
}

bool IniFile::UpdateOldProject(const char*) {
  return false;
}

}  // namespace zemva
