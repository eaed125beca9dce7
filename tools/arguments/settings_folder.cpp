#include "arguments/settings_folder.h"

#include <filesystem>
#include <system_error>

#include "arguments/command_line.h"
#include "zemva/base/native_path.h"
#include "zemva/settings/ini/ini_file.h"

namespace zemva::tools {

void AddSettingsFolder(CLI::App& line, std::optional<std::string>& directory) {
  AddOption(line, "--ini", "DIR", "the folder of the settings file", directory, "that of the user");
}

void ChooseSettingsFolder(const std::optional<std::string>& directory) {
  if (directory) {
    std::error_code error;
    if (!std::filesystem::is_directory(NativePath(*directory), error)) {
      throw Failure(*directory, "no such directory");
    }
    IniFile::SetIniPath(directory->c_str());
  }
  if (IniFile::GetSettingsFile().empty()) {
    throw Failure(directory.value_or("the settings directory"), "path too long");
  }
}

void ReadSettings(PrjOpt& options) {
  if (!options.ReadGlobal()) throw Failure(IniFile::GetSettingsFile(), "cannot be read");
}

}  // namespace zemva::tools
