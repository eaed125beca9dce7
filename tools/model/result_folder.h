// The folder that the results of a model go to.
#ifndef ZEMVA_TOOLS_MODEL_RESULT_FOLDER_H
#define ZEMVA_TOOLS_MODEL_RESULT_FOLDER_H

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "csv/csv_columns.h"

namespace zemva::tools {

// A table and the name that its file has without ".csv".
struct ResultTable {
  const char* name;
  CsvColumns columns;
  short row_count;
};

// It is made, and tried, before there is anything to write: so a model is not fitted for nothing.
class ResultFolder {
 public:
  // Raises Failure where the folder, or a table in it, cannot be written.
  ResultFolder(const std::string& folder, char decimal_mark);
  ResultFolder(const ResultFolder&) = delete;
  ResultFolder& operator=(const ResultFolder&) = delete;
  // Removes the folders that it has made and that nothing was written to.
  ~ResultFolder();

  // Raises Failure.
  void Write(const ResultTable& table);
  // Removes the tables of an earlier model that this one has not.
  void RemoveOthers() const;

 private:
  std::string PathOf(const std::string& table) const { return folder_ + "/" + table + ".csv"; }
  void Make(const std::filesystem::path& path);
  void RemoveMade() const;

  std::string folder_;
  char decimal_mark_;
  std::vector<std::filesystem::path> made_;  // the outermost first
  std::set<std::string> written_;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_RESULT_FOLDER_H
