#include <algorithm>
#include <cstring>
#include <filesystem>
#include <limits>
#include <vector>

#include "zemva/base/native_path.h"
#include "zemva/base/time_stamp.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dio_data.h"
#include "zemva/dio/dio_guard.h"
#include "zemva/dio/finder.h"

namespace zemva {
namespace {

constexpr std::int64_t kLargestFile = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t kLongestName = DioFile::kMaxText - 1;
constexpr std::size_t kLongestTitle = decltype(ObjectHeader::title)::kCapacity;

// A run of bytes of the old file that the new one takes over.
struct Span {
  std::int64_t offset;
  std::int64_t size;
};

bool IsWrittenByDataset(ItemName name) {
  for (const ItemName written : {item::kDSName, item::kDSNum, item::kTitle, item::kNObs,
                                 item::kObsInfo, item::kNVar, item::kVarInfo, item::kDataset}) {
    if (name == written) return true;
  }
  return false;
}

bool NamesFit(const ItmInfo* table) {
  if (table == nullptr) return true;
  for (int i = 1; i <= table->GetNItm(); ++i) {
    if (std::strlen(table->GetINam(static_cast<short>(i))) > kLongestName) return false;
  }
  return true;
}

std::int64_t BodySize(Dataset& dataset) {
  constexpr std::int64_t kScalar = ItemHeader::kFixedSize;
  const XFMatrix& matrix = *dataset.GetDMPtr();
  const auto text_size = [](const char* text, std::size_t longest) {
    return static_cast<std::int64_t>(std::min(std::strlen(text), longest)) + 1;
  };
  std::int64_t size = 3 * (kScalar + static_cast<std::int64_t>(sizeof(short)));
  size += kScalar + text_size(dataset.GetDSNam(), kLongestName);
  size += kScalar + text_size(dataset.GetDSTitle(), kLongestTitle);
  if (dataset.GetOIPtr() != nullptr) size += DioItem::ObsInfoSize(*dataset.GetOIPtr());
  if (dataset.GetVIPtr() != nullptr) size += DioItem::VariableInfoSize(*dataset.GetVIPtr());
  size += kScalar + 2 * static_cast<std::int64_t>(sizeof(short)) +
          text_size(matrix.GetName(), kLongestName) +
          std::int64_t{matrix.NRow()} * matrix.NCol() * static_cast<std::int64_t>(sizeof(float));
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

int Copy(DioFile& from, DioFile& to, const Span& span) {
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

// The old file around its data set, which is its first super item.
struct Surroundings {
  SuperHeader super_header;
  SuperItem super_item;
  std::vector<Span> ignored_items;  // of the data set
  Span rest;                        // all behind the data set

  std::int64_t KeptSize() const {
    std::int64_t size = rest.size;
    for (const Span& span : ignored_items) size += span.size;
    return size;
  }
};

// Opens the file and finds them. Raises DioFileError for a body whose items do not meet its end.
int OpenSurroundings(DioFile& file, Surroundings& found) {
  file.OpenSuperItemFile();
  file.GetSuperHeader(found.super_header);
  if (!DioData::CanRead(found.super_header.version)) return status::dio::kFileVersion;
  file.Seek(0);
  if (const int status = Finder::FindSuperItem(file, nullptr, SuperItem::kData);
      status != status::kOk) {
    return status;
  }
  const std::int64_t start = file.GetPosition();
  file.GetSuperItemHeader(found.super_item);
  const std::int64_t end = start + found.super_item.header.size;
  std::int64_t position = file.GetPosition();
  while (position < end) {
    ItemHeader header;
    file.GetItemHeader(header);
    ItemName name;
    short component;
    if (!Finder::Lookup(header.name, name, component)) return status::dio::kUnknownItemName;
    if (!IsWrittenByDataset(name)) found.ignored_items.push_back({position, header.size});
    position += header.size;
    if (const int status = file.Seek(position); status != status::kOk) return status;
  }
  if (position != end) return status::dio::kReadError;
  found.rest = {end, file.GetRemaining()};
  return status::kOk;
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
  DioFile old_file(file_.GetPath(), window_);
  return Guarded(file_, nullptr, [&] {
    Surroundings old;
    int status = OpenSurroundings(old_file, old);
    if (status == status::kOk) status = Refusal(dataset, old.KeptSize());
    if (status == status::kOk) status = file_.NewFile();
    if (status == status::kOk) status = file_.WriteSuperHeader(old.super_header);
    if (status == status::kOk) status = file_.WriteSuperItemHeader(old.super_item);
    if (status != status::kOk) return status;
    int super_item_size = static_cast<int>(old.super_item.header.HeaderSize());
    WriteDataset(dataset, super_item_size);
    for (const Span& span : old.ignored_items) {
      if (status = Copy(old_file, file_, span); status != status::kOk) return status;
      super_item_size += static_cast<int>(span.size);
    }
    status = Copy(old_file, file_, old.rest);
    if (status == status::kOk) status = file_.WriteSuperItemSize(super_item_size);
    return status == status::kOk ? FinishCopy(old_file, file_) : status;
  });
}

int DioData::Delete() {
  DioFile old_file(file_.GetPath(), window_);
  return Guarded(file_, nullptr, [&] {
    Surroundings old;
    if (const int status = OpenSurroundings(old_file, old); status != status::kOk) return status;
    if (old.rest.size == 0) {
      old_file.CloseSuperItemFile();
      std::error_code error;
      return std::filesystem::remove(NativePath(file_.GetPath()), error) ? status::kOk
                                                                         : status::dio::kOther;
    }
    --old.super_header.nitm;
    int status = file_.NewFile();
    if (status == status::kOk) status = file_.WriteSuperHeader(old.super_header);
    if (status == status::kOk) status = Copy(old_file, file_, old.rest);
    return status == status::kOk ? FinishCopy(old_file, file_) : status;
  });
}

}  // namespace zemva
