#include "csv_reader.h"

#include <algorithm>
#include <array>

namespace zemva::tools {
namespace {

constexpr std::string_view kSeparators = ",;\t";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

char FindSeparator(std::string_view text) {
  if (!text.empty() && kSeparators.find(text[0]) != std::string_view::npos) return text[0];
  std::array<int, kSeparators.size()> counts = {};
  bool is_quoted = false;
  for (const char c : text) {
    if (c == '"') is_quoted = !is_quoted;
    if (is_quoted) continue;
    if (c == '\n') break;
    const std::size_t kind = kSeparators.find(c);
    if (kind != std::string_view::npos) ++counts[kind];
  }
  return kSeparators[static_cast<std::size_t>(std::ranges::max_element(counts) - counts.begin())];
}

}  // namespace

CsvReader::CsvReader(std::string text) : text_(std::move(text)) {
  if (text_.starts_with(kByteOrderMark)) position_ = kByteOrderMark.size();
  separator_ = FindSeparator(std::string_view(text_).substr(position_));
}

bool CsvReader::NextRow(std::vector<std::string_view>& cells) {
  cells.clear();
  row_line_ = line_;
  if (position_ >= text_.size()) return false;
  while (true) {
    cells.push_back(NextCell());
    if (is_quote_open_) return false;
    if (position_ >= text_.size()) return true;
    if (text_[position_] != separator_) break;
    ++position_;
  }
  if (text_[position_] == '\r') ++position_;
  if (position_ < text_.size()) ++position_;  // the line feed
  ++line_;
  return true;
}

bool CsvReader::IsCellEnd(std::size_t position) const {
  return position >= text_.size() || text_[position] == separator_ || text_[position] == '\n' ||
         (text_[position] == '\r' && (position + 1 == text_.size() || text_[position + 1] == '\n'));
}

std::string_view CsvReader::NextCell() {
  if (position_ < text_.size() && text_[position_] == '"') return NextQuotedCell();
  const std::size_t start = position_;
  while (!IsCellEnd(position_)) ++position_;
  return std::string_view(text_).substr(start, position_ - start);
}

// The cell is put together where it stands: without its quotes it only gets shorter.
std::string_view CsvReader::NextQuotedCell() {
  const std::size_t start = position_++;
  std::size_t end = start;
  bool is_quoted = true;
  while (is_quoted || !IsCellEnd(position_)) {
    if (position_ >= text_.size()) {
      is_quote_open_ = true;
      return {};
    }
    const char c = text_[position_++];
    if (c == '"') {
      is_quoted = !is_quoted;
      const bool is_doubled = is_quoted;  // the second of two
      if (!is_doubled) continue;
    }
    if (c == '\n') ++line_;
    text_[end++] = c;
  }
  return std::string_view(text_).substr(start, end - start);
}

}  // namespace zemva::tools
