// The results of a model as files of comma-separated values.
#ifndef ZEMVA_TOOLS_MODEL_MODEL_CSV_H
#define ZEMVA_TOOLS_MODEL_MODEL_CSV_H

#include <string>

#include "csv/csv_columns.h"
#include "zemva/data/dataset.h"
#include "zemva/model/pc/pc_model.h"

namespace zemva::tools {

// A table and the name that its file has without ".csv".
struct ResultTable {
  const char* name;
  CsvColumns columns;
  short row_count;
};

// The model outlives the tables.
ResultTable TabulateComponents(const PCModel& model);
ResultTable TabulateObservations(const PCModel& model);
ResultTable TabulateVariables(const PCModel& model);
// A row for each observation of the data set that the model was executed on, those that were left
// out included. It outlives the table too.
ResultTable TabulatePredictions(const PCModel& model, Dataset& test);

// Makes the folder unless there is one. Says what fails, and returns the exit status.
int MakeFolder(const std::string& folder);
// Writes a table to a file of the folder. The same.
int WriteTable(const ResultTable& table, const std::string& folder);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_MODEL_CSV_H
