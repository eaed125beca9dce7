// The observation and variable tables inside a data set.
#ifndef ZEMVA_DIO_DATASET_DIO_ITEM_H
#define ZEMVA_DIO_DATASET_DIO_ITEM_H

#include <cstdint>
#include <memory>
#include <string_view>

#include "zemva/base/export.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/dio/file/dio_file.h"

namespace zemva {

// Reads and writes the payloads "obji" and "vari" at the position of an open file. The readers
// return 0, 2005 for a short read or a count that cannot be, 2003 when memory runs out, and 2015
// for columns that together have more than 32,767 observations. A name longer than 24 characters is
// cut, and what follows it is read out of step.
class ZEMVA_API DioItem {
 public:
  explicit DioItem(DioFile& file) : file_(file) {}

  // Reads an "obji" payload into a new table named "ObjInfo".
  int GetObsInfo(std::unique_ptr<ObsInfo>& table);
  // Reads a "vari" payload of n records into a new table named "VarInfo".
  int GetVariableInfo(int n, std::unique_ptr<VarInfo>& table);

  // Write the item; `size` receives its size. Raise DioItemError, class 4 for observations and 6
  // for variables, with the status of the write.
  int WriteObsInfo(const ObsInfo& table, int& size);
  int WriteVariableInfo(const VarInfo& table, std::string_view name, int& size);

  // The sizes of these items.
  static std::int64_t ObsInfoSize(const ObsInfo& table);
  static std::int64_t VariableInfoSize(const VarInfo& table);

 private:
  // An observation or a variable.
  struct Record {
    short number;
    char name[DioFile::kMaxText];
  };

  int ReadRecord(Record& record);
  int ReadObservations(ObsInfo& table);
  int WriteObservations(const ObsInfo& table);
  int WriteRecord(short number, const char* name);

  DioFile& file_;
};

}  // namespace zemva

#endif  // ZEMVA_DIO_DATASET_DIO_ITEM_H
