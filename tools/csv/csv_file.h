// Data from a file: a project file, or a table of comma-separated values.
#ifndef ZEMVA_TOOLS_CSV_CSV_FILE_H
#define ZEMVA_TOOLS_CSV_CSV_FILE_H

#include <memory>
#include <string>
#include <vector>

#include "csv/csv_options.h"
#include "csv/csv_reader.h"
#include "zemva/data/dataset.h"
#include "zemva/errors/stream_window.h"

namespace zemva::tools {

// What stands for standard input and output among the names of files.
inline constexpr char kStandardStream[] = "-";

// The commands that take data as a project file and as a table.
inline constexpr char kDataCommands[] = "stats, pc, pls, predict, plot and vectors";

// Which of the two a file is, by its first bytes. One that cannot be read is neither.
bool IsProjectFile(const std::string& path);
// Whether it is a project file that begins with a model.
bool IsModelFile(const std::string& path);
// Whether the file can be read and is a text.
bool IsTextFile(const std::string& path);

// Reads a table, and says in a line what was repaired, or each repair where details are asked for.
// Raises Failure.
CsvTable ReadCsvFile(const std::string& path, const CsvOptions& options);

struct OpenedTable {
  std::unique_ptr<Dataset> dataset;
  // As in CsvTable; a project file has no classes.
  std::vector<char> classes;
  std::vector<std::string> class_names;
};

// A data set, unloaded, on a project file; else that of a table, loaded, of which a line says what
// was taken for what. Raises Failure for a table that cannot be read.
OpenedTable OpenTable(const std::string& path, const CsvOptions& options, StreamWindow& window);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_FILE_H
