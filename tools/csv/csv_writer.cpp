#include "csv/csv_writer.h"

#include <array>
#include <charconv>

namespace zemva::tools {

void CsvWriter::Text(std::string_view text) {
  Separate();
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
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
  row_.append(digits.data(), result.ptr);
}

void CsvWriter::EndRow() {
  row_ += '\n';
  std::fwrite(row_.data(), 1, row_.size(), stream_);
  row_.clear();
  is_row_started_ = false;
}

void CsvWriter::Separate() {
  if (is_row_started_) row_ += ',';
  is_row_started_ = true;
}

}  // namespace zemva::tools
