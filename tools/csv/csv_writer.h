// Comma-separated values, as the program writes them.
#ifndef ZEMVA_TOOLS_CSV_CSV_WRITER_H
#define ZEMVA_TOOLS_CSV_CSV_WRITER_H

#include <cstdio>
#include <string>
#include <string_view>

namespace zemva::tools {

// What the cells of a table of results are written to.
class CellWriter {
 public:
  virtual ~CellWriter() = default;
  virtual void Text(std::string_view text) = 0;
  virtual void Integer(int value) = 0;
  virtual void Number(float value) = 0;
  virtual void Empty() = 0;
};

// Writes cells to a stream: UTF-8, lines ended by \n, quoted only where a separator, a quote or a
// line break asks for it, numbers in the shortest form that gives them back. Where the decimal mark
// is a comma, semicolons separate the cells.
class CsvWriter : public CellWriter {
 public:
  explicit CsvWriter(std::FILE* stream, char decimal_mark = '.')
      : stream_(stream), decimal_mark_(decimal_mark), separator_(decimal_mark == ',' ? ';' : ',') {}

  void Text(std::string_view text) override;
  void Integer(int value) override { Text(std::to_string(value)); }
  void Number(float value) override;
  void Empty() override { Separate(); }
  void EndRow();

 private:
  void Separate();

  std::FILE* stream_;
  char decimal_mark_;
  char separator_;
  std::string row_;
  bool is_row_started_ = false;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_WRITER_H
