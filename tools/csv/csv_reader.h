// A table of comma-separated values as the parts of a data set.
#ifndef ZEMVA_TOOLS_CSV_CSV_READER_H
#define ZEMVA_TOOLS_CSV_CSV_READER_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "csv/csv_repairs.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva::tools {

struct CsvTable {
  std::unique_ptr<XFMatrix> values;
  std::unique_ptr<ObsInfo> observations;
  std::unique_ptr<VarInfo> variables;
  // For each observation, from 0, its class, 1 for the first of the names, or 0 for none. Empty
  // where no column is that of classes. Names are in UTF-8.
  std::vector<char> classes;
  std::vector<std::string> class_names;
  // What was taken for what, with counts.
  std::string description;
};

// Reads the characters of a file, as docs/convert.md has it. Raises CsvError for what does not fit,
// and std::bad_alloc. It takes memory for the cells that the file holds, not for those that its
// header row promises.
CsvTable ReadCsv(std::string_view bytes, const CsvOptions& options, const CsvRepairs& repairs);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_READER_H
