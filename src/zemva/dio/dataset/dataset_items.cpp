#include "zemva/dio/dataset/dataset_items.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

#include "zemva/data/dangerous_data_set_manipulator.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dataset/dio_item.h"
#include "zemva/dio/file/finder.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

using Access = DangerousDataSetManipulator;

constexpr std::int64_t kHeader = ItemHeader::kFixedSize;

// --- Texts ---

template <auto Set>
int ReadText(const ItemReading& reading) {
  const auto end = std::ranges::find(reading.payload, '\0');
  (reading.dataset.*Set)(std::string(reading.payload.begin(), end).c_str());
  return status::kOk;
}

template <auto Get>
std::int64_t TextSize(Dataset& dataset) {
  return kHeader + static_cast<std::int64_t>(std::strlen((dataset.*Get)())) + 1;
}

template <auto Get>
int WriteText(const DatasetItem& item, DioFile& file, Dataset& dataset, DioData&, int& size) {
  const char* text = (dataset.*Get)();
  size = static_cast<int>(std::strlen(text)) + 1;
  return file.WriteTheItem(size, Finder::Search(item.name), item.tag, 0, nullptr, text);
}

// --- Numbers ---

int GetNumber(const ItemReading& reading, short& number) {
  if (reading.payload.size() < sizeof number) return status::dio::kReadError;
  number = DecodeI2(reading.payload.first<sizeof(std::int16_t)>());
  return status::kOk;
}

int ReadDSNum(const ItemReading& reading) {
  short number;
  if (const int status = GetNumber(reading, number); status != status::kOk) return status;
  if (reading.dataset.GetDSNum() == 0) reading.dataset.SetDSNum(number);
  return status::kOk;
}

int GetCount(const ItemReading& reading, short& count) {
  const int status = GetNumber(reading, count);
  return status == status::kOk && count < 0 ? status::dio::kReadError : status;
}

int ReadNObs(const ItemReading& reading) {
  short count;
  if (const int status = GetCount(reading, count); status != status::kOk) return status;
  Access::SetNObsDS(&reading.dataset, count);
  reading.progress.ProgressCount(count);
  return status::kOk;
}

int ReadNVar(const ItemReading& reading) {
  short count;
  if (const int status = GetCount(reading, count); status != status::kOk) return status;
  Access::SetNVarDS(&reading.dataset, count);
  return status::kOk;
}

std::int64_t NumberSize(Dataset&) {
  return kHeader + static_cast<std::int64_t>(sizeof(std::int16_t));
}

int WriteNumber(const DatasetItem& item, DioFile& file, short number, int& size) {
  size = sizeof number;
  return file.WriteTheItem(size, Finder::Search(item.name), item.tag, 0, nullptr, &number);
}

int WriteDSNum(const DatasetItem& item, DioFile& file, Dataset& dataset, DioData&, int& size) {
  return WriteNumber(item, file, dataset.GetDSNum(), size);
}

int WriteNObs(const DatasetItem& item, DioFile& file, Dataset& dataset, DioData& progress,
              int& size) {
  progress.ProgressCount(dataset.GetNObsDS());
  return WriteNumber(item, file, dataset.GetNObsDS(), size);
}

int WriteNVar(const DatasetItem& item, DioFile& file, Dataset& dataset, DioData&, int& size) {
  return WriteNumber(item, file, dataset.GetNVarDS(), size);
}

// --- Tables ---

int ReadObsInfo(const ItemReading& reading) {
  std::unique_ptr<ObsInfo> table;
  const int status = DioItem(reading.file).GetObsInfo(table);
  if (status == status::kOk) Access::SetOI(&reading.dataset, table.release());
  return status;
}

std::int64_t ObsInfoSize(Dataset& dataset) {
  const ObsInfo* table = dataset.GetOIPtr();
  return table == nullptr ? 0 : DioItem::ObsInfoSize(*table);
}

int WriteObsInfo(const DatasetItem&, DioFile& file, Dataset& dataset, DioData&, int& size) {
  return DioItem(file).WriteObsInfo(*dataset.GetOIPtr(), size);
}

