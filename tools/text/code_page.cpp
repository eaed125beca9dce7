#include "text/code_page.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <iterator>
#include <optional>

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
    if (character < 0x10000) {
      append(0xE0 | character >> 12);
    } else {
      append(0xF0 | character >> 18);
      append(0x80 | (character >> 12 & 0x3F));
    }
    append(0x80 | (character >> 6 & 0x3F));
    append(0x80 | (character & 0x3F));
  }
}

unsigned ByteAt(std::string_view text, std::size_t i) {
  return static_cast<unsigned char>(text[i]);
}

// Takes the first character off a text that is not empty; none when it is not UTF-8.
std::optional<char32_t> TakeCharacter(std::string_view& text) {
  constexpr std::array<char32_t, 5> kSmallestOfLength = {0, 0, 0x80, 0x800, 0x10000};
  const unsigned lead = ByteAt(text, 0);
  const auto ones = static_cast<std::size_t>(std::countl_one(static_cast<std::uint8_t>(lead)));
  const std::size_t length = std::max<std::size_t>(ones, 1);
  if (ones == 1 || ones > 4 || length > text.size()) return std::nullopt;
  char32_t character = lead & (0xFFU >> (ones + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned byte = ByteAt(text, i);
    if ((byte & 0xC0) != 0x80) return std::nullopt;
    character = character << 6 | (byte & 0x3F);
  }
  const bool is_surrogate = 0xD800 <= character && character <= 0xDFFF;
  if (character < kSmallestOfLength[length] || is_surrogate || character > 0x10FFFF) {
    return std::nullopt;
  }
  text.remove_prefix(length);
  return character;
}

std::optional<char> ByteOf(char32_t character) {
  if (character < 0x80 || (0xA0 <= character && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto* found = std::find(kHighControls.begin(), kHighControls.end(), character);
  if (found == kHighControls.end()) return std::nullopt;
  return static_cast<char>(0x80 + std::distance(kHighControls.begin(), found));
}

}  // namespace

std::string PrintableFromCodePage(std::string_view text) {
  const auto is_control = [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    const bool is_open = 0x80 <= byte && byte < 0xA0 && kHighControls[byte - 0x80] == byte;
    return byte < 0x20 || byte == 0x7F || is_open;
  };
  std::string printable(text);
  std::ranges::replace_if(printable, is_control, '?');
  return Utf8FromCodePage(printable);
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

std::optional<std::string> Utf8FromUtf16(std::string_view bytes, bool is_low_byte_first) {
  if (bytes.size() % 2 != 0) return std::nullopt;
  const std::size_t low = is_low_byte_first ? 0 : 1;
  const auto unit = [&](std::size_t i) {
    return i < bytes.size() ? ByteAt(bytes, i + low) | ByteAt(bytes, i + 1 - low) << 8 : 0;
  };
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    unsigned character = unit(i);
    if ((character & 0xF800) == 0xD800) {
      i += 2;
      const unsigned second = unit(i);
      if ((character & 0xFC00) != 0xD800 || (second & 0xFC00) != 0xDC00) return std::nullopt;
      character = 0x10000 + ((character & 0x3FF) << 10 | (second & 0x3FF));
    }
    AppendUtf8(text, character);
  }
  return text;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    if (!TakeCharacter(text)) return false;
  }
  return true;
}

std::string CodePageFromUtf8(std::string_view text, std::size_t& lost) {
  std::string out;
  lost = 0;
  while (!text.empty()) {
    const std::optional<char> byte = ByteOf(TakeCharacter(text).value());
    if (!byte) ++lost;
    out += byte.value_or('?');
  }
  return out;
}

std::string CodePageFromArgument(std::string_view text, std::size_t& lost) {
  lost = 0;
  return IsUtf8(text) ? CodePageFromUtf8(text, lost) : std::string(text);
}

}  // namespace zemva::tools
