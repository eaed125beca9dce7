// A table of results, written as comma-separated values.
#ifndef ZEMVA_TOOLS_CSV_CSV_COLUMNS_H
#define ZEMVA_TOOLS_CSV_CSV_COLUMNS_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "csv/csv_writer.h"
#include "text/json_writer.h"

namespace zemva::tools {

// Its columns, each of which knows the cell of row i, 1-based.
class CsvColumns {
 public:
  void AddInteger(std::string name, std::function<int(short)> integer);
  // A text in the code page; null is an empty one.
  void AddText(std::string name, std::function<const char*(short)> text);
  // A missing value is an empty cell.
  void AddNumber(std::string name, std::function<float(short)> number);

  // Replaces a file by the header row and rows 1..row_count. False when it cannot be written.
  bool WriteTo(const std::string& path, short row_count, char decimal_mark) const;
  // The rows as a list of objects.
  void WriteTo(JsonWriter& json, short row_count) const;

 private:
  struct Column {
    std::string name;
    std::function<void(short, CellWriter&)> write;
  };

  std::vector<Column> columns_;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_COLUMNS_H
