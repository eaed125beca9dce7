#include "arguments/shell_files.h"

#include <CLI/CLI.hpp>
#include <string_view>
#include <vector>

#include "arguments/help_text.h"

namespace zemva::tools {
namespace {

std::string Escaped(std::string_view text, std::string_view special) {
  std::string escaped;
  for (const char c : text) {
    if (special.find(c) != std::string_view::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

// A hyphen that is to stay one, and a line that is no request.
std::string Roff(std::string_view text) {
  const std::string escaped = Escaped(text, "\\-");
  return escaped.starts_with('.') || escaped.starts_with('\'') ? "\\&" + escaped : escaped;
}

// The commands of the program, and theirs.
std::vector<const CLI::App*> Commands(const CLI::App& program) {
  return program.get_subcommands([](const CLI::App*) { return true; });
}

std::string WordsOf(const CLI::App& line) {
  std::string words;
  for (const CLI::App* command : Commands(line)) words += command->get_name() + ' ';
  for (const CLI::Option* option : line.get_options()) {
    for (const std::string& name : option->get_lnames()) words += "--" + name + ' ';
  }
  if (!words.empty()) words.pop_back();
  return words;
}

}  // namespace

std::string ManPageOf(const CLI::App& program) {
  std::string page = ".TH ZEMVA 1\n.SH NAME\nzemva \\- " + Roff(program.get_description()) + '\n';
  page += ".SH SYNOPSIS\n" + Roff(UsageOf(program).substr(std::string("usage: ").size()));
  page +=
      ".SH DESCRIPTION\nResults go to standard output, messages to standard error. The exit "
      "status is 0 when all is done, 1 when something failed and 2 when the line means nothing.\n";
  for (const CLI::App* command : Commands(program)) {
    page += ".SH " + Roff(command->get_name()) + '\n' + Roff(command->get_description()) + "\n";
    for (const HelpEntry& entry : EntriesOf(*command)) {
      page += ".TP\n.B " + Roff(entry.head) + '\n' + Roff(entry.text) + '\n';
    }
    page += ".PP\nExample:\n.PP\n.EX\n" + Roff(command->get_footer()) + "\n.EE\n";
  }
  return page;
}

std::string BashCompletionOf(const CLI::App& program) {
  std::string script = "_zemva() {\n  local words\n  case ${COMP_WORDS[1]} in\n";
  for (const CLI::App* command : Commands(program)) {
    script += "    " + command->get_name() + ") words='" + WordsOf(*command) + "' ;;\n";
  }
  script += "  esac\n  [ \"$COMP_CWORD\" -gt 1 ] || words='" + WordsOf(program) + "'\n";
  script += "  COMPREPLY=($(compgen -W \"$words\" -- \"${COMP_WORDS[COMP_CWORD]}\"))\n}\n";
  return script + "complete -o bashdefault -o default -F _zemva zemva\n";
}

std::string ZshCompletionOf(const CLI::App& program) {
  std::string script = "#compdef zemva\n\nlocal -a commands=(\n";
  for (const CLI::App* command : Commands(program)) {
    script += "  \"" + command->get_name() + ":" + Escaped(command->get_description(), "\"`$\\:") +
              "\"\n";
  }
  script +=
      ")\nif (( CURRENT == 2 )); then\n  _describe command commands\n  return\nfi\n"
      "case $words[2] in\n";
  for (const CLI::App* command : Commands(program)) {
    script += "  " + command->get_name() + ") _arguments";
    for (const CLI::Option* option : command->get_options()) {
      for (const std::string& name : option->get_lnames()) {
        const bool has_value = option->get_expected_max() > 0;
        const std::string text = Escaped(option->get_description(), "\"`$\\[]:");
        script += " \\\n    \"*--" + name + (has_value ? "=" : "") + "[" + text + "]" +
                  (has_value ? ":value:_files" : "") + "\"";
      }
    }
    script += " \\\n    \"*:file:_files\" ;;\n";
  }
  return script + "esac\n";
}

}  // namespace zemva::tools
