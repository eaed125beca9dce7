#include "arguments/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>
#include <vector>

#include "text/near_word.h"

namespace zemva::tools {
namespace {

bool IsOptionName(std::string_view word) {
  return word.size() > 1 && word.starts_with('-');
}

void AddValues(CLI::App& line, const std::string& name, const std::string& value,
               const std::string& help, Setter set, const std::string& default_value,
               bool is_repeatable) {
  const auto take = [name = name.substr(name.find(',') + 1), set = std::move(set),
                     is_repeatable](const std::vector<std::string>& values) {
    if (values.size() > 1 && !is_repeatable) throw UsageError(name + " is given twice");
    for (const std::string& each : values) {
      if (each.empty() || each.starts_with("--")) throw UsageError(name + " takes a value");
      set(each);
    }
    return true;
  };
  CLI::Option& option = *line.add_option(name, take, help);
  option.type_name(value)->default_str(default_value);
  option.multi_option_policy(CLI::MultiOptionPolicy::TakeAll)->expected(1);
}

// All names of options and commands that the line could go on with.
std::vector<std::string> KnownWords(const CLI::App& line, bool is_option) {
  std::vector<std::string> words;
  if (is_option) {
    for (const CLI::Option* option : line.get_options()) {
      for (const std::string& name : option->get_lnames()) words.push_back("--" + name);
    }
  } else {
    for (const CLI::App* command : line.get_subcommands(nullptr)) {
      words.push_back(command->get_name());
    }
  }
  return words;
}

// What is wrong with a line that the parser has refused.
std::string FaultOf(const CLI::App& program, const CLI::ParseError& error) {
  const CLI::App& line = GivenCommand(program);
  std::vector<std::string> unknown = line.remaining();
  std::erase(unknown, "--");
  auto wrong = std::ranges::find_if(unknown, IsOptionName);
  if (wrong == unknown.end()) wrong = unknown.begin();
  if (wrong != unknown.end()) {
    if (IsOptionName(*wrong)) wrong->erase(std::min(wrong->find('='), wrong->size()));
    const bool is_option = IsOptionName(*wrong);
    const bool is_command = !is_option && !line.get_subcommands(nullptr).empty();
    return std::string(is_option    ? "unknown option "
                       : is_command ? "unknown command "
                                    : "there is no place for ") +
           Quoted(*wrong) + Suggestion(*wrong, KnownWords(line, is_option));
  }
  if (&line == &program) return "no command given";
  for (const CLI::Option* option : line.get_options()) {
    if (option->get_required() && option->count() == 0) {
      return line.get_name() + " takes " + option->get_name(true, true);
    }
  }
  return error.what();
}

}  // namespace

CLI::App& AddCommand(CLI::App& line, const std::string& name, const std::string& description,
                     const std::string& example) {
  return *line.add_subcommand(name, description)->footer(example);
}

void AddFile(CLI::App& line, const std::string& name, const std::string& help, std::string& file) {
  const auto take = [&file](const std::vector<std::string>& values) {
    file = values.front();
    if (file.empty()) throw UsageError("the name of a file is empty");
    return true;
  };
  line.add_option(name, take, help)->required();
}

void AddOption(CLI::App& line, const std::string& name, const std::string& value,
               const std::string& help, Setter set, const std::string& default_value) {
  AddValues(line, name, value, help, std::move(set), default_value, false);
}

void AddOption(CLI::App& line, const std::string& name, const std::string& value,
               const std::string& help, std::optional<std::string>& text,
               const std::string& default_value) {
  const auto set = [&text](const std::string& given) { text = given; };
  AddValues(line, name, value, help, set, default_value, false);
}

void AddRepeatable(CLI::App& line, const std::string& name, const std::string& value,
                   const std::string& help, Setter set, const std::string& default_value) {
  AddValues(line, name, value, help, std::move(set), default_value, true);
}

void AddFlag(CLI::App& line, const std::string& name, const std::string& help, bool& is_given) {
  line.add_flag(name, is_given, help);
}

const CLI::App& GivenCommand(const CLI::App& program) {
  const CLI::App* line = &program;
  while (!line->get_subcommands().empty()) line = line->get_subcommands().front();
  return *line;
}

void ParseLine(CLI::App& program, int argc, const char* const* argv) {
  try {
    program.parse(argc, argv);
  } catch (const CLI::Success&) {
    throw;
  } catch (const CLI::ArgumentMismatch& error) {
    // "--ncv: 1 required TEXT missing"
    const std::string text = error.what();
    throw UsageError(text.substr(0, text.find(':')) + " takes a value");
  } catch (const CLI::ParseError& error) {
    throw UsageError(FaultOf(program, error));
  }
}

}  // namespace zemva::tools
