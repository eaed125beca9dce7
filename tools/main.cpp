#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <string_view>
#include <vector>

#include "commands.h"
#include "signals.h"
#include "zemva/errors/messages.h"

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

namespace zemva::tools {
namespace {

struct Command {
  std::string_view name;
  int (*run)(Arguments);
  const char* usage;
};

constexpr std::array kCommands = {
    Command{"import", ImportCommand, "import FILE.vdo [-o OUT.csv] [--plugin LIBRARY]"},
    Command{"info", InfoCommand, "info FILE.vdo"},
    Command{"convert", ConvertCommand,
            "convert IN.csv OUT.vdo [--name NAME] [--title TITLE] [--repair]"},
    Command{"stats", StatsCommand, "stats FILE.vdo [--all]"},
    Command{
        "pc", PcCommand,
        "pc FILE.vdo [--components N] [--scale UV|UVN|Par|ParN|Ctr|None] [--ncv G]\n"
        "                [--max-iter N] [--exclude NAME,...] [--class N=LIST]... [--only-class N]\n"
        "                [--test FILE2.vdo] [--out DIR]\n"
        "           without --components those that are significant; it fails when none is"},
    Command{"options", OptionsCommand, "options [set KEY VALUE] [--ini DIR]"},
};

void PrintUsage(std::FILE* stream) {
  for (const Command& command : kCommands) {
    std::fprintf(stream, "%s zemva %s\n", &command == kCommands.data() ? "usage:" : "      ",
                 command.usage);
  }
}

int Run(Arguments arguments) {
  if (arguments.empty()) return WrongUsage("no command given");
  const auto asks_for_help = [](std::string_view word) { return word == "--help" || word == "-h"; };
  if (std::ranges::any_of(arguments, asks_for_help)) {
    PrintUsage(stdout);
    return kDone;
  }
  for (const Command& command : kCommands) {
    if (command.name == arguments[0]) return command.run(arguments.subspan(1));
  }
  return WrongUsage("unknown command '" + std::string(arguments[0]) + "'");
}

}  // namespace

void Tell(std::string_view what, std::string_view change) {
  std::fprintf(stderr, "zemva: %.*s: %.*s\n", static_cast<int>(what.size()), what.data(),
               static_cast<int>(change.size()), change.data());
}

int Fail(std::string_view what, std::string_view why) {
  Tell(what, why);
  return kFailed;
}

int Fail(std::string_view what, int status) {
  return Fail(what, std::string(GetVdoMsg(status)) + " (" + std::to_string(status) + ")");
}

int WrongUsage(std::string_view why) {
  std::fprintf(stderr, "zemva: %.*s\n", static_cast<int>(why.size()), why.data());
  PrintUsage(stderr);
  return kWrongUsage;
}

}  // namespace zemva::tools

int main(int argc, char** argv) {
#if defined(_WIN32)
  _setmode(_fileno(stdout), _O_BINARY);  // lines end in \n on every system
#endif
  zemva::tools::RemoveUnfinishedFilesOnSignals();
  const std::vector<std::string_view> arguments(argv + 1, argv + argc);
  try {
    const int exit_status = zemva::tools::Run(arguments);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
      return zemva::tools::Fail("standard output", "cannot be written");
    }
    return exit_status;
  } catch (const std::exception& error) {
    return zemva::tools::Fail("failed", error.what());
  }
}
