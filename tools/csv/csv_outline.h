// What the columns of a table hold, as its first reading and the options tell.
#ifndef ZEMVA_TOOLS_CSV_CSV_OUTLINE_H
#define ZEMVA_TOOLS_CSV_CSV_OUTLINE_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "csv/csv_options.h"
#include "csv/csv_text.h"

namespace zemva::tools {

enum class CsvRole : char { kVariable, kNumber, kName, kClass, kDropped };

class CsvOutline {
 public:
  // Reads the whole file. Raises CsvError for a column of the options that there is not, for one
  // that they name twice, and where none is left for a variable.
  CsvOutline(const CsvText& text, const CsvOptions& options);

  int GetColumnCount() const { return column_count_; }
  // Without the header.
  int GetRowCount() const { return row_count_; }
  int GetVariableCount() const { return variable_count_; }
  // Where the first row begins.
  CsvPlace GetFirstPlace() const { return first_place_; }

  // Columns count from 1.
  CsvRole GetRole(int column) const;
  // The position of the variable in a column that is one.
  int GetVariable(int column) const;
  // The column with a role that one column has; 0 where none has.
  int FindRole(CsvRole role) const;
  // "'Country'", or "column 2" without a heading.
  std::string Describe(int column) const;

  // Raises CsvError for a variable that holds texts and not one number.
  void RefuseTexts() const;

 private:
  struct Column {
    std::string heading;
    CsvRole role = CsvRole::kVariable;
    bool has_text = false;
    bool has_word = false;  // a text of more than digits and the marks in numbers
    bool has_value = false;
    bool is_whole = true;  // all cells are whole numbers
    int variable = 0;

    bool IsText() const { return has_text && !has_value; }
  };

  void Survey();
  void AddCell(std::size_t index, std::string_view cell);
  void Assign(const std::optional<std::string>& column, const char* option, CsvRole role);
  void AssignLabels();
  void CountVariables();
  Column* FindColumn(const std::string& column);
  bool HasNoHeading(std::size_t index) const;

  const CsvText& text_;
  const CsvOptions& options_;
  // No more than can have a role other than that of a variable which is left out.
  std::vector<Column> columns_;
  CsvPlace first_place_{1, 1};
  int column_count_ = 0;
  int row_count_ = 0;
  int variable_count_ = 0;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_OUTLINE_H
