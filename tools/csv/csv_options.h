// What a person says of a table of comma-separated values, where it is not left to be found.
#ifndef ZEMVA_TOOLS_CSV_CSV_OPTIONS_H
#define ZEMVA_TOOLS_CSV_CSV_OPTIONS_H

#include <optional>
#include <string>
#include <vector>

namespace zemva::tools {

// Columns are given by their heading or by their number, from 1.
struct CsvOptions {
  std::optional<char> delimiter = {};
  std::optional<char> decimal_mark = {};  // '.' or ','
  std::vector<std::string> missing_words =
      {};  // beside those that always stand for a missing value
  bool is_without_header = false;
  std::optional<std::string> name_column = {};
  std::optional<std::string> number_column = {};
  std::optional<std::string> class_column = {};
  std::vector<std::string> dropped_columns = {};
  // Whether a column that there is not is passed over.
  bool are_columns_optional = false;
  bool is_repairing = false;
  bool is_verbose = false;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_OPTIONS_H
