#include <algorithm>
#include <cstring>
#include <filesystem>
#include <limits>
#include <vector>

#include "zemva/base/atomic_file.h"
#include "zemva/base/native_path.h"
#include "zemva/base/time_stamp.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dataset/dataset_items.h"
#include "zemva/dio/dataset/dio_data.h"
#include "zemva/dio/file/dio_guard.h"

namespace zemva {
namespace {

constexpr std::int64_t kLargestFile = std::numeric_limits<std::int32_t>::max();

bool NamesFit(const ItmInfo* table) {
  if (table == nullptr) return true;
  for (int i = 1; i <= table->GetNItm(); ++i) {
    if (std::strlen(table->GetINam(static_cast<short>(i))) > kLongestStoredName) return false;
  }
  return true;
}

std::int64_t BodySize(Dataset& dataset) {
  std::int64_t size = 0;
  for (const DatasetItem& item : DatasetItems()) {
    if (item.write != nullptr) size += item.size(dataset);
  }
  return size;
}

// What cannot be written beside `kept` bytes of an old file.
int Refusal(Dataset& dataset, std::int64_t kept) {
  if (dataset.GetDMPtr() == nullptr) return status::dio::kIncompleteDataset;
  if (!NamesFit(dataset.GetOIPtr()) || !NamesFit(dataset.GetVIPtr())) {
    return status::dio::kConversion;
  }
  const std::int64_t headers = SuperHeader::kSize + ItemHeader::kFixedSize;
  return headers + BodySize(dataset) + kept > kLargestFile ? status::dio::kDimension : status::kOk;
}

// Records the size of the written file in its super header.
int RecordSize(DioFile& written) {
  return written.WriteSuperSize(static_cast<int>(written.GetPosition()));
}

// Ends the file that was copied from the old one and puts it in its place.
int FinishCopy(DioFile& old, DioFile& written) {
  int status = RecordSize(written);
  if (status == status::kOk) status = written.WriteTime(Padded<22>(TimeStamp().View()).data());
  old.CloseSuperItemFile();  // a file that is open cannot be replaced on every system
  return status == status::kOk ? written.CommitSuperItemFile() : status;
}

}  // namespace

std::int64_t DioData::Surroundings::KeptSize() const {
  std::int64_t size = rest.size;
  for (const Span& span : items) size += span.size;
  return size;
}

// Reads the file, which stays open, for what surrounds its data set.
int DioData::FindSurroundings() {
  Dataset ignored("", "", window_);
  if (const int status = ReadItems(ignored, true); status != status::kOk) return status;
  const std::int64_t start = SuperHeader::kSize;
  const std::int64_t end = start + surroundings_.super_item.header.size;
  if (const int status = file_.Seek(end); status != status::kOk) return status;
  surroundings_.rest = {end, file_.GetRemaining()};
  return status::kOk;
}

int DioData::Copy(DioFile& from, DioFile& to, const Span& span) {
  std::vector<char> block(std::size_t{1} << 16);
  int status = from.Seek(span.offset);
  for (std::int64_t left = span.size; left > 0 && status == status::kOk;) {
    const int count = static_cast<int>(std::min<std::int64_t>(left, std::ssize(block)));
    status = from.GetNBytes(block.data(), count);
    if (status == status::kOk) status = to.WriteBlock(block.data(), count);
    left -= count;
  }
  return status;
}

int DioData::Save(Dataset& dataset) {
  std::error_code error;
  const auto size = std::filesystem::file_size(NativePath(file_.GetPath()), error);
  return error || size == 0 ? CreateDioFile(dataset) : Replace(dataset);
}

int DioData::CreateDioFile(Dataset& dataset) {
  return Guarded(file_, nullptr, [&] {
    int status = Refusal(dataset, 0);
    if (status == status::kOk) {
      status = file_.NewSuperItemFile(SuperItem::kData, dataset.GetDSNam());
    }
    if (status != status::kOk) return status;
    int super_item_size = ItemHeader::kFixedSize;
    WriteDataset(dataset, super_item_size);
    status = file_.WriteSuperItemSize(super_item_size);
    if (status == status::kOk) status = RecordSize(file_);
    return status == status::kOk ? file_.CommitSuperItemFile() : status;
  });
}

int DioData::Replace(Dataset& dataset) {
  DioData old(file_.GetPath(), name_.Get(), window_);
  return Guarded(file_, nullptr, [&] {
    const Surroundings& kept = old.surroundings_;
    int status = old.FindSurroundings();
    if (status == status::kOk) status = Refusal(dataset, kept.KeptSize());
    if (status == status::kOk) status = file_.NewFile();
    if (status == status::kOk) status = file_.WriteSuperHeader(kept.super_header);
    if (status == status::kOk) status = file_.WriteSuperItemHeader(kept.super_item);
    if (status != status::kOk) return status;
    int super_item_size = ItemHeader::kFixedSize;
    WriteDataset(dataset, super_item_size);
    for (const Span& span : kept.items) {
      if (status = Copy(old.file_, file_, span); status != status::kOk) return status;
      super_item_size += static_cast<int>(span.size);
    }
    status = Copy(old.file_, file_, kept.rest);
    if (status == status::kOk) status = file_.WriteSuperItemSize(super_item_size);
    return status == status::kOk ? FinishCopy(old.file_, file_) : status;
  });
}

int DioData::Delete() {
  DioData old(file_.GetPath(), name_.Get(), window_);
  return Guarded(file_, nullptr, [&] {
    const Surroundings& kept = old.surroundings_;
    if (const int status = old.FindSurroundings(); status != status::kOk) return status;
    if (kept.rest.size == 0) {
      old.file_.CloseSuperItemFile();
      return AtomicFile::Remove(file_.GetPath()) ? status::kOk : status::dio::kOther;
    }
    SuperHeader super_header = kept.super_header;
    --super_header.nitm;
    int status = file_.NewFile();
    if (status == status::kOk) status = file_.WriteSuperHeader(super_header);
    if (status == status::kOk) status = Copy(old.file_, file_, kept.rest);
    return status == status::kOk ? FinishCopy(old.file_, file_) : status;
  });
}

}  // namespace zemva
