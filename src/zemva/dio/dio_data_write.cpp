#include <cstring>

#include "zemva/data/dataset.h"
#include "zemva/dio/dio_data.h"
#include "zemva/errors/dio_error.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

void RaiseUnless(int status, const char* item) {
  if (status != status::kOk) throw new DioDataError(status, kWritingData, item);
}

int WriteNumber(DioFile& file, const char* name, short number, int& size) {
  size = sizeof number;
  return file.WriteTheItem(size, name, "i2", 0, nullptr, &number);
}

}  // namespace

int DioData::WriteDataset(Dataset& dataset, int& size) {
  DioItem tables(file_);
  int item_size = static_cast<int>(std::strlen(dataset.GetDSNam())) + 1;
  RaiseUnless(file_.WriteTheItem(item_size, "DSName", "sz21", 0, nullptr, dataset.GetDSNam()),
              "DSName");
  size += item_size;
  RaiseUnless(WriteNumber(file_, "DSNum", dataset.GetDSNum(), item_size), "DSNum");
  size += item_size;
  RaiseUnless(file_.WriteComment(dataset.GetDSTitle(), item_size), "Title");
  size += item_size;
  ProgressCount(dataset.GetNObsDS());
  RaiseUnless(WriteNumber(file_, "NOBJ", dataset.GetNObsDS(), item_size), "NOBJ");
  size += item_size;
  if (const ObsInfo* observations = dataset.GetOIPtr()) {
    tables.WriteObsInfo(*observations, item_size);
    size += item_size;
  }
  RaiseUnless(WriteNumber(file_, "NVar", dataset.GetNVarDS(), item_size), "NVar");
  size += item_size;
  if (const VarInfo* variables = dataset.GetVIPtr()) {
    tables.WriteVariableInfo(*variables, "VarInfo", item_size);
    size += item_size;
  }
  RaiseUnless(file_.WriteMXF4("Dataset", *dataset.GetDMPtr(), item_size, this), "Dataset");
  size += item_size;
  return status::kOk;
}

}  // namespace zemva
