// The items of a data set: one table, walked by whoever reads, measures, writes or keeps them.
#ifndef ZEMVA_DIO_DATASET_DATASET_ITEMS_H
#define ZEMVA_DIO_DATASET_DATASET_ITEMS_H

#include <cstdint>
#include <span>

#include "zemva/dio/dataset/dio_data.h"
#include "zemva/dio/file/item_names.h"
#include "zemva/dio/file/layout.h"

namespace zemva {

// An item that is read.
struct ItemReading {
  DioFile& file;
  const ItemHeader& header;
  std::span<const char> payload;  // of an item that is not read from the stream
  Dataset& dataset;               // receives what the item says
  StoredMatrix& matrix;
  bool passes_values;  // whether the values of the matrix are passed over
  DioData& progress;   // is told of each observation
};

struct DatasetItem {
  ItemName name;
  const char* tag;           // null for an item that is read and never written
  bool is_read_from_stream;  // else its payload is read before
  int (*read)(const ItemReading& reading);
  // Of the whole item; 0 where the data set has none.
  std::int64_t (*size)(Dataset& dataset);
  // Writes the item; `size` receives its size.
  int (*write)(const DatasetItem& item, DioFile& file, Dataset& dataset, DioData& progress,
               int& size);
};

// In the order in which they are written. A known item that is not among them is passed over by a
// reader.
std::span<const DatasetItem> DatasetItems();
// Null where there is none of that name.
const DatasetItem* FindDatasetItem(ItemName name);

// The longest name that a reader takes whole, without its terminator.
inline constexpr std::size_t kLongestStoredName = DioFile::kMaxText - 1;

}  // namespace zemva

#endif  // ZEMVA_DIO_DATASET_DATASET_ITEMS_H
