#include "csv/csv_writer.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zemva::tools {

void CsvWriter::Text(std::string_view text) {
  Separate();
  const char special[] = {separator_, '"', '\r', '\n'};
  if (text.find_first_of({special, sizeof special}) == std::string_view::npos) {
    row_ += text;
    return;
  }
  row_ += '"';
  for (const char c : text) {
    if (c == '"') row_ += '"';
    row_ += c;
  }
  row_ += '"';
}

void CsvWriter::Number(float value) {
  Separate();
  std::array<char, 32> digits;
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  std::replace(digits.data(), result.ptr, '.', decimal_mark_);
  row_.append(digits.data(), result.ptr);
}

void CsvWriter::EndRow() {
  row_ += '\n';
  std::fwrite(row_.data(), 1, row_.size(), stream_);
  row_.clear();
  is_row_started_ = false;
}

void CsvWriter::Separate() {
  if (is_row_started_) row_ += separator_;
  is_row_started_ = true;
}

}  // namespace zemva::tools
