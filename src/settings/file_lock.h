// One process at a time on a file that is replaced whole.
#ifndef ZEMVA_SETTINGS_FILE_LOCK_H
#define ZEMVA_SETTINGS_FILE_LOCK_H

#include <string>

namespace zemva {

// Holds a file, while it lives, against every other FileLock on it in this and other processes;
// waits until it can. The lock stays on the name when the file is replaced under it.
class FileLock {
 public:
  // The file is made empty when it does not exist.
  explicit FileLock(const std::string& path);
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

  // False when the file cannot be opened for writing or cannot be locked.
  bool IsHeld() const { return descriptor_ >= 0; }

 private:
  int descriptor_ = -1;
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_FILE_LOCK_H
