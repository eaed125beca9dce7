// A table of observations by variables out of a CSV text.
#ifndef ZEMVA_TOOLS_CSV_TABLE_H
#define ZEMVA_TOOLS_CSV_TABLE_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace zemva::tools {

// What a text holds that a data set cannot. Lines and columns (cells of a line) count from 1; a
// column of 0 means the line, a line of 0 the text as a whole.
struct CsvProblem {
  int line;
  int column;
  std::string reason;
};

// Names are in the code page of ".vdo" files.
struct CsvTable {
  std::vector<std::string> variable_names;
  std::vector<short> observation_numbers;
  std::vector<std::string> observation_names;
  std::vector<float> values;  // row after row; missing ones are kMissing
};

// Is told of each problem that was repaired.
using RepairLog = std::function<void(const CsvProblem&)>;

// Reads `text`, in UTF-8 or, where it is not valid, in the code page. docs/convert.md says how the
// columns of numbers and names are found and what fits. With a `repair` what does not fit is cut,
// renumbered or taken as missing where it can be; without one, or where it cannot, it is returned
// by a throw of its CsvProblem.
CsvTable ReadCsvTable(std::string text, const RepairLog& repair);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_TABLE_H
