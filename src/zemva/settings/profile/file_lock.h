// One process at a time on a file that is replaced whole.
#ifndef ZEMVA_SETTINGS_PROFILE_FILE_LOCK_H
#define ZEMVA_SETTINGS_PROFILE_FILE_LOCK_H

#include <chrono>
#include <string>

namespace zemva {

// Holds a file, while it lives, against every other FileLock on it in this and other processes. The
// lock stays on the name when the file is replaced under it.
class FileLock {
 public:
  static constexpr std::chrono::milliseconds kLongestWait = std::chrono::seconds(5);

  // Waits until nobody else holds the file, but no longer than `wait`. The file is made empty when
  // it does not exist.
  explicit FileLock(const std::string& path, std::chrono::milliseconds wait = kLongestWait);
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

  // False when the file cannot be opened for writing or another one did not let go of it.
  bool IsHeld() const { return descriptor_ >= 0; }

 private:
  int descriptor_ = -1;
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_PROFILE_FILE_LOCK_H
