#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <map>

#include "arguments/command_line.h"
#include "arguments/help_text.h"
#include "commands/commands.h"
#include "signals.h"
#include "text/messages.h"

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

namespace zemva::tools {
namespace {

constexpr auto kCommands = {AddImport,  AddInfo, AddConvert, AddStats, AddPc,      AddPls,
                            AddPredict, AddShow, AddVectors, AddPlot,  AddOptions, AddHelp};

int RunLine(int argc, const char* const* argv) {
  CLI::App program("Tables of observations by variables, and models of them.", "zemva");
  program.allow_windows_style_options(false);  // what begins with / is a path
  program.set_help_flag("-h,--help", "this help");
  program.set_version_flag("--version", "zemva " ZEMVA_VERSION, "the version of the program");
  program.require_subcommand(1);
  program.footer("zemva pc measured.csv --out results");
  std::map<const CLI::App*, Run> runs;
  for (const auto add : kCommands) {
    Run run = add(program);
    runs.emplace(program.get_subcommands([](const CLI::App*) { return true; }).back(), run);
  }
  try {
    ParseLine(program, argc, argv);
    return runs.at(program.get_subcommands().front())();
  } catch (const CLI::CallForVersion& version) {
    std::printf("%s\n", version.what());
  } catch (const CLI::Success&) {
    std::fputs(HelpOf(GivenCommand(program)).c_str(), stdout);
  } catch (const UsageError& error) {
    const CLI::App& line = GivenCommand(program);
    std::fprintf(stderr, "zemva: %s\n%s", error.what(), UsageOf(line).c_str());
    const std::string topic = &line == &program ? "" : ' ' + line.get_name();
    std::fprintf(stderr, "'zemva help%s' says more\n", topic.c_str());
    return kWrongUsage;
  }
  return kDone;
}

}  // namespace
}  // namespace zemva::tools

int main(int argc, char** argv) {
  using zemva::tools::Fail;
#if defined(_WIN32)
  _setmode(_fileno(stdout), _O_BINARY);  // lines end in \n on every system
#endif
  zemva::tools::HandleSignals();
  try {
    const int exit_status = zemva::tools::RunLine(argc, argv);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
      return Fail("standard output", "cannot be written");
    }
    return exit_status;
  } catch (const zemva::tools::Failure& failure) {
    std::fprintf(stderr, "zemva: %s\n", failure.what());
    return zemva::tools::kFailed;
  } catch (const std::exception& error) {
    return Fail("failed", error.what());
  }
}
