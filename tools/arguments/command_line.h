// How a command says what it takes at the command line.
//
// The options that a command adds to its CLI::App are the one description of them: they are parsed
// by it, and help, the manual page and the completion of shells are made of it.
#ifndef ZEMVA_TOOLS_ARGUMENTS_COMMAND_LINE_H
#define ZEMVA_TOOLS_ARGUMENTS_COMMAND_LINE_H

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "text/messages.h"

namespace CLI {
class App;
}

namespace zemva::tools {

// Adds a command to a line, with what it does in a sentence and an example of its use.
CLI::App& AddCommand(CLI::App& line, const std::string& name, const std::string& description,
                     const std::string& example);

// Takes the value of an option over. Raises UsageError.
using Setter = std::function<void(const std::string&)>;

// What stands on the command line once: a file that must be given, or an option such as "--out" or
// "-o,--output". Help calls the value of an option `value`, and says what it is by default.
void AddFile(CLI::App& line, const std::string& name, const std::string& help, std::string& file);
void AddOption(CLI::App& line, const std::string& name, const std::string& value,
               const std::string& help, Setter set, const std::string& default_value = "");
void AddOption(CLI::App& line, const std::string& name, const std::string& value,
               const std::string& help, std::optional<std::string>& text,
               const std::string& default_value = "");
void AddFlag(CLI::App& line, const std::string& name, const std::string& help, bool& is_given);
// An option that may be repeated, and is set anew each time.
void AddRepeatable(CLI::App& line, const std::string& name, const std::string& value,
                   const std::string& help, Setter set, const std::string& default_value = "");

// The command that the parsed line ends with.
const CLI::App& GivenCommand(const CLI::App& program);

// Parses the arguments behind the name of the program. Raises CLI::Success where help or the
// version is asked for, and UsageError, which names the wrong word and the one that was likely
// meant.
void ParseLine(CLI::App& program, int argc, const char* const* argv);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_ARGUMENTS_COMMAND_LINE_H
