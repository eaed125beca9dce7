// Words that were meant.
#ifndef ZEMVA_TOOLS_TEXT_NEAR_WORD_H
#define ZEMVA_TOOLS_TEXT_NEAR_WORD_H

#include <span>
#include <string>
#include <string_view>

namespace zemva::tools {

// ": did you mean 'WORD'?" for the one of the words that is the likeliest to have been meant, which
// begins as the wrong one or differs from it in two letters, or a third of them, at most; else "".
std::string Suggestion(std::string_view wrong, std::span<const std::string> words);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_TEXT_NEAR_WORD_H
