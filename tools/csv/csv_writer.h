// Comma-separated values, as the program writes them.
#ifndef ZEMVA_TOOLS_CSV_CSV_WRITER_H
#define ZEMVA_TOOLS_CSV_CSV_WRITER_H

#include <cstdio>
#include <string>
#include <string_view>

namespace zemva::tools {

// Writes cells to a stream: UTF-8, lines ended by \n, quoted only where a comma, a quote or a line
// break asks for it, numbers in the shortest form that gives them back.
class CsvWriter {
 public:
  explicit CsvWriter(std::FILE* stream) : stream_(stream) {}

  void Text(std::string_view text);
  void Number(float value);
  void Empty() { Separate(); }
  void EndRow();

 private:
  void Separate();

  std::FILE* stream_;
  std::string row_;
  bool is_row_started_ = false;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_WRITER_H
