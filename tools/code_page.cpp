#include "code_page.h"

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

}  // namespace

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
