// What help says of a command line.
#ifndef ZEMVA_TOOLS_ARGUMENTS_HELP_TEXT_H
#define ZEMVA_TOOLS_ARGUMENTS_HELP_TEXT_H

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace zemva::tools {

// "usage: zemva stats FILE [options]" and a line end.
std::string UsageOf(const CLI::App& line);

// What a command or an option looks like, and what it does.
struct HelpEntry {
  std::string head;
  std::string text;
};
// Of all that a line takes: files and words, then options with their defaults.
std::vector<HelpEntry> EntriesOf(const CLI::App& line);

// The usage, what it does, its commands or options with their defaults, and an example.
std::string HelpOf(const CLI::App& line);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_ARGUMENTS_HELP_TEXT_H
