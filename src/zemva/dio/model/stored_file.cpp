#include "zemva/dio/model/stored_file.h"

#include <filesystem>
#include <limits>
#include <system_error>

#include "zemva/base/native_path.h"
#include "zemva/dio/dataset/dio_data.h"
#include "zemva/dio/file/dio_guard.h"
#include "zemva/errors/dio_error.h"

namespace zemva {
namespace {

constexpr std::int64_t kLargestFile = std::numeric_limits<std::int32_t>::max();
// Items have two dimensions at the most, a super item has one.
constexpr int kLargestHeader = ItemHeader::kFixedSize + 2 * sizeof(std::int16_t);
constexpr int kSuperItemHeader = ItemHeader::kFixedSize + sizeof(std::int16_t);

void Require(int status, const char* text) {
  if (status != status::kOk) throw new DioModelError(status, kLoadingData, text);
}

int StatusOfVersion(bool is_known) {
  return is_known ? status::kOk : status::dio::kFileVersion;
}

constexpr char kForeignVersion[] = "Error: It is not an version that we have made.";

}  // namespace

void StoredFile::Open(SuperItem& super_item) {
  file_.OpenSuperItemFile();
  SuperHeader super_header;
  file_.GetSuperHeader(super_header);
  Require(StatusOfVersion(DioData::CanRead(super_header.version)), kForeignVersion);
  Require(file_.Seek(0), "Error: in FindSuperItem");
  Require(Finder::FindSuperItem(file_, nullptr, type_), "Error: in FindSuperItem");
  Require(file_.GetSuperItemHeader(super_item), "Error: in GetSuperItemHeader");
  const std::vector<std::int16_t>& extents = super_item.header.dims;
  const bool is_known = extents.size() == 1 && extents[0] >= 1 && extents[0] <= version_;
  Require(StatusOfVersion(is_known), kForeignVersion);
}

void StoredFile::GetItem(Item& item) {
  file_.GetItemHeader(item.header);
  item.is_known = Finder::Lookup(item.header.name, item.name, item.component);
}

int StoredFile::PassOver(const Item& item) {
  return file_.Seek(file_.GetPosition() + item.header.PayloadSize());
}

int StoredFile::GetPayload(const Item& item) {
  buffer_.resize(static_cast<std::size_t>(item.header.PayloadSize()));
  return file_.GetNBytes(buffer_.data(), static_cast<int>(buffer_.size()));
}

int StoredFile::CheckTarget() {
  std::error_code error;
  const auto size = std::filesystem::file_size(NativePath(file_.GetPath()), error);
  if (error || size == 0) return status::kOk;
  return Guarded(file_, nullptr, [&] {
    SuperItem super_item;
    Open(super_item);
    const bool has_more = file_.GetRemaining() > super_item.header.PayloadSize();
    return has_more ? status::dio::kAreaSpecification : status::kOk;
  });
}

int StoredFile::Write(std::string_view name, const std::function<int(const Sink&)>& walk) {
  const std::int16_t version = version_;
  int status = file_.NewSuperItemFile(type_, name, std::span(&version, 1));
  if (status != status::kOk) return status;
  std::int64_t size = SuperHeader::kSize + kSuperItemHeader;
  status = walk([&](const ItemHeader& header, std::span<const char> payload) {
    size += header.size;
    if (size > kLargestFile) return status::dio::kDimension;
    const int written = file_.WriteItemHeader(header);
    return written == status::kOk
               ? file_.WriteBlock(payload.data(), static_cast<int>(payload.size()))
               : written;
  });
  const auto file_size = static_cast<int>(size);
  const int super_item_size = file_size - static_cast<int>(SuperHeader::kSize);
  if (status == status::kOk) status = file_.WriteSuperItemSize(super_item_size);
  if (status == status::kOk) status = file_.WriteSuperSize(file_size);
  return status == status::kOk ? file_.CommitSuperItemFile() : status;
}

int MakeHeader(ItemName name, int component, const char* tag, const PayloadWriter& payload,
               ItemHeader& header) {
  const std::int64_t payload_size = std::ssize(payload.GetBytes());
  if (payload_size > kLargestFile - kLargestHeader) return status::dio::kDimension;
  std::string text = Finder::Search(name);
  if (component != kNoComponent) text += std::to_string(component);
  auto size = static_cast<int>(payload_size);
  const std::span<const std::int16_t> extents = payload.GetExtents();
  header.Set(size, text, tag, static_cast<int>(extents.size()), extents.data());
  return status::kOk;
}

}  // namespace zemva
