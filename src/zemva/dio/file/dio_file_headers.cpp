#include <algorithm>
#include <array>
#include <cstring>
#include <span>

#include "zemva/dio/file/dio_file.h"
#include "zemva/dio/file/finder.h"
#include "zemva/errors/dio_error.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

constexpr long kSuperItemOffset = SuperHeader::kSize;

[[noreturn]] void RaiseReadError(const char* field) {
  throw new DioFileError(status::dio::kReadError, kFileAccess, field);
}

}  // namespace

int DioFile::GetSuperHeader(SuperHeader& header) {
  std::array<char, SuperHeader::kSize> bytes;
  const std::size_t got =
      stream_ == nullptr ? 0 : std::fread(bytes.data(), 1, bytes.size(), stream_);
  for (const HeaderField& field : kSuperHeaderFields) {
    if (got < field.end) RaiseReadError(field.name);
  }
  header = DecodeSuperHeader(bytes);
  return status::kOk;
}

int DioFile::WriteSuperHeader(const SuperHeader& header) {
  const auto bytes = EncodeSuperHeader(header);
  return WriteBlock(bytes.data(), static_cast<int>(bytes.size()));
}

int DioFile::GetItemHeader(ItemHeader& header) {
  std::array<char, ItemHeader::kFixedSize> bytes;
  if (!Read(bytes.data(), bytes.size())) RaiseReadError("");
  auto [decoded, ndims] = DecodeItemHeader(bytes);
  if (ndims < 0 || !Promises(ndims, sizeof(std::int16_t))) RaiseReadError("");
  decoded.dims.resize(static_cast<std::size_t>(ndims));
  if (!Read(decoded.dims.data(), sizeof(std::int16_t) * decoded.dims.size())) RaiseReadError("");
  if (!Promises(decoded.PayloadSize(), 1)) RaiseReadError("");
  header = std::move(decoded);
  return status::kOk;
}

int DioFile::WriteItemHeader(const ItemHeader& header) {
  const std::vector<char> bytes = EncodeItemHeader(header);
  return WriteBlock(bytes.data(), static_cast<int>(bytes.size()));
}

int DioFile::GetSuperItemHeader(SuperItem& item) {
  const int status = GetItemHeader(item.header);
  item.type = SuperItem::GetSuperItemType(item.header.type);
  return status;
}

int DioFile::WriteSuperItemHeader(const SuperItem& item) {
  return WriteItemHeader(item.header);
}

int DioFile::CopySuperItemHeader(DioFile& source) {
  SuperItem item;
  const int status = source.GetSuperItemHeader(item);
  return status == status::kOk ? WriteSuperItemHeader(item) : status;
}

int DioFile::GetNextSuperItemName(SuperItem& item) {
  std::array<char, 4 + std::tuple_size_v<NameField>> bytes;
  const int status = GetItem(static_cast<long>(GetPosition()), bytes.data(), bytes.size());
  if (status != status::kOk) return status;
  item.header.size = DecodeI4(std::span(bytes).first<4>());
  std::ranges::copy(std::span(bytes).subspan<4>(), item.header.name.begin());
  return status::kOk;
}

int DioFile::GetNextSuperItemType(SuperItem& item) {
  if (const int status = GetNextSuperItemName(item); status != status::kOk) return status;
  constexpr long kTagOffset = 24;
  const int status = GetItem(static_cast<long>(GetPosition()) + kTagOffset, item.header.type.data(),
                             static_cast<int>(item.header.type.size()));
  item.type = SuperItem::GetSuperItemType(item.header.type);
  return status;
}

int DioFile::GetSuperSize(int& size) {
  std::array<char, 4> bytes;
  const int status = GetItem(SuperHeader::kSizeOffset, bytes.data(), bytes.size());
  if (status == status::kOk) size = DecodeI4(bytes);
  return status;
}

int DioFile::WriteSuperSize(int size) {
  const auto bytes = EncodeI4(size);
  return UpdateItem(SuperHeader::kSizeOffset, bytes.data(), bytes.size());
}

int DioFile::GetSuperItemSize(int& size) {
  std::array<char, 4> bytes;
  const int status = GetItem(kSuperItemOffset, bytes.data(), bytes.size());
  if (status == status::kOk) size = DecodeI4(bytes);
  return status;
}

int DioFile::WriteSuperItemSize(int size) {
  const auto bytes = EncodeI4(size);
  return UpdateItem(kSuperItemOffset, bytes.data(), bytes.size());
}

int DioFile::WriteNumberOfSuperItems(short count) {
  const auto bytes = EncodeI2(count);
  return UpdateItem(SuperHeader::kItemCountOffset, bytes.data(), bytes.size());
}

int DioFile::GetTime(char* time) {
  return GetItem(SuperHeader::kTimeOffset, time, sizeof SuperHeader::time);
}

int DioFile::WriteTime(const char* time) {
  return UpdateItem(SuperHeader::kTimeOffset, time, sizeof SuperHeader::time);
}

int DioFile::GetSuperItemDate(char* date) {
  PaddedText<22> time;
  const int status = GetTime(time.data());
  if (status != status::kOk) return status;
  const std::string_view text = Trimmed(time);
  const std::size_t length = text.substr(0, text.find(' ')).copy(date, text.size());
  date[length] = '\0';
  return status::kOk;
}

int DioFile::WriteComment(const char* text, int& size) {
  size = static_cast<int>(std::strlen(text)) + 1;
  return WriteTheItem(size, "Title", "sz61", 0, nullptr, text);
}

int DioFile::GetFileOfsetToItem(int& offset, ItemName name) {
  if (const int status = Seek(0); status != status::kOk) return status;
  SuperHeader super_header;
  GetSuperHeader(super_header);
  SuperItem super_item;
  GetSuperItemHeader(super_item);
  while (true) {
    const std::int64_t start = GetPosition();
    ItemHeader header;
    GetItemHeader(header);
    ItemName found;
    short component;
    if (!Finder::Lookup(header.name, found, component)) return status::dio::kItemNotAvailable;
    if (found == name) {
      offset = static_cast<int>(start);
      return Seek(start);
    }
    if (const int status = Seek(start + header.size); status != status::kOk) return status;
  }
}

int DioFile::WriteTheItem(int& size, std::string_view name, std::string_view type, int ndims,
                          const std::int16_t* dims, const void* data) {
  const int payload_size = size;
  ItemHeader header;
  header.Set(size, name, type, ndims, dims);
  if (const int status = WriteItemHeader(header); status != status::kOk) return status;
  return payload_size == 0 ? status::kOk : WriteBlock(data, payload_size);
}

}  // namespace zemva
