#include "base/atomic_file.h"

#include <system_error>
#include <utility>

#include "base/native_path.h"

#if defined(_WIN32)
#include <io.h>
#include <process.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace zemva {
namespace {

namespace fs = std::filesystem;

#if defined(_WIN32)
int ProcessNumber() {
  return _getpid();
}
bool FlushToDisk(std::FILE* stream) {
  return _commit(_fileno(stream)) == 0;
}

bool MoveOver(const fs::path& from, const fs::path& to) {
  return MoveFileExW(from.c_str(), to.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}
#else
int ProcessNumber() {
  return static_cast<int>(getpid());
}
bool FlushToDisk(std::FILE* stream) {
  return fsync(fileno(stream)) == 0;
}

// A rename is on the disk only when the folder that holds the name is.
bool MoveOver(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::rename(from, to, error);
  if (error) return false;
  const fs::path folder = to.has_parent_path() ? to.parent_path() : fs::path(".");
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor >= 0) {
    fsync(descriptor);
    close(descriptor);
  }
  return true;
}
#endif

// The file that `path` stands for: a link is followed, so that what it points to is replaced and
// the link stays.
fs::path ResolveLinks(const fs::path& path) {
  std::error_code error;
  fs::path resolved = fs::weakly_canonical(path, error);
  return error ? path : resolved;
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path)
    : target_(ResolveLinks(NativePath(path))), beside_(target_) {
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  if (!fs::exists(status) || fs::is_regular_file(status)) {
    beside_ += ".saving-" + std::to_string(ProcessNumber());
  }
  stream_ = OpenFile(beside_, "wb");
}

AtomicFile::~AtomicFile() {
  if (stream_ == nullptr) return;
  std::fclose(stream_);
  std::error_code error;
  if (beside_ != target_) fs::remove(beside_, error);
}

bool AtomicFile::Commit() {
  if (stream_ == nullptr) return false;
  const bool written = Flush();
  const bool closed = std::fclose(std::exchange(stream_, nullptr)) == 0;
  if (beside_ == target_) return written && closed;
  if (written && closed && Replace()) return true;
  std::error_code error;
  fs::remove(beside_, error);
  return false;
}

bool AtomicFile::Flush() {
  if (std::ferror(stream_) != 0 || std::fflush(stream_) != 0) return false;
  return beside_ == target_ || FlushToDisk(stream_);
}

bool AtomicFile::Replace() {
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  if (!error && fs::exists(status)) fs::permissions(beside_, status.permissions(), error);
  return MoveOver(beside_, target_);
}

}  // namespace zemva
