#include "zemva/dio/dio_data.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "zemva/data/dangerous_data_set_manipulator.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dio_guard.h"
#include "zemva/dio/finder.h"
#include "zemva/errors/dio_error.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

constexpr std::int64_t kLargestPayload = 65534;
constexpr short kUsualKind = 1;
constexpr short kKindOfTable900 = 2;

// The items whose payload is read straight from the stream.
bool IsReadFromStream(ItemName name) {
  return name == item::kDataset || name == item::kObsInfo || name == item::kVarInfo;
}

// A count that the file has not given.
constexpr short kNoCount = -1;

// Whether the file gave both counts.
bool HasCounts(const Dataset& dataset) {
  return DangerousDataSetManipulator::GetNObsDS(&dataset) != kNoCount &&
         DangerousDataSetManipulator::GetNVarDS(&dataset) != kNoCount;
}

// Whether the data set has a matrix that is large enough for its counts.
bool HasValues(const Dataset& dataset) {
  const XFMatrix* matrix = DangerousDataSetManipulator::GetDM(&dataset);
  return matrix != nullptr && DangerousDataSetManipulator::GetNObsDS(&dataset) <= matrix->NRow() &&
         DangerousDataSetManipulator::GetNVarDS(&dataset) <= matrix->NCol();
}

// What a load that fails leaves as it was.
class HeaderGuard {
 public:
  explicit HeaderGuard(Dataset& dataset)
      : dataset_(dataset),
        name_(dataset.GetDSNam()),
        title_(dataset.GetDSTitle()),
        number_(dataset.GetDSNum()),
        kind_(dataset.GetKind()),
        observations_(DangerousDataSetManipulator::GetNObsDS(&dataset)),
        variables_(DangerousDataSetManipulator::GetNVarDS(&dataset)) {}

  // What the file does not say must not be left over from before.
  void Clear() {
    dataset_.Unload();
    dataset_.SetKind(kUsualKind);
    DangerousDataSetManipulator::SetNObsDS(&dataset_, kNoCount);
    DangerousDataSetManipulator::SetNVarDS(&dataset_, kNoCount);
  }

  void Restore() {
    dataset_.Unload();
    dataset_.SetDSNam(name_.Get());
    dataset_.SetDSTitle(title_.Get());
    dataset_.SetDSNum(number_);
    dataset_.SetKind(kind_);
    DangerousDataSetManipulator::SetNObsDS(&dataset_, observations_);
    DangerousDataSetManipulator::SetNVarDS(&dataset_, variables_);
  }

 private:
  Dataset& dataset_;
  FixedText<24> name_;
  FixedText<60> title_;
  short number_;
  short kind_;
  short observations_;
  short variables_;
};

}  // namespace

DioData::DioData(const char* path, const char* name, StreamWindow& window)
    : file_(path, window), window_(window) {
  SetName(name);
}

DioData::~DioData() = default;

void DioData::ProgressTick(int) {}
void DioData::ProgressCount(int) {}

int DioData::Load(Dataset* dataset) {
  header_only_ = false;
  return Guarded(file_, &window_, [&] {
    const int status = LoadItems(dataset);
    if (status == status::kOk) DangerousDataSetManipulator::SetIsLoaded(dataset, true);
    return status;
  });
}

int DioData::LoadListProject(Dataset* dataset) {
  header_only_ = true;
  return Guarded(file_, &window_, [&] { return LoadItems(dataset); });
}

void DioData::ReadVersion() {
  file_.OpenSuperItemFile();
  SuperHeader super_header;
  file_.GetSuperHeader(super_header);
  file_.CloseSuperItemFile();
  version_ = super_header.version;
  if (!CanRead(version_)) {
    throw new DioDataError(status::dio::kFileVersion, kLoadingData,
                           "Error: It is not an version that we have made.");
  }
}

