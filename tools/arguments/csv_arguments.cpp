#include "arguments/csv_arguments.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "arguments/command_line.h"
#include "arguments/lists.h"

namespace zemva::tools {
namespace {

char ParseDelimiter(const std::string& text) {
  constexpr std::string_view kNeverDelimiters = "\"\r\n.+-";
  if (text == "tab") return '\t';
  if (text == "comma") return ',';
  if (text == "semicolon") return ';';
  const bool is_mark = text.size() == 1 && static_cast<unsigned char>(text[0]) < 0x80 &&
                       kNeverDelimiters.find(text[0]) == std::string_view::npos;
  if (!is_mark)
    Refuse("--delimiter", Quoted(text) + " is none of comma, semicolon, tab, or a mark");
  return text[0];
}

char ParseDecimalMark(const std::string& text) {
  if (text == "point" || text == ".") return '.';
  if (text == "comma" || text == ",") return ',';
  Refuse("--decimal", Quoted(text) + " is none of point, comma");
}

void Append(std::vector<std::string>& all, const std::vector<std::string>& more) {
  all.insert(all.end(), more.begin(), more.end());
}

}  // namespace

void AddDecimalMark(CLI::App& line, std::optional<char>& mark) {
  AddOption(
      line, "--decimal", "MARK",
      "the decimal mark of tables, read and written: point, or comma, with which semicolons "
      "separate the cells written",
      [&](const std::string& value) { mark = ParseDecimalMark(value); },
      "what the first number shows, and point");
}

void AddCsvOptions(CLI::App& line, CsvOptions& options) {
  AddOption(
      line, "--delimiter", "MARK",
      "what separates the cells of a table: comma, semicolon, tab or |",
      [&](const std::string& value) { options.delimiter = ParseDelimiter(value); },
      "what its first row shows");
  AddDecimalMark(line, options.decimal_mark);
  AddRepeatable(
      line, "--na", "WORD,...", "what else stands for a missing value, such as -999",
      [&](const std::string& value) { Append(options.missing_words, ParseList("--na", value)); },
      "NA, N/A, #N/A, NaN, nan, null and empty cells do");
  AddFlag(line, "--no-header", "the first row of a table is data", options.is_without_header);
  AddOption(line, "--names", "COL", "the column of the names of observations, by heading or number",
            options.name_column);
  AddOption(line, "--numbers", "COL", "the column of their numbers", options.number_column);
  AddRepeatable(line, "--drop", "COL,...", "columns to leave out", [&](const std::string& value) {
    Append(options.dropped_columns, ParseList("--drop", value));
  });
  AddFlag(line, "--repair", "change what does not fit, and say how often", options.is_repairing);
  AddFlag(line, "--verbose", "say each repair", options.is_verbose);
}

void AddClassColumn(CLI::App& line, CsvOptions& options) {
  AddOption(line, "--class-by", "COL", "the column whose texts are the classes of observations",
            options.class_column);
}

}  // namespace zemva::tools
