// The global options in the settings file: what they are, and setting one.
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "zemva/base/native_path.h"
#include "commands.h"
#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/options/prj_opt.h"

namespace zemva::tools {
namespace {

void PrintRow(const char* key, const char* value, const char* default_value, const char* legal) {
  std::printf("%-20s %-14s %-14s %s\n", key, value, default_value, legal);
}

int ListOptions() {
  PrjOpt options(true);
  if (!options.LoadGlobal()) {
    return Fail(IniFile::GetSettingsFile(), "cannot be read, or not be written");
  }
  PrintRow("Option", "Value", "Default", "Legal values");
  for (int number = 1; number <= kGlobalOptionCount; ++number) {
    const auto type = static_cast<EOptType>(number);
    PrintRow(Options::GetString(type), options.GetValue(type), Options::GetDefaultValue(type),
             Options::GetLegalValues(type).c_str());
  }
  return kDone;
}

int SetOption(const std::string& key, const std::string& value) {
  const EOptType type = Options::GetOptType(key.c_str());
  if (type == EOptType::None) return Fail(key, "no such option");
  if (value.size() > Options::kLongestValue) {
    return Fail(key,
                "a value has at most " + std::to_string(Options::kLongestValue) + " characters");
  }
  PrjOpt options(true);
  if (!options.SetValue(type, value.c_str())) {
    return Fail(key, "'" + value + "' is not legal: " + Options::GetLegalValues(type));
  }
  if (!options.SaveGlobalValue(type)) {
    return Fail(IniFile::GetSettingsFile(),
                "cannot be written, or does not keep '" + value + "' as it is");
  }
  if (Options::IsResetOnLoad(type)) {
    std::fprintf(stderr, "zemva: %s goes back to its default when the options are next read\n",
                 key.c_str());
  }
  return kDone;
}

}  // namespace

int OptionsCommand(Arguments arguments) {
  std::vector<std::string> words;
  std::optional<std::string> directory;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] != "--ini") {
      words.emplace_back(arguments[i]);
    } else if (++i < arguments.size()) {
      directory = arguments[i];
    } else {
      return WrongUsage("--ini takes a directory");
    }
  }
  const bool is_list = words.empty();
  const bool is_set = words.size() == 3 && words[0] == "set";
  if (!is_list && !is_set)
    return WrongUsage("options takes nothing, or set with a key and a value");

  if (directory) {
    std::error_code error;
    if (!std::filesystem::is_directory(NativePath(*directory), error)) {
      return Fail(*directory, "no such directory");
    }
    IniFile::SetIniPath(directory->c_str());
  }
  if (IniFile::GetSettingsFile().empty()) {
    return Fail(directory.value_or("the settings directory"), "path too long");
  }
  return is_list ? ListOptions() : SetOption(words[1], words[2]);
}

}  // namespace zemva::tools
