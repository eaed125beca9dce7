#include "zemva/base/atomic_file.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "zemva/base/native_path.h"

#if defined(_WIN32)
#include <io.h>
#include <process.h>
#include <sys/stat.h>
#include <windows.h>
#else
#include <dirent.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace zemva {
namespace {

namespace fs = std::filesystem;

using NativeName = std::basic_string_view<fs::path::value_type>;

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

bool IsAlive(int process) {
  const auto number = static_cast<DWORD>(process);
  const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, number);
  if (handle == nullptr) return GetLastError() != ERROR_INVALID_PARAMETER;
  const bool is_running = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
  CloseHandle(handle);
  return is_running;
}

// A file that is open cannot be removed by others: it needs no lock.
std::optional<int> Lock(std::FILE*) {
  return -1;
}
void Unlock(int) {}
void RemoveUnlessLocked(const fs::path& path) {
  DeleteFileW(path.c_str());
}

void RemoveOpen(std::FILE* stream, const fs::path& path) {
  if (stream != nullptr) CloseHandle(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))));
  DeleteFileW(path.c_str());
}

// Calls `action` with the name of each file in the folder. (The iterator of the standard library
// ends the program where memory runs out.)
template <class Action>
void ForEachName(const fs::path& folder, Action action) {
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW((folder / L"*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    action(NativeName(found.cFileName));
  } while (FindNextFileW(search, &found) != 0);
  FindClose(search);
}

// A new file that nobody else had; null, with EEXIST, when there is one of that name. Who may read
// it is what its folder says.
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

bool IsAlive(int process) {
  return kill(process, 0) == 0 || errno != ESRCH;
}

// A lock on the file of the stream that outlives the stream, or -1 where it cannot be had; nothing
// when the file was taken for a leftover before.
std::optional<int> Lock(std::FILE* stream) {
  const int descriptor = fcntl(fileno(stream), F_DUPFD_CLOEXEC, 0);
  if (descriptor < 0) return -1;
  const bool is_taken = flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  struct stat status = {};
  if (!is_taken && fstat(descriptor, &status) == 0 && status.st_nlink > 0) return descriptor;
  close(descriptor);
  return std::nullopt;
}

void Unlock(int descriptor) {
  if (descriptor >= 0) close(descriptor);
}

// The number of a process may have been given anew, or be that of a process on another machine:
// who writes the file holds its lock.
void RemoveUnlessLocked(const fs::path& path) {
  const int descriptor = open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return;
  if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) unlink(path.c_str());
  close(descriptor);
}

void RemoveOpen(std::FILE*, const fs::path& path) {
  unlink(path.c_str());
}

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

// Calls `action` with the name of each file in the folder. (The iterator of the standard library
// ends the program where memory runs out.)
template <class Action>
void ForEachName(const fs::path& folder, Action action) {
  const std::unique_ptr<DIR, CloseFolder> open_folder(opendir(folder.c_str()));
  if (!open_folder) return;
  while (const dirent* entry = readdir(open_folder.get())) action(NativeName(entry->d_name));
}

// A new file that nobody else had; null, with EEXIST, when there is one of that name, be it a link.
// A private one is readable by its owner alone.
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
constexpr std::string_view kPrefix = ".saving-";

fs::path NameBeside(const fs::path& target, int attempt) {
  return target.parent_path() /
         (std::string(kPrefix) + std::to_string(ProcessNumber()) + "-" + std::to_string(attempt));
}

// The number of the process that wrote a file of this name beside another; nothing where no file of
// this name is written.
std::optional<int> WriterOf(NativeName text) {
  const auto is_digit = [](auto c) { return '0' <= c && c <= '9'; };
  if (text.size() < kPrefix.size() || !std::equal(kPrefix.begin(), kPrefix.end(), text.begin())) {
    return std::nullopt;
  }
  const auto number = text.begin() + std::ssize(kPrefix);
  const auto number_end = std::find_if_not(number, text.end(), is_digit);
  constexpr std::ptrdiff_t kMostDigits = 9;
  const std::ptrdiff_t digits = number_end - number;
  if (digits < 1 || digits > kMostDigits || number_end == text.end() || *number_end != '-' ||
      !std::all_of(number_end + 1, text.end(), is_digit)) {
    return std::nullopt;
  }
  return std::stoi(std::string(number, number_end));
}

void RemoveLeftovers(const fs::path& folder) {
  ForEachName(folder, [&](NativeName name) {
    const std::optional<int> writer = WriterOf(name);
    if (writer && (*writer == ProcessNumber() || !IsAlive(*writer))) {
      RemoveUnlessLocked(folder / name);
    }
  });
}

// What a signal has to remove. More files than places are written by no program of ours; what such
// a one leaves goes with the next save.
std::array<std::atomic<AtomicFile*>, 16> unfinished;

void Exchange(AtomicFile* from, AtomicFile* to) {
  for (std::atomic<AtomicFile*>& place : unfinished) {
    AtomicFile* expected = from;
    if (place.compare_exchange_strong(expected, to)) return;
  }
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
  RemoveLeftovers(target_.parent_path());
  constexpr int kMostAttempts = 10000;  // others may be left that are not ours to remove
  for (int attempt = 1; attempt <= kMostAttempts; ++attempt) {
    beside_ = NameBeside(target_, attempt);
    if (OpenBeside(is_there) || errno != EEXIST) break;
  }
  if (stream_ != nullptr) Exchange(nullptr, this);
}

// False, with EEXIST, when the name is taken.
bool AtomicFile::OpenBeside(bool is_private) {
  std::FILE* stream = CreateFile(beside_, is_private);
  if (stream == nullptr) return false;
  if (const std::optional<int> lock = Lock(stream)) {
    lock_ = *lock;
    stream_ = stream;
    return true;
  }
  std::fclose(stream);
  errno = EEXIST;
  return false;
}

AtomicFile::~AtomicFile() {
  if (stream_ == nullptr) return;
  std::fclose(stream_);
  if (beside_ != target_) Finish(false);
}

bool AtomicFile::Commit() {
  if (stream_ == nullptr) return false;
  const bool written = Flush();
  const bool closed = std::fclose(std::exchange(stream_, nullptr)) == 0;
  if (beside_ == target_) return written && closed;
  return Finish(written && closed && Replace());
}

bool AtomicFile::Remove(const std::string& path) {
  const fs::path target = ResolveLinks(NativePath(path));
  std::error_code error;
  return fs::is_regular_file(target, error) && IsWritable(target) && fs::remove(target, error);
}

void AtomicFile::RemoveUnfinished() {
  for (std::atomic<AtomicFile*>& place : unfinished) {
    if (const AtomicFile* file = place.exchange(nullptr)) RemoveOpen(file->stream_, file->beside_);
  }
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

// Ends what is done beside the target. Once it has taken the target's place, its name may be that
// of another file.
bool AtomicFile::Finish(bool replaced) {
  std::error_code error;
  if (!replaced) fs::remove(beside_, error);
  Unlock(std::exchange(lock_, -1));
  Exchange(this, nullptr);
  return replaced;
}

}  // namespace zemva
