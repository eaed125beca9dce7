// The global options in the settings file: what they are, and setting one.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "arguments/command_line.h"
#include "arguments/settings_folder.h"
#include "commands/commands.h"
#include "text/code_page.h"
#include "text/json_writer.h"
#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/options/prj_opt.h"

namespace zemva::tools {
namespace {

void PrintRow(const char* key, const char* value, const char* default_value, const char* legal) {
  std::printf("%-20s %-14s %-14s %s\n", key, value, default_value, legal);
}

void WriteJson(const PrjOpt& options) {
  JsonWriter json(stdout);
  json.BeginList();
  for (int number = 1; number <= kGlobalOptionCount; ++number) {
    const auto type = static_cast<EOptType>(number);
    json.BeginObject();
    json.Text("Option", Options::GetString(type));
    json.Text("Value", Utf8FromCodePage(options.GetValue(type)));
    json.Text("Default", Options::GetDefaultValue(type));
    json.Text("Legal values", Options::GetLegalValues(type));
    json.EndObject();
  }
  json.EndList();
}

int ListOptions(bool is_json) {
  PrjOpt options(true);
  ReadSettings(options);
  if (is_json) {
    WriteJson(options);
    return kDone;
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

struct OptionsOptions {
  std::optional<std::string> directory;
  std::string key;
  std::string value;
  bool is_json = false;
};

int RunOptions(const OptionsOptions& options) {
  ChooseSettingsFolder(options.directory);
  return options.key.empty() ? ListOptions(options.is_json) : SetOption(options.key, options.value);
}

// A negative number looks like an option that there is not.
bool TakeNegativeNumber(const CLI::App& line, std::string& value) {
  const std::vector<std::string> rest = line.remaining();
  if (rest.size() != 1 || !value.empty() || rest[0].find_first_of("0123456789") > 2) return false;
  value = rest[0];
  return true;
}

}  // namespace

Run AddOptions(CLI::App& program) {
  CLI::App& line =
      AddCommand(program, "options",
                 "Lists what models start from, with defaults and legal values, or sets it.",
                 "zemva options set NCV 5");
  const auto options = std::make_shared<OptionsOptions>();
  AddSettingsFolder(line, options->directory);
  AddFlag(line, "--json", "lists them in JSON", options->is_json);
  CLI::App& set =
      AddCommand(line, "set", "Sets one option in the settings file.", "zemva options set NCV 5");
  set.fallthrough()->allow_extras();
  set.add_option("KEY", options->key, "the option")->required();
  set.add_option("VALUE", options->value, "its value");
  return [&set, options] {
    const bool is_whole = set.count("VALUE") > 0 && set.remaining_size() == 0;
    if (set.parsed() && !is_whole && !TakeNegativeNumber(set, options->value)) {
      throw UsageError("options set takes a key and a value");
    }
    return RunOptions(*options);
  };
}

}  // namespace zemva::tools
