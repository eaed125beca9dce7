// Texts of a ".vdo" file are in Windows code page 1252, those of the program in UTF-8.
#ifndef ZEMVA_TOOLS_TEXT_CODE_PAGE_H
#define ZEMVA_TOOLS_TEXT_CODE_PAGE_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zemva::tools {

// Every byte has a character: the five that the code page leaves open stand for the control
// characters of the same number.
std::string Utf8FromCodePage(std::string_view text);

// The same for a screen: control characters, which could steer it, become question marks.
std::string PrintableFromCodePage(std::string_view text);

// Whether the bytes are UTF-8 throughout: no overlong forms, surrogates or numbers beyond Unicode.
bool IsUtf8(std::string_view text);

// A text of 16-bit units, with the low or the high byte of each first; none where it is no UTF-16.
std::optional<std::string> Utf8FromUtf16(std::string_view bytes, bool is_low_byte_first);

// The other way, for a text that IsUtf8. A '?' stands for each character that the code page has
// not; `lost` is how many there are.
std::string CodePageFromUtf8(std::string_view text, std::size_t& lost);

// The same for a text of the command line: on a system that works in the code page it comes in it.
std::string CodePageFromArgument(std::string_view text, std::size_t& lost);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_TEXT_CODE_PAGE_H
