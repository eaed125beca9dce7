#include "zemva/data/dataset.h"
#include "zemva/dio/dataset/dataset_items.h"
#include "zemva/dio/dataset/dio_data.h"
#include "zemva/dio/file/finder.h"
#include "zemva/errors/dio_error.h"
#include "zemva/errors/status.h"

namespace zemva {

int DioData::WriteDataset(Dataset& dataset, int& size) {
  for (const DatasetItem& item : DatasetItems()) {
    if (item.write == nullptr || item.size(dataset) == 0) continue;
    int item_size = 0;
    const int status = item.write(item, file_, dataset, *this, item_size);
    if (status != status::kOk) {
      throw new DioDataError(status, kWritingData, Finder::Search(item.name));
    }
    size += item_size;
  }
  return status::kOk;
}

}  // namespace zemva
