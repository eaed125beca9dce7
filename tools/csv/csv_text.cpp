#include "csv/csv_text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "text/code_page.h"

namespace zemva::tools {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";
constexpr std::string_view kSeparatorLine = "sep=";
constexpr std::string_view kMissingWords[] = {"NA", "N/A", "#N/A", "NaN", "nan", "null"};
constexpr std::string_view kSeparators = "\t;,";  // the first that occurs is taken
constexpr std::size_t kLongestQuotation = 40;

bool IsSeparator(char c) {
  return kSeparators.find(c) != std::string_view::npos;
}

// The length of the line end that the text starts with, 0 if it starts with none.
std::size_t LineEndLength(std::string_view text) {
  return text.starts_with("\r\n") ? 2 : text.starts_with('\n') || text.starts_with('\r') ? 1 : 0;
}

int CountLines(std::string_view text) {
  int count = 0;
  while (true) {
    const std::size_t end = text.find_first_of("\r\n");
    if (end == std::string_view::npos) return count;
    text.remove_prefix(end);
    text.remove_prefix(LineEndLength(text));
    ++count;
  }
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
      if (c == '\n' || c == '\r') break;
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

std::string_view WithoutBlanks(std::string_view cell) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t start = cell.find_first_not_of(kBlanks);
  if (start == std::string_view::npos) return {};
  return cell.substr(start, cell.find_last_not_of(kBlanks) - start + 1);
}

CsvText::CsvText(std::string_view bytes, const CsvOptions& options)
    : options_(options), characters_(bytes) {
  if (bytes.starts_with(kUtf16LittleMark) || bytes.starts_with(kUtf16BigMark)) {
    std::optional<std::string> text =
        Utf8FromUtf16(bytes.substr(2), bytes.starts_with(kUtf16LittleMark));
    if (!text) throw CsvError({1, 1}, "the file is marked as UTF-16 but is something else");
    decoded_ = std::move(*text);
    characters_ = decoded_;
  }
  is_utf8_ = IsUtf8(characters_);
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
  TakeSeparatorLine();
  if (options_.delimiter) separator_ = *options_.delimiter;
  if (separator_ == '\0') separator_ = FindSeparator(characters_);
}

// Spreadsheets write "sep=;" to tell each other.
void CsvText::TakeSeparatorLine() {
  if (!characters_.starts_with(kSeparatorLine)) return;
  const std::string_view rest = characters_.substr(kSeparatorLine.size());
  const std::size_t end = LineEndLength(rest.substr(std::min<std::size_t>(1, rest.size())));
  if (end == 0 || LineEndLength(rest) != 0) return;
  separator_ = rest.front();
  characters_ = rest.substr(1 + end);
  ++first_line_;
  if (characters_.find_first_not_of("\r\n") == std::string_view::npos) {
    throw CsvError({1, 1}, "the file is empty");
  }
}

bool CsvText::IsMissing(std::string_view cell) const {
  const std::string_view text = WithoutBlanks(cell);
  const auto is_text = [text](std::string_view word) { return text == word; };
  return text.empty() || std::ranges::any_of(kMissingWords, is_text) ||
         std::ranges::any_of(options_.missing_words, is_text);
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
  const auto ends = [this](char c) { return c == separator_ || c == '\n' || c == '\r'; };
  while (end < rest_.size() && !ends(rest_[end])) ++end;
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
