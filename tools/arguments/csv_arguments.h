// The options of commands that read tables of comma-separated values.
#ifndef ZEMVA_TOOLS_ARGUMENTS_CSV_ARGUMENTS_H
#define ZEMVA_TOOLS_ARGUMENTS_CSV_ARGUMENTS_H

#include <optional>

#include "csv/csv_options.h"

namespace CLI {
class App;
}

namespace zemva::tools {

// What help says of a file that is data.
inline constexpr char kDataHelp[] =
    "the data: a project file, a table of comma-separated values, or - for such a table on "
    "standard input";

// The decimal mark of tables that are read and written.
void AddDecimalMark(CLI::App& line, std::optional<char>& mark);

void AddCsvOptions(CLI::App& line, CsvOptions& options);

// The option that makes classes of a column, for commands that know classes.
void AddClassColumn(CLI::App& line, CsvOptions& options);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_ARGUMENTS_CSV_ARGUMENTS_H
