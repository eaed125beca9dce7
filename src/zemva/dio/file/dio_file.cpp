#include "zemva/dio/file/dio_file.h"

#include <cstring>
#include <filesystem>
#include <limits>

#include "zemva/base/atomic_file.h"
#include "zemva/base/native_path.h"
#include "zemva/base/time_stamp.h"
#include "zemva/errors/dio_error.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;

[[noreturn]] void RaiseOpenError(const char* text) {
  throw new DioFileError(status::dio::kOpenError, kFileAccess, text);
}

}  // namespace

DioFile::DioFile(const char* path, StreamWindow& window) : window_(window) {
  SetPath(path);
}

DioFile::~DioFile() {
  CloseSuperItemFile();
}

int DioFile::SetPath(const char* path) {
  if (is_open_) return status::dio::kPathChangeWhileOpen;
  // A path that was cut would name another file.
  const bool fits = path != nullptr && std::strlen(path) <= decltype(path_)::kCapacity;
  path_.Set(fits ? path : nullptr);
  return status::kOk;
}

std::FILE* DioFile::OpenSuperItemFile() {
  if (is_open_) return stream_;
  if (path_.IsEmpty()) RaiseOpenError("No file address.");
  const std::filesystem::path path = NativePath(path_.Get());
  std::error_code error;
  if (!std::filesystem::exists(path, error)) RaiseOpenError("file does not exist.");
  buffer_ = std::make_unique_for_overwrite<char[]>(kBufferSize);
  // A folder can be opened on some systems, and opening a pipe waits for its other end.
  stream_ = std::filesystem::is_regular_file(path, error) ? OpenFile(path, "rb") : nullptr;
  if (stream_ == nullptr) RaiseOpenError("file could not be opened.");
  std::setvbuf(stream_, buffer_.get(), _IOFBF, kBufferSize);
  is_open_ = true;
  unbacked_rows_ = 0;
  if (std::fseek(stream_, 0, SEEK_END) == 0) length_ = GetPosition();
  Seek(0);
  return stream_;
}

void DioFile::CloseSuperItemFile() {
  if (!is_open_) return;
  if (written_) {
    written_.reset();
  } else {
    std::fclose(stream_);
  }
  stream_ = nullptr;
  buffer_.reset();
  is_open_ = false;
  length_ = 0;
}

int DioFile::NewFile() {
  if (is_open_) return status::dio::kPathChangeWhileOpen;
  if (path_.IsEmpty()) return status::dio::kFileNameMissing;
  buffer_ = std::make_unique_for_overwrite<char[]>(kBufferSize);
  written_ = std::make_unique<AtomicFile>(path_.Get());
  stream_ = written_->GetStream();
  if (stream_ == nullptr) {
    written_.reset();
    return status::dio::kCreationError;
  }
  std::setvbuf(stream_, buffer_.get(), _IOFBF, kBufferSize);
  is_open_ = true;
  return status::kOk;
}

int DioFile::NewSuperItemFile(SuperItem::Type type, std::string_view name,
                              std::span<const std::int16_t> extents) {
  if (const int status = NewFile(); status != status::kOk) return status;
  SuperHeader super_header;
  super_header.version = 2;
  super_header.name = Padded<20>("Project");
  super_header.comment = Padded<60>("");
  super_header.time = Padded<22>(TimeStamp().View());
  super_header.nitm = 1;
  if (const int status = WriteSuperHeader(super_header); status != status::kOk) return status;
  SuperItem item;
  int size = 0;
  item.header.Set(size, name, SuperItem::GetString(type), static_cast<int>(extents.size()),
                  extents.data());
  return WriteSuperItemHeader(item);
}

int DioFile::CommitSuperItemFile() {
  if (!written_) return status::dio::kWriteError;
  const bool committed = written_->Commit();
  CloseSuperItemFile();
  return committed ? status::kOk : status::dio::kWriteError;
}

std::int64_t DioFile::GetPosition() const {
  return stream_ == nullptr ? -1 : std::ftell(stream_);
}

std::int64_t DioFile::GetRemaining() const {
  return length_ - GetPosition();
}

int DioFile::Seek(std::int64_t offset) {
  if (stream_ == nullptr || offset < 0 || offset > std::numeric_limits<long>::max() ||
      std::fseek(stream_, static_cast<long>(offset), SEEK_SET) != 0) {
    return status::dio::kReadError;
  }
  return status::kOk;
}

int DioFile::GetItem(long offset, void* buffer, int length) {
  const std::int64_t position = GetPosition();
  int status = Seek(offset);
  if (status == status::kOk) status = GetNBytes(buffer, length);
  Seek(position);
  return status;
}

int DioFile::UpdateItem(long offset, const void* buffer, int length) {
  const std::int64_t position = GetPosition();
  int status = Seek(offset) == status::kOk ? WriteBlock(buffer, length) : status::dio::kWriteError;
  Seek(position);
  return status;
}

}  // namespace zemva
