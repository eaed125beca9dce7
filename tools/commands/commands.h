// The commands of the companion program.
//
// Each adds itself to the program's command line, with what it takes, and returns what runs it once
// the line is parsed: that gives the exit status, or raises Failure or UsageError. Results go to
// standard output, messages to standard error.
#ifndef ZEMVA_TOOLS_COMMANDS_COMMANDS_H
#define ZEMVA_TOOLS_COMMANDS_COMMANDS_H

#include <functional>

namespace CLI {
class App;
}

namespace zemva::tools {

using Run = std::function<int()>;

Run AddConvert(CLI::App& program);
Run AddHelp(CLI::App& program);
Run AddImport(CLI::App& program);
Run AddInfo(CLI::App& program);
Run AddOptions(CLI::App& program);
Run AddPc(CLI::App& program);
Run AddPlot(CLI::App& program);
Run AddPls(CLI::App& program);
Run AddPredict(CLI::App& program);
Run AddShow(CLI::App& program);
Run AddStats(CLI::App& program);
Run AddVectors(CLI::App& program);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_COMMANDS_COMMANDS_H