int ReadVarInfo(const ItemReading& reading) {
  if (reading.header.dims.empty()) return status::dio::kReadError;
  std::unique_ptr<VarInfo> table;
  const int status = DioItem(reading.file).GetVariableInfo(reading.header.dims[0], table);
  if (status == status::kOk) Access::SetVI(&reading.dataset, table.release());
  return status;
}

std::int64_t VarInfoSize(Dataset& dataset) {
  const VarInfo* table = dataset.GetVIPtr();
  return table == nullptr ? 0 : DioItem::VariableInfoSize(*table);
}

int WriteVarInfo(const DatasetItem& item, DioFile& file, Dataset& dataset, DioData&, int& size) {
  return DioItem(file).WriteVariableInfo(*dataset.GetVIPtr(), Finder::Search(item.name), size);
}

// --- The matrix ---

int ReadMatrix(const ItemReading& reading) {
  if (reading.header.dims.size() < 2) return status::dio::kReadError;
  const int rows = reading.header.dims[0];
  const int columns = reading.header.dims[1];
  reading.matrix.rows = rows;
  reading.matrix.columns = columns;
  if (reading.passes_values) return reading.file.PassMXF4(reading.matrix.values, rows, columns);
  XFMatrix* matrix = nullptr;
  const int status = reading.file.GetMXF4(matrix, rows, columns);
  if (status != status::kOk) return status;
  Access::SetDM(&reading.dataset, matrix);
  for (int i = 1; i <= rows; ++i) reading.progress.ProgressTick(i);
  return status::kOk;
}

std::int64_t MatrixSize(Dataset& dataset) {
  const XFMatrix& matrix = *dataset.GetDMPtr();
  const std::size_t name_length = std::min(std::strlen(matrix.GetName()), kLongestStoredName);
  return kHeader + 2 * static_cast<std::int64_t>(sizeof(std::int16_t)) +
         static_cast<std::int64_t>(name_length) + 1 +
         std::int64_t{matrix.NRow()} * matrix.NCol() * static_cast<std::int64_t>(sizeof(float));
}

int WriteMatrix(const DatasetItem& item, DioFile& file, Dataset& dataset, DioData& progress,
                int& size) {
  return file.WriteMXF4(Finder::Search(item.name), *dataset.GetDMPtr(), size, &progress);
}

// --- What other programs write ---

constexpr short kKindOfTable900 = 2;

int ReadKind(const ItemReading& reading) {
  reading.dataset.SetKind(kKindOfTable900);
  return status::kOk;
}

// clang-format off
constexpr DatasetItem kDatasetItems[] = {
    {item::kDSName, "sz21", false, ReadText<&Dataset::SetDSNam>,
     TextSize<&Dataset::GetDSNam>, WriteText<&Dataset::GetDSNam>},
    {item::kDSNum, "i2", false, ReadDSNum, NumberSize, WriteDSNum},
    {item::kTitle, "sz61", false, ReadText<&Dataset::SetDSTitle>,
     TextSize<&Dataset::GetDSTitle>, WriteText<&Dataset::GetDSTitle>},
    {item::kNObs, "i2", false, ReadNObs, NumberSize, WriteNObs},
    {item::kObsInfo, "obji", true, ReadObsInfo, ObsInfoSize, WriteObsInfo},
    {item::kNVar, "i2", false, ReadNVar, NumberSize, WriteNVar},
    {item::kVarInfo, "vari", true, ReadVarInfo, VarInfoSize, WriteVarInfo},
    {item::kDataset, "mxf4", true, ReadMatrix, MatrixSize, WriteMatrix},
    {item::kTable900, nullptr, false, ReadKind, nullptr, nullptr},
    {item::kIndex900, nullptr, false, ReadKind, nullptr, nullptr},
};
// clang-format on

}  // namespace

std::span<const DatasetItem> DatasetItems() {
  return kDatasetItems;
}

const DatasetItem* FindDatasetItem(ItemName name) {
  const auto row = std::ranges::find(kDatasetItems, name, &DatasetItem::name);
  return row == std::end(kDatasetItems) ? nullptr : row;
}

}  // namespace zemva
