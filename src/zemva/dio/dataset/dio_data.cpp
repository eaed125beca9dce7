#include "zemva/dio/dataset/dio_data.h"

#include "zemva/data/dangerous_data_set_manipulator.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dataset/dataset_items.h"
#include "zemva/dio/file/dio_guard.h"
#include "zemva/dio/file/finder.h"
#include "zemva/errors/dio_error.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

using Access = DangerousDataSetManipulator;

constexpr std::int64_t kLargestPayload = 65534;

// A count that the file has not given.
constexpr short kNoCount = -1;

// Whether the file gave both counts and a matrix that is large enough for them.
bool IsWhole(const Dataset& dataset, const StoredMatrix& matrix) {
  const short observations = Access::GetNObsDS(&dataset);
  const short variables = Access::GetNVarDS(&dataset);
  return observations != kNoCount && variables != kNoCount && observations <= matrix.rows &&
         variables <= matrix.columns;
}

}  // namespace

DioData::DioData(const char* path, const char* name, StreamWindow& window)
    : file_(path, window), window_(window) {
  SetName(name);
}

DioData::~DioData() = default;

void DioData::ProgressTick(int) {}
void DioData::ProgressCount(int) {}

int DioData::Load(Dataset* dataset) {
  return LoadInto(dataset, false);
}

int DioData::LoadListProject(Dataset* dataset) {
  if (dataset != nullptr && dataset->IsLoaded()) return status::kOk;
  return LoadInto(dataset, true);
}

int DioData::LoadInto(Dataset* dataset, bool header_only) {
  return Guarded(file_, &window_, [&] {
    if (dataset == nullptr) {
      throw new DioDataError(status::kOk, kLoadingData, "Error: datset is NULL:");
    }
    Dataset read(dataset->GetDSNam(), "", window_);
    read.SetDSTitle(dataset->GetDSTitle());
    read.SetDSNum(dataset->GetDSNum());
    if (const int status = ReadItems(read, header_only); status != status::kOk) return status;
    if (header_only) read.Unload();
    Access::MoveContents(read, dataset);
    Access::SetIsLoaded(dataset, !header_only);
    title_.Set(dataset->GetDSTitle());
    return status::kOk;
  });
}

void DioData::ReadVersion() {
  file_.OpenSuperItemFile();
  file_.GetSuperHeader(surroundings_.super_header);
  file_.CloseSuperItemFile();
  if (!CanRead(surroundings_.super_header.version)) {
    throw new DioDataError(status::dio::kFileVersion, kLoadingData,
                           "Error: It is not an version that we have made.");
  }
}

// Reads all of the data set in the file, which stays open, into one of its own. Every operation on
// a file that is there comes this way, so that all refuse the same.
int DioData::ReadItems(Dataset& dataset, bool passes_values) {
  surroundings_ = {};
  matrix_ = {};
  Access::SetNObsDS(&dataset, kNoCount);
  Access::SetNVarDS(&dataset, kNoCount);
  ReadVersion();
  file_.OpenSuperItemFile();
  const char* sub_name = name_.IsEmpty() ? nullptr : name_.Get();
  if (const int status = Finder::FindSuperItem(file_, sub_name, SuperItem::kData);
      status != status::kOk) {
    throw new DioDataError(status, kLoadingData, "Error: in FindSuperItem");
  }
  SuperItem& super_item = surroundings_.super_item;
  if (const int status = file_.GetSuperItemHeader(super_item); status != status::kOk) {
    throw new DioDataError(status, kLoadingData, "Error: in GetSuperItemHeader");
  }
  struct PassingOver {
    bool& is_on;
    ~PassingOver() { is_on = false; }
  } const passing{passes_values_ = passes_values};
  const int status =
      GetDataBody(&dataset, super_item.header.size - static_cast<int>(ItemHeader::kFixedSize));
  buffer_ = {};
  if (status != status::kOk) return status;
  return IsWhole(dataset, matrix_) ? status::kOk : status::dio::kIncompleteDataset;
}

int DioData::GetDataBody(Dataset* dataset, int body_length) {
  std::int64_t sum = 0;
  while (sum < body_length) {
    int item_size = 0;
    const int status = GetNextDataItem(dataset, item_size);
    if (status != status::kOk) return status;
    sum += item_size;
  }
  return sum == body_length ? status::kOk : status::dio::kReadError;
}

int DioData::GetNextDataItem(Dataset* dataset, int& item_size) {
  const std::int64_t start = file_.GetPosition();
  ItemHeader header;
  file_.GetItemHeader(header);
  ItemName name;
  short component;
  const bool is_known = Finder::Lookup(header.name, name, component);
  if (!is_known || component != -1) {
    const int status = is_known ? status::dio::kAreaSpecification : status::dio::kUnknownItemName;
    throw new DioDataError(status, kDataItem, Trimmed(header.name));
  }
  item_size = header.size;
  const DatasetItem* item = FindDatasetItem(name);
  if (item == nullptr || item->write == nullptr) surroundings_.items.push_back({start, item_size});
  return GetDataItem(name, dataset, header);
}

int DioData::GetDataItem(ItemName name, Dataset* dataset, const ItemHeader& header) {
  const DatasetItem* item = FindDatasetItem(name);
  const std::int64_t end = file_.GetPosition() + header.PayloadSize();
  buffer_.clear();
  if (item == nullptr || !item->is_read_from_stream) {
    if (header.PayloadSize() > kLargestPayload) return status::dio::kMemory;
    buffer_.resize(static_cast<std::size_t>(header.PayloadSize()));
    const int status = file_.GetNBytes(buffer_.data(), static_cast<int>(buffer_.size()));
    if (status != status::kOk) return status;
  }
  if (item == nullptr) return status::kOk;
  const int status = item->read({.file = file_,
                                 .header = header,
                                 .payload = buffer_,
                                 .dataset = *dataset,
                                 .matrix = matrix_,
                                 .passes_values = passes_values_,
                                 .progress = *this});
  if (status != status::kOk) return status;
  // What is read from the stream may not go on into what follows the item.
  return file_.GetPosition() <= end ? status::kOk : status::dio::kReadError;
}

}  // namespace zemva
