// The text of a comma-separated file: its encoding, its cells, and what is said about them.
#ifndef ZEMVA_TOOLS_CSV_CSV_TEXT_H
#define ZEMVA_TOOLS_CSV_CSV_TEXT_H

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "csv/csv_options.h"

namespace zemva::tools {

// Where a cell begins: its line in the file, and its column in the table. Both count from 1.
struct CsvPlace {
  int line;
  int column;
};

// "line 3, column 2: reason".
std::string CsvMessage(CsvPlace place, std::string_view reason);

// A file that is not read, and why.
class CsvError : public std::runtime_error {
 public:
  CsvError(CsvPlace place, std::string_view reason) : runtime_error(CsvMessage(place, reason)) {}
};

// Without the blanks around it.
std::string_view WithoutBlanks(std::string_view cell);

// The characters of a file, which belong to the caller, and so do the options. Raises CsvError for
// an empty file, for one with a zero byte, and for one that begins with the mark of UTF-8 or UTF-16
// and is something else.
class CsvText {
 public:
  CsvText(std::string_view bytes, const CsvOptions& options);
  CsvText(const CsvText&) = delete;
  CsvText& operator=(const CsvText&) = delete;

  // Behind the mark of UTF-8, if there is one, and behind a line that names the separator.
  std::string_view GetCharacters() const { return characters_; }
  // The number of the line that they begin with.
  int GetFirstLine() const { return first_line_; }
  // The separator: that of the options, or of a first line "sep=;", or the one that the header row
  // shows; CsvCells says how rows are made of cells.
  //
  // It is the character behind the first cell when that is empty or quoted. Else it is a tab if the
  // row holds one outside quotes, else a semicolon, else a comma.
  char GetSeparator() const { return separator_; }

  // An empty cell, blanks alone, and the words for a missing value: NA, N/A, #N/A, NaN, nan, null
  // and those of the options.
  bool IsMissing(std::string_view cell) const;

  // A text of the file in the code page. `is_whole` tells whether that has all its characters.
  std::string InCodePage(std::string_view cell, bool& is_whole) const;
  // The same between quotes, on one line, not too long and in UTF-8: for a message.
  std::string Quoted(std::string_view cell) const;

 private:
  void TakeSeparatorLine();

  const CsvOptions& options_;
  std::string decoded_;  // the text of a file in UTF-16
  std::string_view characters_;
  bool is_utf8_;
  int first_line_ = 1;
  char separator_ = '\0';
};

struct CsvCell {
  std::string_view text;  // without its quotes; until the next cell is read
  CsvPlace place;
  bool is_last;  // of its row
};

// The cells of a file, one after the other. A row ends at \n, \r or \r\n; lines without any
// character are skipped. A cell that begins with a quote ends at the next one: it may hold
// separators, line breaks and, doubled, quotes.
class CsvCells {
 public:
  explicit CsvCells(const CsvText& text)
      : rest_(text.GetCharacters()), separator_(text.GetSeparator()), line_(text.GetFirstLine()) {}

  // False behind the last cell. Raises CsvError for quotes that are not closed, and for characters
  // between closed quotes and the end of their cell.
  bool Next(CsvCell& cell);

 private:
  bool StartRow();
  std::string_view TakePlain();
  std::string_view TakeQuoted(CsvPlace place);
  bool TakeEnd(CsvPlace place);

  std::string_view rest_;
  char separator_;
  std::string unquoted_;  // the text of a cell with doubled quotes
  int line_;
  int column_ = 0;
  bool is_row_open_ = false;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_TEXT_H
