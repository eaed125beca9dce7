// Where the settings file of the installation is.
#ifndef ZEMVA_SETTINGS_PROFILE_SETTINGS_FILE_H
#define ZEMVA_SETTINGS_PROFILE_SETTINGS_FILE_H

#include <string>

namespace zemva {

// Makes `dir`, with a separator at its end, the settings directory, or the Windows directory when
// `dir` is null or does not exist.
void SetSettingsDirectory(const char* dir);
// The Windows directory as long as none was set; "" when its path does not fit.
const char* SettingsDirectory();
// The path of the settings file in that directory; "" when it does not fit.
std::string SettingsFile();

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_PROFILE_SETTINGS_FILE_H
