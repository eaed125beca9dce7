// Where the settings file is.
#ifndef ZEMVA_TOOLS_ARGUMENTS_SETTINGS_FOLDER_H
#define ZEMVA_TOOLS_ARGUMENTS_SETTINGS_FOLDER_H

#include <optional>
#include <string>

#include "zemva/settings/options/prj_opt.h"

namespace CLI {
class App;
}

namespace zemva::tools {

// The option that says where it is.
void AddSettingsFolder(CLI::App& line, std::optional<std::string>& directory);

// Makes it the one of the library, or leaves that of the user. Raises Failure.
void ChooseSettingsFolder(const std::optional<std::string>& directory);

// The options in the settings file, which stays as it is. Raises Failure.
void ReadSettings(PrjOpt& options);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_ARGUMENTS_SETTINGS_FOLDER_H
