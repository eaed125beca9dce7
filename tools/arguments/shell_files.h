// What an installation gives the shell: the manual page, and what completes the words of a line.
#ifndef ZEMVA_TOOLS_ARGUMENTS_SHELL_FILES_H
#define ZEMVA_TOOLS_ARGUMENTS_SHELL_FILES_H

#include <string>

namespace CLI {
class App;
}

namespace zemva::tools {

// The page of section 1, for man.
std::string ManPageOf(const CLI::App& program);

// A script that bash sources, and the function that zsh loads, to complete commands and options,
// and files in all other places.
std::string BashCompletionOf(const CLI::App& program);
std::string ZshCompletionOf(const CLI::App& program);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_ARGUMENTS_SHELL_FILES_H
