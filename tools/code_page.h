// Texts of a ".vdo" file are in Windows code page 1252, those of the program in UTF-8.
#ifndef ZEMVA_TOOLS_CODE_PAGE_H
#define ZEMVA_TOOLS_CODE_PAGE_H

#include <string>
#include <string_view>

namespace zemva::tools {

// Every byte has a character: the five that the code page leaves open stand for the control
// characters of the same number.
std::string Utf8FromCodePage(std::string_view text);

// What the code page has no character for becomes a question mark, and so does a zero byte, which
// would end the text; `is_whole` is then false. `text` is valid UTF-8.
std::string CodePageFromUtf8(std::string_view text, bool& is_whole);

// Whether the text is valid UTF-8.
bool IsUtf8(std::string_view text);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CODE_PAGE_H
