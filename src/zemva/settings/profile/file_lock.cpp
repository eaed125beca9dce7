#include "zemva/settings/profile/file_lock.h"

#include <fcntl.h>

#if defined(_WIN32)
#include <io.h>
#include <sys/stat.h>
#else
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <thread>
#endif

namespace zemva {

#if defined(_WIN32)
// Settings are written by the system's own calls here, which see to it themselves; a handle kept
// open would bar the way of the file that replaces this one.
FileLock::FileLock(const std::string& path, std::chrono::milliseconds)
    : descriptor_(_open(path.c_str(), _O_RDWR | _O_CREAT | _O_BINARY, _S_IREAD | _S_IWRITE)) {
  if (descriptor_ >= 0) _close(descriptor_);
}

FileLock::~FileLock() = default;
#else
namespace {

bool IsSameFile(int descriptor, const std::string& path) {
  struct stat opened = {};
  struct stat named = {};
  return fstat(descriptor, &opened) == 0 && stat(path.c_str(), &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

using Clock = std::chrono::steady_clock;

bool LockExclusively(int descriptor, Clock::time_point latest) {
  constexpr std::chrono::milliseconds kBetweenTrials(1);
  while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EINTR && errno != EWOULDBLOCK) return false;
    if (Clock::now() >= latest) return false;
    std::this_thread::sleep_for(kBetweenTrials);
  }
  return true;
}

}  // namespace

// While this one waited, the holder may have replaced the file: the lock is then on a file that has
// lost its name, and the next one has to be taken.
FileLock::FileLock(const std::string& path, std::chrono::milliseconds wait) {
  const Clock::time_point latest = Clock::now() + wait;
  for (;;) {
    descriptor_ = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
    if (descriptor_ < 0) return;
    const bool is_locked = LockExclusively(descriptor_, latest);
    if (is_locked && IsSameFile(descriptor_, path)) return;
    close(descriptor_);
    descriptor_ = -1;
    if (!is_locked) return;
  }
}

FileLock::~FileLock() {
  if (descriptor_ >= 0) close(descriptor_);
}
#endif

}  // namespace zemva
