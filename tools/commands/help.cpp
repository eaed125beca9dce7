// What the program and its commands take.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "arguments/command_line.h"
#include "arguments/help_text.h"
#include "commands/commands.h"
#include "text/near_word.h"

namespace zemva::tools {

Run AddHelp(CLI::App& program) {
  CLI::App& line =
      AddCommand(program, "help", "What a command takes, with an example.", "zemva help pc");
  const auto command = std::make_shared<std::string>();
  line.add_option("COMMAND", *command, "the command; without it, a list of all");
  return [&program, command] {
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
