// Versions of the settings files, and what is left in them of older ones.
#include <vector>

#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/ini/ini_layout.h"
#include "zemva/settings/options/option_table.h"
#include "zemva/settings/options/options.h"

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

void AppendCleaning(std::vector<ProfileChange>& changes) {
  for (const char* key : kOldProductKeys) {
    changes.push_back({IniFile::szVardoSection, key, nullptr});
  }
  for (const char* key : kOldOptionKeys) changes.push_back({kOptionsSection, key, nullptr});
  changes.push_back({kOldUserSection, nullptr, nullptr});
  changes.push_back({kOptionsSection, Options::GetString(EOptType::CrossValidation),
                     Options::GetString(EValidate::CV)});
}

}  // namespace

const char* IniFile::GetIniFileVersion() {
  return ReadInto(short_value_, szVardoSection, kVersionKey, settings_file_.Get());
}

const char* IniFile::GetProjectFileVersion() {
  return ReadInto(short_value_, szVardoSection, kVersionKey, project_file_.Get());
}

bool IniFile::SetProjectFileVersion(const char* version) {
  return WriteValue({szVardoSection, kVersionKey, version}, project_file_.Get());
}

bool IniFile::UpdateOldIniFile() {
  const auto update = [&] {
    const double version =
        LeadingReal(FindValue(short_value_, szVardoSection, kVersionKey, project_file_.Get()));
    std::vector<ProfileChange> changes;
    if (version < kFirstCleanVersion) AppendCleaning(changes);
    changes.push_back({szVardoSection, kIdentificationKey, kProductIdentification});
    changes.push_back({szVardoSection, kVersionKey, kLayoutVersion});
    const char* current =
        FindAddress(value_, kCurrentProjectSection, kCurrentProjectKey, settings_file_.Get());
    const bool is_written = Profile::OfThisSystem().Write(changes, settings_file_.Get());
    project_file_.SetPath(current);
    return is_written;
  };
  return MemoryGuarded(update, false);
}

bool IniFile::CleanIniFile(const char* file) {
  const auto clean = [&] {
    std::vector<ProfileChange> changes;
    AppendCleaning(changes);
    return Profile::OfThisSystem().Write(changes, file != nullptr ? file : settings_file_.Get());
  };
  return MemoryGuarded(clean, false);
}

bool IniFile::UpdateOldProject(const char*) {
  return false;
}

}  // namespace zemva