int DioData::LoadItems(Dataset* dataset) {
  if (dataset == nullptr) {
    throw new DioDataError(status::kOk, kLoadingData, "Error: datset is NULL:");
  }
  ReadVersion();
  file_.OpenSuperItemFile();
  const char* sub_name = name_.IsEmpty() ? nullptr : name_.Get();
  if (const int status = Finder::FindSuperItem(file_, sub_name, SuperItem::kData);
      status != status::kOk) {
    throw new DioDataError(status, kLoadingData, "Error: in FindSuperItem");
  }
  SuperItem super_item;
  if (const int status = file_.GetSuperItemHeader(super_item); status != status::kOk) {
    throw new DioDataError(status, kLoadingData, "Error: in GetSuperItemHeader");
  }
  HeaderGuard header(*dataset);
  header.Clear();
  try {
    int status =
        GetDataBody(dataset, super_item.header.size - static_cast<int>(ItemHeader::kFixedSize));
    const bool is_whole = HasCounts(*dataset) && (header_only_ || HasValues(*dataset));
    if (status == status::kOk && !is_whole) status = status::dio::kIncompleteDataset;
    if (status != status::kOk) header.Restore();
    title_.Set(dataset->GetDSTitle());
    buffer_ = {};
    return status;
  } catch (...) {
    header.Restore();
    throw;
  }
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
  return GetDataItem(name, dataset, header);
}

int DioData::GetDataItem(ItemName name, Dataset* dataset, const ItemHeader& header) {
  if (header_only_ && IsReadFromStream(name)) {
    return file_.Seek(file_.GetPosition() + header.PayloadSize());
  }
  DioItem item(file_);
  if (name == item::kDataset) return ReadMatrix(dataset, header);
  if (name == item::kObsInfo) {
    std::unique_ptr<ObsInfo> table;
    const int status = item.GetObsInfo(table);
    if (status == status::kOk) DangerousDataSetManipulator::SetOI(dataset, table.release());
    return status;
  }
  if (name == item::kVarInfo) {
    if (header.dims.empty()) return status::dio::kReadError;
    std::unique_ptr<VarInfo> table;
    const int status = item.GetVariableInfo(header.dims[0], table);
    if (status == status::kOk) DangerousDataSetManipulator::SetVI(dataset, table.release());
    return status;
  }
  if (header.PayloadSize() > kLargestPayload) return status::dio::kMemory;
  buffer_.resize(static_cast<std::size_t>(header.PayloadSize()));
  const int status = file_.GetNBytes(buffer_.data(), static_cast<int>(buffer_.size()));
  return status == status::kOk ? ApplyPayload(name, dataset) : status;
}

int DioData::ReadMatrix(Dataset* dataset, const ItemHeader& header) {
  if (header.dims.size() < 2) return status::dio::kReadError;
  XFMatrix* matrix = nullptr;
  const int status = file_.GetMXF4(matrix, header.dims[0], header.dims[1]);
  if (status != status::kOk) return status;
  DangerousDataSetManipulator::SetDM(dataset, matrix);
  for (int i = 1; i <= matrix->NRow(); ++i) ProgressTick(i);
  return status::kOk;
}

// Takes over what the payload in the buffer says; one of an item that a data set has no use for is
// let go.
int DioData::ApplyPayload(ItemName name, Dataset* dataset) {
  if (name == item::kDSName || name == item::kTitle) {
    const auto end = std::ranges::find(buffer_, '\0');
    const std::string text(buffer_.begin(), end);
    name == item::kDSName ? dataset->SetDSNam(text.c_str()) : dataset->SetDSTitle(text.c_str());
    return status::kOk;
  }
  if (name == item::kTable900 || name == item::kIndex900) {
    dataset->SetKind(kKindOfTable900);
    return status::kOk;
  }
  if (name != item::kDSNum && name != item::kNObs && name != item::kNVar) return status::kOk;

  if (buffer_.size() < sizeof(std::int16_t)) return status::dio::kReadError;
  const std::int16_t number = DecodeI2(std::span(buffer_).first<2>());
  if (name == item::kDSNum) {
    if (dataset->GetDSNum() == 0) dataset->SetDSNum(number);
    return status::kOk;
  }
  if (number < 0) return status::dio::kReadError;
  if (name == item::kNVar) {
    DangerousDataSetManipulator::SetNVarDS(dataset, number);
  } else {
    DangerousDataSetManipulator::SetNObsDS(dataset, number);
    ProgressCount(number);
  }
  return status::kOk;
}

}  // namespace zemva
