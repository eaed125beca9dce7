// Reads comma-separated values, or such as are separated by semicolons or tabs.
#ifndef ZEMVA_TOOLS_CSV_READER_H
#define ZEMVA_TOOLS_CSV_READER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zemva::tools {

// Goes through a text row by row. Cells may be quoted, with quotes in them doubled and line breaks
// kept; lines end in \n or \r\n; a byte order mark at the start is passed over.
//
// The separator is the character that the first row starts with, when that is a comma, a semicolon
// or a tab; else the one of the three that the first row has most often outside quotes, in that
// order where two come out even; a comma when it has none.
class CsvReader {
 public:
  explicit CsvReader(std::string text);

  // The next row's cells, which stay valid until the reader goes. False at the end, or at a quote
  // that is not closed.
  bool NextRow(std::vector<std::string_view>& cells);

  char Separator() const { return separator_; }
  // The line that the row read last began on, from 1.
  int Line() const { return row_line_; }
  // Whether the text ended inside a quoted cell.
  bool IsQuoteOpen() const { return is_quote_open_; }

 private:
  std::string_view NextCell();
  std::string_view NextQuotedCell();
  bool IsCellEnd(std::size_t position) const;

  std::string text_;
  std::size_t position_ = 0;
  char separator_;
  int line_ = 1;
  int row_line_ = 0;
  bool is_quote_open_ = false;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_READER_H
