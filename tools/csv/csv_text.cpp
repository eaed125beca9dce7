#include "csv/csv_text.h"

#include <algorithm>

#include "text/code_page.h"

namespace zemva::tools {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kSeparators = "\t;,";  // the first that occurs is taken
constexpr std::size_t kLongestQuotation = 40;

bool IsSeparator(char c) {
  return kSeparators.find(c) != std::string_view::npos;
}

// The length of the line end that the text starts with, 0 if it starts with none.
std::size_t LineEndLength(std::string_view text) {
  return text.starts_with('\n') ? 1 : text.starts_with("\r\n") ? 2 : 0;
}

int CountLines(std::string_view text) {
  return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

// Where the quote stands that closes the one at the start; npos if none does.
std::size_t FindClosingQuote(std::string_view text) {
  std::size_t end = text.find('"', 1);
  while (end != std::string_view::npos && text.substr(end + 1).starts_with('"')) {
    end = text.find('"', end + 2);
  }
  return end;
}

char FindSeparator(std::string_view text) {
  while (const std::size_t length = LineEndLength(text)) text.remove_prefix(length);
  const std::size_t first_end = text.starts_with('"') ? FindClosingQuote(text) + 1 : 0;
  if (first_end < text.size() && IsSeparator(text[first_end])) return text[first_end];

  std::size_t best = kSeparators.size() - 1;
  bool is_quoted = false;
  char previous = '\0';
  for (const char c : text.substr(std::min(first_end, text.size()))) {
    if (c == '"') {
      is_quoted = !is_quoted && (IsSeparator(previous) || previous == '"');
    } else if (!is_quoted) {
      if (c == '\n') break;
      best = std::min(best, kSeparators.find(c));
    }
    previous = c;
  }
  return kSeparators[best];
}

// The place of a character, where nothing is known of cells yet.
CsvPlace LineOf(std::string_view text, std::size_t position) {
  return {1 + CountLines(text.substr(0, position)), 1};
}

}  // namespace

std::string CsvMessage(CsvPlace place, std::string_view reason) {
  std::string message = "line " + std::to_string(place.line);
  message += ", column " + std::to_string(place.column) + ": ";
  message += reason;
  return message;
}

CsvText::CsvText(std::string_view bytes) : characters_(bytes), is_utf8_(IsUtf8(bytes)) {
  if (bytes.starts_with(kUtf8Mark)) {
    if (!is_utf8_) throw CsvError({1, 1}, "the file is marked as UTF-8 but is something else");
    characters_.remove_prefix(kUtf8Mark.size());
  }
  const std::size_t zero = characters_.find('\0');
  if (zero != std::string_view::npos) {
    throw CsvError(LineOf(characters_, zero), "a zero byte: the file is no text");
  }
  if (characters_.find_first_not_of("\r\n") == std::string_view::npos) {
    throw CsvError({1, 1}, "the file is empty");
  }
  separator_ = FindSeparator(characters_);
}

std::string CsvText::InCodePage(std::string_view cell, bool& is_whole) const {
  is_whole = true;
  if (!is_utf8_) return std::string(cell);
  std::size_t lost = 0;
  std::string text = CodePageFromUtf8(cell, lost);
  is_whole = lost == 0;
  return text;
}

std::string CsvText::Quoted(std::string_view cell) const {
  const auto is_inside_character = [&](std::size_t i) {
    return is_utf8_ && (static_cast<unsigned char>(cell[i]) & 0xC0) == 0x80;
  };
  std::size_t length = std::min(cell.size(), kLongestQuotation);
  while (length < cell.size() && is_inside_character(length)) --length;
  std::string text(cell.substr(0, length));
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  }
  if (length < cell.size()) text += "...";
  return '\'' + (is_utf8_ ? text : Utf8FromCodePage(text)) + '\'';
}

bool CsvCells::Next(CsvCell& cell) {
  if (!is_row_open_ && !StartRow()) return false;
  cell.place = {line_, ++column_};
  cell.text = rest_.starts_with('"') ? TakeQuoted(cell.place) : TakePlain();
  cell.is_last = TakeEnd(cell.place);
  is_row_open_ = !cell.is_last;
  return true;
}

bool CsvCells::StartRow() {
  while (const std::size_t length = LineEndLength(rest_)) {
    rest_.remove_prefix(length);
    ++line_;
  }
  column_ = 0;
  return !rest_.empty();
}

std::string_view CsvCells::TakePlain() {
  std::size_t end = 0;
  while (end < rest_.size() && rest_[end] != separator_ && rest_[end] != '\n') ++end;
  const bool has_return =
      rest_.substr(end).starts_with('\n') && rest_.substr(0, end).ends_with('\r');
  if (has_return) --end;
  const std::string_view text = rest_.substr(0, end);
  rest_.remove_prefix(end);
  return text;
}

std::string_view CsvCells::TakeQuoted(CsvPlace place) {
  const std::size_t end = FindClosingQuote(rest_);
  if (end == std::string_view::npos) throw CsvError(place, "a quote is not closed");
  const std::string_view text = rest_.substr(1, end - 1);
  rest_.remove_prefix(end + 1);
  line_ += CountLines(text);
  if (text.find('"') == std::string_view::npos) return text;
  unquoted_.clear();
  for (std::size_t i = 0; i < text.size(); ++i) {
    unquoted_ += text[i];
    if (text[i] == '"') ++i;
  }
  return unquoted_;
}

// Takes what is behind a cell; true when that ends the row.
bool CsvCells::TakeEnd(CsvPlace place) {
  if (rest_.empty()) return true;
  if (rest_.front() == separator_) {
    rest_.remove_prefix(1);
    return false;
  }
  const std::size_t length = LineEndLength(rest_);
  if (length == 0) throw CsvError(place, "characters behind a closed quote");
  rest_.remove_prefix(length);
  ++line_;
  return true;
}

}  // namespace zemva::tools
