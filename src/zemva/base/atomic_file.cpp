#include "zemva/base/atomic_file.h"

#include <fcntl.h>

#include <system_error>
#include <utility>

#include "zemva/base/native_path.h"

#if defined(_WIN32)
#include <io.h>
#include <process.h>
#include <sys/stat.h>
#include <windows.h>
#else
#include <sys/stat.h>
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
bool IsWritable(const fs::path& path) {
  const int descriptor = _wopen(path.c_str(), _O_WRONLY | _O_BINARY);
  if (descriptor < 0) return false;
  _close(descriptor);
  return true;
}

// A new file that nobody else had; null when there is one of that name. Who may read it is what
// its folder says.
std::FILE* CreateFile(const fs::path& path, bool) {
  const int descriptor =
      _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
  return descriptor < 0 ? nullptr : _fdopen(descriptor, "wb");
}

bool MoveOver(const fs::path& from, const fs::path& to, const fs::path&) {
  return MoveFileExW(from.c_str(), to.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

// The owner of a new file is what its folder says.
bool GiveToOwnerOf(const fs::path&, const fs::path&) {
  return true;
}
bool CopyOver(const fs::path&, const fs::path&) {
  return false;
}
#else
int ProcessNumber() {
  return static_cast<int>(getpid());
}
bool FlushToDisk(std::FILE* stream) {
  return fsync(fileno(stream)) == 0;
}
bool IsWritable(const fs::path& path) {
  return access(path.c_str(), W_OK) == 0;
}

// A new file that nobody else had; null when there is one of that name, be it a link. A private
// one is readable by its owner alone.
std::FILE* CreateFile(const fs::path& path, bool is_private) {
  const mode_t mode = is_private ? 0600 : 0666;
  const int descriptor =
      open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
  return descriptor < 0 ? nullptr : fdopen(descriptor, "wb");
}

// A rename is on the disk only when the folder that holds the name is.
bool MoveOver(const fs::path& from, const fs::path& to, const fs::path& folder) {
  std::error_code error;
  fs::rename(from, to, error);
  if (error) return false;
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor >= 0) {
    fsync(descriptor);
    close(descriptor);
  }
  return true;
}

// False when this user may not give files to the owner and group of `old`.
bool GiveToOwnerOf(const fs::path& old, const fs::path& file) {
  struct stat status = {};
  return stat(old.c_str(), &status) == 0 && chown(file.c_str(), status.st_uid, status.st_gid) == 0;
}

// Replaces the bytes of a file, which stays whose it is. The disk has room for them before the
// first one is written.
bool CopyOver(const fs::path& from, const fs::path& to) {
  const int in = open(from.c_str(), O_RDONLY | O_CLOEXEC);
  const int out = open(to.c_str(), O_WRONLY | O_CLOEXEC);
  struct stat wanted = {};
  struct stat old = {};
  bool is_copied = fstat(in, &wanted) == 0 && fstat(out, &old) == 0;
  if (is_copied && wanted.st_size > 0 && posix_fallocate(out, 0, wanted.st_size) != 0) {
    is_copied = false;
    static_cast<void>(!ftruncate(out, old.st_size));
  }
  char block[1 << 16];
  for (ssize_t count = 1; is_copied && count > 0;) {
    count = read(in, block, sizeof block);
    is_copied = count >= 0 && write(out, block, static_cast<std::size_t>(count)) == count;
  }
  is_copied = is_copied && ftruncate(out, wanted.st_size) == 0 && fsync(out) == 0;
  if (in >= 0) close(in);
  if (out >= 0) close(out);
  return is_copied;
}
#endif

// The file that `path` stands for: links are followed, so that what they point to is replaced or
// made and they stay.
fs::path ResolveLinks(fs::path path) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  path = fs::absolute(path, error);
  for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i) {
    path = path.parent_path() / fs::read_symlink(path, error);
  }
  return path;
}

// Names of its own, short so that they fit wherever the target's does.
fs::path NameBeside(const fs::path& target, int attempt) {
  return target.parent_path() /
         (".saving-" + std::to_string(ProcessNumber()) + "-" + std::to_string(attempt));
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path)
    : target_(ResolveLinks(NativePath(path))), folder_(target_.parent_path()), beside_(target_) {
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  const bool is_there = fs::exists(status);
  if (is_there && !fs::is_regular_file(status)) {
    if (!fs::is_directory(status)) stream_ = OpenFile(target_, "wb");
    return;
  }
  if (is_there && !IsWritable(target_)) return;
  constexpr int kMostAttempts = 100;  // others may be left of processes that were killed
  for (int attempt = 1; attempt <= kMostAttempts && stream_ == nullptr; ++attempt) {
    beside_ = NameBeside(target_, attempt);
    stream_ = CreateFile(beside_, is_there);
  }
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
  if (!error && fs::exists(status)) {
    if (!GiveToOwnerOf(target_, beside_)) {
      const bool is_copied = CopyOver(beside_, target_);
      fs::remove(beside_, error);
      return is_copied;
    }
    fs::permissions(beside_, status.permissions(), error);
  }
  return MoveOver(beside_, target_, folder_);
}

}  // namespace zemva
