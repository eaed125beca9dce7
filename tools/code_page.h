// Texts of a ".vdo" file are in Windows code page 1252, those of the program in UTF-8.
#ifndef ZEMVA_TOOLS_CODE_PAGE_H
#define ZEMVA_TOOLS_CODE_PAGE_H

#include <string>
#include <string_view>

namespace zemva::tools {

// Every byte has a character: the five that the code page leaves open stand for the control
// characters of the same number.
std::string Utf8FromCodePage(std::string_view text);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CODE_PAGE_H
