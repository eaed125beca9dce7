// What the program and its commands take.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "arguments/command_line.h"
#include "arguments/help_text.h"
#include "arguments/shell_files.h"
#include "commands/commands.h"
#include "text/near_word.h"

namespace zemva::tools {
namespace {

int WriteShellFile(const CLI::App& program, const std::string& form) {
  std::string text;
  if (form == "man") {
    text = ManPageOf(program);
  } else if (form == "bash") {
    text = BashCompletionOf(program);
  } else if (form == "zsh") {
    text = ZshCompletionOf(program);
  } else {
    throw UsageError("--as: " + Quoted(form) + " is none of text, man, bash, zsh");
  }
  std::fputs(text.c_str(), stdout);
  return kDone;
}

}  // namespace

Run AddHelp(CLI::App& program) {
  CLI::App& line =
      AddCommand(program, "help", "What a command takes, with an example.", "zemva help pc");
  const auto command = std::make_shared<std::string>();
  line.add_option("COMMAND", *command, "the command; without it, a list of all");
  const auto form = std::make_shared<std::string>("text");
  AddOption(
      line, "--as", "FORM", "text, or for the shell: man, bash or zsh",
      [form](const std::string& value) { *form = value; }, *form);
  return [&program, command, form] {
    if (*form != "text") return WriteShellFile(program, *form);
    const CLI::App* topic = command->empty() ? &program : nullptr;
    std::vector<std::string> names;
    for (const CLI::App* each : program.get_subcommands([](const CLI::App*) { return true; })) {
      names.push_back(each->get_name());
      if (each->get_name() == *command) topic = each;
    }
    if (topic == nullptr) {
      throw UsageError("unknown command " + Quoted(*command) + Suggestion(*command, names));
    }
    std::fputs(HelpOf(*topic).c_str(), stdout);
    return kDone;
  };
}

}  // namespace zemva::tools
