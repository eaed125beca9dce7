#include "code_page.h"

#include <algorithm>
#include <array>

namespace zemva::tools {
namespace {

// Bytes 0x80 to 0x9F; all others have the number of their character.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

void AppendUtf8(std::string& out, unsigned character) {
  const auto append = [&out](unsigned byte) { out += static_cast<char>(byte); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0 | character >> 6);
    append(0x80 | (character & 0x3F));
  } else {
    append(0xE0 | character >> 12);
    append(0x80 | (character >> 6 & 0x3F));
    append(0x80 | (character & 0x3F));
  }
}

constexpr char32_t kInvalid = 0xFFFFFFFF;

// Takes the next character off the front of a text that is not empty; kInvalid for bytes that are
// no UTF-8.
char32_t TakeCharacter(std::string_view& text) {
  const auto byte_at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte_at(0);
  const std::size_t size = lead < 0x80   ? 1
                           : lead < 0xC2 ? 0
                           : lead < 0xE0 ? 2
                           : lead < 0xF0 ? 3
                           : lead < 0xF5 ? 4
                                         : 0;
  if (size == 0 || size > text.size()) return kInvalid;
  char32_t character = size == 1 ? lead : lead & (0x7Fu >> size);
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte_at(i) & 0xC0) != 0x80) return kInvalid;
    character = character << 6 | (byte_at(i) & 0x3F);
  }
  // Forms that are longer than need be, surrogates, and what lies beyond the last character.
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kSmallest[size] || (0xD800 <= character && character < 0xE000) ||
      character > 0x10FFFF) {
    return kInvalid;
  }
  text.remove_prefix(size);
  return character;
}

// The byte of a character; 0 when the code page does not have it.
char ByteOf(char32_t character) {
  if (character < 0x80 || (0xA0 <= character && character < 0x100)) {
    return static_cast<char>(character);
  }
  const auto place = std::ranges::find(kHighControls, character);
  return place == kHighControls.end() ? '\0'
                                      : static_cast<char>(0x80 + (place - kHighControls.begin()));
}

}  // namespace

std::string CodePageFromUtf8(std::string_view text, bool& is_whole) {
  std::string out;
  is_whole = true;
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    if (character == kInvalid) break;
    const char byte = ByteOf(character);
    is_whole = is_whole && byte != '\0';
    out += byte == '\0' ? '?' : byte;
  }
  is_whole = is_whole && text.empty();
  return out;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    if (TakeCharacter(text) == kInvalid) return false;
  }
  return true;
}

std::string Utf8FromCodePage(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (const char c : text) {
    const unsigned byte = static_cast<unsigned char>(c);
    AppendUtf8(out, 0x80 <= byte && byte < 0xA0 ? kHighControls[byte - 0x80] : byte);
  }
  return out;
}

}  // namespace zemva::tools
