// The commands of the companion program.
//
// Each takes the arguments behind its own name and returns the exit status of the program. Results
// go to standard output, messages to standard error.
#ifndef ZEMVA_TOOLS_COMMANDS_H
#define ZEMVA_TOOLS_COMMANDS_H

#include <span>
#include <string>
#include <string_view>

namespace zemva::tools {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

using Arguments = std::span<const std::string_view>;

int ConvertCommand(Arguments arguments);
int ImportCommand(Arguments arguments);
int InfoCommand(Arguments arguments);
int OptionsCommand(Arguments arguments);
int PcCommand(Arguments arguments);
int StatsCommand(Arguments arguments);

// Says in one line on standard error what failed, and returns kFailed.
int Fail(std::string_view what, std::string_view why);
// The same for a status code, with its text and number.
int Fail(std::string_view what, int status);

// Says the same of what was changed on the way.
void Tell(std::string_view what, std::string_view change);

// Says how the program is to be used, and returns kWrongUsage.
int WrongUsage(std::string_view why);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_COMMANDS_H
