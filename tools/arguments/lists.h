// The lists that options take: names, numbers of observations, and what is said of a name.
//
// A name with a comma or another separator in it stands between double quotes, as in a table of
// comma-separated values. All raise UsageError, which names the option.
#ifndef ZEMVA_TOOLS_ARGUMENTS_LISTS_H
#define ZEMVA_TOOLS_ARGUMENTS_LISTS_H

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zemva::tools {

[[noreturn]] void Refuse(std::string_view subject, std::string_view fault);

// A whole number from `least` to `most`.
short ParseWithin(std::string_view option, std::string_view text, short least, short most);

// Real numbers between commas.
std::vector<float> ParseReals(std::string_view option, std::string_view text);

// The parts of a text between separators, of which there is at least one.
std::vector<std::string> ParseList(std::string_view option, std::string_view text,
                                   char separator = ',');

// Names of variables between separators, in the code page.
std::vector<std::string> ParseNames(std::string_view option, std::string_view text,
                                    char separator = ',');

// Numbers of observations, both included.
struct NumberRange {
  short first;
  short last;
};
// "1-50,60".
std::vector<NumberRange> ParseRanges(std::string_view option, std::string_view text);

// The two sides of "NAME=REST", where `form` shows what is expected. A name that is not quoted ends
// at the last equals sign.
std::pair<std::string, std::string> ParseAssignment(std::string_view option, std::string_view text,
                                                    std::string_view form);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_ARGUMENTS_LISTS_H
