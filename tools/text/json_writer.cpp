#include "text/json_writer.h"

#include <array>
#include <charconv>

#include "zemva/numeric/missing.h"

namespace zemva::tools {

void JsonWriter::Key(std::string_view key) {
  Separate();
  Write(Quoted(key));
  Write(": ");
  is_behind_key_ = true;
}

void JsonWriter::Text(std::string_view text) {
  Separate();
  Write(Quoted(text));
}

void JsonWriter::Number(float value) {
  if (IsMissing(value)) return Null();
  Separate();
  std::array<char, 32> digits;
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  Write({digits.data(), static_cast<std::size_t>(result.ptr - digits.data())});
}

void JsonWriter::Integer(long long value) {
  Separate();
  Write(std::to_string(value));
}

void JsonWriter::Null() {
  Separate();
  Write("null");
}

void JsonWriter::Begin(char bracket) {
  Separate();
  Write({&bracket, 1});
  is_first_ = true;
}

void JsonWriter::End(char bracket) {
  Write({&bracket, 1});
  is_first_ = false;
}

void JsonWriter::Separate() {
  if (!is_first_ && !is_behind_key_) Write(", ");
  is_first_ = false;
  is_behind_key_ = false;
}

std::string JsonWriter::Quoted(std::string_view text) const {
  std::string quoted = "\"";
  for (const char c : text) {
    if (static_cast<unsigned char>(c) < ' ') {
      std::array<char, 8> escape;
      std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(c));
      quoted += escape.data();
      continue;
    }
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace zemva::tools
