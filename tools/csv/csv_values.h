// The numbers in the cells of a file.
#ifndef ZEMVA_TOOLS_CSV_CSV_VALUES_H
#define ZEMVA_TOOLS_CSV_CSV_VALUES_H

#include <string>
#include <string_view>

#include "csv/csv_repairs.h"
#include "csv/csv_text.h"

namespace zemva::tools {

// Without the sign that says nothing.
std::string_view WithoutPlus(std::string_view number);

// Whether the cell reads as a number, with a decimal point or comma.
bool IsNumeric(std::string_view cell);

class CsvValues {
 public:
  CsvValues(const CsvText& text, const CsvOptions& options, const CsvRepairs& repairs)
      : text_(text),
        repairs_(repairs),
        decimal_mark_(options.decimal_mark.value_or(text.GetSeparator() == ',' ? '.' : '\0')) {}

  // The value of a cell, kMissing where there is none. What is not a number, not finite in single
  // precision or the missing value itself is refused, or repaired to kMissing.
  //
  // Unless the options say which: where commas do not separate cells, a number may be written with
  // a decimal comma instead of a point. The first number with either decides for all: so 1,234.5
  // and 1.234,5 in one table are found to be no numbers, whichever comma was meant.
  float Value(CsvPlace place, std::string_view cell);

 private:
  std::string_view FindFault(std::string_view number, float& value);

  const CsvText& text_;
  const CsvRepairs& repairs_;
  char decimal_mark_;       // '\0' until a number has one
  std::string with_point_;  // a number with its comma replaced
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_VALUES_H
